// Whether the medium of a record is at hand, for showing only: answers come from memory while a list is
// drawn, and a drive is asked at most every few seconds.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "dateien/medium.h"

namespace liedwerk {

struct Mediumblick {
    struct Antwort {
        std::int64_t Sekunde = 0;
        bool Fehlt = false;
    };
    std::map<std::pair<std::string, std::string>, Antwort> Antworten;  // by drive and medium
};

// True when the record names a medium and that is not in its drive. Sekunde is a clock that only goes
// forward. No dialog, no message; a record without a medium costs nothing.
bool MediumFehlt(Mediumblick& Blick, const Mediumumgebung& Umgebung, const Katalog& Index, Satznummer Nummer,
                 std::int64_t Sekunde);

}  // namespace liedwerk
