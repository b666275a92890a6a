// Numbers in text: the numeric test, conversions to the widths of the index file, and the display forms.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace liedwerk {

// The value of a numeric text: optional sign, digits, "." between groups of three, "," before decimals, an
// exponent (e, E, d or D with optional sign); blanks may stand around it. Nothing for any other text.
std::optional<double> Zahl(std::string_view Text);

// True when Zahl gives a value.
inline bool IstNumerisch(std::string_view Text) {
    return Zahl(Text).has_value();
}

// The number rounded to the nearest integer, an exact half to the even neighbour; nothing when it is no
// number or lies outside of the type's range.
template <class Ganzzahl>
std::optional<Ganzzahl> Gerundet(double Wert) {
    const double Rund = std::nearbyint(Wert);
    if (!(Rund >= static_cast<double>(std::numeric_limits<Ganzzahl>::min()))) return std::nullopt;
    // max() of a 64-bit type is no double: its neighbour above is, and is out of range itself.
    if (!(Rund < static_cast<double>(std::numeric_limits<Ganzzahl>::max()) + 1.0)) return std::nullopt;
    return static_cast<Ganzzahl>(Rund);
}

// A numeric text rounded into the type; nothing when it is not numeric or does not fit.
template <class Ganzzahl>
std::optional<Ganzzahl> GanzzahlLesen(std::string_view Text) {
    // Texts of up to 15 plain digits are most of an index file, and exact without the detour.
    if (!Text.empty() && Text.size() <= 15) {
        std::int64_t Wert = 0;
        bool NurZiffern = true;
        for (const char Ziffer : Text) {
            if (Ziffer < '0' || Ziffer > '9') {
                NurZiffern = false;
                break;
            }
            Wert = Wert * 10 + (Ziffer - '0');
        }
        if (NurZiffern) {
            if (std::cmp_greater(Wert, std::numeric_limits<Ganzzahl>::max())) return std::nullopt;
            return static_cast<Ganzzahl>(Wert);
        }
    }
    const auto Wert = Zahl(Text);
    return Wert ? Gerundet<Ganzzahl>(*Wert) : std::nullopt;
}

// "##,##0": the number with "." between groups of three digits, no decimals; 0 gives "0".
std::string Gruppiert(std::int64_t Wert);

}  // namespace liedwerk
