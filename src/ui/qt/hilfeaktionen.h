// What tells about the program: handbook, tip of the day, information; and its lock.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void HilfeaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
