// frmSucheErweitert: the list of all queries, and the ways to new ones. Whatever way it closes, its set
// holds.
#pragma once

#include <QDialog>
#include <QListWidget>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "suche/abfrage.h"

namespace liedwerk {

class frmSucheErweitert final : public QDialog {
  public:
    frmSucheErweitert(Suchabfragen& Abfragen, Einstellungen& Einstellwerte, Oberfläche& Dialoge,
                      QWidget* Eltern);
    // Refused while there is no query.
    void done(int Ergebnis) override;

  private:
    void AuflistungFüllen(int Gewählt);
    void AbfrageBearbeiten(std::size_t Nummer);
    void cmdSucheÄndern_Click();
    void cmdSucheLöschen_Click();

    Suchabfragen& Menge;
    Einstellungen& Werte;
    Oberfläche& Person;
    QListWidget* lstSucheAuflistung;
};

}  // namespace liedwerk
