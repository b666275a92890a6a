#include "plattform/linux/uhr.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace liedwerk {

Systemuhr::Systemuhr() {
    // localtime_r itself need not look for the zone.
    ::tzset();
}

Zeitpunkt Systemuhr::Jetzt() const {
    return Lokal(static_cast<std::int64_t>(std::time(nullptr)));
}

Zeitpunkt Systemuhr::Lokal(std::int64_t Unixzeit) const {
    const auto Sekunden = static_cast<std::time_t>(Unixzeit);
    std::tm Teile{};
    constexpr int ErstesJahr = 1;
    constexpr int LetztesJahr = 9999;
    if (::localtime_r(&Sekunden, &Teile) == nullptr || Teile.tm_year + 1900 < ErstesJahr ||
        Teile.tm_year + 1900 > LetztesJahr) {
        // Broken file times reach beyond the calendar; this one ends at its first and last year.
        return AusKalendersekunden(Unixzeit);
    }
    // A leap second has no place in a calendar time.
    const int Sekunde = Teile.tm_sec > 59 ? 59 : Teile.tm_sec;
    return {Teile.tm_year + 1900, Teile.tm_mon + 1, Teile.tm_mday, Teile.tm_hour, Teile.tm_min, Sekunde};
}

std::int64_t Systemuhr::Millisekunden() const {
    const auto Seitdem = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(Seitdem).count();
}

void Systemuhr::Warten(std::int64_t Dauer) const {
    std::this_thread::sleep_for(std::chrono::milliseconds(Dauer));
}

}  // namespace liedwerk
