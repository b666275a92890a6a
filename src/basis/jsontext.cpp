#include "basis/jsontext.h"

#include "basis/ansi.h"
#include "basis/steuerzeichen.h"
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
    if (IstBruchbyte(Zeichen)) Zeichen = AnsiZeichen(static_cast<unsigned char>(Zeichen & 0xFF));
    if (IstSteuerzeichen(Zeichen)) {
        constexpr std::string_view Hex = "0123456789abcdef";
        Ziel += "\\u";
        for (int Stelle = 12; Stelle >= 0; Stelle -= 4)
            Ziel += Hex[(Zeichen >> Stelle) & 15];
    } else {
        ZeichenAnhängen(Ziel, Zeichen);
    }
}

bool BrauchtNichts(char Byte) {
    return Byte >= 0x20 && Byte != 0x7F && Byte != '"' && Byte != '\\';
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
