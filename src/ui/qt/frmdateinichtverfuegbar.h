// frmDateiNichtVerfügbar: asks for an absent medium and watches for it.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QTimer>

#include "basis/oberflaeche.h"

namespace liedwerk {

// Its result is NichtVerfügbarErgebnis: 0 available now, 1 skip, 2 abort, 3 skip all.
class frmDateiNichtVerfügbar final : public QDialog {
  public:
    frmDateiNichtVerfügbar(const Verfügbarkeitsfrage& Anlass, QWidget* Eltern);
    // Closing the window without an answer aborts.
    void reject() override { done(static_cast<int>(Verfügbarkeitsantwort::Abbrechen)); }

  private:
    void tmrDateiSuchen_Timer();

    Verfügbarkeitsfrage Frage;
    QLabel* lblAktuell;
    QTimer tmrDateiSuchen;
};

}  // namespace liedwerk
