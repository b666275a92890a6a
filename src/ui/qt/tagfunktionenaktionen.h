// What the main window offers around AutoTAG and the favourite genres: entries of the menu TAGs.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void TagfunktionenaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
