// Records by their path: what the duplicate test needs, without a walk through the index.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "index/satzspeicher.h"

namespace liedwerk {

// A hash table of record numbers over PfadSchlüssel. It follows the store by its generation and changes, so
// nobody has to tell it anything.
class Pfadverzeichnis {
  public:
    // The records with this path in ascending order.
    std::vector<Satznummer> Finden(const Satzspeicher& Sätze, std::string_view Pfad);

  private:
    void Nachführen(const Satzspeicher& Sätze);
    void Aufbauen(const Satzspeicher& Sätze);
    void Einfügen(const Satzspeicher& Sätze, Satznummer Nummer);
    std::vector<Satznummer> Fächer;  // open addressing, 0 is free
    std::uint64_t Generation = 0;
    std::size_t GeleseneÄnderungen = 0;
    Satznummer Eingetragen = 0;
};

}  // namespace liedwerk
