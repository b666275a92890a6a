// Dates: a calendar point as plain numbers, its text forms, and calendar arithmetic. Nothing here asks a
// clock.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// A point of local calendar time, to the second. Member order is chronological order.
struct Zeitpunkt {
    std::int32_t Jahr = 1900;
    std::int32_t Monat = 1;
    std::int32_t Tag = 1;
    std::int32_t Stunde = 0;
    std::int32_t Minute = 0;
    std::int32_t Sekunde = 0;
    auto operator<=>(const Zeitpunkt&) const = default;
};

// What every text that is no date stands for where dates are compared or shown.
inline constexpr std::string_view UngültigesDatum = "01.01.1900 00:00:00";

// The date test: d.m.yy or d.m.yyyy (two digits: 0 to 29 is 2000 on, 30 to 99 is 1900 on), also yyyy-mm-dd,
// each with an optional time h:n or h:n:s behind blanks (or a "T" in the ISO form); blanks may stand around
// it. Only real calendar dates of the years 1 to 9999 count.
std::optional<Zeitpunkt> DatumLesen(std::string_view Text);

std::string DatumText(const Zeitpunkt& Punkt);         // "dd.mm.yyyy"
std::string ZeitText(const Zeitpunkt& Punkt);          // "hh:nn:ss"
std::string DatumZeitText(const Zeitpunkt& Punkt);     // "dd.mm.yyyy hh:nn:ss"
std::string DatumSortierText(const Zeitpunkt& Punkt);  // "yyyymmdd"
std::string ZeitSortierText(const Zeitpunkt& Punkt);   // "yyyymmddhhnnss"

// Seconds and days of the calendar since 01.01.1970, without regard to zones and leap seconds.
std::int64_t Kalendersekunden(const Zeitpunkt& Punkt);
std::int64_t Kalendertage(const Zeitpunkt& Punkt);
// Seconds outside of the years 1 to 9999 give the first or the last second of these.
Zeitpunkt AusKalendersekunden(std::int64_t Sekunden);

// Number of unit boundaries (days, hours, minutes of the calendar) crossed between two points; negative when
// Bis lies before Von.
std::int64_t TageZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis);
std::int64_t StundenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis);
std::int64_t MinutenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis);

}  // namespace liedwerk
