#include "ui/qt/frmsucheerweitert.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <algorithm>

#include "ui/qt/exportaktionen.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmsucheerweiterthinzufuegen.h"
#include "ui/qt/frmsucheerweiterthinzufuegenneu.h"
#include "ui/qt/frmsuchetextbasiert.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/tagaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmSucheErweitert::frmSucheErweitert(Anwendung& Lauf, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf), Menge(Lauf.Abfragen), Person(Lauf.Dienst.Person) {
    setObjectName(u"frmSucheErweitert"_s);
    setWindowTitle(u"Erweiterte Suche"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("suchen"), u"Suche mit mehreren Abfragen"_s,
                     u"Gefunden werden die Dateien, auf die alle Such-Abfragen zutreffen."_s);
    lstSucheAuflistung = new QListWidget(this);
    lstSucheAuflistung->setObjectName(u"lstSucheAuflistung"_s);
    lstSucheAuflistung->setAccessibleName(u"Such-Abfragen"_s);
    lstSucheAuflistung->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstSucheAuflistung->setMinimumSize(fontMetrics().averageCharWidth() * 62, fontMetrics().height() * 12);
    connect(lstSucheAuflistung, &QListWidget::itemDoubleClicked, this, [this] { cmdSucheÄndern_Click(); });

    auto* const Knöpfe = new QVBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text, auto Handler) {
        auto* const Einer = new QPushButton(Text, this);
        Einer->setObjectName(Name);
        Einer->setAutoDefault(false);
        Einer->setMinimumHeight(Einer->fontMetrics().height() + 14);
        connect(Einer, &QPushButton::clicked, this, Handler);
        Knöpfe->addWidget(Einer);
    };
    Knopf(u"cmdSucheNeu"_s, u"&Standard-Suche hinzufügen"_s, [this] { AbfrageBearbeiten(0); });
    Knopf(u"cmdSucheNeuErweitert"_s, u"&Einfache Suche hinzufügen"_s,
          [this] { cmdSucheNeuErweitert_Click(); });
    Knöpfe->addSpacing(10);
    Knopf(u"cmdSucheÄndern"_s, u"Ä&ndern..."_s, [this] { cmdSucheÄndern_Click(); });
    Knopf(u"cmdSucheLöschen"_s, u"&Löschen"_s, [this] { cmdSucheLöschen_Click(); });
    Knöpfe->addStretch(1);
    Knopf(u"cmdSucheTestbasiert"_s, u"Mehrfachsuche"_s, [this] { cmdSucheTestbasiert_Click(); });
    auto* const Löschtaste =
        new QShortcut(QKeySequence::Delete, lstSucheAuflistung, nullptr, nullptr, Qt::WidgetShortcut);
    connect(Löschtaste, &QShortcut::activated, this, [this] { cmdSucheLöschen_Click(); });

    auto* const Mitte = new QHBoxLayout;
    Mitte->setSpacing(12);
    Mitte->addWidget(lstSucheAuflistung, 1);
    Mitte->addLayout(Knöpfe);
    Spalte->addLayout(Mitte, 1);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}})[0]->setDefault(true);
    AuflistungFüllen(0);
    lstSucheAuflistung->setFocus();
}

void frmSucheErweitert::AuflistungFüllen(int Gewählt) {
    lstSucheAuflistung->clear();
    for (const Suchabfrage& Abfrage : Menge.Liste)
        lstSucheAuflistung->addItem(QtText(AbfrageZeile(Abfrage)));
    lstSucheAuflistung->setCurrentRow(std::min(Gewählt, lstSucheAuflistung->count() - 1));
}

void frmSucheErweitert::AbfrageBearbeiten(std::size_t Nummer) {
    const std::size_t Vorher = Menge.SucheAnzahl();
    frmSucheErweitertHinzufügen Form(Menge, Nummer, Programm.Werte, Person, this);
    if (Form.exec() != Accepted) return;
    const bool Neu = Menge.SucheAnzahl() > Vorher;
    AuflistungFüllen(static_cast<int>(Neu ? Vorher : Nummer - 1));
    if (Programm.Werte.SucheDirektStarten == 1) accept();
}

void frmSucheErweitert::cmdSucheNeuErweitert_Click() {
    const std::size_t Vorher = Menge.SucheAnzahl();
    frmSucheErweitertHinzufügenNeu Form(Programm.Index, Programm.Puffer, Menge,
                                        Programm.Werte.SucheAlsWortStandard == 1, Person, this);
    if (Form.exec() == Accepted) AuflistungFüllen(static_cast<int>(Vorher));
}

void frmSucheErweitert::cmdSucheTestbasiert_Click() {
    frmSucheTextbasiert Form(Programm.Index, Programm.Puffer, Person, this);
    Form.Infos = [&](const std::vector<Satznummer>& Dateien) {
        TagEditorAusführen(Programm, &Form, Dateien);
    };
    Form.Export = [&](const std::vector<Satznummer>& Dateien) {
        ExportierenAusführen(Programm, &Form, Dateien);
    };
    Form.Abspielen = Abspielen;
    if (Form.exec() != Accepted) return;
    Gewählte = Form.FürHauptfenster();
    done(ImHauptfenster);
}

void frmSucheErweitert::cmdSucheÄndern_Click() {
    const auto Gewählt = lstSucheAuflistung->selectionModel()->selectedRows();
    if (Gewählt.isEmpty()) return Person.Melden(Symbol::Information, "Bitte wählen Sie eine Suchaufabe.");
    // Of several selected lines the one with the focus is meant.
    const QModelIndex Aktuelle = lstSucheAuflistung->currentIndex();
    const int Zeile = Gewählt.contains(Aktuelle) ? Aktuelle.row() : Gewählt.front().row();
    AbfrageBearbeiten(static_cast<std::size_t>(Zeile) + 1);
}

void frmSucheErweitert::cmdSucheLöschen_Click() {
    const auto Gewählt = lstSucheAuflistung->selectionModel()->selectedRows();
    if (Gewählt.isEmpty()) return Person.Melden(Symbol::Information, "Bitte wählen Sie eine Suchaufabe.");
    if (Person.JaNein(Symbol::Frage, "Möchten Sie diese Such-Abfrage(n) tatsächlich löschen?") != Antwort::Ja)
        return;
    std::vector<bool> Gelöscht(Menge.SucheAnzahl());
    int Erste = Gewählt.front().row();
    for (const QModelIndex& Zeile : Gewählt) {
        Gelöscht[static_cast<std::size_t>(Zeile.row())] = true;
        Erste = std::min(Erste, Zeile.row());
    }
    if (!SucheEntfernen(Menge, Gelöscht))
        Person.Melden(Symbol::Ausrufezeichen, "Die Such-Abfrage konnte nicht gelöscht werden.");
    AuflistungFüllen(Erste);
}

void frmSucheErweitert::done(int Ergebnis) {
    if (Menge.SucheAnzahl() == 0 && Ergebnis != ImHauptfenster) {
        Person.Melden(Symbol::Information, "Bitte fügen Sie mindestens eine Such-Abfrage hinzu.");
        return;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
