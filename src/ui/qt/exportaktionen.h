// Export and exchange of index fields in the main window: their entries in menu Datei, and the way from the
// form to the file and to its being shown.
#pragma once

#include <vector>

#include "ui/qt/fensterplatz.h"

namespace liedwerk {

void ExportaktionenAnlegen(Fensterplatz& Platz);

// Exportieren: frmExportieren for these records, then the export; a message when there are none or when this
// mode has no export.
void ExportierenAusführen(Anwendung& Programm, QWidget* Eltern, const std::vector<Satznummer>& Sätze);

// Asks for a file, then saves the index fields in it, imports them from it.
void FelderSpeichern(Anwendung& Programm, QWidget* Eltern);
void FelderImportieren(Anwendung& Programm, QWidget* Eltern);

}  // namespace liedwerk
