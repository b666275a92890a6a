// Adding, searching, saving and the end.
#include "core/beenden.h"
#include "core/hinzufuegelauf.h"
#include "core/laden.h"
#include "core/sortierlauf.h"
#include "core/suchlauf.h"
#include "index/leser.h"
#include "welt.h"

namespace liedwerk {
namespace {

class Lauftest : public Kerntest {
  protected:
    void SetUp() override {
        Kerntest::SetUp();
        ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
        P->LageGesetzt = true;
        P->Index.IndexGeändert = false;
        Fenster.Rufe.clear();
    }
    bool Gesichert() const { return Werte.Inhalt.contains("Start"); }
    // A changed index that is saved shows by its record.
    void Ändern() {
        Lied("lied.mp3", "L");
        DateienHinzufügenLauf(*P, {Ordner + "/lied.mp3"}, {}, false);
        ASSERT_TRUE(P->Index.IndexGeändert);
    }
    bool IndexGespeichert() const {
        const auto Inhalt = DateiLesen(Standard());
        return Inhalt && Inhalt->find("lied.mp3") != std::string::npos;
    }
};

TEST_F(Lauftest, NeueDateienWerdenAngehängtOderGesucht) {
    Lied("m/a.mp3", "Abba");
    Lied("m/b.mp3", "Bach");
    EXPECT_EQ(OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/m", .NichtBeiText = {}}, {}), 2);
    EXPECT_EQ(P->Ansicht.Zeilen.size(), 2u);
    EXPECT_EQ(P->Ansicht.Auswahl.size(), 2u);
    EXPECT_TRUE(Fenster.Gerufen("Auswählen 2"));

    Fenster.Zeile.Begriff = "Bach";
    Lied("n/c.mp3", "Bachmann");
    EXPECT_EQ(DragDropVerarbeiten(*P, {Ordner + "/n", Ordner + "/liste.m3u", Ordner + "/fehlt.mp3"}), 1);
    EXPECT_EQ(P->Ansicht.Zeilen.size(), 2u);
    EXPECT_EQ(Person.Meldungen.size(), 1u);  // the play list
    EXPECT_FALSE(P->LaufAktiv);

    SucheLöschen(*P);
    EXPECT_EQ(P->Ansicht.Zeilen.size(), 3u);
    EXPECT_EQ(OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/fehlt", .NichtBeiText = {}}, {}), -1);
}

TEST_F(Lauftest, EinAbbruchBehältWasGelesenIst) {
    for (int i = 0; i < 9; ++i)
        Lied("m/" + std::to_string(i) + ".mp3", "T");
    Person.AbbruchBei = 14;
    EXPECT_EQ(OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/m", .NichtBeiText = {}}, {}), -1);
    EXPECT_EQ(P->Ansicht.Zeilen.size(), static_cast<std::size_t>(P->Index.IndexAnzahl()));
}

TEST_F(Lauftest, DasSortierenNimmtAuswahlUndListeMit) {
    for (const char* Titel : {"Cäsar", "Anton", "Berta"})
        Lied("m/" + std::string(Titel) + ".mp3", Titel);
    OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/m", .NichtBeiText = {}}, {});
    const auto Nummer = [&](std::string_view Name) {
        for (Satznummer i = 1; i <= 3; ++i) {
            if (P->Index.Sätze.Pfad(i).find(Name) != std::string::npos) return i;
        }
        return Satznummer{0};
    };
    P->Ansicht.Auswahl = {Nummer("Anton")};
    P->Index.IndexGeändert = false;
    const std::vector<std::string> Kriterien = {"Dateiname"};
    SortierenLauf(*P, Kriterien, true);
    EXPECT_EQ(Nummer("Cäsar"), 1);
    EXPECT_EQ(P->Ansicht.Auswahl, std::vector<Satznummer>{3});
    EXPECT_TRUE(P->Index.IndexGeändert);
    EXPECT_EQ(Person.Status.back(), "Der Index wurde sortiert");
    EXPECT_EQ(Person.Offen, 0);
    // Kept: with a list that shows a part, row numbers stand for record numbers.
    Fenster.Zeile.Begriff = "Berta";
    SucheAktualisieren(*P);
    P->Ansicht.Auswahl = {2};
    SortierenLauf(*P, Kriterien, false);
    EXPECT_TRUE(P->Ansicht.Auswahl.empty());
}

TEST_F(Lauftest, DieSpaltenÄndernDenIndexNurWennSieSichÄndern) {
    SpaltenInIndex(*P);
    EXPECT_FALSE(P->Index.IndexGeändert);
    ASSERT_FALSE(P->Ansicht.Spalten.empty());
    P->Ansicht.Spalten[0].Breite += 100;
    SpaltenInIndex(*P);
    EXPECT_TRUE(P->Index.IndexGeändert);
    const auto Spalten = P->Ansicht.Spalten;
    SpaltenAusIndex(*P);
    EXPECT_EQ(P->Ansicht.Spalten, Spalten);
}

struct Schließfall {
    int Reaktion;
    Schließgrund Grund;
    int Antwort;
    bool Endet;
    const char* Ruf;
};

TEST_F(Lauftest, BeendenReaktionEntscheidet) {
    const Schließfall Fälle[] = {
        {1, Schließgrund::Person, 0, false, "Minimiert"},
        {3, Schließgrund::Person, 0, false, "Verborgen"},
        {2, Schließgrund::Person, 0, true, "Symbol weg"},
        {0, Schließgrund::Person, 0, false, "Frage"},
        {0, Schließgrund::Person, 1, false, "Minimiert"},
        {0, Schließgrund::Programm, 3, false, "Verborgen"},
        {0, Schließgrund::Person, 2, true, "Symbol weg"},
        {1, Schließgrund::Betriebssystem, 0, true, "Symbol weg"},
        {3, Schließgrund::TaskManager, 0, true, "Symbol weg"},
    };
    for (const auto& Fall : Fälle) {
        Fenster.Rufe.clear();
        Werte.Inhalt.clear();
        P->Werte.BeendenReaktion = static_cast<std::int16_t>(Fall.Reaktion);
        Fenster.Beendenantwort = Fall.Antwort;
        EXPECT_EQ(FensterSchließen(*P, Fall.Grund), Fall.Endet) << Fall.Ruf;
        EXPECT_TRUE(Fenster.Gerufen(Fall.Ruf)) << Fall.Ruf;
        EXPECT_EQ(Gesichert(), Fall.Endet) << Fall.Ruf;
    }
    P->LaufAktiv = true;
    P->Werte.BeendenReaktion = 2;
    EXPECT_FALSE(FensterSchließen(*P, Schließgrund::Person));  // a run is under way
    EXPECT_TRUE(FensterSchließen(*P, Schließgrund::Betriebssystem));
    P->LaufAktiv = false;
    Fenster.Immer = true;
    P->Werte.BeendenReaktion = 0;
    Fenster.Beendenantwort = 3;
    EXPECT_FALSE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_EQ(P->Werte.BeendenReaktion, 3);
}

TEST_F(Lauftest, DieSpeicherfrageStehtNurVorEinerÄnderung) {
    P->Werte.BeendenReaktion = 2;
    P->Werte.DateiAutomatischSpeichern = 0;
    Ändern();
    Person.Antworten = {Antwort::Abbrechen};
    EXPECT_FALSE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_EQ(Person.Gefragt.back(), "Die Indexdatei wurde geändert.\nMöchten Sie diese speichern?");
    EXPECT_FALSE(Gesichert());
    EXPECT_TRUE(P->Index.IndexGeändert);

    Person.Antworten = {Antwort::Nein};
    EXPECT_TRUE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_FALSE(IndexGespeichert());

    P->Werte.DateiAutomatischSpeichern = 1;
    Person.Gefragt.clear();
    Fenster.Lage = {false, 11, 12, 813, 614, true};
    EXPECT_TRUE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_TRUE(Person.Gefragt.empty());
    EXPECT_TRUE(IndexGespeichert());
    EXPECT_EQ(std::get<std::int32_t>(*Werte.Lesen("FensterWidth")), 813);
    EXPECT_EQ(std::get<std::int32_t>(*Werte.Lesen("FensterMax")), 1);
    EXPECT_EQ(std::get<std::int32_t>(*Werte.Lesen("WinampLautstärke")), 100);
    EXPECT_EQ(std::get<std::string>(*Werte.Lesen("Dateiname")), "");  // the standard index
}

TEST_F(Lauftest, EinMisslungenesSpeichernFragtUndKannZurück) {
    P->Werte.BeendenReaktion = 2;
    Ändern();
    // A folder under the temporary name: nothing can be written there.
    std::filesystem::create_directory(Standard() + "~");
    EXPECT_FALSE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_TRUE(Person.Gefragt.back().ends_with("nicht gespeicherte Änderungen verwerfen?"));
    EXPECT_TRUE(Fenster.Gerufen("Zurück"));
    EXPECT_FALSE(Gesichert());
    Person.Antworten = {Antwort::Ja};
    EXPECT_TRUE(FensterSchließen(*P, Schließgrund::Person));
    EXPECT_TRUE(Gesichert());
}

TEST_F(Lauftest, DasEndeDerSitzungFragtNichtsUndVerliertNichts) {
    P->Werte.DateiAutomatischSpeichern = 0;
    Ändern();
    // Another instance has saved meanwhile.
    std::filesystem::remove(Standard());
    Datei("programm/lwStamm.lwi", "#TAG:lw102\r\n#OPT:EIGENTUEMER=andere Instanz\r\n");
    std::filesystem::last_write_time(Standard(),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_TRUE(FensterSchließen(*P, Schließgrund::Betriebssystem));
    EXPECT_TRUE(Person.Gefragt.empty());
    EXPECT_FALSE(IndexGespeichert());
    const auto Rettung = DateiLesen(Standard() + " - Backup vom 21.11.2026 12-00-00.bak");
    ASSERT_TRUE(Rettung);
    EXPECT_NE(Rettung->find("lied.mp3"), std::string::npos);
}

TEST_F(Lauftest, RegelmäßigGespeichertWirdNachAblaufUndNurEineIndexdatei) {
    P->LetzteSpeicherung = Uhrzeit.Punkt;
    Ändern();
    P->Werte.RegelmäßigSpeichernAlle = 0;
    Uhrzeit.Punkt.Stunde += 1;
    RegelmäßigSpeichern(*P);
    EXPECT_FALSE(IndexGespeichert());

    P->Werte.RegelmäßigSpeichernAlle = 61;
    RegelmäßigSpeichern(*P);
    EXPECT_FALSE(IndexGespeichert());
    P->Werte.RegelmäßigSpeichernAlle = 60;
    P->LaufAktiv = true;
    RegelmäßigSpeichern(*P);
    EXPECT_FALSE(IndexGespeichert());
    P->LaufAktiv = false;
    P->Index.Programmmodus = ModusDateimanager;
    RegelmäßigSpeichern(*P);
    EXPECT_FALSE(IndexGespeichert());
    EXPECT_EQ(P->LetzteSpeicherung, Uhrzeit.Punkt);  // the look counts, saved or not

    P->Index.Programmmodus = ModusIndexdatei;
    Uhrzeit.Punkt.Stunde += 1;
    RegelmäßigSpeichern(*P);
    EXPECT_TRUE(IndexGespeichert());
    EXPECT_EQ(Person.Status.back(), "Die Indexdatei wurde automatisch gespeichert");
}

}  // namespace
}  // namespace liedwerk
