// frmAusführenMit: opens the selected files with a program that the person names.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <string>

#include "basis/oberflaeche.h"

namespace liedwerk {

class frmAusführenMit final : public QDialog {
  public:
    // Vorgabe is the program that was named last.
    frmAusführenMit(std::size_t Dateien, std::string_view Vorgabe, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted only with a program that exists.
    void done(int Ergebnis) override;
    std::string Programm() const;

  private:
    void cmdProgrammSuchen_Click();

    Oberfläche& Person;
    QLineEdit* txtSuche;
};

}  // namespace liedwerk
