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

}  // namespace liedwerk
