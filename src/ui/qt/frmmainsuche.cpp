// What the main window does around the search: row, queries, letters, suggestions.
#include <QHeaderView>

#include "core/sortierlauf.h"
#include "core/suchlauf.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/frmsortieren.h"
#include "ui/qt/frmsucheerweitert.h"
#include "ui/qt/frmsucheerweiterthinzufuegen.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

void frmMain::mnuSuchen_Click() {
    Suche->Fokussieren();
}

void frmMain::cmdSucheLöschen_Click() {
    if (Bereit()) SucheLöschen(*Programm);
}

void frmMain::cmdSuchVorschlägeAnzeigen_Click() {
    if (Bereit()) SucheAktualisieren(*Programm, true);
}

// The set was changed elsewhere than in the row: the row shows it, the list follows.
void frmMain::MengeSuchen() {
    Suche->MengeZeigen();
    AktionenNachführen();
    SucheAktualisieren(*Programm);
}

void frmMain::cmdSucheHinzufügen_Click() {
    if (!Bereit()) return;
    Suche->AusstehendesAusführen();
    AbfrageBearbeiten(0);
}

// The set as the row has it, also before the first search: there is a query to show and to change.
void frmMain::MengeNachführen() {
    Suche->AusstehendesAusführen();
    if (Programm->Abfragen.SucheAnzahl() == 0) SucheAktualisieren(*Programm);
}

void frmMain::cmdSucheÄndern_Click() {
    if (!Bereit()) return;
    MengeNachführen();
    if (SuchzeileLesen().Aktiv) {
        AbfrageBearbeiten(1);
    } else {
        AbfragenAuflisten();
    }
}

void frmMain::cmdSucheMehr_Click() {
    if (!Bereit()) return;
    MengeNachführen();
    AbfragenAuflisten();
}

void frmMain::AbfrageBearbeiten(std::size_t Nummer) {
    frmSucheErweitertHinzufügen Form(Programm->Abfragen, Nummer, Programm->Werte, Programm->Dienst.Person,
                                     this);
    if (Form.exec() != QDialog::Accepted) return;
    // A further query is seldom the last one: unless the search shall begin at once, the list of all is next.
    if (Programm->Abfragen.SucheAnzahl() > 1 && Programm->Werte.SucheDirektStarten != 1) {
        AbfragenAuflisten();
    } else {
        MengeSuchen();
    }
}

void frmMain::AbfragenAuflisten() {
    frmSucheErweitert Form(*Programm, this);
    if (Spielen) {
        Form.Abspielen = [this](const std::vector<Satznummer>& Dateien, bool Anhängen) {
            Spielen->Abspielen(Dateien, Anhängen, false, false, {});
        };
    }
    if (Form.exec() == frmSucheErweitert::ImHauptfenster) {
        DatensätzeZeigen(*Programm, Form.FürHauptfenster());
    } else {
        MengeSuchen();
    }
}

void frmMain::cmdSucheBuchstabe_Click(const QString& Buchstabe) {
    if (!Bereit()) return;
    Oberfläche& Person = Programm->Dienst.Person;
    const QString Feld = fraBuchstaben->Feld();
    if (Feld.isEmpty())
        return Person.Melden(Symbol::Ausrufezeichen, "Die Suche konnte nicht bestimmt werden.");
    if (!BuchstabensucheSetzen(Programm->Abfragen, Utf8Text(Buchstabe), Utf8Text(Feld)))
        Person.Melden(Symbol::Ausrufezeichen, "Die Such-Abfrage konnte nicht gespeichert werden.");
    MengeSuchen();
}

void frmMain::mnuSortieren_Click() {
    // By the keyboard there is no head under the pointer: the first column stands for it.
    lstSongs_ColumnClick(lstSongs->header()->logicalIndex(1));
}

void frmMain::lstSongs_ColumnClick(int Spalte) {
    if (!Bereit() || Programm->Index.IndexAnzahl() == 0) return;
    Suche->AusstehendesAusführen();
    const auto& Spalten = Programm->Ansicht.Spalten;
    const auto Stelle = static_cast<std::size_t>(Spalte - 1);
    frmSortieren Form(
        Spalte > 0 && Stelle < Spalten.size() ? Spaltenfeld(Spalten[Stelle]) : std::string_view(),
        Programm->Dienst.Person, this);
    if (Form.exec() == QDialog::Accepted)
        SortierenLauf(*Programm, Form.Sortierkriterien(), Form.Absteigend());
}

}  // namespace liedwerk
