// The parts of the command line program: call, JSON, visible text.
#include <gtest/gtest.h>

#include "ui/text/aufruf.h"
#include "ui/text/ausgabe.h"
#include "ui/text/befehle.h"
#include "ui/text/json.h"

namespace liedwerk {
namespace {

using Texte = std::vector<std::string>;

TEST(Aufruf, OptionenStehenVorUndHinterDemBefehl) {
    const auto Gelesen = AufrufLesen({"--index", "/m/x.lwi", "suchen", "--json", "--abfrage=A|0000|b|c",
                                      "--abfrage", "B||", "--jetzt", "02.01.2026 03:04:05", "--", "--feld"});
    ASSERT_EQ(Gelesen.Fehler, "");
    EXPECT_EQ(Gelesen.Gewählt, BefehlFinden("suchen"));
    EXPECT_EQ(Gelesen.Global.Index, "/m/x.lwi");
    EXPECT_TRUE(Gelesen.Global.Json);
    EXPECT_EQ(DatumZeitText(*Gelesen.Global.Jetzt), "02.01.2026 03:04:05");
    EXPECT_EQ(Gelesen.Eingabe.AlleWerte("--abfrage"), (Texte{"A|0000|b|c", "B||"}));
    EXPECT_EQ(Gelesen.Eingabe.Argumente, Texte{"--feld"});
    EXPECT_FALSE(Gelesen.Eingabe.Hat("--feld"));
}

TEST(Aufruf, FalschesWirdErkanntBevorEtwasGeschieht) {
    for (const Texte& Falsch :
         {Texte{}, Texte{"gibtesnicht"}, Texte{"synchronisieren", "a"}, Texte{"suchen", "--gibtesnicht"},
          Texte{"suchen", "--feld"}, Texte{"suchen", "--zaehlen=1"}, Texte{"suchen", "a", "b"},
          Texte{"hinzufuegen"}, Texte{"--setze", "GibtEsNicht=1", "index-info"},
          Texte{"--setze", "WinampBalance", "index-info"},
          Texte{"--setze", "WinampBalance=laut", "index-info"}, Texte{"--jetzt", "31.02.2026", "index-info"},
          Texte{"--index", "", "index-info"}, Texte{"index-info", "--ausgabe", "x"}})
        EXPECT_NE(AufrufLesen(Falsch).Fehler, "") << ::testing::PrintToString(Falsch);
    EXPECT_EQ(AufrufLesen({"hinzufuegen", "--hilfe"}).Fehler, "");
    EXPECT_EQ(
        AufrufLesen({"--setze", "AutoTagFormate1=a", "--setze", "AutoTagFormate2=b", "index-info"}).Fehler,
        "");
}

TEST(Befehle, SindSortiertUndWerdenGefunden) {
    const auto Alle = Befehle();
    for (std::size_t i = 0; i < Alle.size(); ++i) {
        EXPECT_TRUE(i == 0 || Alle[i - 1].Name < Alle[i].Name) << Alle[i].Name;
        EXPECT_EQ(BefehlFinden(Alle[i].Name), &Alle[i]);
        EXPECT_TRUE(Alle[i].Aufruf.starts_with(Alle[i].Name));
        for (const auto& Option : Alle[i].Optionen)
            EXPECT_NE(Alle[i].Aufruf.find(Option.Name), std::string_view::npos) << Option.Name;
    }
}

TEST(Json, KeinByteSprengtDasDokument) {
    EXPECT_EQ(JsonText("a\"\\\n\t\x01\x1f ü€😀"), "\"a\\\"\\\\\\n\\t\\u0001\\u001f ü€😀\"");
    // Bytes that are no UTF-8: their Windows-1252 characters, the free ones as C1.
    EXPECT_EQ(JsonText("\xFC\x80\x81\u009b\x7f\u202E"), R"("ü€\u0081\u009b\u007f\u202e")");
    EXPECT_EQ(JsonText("\xED\xA0\x80"), "\"í\u00A0€\"");  // a surrogate is no character
}

TEST(Sichtbarkeit, NichtsBefiehltDemTerminal) {
    EXPECT_EQ(Sichtbar("a\x1b[2Jb\r\n"), "a␛[2Jb␍␊");
    EXPECT_EQ(Sichtbar("a\nb", true), "a\nb");
    EXPECT_EQ(Sichtbar("\u009b1m\xFF"), "\\x9B1m\\xFF");
    EXPECT_EQ(Sichtbar("gp\u202E3pm.exe"), "gp\\u202E3pm.exe");
    EXPECT_EQ(Anzeigebreite("Grüße"), 5u);
    EXPECT_EQ(Anzeigebreite("e\u0301"), 1u);
    EXPECT_EQ(Anzeigebreite("日本"), 4u);
}

TEST(Tabelle, SpaltenStehenUntereinander) {
    std::FILE* Datei = std::tmpfile();
    ASSERT_NE(Datei, nullptr);
    {
        Ausgabe Ziel(Datei);
        Tabelle Zeilen(Ziel, {"Nr", "Titel", "Ende"});
        Zeilen.Zeile({"1", "日本", "x"});
        Zeilen.Zeile({"10", "Müller-Meier", ""});
        Zeilen.Fertig();
    }
    std::string Text(200, '\0');
    std::rewind(Datei);
    Text.resize(std::fread(Text.data(), 1, Text.size(), Datei));
    std::fclose(Datei);
    EXPECT_EQ(Text, "Nr  Titel         Ende\n1   日本          x\n10  Müller-Meier\n");
}

}  // namespace
}  // namespace liedwerk
