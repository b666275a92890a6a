#include "ui/qt/frmsperre.h"

#include <QFormLayout>

#include "ui/qt/formkopf.h"
#include "ui/qt/kennwort.h"
#include "ui/qt/mauszeiger.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

QLineEdit* KennwortfeldHinzufügen(QFormLayout& Zeilen, const QString& Name, const QString& Beschriftung) {
    auto* const Feld = new QLineEdit;
    Feld->setObjectName(Name);
    Feld->setEchoMode(QLineEdit::Password);
    Feld->setMinimumWidth(Feld->fontMetrics().averageCharWidth() * 30);
    Zeilen.addRow(Beschriftung, Feld);
    return Feld;
}

// Testing takes a moment; the pointer says so.
Kennwortprüfung PrüfenMitSanduhr(std::string_view Abgelegt, const QString& Passwort) {
    const Mauszeiger Zeiger(Qt::WaitCursor);
    return KennwortPrüfen(Abgelegt, Passwort);
}

}  // namespace

frmSperre::frmSperre(std::string Abgelegt, QWidget* Eltern) : QDialog(Eltern), Sperre(std::move(Abgelegt)) {
    setObjectName(u"frmSperre"_s);
    setWindowTitle(u"Programm gesperrt"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sperre"), u"Das Programm ist gesperrt."_s,
                     u"Geben Sie das Passwort ein, um Ihre Sammlung zu sehen."_s);
    auto* const Zeilen = new QFormLayout;
    txtKennwort = KennwortfeldHinzufügen(*Zeilen, u"txtKennwort"_s, u"&Passwort:"_s);
    Spalte->addLayout(Zeilen);
    lblFalsch = TextHinzufügen(*Spalte, u"lblFalsch"_s, {});
    lblFalsch->hide();
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this,
        {{u"cmdOk"_s, u"&Entsperren"_s, Rejected}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->disconnect(this);
    connect(Knöpfe[0], &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    Knöpfe[0]->setDefault(true);
}

void frmSperre::cmdOk_Click() {
    if (PrüfenMitSanduhr(Sperre, txtKennwort->text()) == Kennwortprüfung::Richtig) {
        accept();
        return;
    }
    lblFalsch->setText(
        u"Das Passwort ist nicht richtig. Prüfen Sie die Feststelltaste und versuchen Sie es "
        "noch einmal."_s);
    lblFalsch->show();
    txtKennwort->clear();
    txtKennwort->setFocus();
}

frmSperreSetzen::frmSperreSetzen(Einstellungen& Ziel, Oberfläche& Wer, QWidget* Eltern)
    : QDialog(Eltern), Werte(Ziel), Person(Wer) {
    setObjectName(u"frmSperreSetzen"_s);
    setWindowTitle(u"Sperre"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sperre"), u"Programm mit einem Passwort sperren"_s,
                     u"Die Sperre verbirgt Ihre Sammlung vor anderen Personen an diesem Rechner. Die "
                     "Indexdatei selbst wird nicht verschlüsselt. Ein vergessenes Passwort lässt sich nicht "
                     "wiederherstellen."_s);
    auto* const Zeilen = new QFormLayout;
    txtBisher = KennwortfeldHinzufügen(*Zeilen, u"txtBisher"_s, u"&Bisheriges Passwort:"_s);
    Zeilen->setRowWrapPolicy(QFormLayout::DontWrapRows);
    const bool Gesetzt = KennwortLesbar(Werte.Sperre);
    txtBisher->setVisible(Gesetzt);
    Zeilen->labelForField(txtBisher)->setVisible(Gesetzt);
    txtNeu = KennwortfeldHinzufügen(*Zeilen, u"txtNeu"_s, u"&Neues Passwort:"_s);
    txtWiederholung = KennwortfeldHinzufügen(*Zeilen, u"txtWiederholung"_s, u"&Wiederholung:"_s);
    if (Gesetzt) txtNeu->setPlaceholderText(u"leer: Passwort bleibt"_s);
    Spalte->addLayout(Zeilen);
    chkSperreAktiv = new QCheckBox(u"Beim &Start nach dem Passwort fragen"_s, this);
    chkSperreAktiv->setObjectName(u"chkSperreAktiv"_s);
    chkSperreAktiv->setChecked(!Gesetzt || Werte.SperreAktiv == 1);
    Spalte->addWidget(chkSperreAktiv);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdEntfernen"_s, u"Passwort &entfernen"_s, Rejected},
                                          {u"cmdOk"_s, u"&OK"_s, Rejected},
                                          {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    for (int Nummer : {0, 1})
        Knöpfe[Nummer]->disconnect(this);
    Knöpfe[0]->setVisible(Gesetzt);
    connect(Knöpfe[0], &QPushButton::clicked, this, [this] {
        if (PrüfenMitSanduhr(Werte.Sperre, txtBisher->text()) != Kennwortprüfung::Richtig)
            return Zurückweisen(*txtBisher, "Das bisherige Passwort ist nicht richtig.");
        Werte.Sperre.clear();
        Werte.SperreAktiv = 0;
        accept();
    });
    connect(Knöpfe[1], &QPushButton::clicked, this, [this] { cmdOk_Click(); });
    Knöpfe[1]->setDefault(true);
}

void frmSperreSetzen::Zurückweisen(QLineEdit& Feld, std::string_view Text) {
    Person.Melden(Symbol::Information, Text);
    Feld.clear();
    Feld.setFocus();
}

void frmSperreSetzen::cmdOk_Click() {
    const bool Gesetzt = KennwortLesbar(Werte.Sperre);
    if (Gesetzt && PrüfenMitSanduhr(Werte.Sperre, txtBisher->text()) != Kennwortprüfung::Richtig)
        return Zurückweisen(*txtBisher, "Das bisherige Passwort ist nicht richtig.");
    if (txtNeu->text().isEmpty() && !Gesetzt)
        return Zurückweisen(*txtNeu, "Bitte geben Sie ein Passwort ein.");
    if (txtNeu->text() != txtWiederholung->text())
        return Zurückweisen(*txtWiederholung, "Die Wiederholung stimmt nicht mit dem Passwort überein.");
    if (!txtNeu->text().isEmpty()) {
        const Mauszeiger Zeiger(Qt::WaitCursor);
        Werte.Sperre = KennwortAblegen(txtNeu->text());
    }
    Werte.SperreAktiv = chkSperreAktiv->isChecked() ? 1 : 0;
    accept();
}

}  // namespace liedwerk
