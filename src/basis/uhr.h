// The port to the clock. Everything that needs the time is handed one of these, so that a test can stop it.
#pragma once

#include <cstdint>

#include "basis/datum.h"

namespace liedwerk {

class Uhr {
  public:
    virtual ~Uhr() = default;
    // Now, local calendar time to the second.
    virtual Zeitpunkt Jetzt() const = 0;
    // A file's time (seconds since 1970 UTC) as local calendar time. May be called from several threads.
    virtual Zeitpunkt Lokal(std::int64_t Unixzeit) const = 0;
    // Milliseconds of a clock that never jumps; for waits and time-outs.
    virtual std::int64_t Millisekunden() const = 0;
    // Sleeps; used only while polling.
    virtual void Warten(std::int64_t Dauer) const = 0;
};

}  // namespace liedwerk
