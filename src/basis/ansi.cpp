#include "basis/ansi.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "basis/text.h"

namespace liedwerk {
namespace {

// Windows-1252, bytes 80 to 9F (the table "bestfit1252" of the code page). The others are Latin-1.
constexpr std::array<char16_t, 32> Mittelteil = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// Bytes that the longest character of the table takes in UTF-8.
constexpr std::size_t HöchsteZeichenlänge = 3;

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
    std::string Text;
    AnsiNachUtf8Anhängen(Text, Bytes);
    return Text;
}

void AnsiNachUtf8Anhängen(std::string& Ziel, std::string_view Bytes) {
    constexpr std::size_t Block = 8;
    constexpr std::uint64_t Hohe = 0x8080808080808080;
    const std::size_t Vorher = Ziel.size();
    Ziel.resize(Vorher + HöchsteZeichenlänge * Bytes.size());
    char* Ende = Ziel.data() + Vorher;
    for (std::size_t i = 0; i < Bytes.size();) {
        std::uint64_t Acht = Hohe;
        if (Bytes.size() - i >= Block) std::memcpy(&Acht, Bytes.data() + i, Block);
        if ((Acht & Hohe) == 0) {
            std::memcpy(Ende, &Acht, Block);
            Ende += Block;
            i += Block;
            continue;
        }
        const char32_t Zeichen = AnsiZeichen(static_cast<unsigned char>(Bytes[i++]));
        if (Zeichen < 0x80) {
            *Ende++ = static_cast<char>(Zeichen);
        } else if (Zeichen < 0x800) {
            *Ende++ = static_cast<char>(0xC0U | Zeichen >> 6U);
            *Ende++ = static_cast<char>(0x80U | (Zeichen & 0x3FU));
        } else {
            *Ende++ = static_cast<char>(0xE0U | Zeichen >> 12U);
            *Ende++ = static_cast<char>(0x80U | (Zeichen >> 6U & 0x3FU));
            *Ende++ = static_cast<char>(0x80U | (Zeichen & 0x3FU));
        }
    }
    Ziel.resize(static_cast<std::size_t>(Ende - Ziel.data()));
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
