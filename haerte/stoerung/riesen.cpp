#include "haerte/stoerung/riesen.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <iterator>

#include "werkzeuge/tagbau.h"

namespace liedwerk::haerte {
namespace {

namespace fs = std::filesystem;
using namespace tagbau;

constexpr std::uint64_t Riesengröße = 10'000'000'000;
constexpr std::uint64_t Lügengröße = std::uint64_t{4} << 30;  // beyond 32 bits
constexpr std::int64_t HöchsterSpeicher = 256 * 1024;         // KiB
constexpr std::int64_t HöchsteDauer = 1'000'000;              // microseconds

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

std::string Bytes(std::initializer_list<int> Werte) {
    std::string Alle;
    for (const int Wert : Werte)
        Alle += static_cast<char>(Wert);
    return Alle;
}

// The formats that are read by a library: lengths of parts, and of texts within them.
std::vector<Probe> WeitereLügen() {
    const std::string Größte(4, '\xFF');
    const std::string Flac = "fLaC" + Bytes({0, 0, 0, 34, 16, 0, 16, 0, 0, 0, 0, 0, 0, 0, 10, 196, 66, 240}) +
                             std::string(20, '\0');
    const std::string Mp4 = GroßesEnde(24, 4) + "ftypM4A " + std::string(12, '\0');
    const std::string Apemarke = "APETAGEX" + KleinesEnde(2000, 4) + Größte + Größte + std::string(12, '\0');
    const std::string Asf =
        Bytes({0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0, 0xAA, 0, 0x62, 0xCE, 0x6C});
    const std::string AsfMehr =
        Bytes({0x40, 0xA4, 0xD0, 0xD2, 0x07, 0xE3, 0xD2, 0x11, 0x97, 0xF0, 0, 0xA0, 0xC9, 0x5E, 0xA8, 0x50});
    const std::string AsfInhalt =
        Bytes({0x33, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0, 0xAA, 0, 0x62, 0xCE, 0x6C});
    const std::string Zwei = KleinesEnde(2, 4) + Bytes({1, 2});
    const std::string Opus = "OggS" + Bytes({0, 2}) + std::string(8, '\0') + KleinesEnde(1, 4) +
                             std::string(8, '\0') + Bytes({1, 19}) + "OpusHead" + Bytes({1, 2}) +
                             std::string(9, '\0') + "OggS" + std::string(10, '\0') + KleinesEnde(1, 4) +
                             KleinesEnde(1, 4) + std::string(4, '\0') + Bytes({1, 255}) + "OpusTags";
    return {{"block.flac", "fLaC" + Bytes({0, 255, 255, 255}) + std::string(34, '\0')},
            {"kommentar.flac", Flac + Bytes({0x84, 255, 255, 255}) + Größte + std::string(100, 'x')},
            {"anzahl.flac",
             Flac + Bytes({0x84, 0, 0, 64}) + KleinesEnde(4, 4) + "abcd" + Größte + Größte + "TITLE=x"},
            {"atom.m4a", Mp4 + Größte + "moov" + Größte + "trak" + std::string(60, '\0')},
            {"langesatom.m4a", Mp4 + GroßesEnde(1, 4) + "moov" + "\x7F" + Größte + std::string(63, '\xFF')},
            {"kopf.ape", "MAC " + KleinesEnde(3990, 2) + std::string(2, '\0') + Größte + Größte + Größte +
                             std::string(60, '\0') + Apemarke},
            {"marke.mp3", MpegRahmen({}, 20) + Apemarke},
            {"stueck.aiff", "FORM" + Größte + "AIFFCOMM" + Größte + std::string(40, '\0')},
            {"kopf.wma", Asf + KleinesEnde(1ULL << 62U, 8) + Größte + Bytes({1, 2}) + AsfMehr +
                             KleinesEnde(1ULL << 62U, 8) + std::string(80, '\xFF')},
            {"inhalt.wma", Asf + KleinesEnde(200, 8) + Zwei + AsfInhalt + KleinesEnde(1ULL << 40U, 8) +
                               std::string(10, '\xFF') + std::string(100, 'x')},
            {"kommentar.opus", Opus + Größte + std::string(200, 'x')}};
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
    std::vector<Probe> Alle = Lügen();
    std::ranges::move(WeitereLügen(), std::back_inserter(Alle));
    for (const Probe& Eine : Alle) {
        const std::string Datei = Wo.Welt + "/" + Eine.Name;
        std::ofstream(Datei, std::ios::binary) << Eine.Bytes;
        const Befehlszeile Auskunft = {"--setze", "WeitereFormate=1", "datei-info", "@" + Eine.Name};
        Messen(Wo, Wohin, "Auskunft " + Eine.Name, Auskunft, true);
        std::error_code Fehler;
        fs::resize_file(Datei, Lügengröße, Fehler);
        // The tags of the end tell the same lies there.
        std::ofstream(Datei, std::ios::binary | std::ios::app) << Eine.Bytes;
        if (!Fehler) Messen(Wo, Wohin, "Auskunft " + Eine.Name + ", 4 GB", Auskunft, true);
        if (Eine.Name != "id3v2.mp3") fs::remove(Datei);
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
