// Words of a value that resemble what was searched: "Meinten Sie vielleicht...".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

enum class Ähnlichkeit { Keine = 0, Stark = 1, Schwach = 2 };

// A word of Wert (or its rest) that resembles a word of Text; empty with Art Keine when there is none.
std::string ÄhnlicheWörter(std::string_view Wert, std::string_view Text, Ähnlichkeit& Art,
                           bool GleichesAusschließen);

// A searched text prepared for being compared with many values.
class Ähnlichkeitsmuster {
  public:
    explicit Ähnlichkeitsmuster(std::string_view Text);

    // Where the word stands that ÄhnlicheWörter gives, as byte range of the folded value.
    struct Fund {
        Ähnlichkeit Art = Ähnlichkeit::Keine;
        std::size_t Von = 0;
        std::size_t Länge = 0;
    };
    Fund Suchen(std::string_view Gefaltet) const;

    // Folded pieces, at least one of which stands in every value that resembles the text. Empty when that
    // says nothing.
    const std::vector<std::string>& Pflichtteile() const { return Teile; }

  private:
    Fund WortSuchen(std::string_view Gefaltet) const;
    Fund RestSuchen(std::string_view Gefaltet) const;

    std::string Ganz;  // the whole text, folded
    struct Suchwort {
        std::u32string Zeichen;
        std::size_t Bytes;
        char Erstes;  // first and last byte
        char Letztes;
    };
    std::vector<Suchwort> Wörter;
    std::vector<std::string> Teile;
};

}  // namespace liedwerk
