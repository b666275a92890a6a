// Whose rules of synchronisation may move files.
//
// A rule that gives the files of a folder another place is trusted only if this person has seen to it: the
// index is the very file that this user's program saved last with no rule that was not, or the rule was
// entered or allowed in this run. The window asks for each of the others; a command of the command line is
// the person's own word.
#pragma once

#include <string_view>

#include "core/anwendung.h"

namespace liedwerk {

// An index has been loaded: its rules are trusted or not.
void RegelvertrauenLesen(Anwendung& Programm);
// The index has been saved to Datei: if all its rules that move files are trusted, the settings keep what
// tells the file.
void RegelvertrauenMerken(Anwendung& Programm, std::string_view Datei);
// The options of the index were changed by the person: what is new against Alt was entered here.
void RegelnEingetragen(Anwendung& Programm, const Indexoptionen& Alt);
// Asks about each rule that moves files and is not trusted, "Nein" preset. False after the first refusal:
// then nothing may be synchronised.
bool RegelnErlauben(Anwendung& Programm);

}  // namespace liedwerk
