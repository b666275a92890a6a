// Adding as the person sees it: the run, then search or list, selection and counts brought in line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

struct Hinzufügefolgen {
    bool ListeAktualisieren = true;
    bool NeueDateienMarkieren = true;
};

// Folder and files with everything that follows; gives the number of records added, -1 on cancel or error.
Satznummer OrdnerHinzufügenLauf(Anwendung& Programm, const Ordnerauftrag& Auftrag,
                                const Hinzufügefolgen& Folgen);
Satznummer DateienHinzufügenLauf(Anwendung& Programm, const std::vector<std::string>& Dateien,
                                 const Hinzufügefolgen& Folgen, bool StatusMelden);
// Tells of files: their number, Was, and the first of their names. Nothing when there are none.
void DateienMelden(Oberfläche& Person, std::string_view Was, const std::vector<std::string>& Dateien);
// True for a path that OrdnerHinzufügenLauf takes: a folder, a drive for CDs, an image of a CD.
bool AlsOrdnerHinzufügbar(std::string_view Pfad);
// Search or list after the last Anzahl records of the index were appended; their rows are selected.
void NeueSätzeZeigen(Anwendung& Programm, Satznummer Anzahl);
// DragDropVerarbeiten: play lists, folders (with the setting's sub-folders) and files in one go, each to its
// way; what is none of them is passed over.
Satznummer DragDropVerarbeiten(Anwendung& Programm, const std::vector<std::string>& Objekte);

}  // namespace liedwerk
