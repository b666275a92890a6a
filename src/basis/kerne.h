// Work shared out among the cores of the machine.
#pragma once

#include <cstddef>
#include <functional>

namespace liedwerk {

// Runs Arbeit(number of the part, first, end) over 0..Anzahl, on all cores when the work is worth it: at
// least Mindestens items a part; part 0 on the calling thread. Returns when all parts are done; an exception
// of Arbeit comes out then.
void AufKerneVerteilen(std::size_t Anzahl, std::size_t Mindestens,
                       const std::function<void(std::size_t, std::size_t, std::size_t)>& Arbeit);
// The number of parts that AufKerneVerteilen makes at most.
std::size_t HöchsteTeilzahl();

}  // namespace liedwerk
