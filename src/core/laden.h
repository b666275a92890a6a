// StandardDateiLaden: fetches the data for a way of running and brings the window in line with it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

// Loads Programm.Index.IndexDateiname (empty: lwStamm.lwi for Modus 1 and below). Namen are the folders or
// files of the ways 2 and 3. True when Programmmodus is not 0 at the end; BeendenErbeten is set where there
// is nothing to show.
bool StandardDateiLaden(Anwendung& Programm, std::int16_t Modus, bool StillErstellen,
                        const std::vector<std::string>& Namen = {});

// Another index in place of the current one: asks the saving question first when that is changed. False when
// the person cancelled or the load failed. StillErstellen: a missing file is a new index.
bool AndereDateiLaden(Anwendung& Programm, std::string_view Dateiname, bool StillErstellen = false);

// Puts an index in front of the recent files.
void ZuletztGeladenAufnehmen(Anwendung& Programm, const std::string& Name);

// The index that stands for an empty name: lwStamm.lwi in the program folder.
std::string Standardindex(const Anwendung& Programm);

}  // namespace liedwerk
