// Renaming: the worker behind frmUmbenennen, once for each file. The index follows.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "dateien/dateiumgebung.h"
#include "index/datensatz.h"
#include "medien/umbenennplan.h"

namespace liedwerk {

// frmDateiname: asks for a new name; Vorgang says what is done, Alter is the old name. Nothing when the
// person thought better of it.
using Namensfrage =
    std::function<std::optional<std::string>(std::string_view Vorgang, const std::string& Alter)>;

struct Umbenennumgebung {
    Dateiumgebung Dateien;
    MedienLeser Leser;
    Namensfrage NamenErfragen;  // may be missing where nothing is typed
    std::int64_t Position = 0;  // where the progress display of the run stands
};

struct Umbenennergebnis {
    bool Behandelt = false;     // the file was treated, or there was nothing to do
    bool Geändert = false;      // name, entry, attributes or content are new
    bool Übersprungen = false;  // left alone by the person's answer; no reason to ask again
    bool Gesperrt = false;      // Übersprungen since the file cannot be written now, not for the target
    bool Abgebrochen = false;   // the person has ended the run
    std::string Neu;            // the path in the end
    std::string Meldung;        // what went wrong, for the person
};

// DateiUmbenennen: one file of the index. Zähler is the running number of the run (FortlaufendZahl at first).
// Shows nothing but the questions that belong to it; the caller shows Meldung.
Umbenennergebnis DateiUmbenennen(const Umbenennumgebung& Umgebung, const Umbenennauftrag& Auftrag,
                                 Satznummer Nummer, std::string& Zähler);

// True for the functions that touch the entry of the index only.
bool NurIndex(Umbenennfunktion Funktion);

}  // namespace liedwerk
