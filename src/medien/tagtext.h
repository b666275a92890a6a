// What the readers of the tag formats share about text.
#pragma once

#include <string>
#include <string_view>

#include "index/datensatz.h"

namespace liedwerk {

// TextBereinigen: the text without any NUL and code 1, with ZeilenEntfernen without LF and CR too, and then
// without blanks at its right end. Works alike on the bytes of a file and on UTF-8.
std::string TextBereinigen(std::string_view Text, bool ZeilenEntfernen);
// A genre by its name, for formats without numbers: one of the ID3v1 list goes into Genre, another one into
// V2Genre.
void GenreTextSetzen(const std::string& Text, Datensatz& Satz);

}  // namespace liedwerk
