// Adding folders and files to the index.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "dateien/medium.h"
#include "dateien/pfadverzeichnis.h"
#include "index/katalog.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// What adding takes from its surroundings.
struct Hinzufügeumgebung {
    Katalog& Index;
    const Einstellungen& Werte;
    Oberfläche& Person;
    Protokoll& Log;
    const Ordnerleser& Ordner;
    Mediumspeicher& Medium;
    Mediumumgebung Laufwerk;
    Pfadverzeichnis& Pfade;
    MedienLeser Leser;  // pure; called from several threads
    // The CD assistant for an audio CD, with its form: false when the person does not want the disc. Missing:
    // the tracks are added as they are.
    std::function<bool(std::string_view Laufwerk)> CDAssistent{};
};

struct Ordnerauftrag {
    std::string Ordner;
    bool Unterordner = true;
    std::string KopierenInOrdner{};  // the files are moved there first, sub-folders kept; empty: they stay
    std::string NichtBeiText{};
    bool DateimanagerAnsicht = false;
    bool StatusMelden = true;
    bool FortschrittOffenLassen = false;
};

struct Hinzufügeergebnis {
    bool Gelungen = false;       // false on cancel or error; what was read is in the index all the same
    Satznummer ErsterNeuer = 0;  // first appended record, 0 when none
    Satznummer Anzahl = 0;       // appended records
    std::vector<std::string> Ausgelassen;  // names that hold a line end and so can stand in no index
    std::vector<std::string> Ungelesene;   // folders that could not be listed, or not to their end
};

// EinfachOrdnerHinzufügen, EinfachDateiHinzufügen up to the commit and the status text. Following the list,
// the search and the selection is the caller's part (core/hinzufuegelauf).
Hinzufügeergebnis EinfachOrdnerHinzufügen(const Hinzufügeumgebung& Umgebung, const Ordnerauftrag& Auftrag);
Hinzufügeergebnis EinfachDateiHinzufügen(const Hinzufügeumgebung& Umgebung,
                                         const std::vector<std::string>& Dateien, bool StatusMelden);

// The reading order made from the setting Mp3TagLesen.
Leseauftrag HinzufügeLeseauftrag(std::string_view Mp3TagLesen);

}  // namespace liedwerk
