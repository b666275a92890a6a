// Records by artist and by album, as AutoTAG asks for them.
//
// AutoTAG walks the whole index for each piece of a file name. This directory gives the same records in the
// same order: it keeps 16 bits of each of the four texts and looks at a record itself only where they agree,
// so that a question to a million records costs a millisecond and the making of it some fifty. It follows the
// store by its generation and its changes, so nobody has to tell it anything; it belongs to one store.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "index/satzspeicher.h"

namespace liedwerk {

// A text of both tags.
enum class Tagtext { Interpret, Album };

class Tagverzeichnis {
  public:
    // Reads up to Höchstens records that it does not know yet, so that the first question need not wait for
    // all of them: for idle moments, and safe at any time. True when none is left.
    bool Vorbereiten(const Satzspeicher& Sätze, std::size_t Höchstens);

    // The next record from Ab on (1-based; upwards), or the next one from Ab on downwards, that has ID3v1 or
    // ID3v2 and whose text of one of them is the given one without regard to case. 0 when there is none.
    Satznummer Nächster(const Satzspeicher& Sätze, Tagtext Art, std::string_view Text, Satznummer Ab);
    Satznummer Voriger(const Satzspeicher& Sätze, Tagtext Art, std::string_view Text, Satznummer Ab);

    // True when the record has this text in ID3v1 or ID3v2, whether or not it is tagged.
    bool Hat(const Satzspeicher& Sätze, Satznummer Nummer, Tagtext Art, std::string_view Text);

  private:
    // The marks of all records in one field, slot i at place i - 1.
    using Spalte = std::vector<std::uint16_t>;
    struct Spaltenpaar {
        Spalte V1;
        Spalte V2;
    };
    struct Frage {
        Tagtext Art;
        std::string_view Text;
        std::uint16_t Merkmal;
    };
    static Frage FrageNach(Tagtext Art, std::string_view Text);
    bool Passt(const Satzspeicher& Sätze, const Frage& Gefragt, std::size_t Platz) const;
    void Nachführen(const Satzspeicher& Sätze);
    void Eintragen(const Satzspeicher& Sätze, Satznummer Nummer);
    const Spaltenpaar& SpaltenFür(Tagtext Art) const { return Spalten[static_cast<std::size_t>(Art)]; }

    std::array<Spaltenpaar, 2> Spalten;
    std::uint64_t Generation = 0;
    std::size_t GeleseneÄnderungen = 0;
};

}  // namespace liedwerk
