// Files with several names (hard links). A rename would part the name in hand from the others, so such a file
// is overwritten where it lies. The bodies stand in plattform/.
#pragma once

#include <string_view>

#include "basis/datei.h"

namespace liedwerk {

// True for a regular file that has more names than one.
bool HatWeitereNamen(std::string_view Pfad);

// Overwrites a whole file, which keeps all its names, by the content of another one. Erwartet is the state in
// which the caller has seen it: another one is an error. On failure Angefangen says whether the file may be
// torn; Quelle must outlive that.
Dateifehler DateiinhaltÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet,
                                     const Lesedatei& Quelle, bool& Angefangen);

}  // namespace liedwerk
