#include "suche/liste.h"

#include <gtest/gtest.h>

#include "katalog_bauen.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"

namespace liedwerk {
namespace {

using Spaltenliste = std::vector<Listenspalte>;
const Spaltenliste Vorgabe = {{3, 2800}, {5, 1400}};

TEST(Spaltenlayout, LiestWasDaSteht) {
    EXPECT_TRUE(SpaltenformatVorgabe().starts_with("1=0=0,2=0=0,3=2800=1,4=0=1,5=1400=2,6=0=2,"));
    for (const std::string_view Unlesbar : {"0", "", "Unsinn", "99=100=1", "3=x=1", "3=2800=40", ",,,"})
        EXPECT_EQ(SpaltenEinrichten(Unlesbar), Vorgabe) << Unlesbar;
    // Two numbers: the position is the order of the entries; what is not named comes from the default.
    EXPECT_EQ(SpaltenEinrichten("5=100,3=200"), (Spaltenliste{{5, 100}, {3, 200}}));
    EXPECT_EQ(SpaltenEinrichten("12=500=9,4=300=8,3=0=0"), (Spaltenliste{{5, 1400}, {4, 300}, {12, 500}}));
    // A bad entry drops only itself.
    EXPECT_EQ(SpaltenEinrichten("3=2800=33,5=1400=2,4=300=1"), (Spaltenliste{{4, 300}, {5, 1400}}));
    EXPECT_EQ(SpaltenEinrichten("3=0=0,5=0=0,x"), Spaltenliste{});
    EXPECT_EQ(SpaltenEinrichten("3=-5=1,5=0=0,6=10=1,6=20=4"), (Spaltenliste{{6, 20}}));
}

TEST(Spaltenlayout, KommtAusDemTextZurück) {
    const Spaltenliste Gezeigt = {{32, 700}, {3, 2800}, {19, 900}};
    for (const std::string_view Alt : {"0", "19=1=1,3=1=2", "5=7,5=8,77=1"}) {
        const std::string Text = SpaltenSpeichern(Gezeigt, Alt);
        EXPECT_EQ(SpaltenEinrichten(Text), Gezeigt);
        EXPECT_EQ(SpaltenSpeichern(Gezeigt, Text), Text);
        EXPECT_EQ(std::count(Text.begin(), Text.end(), ','), 31);
    }
    EXPECT_TRUE(SpaltenSpeichern(Gezeigt, "19=1=1,3=1=2").starts_with("19=900=3,3=2800=2,1=0=0,"));
    EXPECT_EQ(Spaltentitel({19, 900}, "%Interpret% - %Titel%"), "Interpret - Titel");
    EXPECT_EQ(Spaltenfeld({19, 900}), "Benutzerdefiniert");
    EXPECT_EQ(Spaltentitel({4, 1}, "x"), "Interpret");
}

struct Listentest : testing::Test {
    std::mt19937 Zufall{11};
    Katalog Index = ZufälligerKatalog(Zufall, 8);
    Liste Ansicht;
    speicher::Protokollliste Log;
    speicher::StehendeUhr Zeit;
    void Erstellen(const std::vector<std::int16_t>& Marken, Satznummer Erster = 1, Satznummer Letzter = 8) {
        Index.IndexTreffer = Marken;
        Index.ErsterTreffer = Erster;
        Index.LetzterTreffer = Letzter;
        ListeErstellen(Ansicht, Index, Log, Zeit);
    }
    using Nummern = std::vector<Satznummer>;
};

TEST_F(Listentest, DieAuswahlÜberstehtDieSuche) {
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1});
    Ansicht.Auswahl = {2, 4, 7};
    Erstellen({1, 1, 0, 0, 1, 1, 1, 1});
    EXPECT_EQ(Ansicht.Zeilen, (Nummern{1, 2, 5, 6, 7, 8}));
    EXPECT_EQ(Ansicht.Auswahl, (Nummern{2, 7}));
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1}, 3, 7);
    EXPECT_EQ(Ansicht.Zeilen, (Nummern{3, 4, 5, 6, 7}));
    EXPECT_EQ(Ansicht.Auswahl, (Nummern{7}));  // 4 is forgotten
    // In another order only what lies behind the last match is found again.
    Ansicht.Auswahl = {3, 6, 4, 7};
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(Ansicht.Auswahl, (Nummern{3, 4, 7}));
    Ansicht.Auswahl = {6, 4, 2};
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(Ansicht.Auswahl, Nummern{});
    Ansicht.Auswahl = {3};
    Ansicht.ListeMarkierungenVerwerfen = true;
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(Ansicht.Auswahl, Nummern{});
    Erstellen({0, 0, 0, 0, 0, 0, 0, 0}, 0, 0);
    EXPECT_TRUE(Ansicht.Zeilen.empty());
}

TEST_F(Listentest, MeldetSichImProtokoll) {
    Ansicht.Spalten = Vorgabe;
    Ansicht.Auswahl = {4, 9};
    Erstellen({1, 1, 1, 1, 1, 1, 1, 1}, 2, 6);
    const std::string Uhrzeit = ZeitText(Zeit.Jetzt());
    ListeVollständigErstellen(Ansicht, {5, 1, 5}, Log, Zeit);
    EXPECT_EQ(Ansicht.Zeilen, (Nummern{5, 1, 5}));
    const std::vector<std::string> Erwartet = {
        "ListeErstellen: Erstelle Liste (Datensätze 2 bis 6, 2 Spalten, 1 Markierungen) " + Uhrzeit,
        "ListeErstellen: Entferne Überzählige Einträge " + Uhrzeit,
        "ListeErstellen: Erstelle Liste (Datensätze 1 bis 3, 2 Spalten, 0 Markierungen) " + Uhrzeit};
    EXPECT_EQ(Log.Zeilen, Erwartet);
    EXPECT_EQ(Listenzelle(Ansicht, Index, 1, 0), WertVon(Index, 1, "Dateiname"));
    EXPECT_EQ(Listenzelle(Ansicht, Index, 9, 0), "");
}

TEST_F(Listentest, NeueSätzeHängenSichOhneSucheAn) {
    Erstellen({0, 0, 0, 0, 0, 0, 0, 0}, 0, 0);
    SatzAnhängen(Index, "C:\\neu.mp3", {});
    ListeAnhängen(Ansicht, Index, 9);
    EXPECT_EQ(Ansicht.Zeilen, Nummern{9});
    EXPECT_EQ(Index.ErsterTreffer, 1);
    EXPECT_EQ(Index.LetzterTreffer, 9);
    EXPECT_EQ(Index.IndexTreffer, (std::vector<std::int16_t>{0, 0, 0, 0, 0, 0, 0, 0, 1}));
    ListeErstellen(Ansicht, Index, Log, Zeit);
    EXPECT_EQ(Ansicht.Zeilen, Nummern{9});
}

TEST(Listentexte, ZählenDenElternordnerNicht) {
    Katalog Index;
    Liste Ansicht;
    EXPECT_EQ(AuswahlText(0, Index), "Fügen Sie Dateien zum Index hinzu, um dieses Programm zu nutzen.");
    Index.Programmmodus = ModusDateimanager;
    Index.IndexDateiname = "C:\\Musik\\Abba\\";
    SatzAnhängen(Index, "C:\\Musik\\Abba\\a.mp3", {});
    SatzAnhängen(Index, "c:\\musik", {});
    Ansicht.Zeilen = {1};
    EXPECT_EQ(ElternEintrag(Index), 2);
    EXPECT_EQ(StatusText(Ansicht, Index), "1 Datei(en)/Ordner gesamt\n1 Datei(en)/Ordner gefunden");
    Ansicht.Zeilen = {2, 1};
    EXPECT_EQ(StatusText(Ansicht, Index), "1 Datei(en)/Ordner gesamt\n1 Datei(en)/Ordner gefunden");
    Index.Programmmodus = ModusIndexdatei;
    EXPECT_EQ(StatusText(Ansicht, Index), "2 Datei(en) im Index\n2 Datei(en) gefunden");
    EXPECT_EQ(AuswahlText(1, Index), "");
    EXPECT_EQ(AuswahlText(2, Index), "Es wurden 2 Dateien gewählt.");
}

}  // namespace
}  // namespace liedwerk
