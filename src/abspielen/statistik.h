// The two numbers of a record that playing changes: "Abspiel-Datum" and "Abspiel-Häufigkeit".
#pragma once

#include <string_view>

#include "index/katalog.h"

namespace liedwerk {

// One play: the date becomes Zeittext ("dd.mm.yyyy hh:nn:ss"), the count goes up by 1, the index is changed.
void AbspielenVermerken(Katalog& Index, Satznummer Nummer, std::string_view Zeittext);

// cmdStatistikLöschen: empties date and count of all records. Gives the number of records that had any.
Satznummer StatistikLöschen(Katalog& Index);

}  // namespace liedwerk
