// The two dialogs about a file that is not at hand: they watch for it and close by themselves when it comes.
//
// frmDateiNichtVerfügbar asks for an absent medium, frmDateiNichtVerfügbarSchreiben waits for a file that
// another program holds.
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

// Its result: 0 the file can be written now, 1 skip.
class frmDateiNichtVerfügbarSchreiben final : public QDialog {
  public:
    frmDateiNichtVerfügbarSchreiben(const Schreibsperrfrage& Anlass, QWidget* Eltern);
    // Closing the window without an answer skips the file.
    void reject() override { done(static_cast<int>(Verfügbarkeitsantwort::Überspringen)); }

  private:
    void tmrDateiSuchen_Timer();

    Schreibsperrfrage Frage;
    QTimer tmrDateiSuchen;
};

}  // namespace liedwerk
