// CDDBDatenBereiten: the record for the disc in a drive, by its table of contents and the cache.
#pragma once

#include <functional>
#include <string_view>

#include "cd/cddaten.h"
#include "cd/cdspeicher.h"
#include "cd/inhaltsverzeichnis.h"
#include "plattform/cdlaufwerke.h"

namespace liedwerk {

struct CDUmgebung {
    const CDLaufwerke& CDs;
    CDSpeicherumgebung Speicher;
    std::function<bool(std::string_view Laufwerk)> LaufwerkIstAudioCD;
};

enum class CDBereitung {
    Gescheitert,  // no audio CD, or it cannot be read; the record is the empty one, its log says why
    Geladen,      // the record in memory was that of the disc; it stands
    AusSpeicher,  // read from the cache
    Unbekannt,    // default titles
};

// The first half of CDDBStart, without the network: the record of Stand is the disc's when it comes back, its
// error state is clear. Server is named in the log. Disc receives the table of contents when it was read.
CDBereitung CDDBDatenBereiten(CDStand& Stand, const CDUmgebung& Umgebung, std::string_view Laufwerk,
                              std::string_view Server, clsCcd& Disc);

}  // namespace liedwerk
