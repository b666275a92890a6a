// Sorting as the person sees it: the run, then selection, list and search brought in line.
#pragma once

#include <span>
#include <string>

#include "core/anwendung.h"

namespace liedwerk {

// What frmSortieren starts with its criteria (see SortierwahlPrüfen). Does nothing with an empty index.
void SortierenLauf(Anwendung& Programm, std::span<const std::string> Sortierkriterien, bool Absteigend);

}  // namespace liedwerk
