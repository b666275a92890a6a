// The record of a CD for a person and as JSON.
#pragma once

#include "cd/cddaten.h"
#include "ui/text/lauf.h"

namespace liedwerk {

// The fields of CDDaten. In JSON the tables of the tracks are lists of as many entries as there are titles.
void CDDatenAusgeben(Programmlauf& Lauf, const CDDaten& Daten);

}  // namespace liedwerk
