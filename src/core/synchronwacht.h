// What is watched for the loaded index, and whether what has happened there calls for a synchronisation.
#pragma once

#include <string>
#include <vector>

#include "core/anwendung.h"
#include "plattform/ordnerwacht.h"

namespace liedwerk {

// What a watch needs to know; two equal ones are one watch.
struct Wachtvorgabe {
    std::string Index;  // the index file that it belongs to
    std::vector<Wachtordner> Ordner;
    std::vector<Dateityp> Dateitypen;
    std::string NichtBei;
    bool operator==(const Wachtvorgabe&) const = default;
    // True for a file that a synchronisation would take into the index.
    bool Gesucht(std::string_view Pfad) const;
};
// The folders to synchronise of the loaded index; without folders where nothing is to be watched.
Wachtvorgabe WachtvorgabeVon(const Anwendung& Programm);

struct Abgleichbedarf {
    std::size_t Neu = 0;       // files that the index does not know
    std::size_t Fehlend = 0;   // records whose file is gone
    std::size_t Geändert = 0;  // files of another size than their record
    bool Besteht() const { return Neu + Fehlend + Geändert > 0; }
};
// Compares files where something has happened with the index as a synchronisation would. What the program
// itself has done to them is in the index and needs none.
Abgleichbedarf AbgleichbedarfPrüfen(Anwendung& Programm, const Wachtvorgabe& Vorgabe,
                                    const std::vector<std::string>& Pfade);

// The offer to synchronise in words; Ungenau: more may have happened.
std::string Abgleichangebot(const Abgleichbedarf& Bedarf, bool Ungenau);

}  // namespace liedwerk
