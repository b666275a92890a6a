// frmTagFeldFüllen: which text goes into which field of every file of a run.
#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include "basis/oberflaeche.h"
#include "medien/tagfunktionen.h"

namespace liedwerk {

class frmTagFeldFüllen final : public QDialog {
  public:
    // Aktueller: the record of the current file, whose values are offered. Auswahl: where the text goes.
    frmTagFeldFüllen(const Datensatz& Aktueller, const Funktionsauswahl& Auswahl, Oberfläche& Dialoge,
                     QWidget* Eltern);
    // Accepted only with a text that has a place to go to.
    void done(int Ergebnis) override;

    // After the form was accepted.
    Feldvorgabe Vorgabe() const;

  private:
    void WerteZeigen();

    Datensatz Satz;
    Funktionsauswahl Wohin;
    Oberfläche& Person;
    QListWidget* lstFelder;
    QRadioButton* optId3v1;
    QRadioButton* optId3v2;
    QRadioButton* optEigener;
    QLineEdit* txtText;
};

}  // namespace liedwerk
