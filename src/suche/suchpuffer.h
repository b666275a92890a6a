// Folded texts of fields, one block per field that has been searched, scanned in bulk.
//
// The search tests the position of a word in a field's display text without regard to case. The puffer keeps
// that text folded for all records, one behind the other, and finds a word in all of them by one vectorised
// scan. It follows the index by the store's generation and list of changes: a changed record's part is
// replaced, new records are appended, anything else builds the block anew.
//
// Words hold no blank, and a blank stands between all texts: so no hit reaches from one record into the next.
// For the same reason a value of the standard search that another value of its record contains is left out;
// that halves the text and changes no hit.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
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

    // True when Treffer answers for this field and word: one way of comparing for all records, and a word of
    // valid UTF-8 without blanks (it may be empty).
    static bool Geeignet(const Feldwahl& Feld, bool AndererTag, std::string_view Wort);

    // The records of Von to Bis (1-based, inclusive) whose display text holds the word, as marks: slot
    // i - Von is 1 for a hit, else 0. Compared without regard to case in fields of type 0, exactly in others.
    // An empty word is held by every text that is not empty. AndererTag as in FeldWert.
    std::vector<std::uint8_t> Treffer(const Katalog& Index, const Feldwahl& Feld, bool AndererTag,
                                      std::string_view Wort, Satznummer Von, Satznummer Bis);
    // For each group of words the records, rising, whose display text holds all of them, compared as in
    // Treffer. A group has at least one word, none of them empty. One walk serves all groups.
    std::vector<std::vector<Satznummer>> Gruppentreffer(const Katalog& Index, const Feldwahl& Feld,
                                                        bool AndererTag,
                                                        std::span<const std::vector<std::string>> Gruppen);
    // Gives all blocks back.
    void Leeren();
    // Bytes held.
    std::uint64_t Belegt() const;

  private:
    struct Block;
    Block& BlockFür(const Katalog& Index, const Feldwahl& Feld, bool AndererTag);
    std::vector<std::unique_ptr<Block>> Blöcke;  // the last used one first
};

}  // namespace liedwerk
