// Synchronisation: the index brought in step with the folders of its rules.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

struct Synchronisierergebnis {
    bool Gelungen = false;  // false when the person cancelled, a folder failed, or the mode has no index
    Satznummer Entfernt = 0;
    Satznummer Hinzugefügt = 0;
    Satznummer NeuGelesen = 0;  // records that were renewed from changed files
};

// cmdListeAufräumen: adds what is new in the folders of the index's rules, takes out the records whose files
// are gone (where the index's option wants that), reads changed files again (where the setting wants that),
// then brings list or search and selection in line.
Synchronisierergebnis SynchronisierenLauf(Anwendung& Programm);

}  // namespace liedwerk
