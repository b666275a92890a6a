// Clean-up over real files.
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
    // A file on a medium that is out is no missing file: it is asked for, and skipped.
    Datensatz Satz = P->Index.Sätze.Lesen(2);
    Satz.Wechselmedium = "Stick";
    P->Index.Sätze.Setzen(2, Pfad(2), Satz);
    Person.Gefragt.clear();
    EXPECT_TRUE(Suchen(Aufräummethode::NichtVorhanden).empty());
    EXPECT_EQ(Person.Gefragt.size(), 1u);
    EXPECT_FALSE(P->LaufAktiv);
}

}  // namespace
}  // namespace liedwerk
