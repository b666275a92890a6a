// Files deleted, moved to the recycle bin, replaced by empty ones; folders that have become empty.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dateien/dateiumgebung.h"

namespace liedwerk {

struct Löschergebnis {
    std::vector<Satznummer> Gelöscht;  // their files are gone, their records can go
    bool Abgebrochen = false;          // the person has ended the run
};

// Löschfrage: how many files shall go.
std::string Löschfrage(std::size_t Anzahl);
// Deletes the files of records, or moves them to the recycle bin. The index stays as it is: taking the
// records out is the caller's part. With MitFrage asks once in front ("Nein" preset). A file that the bin
// refuses stays. An open progress display is used and left open, otherwise one is shown.
Löschergebnis DateienLöschen(const Dateiumgebung& Umgebung, std::span<const Satznummer> Sätze,
                             bool Papierkorb, bool MitFrage);

// Makes an empty file Neu and then deletes Pfad; the same name is emptied in one step. An existing other file
// is not replaced. Empty when it succeeded, else what went wrong; then the original is still there.
std::string DurchLeereDateiErsetzen(std::string_view Pfad, std::string_view Neu);

// Asks whether a folder without any entry shall go, unless the setting LeereOrdnerLöschen forbids.
void OrdnerLöschenFragen(const Dateiumgebung& Umgebung, std::string_view Ordner);

}  // namespace liedwerk
