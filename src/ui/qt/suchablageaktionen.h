// Stored queries in the menu "Bearbeiten": store what is searched for now, call it again, forget it.
#pragma once

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

// Vorbereiten brings the query set up to what the search row shows; Suchen shows the set in the row and
// searches.
void SuchablageaktionenAnlegen(Fensterplatz& Platz, std::function<void()> Vorbereiten,
                               std::function<void()> Suchen);

}  // namespace liedwerk
