#include "ui/qt/frmausschlussliste.h"

#include "medien/autotag.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmAusschlußliste::frmAusschlußliste(Einstellungen& Einstellwerte, QWidget* Eltern)
    : QDialog(Eltern), Werte(Einstellwerte) {
    setObjectName(u"frmAusschlußliste"_s);
    setWindowTitle(u"Ausschlußliste"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("tag"), u"Welche Wörter sind keine Daten?"_s,
                     u"Teile eines Dateinamens, die einem dieser Wörter gleichen, lässt AutoTAG aus."_s);
    chkVerwenden = new QCheckBox(u"Ausschlußliste &verwenden"_s, this);
    chkVerwenden->setObjectName(u"chkVerwenden"_s);
    chkVerwenden->setChecked(Werte.AutoTagAusschlußLeer == 0);
    Spalte->addWidget(chkVerwenden);
    auto* const lblWort = new QLabel(u"Neues &Wort:"_s, this);
    txtWort = new QLineEdit(this);
    txtWort->setObjectName(u"txtWort"_s);
    txtWort->setAccessibleName(u"Neues Wort"_s);
    lblWort->setBuddy(txtWort);
    auto* const Eingabe = new QHBoxLayout;
    Eingabe->addWidget(lblWort);
    Eingabe->addWidget(txtWort, 1);
    Spalte->addLayout(Eingabe);
    Wörter = new Zeilenliste(u"lstWörter"_s, u"Ausgeschlossene Wörter"_s, this);
    Wörter->ZeilenSetzen(Ausschlußliste(Werte));
    QPushButton* const cmdHinzufügen =
        Wörter->KnopfHinzufügen(u"cmdHinzufügen"_s, u"&Hinzufügen"_s, false, [this] { WortAufnehmen(); });
    Wörter->OrdnungsknöpfeHinzufügen();
    Spalte->addWidget(Wörter, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    // Enter takes the word that is being typed, and ends the form when there is none.
    connect(txtWort, &QLineEdit::textChanged, this, [cmdHinzufügen, cmdOk = Knöpfe[0]](const QString& Text) {
        (Text.trimmed().isEmpty() ? cmdOk : cmdHinzufügen)->setDefault(true);
    });
    Knöpfe[0]->setDefault(true);
    txtWort->setFocus();
}

void frmAusschlußliste::WortAufnehmen() {
    const QString Wort = txtWort->text().trimmed();
    if (!Wort.isEmpty()) {
        Wörter->Hinzufügen(Wort);
        chkVerwenden->setChecked(true);
    }
    txtWort->clear();
    txtWort->setFocus();
}

void frmAusschlußliste::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        WortAufnehmen();
        Werte.AutoTagAusschluß = Wörter->Zeilen();
        Werte.AutoTagAusschlußLeer = chkVerwenden->isChecked() ? 0 : -1;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
