// Work on a file that the window does not wait for.
#pragma once

#include <string_view>

#include "basis/oberflaeche.h"
#include "medien/dateischritt.h"

namespace liedwerk {

// Runs the work in a thread of its own and comes back when it is done. Mostly that is before anybody could
// notice; a drive that spins up and a large file get the progress window in place of a window that does not
// answer. Its cancel, or that of a run over many files, reaches the step where that asks.
void ImHintergrund(Oberfläche& Person, std::string_view Titel, const Dateischritt& Schritt);

}  // namespace liedwerk
