// Index clean-up as a flow: the search over the selected rows, and the plan carried out.
#pragma once

#include <span>
#include <vector>

#include "core/anwendung.h"
#include "suche/aufraeumplan.h"

namespace liedwerk {

// The working set: the records of the selected rows, in their order. Folders that the file manager lists are
// left out.
std::vector<Satznummer> AufräumArbeitsmenge(const Anwendung& Programm);

// DurchsucheIndex over the working set. Methods that look at files ask for an absent medium first: a file
// that is skipped then is not found.
std::vector<Aufräumfund> AufräumenSuchen(Anwendung& Programm, std::span<const Satznummer> Arbeitsmenge,
                                         Aufräummethode Methode);

// Carries out what was chosen: asks for absent media first, then deletes, bins and replaces files, and takes
// their records out of the index. A file that could not go keeps its record. A file that is also the one of a
// record that stays (the same file under two entries) is not touched: only the entry goes, which is told.
// False when the person ended the run before anything was done.
bool AufräumenDurchführen(Anwendung& Programm, std::span<const Aufräumzeile> Zeilen);

}  // namespace liedwerk
