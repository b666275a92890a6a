// Folders of the real system.
#pragma once

#include "plattform/ordnerleser.h"

namespace liedwerk {

// Lists by the system's own order; keeps no state and may be used from several threads.
class Systemordnerleser final : public Ordnerleser {
  public:
    bool Auflisten(std::string_view Ordner,
                   const std::function<bool(const Ordnereintrag&)>& Besuch) const override;
};

}  // namespace liedwerk
