// The operating system's error numbers as errors with a German text.
#pragma once

#include <string_view>

#include "basis/datei.h"

namespace liedwerk {

// The error for an errno value.
Dateifehler Systemfehler(int Nummer);
// The error for the value that errno has now.
Dateifehler LetzterSystemfehler();
// The same number with a text of its own.
Dateifehler Systemfehler(int Nummer, std::string_view Text);

}  // namespace liedwerk
