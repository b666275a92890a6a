// The information text of a file and of its tag panes.
#pragma once

#include <string>
#include <string_view>

#include "index/datensatz.h"

namespace liedwerk {

struct Dateiinformation {
    std::string Info;
    std::string Id3v1;
    std::string Id3v2;
    std::string Lyrics;
};

// The texts for a record that was read from the file; Vorhanden says whether the file exists.
Dateiinformation DateiinformationBilden(std::string_view Pfad, const Datensatz& Satz, bool Vorhanden);

}  // namespace liedwerk
