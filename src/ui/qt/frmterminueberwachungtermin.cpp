#include "ui/qt/frmterminueberwachungtermin.h"

#include <QHBoxLayout>
#include <QTreeView>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/terminmodell.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTerminÜberwachungTermin::frmTerminÜberwachungTermin(const Terminmeldung& Meldung, Oberfläche& Dialoge,
                                                       QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge) {
    setObjectName(u"frmTerminÜberwachungTermin"_s);
    setWindowTitle(u"Ereignis erreicht"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("termin"), u"Ereignis erreicht"_s, QtText(Meldung.Text));
    TextHinzufügen(*Spalte, u"lblFrage"_s, u"Möchten Sie erneut benachrichtigt werden?"_s);
    const auto Wahl = [&](const QString& Name, const QString& Text) {
        auto* const Knopf = new QRadioButton(Text, this);
        Knopf->setObjectName(Name);
        return Knopf;
    };
    const QString Hinterlegt = u"&Ja, wie hinterlegt"_s;
    optBenachrichtigenWieHinterlegt = Wahl(u"optBenachrichtigenWieHinterlegt"_s, Hinterlegt);
    Spalte->addWidget(optBenachrichtigenWieHinterlegt);
    if (!Meldung.Nächster.empty()) {
        auto* const lblNächster =
            TextHinzufügen(*Spalte, u"lblNächster"_s,
                           u"Die nächste Benachrichtigung erfolgt am %1."_s.arg(QtText(Meldung.Nächster)));
        lblNächster->setIndent(24);
        optBenachrichtigenWieHinterlegt->setAccessibleDescription(lblNächster->text());
    }
    optBenachrichtigenFolgendermaßen = Wahl(u"optBenachrichtigenFolgendermaßen"_s, u"Ja, &folgendermaßen:"_s);
    txtZeit = new QLineEdit(QtText(Meldung.Nächster), this);
    txtZeit->setObjectName(u"txtZeit"_s);
    txtZeit->setAccessibleName(u"Zeitpunkt der nächsten Benachrichtigung"_s);
    txtZeit->setPlaceholderText(u"tt.mm.jjjj hh:mm:ss"_s);
    txtZeit->setMinimumWidth(txtZeit->fontMetrics().averageCharWidth() * 24);
    connect(txtZeit, &QLineEdit::textEdited, optBenachrichtigenFolgendermaßen,
            [this] { optBenachrichtigenFolgendermaßen->setChecked(true); });
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(optBenachrichtigenFolgendermaßen);
    Zeile->addWidget(txtZeit);
    Zeile->addStretch(1);
    Spalte->addLayout(Zeile);
    optBenachrichtigenNein = Wahl(u"optBenachrichtigenNein"_s, u"&Nein"_s);
    Spalte->addWidget(optBenachrichtigenNein);
    optBenachrichtigenWieHinterlegt->setChecked(true);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}})[0]->setDefault(true);
    if (Meldung.AnzeigeDauer > 0) {
        tmrAusblenden.setSingleShot(true);
        connect(&tmrAusblenden, &QTimer::timeout, this, &QDialog::reject);
        tmrAusblenden.start(Meldung.AnzeigeDauer * 1000);
        // Whoever is answering has the whole time again; who has left is not waited for.
        const auto NochmalsWarten = [this] { tmrAusblenden.start(); };
        for (QRadioButton* const Knopf : findChildren<QRadioButton*>())
            connect(Knopf, &QRadioButton::toggled, this, NochmalsWarten);
        connect(txtZeit, &QLineEdit::textEdited, this, NochmalsWarten);
    }
}

Terminantwort frmTerminÜberwachungTermin::Antwort() const {
    if (result() != Accepted || optBenachrichtigenWieHinterlegt->isChecked()) return {};
    if (optBenachrichtigenNein->isChecked()) return {Terminwahl::Nein, {}};
    return {Terminwahl::Folgendermaßen, Utf8Text(txtZeit->text())};
}

void frmTerminÜberwachungTermin::done(int Ergebnis) {
    if (Ergebnis == Accepted && optBenachrichtigenFolgendermaßen->isChecked() &&
        !DatumLesen(Utf8Text(txtZeit->text()))) {
        Person.Melden(Symbol::Information,
                      "Bitte geben Sie ein gültiges Datum ein, z.B. '24.12.2026 18:00:00'.");
        return txtZeit->setFocus();
    }
    QDialog::done(Ergebnis);
}

frmTerminÜberwachungTerminVerpasst::frmTerminÜberwachungTerminVerpasst(const Terminliste& Verpasste,
                                                                       QWidget* Eltern)
    : QDialog(Eltern) {
    setObjectName(u"frmTerminÜberwachungTerminVerpasst"_s);
    setWindowTitle(u"Verpasste Ereignisse"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("termin"), u"Verpasste Ereignisse"_s,
                     u"Über folgende Ereignisse erfolgte keine rechtzeitige Benachrichtigung."_s);
    QTreeView* const lstEreignisse = TerminansichtAnlegen(this, Verpasste, VerpasstSpalten);
    Spalte->addWidget(lstEreignisse, 1);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Accepted}})[0]->setDefault(true);
    lstEreignisse->setFocus();
}

}  // namespace liedwerk
