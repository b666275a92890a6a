// Files with several names (hard links). A rename would part the name in hand from the others, so such a file
// is overwritten where it lies. The bodies stand in plattform/.
#pragma once

#include <string_view>

#include "basis/datei.h"

namespace liedwerk {

// True for a regular file that has more names than one.
bool HatWeitereNamen(std::string_view Pfad);

// True for a regular file with a single name that is this user's; for the system's administrator also one of
// the owner of the file beside which it lies, who was given it.
bool IstHilfsdateiVon(std::string_view Hilfsdatei, std::string_view Datei);

// Overwrites a whole file, which keeps all its names, by the content of the helper file Quelle. Erwartet is
// the state in which the caller has seen it: another one is an error, and so is a link in place of Quelle.
// The file keeps its modification time meanwhile and afterwards, and Quelle gets it: as long as both agree,
// nobody else has changed the file. Weiter is asked between the blocks. On failure and where it was false
// Angefangen says whether the file may be torn; Quelle must outlive that.
Dateifehler DateiinhaltÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet,
                                     std::string_view Quelle, const Kopierfortschritt& Weiter,
                                     bool& Angefangen);
// True when both files have the same modification time, to the last digit that the file system keeps.
bool GleicheÄnderungszeit(std::string_view Eine, std::string_view Andere);
// Gives a file the present time as its modification time, where possible.
void ÄnderungszeitErneuern(std::string_view Pfad);

}  // namespace liedwerk
