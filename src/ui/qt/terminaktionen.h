// The actions of the reminders in the main window: "Ereignisse verwalten" and the clock tmrEreignisse.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void TerminaktionenAnlegen(Fensterplatz& Platz);

// Starts tmrEreignisse in the window: each tick stops it, checks the events and starts it again.
void EreignisuhrAnlegen(QWidget& Fenster, Anwendung& Programm);

}  // namespace liedwerk
