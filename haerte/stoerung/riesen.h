// What huge files and files with lying lengths cost.
#pragma once

#include "haerte/stoerung/pruefung.h"

namespace liedwerk::haerte {

// Peak memory of a write to a file of 10 GB; time of the information on files whose lengths lie.
void RiesenPrüfen(const Orte& Wo, Bericht& Wohin);

}  // namespace liedwerk::haerte
