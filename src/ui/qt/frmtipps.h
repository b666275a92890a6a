// frmTipps: the tip of the day.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>

#include "basis/einstellungen.h"

namespace liedwerk {

// However it is closed, TippsAktueller becomes the number of the last tip that was read, or 0 when the person
// wants none at the start.
class frmTipps final : public QDialog {
  public:
    // Nummer counts from 1; one that does not exist shows the first tip.
    frmTipps(Einstellungen& Werte, int Nummer, QWidget* Eltern);
    void done(int Ergebnis) override;

  private:
    void Zeigen(int Neue);

    Einstellungen& Werte;
    int Nummer = 1;
    QLabel* lblTipp;
    QLabel* lblNummer;
    QCheckBox* chkTipps;
};

}  // namespace liedwerk
