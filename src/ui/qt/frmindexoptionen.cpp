// The form as a whole, and its pages for file types and the owner.
#include "ui/qt/frmindexoptionen.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QInputDialog>
#include <QShortcut>

#include "basis/pfad.h"
#include "suche/spaltenlayout.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr std::array<const char16_t*, 3> Typnamen = {u"chkMpeg", u"chkPlayer", u"chkBild"};

QString Haken(bool An) {
    return An ? u"✓"_s : QString();
}

}  // namespace

frmIndexOptionen::frmIndexOptionen(Anwendung& Lauf, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf), Entwurf(Lauf.Index.Optionen) {
    setObjectName(u"frmIndexOptionen"_s);
    setWindowTitle(u"Index-Optionen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Was gilt für diesen Index?"_s,
                     Programm.Index.Programmmodus <= ModusIndexdatei
                         ? u"Diese Einstellungen werden in der Indexdatei '%1' gespeichert."_s.arg(
                               QtText(DateinameVon(Programm.Index.IndexDateiname)))
                         : u"Diese Einstellungen gelten nur für diese Ansicht."_s);
    Blätter = new QTabWidget(this);
    Blätter->setObjectName(u"Blätter"_s);
    Blätter->addTab(DateitypenAnlegen(), u"&Dateitypen"_s);
    Blätter->addTab(SynchronisationAnlegen(), u"S&ynchronisation"_s);
    Blätter->addTab(SpaltenAnlegen(), u"S&palten"_s);
    Blätter->addTab(EigentümerAnlegen(), u"Ei&gentümer"_s);
    Spalte->addWidget(Blätter, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"A&bbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    TypenZeigen(0);
    RegelnZeigen(0);
    SpaltenZeigen();
    FormgrößeSetzen(*this, 104, 36);
    Blätter->setFocus();
}

QWidget* frmIndexOptionen::DateitypenAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    auto* const Reihe = new QHBoxLayout;
    lstDateitypen = new QTreeWidget(Seite);
    lstDateitypen->setObjectName(u"lstDateitypen"_s);
    lstDateitypen->setAccessibleName(u"Dateitypen des Index"_s);
    lstDateitypen->setRootIsDecorated(false);
    lstDateitypen->setAlternatingRowColors(true);
    lstDateitypen->setHeaderLabels(
        {u"Datei-Endung"_s, u"Verwaltet"_s, u"MPEG-Audio"_s, u"Audio-Player"_s, u"Bild"_s});
    lstDateitypen->header()->setObjectName(u"lstDateitypenSpalten"_s);
    lstDateitypen->header()->setStretchLastSection(false);
    lstDateitypen->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstDateitypen->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    connect(lstDateitypen, &QTreeWidget::itemSelectionChanged, this, [this] { TypAuswahlZeigen(); });
    Reihe->addWidget(lstDateitypen, 1);
    auto* const Rechts = new QVBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text, void (frmIndexOptionen::*Handler)()) {
        auto* const Neu = new QPushButton(Text, Seite);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(false);
        connect(Neu, &QPushButton::clicked, this, Handler);
        Rechts->addWidget(Neu);
        return Neu;
    };
    Knopf(u"cmdTypHinzufügen"_s, u"&Hinzufügen..."_s, &frmIndexOptionen::cmdTypHinzufügen_Click);
    cmdTypÄndern = Knopf(u"cmdTypÄndern"_s, u"Ä&ndern..."_s, &frmIndexOptionen::cmdTypÄndern_Click);
    cmdTypEntfernen = Knopf(u"cmdTypEntfernen"_s, u"&Entfernen"_s, &frmIndexOptionen::cmdTypEntfernen_Click);
    Rechts->addStretch(1);
    Reihe->addLayout(Rechts);
    Spalte->addLayout(Reihe, 1);
    connect(new QShortcut(QKeySequence::Delete, lstDateitypen, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { cmdTypEntfernen_Click(); });

    auto* const fraTyp = new QGroupBox(u"Dateien dieses Typs"_s, Seite);
    auto* const Schalter = new QVBoxLayout(fraTyp);
    const auto Anlegen = [&](const QString& Name, const QString& Text) {
        auto* const Neu = new QCheckBox(Text, fraTyp);
        Neu->setObjectName(Name);
        connect(Neu, &QCheckBox::toggled, this, [this] { TypSchalten(); });
        Schalter->addWidget(Neu);
        return Neu;
    };
    chkVerwalten =
        Anlegen(u"chkVerwalten"_s, u"beim Hinzufügen und Synchronisieren in den Index a&ufnehmen"_s);
    const QStringList Texte = {u"sind &MPEG-Audio und haben ID3-TAGs"_s, u"mit dem &Audio-Player abspielen"_s,
                               u"im eingebauten B&ildbetrachter anzeigen"_s};
    for (std::size_t Welcher = 0; Welcher < chkTyp.size(); ++Welcher)
        chkTyp[Welcher] = Anlegen(QString::fromUtf16(Typnamen[Welcher]), Texte[static_cast<int>(Welcher)]);
    Spalte->addWidget(fraTyp);
    TextHinzufügen(
        *Spalte, u"lblDateitypen"_s,
        u"'*' steht für alle anderen Datei-Endungen. Dateien ohne Kennzeichen öffnet die Anwendung, "
        u"die Ihr Desktop dafür vorsieht."_s);
    return Seite;
}

void frmIndexOptionen::TypenZeigen(std::size_t Gewählt) {
    Zeigt = true;
    lstDateitypen->clear();
    for (std::size_t Platz = 0; Platz < Entwurf.Dateitypen.size(); ++Platz) {
        lstDateitypen->addTopLevelItem(new QTreeWidgetItem);
        TypzeileZeigen(Platz);
    }
    Zeigt = false;
    const int Letzte = lstDateitypen->topLevelItemCount() - 1;
    lstDateitypen->setCurrentItem(lstDateitypen->topLevelItem(std::min(static_cast<int>(Gewählt), Letzte)));
    TypAuswahlZeigen();
}

void frmIndexOptionen::TypzeileZeigen(std::size_t Platz) {
    const Dateityp& Typ = Entwurf.Dateitypen[Platz];
    QTreeWidgetItem& Zeile = *lstDateitypen->topLevelItem(static_cast<int>(Platz));
    const QString Endung = QtText(EintragsEndung(Typ.Eintrag));
    Zeile.setText(0, Endung == u"*"_s ? u"* (alle anderen)"_s : Endung);
    const bool Verwaltet = TypVerwaltet(Typ);
    Zeile.setText(1, Haken(Verwaltet));
    QStringList Gesprochen = {Endung, Verwaltet ? u"verwaltet"_s : u"nicht verwaltet"_s};
    for (int Welcher = 0; Welcher < 3; ++Welcher) {
        const bool An = TypschalterLesen(Typ, static_cast<Typschalter>(Welcher));
        Zeile.setText(2 + Welcher, Haken(An));
        if (An) Gesprochen += lstDateitypen->headerItem()->text(2 + Welcher);
    }
    for (int Spalte = 1; Spalte < 5; ++Spalte)
        Zeile.setTextAlignment(Spalte, Qt::AlignCenter);
    Zeile.setData(0, Qt::AccessibleTextRole, Gesprochen.join(u", "_s));
}

std::size_t frmIndexOptionen::GewählterTyp() const {
    const auto Zeilen = lstDateitypen->selectedItems();
    return Zeilen.isEmpty() ? Entwurf.Dateitypen.size()
                            : static_cast<std::size_t>(lstDateitypen->indexOfTopLevelItem(Zeilen.front()));
}

void frmIndexOptionen::TypAuswahlZeigen() {
    if (Zeigt) return;
    const std::size_t Platz = GewählterTyp();
    const bool Gewählt = Platz < Entwurf.Dateitypen.size();
    Zeigt = true;
    chkVerwalten->setChecked(Gewählt && TypVerwaltet(Entwurf.Dateitypen[Platz]));
    for (std::size_t Welcher = 0; Welcher < chkTyp.size(); ++Welcher)
        chkTyp[Welcher]->setChecked(
            Gewählt && TypschalterLesen(Entwurf.Dateitypen[Platz], static_cast<Typschalter>(Welcher)));
    Zeigt = false;
    chkVerwalten->parentWidget()->setEnabled(Gewählt);
    cmdTypÄndern->setEnabled(Gewählt);
    cmdTypEntfernen->setEnabled(Gewählt);
}

void frmIndexOptionen::TypSchalten() {
    const std::size_t Platz = GewählterTyp();
    if (Zeigt || Platz >= Entwurf.Dateitypen.size()) return;
    Dateityp& Typ = Entwurf.Dateitypen[Platz];
    TypVerwaltetSetzen(Typ, chkVerwalten->isChecked());
    for (std::size_t Welcher = 0; Welcher < chkTyp.size(); ++Welcher)
        TypschalterSetzen(Typ, static_cast<Typschalter>(Welcher), chkTyp[Welcher]->isChecked());
    TypzeileZeigen(Platz);
}

void frmIndexOptionen::cmdTypHinzufügen_Click() {
    bool Gegeben = false;
    const QString Endung = QInputDialog::getText(this, u"Dateityp hinzufügen"_s, u"Neue Datei-Endung:"_s,
                                                 QLineEdit::Normal, {}, &Gegeben);
    if (!Gegeben) return;
    const std::vector<Dateityp> Vorher = Entwurf.Dateitypen;
    const std::string Meldung = DateitypHinzufügen(Entwurf, Utf8Text(Endung));
    if (!Meldung.empty()) return Programm.Dienst.Person.Melden(Symbol::Information, Meldung);
    const auto Neuer = std::ranges::mismatch(Entwurf.Dateitypen, Vorher).in1 - Entwurf.Dateitypen.begin();
    TypenZeigen(static_cast<std::size_t>(Neuer));
}

void frmIndexOptionen::cmdTypÄndern_Click() {
    const std::size_t Platz = GewählterTyp();
    if (Platz >= Entwurf.Dateitypen.size()) return;
    bool Gegeben = false;
    const QString Endung =
        QInputDialog::getText(this, u"Dateityp ändern"_s, u"Datei-Endung:"_s, QLineEdit::Normal,
                              QtText(EintragsEndung(Entwurf.Dateitypen[Platz].Eintrag)), &Gegeben);
    if (!Gegeben) return;
    const std::string Meldung =
        DateitypUmbenennen(Entwurf, Platz, Utf8Text(Endung), Programm.Werte.WeitereFormate == 1);
    if (!Meldung.empty()) return Programm.Dienst.Person.Melden(Symbol::Information, Meldung);
    TypzeileZeigen(Platz);
}

void frmIndexOptionen::cmdTypEntfernen_Click() {
    const std::size_t Platz = GewählterTyp();
    if (Platz >= Entwurf.Dateitypen.size()) return;
    const std::string Hinweis = DateitypEntfernen(Entwurf, Platz, Programm.Werte.WeitereFormate == 1);
    TypenZeigen(Platz);
    if (!Hinweis.empty()) Programm.Dienst.Person.Melden(Symbol::Information, Hinweis);
}

QWidget* frmIndexOptionen::EigentümerAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    TextHinzufügen(
        *Spalte, u"lblEigentümer"_s,
        u"Wem gehört dieser Index? Der Name erscheint beim Laden und Speichern und in der "
        u"Statistik. Das ist nützlich, wenn Sie auch die Indexdateien anderer Personen verwenden."_s);
    auto* const Formular = new QFormLayout;
    txtEigentümer = new QLineEdit(QtText(Entwurf.IndexEigentümer), Seite);
    txtEigentümer->setObjectName(u"txtEigentümer"_s);
    txtEigentümer->setAccessibleName(u"Name des Eigentümers"_s);
    txtEigentümer->setMaxLength(200);
    Formular->addRow(u"&Name:"_s, txtEigentümer);
    Spalte->addLayout(Formular);
    Spalte->addStretch(1);
    return Seite;
}

bool frmIndexOptionen::EingabenPrüfen() {
    SpaltenLesen();
    Entwurf.SyncEntfernen = chkSyncDanachEntfernen->isChecked() ? 1 : 0;
    const auto Text = [](const QLineEdit& Feld, std::string& Wert) {
        if (Feld.text() != QtText(Wert)) Wert = Utf8Text(Feld.text());
    };
    Text(*txtSyncKopierenNichtBeiText, Entwurf.SyncNichtBei);
    Text(*txtSpaltenNutzerformat, Entwurf.SpaltenNutzerformat);
    Text(*txtEigentümer, Entwurf.IndexEigentümer);
    const auto Beanstanden = [this](Blatt Welches, QWidget* Feld, std::string_view Meldung) {
        BlattZeigen(Welches);
        Programm.Dienst.Person.Melden(Symbol::Information, Meldung);
        Feld->setFocus();
        return false;
    };
    if (SpaltenEinrichten(Entwurf.Spalten).empty())
        return Beanstanden(Spalten, lstSpalten, "Bitte wählen Sie mindestens eine Spalte.");
    for (std::size_t Platz = 0; Platz < Entwurf.SyncOrdner.size(); ++Platz) {
        const SyncRegel& Regel = Entwurf.SyncOrdner[Platz];
        if (!Regel.KopierenInOrdner.empty() || !ZielErwünscht.contains(Regel.Ordner)) continue;
        lstSyncOrdner->setCurrentRow(static_cast<int>(Platz));
        return Beanstanden(Synchronisation, txtSyncKopierenInOrdner,
                           "Bitte geben Sie den Ordner ein, in den die Dateien verschoben werden sollen.");
    }
    const auto Fehler = IndexoptionenPrüfen(Entwurf, Programm.Index.Optionen);
    if (!Fehler) return true;
    lstSyncOrdner->setCurrentRow(static_cast<int>(Fehler->Regel));
    return Beanstanden(Synchronisation, lstSyncOrdner, Fehler->Meldung);
}

void frmIndexOptionen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        if (!EingabenPrüfen()) return;
        IndexoptionenÜbernehmen(Programm, Entwurf);
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
