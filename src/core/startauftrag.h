// The command line of the desktop program as a value: read first, acted on later.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"

namespace liedwerk {

struct Startauftrag {
    std::int16_t Programmmodus = ModusNichtsGeladen;  // 2 for /dir, 3 for /tag
    std::vector<std::string> Namen;  // files or folders, in order; empty: what the settings name
    std::string Kommandozeile;       // all of it as one text, for messages
    std::string UnbekannteOption;    // the first word with "-" in front that is no switch; one of Namen too,
                                     // since it may be a file
    bool Hilfe = false;
    bool Version = false;
};

// Arguments that are names by themselves (Linux): the first may be the switch "/dir", "--dir", "/tag",
// "--tag", also as "/dir x" in one argument; "--" ends switches; every further argument is one name.
Startauftrag StartauftragLesen(const std::vector<std::string>& Argumente);
// One string (the system's own command line elsewhere): five-character switches with their blank, quotes
// stripped, several names cut at quote, blank, quote.
Startauftrag StartauftragLesen(std::string_view Kommandozeile);
// Cuts a list of quoted names; a text without a quote in front is one name.
std::vector<std::string> NamenTeilen(std::string_view Text);

// A name as a full path: relative ones begin at Arbeitsordner, "." and ".." are resolved as the system would
// (".." behind a link stays), a folder loses the separator at its end. Windows paths stay as they are.
std::string VollerPfad(std::string_view Name, std::string_view Arbeitsordner);

}  // namespace liedwerk
