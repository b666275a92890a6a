// Clean-up over real files.
#include <sys/stat.h>

#include "core/aufraeumlauf.h"
#include "core/hinzufuegelauf.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "welt.h"

namespace liedwerk {
namespace {

using Funde = std::vector<Aufräumfund>;

class Aufräumtest : public Kerntest {
  protected:
    void SetUp() override {
        Kerntest::SetUp();
        ASSERT_TRUE(StandardDateiLaden(*P, ModusNichtsGeladen, true));
        for (const char* Name : {"a", "b", "c"})
            Lied("m/" + std::string(Name) + ".mp3", Name);
        OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/m", .NichtBeiText = {}}, {});
        // By name, so that the tests can count on the numbers.
        for (Satznummer Nummer = 1; Nummer <= 3; ++Nummer)
            P->Index.Sätze.PfadSetzen(Nummer, Pfad(Nummer));
        SucheAktualisieren(*P);
        P->Ansicht.Auswahl = {1, 2, 3};
    }
    std::string Pfad(Satznummer Nummer) const {
        return Ordner + "/m/" + std::string(1, static_cast<char>('a' + Nummer - 1)) + ".mp3";
    }
    Funde Suchen(Aufräummethode Methode) { return AufräumenSuchen(*P, AufräumArbeitsmenge(*P), Methode); }
};

TEST_F(Aufräumtest, FehlendeUndNeuGeleseneDateien) {
    std::filesystem::remove(Pfad(2));
    EXPECT_EQ(Suchen(Aufräummethode::NichtVorhanden), (Funde{{2, 0}}));
    // The record still knows a tag that the file has lost; a missing file says nothing about its tags.
    Datei("m/c.mp3", tagbau::MpegRahmen({}, 4));
    EXPECT_TRUE(Suchen(Aufräummethode::OhneId3v1).empty());
    EXPECT_EQ(Suchen(Aufräummethode::OhneId3v1Neu), (Funde{{3, 0}}));
    EXPECT_EQ(Suchen(Aufräummethode::OhneId3v2), (Funde{{1, 0}, {2, 0}, {3, 0}}));
    EXPECT_EQ(Suchen(Aufräummethode::OhneId3v2Neu), (Funde{{1, 0}, {3, 0}}));
    // Neither does one that does not answer.
    std::filesystem::remove(Pfad(3));
    ASSERT_EQ(::mkfifo(Pfad(3).c_str(), 0600), 0);
    EXPECT_TRUE(Suchen(Aufräummethode::OhneId3v1Neu).empty());
    EXPECT_EQ(Suchen(Aufräummethode::OhneId3v2Neu), (Funde{{1, 0}}));
    // A file on a medium that is out is no missing file: it is asked for, and skipped.
    Datensatz Satz = P->Index.Sätze.Lesen(2);
    Satz.Wechselmedium = "Stick";
    P->Index.Sätze.Setzen(2, Pfad(2), Satz);
    Person.Gefragt.clear();
    EXPECT_TRUE(Suchen(Aufräummethode::NichtVorhanden).empty());
    EXPECT_EQ(Person.Gefragt.size(), 1u);
    // Neither is one on a disk that is not mounted.
    Satz.Wechselmedium.clear();
    P->Index.Sätze.Setzen(2, Pfad(2), Satz);
    Drives.Liste["/"] = {Laufwerksart::Fest, {}, false};
    EXPECT_TRUE(Suchen(Aufräummethode::NichtVorhanden).empty());
    EXPECT_FALSE(P->LaufAktiv);
}

TEST_F(Aufräumtest, FührtAusWasGewähltWurde) {
    using enum Aufräumaktion;
    Lied("m/d.mp3", "d");
    Lied("m/e.mp3", "e");
    OrdnerHinzufügenLauf(*P, {.Ordner = Ordner + "/m", .NichtBeiText = {}}, {});
    ASSERT_EQ(P->Index.IndexAnzahl(), 5);
    for (Satznummer Nummer = 1; Nummer <= 5; ++Nummer)
        P->Index.Sätze.PfadSetzen(Nummer, Pfad(Nummer));
    // Without a recycle bin nothing is deleted in its place, and the entry stays.
    const std::vector<Aufräumzeile> Zeilen = {
        {{1, 2}, Löschen, Keine}, {{3, 0}, Ersetzen}, {{4, 0}, AusIndexEntfernen}, {{5, 0}, Papierkorb}};
    EXPECT_TRUE(AufräumenDurchführen(*P, Zeilen));
    ASSERT_EQ(P->Index.IndexAnzahl(), 2);
    EXPECT_EQ(P->Index.Sätze.Pfad(1), Pfad(2));
    EXPECT_EQ(P->Index.Sätze.Pfad(2), Pfad(5));
    EXPECT_FALSE(DateiExistiert(Pfad(1)));
    EXPECT_FALSE(DateiExistiert(Pfad(3)));
    EXPECT_EQ(DateiLesen(Pfad(3) + ".inanderemordner"), "");
    EXPECT_TRUE(DateiExistiert(Pfad(4)));
    EXPECT_TRUE(DateiExistiert(Pfad(5)));
    EXPECT_EQ(Person.Meldungen.size(), 1u);
    EXPECT_TRUE(P->Index.IndexGeändert);
    EXPECT_EQ(Person.Status.back(), "Der Index wurde aufgeräumt: 3 Datei(en) entfernt");
    EXPECT_EQ(Person.Offen, 0);
    EXPECT_EQ(P->Ansicht.Zeilen.size(), 2u);
}

TEST_F(Aufräumtest, DieEinzigeDateiZweierEinträgeBleibt) {
    using enum Aufräumaktion;
    // 2 is listed under the path of 1, 3 reaches it through another name of the folder.
    std::filesystem::create_directory_symlink(Ordner + "/m", Ordner + "/n");
    P->Index.Sätze.PfadSetzen(2, Pfad(1));
    P->Index.Sätze.PfadSetzen(3, Ordner + "/n/a.mp3");
    const std::vector<Aufräumzeile> Zeilen = {{{1, 2}, Keine, Löschen}, {{2, 3}, Löschen, Löschen}};
    EXPECT_TRUE(AufräumenDurchführen(*P, Zeilen));
    EXPECT_EQ(P->Index.IndexAnzahl(), 1);
    EXPECT_TRUE(DateiExistiert(Pfad(1)));
    EXPECT_TRUE(Person.Meldungen.back().starts_with("2 Datei(en) wurden nur aus dem Index entfernt"));

    // An absent medium that the person gives up on ends the run before anything is done.
    Datensatz Satz = P->Index.Sätze.Lesen(1);
    Satz.Wechselmedium = "Stick";
    P->Index.Sätze.Setzen(1, Ordner + "/fehlt.mp3", Satz);
    Person.Verfügbarkeiten = {Verfügbarkeitsantwort::Abbrechen};
    EXPECT_FALSE(AufräumenDurchführen(*P, std::vector<Aufräumzeile>{{{1, 0}, Löschen}}));
    EXPECT_EQ(P->Index.IndexAnzahl(), 1);
}

}  // namespace
}  // namespace liedwerk
