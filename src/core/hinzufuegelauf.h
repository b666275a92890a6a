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
// Folders and files in one go, each to its way, folders with the setting's sub-folders (what is dropped on
// the list).
Satznummer PfadeHinzufügenLauf(Anwendung& Programm, const std::vector<std::string>& Pfade);

// True for a name that adding takes for a play list: ".pls" or ".m3u" at its end, in exactly this spelling.
bool IstPlayliste(std::string_view Pfad);

}  // namespace liedwerk
