// The real system's CDs: drives through libdiscid, images through the reader of our own.
#pragma once

#include "plattform/cdlaufwerke.h"

namespace liedwerk {

class Systemcds final : public CDLaufwerke {
  public:
    CDInhalt InhaltLesen(std::string_view Laufwerk) const override;
    std::vector<std::string> Auflisten() const override;
};

}  // namespace liedwerk
