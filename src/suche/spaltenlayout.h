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

// The default layout string, made from SpaltenNamen.
std::string SpaltenformatVorgabe();
// The shown columns of a layout string in their order; unreadable strings give the default, missing entries
// are filled from it, bad entries are skipped.
std::vector<Listenspalte> SpaltenEinrichten(std::string_view Spaltenformat);
// The layout string of the shown columns; Alt gives the order of the entries.
std::string SpaltenSpeichern(const std::vector<Listenspalte>& Gezeigt, std::string_view Alt);

// The field name that a column gives to FeldWert, and its title: the user-defined column's title is its
// format without
// "%".
std::string_view Spaltenfeld(const Listenspalte& Spalte);
std::string Spaltentitel(const Listenspalte& Spalte, std::string_view Nutzerformat);

}  // namespace liedwerk
