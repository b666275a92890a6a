// The exchange of index fields.
#include "index/felderaustausch.h"

#include <random>

#include "basis/pfad.h"
#include "umgebung.h"

namespace liedwerk {
namespace {

class Feldertest : public Indextest {
  protected:
    void SetUp() override {
        Indextest::SetUp();
        Index.Programmmodus = ModusIndexdatei;
        Felddatei = Ordner + "/a.ifd";
    }
    // The plain walk through the index for a path.
    Satzfinder Walk(const Katalog& Wo) {
        return [&Wo](std::string_view Pfad) {
            for (Satznummer Nummer = 1; Nummer <= Wo.IndexAnzahl(); ++Nummer) {
                if (PfadeGleich(Wo.Sätze.Pfad(Nummer), Pfad)) return Nummer;
            }
            return Satznummer{0};
        };
    }
    std::optional<std::size_t> Importieren() {
        return DateiLadenIndexFelder(Index, Umgebung(), Felddatei, Walk(Index), true);
    }
    std::optional<std::size_t> Importieren(const std::string& Zeilen) {
        Ablegen(Felddatei, "#indexfelder11\r\n" + Zeilen);
        return Importieren();
    }
    void Anhängen(const std::string& Pfad, int Häufigkeit, const std::string& Datum, const std::string& Text,
                  int Mark) {
        Datensatz Satz;
        Satz.AbspielHäufigkeit = Häufigkeit;
        Satz.AbspielDatum = Datum;
        Satz.BenutzerDaten = Text;
        Satz.Qualität = static_cast<std::int16_t>(Mark);
        SatzAnhängen(Index, Pfad, Satz);
    }
    // The four fields of a record as one text.
    std::string Stand(Satznummer Nummer) const {
        const Datensatz Satz = Index.Sätze.Lesen(Nummer);
        return std::to_string(Satz.AbspielHäufigkeit) + "|" + Satz.AbspielDatum + "|" + Satz.BenutzerDaten +
               "|" + std::to_string(Satz.Qualität);
    }
    std::string Felddatei;
};

TEST_F(Feldertest, SchreibtJedenSatzUndLiestIhnZurück) {
    Anhängen("C:\\m\\\xC3\xA4.mp3", 12, "01.02.2003 04:05:06", "gut\r\nЖ", 7);
    Anhängen("/m/\xFF.mp3", 0, "", "ohne Datum", 3);
    ASSERT_TRUE(IndexFelderSpeichern(Index, Umgebung(), Felddatei, true));
    EXPECT_EQ(Inhalt(Felddatei),
              "#indexfelder11\r\n"
              "#TAG:10/2/19/10/1|C:\\m\\\xE4.mp31201.02.2003 04:05:06\xEF\xBB\xBFgut  Ж7\r\n"
              "#TAG:11/1//10/1|\xEF\xBB\xBF/m/\xFF.mp30ohne Datum3\r\n");
    EXPECT_EQ(Person.Offen, 0);
    Index.Sätze.Setzen(1, "c:\\M\\Ä.mp3", {});
    Index.Sätze.Setzen(2, "/m/\xFF.mp3", {});
    EXPECT_EQ(Importieren(), 2u);
    EXPECT_EQ(Stand(1), "12|01.02.2003 04:05:06|gut  Ж|7");
    EXPECT_EQ(Stand(2), "0|||0") << "an empty date ends the values of its line";
    EXPECT_TRUE(Index.IndexGeändert);
    EXPECT_EQ(Person.Titel.back(), "Importiere 'a.ifd'");

    Index.Programmmodus = ModusDateimanager;
    ASSERT_TRUE(IndexFelderSpeichern(Index, Umgebung(), Felddatei, false));
    EXPECT_EQ(Inhalt(Felddatei), "#indexfelder11\r\n");
}

TEST_F(Feldertest, FremdeZeilenWerdenGelesenSoweitEsGeht) {
    const std::string Alt = "5|01.01.2001 00:00:00|alt|5";
    const struct {
        const char* Zeilen;
        std::string Erwartet;
        const char* Log;
    } Fälle[] = {
        {"", Alt, "Ende "},
        {"#TAG:4/1/10/3/1|/x/a901.02.2003neu0\r\n", "9|01.02.2003|neu|0", "Ende "},
        // The last line needs no end, and may have half of one.
        {"#TAG:4/1|/x/a7\r", "7|01.01.2001 00:00:00|alt|5", "Ende "},
        {"#TAG:4//10/3/1|/x/a01.02.2003neu8\r\n", Alt, "Ende "},
        {"#TAG:4/1/10//1|/x/a901.02.20038\r\n", "9|01.02.2003|alt|5", "Ende "},
        {"#TAG:4/1/10/3/1|/x/a901.02.2003ne", "9|01.02.2003|ne|5",
         "Fehler in Zeile 2 - Checksumme der Zeile ist 34 statt 33 (Lesen), Zeile = '#TAG:4/1/10"},
        {"#TAG:4/x/10|/x/a9\r\nUnsinn\r\n#TAG:4/1|/x/a3\r\n", "3|01.01.2001 00:00:00|alt|5",
         "Ungültige Zeile - 'Unsinn'/3"},
        {"#TAG:4/1/10/3/1/2|/x/a901.02.2003neu8yy\r\n", "9|01.02.2003|neu|8",
         "Zeile 2 - Datenfeld nicht erkannt, da neuer"},
        {"#TAG:4/1/10/3/1|/X/A901.02.2003neu8\r\n#TAG:\r\n", Alt, "Fehler in Zeile 3"},
    };
    for (const auto& Fall : Fälle) {
        Index = Katalog();
        Index.Programmmodus = ModusIndexdatei;
        Log.Zeilen.clear();
        Anhängen("/x/a", 5, "01.01.2001 00:00:00", "alt", 5);
        // The second record of a path keeps what it has.
        Anhängen("/x/a", 5, "01.01.2001 00:00:00", "alt", 5);
        EXPECT_TRUE(Importieren(Fall.Zeilen)) << Fall.Zeilen;
        EXPECT_EQ(Stand(1), Fall.Erwartet) << Fall.Zeilen;
        EXPECT_EQ(Stand(2), Alt) << Fall.Zeilen;
        EXPECT_TRUE(Geloggt(Fall.Log)) << Fall.Zeilen << "\n" << testing::PrintToString(Log.Zeilen);
    }
}

TEST_F(Feldertest, FehlschlägeLassenAllesWieEsWar) {
    Anhängen("/x/a", 5, "", "alt", 5);
    EXPECT_FALSE(Importieren());
    EXPECT_EQ(Person.Meldungen.back(), "Die IndexFelder-Datei '" + Felddatei + "' wurde nicht gefunden.");
    Ablegen(Felddatei, "#indexfelder10\r\n#TAG:4/1|/x/a7\r\n");
    EXPECT_FALSE(Importieren());
    EXPECT_EQ(Person.Meldungen.back(), "Die IndexFelder-Datei '" + Felddatei +
                                           "' ist ungültig oder veraltet und kann nicht verarbeitet werden.");
    // Larger than any memory: what it is must be seen without reading it.
    for (const auto& [Anfang, Erwartet] : {std::pair{"\x1A\x45\xDF\xA3", "ist ungültig oder veraltet"},
                                           std::pair{"#indexfelder11\r\n", "größer als 4 GB"}}) {
        Ablegen(Felddatei, Anfang);
        fs::resize_file(Felddatei, std::uintmax_t{1} << 38);
        EXPECT_FALSE(Importieren());
        EXPECT_NE(Person.Meldungen.back().find(Erwartet), std::string::npos) << Person.Meldungen.back();
    }
    Person.AbbruchBei = 2;
    Person.Zeigungen = 0;
    EXPECT_FALSE(Importieren("#TAG:4/1|/x/a7\r\n#TAG:4/1|/x/a8\r\n"));
    EXPECT_EQ(Person.Offen, 0);
    EXPECT_FALSE(Index.IndexGeändert);
    EXPECT_EQ(Stand(1), "5||alt|5");

    Person.AbbruchBei = 0;
    Ablegen(Felddatei + "~", Inhalt(Felddatei));
    EXPECT_TRUE(IndexFelderSpeichern(Index, Umgebung(), Felddatei, true));
    const std::string Vorher = Inhalt(Felddatei);
    EXPECT_NE(Inhalt(Felddatei + "~"), Vorher) << "an editor's backup copy is nobody's leftover";
    fs::create_symlink(Ordner + "/sonstwo", VorläufigerName(Felddatei));
    EXPECT_FALSE(IndexFelderSpeichern(Index, Umgebung(), Felddatei, true));
    EXPECT_EQ(Inhalt(Felddatei), Vorher);
    EXPECT_FALSE(fs::exists(Ordner + "/sonstwo"));
}

}  // namespace
}  // namespace liedwerk
