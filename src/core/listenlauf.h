// Adding what a list of file names holds: play lists, texts with file names, the clipboard.
//
// Each way reads the list (dateien/playlisten.h), lets the person look over what was found, as long as the
// setting HinzufügenZusammenfassungZeigen wants that and there is a window for it, and gives the files to the
// adding of single files. Without that look, what was not found is told in a message.
#pragma once

#include "core/hinzufuegelauf.h"
#include "dateien/playlisten.h"

namespace liedwerk {

// PlaylistLesen, DateiMitDateinamenLesen: the files of a play list, and the file names in any text. Gives the
// number of records added, -1 when the list could not be read or the person cancelled.
Satznummer PlaylistLesen(Anwendung& Programm, const std::string& Datei, const Hinzufügefolgen& Folgen);
Satznummer DateiMitDateinamenLesen(Anwendung& Programm, const std::string& Datei,
                                   const Hinzufügefolgen& Folgen);
// The names in a text from the clipboard (paths or addresses, one a line). Folders and play lists among them
// go their own way.
Satznummer ZwischenablageHinzufügen(Anwendung& Programm, std::string_view Text);

// The name correction of the summary over the files of a folder and those below it, with messages about its
// result. False when nothing could be corrected.
bool NichtGefundeneSuchen(Anwendung& Programm, const std::string& Ordner, Namensfunde& Funde);

}  // namespace liedwerk
