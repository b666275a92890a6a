// Saving and importing the index fields as a flow.
#pragma once

#include <optional>
#include <string>

#include "core/anwendung.h"

namespace liedwerk {

// Writes the fields of the loaded index; status text on success. An existing file is replaced: who names it
// has been asked.
bool FelderSpeichernLauf(Anwendung& Programm, const std::string& Dateiname);

// Warns and asks, then imports. Gives the number of lines that found their record; nothing when the person
// refused or cancelled, or on failure.
std::optional<std::size_t> FelderImportierenLauf(Anwendung& Programm, const std::string& Dateiname);

}  // namespace liedwerk
