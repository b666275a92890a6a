// The clocks of a run: the system's, and one that stands where a command line has put it.
#pragma once

#include "basis/uhr.h"

namespace liedwerk {

// The system's clock in the zone of the person.
class Systemuhr : public Uhr {
  public:
    Systemuhr();
    Zeitpunkt Jetzt() const override;
    Zeitpunkt Lokal(std::int64_t Unixzeit) const override;
    std::int64_t Millisekunden() const override;
    void Warten(std::int64_t Dauer) const override;
};

// Tells one fixed point for the whole run, so that its results can be repeated; waits and time-outs still
// take their real time.
class FesteUhr final : public Systemuhr {
  public:
    explicit FesteUhr(const Zeitpunkt& Fest) : Punkt(Fest) {}
    Zeitpunkt Jetzt() const override { return Punkt; }

  private:
    Zeitpunkt Punkt;
};

}  // namespace liedwerk
