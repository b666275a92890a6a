// frmCDDatenCDWählen: several discs of the database fit; the person chooses one.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <string>
#include <vector>

#include "basis/oberflaeche.h"

namespace liedwerk {

class frmCDDatenCDWählen final : public QDialog {
  public:
    frmCDDatenCDWählen(const std::vector<std::string>& Zeilen, Oberfläche& Dialoge, QWidget* Eltern);
    // The number of the chosen row, from 1; 0 after a cancel.
    std::size_t Gewählt() const { return Nummer; }
    // "OK" without a row is told; the form stays then.
    void done(int Ergebnis) override;

  private:
    Oberfläche& Person;
    QListWidget* lstCDs;
    std::size_t Nummer = 0;
};

}  // namespace liedwerk
