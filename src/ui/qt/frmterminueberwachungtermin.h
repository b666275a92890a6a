// The notices: frmTerminÜberwachungTermin, an event that is due, and frmTerminÜberwachungTerminVerpasst, the
// list of those that were missed.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

#include "basis/oberflaeche.h"
#include "termine/pruefen.h"

namespace liedwerk {

// Closed in any way but "OK", it answers as if the first option were chosen; so does its timer.
class frmTerminÜberwachungTermin final : public QDialog {
  public:
    frmTerminÜberwachungTermin(const Terminmeldung& Meldung, Oberfläche& Dialoge, QWidget* Eltern);
    Terminantwort Antwort() const;
    // "OK" checks the date first; the form stays when it is none.
    void done(int Ergebnis) override;

  private:
    Oberfläche& Person;
    QRadioButton* optBenachrichtigenWieHinterlegt;
    QRadioButton* optBenachrichtigenFolgendermaßen;
    QRadioButton* optBenachrichtigenNein;
    QLineEdit* txtZeit;
    QTimer tmrAusblenden;
};

class frmTerminÜberwachungTerminVerpasst final : public QDialog {
  public:
    frmTerminÜberwachungTerminVerpasst(const Terminliste& Verpasste, QWidget* Eltern);
};

}  // namespace liedwerk
