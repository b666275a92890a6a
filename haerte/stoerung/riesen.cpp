#include "haerte/stoerung/riesen.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "werkzeuge/tagbau.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;
using namespace tagbau;

constexpr std::uint64_t Riesengröße = 10'000'000'000;
constexpr std::int64_t HöchsterSpeicher = 256 * 1024;  // KiB
constexpr std::int64_t HöchsteDauer = 1'000'000;       // microseconds

struct Probe {
    std::string Name;
    std::string Bytes;
};

// Lengths and counts that promise far more than there is.
std::vector<Probe> Lügen() {
    const std::string Ton = MpegRahmen({}, 20);
    const std::string Groß = "\x7F\x7F\x7F\x7F";
    std::string Tag = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "kurz"), 10);
    std::string Rahmen = Id3v2Tag(4, Id3v2Rahmen("TIT2", "kurz", true), 10);
    Tag.replace(6, 4, Groß);
    Rahmen.replace(14, 4, Groß);
    std::string Alt = Id3v2Tag(3, Id3v2Rahmen("APIC", std::string(40, '\1')), 10);
    Alt.replace(14, 4, "\xFF\xFF\xFF\xFF");
    std::string Welle = WaveDatei(44100, 2, 16, 4000);
    std::string Stück = Welle;
    Welle.replace(4, 4, "\xFF\xFF\xFF\xFF");
    Stück.replace(16, 4, "\xFF\xFF\xFF\x7F");
    std::string Ogg = OggDatei({"TITLE=kurz"});
    const std::size_t Kommentar = Ogg.find("\3vorbis");
    if (Kommentar != std::string::npos) Ogg.replace(Kommentar + 7, 4, "\xFF\xFF\xFF\xFF");
    return {{"id3v2.mp3", Tag + Ton},
            {"rahmen.mp3", Rahmen + Ton},
            {"bild.mp3", Alt + Ton},
            {"xing.mp3", XingRahmen({}, 0xFFFFFFFFU) + Ton},
            {"lyrics.mp3", Ton + "LYRICSBEGININD0000210LYR99999kurz999999LYRICS200"},
            {"riff.wav", Welle},
            {"fmt.wav", Stück},
            {"kommentar.ogg", Ogg}};
}

void Messen(const Orte& Wo, Bericht& Wohin, const std::string& Was, const Befehlszeile& Befehl, bool Zeit) {
    Störung Ohne;
    Ohne.Raffer = 0;
    const auto Lauf =
        Gestarteter(Wo, Aufruf(Wo, Befehl), Ohne, 1).Abwarten(Zeit ? Zeitgrenze : 60 * Zeitgrenze);
    Wohin.Eingriff();
    std::cout << Was << ": " << Lauf.Höchststand / 1024 << " MiB, " << Lauf.Dauer / 1000 << " ms, davon "
              << Lauf.Rechenzeit / 1000 << " ms gerechnet" << std::endl;
    if (!Lauf.Gelungen()) Wohin.Bruch(Was + ": " + Lauf.Meldungen);
    if (Lauf.Höchststand > HöchsterSpeicher) Wohin.Bruch(Was + ": zu viel Speicher");
    // Other work on the machine says nothing about the program.
    if (Zeit && Lauf.Rechenzeit > HöchsteDauer) Wohin.Bruch(Was + ": zu langsam");
}

}  // namespace

void RiesenPrüfen(const Orte& Wo, Bericht& Wohin) {
    WeltHerstellen(Wo.Welt, {{"prog", {'d', {}, {}, 0, 0755}}, {"e.conf", {'f', {}, {}, 0, 0644}}});
    Wohin.FallBeginnen("lügende Längen");
    for (const Probe& Eine : Lügen()) {
        std::ofstream(Wo.Welt + "/" + Eine.Name, std::ios::binary) << Eine.Bytes;
        Messen(Wo, Wohin, "Auskunft " + Eine.Name, {"datei-info", "@" + Eine.Name}, true);
    }
    Messen(Wo, Wohin, "Auskunft, Text", {"dateiinfo-text", "@id3v2.mp3"}, true);
    Wohin.FallBeenden();

    Wohin.FallBeginnen("10 GB");
    const std::string Riese = Wo.Welt + "/riese.mp3";
    std::ofstream(Riese, std::ios::binary) << MpegRahmen({}, 20);
    std::error_code Fehler;
    fs::resize_file(Riese, Riesengröße, Fehler);
    if (Fehler) {
        std::cout << "10 GB wurden nicht geprüft: " << Fehler.message() << "\n";
    } else {
        Messen(Wo, Wohin, "Auskunft 10 GB", {"datei-info", "@riese.mp3"}, true);
        Messen(Wo, Wohin, "ID3v1 an 10 GB", {"tag-schreiben", "--v1", "Titel=neu", "@riese.mp3"}, true);
        if (fs::space(Wo.Welt).available > 2 * Riesengröße) {
            Messen(Wo, Wohin, "ID3v2 vor 10 GB", {"tag-schreiben", "--v2", "V2Titel=neu", "@riese.mp3"},
                   false);
        } else {
            std::cout << "ID3v2 vor 10 GB wurde nicht geprüft: der Platz fehlt.\n";
        }
    }
    Wohin.FallBeenden();
    fs::remove(Riese);
}

}  // namespace liedwerk::haerte
