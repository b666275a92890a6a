// The recycle bin of the desktop.
#pragma once

#include "plattform/papierkorb.h"

namespace liedwerk {

// The trash of the person's home, or of the drive that holds the file.
class Desktoppapierkorb final : public Papierkorb {
  public:
    Dateifehler Verschieben(std::string_view Pfad) override;
};

}  // namespace liedwerk
