// The watch over the folders to synchronise, and the strip above the list that offers to synchronise.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

// Needs the port Dienste::Wacht and Fensterplatz::ÜberListe.
void WachtaktionenAnlegen(Fensterplatz& Platz);

}  // namespace liedwerk
