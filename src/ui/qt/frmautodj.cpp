#include "ui/qt/frmautodj.h"

#include <QHBoxLayout>
#include <unordered_set>

#include "core/wiedergabelauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// A line of the form: words around its controls.
QHBoxLayout* Satzzeile(std::initializer_list<QWidget*> Teile) {
    auto* const Zeile = new QHBoxLayout;
    for (QWidget* const Teil : Teile)
        Zeile->addWidget(Teil);
    Zeile->addStretch(1);
    return Zeile;
}

QLabel* Wort(const QString& Text, QWidget* Feld = nullptr) {
    auto* const Schild = new QLabel(Text);
    Schild->setBuddy(Feld);
    return Schild;
}

}  // namespace

frmAutoDJ::frmAutoDJ(const Katalog& Datensätze, Einstellungen& Gemerkt, const Uhr& Uhrzeit,
                     Zufallszahl Zahlen, Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern),
      Index(Datensätze),
      Werte(Gemerkt),
      Zeit(Uhrzeit),
      Zufall(std::move(Zahlen)),
      Person(Dialoge) {
    setObjectName(u"frmAutoDJ"_s);
    setWindowTitle(u"AutoDJ"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("autodj"),
                     u"Stellen Sie Mediendateien automatisch nach Kriterien zusammen."_s, {});
    cboFunktion = new QComboBox(this);
    cboFunktion->setObjectName(u"cboFunktion"_s);
    cboFunktion->setAccessibleName(u"Funktion"_s);
    cboFunktion->addItems({u"Häufig benutzte Dateien zufällig anzeigen"_s,
                           u"Häufig benutzte Dateien nach Top-Listen anzeigen"_s});
    auto* const Funktion = new QHBoxLayout;
    Funktion->addWidget(Wort(u"&Funktion:"_s, cboFunktion));
    Funktion->addWidget(cboFunktion, 1);
    Spalte->addLayout(Funktion);
    Seiten = new QStackedWidget(this);
    Seiten->addWidget(ZufälligAnlegen());
    Seiten->addWidget(ToplisteAnlegen());
    Seiten->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    connect(cboFunktion, &QComboBox::currentIndexChanged, Seiten, &QStackedWidget::setCurrentIndex);
    auto* const Mitte = new QHBoxLayout;
    Mitte->setSpacing(20);
    auto* const Links = new QVBoxLayout;
    Links->addWidget(Seiten);
    Links->addStretch(1);
    Mitte->addLayout(Links, 1);
    Mitte->addLayout(GenresAnlegen());
    Spalte->addLayout(Mitte, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this,
        {{u"cmdErstellen"_s, u"&Erstellen"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    Füllen();
    cboFunktion->setFocus();
}

QLineEdit* frmAutoDJ::FeldAnlegen(const QString& Name, const QString& Hörname) {
    auto* const Feld = new QLineEdit(this);
    Feld->setObjectName(Name);
    Feld->setAccessibleName(Hörname);
    Feld->setFixedWidth(fontMetrics().averageCharWidth() * 9);
    Feld->setAlignment(Qt::AlignRight);
    return Feld;
}

QComboBox* frmAutoDJ::EinheitAnlegen(const QString& Name, const QString& Hörname) {
    auto* const Feld = new QComboBox(this);
    Feld->setObjectName(Name);
    Feld->setAccessibleName(Hörname);
    Feld->addItems({u"Minuten"_s, u"Stunden"_s, u"Tage"_s});
    return Feld;
}

QCheckBox* frmAutoDJ::KästchenAnlegen(const QString& Name, const QString& Text, QLayout& Spalte) {
    auto* const Feld = new QCheckBox(Text, this);
    Feld->setObjectName(Name);
    Spalte.addWidget(Feld);
    return Feld;
}

QWidget* frmAutoDJ::ZufälligAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(9);
    txtZeit = FeldAnlegen(u"txtZeit"_s, u"Dateien auslassen, die vor kurzem gespielt wurden"_s);
    cboZeiteinheit = EinheitAnlegen(u"cboZeiteinheit"_s, u"Zeiteinheit"_s);
    Spalte->addWidget(Wort(u"&Dateien auslassen, die ich gehört habe in den letzten"_s, txtZeit));
    Spalte->addLayout(Satzzeile({txtZeit, cboZeiteinheit}));
    txtMaximum = FeldAnlegen(u"txtMaximum"_s, u"Höchstzahl der Dateien"_s);
    Spalte->addLayout(Satzzeile({Wort(u"Finde &maximal"_s, txtMaximum), txtMaximum, Wort(u"Dateien"_s)}));
    // Two lines each: the whole sentences would make the form wider than small screens are.
    chkAlteSeltener =
        KästchenAnlegen(u"chkAlteSeltener"_s,
                        u"Dateien, die ich vor kurzem noch häufig gehört\nhabe, &seltener finden"_s, *Spalte);
    chkSehrAlteHäufiger =
        KästchenAnlegen(u"chkSehrAlteHäufiger"_s,
                        u"Dateien, die ich vor längerer Zeit oft gehört\nhabe, &häufiger finden"_s, *Spalte);
    chkID3v1Verwenden = KästchenAnlegen(u"chkID3v1Verwenden"_s, u"Genre aus ID3v&1-TAG verwenden"_s, *Spalte);
    chkID3v2Verwenden = KästchenAnlegen(u"chkID3v2Verwenden"_s, u"Genre aus ID3v&2-TAG verwenden"_s, *Spalte);
    Spalte->addStretch(1);
    return Seite;
}

QWidget* frmAutoDJ::ToplisteAnlegen() {
    auto* const Seite = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Seite);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(9);
    txtTopWieviel = FeldAnlegen(u"txtTopWieviel"_s, u"Anzahl der Top-Dateien"_s);
    Spalte->addLayout(Satzzeile(
        {Wort(u"Zeige meine &perönlichen Top-"_s, txtTopWieviel), txtTopWieviel, Wort(u"-Dateien."_s)}));
    txtTopZeitraum = FeldAnlegen(u"txtTopZeitraum"_s, u"Zeitraum der Charts"_s);
    cboTopZeitraum = EinheitAnlegen(u"cboTopZeitraum"_s, u"Zeiteinheit der Charts"_s);
    Spalte->addLayout(Satzzeile({Wort(u"&Charts der letzten"_s, txtTopZeitraum), txtTopZeitraum,
                                 cboTopZeitraum, Wort(u"anzeigen."_s)}));
    Spalte->addStretch(1);
    return Seite;
}

QLayout* frmAutoDJ::GenresAnlegen() {
    auto* const Spalte = new QVBoxLayout;
    Spalte->setSpacing(9);
    lstFelder = new QListWidget(this);
    lstFelder->setObjectName(u"lstFelder"_s);
    lstFelder->setAccessibleName(u"Genres"_s);
    lstFelder->setMinimumSize(fontMetrics().averageCharWidth() * 36, fontMetrics().height() * 14);
    Spalte->addWidget(Wort(u"&Genres:"_s, lstFelder));
    Spalte->addWidget(lstFelder, 1);
    auto* const Zeile = new QHBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text, const std::function<bool(bool)>& Neu) {
        auto* const Neuer = new QPushButton(Text, this);
        Neuer->setObjectName(Name);
        Neuer->setAutoDefault(false);
        connect(Neuer, &QPushButton::clicked, this, [this, Neu] { GenresSetzen(Neu); });
        Zeile->addWidget(Neuer);
    };
    Knopf(u"cmdGenreAlle"_s, u"&Alle"_s, [](bool) { return true; });
    Knopf(u"cmdGenreKeine"_s, u"&Keine"_s, [](bool) { return false; });
    Knopf(u"cmdGenreUmkehren"_s, u"&Umkehren"_s, [](bool An) { return !An; });
    Spalte->addLayout(Zeile);
    return Spalte;
}

void frmAutoDJ::GenresFüllen(const std::vector<std::string>& Gewählte) {
    const std::unordered_set<std::string> Angekreuzt(Gewählte.begin(), Gewählte.end());
    for (const std::string& Name : AlleAutoDjGenres()) {
        auto* const Eintrag = new QListWidgetItem(QtText(Name), lstFelder);
        Eintrag->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        Eintrag->setCheckState(Angekreuzt.contains(Name) ? Qt::Checked : Qt::Unchecked);
    }
    lstFelder->setCurrentRow(0);
}

void frmAutoDJ::GenresSetzen(const std::function<bool(bool)>& Neu) {
    for (int Zeile = 0; Zeile < lstFelder->count(); ++Zeile) {
        QListWidgetItem* const Eintrag = lstFelder->item(Zeile);
        Eintrag->setCheckState(Neu(Eintrag->checkState() == Qt::Checked) ? Qt::Checked : Qt::Unchecked);
    }
}

void frmAutoDJ::Füllen() {
    const AutoDjEingabe Zufällig = AutoDjAusEinstellungen(Werte, AutoDjFunktion::Zufällig);
    txtZeit->setText(QtText(Zufällig.Zeit));
    txtMaximum->setText(QtText(Zufällig.Maximum));
    cboZeiteinheit->setCurrentIndex(static_cast<int>(Zufällig.Einheit));
    chkAlteSeltener->setChecked(Zufällig.AlteSeltener);
    chkSehrAlteHäufiger->setChecked(Zufällig.SehrAlteHäufiger);
    chkID3v1Verwenden->setChecked(Werte.AutoDJID3v1Verwenden == 1);
    chkID3v2Verwenden->setChecked(Werte.AutoDJID3v2Verwenden == 1);
    const AutoDjEingabe Top = AutoDjAusEinstellungen(Werte, AutoDjFunktion::Topliste);
    txtTopWieviel->setText(QtText(Top.Maximum));
    txtTopZeitraum->setText(QtText(Top.Zeit));
    cboTopZeitraum->setCurrentIndex(static_cast<int>(Top.Einheit));
    GenresFüllen(Zufällig.Genres);
}

AutoDjEingabe frmAutoDJ::Lesen(AutoDjFunktion Funktion) const {
    AutoDjEingabe Eingabe;
    Eingabe.Funktion = Funktion;
    const bool Zufällig = Funktion == AutoDjFunktion::Zufällig;
    Eingabe.Zeit = Utf8Text((Zufällig ? txtZeit : txtTopZeitraum)->text());
    Eingabe.Maximum = Utf8Text((Zufällig ? txtMaximum : txtTopWieviel)->text());
    Eingabe.Einheit =
        static_cast<AutoDjEinheit>((Zufällig ? cboZeiteinheit : cboTopZeitraum)->currentIndex());
    Eingabe.AlteSeltener = chkAlteSeltener->isChecked();
    Eingabe.SehrAlteHäufiger = chkSehrAlteHäufiger->isChecked();
    for (int Zeile = 0; Zeile < lstFelder->count(); ++Zeile) {
        const QListWidgetItem* const Eintrag = lstFelder->item(Zeile);
        if (Eintrag->checkState() == Qt::Checked) Eingabe.Genres.push_back(Utf8Text(Eintrag->text()));
    }
    return Eingabe;
}

void frmAutoDJ::cmdErstellen_Click() {
    AutoDjWahl Wahl;
    const std::string Meldung =
        AutoDjPrüfen(Lesen(static_cast<AutoDjFunktion>(cboFunktion->currentIndex())), Wahl);
    if (!Meldung.empty()) return Person.Melden(Symbol::Information, Meldung);
    Nummern = AutoDjZusammenstellen(Index, Wahl, Zeit.Jetzt(), Zufall);
    if (Nummern.empty())
        Person.Melden(Symbol::Information, AutoDjNichtsGefunden(Werte.AbspielStatistikSpeichern == 1));
}

void frmAutoDJ::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        cmdErstellen_Click();
        if (Nummern.empty()) return;
    }
    AutoDjInEinstellungen(Werte, Lesen(AutoDjFunktion::Topliste));
    AutoDjInEinstellungen(Werte, Lesen(AutoDjFunktion::Zufällig));
    Werte.AutoDJID3v1Verwenden = chkID3v1Verwenden->isChecked() ? 1 : 0;
    Werte.AutoDJID3v2Verwenden = chkID3v2Verwenden->isChecked() ? 1 : 0;
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
