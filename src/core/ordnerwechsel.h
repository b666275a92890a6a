// Changing folders in the file manager.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

// A double click on a folder of the file manager's list: its content takes the list. False when the record is
// no folder, or the mode another one; then nothing has happened.
bool OrdnerWechseln(Anwendung& Programm, Satznummer Nummer);

}  // namespace liedwerk
