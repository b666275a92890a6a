// Titelsuche: which records belong to what a player plays, looked for in slices, so that a window stays
// awake.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"

namespace liedwerk {

// A title cut at its first " - ", the parts without blanks around them.
struct Titelteile {
    std::string Interpret;
    std::string Titel;
    bool Geteilt = false;
    // A title of nothing but the line between its parts.
    bool Unbrauchbar() const { return Geteilt && Interpret.empty() && Titel.empty(); }
};

// One walk through the index tests three things at once: the paths that the player names, the tags
// ("Interpret - Titel"), the file names. The first of them that any record fits is the answer.
class Titelsuche {
  public:
    // Dateien: paths that the played file may have, the likeliest first.
    Titelsuche(std::string_view Gesucht, std::vector<std::string> Dateien);

    // Looks at the next Höchstens records, on all cores; true once all have been looked at. When a record has
    // changed since the last call, the walk begins anew.
    bool Weitersuchen(const Katalog& Index, Satznummer Höchstens);
    // The records found, rising. Whole only behind a call that gave true.
    const std::vector<Satznummer>& Gefundene() const;

  private:
    // Records of one slice, by what fits.
    struct Funde {
        std::vector<std::vector<Satznummer>> NachPfad;  // one list for each of Dateien
        std::vector<Satznummer> NachTags;
        std::vector<Satznummer> NachNamen;
    };
    class Abschnitt;
    void Anfangen(const Katalog& Index);

    std::string Titel;
    Titelteile Teile;
    std::vector<std::string> Pfade;
    Funde Alle;
    Satznummer Nächster = 1;
    std::uint64_t Generation = 0;  // of the store that was looked at so far
    std::size_t Änderungen = 0;
};

}  // namespace liedwerk
