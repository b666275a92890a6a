// The column layout of the list: which columns stand where and how wide, and the string that keeps it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "index/spalten.h"

namespace liedwerk {

// A shown column. Nummer is its place in SpaltenNamen; Breite in twips.
struct Listenspalte {
    int Nummer = 0;
    int Breite = 0;
    bool operator==(const Listenspalte&) const = default;
};

// A layout string is entries joined by ",", each three numbers joined by "=": column (1 to 32), width in
// twips (0: not shown), position among the shown columns (from 1; 0 for not shown ones). An entry of two
// numbers stands at the position of its own order in the string.

// The default layout string, made from SpaltenNamen.
std::string SpaltenformatVorgabe();
// The shown columns of a layout string in their order. A string without any readable entry ("0") gives the
// default; columns that a string does not name are filled from it; an entry whose numbers are out of range is
// skipped. Of two entries for one column the later holds, of two columns at one position the later stands
// behind.
std::vector<Listenspalte> SpaltenEinrichten(std::string_view Spaltenformat);
// The layout string of the shown columns: three numbers for each of the 32 columns, in the order in which Alt
// names them, the others behind in the order of their numbers.
std::string SpaltenSpeichern(const std::vector<Listenspalte>& Gezeigt, std::string_view Alt);

// The field name that a column gives to FeldWert, and its title: the user-defined column's title is its
// format without "%". Both empty for a number that is no column's.
std::string_view Spaltenfeld(const Listenspalte& Spalte);
std::string Spaltentitel(const Listenspalte& Spalte, std::string_view Nutzerformat);

}  // namespace liedwerk
