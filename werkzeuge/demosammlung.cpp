// liedwerk-demosammlung ZIELORDNER: makes a small collection of media files to try the program with.
//
// About thirty files, together below 3 MB, of invented artists, in several folders: every kind of tag and
// file that the readers know occurs, beside a picture and a text. The sound is silence. The same bytes every
// time; files that are there already stay as they are.
#include <array>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk::werkzeuge {
namespace {

using namespace tagbau;

enum class Beschriftung {
    Ohne,
    V1,
    V1Titelnummer,
    V22,
    V23,
    V23Utf16,
    V24,
    V1UndV23,
    Lyrics1,
    Lyrics2,
    AlleTags,
};

enum class Klang {
    Stereo,    // MPEG 1 Layer III, 32 kbit/s, 44100 Hz
    Mono,      // the same with one channel
    Mpeg2,     // MPEG 2 Layer III, 8 kbit/s, 22050 Hz, mono
    Variabel,  // MPEG 1 Layer III with a Xing header
};

struct Lied {
    std::string_view Datei;
    std::string_view Interpret;
    std::string_view Titel;
    std::string_view Album;
    std::string_view Jahr;
    int Nummer;
    int Genre;
    Beschriftung Tags;
    Klang Ton;
    unsigned Sekunden;
};

constexpr std::array Lieder = {
    Lied{"Die Büroklammern/Montag/01 Morgen ist auch noch ein Tag.mp3", "Die Büroklammern",
         "Morgen ist auch noch ein Tag", "Montag", "1998", 1, 17, Beschriftung::V1Titelnummer, Klang::Stereo,
         24},
    Lied{"Die Büroklammern/Montag/02 Kaffee ohne Ende.mp3", "Die Büroklammern", "Kaffee ohne Ende", "Montag",
         "1998", 2, 17, Beschriftung::V1Titelnummer, Klang::Stereo, 31},
    Lied{"Die Büroklammern/Montag/03 Überstunden.mp3", "Die Büroklammern", "Überstunden", "Montag", "1998", 3,
         17, Beschriftung::V1UndV23, Klang::Stereo, 27},
    Lied{"Die Büroklammern/Montag/04 Feierabend.mp3", "Die Büroklammern", "Feierabend", "Montag", "1998", 4,
         17, Beschriftung::AlleTags, Klang::Stereo, 22},
    Lied{"Großstadtkapelle/Gleis 9/01 Ansage.mp3", "Großstadtkapelle", "Ansage", "Gleis 9", "2001", 1, 8,
         Beschriftung::V23, Klang::Mpeg2, 95},
    Lied{"Großstadtkapelle/Gleis 9/02 Verspätung.mp3", "Großstadtkapelle", "Verspätung", "Gleis 9", "2001", 2,
         8, Beschriftung::V23, Klang::Mpeg2, 133},
    Lied{"Großstadtkapelle/Gleis 9/03 Speisewagen.mp3", "Großstadtkapelle", "Speisewagen", "Gleis 9", "2001",
         3, 8, Beschriftung::V23Utf16, Klang::Mpeg2, 110},
    Lied{"Großstadtkapelle/Gleis 9/04 Endstation.mp3", "Großstadtkapelle", "Endstation", "Gleis 9", "2001", 4,
         8, Beschriftung::V24, Klang::Mpeg2, 124},
    Lied{"Nordlicht Trio - Ebbe.mp3", "Nordlicht Trio", "Ebbe", "Gezeiten", "1987", 0, 80, Beschriftung::V1,
         Klang::Mono, 25},
    Lied{"Nordlicht Trio - Flut.mp3", "Nordlicht Trio", "Flut", "Gezeiten", "1987", 0, 80, Beschriftung::V1,
         Klang::Mono, 21},
    Lied{"Lieder mit Text/Der Mond im Schrank.mp3", "Käthe Wölkchen", "Der Mond im Schrank", "Gute Nacht",
         "1976", 5, 101, Beschriftung::Lyrics2, Klang::Stereo, 20},
    Lied{"Lieder mit Text/Sieben Socken.mp3", "Käthe Wölkchen", "Sieben Socken", "Gute Nacht", "1976", 6, 101,
         Beschriftung::Lyrics1, Klang::Stereo, 18},
    Lied{"International/Émile Dubrac - Été à la fenêtre.mp3", "Émile Dubrac", "Été à la fenêtre",
         "Café Fermé", "1969", 1, 102, Beschriftung::V24, Klang::Variabel, 156},
    Lied{"International/Émile Dubrac - Garçon perdu.mp3", "Émile Dubrac", "Garçon perdu", "Café Fermé",
         "1969", 2, 102, Beschriftung::V1UndV23, Klang::Variabel, 26},
    Lied{"International/The Paper Kites of Leith - Rain Again.mp3", "The Paper Kites of Leith", "Rain Again",
         "Umbrella Songs", "2003", 3, 20, Beschriftung::V22, Klang::Stereo, 23},
    Lied{"International/The Paper Kites of Leith - Rain Once More.mp3", "The Paper Kites of Leith",
         "Rain Once More", "Umbrella Songs", "2003", 4, 20, Beschriftung::AlleTags, Klang::Stereo, 19},
    Lied{"International/Señor Cactus - Mañana quizás.mp3", "Señor Cactus", "Mañana quizás", "Siesta", "1994",
         7, 86, Beschriftung::V1UndV23, Klang::Mono, 22},
    Lied{"International/Łukasz Brzęk - Żółta łódź.mp3", "Łukasz Brzęk", "Żółta łódź", "Rzeka", "2002", 1, 52,
         Beschriftung::V23Utf16, Klang::Mono, 20},
    Lied{"Ohne Angaben/Ägypten-Express - Nachtzug.mp3", "", "", "", "", 0, 255, Beschriftung::Ohne,
         Klang::Stereo, 17},
    Lied{"Ohne Angaben/track07.mp3", "", "", "", "", 0, 255, Beschriftung::Ohne, Klang::Mpeg2, 88},
    Lied{"Doppelt/Morgen ist auch noch ein Tag.mp3", "Die Büroklammern", "Morgen ist auch noch ein Tag",
         "Montag", "1998", 1, 17, Beschriftung::V1Titelnummer, Klang::Stereo, 24},
};

constexpr std::string_view Liedtext =
    "Der Mond steht heut im Schrank,\r\nihm war am Himmel kalt.\r\nEr wärmt sich, Gott sei Dank,\r\n"
    "und morgen scheint er bald.";

std::string Ton(const Lied& Stück) {
    Rahmenkopf Kopf{.Bitratenindex = 1, .Modus = 1};
    if (Stück.Ton == Klang::Mono || Stück.Ton == Klang::Mpeg2) Kopf.Modus = 3;
    if (Stück.Ton == Klang::Mpeg2) Kopf.Version = 2;
    // Samples per second and per frame.
    const std::size_t Anzahl =
        Stück.Ton == Klang::Mpeg2 ? Stück.Sekunden * 22050U / 576U : Stück.Sekunden * 44100U / 1152U;
    if (Stück.Ton != Klang::Variabel) return MpegRahmen(Kopf, Anzahl);
    return XingRahmen(Kopf, static_cast<std::uint32_t>(Anzahl)) + MpegRahmen(Kopf, Anzahl);
}

std::string V1(const Lied& Stück, int Nummer) {
    return Id3v1Block({.Titel = AnsiText(Stück.Titel),
                       .Interpret = AnsiText(Stück.Interpret),
                       .Album = AnsiText(Stück.Album),
                       .Jahr = AnsiText(Stück.Jahr),
                       .Kommentar = "Demosammlung",
                       .Titelnummer = Nummer,
                       .Genre = Stück.Genre});
}

std::string V22(const Lied& Stück) {
    return Id3v2Tag(2,
                    Id3v2Textrahmen("TT2", Stück.Titel) + Id3v2Textrahmen("TP1", Stück.Interpret) +
                        Id3v2Textrahmen("TAL", Stück.Album) + Id3v2Textrahmen("TYE", Stück.Jahr),
                    64);
}

std::string V2(const Lied& Stück, int Version, bool Utf16) {
    const auto Text = [&](std::string_view Kennung, std::string_view Wert) {
        return Id3v2Textrahmen(Kennung, Wert, Utf16, Version == 4);
    };
    const std::string Genre = "(" + std::to_string(Stück.Genre) + ")";
    const std::string Bewertung = std::string("demo@liedwerk.invalid") + '\0' + '\xC0' + std::string(4, '\0');
    return Id3v2Tag(Version,
                    Text("TRCK", std::to_string(Stück.Nummer)) + Text("TCON", Genre) +
                        Text("TYER", Stück.Jahr) + Text("TALB", Stück.Album) + Text("TPE1", Stück.Interpret) +
                        Text("TIT2", Stück.Titel) +
                        Id3v2Rahmen("COMM", std::string("\0eng\0Demosammlung", 17), Version == 4) +
                        Id3v2Rahmen("POPM", Bewertung, Version == 4),
                    256);
}

std::string Liedertag(const Lied& Stück) {
    return LyricsV2(LyricsFeld("IND", "11") + LyricsFeld("EAL", AnsiText(Stück.Album)) +
                    LyricsFeld("LYR", AnsiText(Liedtext)));
}

std::string Inhalt(const Lied& Stück) {
    switch (Stück.Tags) {
        case Beschriftung::Ohne:
            return Ton(Stück);
        case Beschriftung::V1:
            return Ton(Stück) + V1(Stück, 0);
        case Beschriftung::V1Titelnummer:
            return Ton(Stück) + V1(Stück, Stück.Nummer);
        case Beschriftung::V22:
            return V22(Stück) + Ton(Stück);
        case Beschriftung::V23:
            return V2(Stück, 3, false) + Ton(Stück);
        case Beschriftung::V23Utf16:
            return V2(Stück, 3, true) + Ton(Stück);
        case Beschriftung::V24:
            return V2(Stück, 4, false) + Ton(Stück);
        case Beschriftung::V1UndV23:
            return V2(Stück, 3, false) + Ton(Stück) + V1(Stück, Stück.Nummer);
        case Beschriftung::Lyrics1:
            return Ton(Stück) + LyricsV1(AnsiText(Liedtext)) + V1(Stück, Stück.Nummer);
        case Beschriftung::Lyrics2:
            return Ton(Stück) + Liedertag(Stück) + V1(Stück, Stück.Nummer);
        case Beschriftung::AlleTags:
            return V2(Stück, 3, false) + Ton(Stück) + Liedertag(Stück) + V1(Stück, Stück.Nummer);
    }
    return {};
}

struct Ergebnis {
    int Geschrieben = 0;
    int Vorhanden = 0;
    bool Gescheitert = false;
};

Dateifehler Schreiben(const std::string& Pfad, std::string_view Bytes) {
    if (auto Fehler = OrdnerAnlegen(PfadVon(Pfad))) return Fehler;
    Dateiersatz Datei;
    if (Datei.Öffnen(Pfad, Pfad + "~") == Dateiersatz::Öffnung::Gesperrt) {
        return {-1, "Ein anderes Programm schreibt gerade diese Datei"};
    }
    if (Datei.Schreiben(Bytes)) Datei.Übernehmen();
    return Datei.Fehler();
}

// After the first failure nothing more is tried: the next file would fail for the same reason.
void Anlegen(const std::string& Pfad, std::string_view Bytes, Ergebnis& Stand) {
    if (Stand.Gescheitert) return;
    if (DateistandLesen(Pfad)) {
        ++Stand.Vorhanden;
    } else if (const auto Fehler = Schreiben(Pfad, Bytes)) {
        Stand.Gescheitert = true;
        std::cerr << "Die Datei '" << Pfad << "' konnte nicht angelegt werden: " << Fehler.Text
                  << ". Wählen Sie einen Ordner, in den Sie schreiben dürfen.\n";
    } else {
        ++Stand.Geschrieben;
    }
}

// What is no MPEG audio.
void AndereAnlegen(const std::string& Ordner, Ergebnis& Stand) {
    const auto Datei = [&](std::string_view Name, const std::string& Bytes) {
        Anlegen(PfadVerbinden(Ordner, Name), Bytes, Stand);
    };
    Datei("Ogg/Wintergarten - Schneeglöckchen.ogg",
          OggDatei({"TITLE=Schneeglöckchen", "ARTIST=Wintergarten", "ALBUM=Unter Glas", "DATE=2002",
                    "TRACKNUMBER=3", "GENRE=Folk", "COMMENT=Demosammlung"},
                   20000));
    Datei("Ogg/Wintergarten - Gießkanne.ogg",
          OggDatei({"TITLE=Gießkanne", "ARTIST=Wintergarten", "ALBUM=Unter Glas", "DATE=2002",
                    "TRACKNUMBER=4", "GENRE=Gewächshausmusik"},
                   24000));
    Datei("Geräusche/Türklingel.wav", WaveDatei(8000, 1, 16, 8000 * 2 * 6));
    Datei("Geräusche/Bahnsteig.wav", WaveDatei(11025, 2, 16, 11025 * 4 * 4));
    Datei("Großstadtkapelle/Gleis 9/Umschlag.bmp", BmpDatei(64, 64, 0x2060A0));
    Datei("Die Büroklammern/Montag/Umschlag.gif", GifDatei());
    Datei("Liesmich.txt",
          "Diese Dateien enthalten Stille. Interpreten und Titel sind erfunden.\r\n"
          "Sie dürfen alles mit ihnen ausprobieren.\r\n");
}

// The exit code: 0 when everything is there.
int DemosammlungAnlegen(const std::string& Ordner) {
    Ergebnis Stand;
    for (const Lied& Stück : Lieder) {
        Anlegen(PfadVerbinden(Ordner, Stück.Datei), Inhalt(Stück), Stand);
    }
    AndereAnlegen(Ordner, Stand);
    std::cout << Stand.Geschrieben << " Dateien in '" << Ordner << "' angelegt, " << Stand.Vorhanden
              << " waren schon da.\n";
    return Stand.Gescheitert ? 1 : 0;
}

}  // namespace
}  // namespace liedwerk::werkzeuge

int main(int Anzahl, char** Argumente) {
    if (Anzahl != 2 || std::string_view(Argumente[1]).empty() ||
        std::string_view(Argumente[1]).starts_with('-')) {
        std::cerr << "Aufruf: liedwerk-demosammlung ZIELORDNER\n";
        return 2;
    }
    // An absolute path, since a path's style is told by its first character.
    return liedwerk::werkzeuge::DemosammlungAnlegen(std::filesystem::absolute(Argumente[1]).string());
}
