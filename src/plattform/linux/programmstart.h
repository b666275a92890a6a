// Programs of the real system.
#pragma once

#include "plattform/programmstart.h"

namespace liedwerk {

// Started programs belong to nobody: they outlive this one, keep none of its files open and write to none of
// its outputs.
class Systemprogramme final : public Programmstart {
  public:
    Programmlaufnummer Starten(std::string_view Programm, const std::vector<std::string>& Argumente) override;
    bool Läuft(const Programmlaufnummer& Gestartet) const override;
    Programmlaufnummer MitAnwendungÖffnen(std::string_view Pfad) override;
    std::string Finden(std::string_view Name) const override;
};

}  // namespace liedwerk
