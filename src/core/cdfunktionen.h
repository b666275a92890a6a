// What the CD dialog can do to all of a disc's texts at once.
#pragma once

#include <span>
#include <string_view>

#include "cd/cddaten.h"

namespace liedwerk {

struct CDFunktion {
    std::string_view Name;  // as it stands in the dialog
    // False when there was nothing to do.
    bool (*Ausführen)(CDDaten& Daten);
};

// In the order of the dialog.
std::span<const CDFunktion> CDFunktionen();

// Album and artist change places.
void CDAlbumInterpretTauschen(CDDaten& Daten);

}  // namespace liedwerk
