// frmWillkommen: the first start. It asks for nothing that a newcomer cannot answer.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <string>

#include "core/anwendung.h"

namespace liedwerk {

class frmWillkommen final : public QDialog {
  public:
    frmWillkommen(Anwendung& Programm, QWidget* Eltern);
    // The folder with music that shall be added now; empty: none. It exists.
    const std::string& Ordner() const { return Gewählt; }

  private:
    void cmdOrdnerHinzufügen_Click();
    void cmdDurchsuchen_Click();
    void WahlÜbernehmen();

    Anwendung& Programm;
    std::string Gewählt;
    QLineEdit* txtOrdner;
    QCheckBox* chkTagsModern;
};

}  // namespace liedwerk
