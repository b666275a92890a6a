// The end of the system, and the periodic saving.
#pragma once

#include "core/anwendung.h"

namespace liedwerk {

// Why the window closes, with the numbers of UnloadMode.
enum class Schließgrund { Person = 0, Programm = 1, Betriebssystem = 2, TaskManager = 3 };

// Form_QueryUnload: false keeps the system running (cancelled, minimised, gone to the tray). True: the index
// is saved as wanted and the settings are written; the process may end.
bool FensterSchließen(Anwendung& Programm, Schließgrund Grund);
// The end that the program starts by itself: without the question what closing shall do. False as above.
bool SofortBeenden(Anwendung& Programm);

// What shall become of a changed index before it goes: saved by itself or after the question, as
// DateiAutomatischSpeichern says.
enum class Speicherwunsch { Speichern, NichtSpeichern, Abbrechen };
Speicherwunsch SpeicherfrageStellen(Anwendung& Programm);

// Writes the settings, but not what holds for this run only. A failure is logged, and told with MitMeldung.
void EinstellungenSichern(Anwendung& Programm, bool MitMeldung);

// One tick's look at RegelmäßigSpeichernAlle; never during a long run.
void RegelmäßigSpeichern(Anwendung& Programm);

}  // namespace liedwerk
