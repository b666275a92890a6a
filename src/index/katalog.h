// The loaded index: records, hit marks, options, reminders and state. Plain data; whatever moves a record
// moves its mark with it, through the procedures below.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "basis/datei.h"
#include "index/dateitypen.h"
#include "index/satzspeicher.h"
#include "index/termin.h"

namespace liedwerk {

// Programmmodus: what this run is.
enum Programmart : std::int16_t {
    ModusNichtsGeladen = 0,
    ModusIndexdatei = 1,
    ModusDateimanager = 2,
    ModusTagEditor = 3,
};

// A folder to synchronise: folder, value of its sub-folder check box, folder into which files are moved
// first.
struct SyncRegel {
    std::string Ordner;
    std::int16_t Unterordner = 0;
    std::string KopierenInOrdner;
    bool operator==(const SyncRegel&) const = default;
};

// The options that belong to an index and travel in its file. Check-box values, compared with 1 exactly.
struct Indexoptionen {
    std::vector<SyncRegel> SyncOrdner;
    std::int16_t SyncLeer = 1;  // 1 while no rule has been read or set
    std::int16_t SyncEntfernen = 1;
    std::string SyncNichtBei = "_INCOMPLETE_";
    // Seconds since 1970 UTC: files changed earlier are told by their records as they are. Empty: not known.
    std::string SyncStand;
    std::vector<Dateityp> Dateitypen;
    std::int16_t DateitypenLeer = 1;
    std::int16_t SpaltenLeiste = 1;
    std::int16_t SpaltenGitter = 0;
    std::int16_t SpaltenSymbole = 1;
    std::int16_t SpaltenBeideTags = 1;
    std::string Spalten = "0";  // the layout string, Spaltenformat
    std::string SpaltenNutzerformat = "%Interpret% - %Titel%";
    std::string IndexEigentümer;
    bool operator==(const Indexoptionen&) const = default;
};

struct Katalog {
    Satzspeicher Sätze;
    // Hit mark per record, slot i at place i - 1: above 0 means that the record is in the list.
    std::vector<std::int16_t> IndexTreffer;
    // First and last record number that the list may show; 0 for none.
    Satznummer ErsterTreffer = 0;
    Satznummer LetzterTreffer = 0;

    Indexoptionen Optionen;
    Terminliste Termine;

    std::string IndexDateiname;  // full path of the loaded file, or the folder or names handed over
    Dateistand IndexDateiZeit;   // the file as seen at load, for the change test
    std::uint32_t IndexDateiGeneration = 0;  // Lesedatei::Generation of the same file
    bool IndexDateiBekannt = false;          // IndexDateiZeit holds a state
    int Formatstand = 2;                     // 2, 1, 0 by the version line; -1 for a file of unknown form
    std::int16_t Programmmodus = ModusNichtsGeladen;
    bool IndexGeändert = false;  // memory and file differ

    Satznummer IndexAnzahl() const { return Sätze.Anzahl(); }
};

// Appends a record with hit mark 0 (a search or the list raises it). Gives its number.
Satznummer SatzAnhängen(Katalog& Index, std::string_view Pfad, const Datensatz& Daten);
// Appends all records of a store in one step, in the same way; the store is empty afterwards.
void SätzeAnfügen(Katalog& Index, Satzspeicher&& Neue);
// DatensätzeEntfernen: drops the listed records with their marks; the order of the rest stays. Marks the
// index as changed when any record went.
void DatensätzeEntfernen(Katalog& Index, std::span<const Satznummer> Nummern);
// Sets all hit marks to 1 and the bounds to the whole index.
void TrefferZurücksetzen(Katalog& Index);

}  // namespace liedwerk
