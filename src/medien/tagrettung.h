// What an interrupted save of tags has left behind is brought to its end: at the start of the program, and
// when the file is next read for the editor or saved.
#pragma once

#include <string>
#include <string_view>

#include "basis/oberflaeche.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// A file with several names whose overwriting was interrupted gets its whole new content, which lies beside
// it, and the person is told; where it may be another file by now (a single name, or older than that content)
// the person is asked first. A file that another run holds is left alone. Costs one look at the disk where
// there is nothing to do.
void SpeichernVollenden(std::string_view Pfad, Oberfläche& Person);

// The same for a file that is to be saved; one that is missing gets its temporary file back under its name
// where the person wants that. True when the file is there at the end.
bool DateiZurückholen(std::string_view Pfad, Oberfläche& Person);

// At the start: the same for all files that marks in the folder name. Marks of files that are not at hand or
// in use stay for the next start.
void UnterbrocheneVollenden(const std::string& Merkordner, const Ordnerleser& Ordner, Oberfläche& Person);

}  // namespace liedwerk
