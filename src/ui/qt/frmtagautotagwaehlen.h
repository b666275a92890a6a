// frmTagAutoTagWählen: the formats by which AutoTAG reads file names, and which of them is the current one.
#pragma once

#include <QCheckBox>
#include <QDialog>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "ui/qt/zeilenliste.h"

namespace liedwerk {

class frmTagAutoTagWählen final : public QDialog {
  public:
    // Beispiel: the name of a file, at which new formats are shown; may be empty.
    frmTagAutoTagWählen(Einstellungen& Einstellwerte, std::string Beispiel, Oberfläche& Dialoge,
                        QWidget* Eltern);
    // OK stores the list, the current format and the options.
    void done(int Ergebnis) override;

  private:
    void KästenAnlegen(QVBoxLayout& Spalte);
    void cmdHinzufügen_Click();
    void cmdÄndern_Click();

    Einstellungen& Werte;
    std::string Beispieldatei;
    Oberfläche& Person;
    Zeilenliste* Formate;
    QCheckBox* chkFelderLöschen = nullptr;
    QCheckBox* chkUnterstrichEntfernen = nullptr;
};

}  // namespace liedwerk
