// ID3v2 as other programs read and write it: what must come in, go out, and stay.
#include <random>

#include "basis/text.h"
#include "medien/id3v2modern.h"
#include "medien/tagdatei.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;
using namespace std::string_literals;

class Modern : public Medien {
  protected:
    Modern() { Umgebung.TAGsModern = true; }
    Datensatz V2(std::string_view Inhalt) const { return Lesen(Inhalt, "0110"); }
    // A file with this tag in front of its sound, after Ändern was applied to its record and saved.
    template <class Änderung>
    std::string Gespeichert(const std::string& Tag, Änderung&& Ändern, std::int32_t Prozent = 0) {
        Datensatz Satz = V2(Tag + Ton);
        Ändern(Satz);
        Meldung.clear();
        Id3v2Schreiben(Pfad(), Satz, {102400, Prozent, true}, Meldung);
        return *DateiLesen(Pfad());
    }
    std::string Pfad() const { return (Ordner / "titel.mp3").string(); }
    const std::string Ton = MpegRahmen({}, 3);
    std::string Meldung;
};

std::string Wert(int Kodierung, std::string_view Text) {
    return static_cast<char>(Kodierung) + std::string(Text);
}

TEST_F(Modern, JedeKodierungJederVersionWirdZuText) {
    const std::string Klein = "\xFF\xFE"s + "G\0r\0\xF6\0"s;
    struct Fall {
        std::string Inhalt;
        std::string Erwartet;
    };
    const std::vector<Fall> Fälle = {
        {Wert(0, "Gr\xF6\x80 "), "Grö€"},
        {Wert(1, Klein), "Grö"},
        {Wert(1, Klein + "\0\0"s), "Grö"},
        {Wert(1, "\xFE\xFF\0G\0r\0\xF6"s), "Grö"},
        {Wert(1, "G\0r\0"s), "Gr"},                    // no mark
        {Wert(1, "\xFF\xFE\x3D\xD8\x00\xDE!"s), "😀"},  // odd byte at the end
        {Wert(1, "\xFF\xFE\x3D\xD8x\0"s), "\xEF\xBF\xBDx"},
        {Wert(2, "\0G\0r\0\xF6"s), "Grö"},
        {Wert(3, "Grö😀\n"), "Grö😀"},
        {Wert(3, "\xEF\xBB\xBFGrö"), "Grö"},
        {Wert(3, "Gr\xF6"), "Grö"},
        {Wert(3, "a\0b\0\0"s), "a; b"},
        {Wert(1, Klein + "\0\0"s + Klein), "Grö; Grö"},
        {Wert(9, "x"), ""},
        {"", ""},
    };
    for (const Fall& F : Fälle) {
        for (const int Version : {2, 3, 4}) {
            const std::string Rahmen = Id3v2Rahmen(Version == 2 ? "TT2" : "TIT2", F.Inhalt, Version == 4);
            const Datensatz Satz = V2(Id3v2Tag(Version, Rahmen, 20) + Ton);
            EXPECT_EQ(Satz.V2Titel, F.Erwartet) << Version;
            EXPECT_EQ(Satz.Id3v2Benutzt, 10 + static_cast<int>(Rahmen.size()));
        }
    }
}

TEST_F(Modern, AufbauDesTagsHältDenTitelNichtAuf) {
    const std::string Titel = Id3v2Textrahmen("TIT2", "Titel");
    const std::string Bild = Id3v2Rahmen("APIC", std::string(200000, 'b'));
    const std::string Lang(300, 'x');
    const std::string Rahmen4 =
        Id3v2Rahmen("TALB", Wert(3, Lang), true) + Id3v2Rahmen("TIT2", "\3Titel", true);
    const std::string Frei = Id3v2Rahmen("TPE1", Wert(1, "\xFF\xFE\xFF\0a\0"s)) + Titel;
    std::string Mitgegangen = "TIT2\0\0\0\x0B\0\x43G\0\0\0\x06\3Titel"s;  // group, length, unsynchronised
    const std::vector<std::pair<const char*, std::string>> Tags = {
        {"large picture", Id3v2Tag(3, Bild + Titel)},
        {"sizes of seven bits", Id3v2Tag(4, Rahmen4)},
        {"plain sizes in 2.4", Id3v2Tag(4, Id3v2Rahmen("TALB", Wert(3, Lang)) + Titel)},
        {"footer", Id3v2Tag(4, Rahmen4, 0, 0x10)},
        {"unsynchronised", Id3v2Tag(3, Id3v2UnsynchronisationAnwenden(Frei), 30, 0x80)},
        {"flag alone",
         Id3v2Tag(4, Id3v2Rahmen("TPE1", Wert(1, "\xFF\xFE\xFF\0a\0"s), true) + Titel, 0, 0x80)},
        {"extended header 2.3", Id3v2Tag(3, "\0\0\0\6\0\0\0\0\0\0"s + Titel, 0, 0x40)},
        {"extended header 2.4", Id3v2Tag(4, "\0\0\0\6\1\0"s + Titel, 0, 0x40)},
        {"no extended header", Id3v2Tag(3, Titel, 0, 0x40)},
        {"frame flags", Id3v2Tag(4, Mitgegangen)},
        {"small letters", Id3v2Tag(3, Id3v2Rahmen("Date", "x") + Titel)},
        {"short identifier", Id3v2Tag(3, Id3v2Rahmen("TT2\0"s, "\0Titel"s))},
        {"compressed", Id3v2Tag(3, "TIT2\0\0\0\3\0\x80xyz"s + Titel)},
        {"rubbish behind", Id3v2Tag(3, Titel + "#+#+#+#+#+#+")},
        {"not at the start", std::string(5000, 'x') + Id3v2Tag(3, Titel)},
        {"cut off", Id3v2Tag(3, Titel + Bild, 1 << 20).substr(0, 3000)},
    };
    for (const auto& [Name, Tag] : Tags) {
        const Datensatz Satz = V2(Tag + (Name == "cut off"s ? "" : Ton));
        EXPECT_EQ(Satz.V2Titel, "Titel") << Name;
    }
    EXPECT_EQ(V2(Id3v2Tag(3, Bild + Titel) + Ton).Id3v2Größe, 10 + 200010 + 16);
    EXPECT_EQ(V2(Id3v2Tag(3, Titel) + Ton).Id3v2WeitereFelder, "");
    EXPECT_EQ(V2(Id3v2Tag(3, Bild + Titel) + Ton).Id3v2WeitereFelder, " ");
    Umgebung.TAGsBytesSuchen = 1;
    EXPECT_EQ(V2(Id3v2Tag(3, Titel) + Ton).V2Titel, "Titel");
    Umgebung.TAGsBytesSuchen = 0;
    // A tag appended to the file belongs to those who know of it; damaged ones are none.
    for (const std::string& Datei :
         {Ton + Id3v2Tag(4, Titel, 0, 0x10), "ID3\3\0\0\x80\0\0\1"s + Titel, "ID3\5\0\0\0\0\0\x10"s + Titel,
          "ID3\3\0\0\0"s, Ton + "ID3\3\0\0\0\0\0\0"s}) {
        EXPECT_EQ(V2(Datei).HatId3v2, TagFehlt);
    }
}

TEST_F(Modern, BesondereRahmenZeigenWasSieMeinen) {
    struct Fall {
        std::string Rahmen;
        std::string Datensatz::*Feld;
        std::string Erwartet;
    };
    const auto Kommentar = [](const std::string& Beschreibung, const std::string& Text) {
        return Id3v2Rahmen("COMM", "\0deu"s + Beschreibung + '\0' + Text);
    };
    const auto Genre = [](const std::string& Text) { return Id3v2Rahmen("TCON", Wert(0, Text)); };
    const std::vector<Fall> Fälle = {
        {Kommentar("iTunNORM", "0000") + Kommentar("x", "b") + Kommentar("", "a\nz"), &Datensatz::V2Kommentar,
         "a\nz"},
        {Kommentar("iTunNORM", "0000") + Kommentar("x", "b"), &Datensatz::V2Kommentar, "b"},
        {Kommentar("iTunNORM", "0000"), &Datensatz::V2Kommentar, ""},
        {Id3v2Rahmen("COMM", "\1eng\0\0\xFF\xFE"s + "a\0"s), &Datensatz::V2Kommentar, "a"},
        {Id3v2Rahmen("COMM", "\0engohne Ende"s), &Datensatz::V2Kommentar, "ohne Ende"},
        {Id3v2Rahmen("COMM", "\0en"s), &Datensatz::V2Kommentar, ""},
        {Id3v2Rahmen("WXXX", "\0x\0http://a"s) + Id3v2Rahmen("WXXX", "\0\0http://b"s), &Datensatz::V2Link,
         "http://b"},
        {Id3v2Rahmen("PCNT", "\0\0\1\0"s), &Datensatz::V2AbspielZähler, "256"},
        {Id3v2Rahmen("PCNT", "\000123"s), &Datensatz::V2AbspielZähler, "123"},  // as text
        {Genre("17"), &Datensatz::V2Genre, "(17)Rock"},
        {Genre("(17)"), &Datensatz::V2Genre, "(17)Rock"},
        {Genre("(4)Eurodisco"), &Datensatz::V2Genre, "(4)Eurodisco"},
        {Genre("(4)(17)Neu"), &Datensatz::V2Genre, "Disco; Rock; Neu"},
        {Genre("RX"), &Datensatz::V2Genre, "Remix"},
        {Genre("999"), &Datensatz::V2Genre, "999"},
        {Id3v2Textrahmen("TDRC", "2003-05-01"), &Datensatz::V2Jahr, "2003"},
        {Id3v2Textrahmen("TDRC", "2003") + Id3v2Textrahmen("TYER", "1999"), &Datensatz::V2Jahr, "1999"},
        {Id3v2Textrahmen("TPE1", "a") + Id3v2Textrahmen("TPE1", "b"), &Datensatz::V2Interpret, "a; b"},
    };
    for (const Fall& F : Fälle) {
        EXPECT_EQ(V2(Id3v2Tag(3, F.Rahmen) + Ton).*F.Feld, F.Erwartet) << F.Rahmen;
    }
    const auto Bewertung = [&](const std::string& Inhalt) {
        return V2(Id3v2Tag(3, Id3v2Rahmen("POPM", Inhalt)) + Ton).V2Qualität;
    };
    EXPECT_EQ(Bewertung("\0\xC4\0\0\0\1"s), 196);
    EXPECT_EQ(Bewertung("a@b\0\xC4"s), 196);
    EXPECT_EQ(Bewertung("\0email\0\xC4\0\0\0\0"s), 196);  // with the encoding byte of the other way
    EXPECT_EQ(Bewertung("a@b\0\0\0\0\0\1"s), KeineV2Qualität);
}

// Frames that no field shows, one of each kind.
std::string Fremde(bool SiebenBit) {
    return Id3v2Rahmen("APIC", "\0image/png\0\3\0"s + std::string(300, '\xFF'), SiebenBit) +
           "TIT2\0\0\0\5\0\x0Cpacked"s.substr(0, 15) + Id3v2Rahmen("TXXX", "\3a\0b"s, SiebenBit) +
           Id3v2Rahmen("COMM", "\0engiTunSMPB\0x"s, SiebenBit) +
           Id3v2Rahmen("ZZZZ", "\xFF\xE0\xFF"s, SiebenBit);
}

TEST_F(Modern, SpeichernÄndertNurWasSichÄnderte) {
    for (const int Version : {3, 4}) {
        const bool SiebenBit = Version == 4;
        const std::string Alt = Id3v2Rahmen("TALB", Wert(1, Utf16Text("Album")), SiebenBit);
        const std::string Titel = Id3v2Rahmen("TPE1", Wert(0, "alt"), SiebenBit);
        const std::string Tag = Id3v2Tag(Version, Alt + Fremde(SiebenBit) + Titel, 50);
        const std::string Neu = Gespeichert(Tag, [](Datensatz& Satz) {
            Satz.V2Interpret = "Björk";
            Satz.V2Titel = "日本";
        });
        const std::string Text =
            SiebenBit ? Id3v2Rahmen("TIT2", "\3日本", true) : Id3v2Textrahmen("TIT2", "日本", true);
        const std::string Name =
            SiebenBit ? Id3v2Rahmen("TPE1", "\3Björk", true) : Id3v2Textrahmen("TPE1", "Björk");
        const std::size_t Platz = Tag.size() - 10 - (Text + Alt + Fremde(SiebenBit) + Name).size();
        EXPECT_EQ(Neu, Id3v2Tag(Version, Text + Alt + Fremde(SiebenBit) + Name, Platz) + Ton) << Version;
        EXPECT_EQ(Gespeichert(Tag, [](Datensatz&) {}), Tag + Ton);
    }
}

TEST_F(Modern, Version22WirdZu23WennNichtsVerlorenGeht) {
    const std::string Bild = Id3v2Rahmen("PIC", "\0JPG\3\0bild"s);
    const std::string Tag = Id3v2Tag(2, Bild + Id3v2Textrahmen("TT2", "a") + Id3v2Rahmen("ULT", "\0eng\0x"s));
    const auto Setzen = [](Datensatz& Satz) { Satz.V2Herausgeber = "Ö"; };
    EXPECT_EQ(Gespeichert(Tag, Setzen),
              Id3v2Tag(3, Id3v2Textrahmen("TPUB", "Ö") + Id3v2Rahmen("APIC", "\0image/jpeg\0\3\0bild"s) +
                              Id3v2Textrahmen("TIT2", "a") + Id3v2Rahmen("USLT", "\0eng\0x"s)) +
                  Ton);
    const std::string Fremd = Id3v2Rahmen("CRM", "verschlüsselt");
    EXPECT_EQ(Gespeichert(Id3v2Tag(2, Fremd), Setzen),
              Id3v2Tag(2, Id3v2Textrahmen("TPB", "Ö") + Fremd) + Ton);
}

TEST_F(Modern, PaddingUnsynchronisationUndUmzug) {
    const std::string Titel = Id3v2Textrahmen("TIT2", "Titel");
    const auto Setzen = [](Datensatz& Satz) { Satz.V2Interpret = "ÿÿ"; };
    const std::string Interpret = Id3v2Rahmen("TPE1", "\0\xFF\xFF"s);
    // A new tag, one that moves to the front, and one that grows: the room is a share of the length.
    constexpr std::size_t Viertel = 10;  // of 39
    const std::string Gewachsen = Id3v2Tag(3, Interpret + Titel, Viertel) + Ton;
    EXPECT_EQ(Gespeichert("", Setzen, 100), Id3v2Tag(3, Interpret, 10 + Interpret.size()) + Ton);
    EXPECT_EQ(Gespeichert(Id3v2Tag(3, Titel), Setzen, 25), Gewachsen);
    EXPECT_EQ(Gespeichert("xyz" + Id3v2Tag(3, Titel), Setzen, 25),
              Gewachsen.substr(0, Gewachsen.size() - Ton.size()) + "xyz" + Ton);
    EXPECT_EQ(Gespeichert(Id3v2Tag(3, Titel, 0, 0x80), Setzen),
              Id3v2Tag(3, Id3v2UnsynchronisationAnwenden(Interpret + Titel), 0, 0x80) + Ton);
    const std::string Rahmen4 = Id3v2Rahmen("TIT2", "\0Titel"s, true);
    EXPECT_EQ(Gespeichert(Id3v2Tag(4, Rahmen4, 0, 0x80), [](Datensatz& Satz) { Satz.V2Album = "ab"; }),
              Id3v2Tag(4, "TALB\0\0\0\3\0\2\0ab"s + Rahmen4, 0, 0x80) + Ton);
    EXPECT_EQ(Gespeichert(Id3v2Tag(3, Titel), [](Datensatz& Satz) { Satz.V2Titel.clear(); }),
              Id3v2Tag(3, Id3v2Rahmen("TIT2", "\0"s), 5) + Ton);
}

TEST_F(Modern, ZehntausendeWerteHaltenNichtAuf) {
    std::string Werte = "\0"s;
    for (int Nummer = 0; Nummer < 100000; ++Nummer)
        Werte += std::to_string(Nummer) + '\0';
    std::string Viele;
    for (int Nummer = 0; Nummer < 40000; ++Nummer)
        Viele += Id3v2Textrahmen("TPE1", std::to_string(Nummer));
    const std::string Tag =
        Id3v2Tag(3, Id3v2Rahmen("TALB", Werte) + Viele + Id3v2Textrahmen("TIT2", "Titel"));
    const Datensatz Satz = V2(Tag + Ton);
    EXPECT_EQ(Satz.V2Titel, "Titel");
    EXPECT_EQ(Satz.V2Album, "");
    EXPECT_TRUE(Satz.V2Interpret.ends_with("; 999"));
    EXPECT_EQ(Gespeichert(Tag, [](Datensatz&) {}), Tag + Ton);
}

TEST_F(Modern, WasNichtGehtWirdGesagtUndNichtGetan) {
    const std::string Titel = Id3v2Textrahmen("TIT2", "Titel");
    const auto Neu = [](Datensatz& Satz) { Satz.V2Titel = "neu"; };
    const std::string Abgeschnitten = Id3v2Tag(3, Titel, 5000).substr(0, 2000);
    EXPECT_EQ(Gespeichert(Abgeschnitten, Neu), Abgeschnitten + Ton);
    EXPECT_NE(Meldung.find("endet nicht in der Datei"), std::string::npos);
    std::string Text;
    EXPECT_FALSE(TagAusDateiEntfernen(Pfad(), Tagblock::Id3v2, {0, 0, true}, Text));
    const std::string Gepackt = Id3v2Tag(2, "TT2xxxxxx", 0, 0x40);
    EXPECT_EQ(Gespeichert(Gepackt, Neu), Gepackt + Ton);
    EXPECT_NE(Meldung.find("komprimiert"), std::string::npos);
    EXPECT_EQ(Gespeichert(Id3v2Tag(3, Titel), [](Datensatz& Satz) { Satz.V2AbspielZähler = "oft"; }),
              Id3v2Tag(3, Titel) + Ton);
    EXPECT_NE(Meldung.find("'oft'"), std::string::npos);
}

// What a tag's damage does to the record is nobody's business; but a new tag must not crash, must bring the
// new value in and leave the others as they were read.
TEST_F(Modern, ZufälligeSchädenBleibenBeherrscht) {
    const std::string Lang =
        Id3v2Rahmen("WXXX", "\1\xFF\xFE"s + "a\0\0\0http://b"s) + Id3v2Rahmen("PCNT", "\0\0\0\7"s);
    const std::vector<std::string> Vorlagen = {
        Id3v2Tag(
            3, Id3v2Textrahmen("TPE1", "日本", true) + Fremde(false) + Lang + Id3v2Textrahmen("TCON", "(17)"),
            40),
        Id3v2Tag(4,
                 Fremde(true) + Id3v2Rahmen("TCON", "\3Rock\0007"s, true) +
                     Id3v2Rahmen("TDRC", "\0002003-01"s, true),
                 40, 0x80),
        Id3v2Tag(3, Id3v2UnsynchronisationAnwenden(Fremde(false) + Lang), 20, 0x80),
        Id3v2Tag(4, "\0\0\0\6\1\0"s + Fremde(true), 0, 0x50),
        Id3v2Tag(2,
                 Id3v2Rahmen("PIC", "\0JPG\3\0bild"s) + Id3v2Textrahmen("TT2", "a") +
                     Id3v2Rahmen("POP", "\0\5\0\0\0\1"s),
                 9),
    };
    std::mt19937 Zufall(20021);
    const auto Bis = [&](std::size_t Grenze) { return static_cast<std::size_t>(Zufall() % Grenze); };
    int Gelungen = 0;
    for (int Runde = 0; Runde < 1500; ++Runde) {
        std::string Datei = Vorlagen[Bis(Vorlagen.size())] + Ton;
        for (std::size_t Schaden = Bis(6); Schaden > 0; --Schaden)
            Datei[Bis(Bis(2) == 0 ? 40 : 500)] = static_cast<char>(Bis(3) == 0 ? 0xFF * Bis(2) : Bis(256));
        const Datensatz Vorher = V2(Datei);
        const Id3v2Umbau Alt = Id3v2EntfernungPlanen(Vorher);
        Datensatz Erwartet = Vorher;
        Erwartet.V2Titel = "neu ✓";
        const Id3v2Neubau Neubau = Id3v2ModernBilden(Datei.substr(Alt.Stelle, Alt.Altlänge), Erwartet);
        if (!Neubau.Hindernis.empty()) continue;
        ++Gelungen;
        const Datensatz Satz = V2(Neubau.Bytes + Ton);
        for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder) {
            EXPECT_EQ(Satz.*Feld.Feld, Erwartet.*Feld.Feld) << Runde << Feld.Kennung;
        }
        EXPECT_EQ(Satz.V2Qualität, Vorher.V2Qualität) << Runde;
    }
    EXPECT_GT(Gelungen, 600);
}

}  // namespace
}  // namespace liedwerk
