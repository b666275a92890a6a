// Taking over what the person has decided in the options.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

// The settings as the options show them. A value that holds for this run only is no decision of the person.
Einstellungen OptionenEntwurf(const Anwendung& Programm);

// Takes over what differs between Alt (the draft as it was opened) and Neu; what has changed elsewhere
// meanwhile stays. It works at once, and the settings are written, so that a crash does not undo it.
void OptionenÜbernehmen(Anwendung& Programm, const Einstellungen& Alt, const Einstellungen& Neu);

// cmdStatistikLöschen: asks, then empties the play statistics of all records.
void StatistikLöschenLauf(Anwendung& Programm);

}  // namespace liedwerk
