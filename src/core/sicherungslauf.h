// The backups of the loaded index: which there are, and putting one of them in its place.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/anwendung.h"

namespace liedwerk {

struct Sicherungskopie {
    std::string Pfad;
    Zeitpunkt Geändert;
    std::uint64_t Größe = 0;  // bytes
};

// The backups beside the index, the newest first. Nothing when the folder cannot be listed.
std::optional<std::vector<Sicherungskopie>> SicherungskopienAuflisten(const Anwendung& Programm);
// "<name> (zuletzt geändert am dd.mm.yyyy hh:nn:ss)".
std::string SicherungskopieText(const Sicherungskopie& Kopie);

// The number of records in an index file, read block by block: -1 when it is none or Weiter said no. May be
// called from any thread.
std::int64_t DatensätzeZählen(const std::string& Pfad, const std::function<bool()>& Weiter);

// Puts the backup in the place of the index file and loads it. Asks first; unsaved changes are saved (or
// given up) as at the end of the program, and the present file is kept beside it under a name that no tidying
// of backups deletes. False when nothing was replaced; the index is then as it was.
bool SicherungskopieWiederherstellen(Anwendung& Programm, const Sicherungskopie& Kopie);

}  // namespace liedwerk
