// What stands in menu Extras of the main window.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void ExtrasaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
