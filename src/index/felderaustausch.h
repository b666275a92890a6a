// The IndexFelder file (.ifd): what the person and the playing have added to the records, and nothing that
// could be read again from the files. Writer and reader.
//
// First line "#indexfelder11", then a line for each record: "#TAG:" five lengths "|" path, plays, date of the
// last play, free text, quality mark. It has the line form of the index file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "index/leser.h"

namespace liedwerk {

// IndexFelderSpeichern: writes the fields of all records; in the Dateimanager-Modus only the first line.
// False on failure or cancel, a failure has been shown; the old file is then as it was.
bool IndexFelderSpeichern(const Katalog& Index, const Indexumgebung& Umgebung, const std::string& Dateiname,
                          bool MitFortschritt);

// The first record with this path, 0 for none.
using Satzfinder = std::function<Satznummer(std::string_view Pfad)>;

// DateiLadenIndexFelder: puts the values of the file into the records with the same paths. A length of 0 ends
// the values of its line.
// Kept: so an empty date of the last play keeps the free text and the mark behind it out.
// Gives the number of lines that found their record; nothing on failure, which has been shown, or when the
// person cancelled while the file was read: then no record has changed.
std::optional<std::size_t> DateiLadenIndexFelder(Katalog& Index, const Indexumgebung& Umgebung,
                                                 const std::string& Dateiname, const Satzfinder& Finden,
                                                 bool MitFortschritt);

}  // namespace liedwerk
