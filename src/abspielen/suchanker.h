// Suchanker: a few neighbouring characters of a text, by which records are sorted out before a field is read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

struct Suchanker {
    // Whoever holds the text in a value, in whatever case, has one of these bytes in its line of the index
    // once the ASCII letters of that line are small. None: nothing can be said.
    std::vector<std::string> Schreibungen;
    int Güte = 0;  // the more, the fewer other records hold it and the sooner it is found
};

// The best anchor of a text. A value stands in its line as Windows-1252 or as UTF-8 (index/wert.h), and
// letters outside of ASCII have other bytes in the other case: so there are some spellings, eight at most.
Suchanker SuchankerVon(std::string_view Text);

}  // namespace liedwerk
