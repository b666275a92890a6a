// The desktop's text editor, for files that belong to another program by their extension.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

#include "plattform/programmstart.h"

namespace liedwerk {

// The words of the command in a desktop entry (freedesktop.org: key Exec of the group "Desktop Entry"), with
// the file in place of its code, or at the end when it has none; other codes go. Empty when the entry names
// no command, or one that needs a terminal around it.
std::vector<std::string> Editorbefehl(const QByteArray& Eintrag, const std::string& Datei);

// Opens the file with the program that the desktop uses for plain text; with the file's own program when none
// can be found.
Programmlaufnummer MitTexteditorÖffnen(Programmstart& Programme, const std::string& Datei);

}  // namespace liedwerk
