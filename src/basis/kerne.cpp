#include "basis/kerne.h"

#include <algorithm>
#include <exception>
#include <thread>
#include <vector>

namespace liedwerk {

std::size_t HöchsteTeilzahl() {
    return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 8);
}

void AufKerneVerteilen(std::size_t Anzahl, std::size_t Mindestens,
                       const std::function<void(std::size_t, std::size_t, std::size_t)>& Arbeit) {
    const std::size_t Stücke = std::clamp<std::size_t>(Anzahl / Mindestens, 1, HöchsteTeilzahl());
    std::vector<std::exception_ptr> Fehler(Stücke);
    const auto Ausführen = [&](std::size_t i) {
        try {
            Arbeit(i, Anzahl * i / Stücke, Anzahl * (i + 1) / Stücke);
        } catch (...) {
            Fehler[i] = std::current_exception();
        }
    };
    std::vector<std::thread> Fäden;
    Fäden.reserve(Stücke);
    std::size_t Vergeben = 1;
    try {
        for (; Vergeben < Stücke; ++Vergeben)
            Fäden.emplace_back(Ausführen, Vergeben);
    } catch (const std::exception&) {
        // No further thread to be had: this one does the rest.
    }
    Ausführen(0);
    for (; Vergeben < Stücke; ++Vergeben)
        Ausführen(Vergeben);
    for (auto& Faden : Fäden)
        Faden.join();
    for (const auto& Einer : Fehler) {
        if (Einer) std::rethrow_exception(Einer);
    }
}

}  // namespace liedwerk
