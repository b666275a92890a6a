// The rolling backups of an index: "<index> - Backup vom dd.mm.yyyy hh-nn-ss.bak" beside it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "index/leser.h"

namespace liedwerk {

// The name of a backup made at this time.
std::string SicherungskopieName(std::string_view Datei, const Zeitpunkt& Jetzt);

// All files with the extension of backups in the folder, full paths in the system's order; nothing when the
// folder cannot be listed.
std::optional<std::vector<std::string>> SicherungskopienSuchen(const Ordnerleser& Ordner,
                                                               std::string_view Verzeichnis);

// Removes what interrupted copies of the index and of its backups have left beside it; what another program
// is writing stays.
void UnfertigeKopienEntfernen(const std::string& Ziel, const Ordnerleser& Ordner);

// Makes a backup of the file that stands under Ziel when the last one is old enough (only with MitNeuer), and
// then deletes those that are too old. What fails is shown; the save goes on all the same.
void SicherungskopienFühren(const std::string& Ziel, const Einstellungen& Werte,
                            const Indexumgebung& Umgebung, bool MitNeuer);

}  // namespace liedwerk
