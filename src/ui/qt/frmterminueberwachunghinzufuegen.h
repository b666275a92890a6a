// frmTerminÜberwachungHinzufügen: one event, new or to be changed.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

#include "basis/oberflaeche.h"
#include "termine/termine.h"

namespace liedwerk {

class frmTerminÜberwachungHinzufügen final : public QDialog {
  public:
    // Vorhandener: the event to be changed, null for a new one.
    frmTerminÜberwachungHinzufügen(const Termin* Vorhandener, const Zeitpunkt& Jetzt, Oberfläche& Dialoge,
                                   QWidget* Eltern);
    Termineingabe Eingabe() const;
    // "OK" checks first; the form stays when something is missing.
    void done(int Ergebnis) override;

  private:
    QWidget* AngabenAnlegen();
    QGroupBox* BenachrichtigungAnlegen();
    void Füllen(const Termineingabe& Angaben, const Zeitpunkt& Jetzt);
    void ZeilenendenErsetzen();
    void cmdDurchsuchen_Click();

    Oberfläche& Person;
    QLineEdit* txtBeschreibung;
    QComboBox* cboKategorie;
    QCheckBox* chkDatum;
    QDateTimeEdit* txtDatum;
    QGroupBox* fraBenachrichtigen;
    QDateTimeEdit* txtBenachrichtigenAm;
    QCheckBox* chkWiederkehrend;
    QComboBox* cboWiederkehrend;
    QSpinBox* txtIntervall;
    QSpinBox* txtAnzeigeDauer;
    QPlainTextEdit* txtMeldungstext;
    QLineEdit* txtAnwendung;
    QCheckBox* chkZurücksetzen;
};

}  // namespace liedwerk
