// The actions of audio CDs in the main window.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

// Puts the entries into menu Extras and sets the assistant for discs that are added to the index.
void CDAktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
