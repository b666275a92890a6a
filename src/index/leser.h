// Loading an index file, and the preparation of the two ways that run on tmp.lwi.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "basis/uhr.h"
#include "index/datensatz.h"
#include "index/katalog.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// What loading and saving an index take from their surroundings.
struct Indexumgebung {
    Oberfläche& Person;
    Protokoll& Log;
    const Uhr& Zeit;
    const Ordnerleser& Ordner;
    std::string Programmordner;  // holds lwStamm.lwi and tmp.lwi
    MedienLeser Leser;
    // DateiNichtVerfügbarPrüfen for a record: 0 go on, 1 skip, 2 abort.
    std::function<int(Katalog& Index, Satznummer Nummer)> VerfügbarkeitPrüfen;
    // Full path of the temporary index that belongs to this process; empty: tmp.lwi in the program folder.
    std::string Temporärindex{};
    // The index has been saved to this file; may be missing.
    std::function<void(std::string_view Datei)> Gespeichert{};
};

// Full path of the temporary index.
std::string TemporärerIndex(const Indexumgebung& Umgebung);
// The folder of a file for looking into it: "." for a bare name.
std::string_view OrdnerDer(std::string_view Datei);

enum class Ladeergebnis : std::int16_t { Fehlschlag = 0, Index = 1, Dateimanager = 2, TagEditor = 3 };

// DateiLaden. Dateiname: file or folder. FortschrittOffen: the caller closes the progress display.
// StillErstellen: a missing file is created at once, without the look for backups and without any message.
// Modus: 1 or below for an index file, 2 for the folder way, 3 for the TAG-Editor way. May switch
// BackupsSpeichern off and, on the TAG way, set Mp3TagLesen for the run.
// A load that fails leaves an empty catalogue.
Ladeergebnis DateiLaden(Katalog& Index, Einstellungen& Werte, const Indexumgebung& Umgebung,
                        std::string_view Dateiname, bool FortschrittOffen, bool StillErstellen, int Modus);

}  // namespace liedwerk
