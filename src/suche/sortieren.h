// Sorting: the order of the index itself, and so of the record numbers and of the saved file.
//
// A sort is a chain of Quicksort runs: one over the whole index by the first criterion, then, criterion by
// criterion, one over each stretch of records that have the same key in the criterion before. frmSortieren
// asks SortierspaltenVorgabe what to show and SortierwahlPrüfen whether its choice will do; IndexSortieren
// does the work. Keys come as ranks (sortierschluessel.h), so that the runs move numbers (quicksort.h) and
// the records go to their places once, at the end.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"

namespace liedwerk {

inline constexpr std::string_view SortierspalteAus = "---- Aus ----";
inline constexpr std::size_t SortierkriterienHöchstens = 3;

// A combo cboSpalte of the dialog: its entries and the one to be selected, 0-based.
struct Sortierspalten {
    std::vector<std::string> Einträge;
    std::size_t Gewählt = 0;
};
// The three combos when the head of a column was clicked, whose field name is Spalte (a name of SpaltenNamen;
// "Benutzerdefiniert" for the user-defined one, whatever its title).
std::vector<Sortierspalten> SortierspaltenVorgabe(std::string_view Spalte);

// What the three combos show, in their order, on "OK".
struct Sortierwahl {
    std::vector<std::string> Sortierkriterien;
    std::string Meldung;  // not empty: an information box, the dialog stays open
};
Sortierwahl SortierwahlPrüfen(std::span<const std::string> Gewählte);

// Sorts the index by one to three field names; Absteigend turns the ascending order over. Marks move with the
// records, and so do the slots of Auswahlmerker (one for each record). Shows Fortschritt, which is left open;
// when it is cancelled, the order reached stays, turned over all the same if that was wanted. Does not touch
// IndexGeändert.
void IndexSortieren(Katalog& Index, std::span<const std::string> Sortierkriterien, bool Absteigend,
                    std::vector<std::uint8_t>& Auswahlmerker, Oberfläche& Person);

}  // namespace liedwerk
