#include "suche/feldwert.h"

#include <gtest/gtest.h>

#include "index/genres.h"
#include "index/spalten.h"
#include "katalog_bauen.h"

namespace liedwerk {
namespace {

// One record and what a field gives for it: sort form, display form, both with type.
struct Zeile {
    std::string_view Feld;
    std::string Sortiert;
    std::string Gezeigt;
    Feldtyp Typ = Feldtyp::Text;
    Feldtyp SortierTyp = Feldtyp::Text;
};

void Prüfen(const Katalog& Index, bool AndererTag, const std::vector<Zeile>& Tafel) {
    for (const auto& [Feld, Sortiert, Gezeigt, Typ, SortierTyp] : Tafel) {
        std::string Wert = "alt";
        Feldtyp Art{};
        EXPECT_TRUE(FeldWert(Index, 1, Feld, Wertform::Sortieren, AndererTag, Wert, Art)) << Feld;
        EXPECT_EQ(Wert, Sortiert) << Feld;
        EXPECT_EQ(Art, SortierTyp) << Feld;
        EXPECT_TRUE(FeldWert(Index, 1, Feld, Wertform::Anzeigen, AndererTag, Wert, Art)) << Feld;
        EXPECT_EQ(Wert, Gezeigt) << Feld;
        EXPECT_EQ(Art, Typ) << Feld;
    }
}

constexpr auto Zahl = Feldtyp::Zahl;

Katalog Mit(const Datensatz& Satz, std::string_view Pfad = "C:\\Musik\\Lied.v2.mp3") {
    Katalog Index;
    SatzAnhängen(Index, Pfad, Satz);
    return Index;
}

TEST(FeldWert, FelderDerDatei) {
    Datensatz Satz;
    Satz.Größe = 5242880;
    Satz.Bitrate = 192;
    Satz.VBR = true;
    Satz.Dauer = 3825;
    Satz.Frequenz = 44100;
    Satz.Modus = "Stereo";
    Satz.Wechselmedium = "CD-17";
    Satz.HinzufügeDatum = "5.1.2003";
    Satz.AbspielDatum = "5.1.2003 7:08";
    Satz.BenutzerDaten = "schön";
    Prüfen(Mit(Satz), false,
           {{"Nummer", "1", "1", Zahl, Zahl},
            {"Pfad", "C:\\Musik", "C:\\Musik"},
            {"Dateiname", "Lied.v2.mp3", "Lied.v2.mp3"},
            {"Datei-Endung", ".mp3", ".mp3"},
            {"Pfad+Dateiname", "C:\\Musik\\Lied.v2.mp3", "C:\\Musik\\Lied.v2.mp3"},
            {"Größe", "5.242.880", "5.242.880", Zahl, Zahl},
            {"Bitrate", "192 VBR", "192 VBR"},
            {"Dauer", "3825", "1:03:45", Feldtyp::Dauer, Zahl},
            {"Frequenz", "44100 Hz, Stereo", "44100 Hz, Stereo"},
            {"Frames", "0", "", Zahl, Zahl},
            {"Wechselmedium", "CD-17", "CD-17"},
            {"Hinzufüge-Datum", "20030105", "05.01.2003", Feldtyp::Datum, Zahl},
            {"Abspiel-Datum", "20030105070800", "05.01.2003 07:08:00", Feldtyp::DatumZeit, Zahl},
            {"Abspiel-Häufigkeit", "0", "0", Zahl, Zahl},
            {"Benutzer-Daten", "schön", "schön"},
            {"Qualität", "0", "0"},
            {"ID3v2-TAG-Größe", "", ""},
            {"Interpret", "", ""},
            {"Jahr", "", "", Zahl, Zahl},
            {"Track", "0", "", Zahl, Zahl},
            {"(Standardsuche)", "      C:\\Musik\\Lied.v2.mp3", "      C:\\Musik\\Lied.v2.mp3"}});

    Satz = {};
    Satz.Größe = -1;
    Satz.Dauer = -1;
    Satz.Frequenz = 8000;
    Satz.Bitrate = 8;
    Prüfen(Mit(Satz, "/musik/a.b/c"), true,
           {{"Größe", "0", "", Zahl, Zahl},
            {"Dauer", "0", "", Feldtyp::Dauer, Zahl},
            {"Frequenz", "8000 Hz", "8000 Hz"},
            {"Bitrate", "8 CBR", "8 CBR"},
            {"Hinzufüge-Datum", "0", "", Feldtyp::Datum, Zahl},
            {"Abspiel-Datum", "0", "", Feldtyp::DatumZeit, Zahl},
            {"Pfad", "/musik/a.b", "/musik/a.b"},
            {"Datei-Endung", "", ""}});
}

TEST(FeldWert, DasFehlenDesTagsEntscheidetNichtDerLeereWert) {
    Datensatz Satz;
    Satz.HatId3v1 = TagVorhanden;
    Satz.HatId3v2 = TagVorhanden;
    Satz.V2Titel = "Zwei";
    Satz.V2Jahr = "2001";
    Satz.V2Titelnummer = "7";
    Satz.V2Genre = "(17)Rock";
    Satz.Genre = 144;
    Satz.Id3v2Version = ".3.0";
    Satz.Id3v2Größe = 4096;
    Prüfen(Mit(Satz), true,
           {{"Titel", "", ""},
            {"Jahr", "0", "", Zahl, Zahl},
            {"Track", "0", "", Zahl, Zahl},
            {"Genre", "", ""},  // the last name of the list is not shown
            {"Titel-ID3v2", "Zwei", "Zwei"},
            {"Jahr-ID3v2", "2001", "2001"},
            {"Track-ID3v2", "07", "07", Zahl, Zahl},
            {"Genre-ID3v2", "Rock", "Rock"},
            {"ID3v2-TAG-Version", "2.3.0", "2.3.0"},
            {"ID3v2-TAG-Größe", "4.096", "4.096"}});
    Satz.HatId3v1 = TagOhneDaten;
    Satz.V2Genre = ")Rock(";
    Prüfen(Mit(Satz), true,
           {{"Titel", "Zwei", "Zwei"},
            {"Jahr", "2001", "2001", Zahl, Zahl},
            {"Titelnummer", "07", "07", Zahl, Zahl},
            {"Genre", ")Rock(", ")Rock("}});
    Satz.V2Jahr.clear();
    Prüfen(Mit(Satz), true, {{"Jahr", "", "", Zahl, Zahl}});  // only the own tag's empty year sorts as 0
    Prüfen(Mit(Satz), false, {{"Titel", "", ""}, {"Track", "0", "", Zahl, Zahl}});

    Satz.HatId3v1 = TagVorhanden;
    Satz.HatId3v2 = TagFehlt;
    Satz.Titel = "Eins";
    Satz.Genre = 135;
    Satz.Titelnummer = "123";
    Prüfen(Mit(Satz), true,
           {{"Titel-ID3v2", "Eins", "Eins"},
            {"Jahr-ID3v2", "0", "", Zahl, Zahl},
            {"Track-ID3v2", "123", "123", Zahl, Zahl},
            {"Genre-ID3v2", "Christian Gangsta Rap", "Christian Gangsta Rap"},
            {"ID3v2-TAG-Version", "", ""}});
    Satz.HatId3v1 = TagFehlt;
    Prüfen(Mit(Satz), true, {{"Titel-ID3v2", "", ""}, {"Jahr-ID3v2", "", ""}});
}

TEST(FeldWert, SchlechteDatenUndFremdeNamen) {
    Datensatz Satz;
    Satz.HinzufügeDatum = "31.2.2003";
    Satz.AbspielDatum = "1|2|2003";
    const Katalog Index = Mit(Satz);
    std::string Wert;
    Feldtyp Typ{};
    for (const Wertform Form : {Wertform::Sortieren, Wertform::Anzeigen}) {
        EXPECT_FALSE(FeldWert(Index, 1, "Hinzufüge-Datum", Form, false, Wert, Typ));
        EXPECT_EQ(Wert, "");
    }
    EXPECT_FALSE(FeldWert(Index, 1, "Abspiel-Datum", Wertform::Sortieren, false, Wert, Typ));
    EXPECT_EQ(Wert, "");
    EXPECT_TRUE(FeldWert(Index, 1, "Abspiel-Datum", Wertform::Anzeigen, false, Wert, Typ));
    EXPECT_EQ(Wert, "01.01.1900 00:00:00");
    for (const std::string_view Name : {"interpret", "Interpret ", "", "x%Titel%"}) {
        Wert = "alt";
        EXPECT_FALSE(FeldWert(Index, 1, Name, Wertform::Anzeigen, false, Wert, Typ)) << Name;
        EXPECT_EQ(Wert, "");
    }
    EXPECT_FALSE(FeldWert(Index, 0, "Nummer", Wertform::Anzeigen, false, Wert, Typ));
    for (const auto& Spalte : SpaltenNamen)
        EXPECT_TRUE(FeldFinden(Spalte.Name).Bekannt) << Spalte.Name;
}

TEST(BenutzerFormat, SetztSortierformenEin) {
    Datensatz Satz;
    Satz.HatId3v1 = TagVorhanden;
    Satz.Interpret = "50%Titel%";
    Satz.Titel = "Lied";
    Satz.Dauer = 225;
    Satz.HinzufügeDatum = "5.1.2003";
    Katalog Index = Mit(Satz);
    const auto Format = [&](std::string_view Vorlage) {
        return BenutzerFormatAnwenden(Index, 1, Vorlage, true);
    };
    EXPECT_EQ(Format("%Dauer%/%HINZUFÜGE-datum%/%Frames%"), "225/20030105/0");
    EXPECT_EQ(Format("%Interpret% - %Titel%"), "50%Titel% - Lied");
    EXPECT_EQ(Format("100 % %Titel"), "100 Titel");  // " " is an unknown name
    EXPECT_EQ(Format("100 % Titel"), "100 % Titel");
    EXPECT_EQ(Format("a%%b%Nix%c"), "abc");
    EXPECT_EQ(BenutzerFormatAnwenden(Index, 0, "a%Titel%b", true), "ab");

    EXPECT_EQ(WertVon(Index, 1, "%Titel%!"), "Lied!");
    EXPECT_EQ(WertVon(Index, 1, "Benutzerdefiniert"), "50%Titel% - Lied");
    Index.Optionen.SpaltenNutzerformat = "[%Benutzerdefiniert%%Titel%]";
    EXPECT_EQ(WertVon(Index, 1, "%Benutzerdefiniert%"), "[Lied]");
}

TEST(BenutzerFormat, VervielfachtKeinenLangenWert) {
    Datensatz Satz;
    Satz.HatId3v1 = TagVorhanden;
    Satz.Titel = std::string(90000, 'x');
    Katalog Index = Mit(Satz);
    std::string Format, Wert;
    for (int i = 0; i < 10000; ++i)
        Format += "%Titel%";
    EXPECT_EQ(BenutzerFormatAnwenden(Index, 1, Format, true), std::string(180000, 'x'));
    // A field that names the format again gives it one more time only.
    Index.Optionen.SpaltenNutzerformat = Format + "%Benutzerdefiniert%";
    Feldtyp Art{};
    FeldWert(Index, 1, "Benutzerdefiniert", Wertform::Anzeigen, false, Wert, Art);
    EXPECT_LT(Wert.size(), 300000U);
}

TEST(FeldWert, AnzeigetypStimmtFürAlleSätze) {
    std::mt19937 Zufall(1);
    const Katalog Index = ZufälligerKatalog(Zufall, 60);
    for (const auto& Spalte : SpaltenNamen) {
        for (const bool AndererTag : {false, true}) {
            const auto Erwartet = Anzeigetyp(FeldFinden(Spalte.Name), AndererTag);
            for (Satznummer Nummer = 1; Erwartet && Nummer <= Index.IndexAnzahl(); ++Nummer) {
                std::string Wert;
                Feldtyp Typ{};
                FeldWert(Index, Nummer, Spalte.Name, Wertform::Anzeigen, AndererTag, Wert, Typ);
                ASSERT_EQ(Typ, *Erwartet) << Spalte.Name;
            }
        }
    }
}

TEST(Formate, DauerUndZeit) {
    EXPECT_EQ(DauerFormatieren(225, true), "03:45");
    EXPECT_EQ(DauerFormatieren(225, false), "0:03:45");
    EXPECT_EQ(DauerFormatieren(36000, true), "10:00:00");
    EXPECT_EQ(ZeitFormatieren("5.1.03 7:08", true), "05.01.2003 07:08:00");
    EXPECT_EQ(ZeitFormatieren("5.1.03 7:08", false), "5.1.03 7:08");
    EXPECT_EQ(ZeitFormatieren("", true), "01.01.1900 00:00:00");
}

}  // namespace
}  // namespace liedwerk
