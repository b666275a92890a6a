#include "ui/text/json.h"

#include "basis/ansi.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// Codes of ZeichenLesen for bytes that belong to no valid character.
constexpr char32_t BruchbyteAnfang = 0xDC80;
constexpr char32_t BruchbyteEnde = 0xDCFF;

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
    } else if (Zeichen >= BruchbyteAnfang && Zeichen <= BruchbyteEnde) {
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

// One entry of the outermost list a line: still one document, but a person and line tools can read it.
void JsonSchreiber::Trennen() {
    if (KommaNötig) Ziel.Schreiben(Tiefe == 1 ? ",\n" : ",");
    KommaNötig = true;
}

void JsonSchreiber::Öffnen(char Klammer) {
    Trennen();
    Ziel.Schreiben({&Klammer, 1});
    ++Tiefe;
    KommaNötig = false;
}

void JsonSchreiber::Schließen(char Klammer) {
    Ziel.Schreiben({&Klammer, 1});
    --Tiefe;
    KommaNötig = true;
    if (Tiefe == 0) Ziel.Schreiben("\n");
}

void JsonSchreiber::Name(std::string_view Schlüssel) {
    Trennen();
    Ziel.Schreiben(JsonText(Schlüssel));
    Ziel.Schreiben(":");
    KommaNötig = false;
}

void JsonSchreiber::Text(std::string_view Inhalt) {
    Trennen();
    Ziel.Schreiben(JsonText(Inhalt));
}

void JsonSchreiber::Zahl(std::int64_t Inhalt) {
    Trennen();
    Ziel.Schreiben(std::to_string(Inhalt));
}

void JsonSchreiber::Wahrheit(bool Inhalt) {
    Trennen();
    Ziel.Schreiben(Inhalt ? "true" : "false");
}

void JsonSchreiber::Null() {
    Trennen();
    Ziel.Schreiben("null");
}

void JsonSchreiber::Text(std::string_view Schlüssel, std::string_view Inhalt) {
    Name(Schlüssel);
    Text(Inhalt);
}

void JsonSchreiber::Zahl(std::string_view Schlüssel, std::int64_t Inhalt) {
    Name(Schlüssel);
    Zahl(Inhalt);
}

void JsonSchreiber::Wahrheit(std::string_view Schlüssel, bool Inhalt) {
    Name(Schlüssel);
    Wahrheit(Inhalt);
}

}  // namespace liedwerk
