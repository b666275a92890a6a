// liedwerk-sammlungsgenerator ORDNER ANZAHL [SAAT]: makes a collection of so many MP3 files, 100 KB on
// average.
//
// The same arguments give the same bytes everywhere. Every kind of tag occurs: none, ID3v1 and v1.1,
// ID3v2.2, 2.3 and 2.4 (with padding, pictures, UTF-16), Lyrics3 v1 and v2, Xing headers, and the kinds
// together. Sound is noise, so that searches in it have to work.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "basis/zahl.h"
#include "werkzeuge/tagbau.h"
#include "werkzeuge/wortschatz.h"
#include "werkzeuge/zufall.h"

namespace liedwerk::werkzeug {
namespace {

namespace fs = std::filesystem;

// What is written about a file, whatever its tags are.
struct Titeldaten {
    std::string Künstler;
    std::string Album;
    std::string Titel;
    int Jahr = 0;
    int Nummer = 0;
    Genrewahl Genre{};
};

std::string Rauschen(Zufall& Würfel, std::size_t Länge) {
    std::string Bytes(Länge, '\0');
    for (char& Byte : Bytes)
        Byte = static_cast<char>(Würfel.Nächste());
    return Bytes;
}

// Frames of about Länge bytes whose data is cut out of Vorrat.
std::string Klang(Zufall& Würfel, std::string_view Vorrat, std::size_t Länge, bool Variabel) {
    tagbau::Rahmenkopf Kopf;
    Kopf.Bitratenindex = static_cast<unsigned>(Würfel.Zahl(5, 14));
    Kopf.Modus = static_cast<unsigned>(Würfel.Zahl(0, 1));
    const std::size_t Rahmen = tagbau::Rahmenlänge(Kopf);
    const std::string Anfang = tagbau::KopfBytes(Kopf);
    const std::size_t Anzahl = Länge / Rahmen + 1;
    std::string Bytes;
    Bytes.reserve((Anzahl + 1) * Rahmen);
    if (Variabel) Bytes = tagbau::XingRahmen(Kopf, static_cast<std::uint32_t>(Anzahl));
    for (std::size_t i = 0; i < Anzahl; ++i) {
        const int Letzter = static_cast<int>(Vorrat.size() - Rahmen);
        Bytes += Anfang;
        Bytes += Vorrat.substr(static_cast<std::size_t>(Würfel.Zahl(0, Letzter)), Rahmen - Anfang.size());
    }
    return Bytes;
}

std::string Id3v2Bilden(Zufall& Würfel, std::string_view Vorrat, const Titeldaten& Daten) {
    const int Version = Würfel.Trifft(10) ? 2 : Würfel.Trifft(30) ? 4 : 3;
    const bool Utf16 = Würfel.Trifft(10);
    std::string Inhalt;
    const auto Textrahmen = [&](std::string_view Lang, std::string_view Kurz, std::string_view Text) {
        Inhalt += tagbau::Id3v2Textrahmen(Version == 2 ? Kurz : Lang, Text, Utf16, Version == 4);
    };
    Textrahmen("TIT2", "TT2", Daten.Titel);
    Textrahmen("TPE1", "TP1", Daten.Künstler);
    Textrahmen("TALB", "TAL", Daten.Album);
    Textrahmen("TRCK", "TRK", std::to_string(Daten.Nummer));
    Textrahmen("TYER", "TYE", std::to_string(Daten.Jahr));
    Textrahmen("TCON", "TCO", Daten.Genre.Name);
    if (Würfel.Trifft(30)) Textrahmen("TPUB", "TPB", VerlagBilden(Würfel));
    if (Version > 2 && Würfel.Trifft(30)) {
        Inhalt += tagbau::Id3v2Rahmen(
            "COMM", std::string("\0deu\0", 5) + tagbau::AnsiText(KommentarBilden(Würfel)), Version == 4);
    }
    if (Version > 2 && Würfel.Trifft(20)) {
        const auto Bild = static_cast<std::size_t>(Würfel.Zahl(3000, 30000));
        Inhalt += tagbau::Id3v2Rahmen(
            "APIC", std::string("\0image/jpeg\0\3\0", 14) + std::string(Vorrat.substr(0, Bild)),
            Version == 4);
    }
    return tagbau::Id3v2Tag(Version, Inhalt, Würfel.Trifft(60) ? 1024 : 0);
}

std::string Id3v1Bilden(Zufall& Würfel, const Titeldaten& Daten) {
    tagbau::Id3v1Angaben Angaben;
    Angaben.Titel = tagbau::AnsiText(Daten.Titel);
    Angaben.Interpret = tagbau::AnsiText(Daten.Künstler);
    Angaben.Album = tagbau::AnsiText(Daten.Album);
    Angaben.Jahr = std::to_string(Daten.Jahr);
    if (Würfel.Trifft(25)) Angaben.Kommentar = tagbau::AnsiText(KommentarBilden(Würfel)).substr(0, 28);
    if (Würfel.Trifft(70)) Angaben.Titelnummer = Daten.Nummer;
    Angaben.Genre = Daten.Genre.Nummer;
    if (Würfel.Trifft(30)) Angaben.Füllung = ' ';
    return tagbau::Id3v1Block(Angaben);
}

std::string LyricsBilden(Zufall& Würfel) {
    std::string Text;
    for (int Zeilen = Würfel.Zahl(4, 30); Zeilen > 0; --Zeilen) {
        Text += tagbau::AnsiText(TitelBilden(Würfel)) + "\r\n";
    }
    if (Würfel.Trifft(30)) return tagbau::LyricsV1(Text);
    return tagbau::LyricsV2(tagbau::LyricsFeld("IND", "10") + tagbau::LyricsFeld("LYR", Text));
}

std::string DateiBilden(Zufall& Würfel, std::string_view Vorrat, const Titeldaten& Daten) {
    const bool MitV2 = Würfel.Trifft(65);
    const bool MitV1 = Würfel.Trifft(MitV2 ? 70 : 85);
    const bool MitLyrics = MitV1 && Würfel.Trifft(10);
    std::string Bytes;
    if (MitV2) Bytes += Id3v2Bilden(Würfel, Vorrat, Daten);
    Bytes += Klang(Würfel, Vorrat, static_cast<std::size_t>(Würfel.Zahl(40000, 150000)), Würfel.Trifft(30));
    if (MitLyrics) Bytes += LyricsBilden(Würfel);
    if (MitV1) Bytes += Id3v1Bilden(Würfel, Daten);
    return Bytes;
}

bool Erzeugen(const fs::path& Ziel, int Anzahl, std::uint64_t Saat) {
    Zufall Würfel(Saat);
    const std::string Vorrat = Rauschen(Würfel, std::size_t{1} << 20U);
    Titeldaten Daten;
    fs::path Ordner;
    for (int i = 0; i < Anzahl; ++i) {
        // Ten files an album; the number in front keeps two albums of one name apart.
        if (i % 10 == 0) {
            Daten.Künstler = KünstlerBilden(Würfel);
            Daten.Album = AlbumBilden(Würfel);
            Daten.Jahr = Würfel.Zahl(1961, 2025);
            Daten.Genre = GenreWählen(Würfel);
            Ordner =
                Ziel / Namensteil(Daten.Künstler) / (std::to_string(i / 10) + ' ' + Namensteil(Daten.Album));
            fs::create_directories(Ordner);
        }
        Daten.Nummer = i % 10 + 1;
        Daten.Titel = TitelBilden(Würfel);
        const fs::path Datei =
            Ordner / (std::to_string(Daten.Nummer) + " - " + Namensteil(Daten.Titel) + ".mp3");
        const std::string Bytes = DateiBilden(Würfel, Vorrat, Daten);
        std::ofstream Strom(Datei, std::ios::binary | std::ios::trunc);
        Strom.write(Bytes.data(), static_cast<std::streamsize>(Bytes.size()));
        if (!Strom.flush()) {
            std::cerr << "Die Datei '" << Datei.string() << "' konnte nicht geschrieben werden.\n";
            return false;
        }
    }
    return true;
}

}  // namespace
}  // namespace liedwerk::werkzeug

int main(int Wortzahl, char** Worte) {
    using namespace liedwerk;
    const auto Anzahl = Wortzahl >= 3 ? GanzzahlLesen<int>(Worte[2]) : std::nullopt;
    const auto Saat = Wortzahl == 4 ? GanzzahlLesen<std::int64_t>(Worte[3]) : 1;
    if (Wortzahl > 4 || !Anzahl || *Anzahl < 0 || !Saat) {
        std::cerr << "Aufruf: liedwerk-sammlungsgenerator ORDNER ANZAHL [SAAT]\n";
        return 2;
    }
    try {
        return werkzeug::Erzeugen(Worte[1], *Anzahl, static_cast<std::uint64_t>(*Saat)) ? 0 : 1;
    } catch (const std::filesystem::filesystem_error& Fehler) {
        std::cerr << "Der Ordner konnte nicht angelegt werden: " << Fehler.what() << '\n';
        return 1;
    }
}
