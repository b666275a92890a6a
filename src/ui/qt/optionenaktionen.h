// Options, index options, index files, backups and statistics in the menus of the main window.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void OptionenaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
