#include "basis/ansi.h"

#include <algorithm>
#include <array>

#include "basis/text.h"

namespace liedwerk {
namespace {

// Windows-1252, bytes 80 to 9F (the table "bestfit1252" of the code page). The others are Latin-1.
constexpr std::array<char16_t, 32> Mittelteil = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

char32_t AnsiZeichen(unsigned char Byte) {
    return Byte >= 0x80 && Byte < 0xA0 ? char32_t{Mittelteil[Byte - 0x80U]} : char32_t{Byte};
}

std::optional<unsigned char> AnsiByte(char32_t Zeichen) {
    if (Zeichen < 0x80 || (Zeichen >= 0xA0 && Zeichen <= 0xFF)) return static_cast<unsigned char>(Zeichen);
    const auto* Fund = std::find(Mittelteil.begin(), Mittelteil.end(), Zeichen);
    if (Fund == Mittelteil.end()) return std::nullopt;
    return static_cast<unsigned char>(0x80 + (Fund - Mittelteil.begin()));
}

std::string AnsiNachUtf8(std::string_view Bytes) {
    if (IstAscii(Bytes)) return std::string(Bytes);
    std::string Text;
    Text.reserve(Bytes.size());
    for (const char Byte : Bytes) {
        if (static_cast<unsigned char>(Byte) < 0x80) {
            Text.push_back(Byte);
        } else {
            ZeichenAnhängen(Text, AnsiZeichen(static_cast<unsigned char>(Byte)));
        }
    }
    return Text;
}

std::optional<std::string> Utf8NachAnsi(std::string_view Text) {
    if (IstAscii(Text)) return std::string(Text);
    std::string Bytes;
    Bytes.reserve(Text.size());
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        const auto Byte = AnsiByte(ZeichenLesen(Text, Stelle));
        if (!Byte) return std::nullopt;
        Bytes.push_back(static_cast<char>(*Byte));
    }
    return Bytes;
}

std::string Utf8NachAnsiErsatz(std::string_view Text) {
    std::string Bytes;
    Bytes.reserve(Text.size());
    for (std::size_t Stelle = 0; Stelle < Text.size();) {
        Bytes.push_back(static_cast<char>(AnsiByte(ZeichenLesen(Text, Stelle)).value_or('?')));
    }
    return Bytes;
}

}  // namespace liedwerk
