#include "ui/qt/frmtagautotagwaehlen.h"

#include "medien/autotag.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmausschlussliste.h"
#include "ui/qt/frmtagautotaghinzufuegen.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTagAutoTagWählen::frmTagAutoTagWählen(Einstellungen& Einstellwerte, std::string Beispiel,
                                         Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Werte(Einstellwerte), Beispieldatei(std::move(Beispiel)), Person(Dialoge) {
    setObjectName(u"frmTagAutoTagWählen"_s);
    setWindowTitle(QtText(AutoTagFenstertitel));
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("tag"), u"Wie sind Ihre Dateinamen aufgebaut?"_s,
                     u"AutoTAG erkennt die Felder eines TAGs nach dem gewählten Erkennungs-Format. "
                     u"%Automatik% braucht keines: was schon im Index steht, hilft dabei."_s);
    Formate = new Zeilenliste(u"lstFormate"_s, u"Erkennungs-Formate"_s, this);
    Formate->ZeilenSetzen(AutoTagListe(Werte));
    Formate->KnopfHinzufügen(u"cmdHinzufügen"_s, u"&Hinzufügen..."_s, false,
                             [this] { cmdHinzufügen_Click(); });
    Formate->KnopfHinzufügen(u"cmdÄndern"_s, u"&Ändern..."_s, true, [this] { cmdÄndern_Click(); });
    Formate->OrdnungsknöpfeHinzufügen();
    connect(&Formate->Liste(), &QListWidget::itemDoubleClicked, this, [this] { done(Accepted); });
    Spalte->addWidget(Formate, 1);
    KästenAnlegen(*Spalte);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"A&bbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    // Without a current format OK takes the first one.
    Formate->Liste().setCurrentRow(0);
    if (!Werte.AutoTagAktuell.empty()) Formate->Hinzufügen(QtText(Werte.AutoTagAktuell));
    Formate->setFocus();
}

void frmTagAutoTagWählen::KästenAnlegen(QVBoxLayout& Spalte) {
    const auto Anlegen = [&](const QString& Name, const QString& Text, bool An) {
        auto* const Kasten = new QCheckBox(Text, this);
        Kasten->setObjectName(Name);
        Kasten->setChecked(An);
        Spalte.addWidget(Kasten);
        return Kasten;
    };
    chkUnterstrichEntfernen =
        Anlegen(u"chkUnterstrichEntfernen"_s, u"\"_\" im Dateinamen als &Leerzeichen lesen"_s,
                Werte.AutoTagUnterstrichEntfernen == 1);
    chkFelderLöschen =
        Anlegen(u"chkFelderLöschen"_s, u"&Felder des TAGs vorher leeren"_s, Werte.AutoTagFelderLöschen == 1);
    auto* const cmdAusschlußliste = new QPushButton(u"Aus&schlußliste..."_s, this);
    cmdAusschlußliste->setObjectName(u"cmdAusschlußliste"_s);
    cmdAusschlußliste->setAutoDefault(false);
    connect(cmdAusschlußliste, &QPushButton::clicked, this,
            [this] { frmAusschlußliste(Werte, this).exec(); });
    Spalte.addWidget(cmdAusschlußliste, 0, Qt::AlignLeft);
}

void frmTagAutoTagWählen::cmdHinzufügen_Click() {
    frmTagAutoTagHinzufügen Form({}, Beispieldatei, Person, this);
    if (Form.exec() == Accepted) Formate->Hinzufügen(QtText(Form.Format()));
}

void frmTagAutoTagWählen::cmdÄndern_Click() {
    QListWidgetItem* const Zeile = Formate->Liste().currentItem();
    frmTagAutoTagHinzufügen Form(Utf8Text(Zeile->text()), Beispieldatei, Person, this);
    if (Form.exec() == Accepted) Zeile->setText(QtText(Form.Format()));
}

void frmTagAutoTagWählen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        Werte.AutoTagFormate = Formate->Zeilen();
        Werte.AutoTagLeer = Werte.AutoTagFormate.empty() ? -1 : 0;
        const QListWidgetItem* const Zeile = Formate->Liste().currentItem();
        Werte.AutoTagAktuell = Zeile == nullptr ? std::string() : Utf8Text(Zeile->text());
        Werte.AutoTagFelderLöschen = chkFelderLöschen->isChecked() ? 1 : 0;
        Werte.AutoTagUnterstrichEntfernen = chkUnterstrichEntfernen->isChecked() ? 1 : 0;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
