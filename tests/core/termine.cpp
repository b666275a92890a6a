// Whose reminders may start programs.
#include "core/laden.h"
#include "core/suchlauf.h"
#include "core/terminlauf.h"
#include "plattform/speicher/spieler.h"
#include "welt.h"

namespace liedwerk {
namespace {

class Terminlauftest : public Kerntest {
  protected:
    // A run on the standard index that keeps what it starts.
    void Beginnen() {
        NeuerLauf();
        P->Dienst.Programme = &Programme;
        P->Dienst.DateiPrüfsumme = [](std::string_view Pfad) { return DateiLesen(Pfad).value_or(""); };
        P->Werte = EinstellungenLesen(Werte, nullptr);
        TerminePrüfenEinrichten(*P);
        StandardDateiLaden(*P, ModusNichtsGeladen, true);
    }
    void Anlegen() {
        Beginnen();
        P->Index.Termine = {
            {"Sicherung", "", 1, "", "", "20.11.2026 08:00:00", "", "d", 1, 0, "", "/proc/self/exe"}};
        TerminGespeichert(*P, 1);
        ASSERT_TRUE(IndexSpeichern(*P));
    }
    void WiederFällig() {
        Termin Eintrag = P->Index.Termine[0];
        Eintrag.BenachrichtigenAm = "20.11.2026 08:00:00";
        P->Index.Termine.Setzen(0, Eintrag);
    }
    speicher::Programme Programme;
};

TEST_F(Terminlauftest, EigenerIndexStartetSeineProgrammeUngefragt) {
    Anlegen();
    Beginnen();
    P->TerminePrüfen();
    ASSERT_EQ(Programme.Starts.size(), 1U);
    EXPECT_EQ(Programme.Starts[0].Programm, "/proc/self/exe");
    EXPECT_TRUE(Programme.Starts[0].Argumente.empty());
    EXPECT_TRUE(Person.Gefragt.empty());
}

TEST_F(Terminlauftest, FremderIndexStartetNichtsUndWirdDurchSpeichernNichtVertraut) {
    Anlegen();
    std::ofstream(Standard(), std::ios::app) << "\r\n";  // somebody else has written it
    for (int Lauf = 1; Lauf <= 2; ++Lauf) {
        Beginnen();
        WiederFällig();
        P->TerminePrüfen();
        EXPECT_TRUE(Programme.Starts.empty()) << "the preset answer is no";
        EXPECT_EQ(Person.Gefragt.size(), 1U);
        ASSERT_TRUE(IndexSpeichern(*P));
    }
    Beginnen();
    WiederFällig();
    Person.Antworten = {Antwort::Ja};
    P->TerminePrüfen();
    ASSERT_TRUE(IndexSpeichern(*P));
    Beginnen();
    WiederFällig();
    P->TerminePrüfen();
    EXPECT_EQ(Programme.Starts.size(), 2U) << "allowed once and saved: known from then on";
}

}  // namespace
}  // namespace liedwerk
