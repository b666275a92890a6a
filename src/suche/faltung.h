// Folded texts straight from the bytes of the index: what the search scans and compares.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "index/katalog.h"
#include "suche/feldwert.h"

namespace liedwerk {

// Separates the texts of a block, and the values of the standard search.
inline constexpr std::string_view Trennblank = " ";

// Growing room for bytes, written without being cleared first. Whoever wants it empty sets Größe to 0.
class Werkbank {
  public:
    std::size_t Größe = 0;
    // Room for so many bytes behind what is there; Größe grows by what was written.
    char* Platz(std::size_t Bytes) {
        if (Größe + Bytes > Raum) {
            const std::size_t Neuer = std::max(Größe + Bytes, 2 * Raum);
            auto Größerer = std::make_unique_for_overwrite<char[]>(Neuer);
            if (Größe > 0) std::memcpy(Größerer.get(), Inhalt.get(), Größe);
            Inhalt = std::move(Größerer);
            Raum = Neuer;
        }
        return Inhalt.get() + Größe;
    }
    void Anhängen(std::string_view Bytes) {
        char* const Ziel = Platz(Bytes.size());
        if (!Bytes.empty()) std::memcpy(Ziel, Bytes.data(), Bytes.size());
        Größe += Bytes.size();
    }
    std::string_view Ab(std::size_t Stelle) const { return {Inhalt.get() + Stelle, Größe - Stelle}; }

  private:
    std::unique_ptr<char[]> Inhalt;
    std::size_t Raum = 0;
};

// Appends the display text of a field, folded or as it stands; nothing for a field without a value. Wert is
// room for the text in between.
void FeldwertFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld,
                    bool AndererTag, bool Gefaltet, std::string& Wert);

// Appends what the standard search has to look at: its folded values, each with a blank behind it, without
// those that others of the record contain. For words without blanks that gives the same hits as the whole.
void StandardwörterFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer);

}  // namespace liedwerk
