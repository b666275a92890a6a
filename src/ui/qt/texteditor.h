// The desktop's text editor, for files that belong to another program by their extension.
#pragma once

#include <string>

#include "plattform/programmstart.h"

namespace liedwerk {

// Opens the file with the program that the desktop uses for plain text; with the file's own program when none
// can be found.
Programmlaufnummer MitTexteditorÖffnen(Programmstart& Programme, const std::string& Datei);

}  // namespace liedwerk
