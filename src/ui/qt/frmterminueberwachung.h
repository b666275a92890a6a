// frmTerminÜberwachung: the events of the index ("Ereignisse verwalten").
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

#include "core/anwendung.h"

namespace liedwerk {

class frmTerminÜberwachung final : public QDialog {
  public:
    frmTerminÜberwachung(Anwendung& Lauf, QWidget* Eltern);
    ~frmTerminÜberwachung() override;

  private:
    void TerminListeFüllen(int Zeile);
    void KnöpfeNachführen();
    std::size_t GewählteNummer() const;  // 0 for none
    void cmdHinzufügen_Click();
    void cmdÄndern_Click();
    void cmdLöschen_Click();
    void cmdPrüfen_Click();

    Anwendung& Programm;
    QTreeView* lstEreignisse;
    QLabel* lblAnzahl;
    QPushButton* cmdÄndern;
    QPushButton* cmdLöschen;
};

}  // namespace liedwerk
