// Finds one word in a long text, a block of 64 places at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace liedwerk {

// Looks for the two bytes of the word that are rarest in texts about music, both at once for a whole block,
// in a loop that the compiler turns into vector code, and compares the word only where both stand. Faster
// than looking for the first byte, which is often a common one.
class Wortsucher {
  public:
    explicit Wortsucher(std::string Gesucht);  // not empty

    // Offset of the first occurrence at Ab or behind it; npos when there is none.
    std::size_t Suchen(std::string_view Text, std::size_t Ab) const;

  private:
    std::string Wort;
    std::size_t ErsterAbstand = 0;  // places of the two bytes in the word
    std::size_t ZweiterAbstand = 0;
};

}  // namespace liedwerk
