// The search: marks the records that pass all queries of a set.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"
#include "suche/abfrage.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

struct Suchergebnis {
    bool Gelungen = true;
    std::vector<std::string> Vorschläge;
};

// SucheAusführen: works on Markierung (size: the record count, or 1 for an empty index) and on the bounds, as
// told: ErsterTreffer -1 means from the start, LetzterTreffer is the record count before a run.
// UmlauteGleich: a text field that holds a word only by UmlauteAuflösen is a hit as well.
Suchergebnis SucheAusführen(const Katalog& Index, Suchpuffer& Puffer, const Suchabfragen& Menge,
                            std::vector<std::int16_t>& Markierung, Satznummer& ErsterTreffer,
                            Satznummer& LetzterTreffer, bool Vorschlagen, bool UmlauteGleich = false);

// The whole refresh on the index's own marks: sets the bounds, sizes the marks to 1 and runs the search.
Suchergebnis IndexDurchsuchen(Katalog& Index, Suchpuffer& Puffer, const Suchabfragen& Menge, bool Vorschlagen,
                              bool UmlauteGleich = false);

// True when the first occurrence of Begriff in Wert stands as a word of its own; an empty Begriff is false.
bool AlsWort(std::string_view Begriff, std::string_view Wert);
// True when both have the same length and are equal without regard to case.
bool Gleich(std::string_view A, std::string_view B);

}  // namespace liedwerk
