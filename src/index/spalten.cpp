#include "index/spalten.h"

#include <algorithm>

namespace liedwerk {

int SpaltenNummer(std::string_view Name) {
    const auto Fund = std::ranges::find(SpaltenNamen, Name, &Spalte::Name);
    return Fund == SpaltenNamen.end() ? 0 : static_cast<int>(Fund - SpaltenNamen.begin()) + 1;
}

}  // namespace liedwerk
