// The main window's actions that bring files into the index and keep it true.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

// Puts them into the menus and the function pane, and the forms behind the runs of adding.
void IndexaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
