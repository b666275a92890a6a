// Reminders in a run: the check of the start and of tmrEreignisse, and whose programs may start.
//
// A reminder's program starts unasked only if this person has seen to it: the index is the very file that
// this user's program saved last, or the program was entered or allowed in this run. An index from somebody
// else starts nothing by itself.
#pragma once

#include <string_view>

#include "core/anwendung.h"

namespace liedwerk {

// Makes TerminePrüfen of the run; once, before the start.
void TerminePrüfenEinrichten(Anwendung& Programm);
// Event Nummer was entered or changed by the person.
void TerminGespeichert(Anwendung& Programm, std::size_t Nummer);
// An index has been loaded: its programs are trusted or not.
void TerminvertrauenLesen(Anwendung& Programm);
// The index has been saved to Datei: if all its programs are trusted, the settings keep what tells the file.
void TerminvertrauenMerken(Anwendung& Programm, std::string_view Datei);

}  // namespace liedwerk
