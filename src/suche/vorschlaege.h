// Words of a value that resemble what was searched: "Meinten Sie vielleicht...".
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

enum class Ähnlichkeit { Keine = 0, Stark = 1, Schwach = 2 };

// A word of Wert (or its rest) that resembles a word of Text; empty with Art Keine when there is none.
std::string ÄhnlicheWörter(std::string_view Wert, std::string_view Text, Ähnlichkeit& Art,
                           bool GleichesAusschließen);

}  // namespace liedwerk
