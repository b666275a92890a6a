// The order of the calls of an undisturbed run: what a loss of power at any moment would leave.
#pragma once

#include <string>
#include <vector>

#include "haerte/stoerung/schreiber.h"

namespace liedwerk::haerte {

// Breaches of: write, flush, rename, flush of the folder; no file of the user is truncated, or removed before
// its replacement stands; a tag that is written in place takes one write.
std::vector<std::string> ReihenfolgeBeurteilen(const std::string& Ordner, const Schreiber& Wer,
                                               const Urteilsgrund& Grund, const std::vector<Rufzeile>& Rufe);

}  // namespace liedwerk::haerte
