// Copying, moving and deleting as the person sees it: the run, then index, list and selection in line.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/anwendung.h"
#include "dateien/kopieren.h"
#include "dateien/loeschen.h"

namespace liedwerk {

// The surroundings of file operations, made from the parts of a run.
Dateiumgebung DateiumgebungVon(Anwendung& Programm);
// The same for files that are records of another catalogue.
Dateiumgebung DateiumgebungVon(Anwendung& Programm, Katalog& Index);

// What frmKopieren has left in the settings.
Kopierauftrag KopierauftragAus(const Einstellungen& Werte);
// Files of records copied or moved into a folder.
Kopierbericht KopierenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze,
                           const Kopierauftrag& Auftrag);
// Files of records deleted or moved to the recycle bin, and their records taken out of the index.
Löschergebnis LöschenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze, bool Papierkorb,
                          bool MitFrage);
// Records taken out of the index, with a question; their files stay. False when the person said no.
bool EntfernenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze);
// Files from outside copied or moved into the folder of the Dateimanager-Modus and shown there.
void EinfügenLauf(Anwendung& Programm, const std::vector<std::string>& Pfade, bool Verschieben);

}  // namespace liedwerk
