// The third part of a synchronisation: files that have changed since their records were made are read again.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "basis/uhr.h"
#include "dateien/hinzufuegen.h"

namespace liedwerk {

struct Neulesung {
    bool Abgebrochen = false;           // by the person; what was read by then is in the index
    Satznummer Geändert = 0;            // records that tell something else now
    std::vector<std::string> Unlesbar;  // files that could not be read, and were not among those of the run
                                        // before: their records are as they were
};

struct Neuleseauftrag {
    Zeitpunkt Beginn;        // of the whole run, by its clock
    Satznummer Letzter = 0;  // the last record that is looked at; those behind it come fresh from their files
};

// Reads every file again whose size is not that of its record, or that was changed since the last run that
// looked at all of them (Indexoptionen::SyncStand; without one: on a later day than that of its adding). Only
// what comes from the file is renewed; the person's data and the statistics stay. Nobody is asked for a
// medium. Shows its progress, and leaves it open.
Neulesung GeänderteNeuLesen(const Hinzufügeumgebung& Umgebung, const Uhr& Zeit,
                            const Neuleseauftrag& Auftrag);

}  // namespace liedwerk
