#include <gtest/gtest.h>

#include "core/einstellungsspeicher.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

TEST(Einstellungen, LeererSpeicherGibtDieVorgaben) {
    const speicher::Werte Leer;
    const Einstellungen Gelesen = EinstellungenLesen(Leer, nullptr);
    EXPECT_EQ(Gelesen.Start, 0);
    EXPECT_EQ(Gelesen.Mp3TagLesen, "101");
    EXPECT_EQ(Gelesen.AutoTagLeer, -1);
    EXPECT_EQ(Gelesen.TAGsBytesSuchen, 102400);
    EXPECT_EQ(Gelesen.AutomtischSpeichernNurBeiEingaben, "1");
    EXPECT_TRUE(Gelesen.ZuletztGeladen.empty());
}

TEST(Einstellungen, WerteFalscherArtUndBreiteGebenDieVorgabe) {
    speicher::Werte Speicher;
    Speicher.Inhalt = {{"Mp3TagLesen", 111},
                       {"BackupsSpeichernIntervall", std::string("7")},
                       {"WinampLautstärke", 70000},
                       {"FensterLeft", 70000}};
    const Einstellungen Gelesen = EinstellungenLesen(Speicher, nullptr);
    EXPECT_EQ(Gelesen.Mp3TagLesen, "101");
    EXPECT_EQ(Gelesen.BackupsSpeichernIntervall, 12);
    EXPECT_EQ(Gelesen.WinampLautstärke, 128);
    EXPECT_EQ(Gelesen.FensterLeft, 70000);
}

TEST(Einstellungen, GeschriebenesKommtWiederUndKurzeListenEnden) {
    speicher::Werte Speicher;
    Einstellungen Werte;
    Werte.Dateiname = "/m/ä\"b.lwi";
    Werte.WinampBalance = -128;
    Werte.ZuletztGeladen = {"/a", "/b", "/c"};
    Werte.AutoTagFormate = {"%Titel%"};
    EXPECT_EQ(EinstellungenSchreiben(Werte, Speicher), "");
    Werte.ZuletztGeladen = {"/c"};
    EinstellungenSchreiben(Werte, Speicher);
    const Einstellungen Gelesen = EinstellungenLesen(Speicher, nullptr);
    EXPECT_EQ(Gelesen.Dateiname, Werte.Dateiname);
    EXPECT_EQ(Gelesen.WinampBalance, -128);
    EXPECT_EQ(Gelesen.ZuletztGeladen, Werte.ZuletztGeladen);
    EXPECT_EQ(Gelesen.AutoTagFormate, Werte.AutoTagFormate);
    Speicher.Sicherungsfehler = "Der Datenträger ist voll";
    EXPECT_EQ(EinstellungenSchreiben(Werte, Speicher), "Der Datenträger ist voll");
}

TEST(Einstellungen, DieWurzelEntscheidetSichAnStart) {
    speicher::Werte Nutzer;
    speicher::Werte Rechner;
    Nutzer.Inhalt["WinampPfad"] = std::string("nutzer");
    Rechner.Inhalt["WinampPfad"] = std::string("rechner");
    EXPECT_EQ(EinstellungenLesen(Nutzer, &Rechner).WinampPfad, "nutzer");
    Rechner.Inhalt["Start"] = 100;
    EXPECT_EQ(EinstellungenLesen(Nutzer, &Rechner).WinampPfad, "rechner");
    Nutzer.Inhalt["Start"] = 100;
    EXPECT_EQ(EinstellungenLesen(Nutzer, &Rechner).WinampPfad, "nutzer");
}

TEST(Einstellungen, SetzenPrüftNamenArtUndBreite) {
    Einstellungen Werte;
    EXPECT_TRUE(EinstellungSetzen(Werte, "Mp3TagLesen", "111"));
    EXPECT_TRUE(EinstellungSetzen(Werte, "WinampBalance", "-5"));
    EXPECT_TRUE(EinstellungSetzen(Werte, "AutoTagFormate1", "%Titel%"));
    EXPECT_EQ(Werte.Mp3TagLesen, "111");
    EXPECT_EQ(Werte.WinampBalance, -5);
    EXPECT_EQ(Werte.AutoTagFormate, std::vector<std::string>{"%Titel%"});
    for (const auto& [Name, Text] : {std::pair{"GibtEsNicht", "1"},
                                     {"WinampBalance", "laut"},
                                     {"WinampBalance", ""},
                                     {"WinampBalance", "40000"},
                                     {"AutoTagFormate3", "x"},
                                     {"AutoTagFormate", "x"}})
        EXPECT_FALSE(EinstellungSetzen(Werte, Name, Text)) << Name << "=" << Text;
    EXPECT_EQ(Werte.WinampBalance, -5);
}

}  // namespace
}  // namespace liedwerk
