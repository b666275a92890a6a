// frmIndexHinzufügen: the ways to add to the index, and the system's dialogs they begin with.
#pragma once

#include <QDialog>
#include <QString>
#include <string>
#include <vector>

#include "index/dateitypen.h"

namespace liedwerk {

// What a form has chosen to add; nothing when the person thought better of it.
struct Hinzufügewahl {
    std::vector<std::string> Dateien;
    std::string Ordner;
};

// The filters of the file dialog, and what stands in the way of adding files (empty when nothing does).
struct Dateifilter {
    QString Unterstützte;
    QString Alle;
    QString Hindernis;
};
Dateifilter DateifilterBilden(const std::vector<Dateityp>& Dateitypen);

// The folder dialog and the file dialog; empty when cancelled.
std::string OrdnerWählen(QWidget* Besitzer);
std::vector<std::string> DateienWählen(QWidget* Besitzer, const std::vector<Dateityp>& Dateitypen);

class frmIndexHinzufügen final : public QDialog {
  public:
    frmIndexHinzufügen(const std::vector<Dateityp>& Dateitypen, QWidget* Eltern);
    // After the form has closed.
    const Hinzufügewahl& Wahl() const { return Gewählt; }

  private:
    void cmdDateienHinzufügen_Click();
    void cmdOrdnerHinzufügen_Click();

    const std::vector<Dateityp>& Typen;
    Hinzufügewahl Gewählt;
};

}  // namespace liedwerk
