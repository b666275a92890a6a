// Lists as files, byte by byte.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "basis/datei.h"
#include "export/exportieren.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

class Exporttest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (std::filesystem::temp_directory_path() / "liedwerk-export-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Interpret = " Anna, Bj\xC3\xB6rn ";
        Satz.Titel = "Sag \"Ja\" <b>&";
        Satz.Dauer = 61;
        Satz.Größe = 1234567;
        SatzAnhängen(Index, "C:\\Musik\\eins.mp3", Satz);
        Datensatz OhneTag;
        OhneTag.HatId3v1 = TagFehlt;
        OhneTag.HatId3v2 = TagVorhanden;
        OhneTag.V2Interpret = "Lea";
        OhneTag.V2Titel = "Nur Zwei";
        OhneTag.HinzufügeDatum = "32.13.2000";
        SatzAnhängen(Index, "C:\\Musik\\zwei.mp3", OhneTag);
        Auftrag.Liste = {"Interpret", "Titel"};
        Auftrag.Trennzeichen = ",";
    }
    void TearDown() override { std::filesystem::remove_all(Ordner); }

    // The file of an export under this name.
    std::string Inhalt(const std::string& Name, std::vector<Satznummer> Sätze = {1, 2}) {
        Auftrag.Datei = Ordner + "/" + Name;
        EXPECT_TRUE(Exportieren(Sätze)) << Name;
        EXPECT_EQ(Person.Offen, 0);
        return DateiLesen(Auftrag.Datei).value_or("(fehlt)");
    }
    bool Exportieren(const std::vector<Satznummer>& Sätze) {
        return ExportSchreiben(Index, Sätze, Auftrag, Person, Log, Zeit);
    }

    std::string Ordner;
    Katalog Index;
    Exportauftrag Auftrag;
    speicher::Person Person;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Zeit;
};

TEST_F(Exporttest, TextTrenntUndKürzt) {
    Auftrag.Anführungszeichen = "\"";
    EXPECT_EQ(Inhalt("a.csv"),
              "\"Interpret\",\"Titel\"\r\n"
              "\"Anna, Bj\xF6rn\",\"Sag \"Ja\" <b>&\"\r\n"
              ",\r\n");
    EXPECT_EQ(Person.Titel, std::vector<std::string>{"Exportieren läuft"});
    // Without marks the comma of a value stays as it is, and values are trimmed all the same.
    Auftrag.Anführungszeichen.clear();
    EXPECT_EQ(Inhalt("b.csv", {1}), "Interpret,Titel\r\nAnna, Bj\xF6rn,Sag \"Ja\" <b>&\r\n");
    // A hidden column counts as a place: the last one leaves a separator, one between leaves nothing.
    Auftrag.Trennzeichen = "\t";
    Index.Optionen.SpaltenNutzerformat = "%Interpret%: %Titel%";
    Auftrag.Liste = {"Größe", "", "Benutzerdefiniert", "Nummer", ""};
    EXPECT_EQ(Inhalt("c.txt"),
              "Gr\xF6\xDF"
              "e\tInterpret: Titel\tNummer\t\r\n"
              "1.234.567\tAnna, Bj\xF6rn : Sag \"Ja\" <b>&\t1\t\r\n"
              "\tLea: Nur Zwei\t2\t\r\n");
    EXPECT_EQ(ExportspaltenVon({{3, 100}, {5, 0}, {19, 10}}),
              (Exportspalten{"Dateiname", "", "Benutzerdefiniert"}));
    EXPECT_EQ(ExportAlsText(Index, std::vector<Satznummer>{2}, {"Nummer", "Dateiname"}),
              "Nummer\tDateiname\r\n2\tzwei.mp3\r\n");
}

TEST_F(Exporttest, EineZeileJeSatzAuchMitZeilenendeImWert) {
    Datensatz Satz = Index.Sätze.Lesen(1);
    Satz.Titel = "a\r\n/etc/passwd";
    Index.Sätze.Setzen(1, "C:\\x.mp3", Satz);
    EXPECT_EQ(Inhalt("a.csv", {1}), "Interpret,Titel\r\nAnna, Bj\xF6rn,a  /etc/passwd\r\n");
    Auftrag.Modus = Exportmodus::Playliste;
    EXPECT_EQ(Inhalt("a.m3u", {1}),
              "#EXTM3U\r\n#EXTINF:61, Anna, Bj\xF6rn  - a  /etc/passwd\r\nC:\\x.mp3\r\n");
}

TEST_F(Exporttest, HtmlIstGenauDieseSeite) {
    Auftrag.Modus = Exportmodus::Html;
    Auftrag.Liste = {"Titel", "", "Hinzufüge-Datum"};
    const std::string Kopf =
        "<html><head><title>Liedwerk-HTML-Export</title></head><body>\r\n"
        "<center><font face=\"Arial\"><h2><a href=\"https://liedwerk.invalid/\">Liedwerk</a>-HTML-Export</h2>"
        "</font></center>\r\n"
        "<table border=\"0\" cellpadding=\"3\" cellspacing=\"1\" width=\"100%\" style=\"font-size: 9pt; "
        "font-family: Verdana; font-weight: bold\">\r\n"
        "<tr bgcolor=#dddddd>\r\n";
    EXPECT_EQ(Inhalt("a.htm", {1, 2, 1}),
              Kopf +
                  "<td width=\"33%\">Titel</td>\r\n<td width=\"33%\">Hinzuf\xFCge-Datum</td>\r\n</tr>\r\n"
                  "<tr bgcolor=#ffffff>\r\n<td>Sag \"Ja\" <b>&</td>\r\n<td></td>\r\n</tr>\r\n"
                  // A date that is none has no cell.
                  "<tr bgcolor=#dddddd>\r\n<td></td>\r\n</tr>\r\n"
                  "<tr bgcolor=#ffffff>\r\n<td>Sag \"Ja\" <b>&</td>\r\n<td></td>\r\n</tr>\r\n"
                  "</table></body></html>\r\n");
}

TEST_F(Exporttest, PlaylistenNachDerEndung) {
    Auftrag.Modus = Exportmodus::Playliste;
    const std::string M3u =
        "#EXTM3U\r\n#EXTINF:61, Anna, Bj\xF6rn  - Sag \"Ja\" <b>&\r\n"
        "C:\\Musik\\eins.mp3\r\nC:\\Musik\\zwei.mp3\r\n";
    EXPECT_EQ(Inhalt("a.m3u"), M3u);
    EXPECT_EQ(Inhalt("a.PLS"), M3u);
    EXPECT_EQ(Inhalt("a.pls"),
              "[playlist]\r\nFile1=C:\\Musik\\eins.mp3\r\nTitle1= Anna, Bj\xF6rn  - Sag \"Ja\" <b>&\r\n"
              "Length1=61\r\nFile2=C:\\Musik\\zwei.mp3\r\nLength2=0\r\n");
    Auftrag.PlaylistFürWinamp = false;
    EXPECT_EQ(Inhalt("b.m3u", {2, 1}), "C:\\Musik\\zwei.mp3\r\nC:\\Musik\\eins.mp3\r\n");
    EXPECT_EQ(Inhalt("b.pls", {1}), "[playlist]\r\nFile1=C:\\Musik\\eins.mp3\r\nLength1=61\r\n");
}

TEST_F(Exporttest, WasDieCodepageNichtHatWirdUtf8) {
    SatzAnhängen(Index, "/musik/\xE4\xFF Жук.mp3", Index.Sätze.Lesen(1));
    Auftrag.Liste = {"Interpret", "Dateiname"};
    EXPECT_EQ(Inhalt("a.csv", {1, 3}),
              "\xEF\xBB\xBFInterpret,Dateiname\r\nAnna, Björn,eins.mp3\r\nAnna, Björn,äÿ Жук.mp3\r\n");
    Auftrag.Modus = Exportmodus::Html;
    EXPECT_TRUE(Inhalt("a.htm", {3}).starts_with("\xEF\xBB\xBF<html>"));
    // A path keeps its bytes; a list with one of them is UTF-8 without a mark.
    Auftrag.Modus = Exportmodus::Playliste;
    EXPECT_EQ(Inhalt("a.m3u", {1, 3}),
              "#EXTM3U\r\n#EXTINF:61, Anna, Björn  - Sag \"Ja\" <b>&\r\nC:\\Musik\\eins.mp3\r\n"
              "#EXTINF:61, Anna, Björn  - Sag \"Ja\" <b>&\r\n/musik/\xE4\xFF Жук.mp3\r\n");
    Index.Sätze.PfadSetzen(3, "D:\\Жук.mp3");
    EXPECT_TRUE(Inhalt("b.pls", {3}).starts_with("[playlist]\r\nFile1=D:\\Жук.mp3\r\n"));
}

TEST_F(Exporttest, FormateFürHeutigeProgramme) {
    Datensatz Satz = Index.Sätze.Lesen(1);
    Satz.Titel = "a;\"b\"\nc";
    Index.Sätze.Setzen(1, "/m/\xFF.mp3", Satz);
    Index.Optionen.SpaltenBeideTags = 1;
    Auftrag.Modus = Exportmodus::Tabelle;
    Auftrag.Liste = {"Interpret", "", "Titel"};
    EXPECT_EQ(Inhalt("a.csv"),
              "\xEF\xBB\xBFInterpret;Titel\r\n\" Anna, Björn \";\"a;\"\"b\"\"\nc\"\r\nLea;Nur Zwei\r\n");
    Auftrag.Liste = {"Album", "Kommentar", "Interpret"};
    Satz.Album = "=cmd|' /C'!A0";
    Satz.Kommentar = "-rf";
    Satz.Interpret = "+44,5";
    SatzAnhängen(Index, "/m/f.mp3", Satz);
    EXPECT_TRUE(Inhalt("f.csv", {3}).ends_with("\r\n'=cmd|' /C'!A0;'-rf;+44,5\r\n"));
    Auftrag.Modus = Exportmodus::Json;
    Auftrag.Liste = {"Titel", "Dateiname"};
    EXPECT_EQ(Inhalt("a.json"),
              "[\n{\"Titel\":\"a;\\\"b\\\"\\nc\",\"Dateiname\":\"ÿ.mp3\"},\n"
              "{\"Titel\":\"Nur Zwei\",\"Dateiname\":\"zwei.mp3\"}\n]\n");
    EXPECT_EQ(Inhalt("b.json", {}), "[\n]\n");
    Auftrag.Modus = Exportmodus::M3u8;
    EXPECT_EQ(Inhalt("a.m3u8"),
              "#EXTM3U\r\n#EXTINF:61, Anna, Björn  - a;\"b\" c\r\n/m/\xFF.mp3\r\n"
              "#EXTINF:-1,Lea - Nur Zwei\r\nC:\\Musik\\zwei.mp3\r\n");
}

TEST_F(Exporttest, EinFehlschlagLässtDieAlteDatei) {
    Auftrag.Datei = Ordner + "/alt.csv";
    std::ofstream(Auftrag.Datei) << "alt";
    // A folder under the temporary name is in the way.
    std::filesystem::create_directory(Auftrag.Datei + "~lwitmp");
    EXPECT_FALSE(Exportieren({1}));
    EXPECT_EQ(DateiLesen(Auftrag.Datei), "alt");
    EXPECT_TRUE(Person.Meldungen.back().starts_with(
        "Die Datei '" + Auftrag.Datei +
        "' konnte nicht gespeichert werden, da diese nicht gelöscht werden kann."));
    EXPECT_TRUE(Log.Zeilen.back().starts_with("ExportSchreiben: Fehler - "));
    Auftrag.Datei = Ordner + "/fehlt/neu.csv";
    EXPECT_FALSE(Exportieren({1}));
    EXPECT_TRUE(Person.Meldungen.back().starts_with("Die Datei '" + Auftrag.Datei +
                                                    "' konnte nicht gespeichert werden.\n"));
    // A cancel does not cut a list short.
    Person.AbbruchBei = 1;
    EXPECT_EQ(Inhalt("alt2.csv"), "Interpret,Titel\r\nAnna, Bj\xF6rn,Sag \"Ja\" <b>&\r\n,\r\n");
}

}  // namespace
}  // namespace liedwerk
