// The files of records copied or moved into a folder; the index follows.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dateien/dateiumgebung.h"
#include "dateien/verschieben.h"

namespace liedwerk {

struct Kopierauftrag {
    std::string Ordner;        // the target
    bool Struktur = false;     // the source's folder below its drive is kept below the target
    bool Verschieben = false;  // otherwise copied
    std::int16_t Überschreiben = ÜberschreibenFragen;
};

struct Kopierbericht {
    Satznummer Anzahl = 0;     // files that were copied or moved
    bool Gelungen = true;      // no file failed or was left out
    bool Abgebrochen = false;  // the run ended ahead of its last file
};

// Where a file goes: the folder, then its name, with Struktur behind its path below Laufwerk.
std::string KopierzielBilden(std::string_view Pfad, std::string_view Laufwerk, const Kopierauftrag& Auftrag);

// DateienKopierenVerschieben up to the status text; following the list is the caller's part.
Kopierbericht DateienKopierenVerschieben(const Dateiumgebung& Umgebung, std::span<const Satznummer> Sätze,
                                         const Kopierauftrag& Auftrag);

// Copies or moves one file, found in or below Ordner, into Zielordner; sub-folders are kept.
Verschiebeergebnis KopierenInOrdner(Oberfläche& Person, std::string_view Pfad, std::string_view Ordner,
                                    std::string_view Zielordner, bool Verschieben,
                                    std::int16_t Überschreiben);

// A record follows its moved file: path, and the medium on which the file lies now.
void SatzUmziehen(const Dateiumgebung& Umgebung, Satznummer Nummer, const std::string& Ziel);

}  // namespace liedwerk
