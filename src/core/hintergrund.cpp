#include "core/hintergrund.h"

#include <atomic>
#include <chrono>
#include <future>
#include <system_error>

namespace liedwerk {

using namespace std::chrono_literals;

void ImHintergrund(Oberfläche& Person, std::string_view Titel, const Dateischritt& Schritt) {
    std::atomic<bool> Abbrechen = false;
    const auto Arbeit = [&] { Schritt([&](std::uint64_t) { return !Abbrechen; }); };
    std::future<void> Ende;
    try {
        Ende = std::async(std::launch::async, Arbeit);
    } catch (const std::system_error&) {
        // The system gives no thread: this one does the work, and the window waits for it.
        return Arbeit();
    }
    if (Ende.wait_for(50ms) == std::future_status::ready) return Ende.get();
    // A run over many files shows its own progress.
    const bool Eigenes = !Person.FortschrittOffen();
    if (Eigenes) Person.FortschrittStarten(Titel, false, 0);
    while (Ende.wait_for(20ms) != std::future_status::ready) {
        if (!Person.FortschrittZeigen("", -1)) Abbrechen = true;
    }
    if (Eigenes) Person.FortschrittSchließen();
    Ende.get();
}

}  // namespace liedwerk
