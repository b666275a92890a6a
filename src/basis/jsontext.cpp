#include "basis/jsontext.h"

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

void ZeichenSchreiben(std::string& Ziel, char32_t Zeichen) {
    switch (Zeichen) {
        case '"':
            Ziel += "\\\"";
            return;
        case '\\':
            Ziel += "\\\\";
            return;
        case '\n':
            Ziel += "\\n";
            return;
        case '\r':
            Ziel += "\\r";
            return;
        case '\t':
            Ziel += "\\t";
            return;
        default:
            break;
    }
    if (Zeichen < 0x20) {
        constexpr std::string_view Hex = "0123456789abcdef";
        Ziel += "\\u00";
        Ziel += Hex[Zeichen >> 4];
        Ziel += Hex[Zeichen & 15];
    } else if (IstBruchbyte(Zeichen)) {
        ZeichenAnhängen(Ziel, AnsiZeichen(static_cast<unsigned char>(Zeichen & 0xFF)));
    } else {
        ZeichenAnhängen(Ziel, Zeichen);
    }
}

bool BrauchtNichts(char Byte) {
    return Byte >= 0x20 && Byte != '"' && Byte != '\\';
}

}  // namespace

std::string JsonText(std::string_view Text) {
    std::string Ergebnis = "\"";
    Ergebnis.reserve(Text.size() + 2);
    std::size_t Stelle = 0;
    while (Stelle < Text.size()) {
        const std::size_t Anfang = Stelle;
        while (Stelle < Text.size() && BrauchtNichts(Text[Stelle]))
            ++Stelle;
        Ergebnis += Text.substr(Anfang, Stelle - Anfang);
        if (Stelle < Text.size()) ZeichenSchreiben(Ergebnis, ZeichenLesen(Text, Stelle));
    }
    return Ergebnis += '"';
}

}  // namespace liedwerk
