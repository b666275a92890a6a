// frmTagAutoTagHinzufügen: a format of AutoTAG, built of text and variables.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <string>

#include "basis/oberflaeche.h"

namespace liedwerk {

class frmTagAutoTagHinzufügen final : public QDialog {
  public:
    // Vorhandenes: the format to change, empty for a new one. Beispiel: the name of a file at which the
    // format is shown while it is typed; may be empty.
    frmTagAutoTagHinzufügen(const std::string& Vorhandenes, std::string Beispiel, Oberfläche& Dialoge,
                            QWidget* Eltern);
    // Accepted only with a format that can be used.
    void done(int Ergebnis) override;

    std::string Format() const;

  private:
    void VariablenAnlegen(class QVBoxLayout& Spalte);
    void BeispielZeigen();

    std::string Beispieldatei;
    Oberfläche& Person;
    QLineEdit* txtFormat;
    QLabel* lblBeispiel = nullptr;
};

}  // namespace liedwerk
