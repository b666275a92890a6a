// Records by their path: what the duplicate test needs, without a walk through the index.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "index/satzspeicher.h"

namespace liedwerk {

// A hash table of record numbers over PfadSchlüssel. It follows the store by its generation and changes, so
// nobody has to tell it anything. It belongs to one store.
class Pfadverzeichnis {
  public:
    // The records with this path in ascending order.
    std::vector<Satznummer> Finden(const Satzspeicher& Sätze, std::string_view Pfad);
    // The first of them; 0 for none.
    Satznummer ErstenFinden(const Satzspeicher& Sätze, std::string_view Pfad);

  private:
    // One link of a chain. A record whose path has changed gets a new one; the old one stays, and whoever
    // follows the chain compares the paths.
    struct Glied {
        std::uint32_t Streuwert = 0;
        Satznummer Nummer = 0;
        std::uint32_t Nächstes = 0;  // place in Glieder + 1; 0 ends the chain
    };
    // Calls Treffer for each link that leads to a record with this path; a record may come more than once.
    template <class Besuch>
    void Durchgehen(const Satzspeicher& Sätze, std::string_view Pfad, Besuch&& Treffer);
    void Nachführen(const Satzspeicher& Sätze);
    void Aufbauen(const Satzspeicher& Sätze);
    void Einfügen(const Satzspeicher& Sätze, Satznummer Nummer);
    std::string_view Schlüssel(const Satzspeicher& Sätze, Satznummer Nummer);
    std::vector<std::uint32_t> Fächer;  // a power of two; first link + 1
    std::vector<Glied> Glieder;
    std::string Pfadpuffer;
    std::string Schlüsselpuffer;
    std::uint64_t Generation = 0;
    std::size_t GeleseneÄnderungen = 0;
    Satznummer Eingetragen = 0;
};

}  // namespace liedwerk
