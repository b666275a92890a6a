#include "ui/qt/frmkopieren.h"

#include <QFileDialog>
#include <QFormLayout>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmKopieren::frmKopieren(Einstellungen& Gemerkte, Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Werte(Gemerkte), Person(Dialoge) {
    setObjectName(u"frmKopieren"_s);
    setWindowTitle(u"Dateien kopieren/verschieben"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("kopieren"),
                     u"Wohin sollen die Dateien kopiert oder verschoben werden?"_s,
                     u"Der Index folgt Dateien, die verschoben werden."_s);
    auto* const Formular = new QFormLayout;
    Formular->setHorizontalSpacing(14);
    Formular->setVerticalSpacing(10);

    auto* const Zeile = new QHBoxLayout;
    txtOrdner = new QLineEdit(QtText(Werte.KopierenOrdner), this);
    txtOrdner->setObjectName(u"txtOrdner"_s);
    txtOrdner->setAccessibleName(u"Zielordner"_s);
    txtOrdner->setMinimumWidth(fontMetrics().averageCharWidth() * 46);
    auto* const cmdOrdnerSuchen = new QPushButton(Symbolbild("ordner"), u"&Suchen..."_s, this);
    cmdOrdnerSuchen->setObjectName(u"cmdOrdnerSuchen"_s);
    cmdOrdnerSuchen->setAutoDefault(false);
    connect(cmdOrdnerSuchen, &QPushButton::clicked, this, [this] { cmdOrdnerSuchen_Click(); });
    Zeile->addWidget(txtOrdner, 1);
    Zeile->addWidget(cmdOrdnerSuchen);
    auto* const lblOrdner = new QLabel(u"&Zielordner:"_s, this);
    lblOrdner->setBuddy(txtOrdner);
    Formular->addRow(lblOrdner, Zeile);

    optKopieren = new QRadioButton(u"&Kopieren"_s, this);
    optKopieren->setObjectName(u"optKopieren"_s);
    optVerschieben = new QRadioButton(u"&Verschieben"_s, this);
    optVerschieben->setObjectName(u"optVerschieben"_s);
    (Werte.KopierenModus == 1 ? optVerschieben : optKopieren)->setChecked(true);
    auto* const Wahl = new QHBoxLayout;
    Wahl->setSpacing(24);
    Wahl->addWidget(optKopieren);
    Wahl->addWidget(optVerschieben);
    Wahl->addStretch(1);
    Formular->addRow(u"Vorgang:"_s, Wahl);

    cboDateienErsetzen = new QComboBox(this);
    cboDateienErsetzen->setObjectName(u"cboDateienErsetzen"_s);
    cboDateienErsetzen->setAccessibleName(u"Wenn eine Zieldatei existiert"_s);
    cboDateienErsetzen->addItems({u"Meldung anzeigen"_s, u"Dateien nie ersetzen"_s,
                                  u"Dateien immer ersetzen (Vorsicht!)"_s,
                                  u"Nur ältere Dateien ersetzen, ansonsten Meldung anzeigen"_s,
                                  u"Nur ältere Dateien ersetzen, ansonsten nie ersetzen"_s});
    const int Regel = Werte.KopierenÜberschreiben;
    cboDateienErsetzen->setCurrentIndex(Regel >= 0 && Regel < cboDateienErsetzen->count() ? Regel : 0);
    auto* const lblErsetzen = new QLabel(u"Vorhandene &Dateien:"_s, this);
    lblErsetzen->setBuddy(cboDateienErsetzen);
    Formular->addRow(lblErsetzen, cboDateienErsetzen);

    // Kept: the missing "r".
    chkStrukturÜbernehmen = new QCheckBox(u"Ordnerst&uktur übernehmen"_s, this);
    chkStrukturÜbernehmen->setObjectName(u"chkStrukturÜbernehmen"_s);
    chkStrukturÜbernehmen->setToolTip(
        u"Legt die Ordner, in denen die Dateien jetzt liegen, unter dem Zielordner an."_s);
    chkStrukturÜbernehmen->setChecked(Werte.KopierenStrukturÜbernehmen == 1);
    Formular->addRow(QString(), chkStrukturÜbernehmen);
    Spalte->addLayout(Formular);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    txtOrdner->setFocus();
}

void frmKopieren::cmdOrdnerSuchen_Click() {
    const QString Ordner =
        QFileDialog::getExistingDirectory(this, u"Bitte wählen Sie einen Zielordner..."_s, txtOrdner->text());
    if (!Ordner.isEmpty()) txtOrdner->setText(Ordner);
}

void frmKopieren::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        // A name that cannot be shown as text comes back as it was unless it was edited.
        if (txtOrdner->text() != QtText(Werte.KopierenOrdner))
            Werte.KopierenOrdner = PfadAusQt(txtOrdner->text());
        if (Werte.KopierenOrdner.empty()) {
            Person.Melden(Symbol::Information,
                          "Bitte geben Sie einen Zielordner für den Kopier-/Verschiebe-Vorgang an.");
            return;
        }
        Werte.KopierenModus = optVerschieben->isChecked() ? 1 : 0;
        Werte.KopierenStrukturÜbernehmen = chkStrukturÜbernehmen->isChecked() ? 1 : 0;
        Werte.KopierenÜberschreiben = static_cast<std::int16_t>(cboDateienErsetzen->currentIndex());
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
