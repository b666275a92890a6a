// The second half of a synchronisation: which records' files are gone for good.
#pragma once

#include <string>
#include <vector>

#include "basis/oberflaeche.h"
#include "dateien/medium.h"
#include "index/katalog.h"

namespace liedwerk {

// What the system says of a file whose medium is said to be at hand.
enum class Dateiverbleib {
    Da,
    Fort,    // it says so of a drive that is there
    Unklar,  // a drive, folder or server does not answer
};
Dateiverbleib DateiNachsehen(const std::string& Pfad, const Mediumumgebung& Umgebung);

// True when the system says of a drive that is there that the file is not, whatever the settings take for
// missing.
bool FehltGewiss(const std::string& Pfad, const Mediumumgebung& Umgebung);

struct Existenzprüfung {
    bool Abgebrochen = false;          // by the person: nothing is to be removed
    std::vector<Satznummer> Fehlende;  // records whose files are gone
    Satznummer Unklar = 0;             // records whose files are out of reach at the moment
};

// Looks after the file of every record, availability first: what lies on an absent medium is asked for or
// skipped. Shows its progress, and leaves it open.
Existenzprüfung ExistenzenPrüfen(const Katalog& Index, Mediumspeicher& Speicher,
                                 const Mediumumgebung& Umgebung, Oberfläche& Person);

}  // namespace liedwerk
