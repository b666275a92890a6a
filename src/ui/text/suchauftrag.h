// Queries and fields as they are typed on the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

// Tells of a field that does not exist: it counts as empty, which is seldom what was meant.
void FeldPrüfen(const std::string& Feld);

// "F|C|BEGRIFF"; the word may hold "|". Nothing for another form.
std::optional<Suchabfrage> AbfrageLesen(const std::string& Text);

// The queries as the set of the run; an empty code is the standard one of the settings.
void AbfragenÜbernehmen(Anwendung& Programm, const std::vector<Suchabfrage>& Abfragen);

// The records that the last search has marked.
std::vector<Satznummer> TrefferSammeln(const Katalog& Index);

}  // namespace liedwerk
