// frmIndexOptionen: the pages for the folders to synchronise and for the columns.
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>

#include "basis/dateiname.h"
#include "core/suchlauf.h"
#include "suche/spaltenlayout.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmindexhinzufuegen.h"
#include "ui/qt/frmindexoptionen.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

struct Listenknopf {
    QString Name;
    QString Text;
    std::function<void()> Handler;
};

// A list with its buttons at the right, which the column gets; the buttons in the order of Liste.
std::vector<QPushButton*> ListeAnlegen(QVBoxLayout& Spalte, QListWidget& Liste,
                                       const std::vector<Listenknopf>& Knöpfe) {
    Liste.setAlternatingRowColors(true);
    auto* const Reihe = new QHBoxLayout;
    Reihe->addWidget(&Liste, 1);
    auto* const Rechts = new QVBoxLayout;
    std::vector<QPushButton*> Gemacht;
    for (const Listenknopf& Einer : Knöpfe) {
        auto* const Neu = new QPushButton(Einer.Text, Spalte.parentWidget());
        Neu->setObjectName(Einer.Name);
        Neu->setAutoDefault(false);
        QObject::connect(Neu, &QPushButton::clicked, &Liste, Einer.Handler);
        Rechts->addWidget(Neu);
        Gemacht.push_back(Neu);
    }
    Rechts->addStretch(1);
    Reihe->addLayout(Rechts);
    Spalte.addLayout(Reihe, 1);
    return Gemacht;
}

}  // namespace

QWidget* frmIndexOptionen::SynchronisationAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    TextHinzufügen(*Spalte, u"lblSync"_s,
                   u"Beim Synchronisieren werden neue Dateien dieser Ordner in den Index aufgenommen:"_s);
    lstSyncOrdner = new QListWidget(Seite);
    lstSyncOrdner->setObjectName(u"lstSyncOrdner"_s);
    lstSyncOrdner->setAccessibleName(u"Ordner, die synchronisiert werden"_s);
    connect(lstSyncOrdner, &QListWidget::currentRowChanged, this, [this] { RegelAuswahlZeigen(); });
    connect(new QShortcut(QKeySequence::Delete, lstSyncOrdner, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { cmdOrdnerEntfernen_Click(); });
    Ordnerknöpfe = ListeAnlegen(
        *Spalte, *lstSyncOrdner,
        {{u"cmdOrdnerHinzufügen"_s, u"&Hinzufügen..."_s, [this] { cmdOrdnerHinzufügen_Click(); }},
         {u"cmdOrdnerEntfernen"_s, u"&Entfernen"_s, [this] { cmdOrdnerEntfernen_Click(); }},
         {u"cmdOrdnerNachOben"_s, u"Nach obe&n"_s, [this] { cmdOrdnerVerschieben_Click(-1); }},
         {u"cmdOrdnerNachUnten"_s, u"Nach &unten"_s, [this] { cmdOrdnerVerschieben_Click(1); }}});
    // The first one needs no row.
    Ordnerknöpfe.erase(Ordnerknöpfe.begin());

    auto* const fraOrdner = new QGroupBox(u"Gewählter Ordner"_s, Seite);
    auto* const Ordner = new QVBoxLayout(fraOrdner);
    chkSyncUnterordner = new QCheckBox(u"Die Unterordner dieses Ordners auch einbeziehen"_s, fraOrdner);
    chkSyncUnterordner->setObjectName(u"chkSyncUnterordner"_s);
    chkSyncKopierenInOrdner = new QCheckBox(u"Dateien vorher in folgenden Ordner verschieben"_s, fraOrdner);
    chkSyncKopierenInOrdner->setObjectName(u"chkSyncKopierenInOrdner"_s);
    txtSyncKopierenInOrdner = new QLineEdit(fraOrdner);
    txtSyncKopierenInOrdner->setObjectName(u"txtSyncKopierenInOrdner"_s);
    txtSyncKopierenInOrdner->setAccessibleName(u"Ordner, in den die Dateien vorher verschoben werden"_s);
    cmdZielSuchen = new QPushButton(u"Su&chen..."_s, fraOrdner);
    cmdZielSuchen->setObjectName(u"cmdZielSuchen"_s);
    cmdZielSuchen->setAutoDefault(false);
    auto* const Ziel = new QHBoxLayout;
    Ziel->addSpacing(fontMetrics().averageCharWidth() * 3);
    Ziel->addWidget(txtSyncKopierenInOrdner, 1);
    Ziel->addWidget(cmdZielSuchen);
    Ordner->addWidget(chkSyncUnterordner);
    Ordner->addWidget(chkSyncKopierenInOrdner);
    Ordner->addLayout(Ziel);
    connect(chkSyncUnterordner, &QCheckBox::toggled, this, [this] { RegelSchreiben(); });
    connect(chkSyncKopierenInOrdner, &QCheckBox::toggled, this, [this](bool An) {
        RegelSchreiben();
        if (An && !Zeigt) txtSyncKopierenInOrdner->setFocus();
    });
    connect(txtSyncKopierenInOrdner, &QLineEdit::textChanged, this, [this] { RegelSchreiben(); });
    connect(cmdZielSuchen, &QPushButton::clicked, this, [this] { cmdZielSuchen_Click(); });
    Spalte->addWidget(fraOrdner);

    auto* const fraAlle = new QGroupBox(u"Alle Ordner"_s, Seite);
    auto* const Alle = new QVBoxLayout(fraAlle);
    auto* const lblNichtBei =
        new QLabel(u"Dateien nicht hinzufügen, wenn folgender &Text im Dateinamen vorhanden ist"_s, fraAlle);
    txtSyncKopierenNichtBeiText = new QLineEdit(QtText(Entwurf.SyncNichtBei), fraAlle);
    txtSyncKopierenNichtBeiText->setObjectName(u"txtSyncKopierenNichtBeiText"_s);
    txtSyncKopierenNichtBeiText->setAccessibleName(lblNichtBei->text().remove(u'&'));
    lblNichtBei->setBuddy(txtSyncKopierenNichtBeiText);
    chkSyncDanachEntfernen = new QCheckBox(
        u"Nach dem Hinzufügen nicht mehr existierende Dateien aus dem Index entfernen"_s, fraAlle);
    chkSyncDanachEntfernen->setObjectName(u"chkSyncDanachEntfernen"_s);
    chkSyncDanachEntfernen->setChecked(Entwurf.SyncEntfernen == 1);
    Alle->addWidget(lblNichtBei);
    Alle->addWidget(txtSyncKopierenNichtBeiText);
    Alle->addWidget(chkSyncDanachEntfernen);
    Spalte->addWidget(fraAlle);
    return Seite;
}

void frmIndexOptionen::RegelnZeigen(int Gewählt) {
    Zeigt = true;
    lstSyncOrdner->clear();
    for (const SyncRegel& Regel : Entwurf.SyncOrdner)
        lstSyncOrdner->addItem(new QListWidgetItem(Symbolbild("ordner"), QtText(Regel.Ordner)));
    Zeigt = false;
    lstSyncOrdner->setCurrentRow(std::min(Gewählt, lstSyncOrdner->count() - 1));
    RegelAuswahlZeigen();
}

void frmIndexOptionen::RegelAuswahlZeigen() {
    if (Zeigt) return;
    const int Zeile = lstSyncOrdner->currentRow();
    const SyncRegel Regel = Zeile < 0 ? SyncRegel{} : Entwurf.SyncOrdner[static_cast<std::size_t>(Zeile)];
    Zeigt = true;
    chkSyncUnterordner->setChecked(Regel.Unterordner == 1);
    chkSyncKopierenInOrdner->setChecked(!Regel.KopierenInOrdner.empty() ||
                                        ZielErwünscht.contains(Regel.Ordner));
    txtSyncKopierenInOrdner->setText(QtText(Regel.KopierenInOrdner));
    Zeigt = false;
    chkSyncUnterordner->parentWidget()->setEnabled(Zeile >= 0);
    txtSyncKopierenInOrdner->setEnabled(chkSyncKopierenInOrdner->isChecked());
    cmdZielSuchen->setEnabled(chkSyncKopierenInOrdner->isChecked());
    for (QPushButton* const Knopf : Ordnerknöpfe)
        Knopf->setEnabled(Zeile >= 0);
}

void frmIndexOptionen::RegelSchreiben() {
    const int Zeile = lstSyncOrdner->currentRow();
    if (Zeigt || Zeile < 0) return;
    SyncRegel& Regel = Entwurf.SyncOrdner[static_cast<std::size_t>(Zeile)];
    if (chkSyncUnterordner->isChecked() != (Regel.Unterordner == 1))
        Regel.Unterordner = chkSyncUnterordner->isChecked() ? 1 : 0;
    const bool Verschieben = chkSyncKopierenInOrdner->isChecked();
    if (Verschieben) {
        ZielErwünscht.insert(Regel.Ordner);
    } else {
        ZielErwünscht.erase(Regel.Ordner);
    }
    const QString Ziel = Verschieben ? txtSyncKopierenInOrdner->text().trimmed() : QString();
    if (Ziel != QtText(Regel.KopierenInOrdner)) Regel.KopierenInOrdner = OhneTrenner(PfadAusQt(Ziel));
    txtSyncKopierenInOrdner->setEnabled(Verschieben);
    cmdZielSuchen->setEnabled(Verschieben);
}

void frmIndexOptionen::cmdOrdnerHinzufügen_Click() {
    const std::string Ordner =
        OhneTrenner(OrdnerWählen(this, u"Bitte wählen Sie einen Ordner zum Synchronisieren..."_s));
    if (Ordner.empty()) return;
    Entwurf.SyncOrdner.push_back({Ordner, 1, {}});
    const std::string Meldung = SyncRegelPrüfen(Entwurf, Entwurf.SyncOrdner.size() - 1);
    if (!Meldung.empty()) {
        Entwurf.SyncOrdner.pop_back();
        return Programm.Dienst.Person.Melden(Symbol::Information, Meldung);
    }
    RegelnZeigen(lstSyncOrdner->count());
}

void frmIndexOptionen::cmdOrdnerEntfernen_Click() {
    const int Zeile = lstSyncOrdner->currentRow();
    if (Zeile < 0) return;
    Entwurf.SyncOrdner.erase(Entwurf.SyncOrdner.begin() + Zeile);
    RegelnZeigen(Zeile);
}

void frmIndexOptionen::cmdOrdnerVerschieben_Click(int Richtung) {
    const int Zeile = lstSyncOrdner->currentRow();
    const int Nach = Zeile + Richtung;
    if (Zeile < 0 || Nach < 0 || Nach >= lstSyncOrdner->count()) return;
    std::swap(Entwurf.SyncOrdner[static_cast<std::size_t>(Zeile)],
              Entwurf.SyncOrdner[static_cast<std::size_t>(Nach)]);
    RegelnZeigen(Nach);
}

void frmIndexOptionen::cmdZielSuchen_Click() {
    const QString Ordner = QFileDialog::getExistingDirectory(this, u"Bitte wählen Sie einen Zielordner..."_s,
                                                             txtSyncKopierenInOrdner->text());
    if (!Ordner.isEmpty()) txtSyncKopierenInOrdner->setText(Ordner);
}

QWidget* frmIndexOptionen::SpaltenAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    TextHinzufügen(*Spalte, u"lblSpalten"_s,
                   u"Welche Spalten soll die Liste zeigen, und in welcher Folge?"_s);
    lstSpalten = new QListWidget(Seite);
    lstSpalten->setObjectName(u"lstSpalten"_s);
    lstSpalten->setAccessibleName(u"Spalten der Liste"_s);
    ListeAnlegen(*Spalte, *lstSpalten,
                 {{u"cmdSpalteNachOben"_s, u"Nach obe&n"_s, [this] { cmdSpalteVerschieben_Click(-1); }},
                  {u"cmdSpalteNachUnten"_s, u"Nach &unten"_s, [this] { cmdSpalteVerschieben_Click(1); }}});
    const auto Schalter = [&](const QString& Name, const QString& Text, std::int16_t Indexoptionen::*Option) {
        auto* const Neu = new QCheckBox(Text, Seite);
        Neu->setObjectName(Name);
        Neu->setChecked(Entwurf.*Option == 1);
        Spalte->addWidget(Neu);
        Ansicht.push_back({Neu, Option});
    };
    Schalter(u"chkBeschreibungsleiste"_s, u"Spalten&titel über der Liste"_s, &Indexoptionen::SpaltenLeiste);
    Schalter(u"chkGitter"_s, u"Gitte&rnetz in der Liste"_s, &Indexoptionen::SpaltenGitter);
    Schalter(u"chkSymbole"_s, u"Symbo&le der Dateien lesen und zeigen"_s, &Indexoptionen::SpaltenSymbole);
    constexpr int Zeilenlänge = 84;  // characters
    Schalter(
        u"chkBeideTAGsVerwenden"_s,
        Umbrochen("Wenn ein Feld wegen eines fehlenden TAGs nicht vorhanden ist, Feld des anderen TAGs &zur "
                  "Listenanzeige verwenden",
                  Zeilenlänge),
        &Indexoptionen::SpaltenBeideTags);
    auto* const Formular = new QFormLayout;
    txtSpaltenNutzerformat = new QLineEdit(QtText(Entwurf.SpaltenNutzerformat), Seite);
    txtSpaltenNutzerformat->setObjectName(u"txtSpaltenNutzerformat"_s);
    txtSpaltenNutzerformat->setAccessibleName(u"Format der Spalte 'Benutzerdefiniert'"_s);
    txtSpaltenNutzerformat->setToolTip(
        u"Die Namen von Spalten zwischen Prozentzeichen werden durch ihren Inhalt ersetzt."_s);
    Formular->addRow(u"&Format der Spalte 'Benutzerdefiniert':"_s, txtSpaltenNutzerformat);
    Spalte->addLayout(Formular);
    return Seite;
}

// The shown columns in their order, then the others in the order of their numbers.
void frmIndexOptionen::SpaltenZeigen() {
    const auto Gezeigt = SpaltenEinrichten(Entwurf.Spalten);
    const auto Anlegen = [this](int Nummer, int Breite, bool An) {
        auto* const Zeile =
            new QListWidgetItem(QtText(SpaltenNamen[static_cast<std::size_t>(Nummer - 1)].Name), lstSpalten);
        Zeile->setFlags(Zeile->flags() | Qt::ItemIsUserCheckable);
        Zeile->setCheckState(An ? Qt::Checked : Qt::Unchecked);
        Zeile->setData(Qt::UserRole, Nummer);
        Zeile->setData(Qt::UserRole + 1, Breite);
    };
    for (const Listenspalte& Eine : Gezeigt)
        Anlegen(Eine.Nummer, Eine.Breite, true);
    for (int Nummer = 1; Nummer <= SpaltenAnzahl; ++Nummer) {
        if (std::ranges::find(Gezeigt, Nummer, &Listenspalte::Nummer) != Gezeigt.end()) continue;
        Anlegen(Nummer, NeueSpalte(Nummer).Breite, false);
    }
    lstSpalten->setCurrentRow(0);
}

void frmIndexOptionen::cmdSpalteVerschieben_Click(int Richtung) {
    const int Zeile = lstSpalten->currentRow();
    const int Nach = Zeile + Richtung;
    if (Zeile < 0 || Nach < 0 || Nach >= lstSpalten->count()) return;
    lstSpalten->insertItem(Nach, lstSpalten->takeItem(Zeile));
    lstSpalten->setCurrentRow(Nach);
}

void frmIndexOptionen::SpaltenLesen() {
    std::vector<Listenspalte> Gewählt;
    for (int Zeile = 0; Zeile < lstSpalten->count(); ++Zeile) {
        const QListWidgetItem& Eine = *lstSpalten->item(Zeile);
        if (Eine.checkState() == Qt::Checked)
            Gewählt.push_back({Eine.data(Qt::UserRole).toInt(), Eine.data(Qt::UserRole + 1).toInt()});
    }
    if (Gewählt != SpaltenEinrichten(Entwurf.Spalten))
        Entwurf.Spalten = SpaltenSpeichern(Gewählt, Entwurf.Spalten);
    for (const Ansichtsschalter& Einer : Ansicht) {
        if (Einer.Schalter->isChecked() != (Entwurf.*Einer.Option == 1))
            Entwurf.*Einer.Option = Einer.Schalter->isChecked() ? 1 : 0;
    }
}

}  // namespace liedwerk
