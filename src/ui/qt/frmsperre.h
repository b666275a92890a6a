// The lock of the program: frmSperre asks for the password, frmSperreSetzen sets, changes or removes it.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"

namespace liedwerk {

// Accepted when the password was given; anything else leaves the program locked.
class frmSperre final : public QDialog {
  public:
    frmSperre(std::string Abgelegt, QWidget* Eltern);

  private:
    void cmdOk_Click();

    std::string Sperre;
    QLineEdit* txtKennwort;
    QLabel* lblFalsch;
};

// Writes Sperre and SperreAktiv of the settings when it is accepted. A password that is set already must be
// given first.
class frmSperreSetzen final : public QDialog {
  public:
    frmSperreSetzen(Einstellungen& Werte, Oberfläche& Person, QWidget* Eltern);

  private:
    void cmdOk_Click();
    void Zurückweisen(QLineEdit& Feld, std::string_view Text);

    Einstellungen& Werte;
    Oberfläche& Person;
    QLineEdit* txtBisher;
    QLineEdit* txtNeu;
    QLineEdit* txtWiederholung;
    QCheckBox* chkSperreAktiv;
};

}  // namespace liedwerk
