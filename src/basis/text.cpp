// UTF-8: walking, counting, cutting and joining. Letter case stands in grossklein.cpp.
#include "basis/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace liedwerk {
namespace {

constexpr char32_t KaputtesByte = 0xDC00;  // + the byte
constexpr char32_t Ersatzzeichen = 0xFFFD;

bool IstFolgebyte(unsigned char Byte) {
    return (Byte & 0xC0) == 0x80;
}

// Moves Stelle behind the run of ASCII that begins there, by whole words of eight bytes.
std::size_t HinterAscii(std::string_view Text, std::size_t Stelle) {
    while (Text.size() - Stelle >= sizeof(std::uint64_t)) {
        std::uint64_t Wort;
        std::memcpy(&Wort, Text.data() + Stelle, sizeof Wort);
        if ((Wort & 0x8080808080808080ULL) != 0) break;
        Stelle += sizeof Wort;
    }
    while (Stelle < Text.size() && static_cast<unsigned char>(Text[Stelle]) < 0x80)
        ++Stelle;
    return Stelle;
}

// Moves Stelle (above 0) to the beginning of the character that ends there.
void ZeichenZurück(std::string_view Text, std::size_t& Stelle) {
    for (std::size_t Länge = 1; Länge <= 4 && Länge <= Stelle; ++Länge) {
        std::size_t Ende = Stelle - Länge;
        if (IstFolgebyte(static_cast<unsigned char>(Text[Ende]))) continue;
        ZeichenLesen(Text, Ende);
        if (Ende != Stelle) break;
        Stelle -= Länge;
        return;
    }
    --Stelle;  // a broken byte
}

// What a first byte says about its sequence: number of bytes that follow, and the bounds of the first of
// them, which keep out overlong forms, surrogates and code points above U+10FFFF (Unicode 14, table 3-7).
struct Folge {
    std::size_t Anzahl;
    unsigned char Von;
    unsigned char Bis;
};
Folge FolgeNach(unsigned char Erstes) {
    if (Erstes >= 0xC2 && Erstes <= 0xDF) return {1, 0x80, 0xBF};
    if (Erstes == 0xE0) return {2, 0xA0, 0xBF};
    if (Erstes == 0xED) return {2, 0x80, 0x9F};
    if (Erstes >= 0xE1 && Erstes <= 0xEF) return {2, 0x80, 0xBF};
    if (Erstes == 0xF0) return {3, 0x90, 0xBF};
    if (Erstes >= 0xF1 && Erstes <= 0xF3) return {3, 0x80, 0xBF};
    if (Erstes == 0xF4) return {3, 0x80, 0x8F};
    return {0, 0, 0};
}

}  // namespace

char32_t ZeichenLesen(std::string_view Text, std::size_t& Stelle) {
    const auto Byte = [&](std::size_t i) { return static_cast<unsigned char>(Text[i]); };
    const unsigned char Erstes = Byte(Stelle++);
    if (Erstes < 0x80) return Erstes;
    const auto [Anzahl, Von, Bis] = FolgeNach(Erstes);
    if (Anzahl == 0 || Text.size() - Stelle < Anzahl) return KaputtesByte + Erstes;
    if (Byte(Stelle) < Von || Byte(Stelle) > Bis) return KaputtesByte + Erstes;
    char32_t Zeichen = Erstes & (0x3FU >> Anzahl);
    for (std::size_t i = 0; i < Anzahl; ++i) {
        if (!IstFolgebyte(Byte(Stelle + i))) return KaputtesByte + Erstes;
        Zeichen = (Zeichen << 6) | (Byte(Stelle + i) & 0x3FU);
    }
    Stelle += Anzahl;
    return Zeichen;
}

void ZeichenAnhängen(std::string& Text, char32_t Zeichen) {
    const auto Anhängen = [&](char32_t Byte) { Text.push_back(static_cast<char>(Byte)); };
    if (Zeichen < 0x80) return Anhängen(Zeichen);
    if (Zeichen >= KaputtesByte + 0x80 && Zeichen <= KaputtesByte + 0xFF)
        return Anhängen(Zeichen - KaputtesByte);
    if (Zeichen > 0x10FFFF || (Zeichen >= 0xD800 && Zeichen <= 0xDFFF)) Zeichen = Ersatzzeichen;
    if (Zeichen < 0x800) {
        Anhängen(0xC0 | (Zeichen >> 6));
    } else {
        if (Zeichen < 0x10000) {
            Anhängen(0xE0 | (Zeichen >> 12));
        } else {
            Anhängen(0xF0 | (Zeichen >> 18));
            Anhängen(0x80 | ((Zeichen >> 12) & 0x3F));
        }
        Anhängen(0x80 | ((Zeichen >> 6) & 0x3F));
    }
    Anhängen(0x80 | (Zeichen & 0x3F));
}

bool IstUtf8(std::string_view Text) {
    for (std::size_t Stelle = HinterAscii(Text, 0); Stelle < Text.size();
         Stelle = HinterAscii(Text, Stelle)) {
        const char32_t Zeichen = ZeichenLesen(Text, Stelle);
        if (Zeichen >= KaputtesByte && Zeichen <= KaputtesByte + 0xFF) return false;
    }
    return true;
}

bool IstAscii(std::string_view Text) {
    return HinterAscii(Text, 0) == Text.size();
}

std::size_t ZeichenAnzahl(std::string_view Text) {
    std::size_t Anzahl = 0;
    std::size_t Stelle = 0;
    while (Stelle < Text.size()) {
        const std::size_t Dahinter = HinterAscii(Text, Stelle);
        Anzahl += Dahinter - Stelle;
        Stelle = Dahinter;
        if (Stelle == Text.size()) break;
        ZeichenLesen(Text, Stelle);
        ++Anzahl;
    }
    return Anzahl;
}

std::string_view LinkerTeil(std::string_view Text, std::size_t Anzahl) {
    if (Anzahl >= Text.size()) return Text;
    std::size_t Stelle = 0;
    while (Anzahl-- > 0 && Stelle < Text.size())
        ZeichenLesen(Text, Stelle);
    return Text.substr(0, Stelle);
}

std::string_view RechterTeil(std::string_view Text, std::size_t Anzahl) {
    if (Anzahl >= Text.size()) return Text;
    std::size_t Stelle = Text.size();
    while (Anzahl-- > 0 && Stelle > 0)
        ZeichenZurück(Text, Stelle);
    return Text.substr(Stelle);
}

std::vector<std::string> Teilen(std::string_view Text, std::string_view Trenner) {
    std::vector<std::string> Teile;
    std::size_t Anfang = 0;
    if (!Trenner.empty()) {
        for (std::size_t Ende; (Ende = Text.find(Trenner, Anfang)) != std::string_view::npos;) {
            Teile.emplace_back(Text.substr(Anfang, Ende - Anfang));
            Anfang = Ende + Trenner.size();
        }
    }
    Teile.emplace_back(Text.substr(Anfang));
    return Teile;
}

std::string Verbinden(const std::vector<std::string>& Teile, std::string_view Trenner) {
    std::string Text;
    for (std::size_t i = 0; i < Teile.size(); ++i) {
        if (i > 0) Text += Trenner;
        Text += Teile[i];
    }
    return Text;
}

std::string Ersetzen(std::string_view Text, std::string_view Alt, std::string_view Neu) {
    if (Alt.empty()) return std::string(Text);
    std::string Ergebnis;
    std::size_t Anfang = 0;
    for (std::size_t Ende; (Ende = Text.find(Alt, Anfang)) != std::string_view::npos;) {
        Ergebnis += Text.substr(Anfang, Ende - Anfang);
        Ergebnis += Neu;
        Anfang = Ende + Alt.size();
    }
    Ergebnis += Text.substr(Anfang);
    return Ergebnis;
}

std::string_view RechtsKürzen(std::string_view Text) {
    // find_last_not_of gives npos for a text of nothing but blanks; npos + 1 is 0.
    return Text.substr(0, Text.find_last_not_of(' ') + 1);
}

std::string_view Kürzen(std::string_view Text) {
    Text = RechtsKürzen(Text);
    return Text.substr(std::min(Text.find_first_not_of(' '), Text.size()));
}

std::string NullenVoran(std::string_view Text, std::size_t Breite) {
    const std::size_t Anzahl = ZeichenAnzahl(Text);
    std::string Ergebnis(Anzahl < Breite ? Breite - Anzahl : 0, '0');
    Ergebnis += Text;
    return Ergebnis;
}

}  // namespace liedwerk
