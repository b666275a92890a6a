// When a reminder is due, and when the next time is. Pure calendar arithmetic in local time: a clock that is
// put forward or back changes no date.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basis/datum.h"
#include "index/termin.h"

namespace liedwerk {

// A point Anzahl units later. Units are those of Termin::Einheit. Adding months or years keeps the day and
// the clock time; where the month is shorter, the day becomes its last one. Bounded to the years 1 to 9999.
// An unknown unit adds nothing.
Zeitpunkt EinheitenAddieren(const Zeitpunkt& Punkt, std::string_view Einheit, std::int64_t Anzahl);

// Number of unit boundaries between two points; 0 for an unknown unit.
std::int64_t EinheitenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis, std::string_view Einheit);

struct Terminlage {
    std::string Nächster{UngültigesDatum};  // "dd.mm.yyyy hh:nn:ss"
    std::string Letzter{UngültigesDatum};   // a firing that is on record
    bool Fällig = false;
};
Terminlage TerminNächsterTermin(const Termin& Eintrag, const Zeitpunkt& Jetzt);

}  // namespace liedwerk
