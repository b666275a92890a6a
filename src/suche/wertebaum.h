// The value tree of frmSucheErweitertHinzufügenNeu: fields, their values, the other fields below, and so on.
//
// A node is its path: field, value, field, value, ... from the root to itself. The form keeps these texts as
// data of its nodes, since a value may hold the separator of treListe.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"
#include "suche/abfrage.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

// The root nodes, each with a dummy child so that it can be opened.
inline constexpr std::array<std::string_view, 10> WertebaumFelder = {
    "Interpret",       "Album",       "Genre",       "Jahr",       "Kommentar",
    "Interpret-ID3v2", "Album-ID3v2", "Genre-ID3v2", "Jahr-ID3v2", "Kommentar-ID3v2"};

// The children of a node that is being opened, all of which can be opened in turn. Below a field: its values
// among the records that hold every value above, in the order of the alphabet. Below a value: the fields that
// do not stand above it. For an empty path the root nodes. Collecting values shows Fortschritt; nothing when
// the person has cancelled.
std::optional<std::vector<std::string>> WertebaumÖffnen(const Katalog& Index, Suchpuffer& Puffer,
                                                        std::span<const std::string> Pfad,
                                                        Oberfläche& Person);

// "OK" on the chosen node: each field with its value becomes a query with the standard code. On failure the
// text of the message; the dialog stays open then.
std::string WertebaumÜbernehmen(Suchabfragen& Menge, std::span<const std::string> Pfad, bool AlsWort);

}  // namespace liedwerk
