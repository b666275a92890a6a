// The rows of the main list as plain data: record numbers, selection, and the texts that go with them.
//
// A row holds nothing but its record number (its Tag); cells are rendered through FeldWert when they are
// shown, so that a million rows cost four megabytes and no time.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "basis/protokoll.h"
#include "index/katalog.h"
#include "suche/spaltenlayout.h"

namespace liedwerk {

struct Liste {
    std::vector<Satznummer> Zeilen;           // record number of each row
    std::vector<Listenspalte> Spalten;        // shown columns in their order
    std::vector<Satznummer> Auswahl;          // selected record numbers, in row order
    bool ListeMarkierungenVerwerfen = false;  // the next rebuild keeps no selection
};

// Rows from the marks of the index; the selection survives for records that are still shown, as far as it
// stood in record order. Lowers ListeMarkierungenVerwerfen.
void ListeErstellen(Liste& Ziel, const Katalog& Index, Protokoll& Log, const Uhr& Zeit);
// Rows from the given record numbers in their order; no selection kept.
void ListeVollständigErstellen(Liste& Ziel, const std::vector<Satznummer>& Datensätze, Protokoll& Log,
                               const Uhr& Zeit);
// New records appended as rows without a search: marks become 1, the bounds are raised.
void ListeAnhängen(Liste& Ziel, Katalog& Index, Satznummer Ab);

// The text of a cell: row and column 0-based; empty for what has none.
std::string Listenzelle(const Liste& Quelle, const Katalog& Index, std::size_t Zeile, std::size_t Spalte);

// StatusAnzeigen: the count text, two lines.
std::string StatusText(const Liste& Quelle, const Katalog& Index);
// The description pane's text for none or several selected rows; empty for exactly one (its file is described
// then).
std::string AuswahlText(std::size_t AuswahlAnzahl, const Katalog& Index);

// The record of the entry for the parent folder in the Dateimanager-Modus, known by its path: the folder that
// holds the index's folder. 0 when there is none.
Satznummer ElternEintrag(const Katalog& Index);

}  // namespace liedwerk
