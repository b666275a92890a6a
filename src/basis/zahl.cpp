#include "basis/zahl.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "basis/text.h"

namespace liedwerk {
namespace {

bool IstZiffer(char Zeichen) {
    return Zeichen >= '0' && Zeichen <= '9';
}

// Takes the digits at the beginning of Rest off and appends them to Ziffern; gives their number.
std::size_t ZiffernNehmen(std::string_view& Rest, std::string& Ziffern) {
    const auto Ende = std::find_if_not(Rest.begin(), Rest.end(), IstZiffer);
    const auto Anzahl = static_cast<std::size_t>(Ende - Rest.begin());
    Ziffern.append(Rest.substr(0, Anzahl));
    Rest.remove_prefix(Anzahl);
    return Anzahl;
}

bool ZeichenNehmen(std::string_view& Rest, std::string_view Erlaubt) {
    if (Rest.empty() || Erlaubt.find(Rest.front()) == std::string_view::npos) return false;
    Rest.remove_prefix(1);
    return true;
}

// The part in front of the decimals: digits, or groups of three behind a first group of one to three.
bool GanzzahlteilNehmen(std::string_view& Rest, std::string& Ziffern) {
    const std::size_t Erste = ZiffernNehmen(Rest, Ziffern);
    if (Rest.empty() || Rest.front() != '.') return true;
    if (Erste < 1 || Erste > 3) return false;
    while (ZeichenNehmen(Rest, ".")) {
        if (ZiffernNehmen(Rest, Ziffern) != 3) return false;
    }
    return true;
}

// True when a number that a double cannot hold is too small for it, not too large: its first significant
// digit stands behind the decimal point. Form is as ZahlformBilden makes it.
bool IstWinzig(std::string_view Form) {
    const std::size_t Zeichen = Form.find('e');
    const std::size_t Erste = Form.find_first_of("123456789");
    const auto Stelle = static_cast<std::int64_t>(Form.find('.')) - static_cast<std::int64_t>(Erste);
    const bool Negativ = Form[Zeichen + 1] == '-';
    std::int64_t Exponent = 0;
    const auto Ergebnis = std::from_chars(Form.data() + Zeichen + 2, Form.data() + Form.size(), Exponent);
    if (Ergebnis.ec != std::errc()) return Negativ;  // far beyond the length of any text
    return Stelle + (Negativ ? -Exponent : Exponent) < 0;
}

// The number in the form of the C locale, "digits.digits" and an exponent with its sign; empty for any other
// text.
std::string ZahlformBilden(std::string_view Rest) {
    std::string Form;
    if (ZeichenNehmen(Rest, "-")) {
        Form += '-';
    } else {
        ZeichenNehmen(Rest, "+");
    }
    const std::size_t Vorzeichen = Form.size();
    if (!GanzzahlteilNehmen(Rest, Form)) return {};
    std::size_t Ziffern = Form.size() - Vorzeichen;
    if (Ziffern == 0) Form += '0';
    Form += '.';
    if (ZeichenNehmen(Rest, ",")) Ziffern += ZiffernNehmen(Rest, Form);
    if (Ziffern == 0) return {};
    if (Form.back() == '.') Form += '0';
    Form += 'e';
    if (ZeichenNehmen(Rest, "eEdD")) {
        const bool Negativ = !Rest.empty() && Rest.front() == '-';
        ZeichenNehmen(Rest, "+-");
        Form += Negativ ? '-' : '+';
        if (ZiffernNehmen(Rest, Form) == 0) return {};
    } else {
        Form += "+0";
    }
    return Rest.empty() ? Form : std::string();
}

}  // namespace

std::optional<double> Zahl(std::string_view Text) {
    const std::string Form = ZahlformBilden(Kürzen(Text));
    if (Form.empty()) return std::nullopt;
    double Wert = 0;
    const auto Ergebnis = std::from_chars(Form.data(), Form.data() + Form.size(), Wert);
    if (Ergebnis.ec == std::errc::result_out_of_range)
        return IstWinzig(Form) ? std::optional(0.0) : std::nullopt;
    if (Ergebnis.ec != std::errc()) return std::nullopt;
    return Wert;
}

std::string Gruppiert(std::int64_t Wert) {
    // Negating in the unsigned type is right for the smallest value too.
    const bool Negativ = Wert < 0;
    std::string Ziffern =
        std::to_string(Negativ ? 0 - static_cast<std::uint64_t>(Wert) : static_cast<std::uint64_t>(Wert));
    for (std::size_t Stelle = Ziffern.size(); Stelle > 3;) {
        Stelle -= 3;
        Ziffern.insert(Stelle, 1, '.');
    }
    if (Negativ) Ziffern.insert(0, 1, '-');
    return Ziffern;
}

}  // namespace liedwerk
