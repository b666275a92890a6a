// The port to the desktop's recycle bin.
#pragma once

#include <string_view>

#include "basis/datei.h"

namespace liedwerk {

class Papierkorb {
  public:
    virtual ~Papierkorb() = default;
    // Moves a file into the bin. On failure it stays where it is; it is never deleted in place of it.
    virtual Dateifehler Verschieben(std::string_view Pfad) = 0;
};

}  // namespace liedwerk
