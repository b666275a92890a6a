// frmTagLieblingsGenre: the genres that stand first in the editor's lists.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "ui/qt/zeilenliste.h"

namespace liedwerk {

class frmTagLieblingsGenre final : public QDialog {
  public:
    frmTagLieblingsGenre(Einstellungen& Einstellwerte, Oberfläche& Dialoge, QWidget* Eltern);
    // OK takes the entered name too and stores the list; with nothing entered and nothing changed it says so.
    void done(int Ergebnis) override;

  private:
    void SucheAnlegen(QVBoxLayout& Spalte);
    void AuswahlEinengen();
    bool Aufnehmen();

    Einstellungen& Werte;
    Oberfläche& Person;
    QLineEdit* txtSucheBegriff = nullptr;
    QListWidget* lstSucheAuswahl = nullptr;
    Zeilenliste* Lieblinge;
};

}  // namespace liedwerk
