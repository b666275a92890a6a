// Umlauts as people type them who have none on their keyboard.
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// "ä" and "ae" become "a", likewise "ö" and "ü"; "ß" becomes "ss". Text is folded UTF-8 (Falten). Two texts
// with the same result count as equal when the person has switched that on.
std::string UmlauteAuflösen(std::string_view Gefaltet);
// The longest part of a resolved word that stands unchanged in every text whose resolved form holds the word;
// may be empty.
std::string_view Umlautkern(std::string_view Aufgelöst);

}  // namespace liedwerk
