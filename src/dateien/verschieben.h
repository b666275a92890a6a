// One file moved, renamed or copied, with the rules for a target that exists.
//
// The file is complete under its new name before the old one goes, and the new name takes the place of an
// existing file in one step: whatever happens in between, each of the two is old or new. Two names of one
// file are recognised as such and never cost the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "basis/oberflaeche.h"

namespace liedwerk {

// intÜberschreiben: what is done when the target exists; the places of the entries of cboDateienErsetzen.
enum Überschreibregel : std::int16_t {
    ÜberschreibenFragen = 0,
    ÜberschreibenNie = 1,
    ÜberschreibenImmer = 2,
    ÜberschreibenÄltereSonstFragen = 3,
    ÜberschreibenÄltereSonstNie = 4,
};

struct Verschiebeergebnis {
    bool Gelungen = false;      // the file stands at the target, or the case needs no work
    bool Getan = false;         // a file was moved, renamed or copied
    bool Umgezogen = false;     // the source is gone and the target is there: a record may take the path Ziel
    bool Abgebrochen = false;   // the person has ended the run
    bool Übersprungen = false;  // the person wants this file left alone
    bool Gesperrt = false;      // Übersprungen since the file cannot be written now, not for the target
    std::string Ziel;           // the target in the end; another one than asked for after "Umbenennen"
    std::string Fehlertext;     // what went wrong, for the person; empty when there is nothing to show
};

// Moves (or renames) or copies a file; missing folders of the target are created. Shows nothing but the
// dialog about an existing target: the caller shows Fehlertext. While a long copy runs, the caller's progress
// display stays at Position and can be cancelled.
Verschiebeergebnis DateiVerschieben(Oberfläche& Person, std::string_view Quelle, std::string_view Ziel,
                                    bool Verschieben, std::int16_t Überschreiben, std::int64_t Position = 0);

// SchreibtestDatei: false while another run of the program is writing this file anew, or file or folder give
// no permission to write, and the person does not want to wait for it. Renaming or deleting it while it is
// written would bring the old name back.
bool SchreibtestDatei(Oberfläche& Person, std::string_view Pfad);

// The next free name beside a file: Vor + running number + Nach + its extension, counted up from Mitte.
// Empty after 10,000 candidates that all exist.
std::string NächsterDateiname(std::string_view Pfad, std::string_view Vor, std::int64_t Mitte,
                              std::string_view Nach);

}  // namespace liedwerk
