// frmKopieren: where files are copied or moved to, and what happens to files that are there.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QRadioButton>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"

namespace liedwerk {

class frmKopieren final : public QDialog {
  public:
    // Shows the choice that the settings hold, and leaves a new one there when it is accepted.
    frmKopieren(Einstellungen& Gemerkte, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted only with a target folder.
    void done(int Ergebnis) override;

  private:
    void cmdOrdnerSuchen_Click();

    Einstellungen& Werte;
    Oberfläche& Person;
    QLineEdit* txtOrdner;
    QRadioButton* optKopieren;
    QRadioButton* optVerschieben;
    QCheckBox* chkStrukturÜbernehmen;
    QComboBox* cboDateienErsetzen;
};

}  // namespace liedwerk
