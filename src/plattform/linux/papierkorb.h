// The recycle bin of the desktop: the freedesktop.org trash format, version 1.0.
#pragma once

#include "plattform/papierkorb.h"

namespace liedwerk {

// The bin of the person's home, or for a file on another file system the one of that. A file never crosses to
// another file system, and where there can be no bin it stays.
class Desktoppapierkorb final : public Papierkorb {
  public:
    Dateifehler Verschieben(std::string_view Pfad) override;
};

}  // namespace liedwerk
