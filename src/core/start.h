// Main: the stages of the start.
#pragma once

#include <string_view>

#include "core/anwendung.h"
#include "core/startauftrag.h"

namespace liedwerk {

// Runs all stages in their order. A failing stage is reported and logged, and the next one runs. Afterwards
// Programm.BeendenErbeten says that the end has run already (nothing to show, or the TAG editor is done): the
// process may go without an event loop.
void Main(Anwendung& Programm, const Startauftrag& Auftrag);

// Switches the action log on when log.me lies in the program folder: tells it, and starts log.txt afresh with
// its head. Kommandozeile is told there.
void ProtokollEinrichten(Anwendung& Programm, std::string_view Kommandozeile);

}  // namespace liedwerk
