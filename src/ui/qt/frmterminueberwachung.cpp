#include "ui/qt/frmterminueberwachung.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <algorithm>

#include "core/terminlauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmterminueberwachunghinzufuegen.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/terminmodell.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

Terminmodell& Modell(const QTreeView& Ansicht) {
    return *static_cast<Terminmodell*>(Ansicht.model());
}

}  // namespace

frmTerminÜberwachung::frmTerminÜberwachung(Anwendung& Lauf, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf) {
    setObjectName(u"frmTerminÜberwachung"_s);
    setWindowTitle(u"Ereignisse verwalten"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("termin"), u"Ereignisse"_s,
                     u"Hinweis: Eine Benachrichtigung erfolgt nur, wenn die Indexdatei geöffnet ist."_s);
    lstEreignisse = TerminansichtAnlegen(this, Programm.Index.Termine, TerminSpalten.size());
    Spalte->addWidget(lstEreignisse, 1);
    lblAnzahl = TextHinzufügen(*Spalte, u"lblAnzahl"_s, {});

    auto* const Zeile = new QHBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text,
                           void (frmTerminÜberwachung::*Handler)()) {
        auto* const Neu = new QPushButton(Text, this);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(false);
        connect(Neu, &QPushButton::clicked, this, Handler);
        Zeile->addWidget(Neu);
        return Neu;
    };
    Knopf(u"cmdHinzufügen"_s, u"&Hinzufügen..."_s, &frmTerminÜberwachung::cmdHinzufügen_Click);
    cmdÄndern = Knopf(u"cmdÄndern"_s, u"Ä&ndern..."_s, &frmTerminÜberwachung::cmdÄndern_Click);
    cmdLöschen = Knopf(u"cmdLöschen"_s, u"&Löschen"_s, &frmTerminÜberwachung::cmdLöschen_Click);
    Knopf(u"cmdPrüfen"_s, u"Jetzt &prüfen"_s, &frmTerminÜberwachung::cmdPrüfen_Click);
    Zeile->addStretch(1);
    Spalte->addLayout(Zeile);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdSchließen"_s, u"&Schließen"_s, Rejected}})[0]->setAutoDefault(
        false);

    connect(lstEreignisse->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { KnöpfeNachführen(); });
    connect(lstEreignisse, &QTreeView::activated, this, [this] { cmdÄndern_Click(); });
    connect(new QShortcut(QKeySequence::Delete, lstEreignisse, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { cmdLöschen_Click(); });
    Programm.TerminzeileAuffrischen = [this](std::size_t Nummer) {
        Modell(*lstEreignisse).Auffrischen(Nummer);
    };
    TerminListeFüllen(0);
    lstEreignisse->setFocus();
}

frmTerminÜberwachung::~frmTerminÜberwachung() {
    Programm.TerminzeileAuffrischen = nullptr;
}

// Fills the list and selects a row (0-based, the last one when there are fewer).
void frmTerminÜberwachung::TerminListeFüllen(int Zeile) {
    Terminmodell& Ereignisse = Modell(*lstEreignisse);
    Ereignisse.Erneuern();
    lblAnzahl->setText(QtText(TerminBeschriftung(Programm.Index.Termine.size())));
    lstEreignisse->setCurrentIndex(Ereignisse.index(std::min(Zeile, Ereignisse.rowCount() - 1), 0));
    KnöpfeNachführen();
}

void frmTerminÜberwachung::KnöpfeNachführen() {
    const auto Gewählt = lstEreignisse->selectionModel()->selectedRows().size();
    cmdÄndern->setEnabled(Gewählt == 1);
    cmdLöschen->setEnabled(Gewählt > 0);
}

std::size_t frmTerminÜberwachung::GewählteNummer() const {
    const QModelIndexList Zeilen = lstEreignisse->selectionModel()->selectedRows();
    return Zeilen.size() == 1 ? static_cast<std::size_t>(Zeilen.front().row()) + 1 : 0;
}

void frmTerminÜberwachung::cmdHinzufügen_Click() {
    const Zeitpunkt Jetzt = Programm.Dienst.Zeit.Jetzt();
    frmTerminÜberwachungHinzufügen Form(nullptr, Jetzt, Programm.Dienst.Person, this);
    if (Form.exec() != Accepted) return;
    const std::size_t Nummer =
        TerminHinzufügen(Programm.Index.Termine, Form.Eingabe(), Programm.Dienst.Zeit.Jetzt());
    TerminGespeichert(Programm, Nummer);
    TerminListeFüllen(static_cast<int>(Nummer) - 1);
}

void frmTerminÜberwachung::cmdÄndern_Click() {
    const std::size_t Nummer = GewählteNummer();
    if (Nummer == 0) return;
    const Termin Geöffnet = Programm.Index.Termine[Nummer - 1];
    frmTerminÜberwachungHinzufügen Form(&Geöffnet, Programm.Dienst.Zeit.Jetzt(), Programm.Dienst.Person,
                                        this);
    if (Form.exec() != Accepted || Nummer > Programm.Index.Termine.size()) return;
    Termineingabe Eingabe = Form.Eingabe();
    TermineingabeNachführen(Eingabe, Geöffnet, Programm.Index.Termine[Nummer - 1]);
    TerminÄndern(Programm.Index.Termine, Nummer, Eingabe, Programm.Dienst.Zeit.Jetzt());
    TerminGespeichert(Programm, Nummer);
    Modell(*lstEreignisse).Auffrischen(Nummer);
}

void frmTerminÜberwachung::cmdLöschen_Click() {
    std::vector<std::size_t> Nummern;
    for (const QModelIndex& Zeile : lstEreignisse->selectionModel()->selectedRows())
        Nummern.push_back(static_cast<std::size_t>(Zeile.row()) + 1);
    if (Nummern.empty() ||
        Programm.Dienst.Person.JaNein(Symbol::Frage, "Möchten Sie " + std::to_string(Nummern.size()) +
                                                         " Ereignis(se) tatsächlich löschen?") != Antwort::Ja)
        return;
    // From the end, so that the numbers ahead stay.
    std::ranges::sort(Nummern, std::greater{});
    for (const std::size_t Nummer : Nummern)
        TerminEntfernen(Programm.Index.Termine, Nummer);
    Programm.Index.IndexGeändert = true;
    TerminListeFüllen(static_cast<int>(Nummern.back()) - 1);
}

void frmTerminÜberwachung::cmdPrüfen_Click() {
    if (Programm.TerminePrüfen) Programm.TerminePrüfen();
}

}  // namespace liedwerk
