#include "ui/qt/frmindexdateien.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>

#include "basis/pfad.h"
#include "core/indexstatistik.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

const QString Filter = u"Indexdateien (*.lwi);;Alle Dateien (*)"_s;

}  // namespace

frmIndexdateien::frmIndexdateien(Anwendung& Lauf, Indexdateiwege Ziele, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf), Wege(std::move(Ziele)) {
    setObjectName(u"frmIndexdateien"_s);
    setWindowTitle(u"Indexdateien verwalten"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Mit welcher Indexdatei möchten Sie arbeiten?"_s,
                     u"Ein Index beschreibt eine Sammlung von Mediendateien; Sie können mehrere haben."_s);
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(12);
    lstDateien = new QTreeWidget(this);
    lstDateien->setObjectName(u"lstDateien"_s);
    lstDateien->setAccessibleName(u"Zuletzt geladene Indexdateien"_s);
    lstDateien->setRootIsDecorated(false);
    lstDateien->setAlternatingRowColors(true);
    lstDateien->setTextElideMode(Qt::ElideMiddle);
    lstDateien->setHeaderLabels({u"Indexdatei"_s, u"Ordner"_s, u"Größe"_s, u"Geändert"_s});
    lstDateien->header()->setObjectName(u"lstDateienSpalten"_s);
    lstDateien->header()->setStretchLastSection(false);
    lstDateien->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstDateien->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    connect(lstDateien, &QTreeWidget::itemSelectionChanged, this, [this] { KnöpfeNachführen(); });
    connect(lstDateien, &QTreeWidget::itemDoubleClicked, this, [this] { cmdLaden_Click(); });
    connect(new QShortcut(QKeySequence::Delete, lstDateien, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { cmdEntfernen_Click(); });
    Reihe->addWidget(lstDateien, 1);
    auto* const Rechts = new QVBoxLayout;
    KnöpfeAnlegen(*Rechts);
    Reihe->addLayout(Rechts);
    Spalte->addLayout(Reihe, 1);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdSchließen"_s, u"S&chließen"_s, Rejected}})[0]->setAutoDefault(
        false);
    ListeFüllen();
    FormgrößeSetzen(*this, 124, 26);
    lstDateien->setFocus();
}

void frmIndexdateien::KnöpfeAnlegen(QVBoxLayout& Spalte) {
    const auto Knopf = [&](const QString& Name, const QString& Text, std::function<void()> Handler) {
        auto* const Neu = new QPushButton(Text, this);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(false);
        connect(Neu, &QPushButton::clicked, this, std::move(Handler));
        Spalte.addWidget(Neu);
        return Neu;
    };
    cmdLaden = Knopf(u"cmdLaden"_s, u"&Laden"_s, [this] { cmdLaden_Click(); });
    cmdLaden->setDefault(true);
    cmdEntfernen = Knopf(u"cmdEntfernen"_s, u"Aus der Liste &entfernen"_s, [this] { cmdEntfernen_Click(); });
    Spalte.addSpacing(10);
    Knopf(u"cmdNeu"_s, u"&Neu..."_s, [this] { cmdNeu_Click(); });
    Knopf(u"cmdÖffnen"_s, u"Ö&ffnen..."_s, [this] { cmdÖffnen_Click(); });
    BraucheIndex.push_back(
        Knopf(u"cmdSpeichernUnter"_s, u"Speichern &unter..."_s, [this] { cmdSpeichernUnter_Click(); }));
    Spalte.addSpacing(10);
    if (Wege.FelderSpeichern)
        BraucheIndex.push_back(Knopf(u"cmdFelderSpeichern"_s, u"Index-Felder &speichern..."_s,
                                     [this] { Wege.FelderSpeichern(this); }));
    if (Wege.FelderImportieren)
        BraucheIndex.push_back(Knopf(u"cmdFelderImportieren"_s, u"Index-Felder &importieren..."_s,
                                     [this] { Wege.FelderImportieren(this); }));
    if (Wege.Sicherungskopien)
        Knopf(u"cmdSicherungskopien"_s, u"Sicherungskopie &wiederherstellen..."_s, [this] {
            Wege.Sicherungskopien(this);
            ListeFüllen();
        });
    Spalte.addStretch(1);
}

void frmIndexdateien::ListeFüllen() {
    Dateien = ZuletztGeladeneIndexe(Programm);
    lstDateien->clear();
    for (const Indexdateizeile& Datei : Dateien) {
        auto* const Zeile = new QTreeWidgetItem(
            lstDateien,
            {QtText(DateinameVon(Datei.Pfad)), QtText(PfadVon(Datei.Pfad)),
             Datei.Vorhanden ? QtText(MaßText(static_cast<std::int64_t>(Datei.Größe), Statistikmaß::Größe))
                             : u"nicht gefunden"_s,
             QtText(Datei.Geändert)});
        Zeile->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        Zeile->setToolTip(0, QtText(Datei.Pfad));
        Zeile->setToolTip(1, QtText(Datei.Pfad));
        if (!Datei.Geladen) continue;
        QFont Schrift = Zeile->font(0);
        Schrift.setBold(true);
        Zeile->setFont(0, Schrift);
        Zeile->setText(0, Zeile->text(0) + u" (geladen)"_s);
    }
    lstDateien->setCurrentItem(lstDateien->topLevelItem(0));
    KnöpfeNachführen();
}

void frmIndexdateien::KnöpfeNachführen() {
    const bool Gewählt = !lstDateien->selectedItems().isEmpty();
    cmdLaden->setEnabled(Gewählt);
    cmdEntfernen->setEnabled(Gewählt);
    for (QPushButton* const Knopf : BraucheIndex)
        Knopf->setEnabled(Programm.Index.Programmmodus == ModusIndexdatei);
}

std::string frmIndexdateien::Gewählte() const {
    const auto Zeilen = lstDateien->selectedItems();
    if (Zeilen.isEmpty()) return {};
    return Dateien[static_cast<std::size_t>(lstDateien->indexOfTopLevelItem(Zeilen.front()))].Pfad;
}

void frmIndexdateien::Laden(const std::string& Datei) {
    SpaltenInIndex(Programm);
    if (AndereDateiLaden(Programm, Datei)) return accept();
    ListeFüllen();
}

void frmIndexdateien::cmdLaden_Click() {
    const std::string Datei = Gewählte();
    if (Datei.empty()) return;
    // It may lie on a medium that is not there: only who wants it gets an empty one instead.
    if (DateiExistiert(Datei)) return Laden(Datei);
    if (Programm.Dienst.Person.JaNein(
            Symbol::Frage,
            "Die Indexdatei '" + Datei +
                "' wurde nicht gefunden.\nMöchten Sie dort eine neue, leere anlegen?",
            Antwort::Nein) != Antwort::Ja)
        return;
    if (NeuenIndexAnlegen(Programm, Datei)) return accept();
    ListeFüllen();
}

void frmIndexdateien::cmdNeu_Click() {
    const QString Name = QFileDialog::getSaveFileName(this, u"Neue Indexdatei"_s,
                                                      QtText(PfadVon(Programm.Index.IndexDateiname)), Filter,
                                                      nullptr, QFileDialog::DontConfirmOverwrite);
    if (Name.isEmpty()) return;
    if (NeuenIndexAnlegen(Programm, MitIndexendung(PfadAusQt(Name)))) return accept();
    ListeFüllen();
}

void frmIndexdateien::cmdÖffnen_Click() {
    const QString Name = QFileDialog::getOpenFileName(this, u"Indexdatei öffnen"_s,
                                                      QtText(PfadVon(Programm.Index.IndexDateiname)), Filter);
    if (!Name.isEmpty()) Laden(PfadAusQt(Name));
}

void frmIndexdateien::cmdSpeichernUnter_Click() {
    const QString Name = QFileDialog::getSaveFileName(this, u"Indexdatei speichern unter"_s,
                                                      QtText(PfadVon(Programm.Index.IndexDateiname)), Filter,
                                                      nullptr, QFileDialog::DontConfirmOverwrite);
    if (Name.isEmpty()) return;
    IndexSpeichernUnter(Programm, MitIndexendung(PfadAusQt(Name)));
    ListeFüllen();
}

void frmIndexdateien::cmdEntfernen_Click() {
    const std::string Datei = Gewählte();
    if (Datei.empty()) return;
    ZuletztGeladenVergessen(Programm, Datei);
    ListeFüllen();
}

}  // namespace liedwerk
