// Whose rules of synchronisation may move files.
//
// A rule that gives the files of a folder another place is trusted only if this person has entered it here or
// said yes to it, for this index; the settings keep such rules. The window asks for each of the others; a
// command of the command line is the person's own word.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

// The options of the index were changed by the person: what is new against Alt was entered here.
void RegelnEingetragen(Anwendung& Programm, const Indexoptionen& Alt);
// Asks about each rule that moves files and is not trusted, "Nein" preset. False after the first refusal:
// then nothing may be synchronised.
bool RegelnErlauben(Anwendung& Programm);

}  // namespace liedwerk
