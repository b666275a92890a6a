// Folded texts of fields, one block per field that has been searched, scanned in bulk.
//
// The search tests the position of a word in a field's display text without regard to case. The puffer keeps
// that text folded for all records, one behind the other, and finds a word in all of them by one vectorised
// scan. It follows the index by the store's generation and list of changes: a changed record's part is
// replaced, new records are appended, anything else drops the block.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "index/katalog.h"
#include "suche/feldwert.h"

namespace liedwerk {

class Suchpuffer {
  public:
    Suchpuffer();
    ~Suchpuffer();
    Suchpuffer(const Suchpuffer&) = delete;
    Suchpuffer& operator=(const Suchpuffer&) = delete;

    // The records of Von to Bis (1-based, inclusive) whose display text of a type 0 field holds the word
    // without regard to case, as marks: slot i - Von is 1 for a hit, else 0. Word not empty. AndererTag as in
    // FeldWert.
    std::vector<std::uint8_t> Treffer(const Katalog& Index, const Feldwahl& Feld, bool AndererTag,
                                      std::string_view Wort, Satznummer Von, Satznummer Bis);
    // Gives all blocks back.
    void Leeren();
    // Bytes held.
    std::uint64_t Belegt() const;

  private:
    struct Block;
    std::vector<std::unique_ptr<Block>> Blöcke;
};

}  // namespace liedwerk
