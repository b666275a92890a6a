// The drop-down of a field's values at the search row, which completes the typing too.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"

namespace liedwerk {

// The entries of the combo's drop-down when the field combo changes: the values of Feld, and of ZweitesFeld
// unless that is empty, in the order of the records. None for the standard search, for an empty field and
// when Auswahlliste is off. The form puts them in with the change guard raised and keeps the text. Shows
// Fortschritt while it collects; none either when that is cancelled.
std::vector<std::string> AutoCompleteFüllen(const Katalog& Index, std::string_view Feld, bool Auswahlliste,
                                            Oberfläche& Person, std::string_view ZweitesFeld = {});

// The first entry that begins with Text without regard to case, 0-based.
std::optional<std::size_t> EintragFinden(std::string_view Text, const std::vector<std::string>& Einträge);

// What a completion does to the input: the entry becomes its text and the combo's ListIndex, the caret stays,
// and from it on SelLength characters are selected, so that typing on overwrites them.
struct Vervollständigung {
    std::size_t Eintrag = 0;  // 0-based
    std::size_t SelStart = 0;
    std::size_t SelLength = 0;
};
// Completes what was typed up to the caret SelStart (in characters). Nothing when no entry begins with it,
// when AutoCompleteVerwenden is off, or when AutoCompleteÜberspringen was raised by a deletion.
std::optional<Vervollständigung> AutoCompleteAusführen(std::string_view Text,
                                                       const std::vector<std::string>& Einträge,
                                                       std::size_t SelStart, bool AutoCompleteVerwenden,
                                                       bool& AutoCompleteÜberspringen);

}  // namespace liedwerk
