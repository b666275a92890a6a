// frmAusschlußliste: words in file names that are no data for AutoTAG.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>

#include "basis/einstellungen.h"
#include "ui/qt/zeilenliste.h"

namespace liedwerk {

class frmAusschlußliste final : public QDialog {
  public:
    frmAusschlußliste(Einstellungen& Einstellwerte, QWidget* Eltern);
    // OK stores the words and whether they count.
    void done(int Ergebnis) override;

  private:
    void WortAufnehmen();

    Einstellungen& Werte;
    QCheckBox* chkVerwenden;
    QLineEdit* txtWort;
    Zeilenliste* Wörter;
};

}  // namespace liedwerk
