// The cache: each CD that was entered or fetched is one small file in the folder "CDDB".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "cd/cddaten.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// What the cache takes from its surroundings.
struct CDSpeicherumgebung {
    std::string Ordner;  // "CDDB" below the program folder; need not exist
    const Ordnerleser& Leser;
    Protokoll& Log;
    std::string Programm;  // name and version, as "Liedwerk 1.00"
};

// The file of a disc, in small letters or as it lies there; empty for an id that is no eight hexadecimal
// digits.
std::string CDDatei(const CDSpeicherumgebung& Umgebung, std::string_view ID);

// Writes the record under the id. True when the file stands; false, logged, otherwise: then an old file is
// what it was. Stand forgets which CD is loaded.
bool CDDBCDSpeichern(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID,
                     const CDDaten& Daten);
// Fills the record of Stand from the file of the id. Without Erzwingen the CD that is loaded already stays.
// False, logged, when there is no such file or it is none of ours; the record is then what it was.
bool CDDBCDLesen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID, bool Erzwingen);
// Removes the file of a disc; false when that failed.
bool CDDBCDLöschen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID);

// A cached CD.
struct CDEintrag {
    std::string ID;
    std::string Album;  // one line, as the next; may be empty
    std::string Interpret;
    std::string Datei;  // full path
};
// CDDBCDsSuchen: the cached CDs by id. Person may be missing; a cancel ends the search with what was found.
std::vector<CDEintrag> CDDBCDsSuchen(const CDSpeicherumgebung& Umgebung, Oberfläche* Person = nullptr);
// Album and artist of a row, with "(Unbekanntes Album)" and "(Unbekannter Interpret)" for empty ones.
std::string CDZeilentext(const CDEintrag& Eintrag);

}  // namespace liedwerk
