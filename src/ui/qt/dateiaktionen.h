// The actions of the main window on the files of the selected rows: copy, move, rename, delete, clipboard.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void DateiaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
