// frmSucheErweitert: the list of all queries, and the ways to new ones. Whatever way it closes, its set
// holds.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <functional>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

class frmSucheErweitert final : public QDialog {
  public:
    // What done ends with when the batch search's records shall be shown in the main window instead.
    static constexpr int ImHauptfenster = 2;

    frmSucheErweitert(Anwendung& Lauf, QWidget* Eltern);
    const std::vector<Satznummer>& FürHauptfenster() const { return Gewählte; }
    // Plays records found by the batch search, or appends them to the player's list; given by who opens it.
    std::function<void(const std::vector<Satznummer>&, bool Anhängen)> Abspielen;
    // Refused while there is no query.
    void done(int Ergebnis) override;

  private:
    void AuflistungFüllen(int Gewählt);
    void AbfrageBearbeiten(std::size_t Nummer);
    void cmdSucheNeuErweitert_Click();
    void cmdSucheÄndern_Click();
    void cmdSucheLöschen_Click();
    void cmdSucheTestbasiert_Click();

    Anwendung& Programm;
    Suchabfragen& Menge;
    Oberfläche& Person;
    std::vector<Satznummer> Gewählte;
    QListWidget* lstSucheAuflistung;
};

}  // namespace liedwerk
