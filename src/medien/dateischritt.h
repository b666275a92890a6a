// A step over a file that may take long, and how its surroundings run it.
#pragma once

#include <cstdint>
#include <functional>

#include "basis/datei.h"
#include "basis/oberflaeche.h"

namespace liedwerk {

// Asks between its blocks whether it shall go on.
using Dateischritt = std::function<void(const Kopierfortschritt& Weiter)>;
// Runs such a step and comes back when it is done. A window gives it a thread of its own and stays alive;
// what the step is to ask for going on may be asked there.
using Schrittlauf = std::function<void(const Dateischritt& Schritt)>;

// Runs a step in that way; where Ausführen is empty, on this thread, until the person has cancelled.
inline void SchrittAusführen(const Schrittlauf& Ausführen, Oberfläche& Person, const Dateischritt& Schritt) {
    if (Ausführen) return Ausführen(Schritt);
    Schritt([&](std::uint64_t) { return Person.FortschrittZeigen("", -1); });
}

}  // namespace liedwerk
