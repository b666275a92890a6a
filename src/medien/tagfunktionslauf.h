// The run of an editor's function over one file or many: questions, progress, reading, the function, saving.
//
// frmTag and the command line call FunktionBestätigen and then TagfunktionAusführen. What a function does to
// the fields of one record is tagfunktionen.h, what happens to the file is tagspeichern.h.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "medien/tagfunktionen.h"
#include "medien/tagspeichern.h"

namespace liedwerk {

// The questions in front of a run; false when the person says no to one.
bool FunktionBestätigen(Oberfläche& Person, const Funktionszeile& Funktion, const Funktionsauswahl& Auswahl);

// A file to work on; Nummer 0: the index does not hold it.
struct Funktionsdatei {
    std::string Pfad;
    Satznummer Nummer = 0;
};

struct Funktionsauftrag {
    Tagfunktion Funktion{};
    Funktionsauswahl Auswahl;
    // All files of the run: the current one, or all selected ones for a selection of all files.
    std::vector<Funktionsdatei> Dateien;
    Feldvorgabe Feld;  // for FelderKopieren
    // What the person has entered for the only file: a function on fields works on it in place of what the
    // file holds. Only the tags of the function are saved.
    std::optional<Datensatz> Eingaben{};
    // Called for each file that was worked on, with its state afterwards; may be missing.
    std::function<void(const Tagarbeit&)> Bearbeitet{};
};

struct Funktionsergebnis {
    std::size_t Bearbeitet = 0;   // files that were worked on
    std::size_t Gescheitert = 0;  // of these: a message was shown, or something was not written or removed
    bool Abgebrochen = false;     // the person has ended the run
};

// Runs a function that FunktionPrüfen has let pass (AutoTagEinstellen is the caller's: it opens a window). A
// function that fails on one file shows its message, and the run goes on; in a run over all files each
// message is shown once, and what could not be removed is told at the end. The caller refreshes the list.
Funktionsergebnis TagfunktionAusführen(const Tagumgebung& Umgebung, Tagverzeichnis& Verzeichnis,
                                       const Funktionsauftrag& Auftrag);

}  // namespace liedwerk
