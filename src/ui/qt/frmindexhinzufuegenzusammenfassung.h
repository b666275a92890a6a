// frmIndexHinzufügenZusammenfassung: the names that a list holds, looked over before they are added.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QTreeView>
#include <memory>

#include "core/anwendung.h"

namespace liedwerk {

class Fundmodell;

class frmIndexHinzufügenZusammenfassung final : public QDialog {
  public:
    // The rows are corrected in place.
    frmIndexHinzufügenZusammenfassung(Anwendung& Programm, Namensfunde& Gefundene, QWidget* Eltern);
    ~frmIndexHinzufügenZusammenfassung() override;
    // However it closes, HinzufügenZusammenfassungZeigen takes the check box.
    void done(int Ergebnis) override;

  private:
    void cmdSuchen_Click();
    void cmdExportieren_Click();
    void AnzahlZeigen();

    Anwendung& Programm;
    Namensfunde& Funde;
    std::unique_ptr<Fundmodell> Modell;
    QLabel* lblAnzahl;
    QTreeView* lstDateinamen;
    QCheckBox* chkZusammenfassungZeigen;
};

}  // namespace liedwerk
