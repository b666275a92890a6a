#include "basis/uri.h"

#include <algorithm>
#include <charconv>

#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

bool IstBuchstabe(char Zeichen) {
    return (Zeichen >= 'a' && Zeichen <= 'z') || (Zeichen >= 'A' && Zeichen <= 'Z');
}

bool IstSchemazeichen(char Zeichen) {
    return IstBuchstabe(Zeichen) || (Zeichen >= '0' && Zeichen <= '9') || Zeichen == '+' || Zeichen == '-' ||
           Zeichen == '.';
}

// The byte of two hexadecimal digits.
std::optional<char> HexByte(std::string_view Ziffern) {
    unsigned Byte = 0;
    if (Ziffern.size() != 2) return std::nullopt;
    const auto [Bis, Fehler] = std::from_chars(Ziffern.data(), Ziffern.data() + 2, Byte, 16);
    if (Fehler != std::errc() || Bis != Ziffern.data() + 2) return std::nullopt;
    return static_cast<char>(Byte);
}

bool HatLaufwerksbuchstaben(std::string_view Pfad) {
    return Pfad.size() >= 2 && IstBuchstabe(Pfad[0]) && Pfad[1] == ':';
}

}  // namespace

std::string_view UriSchema(std::string_view Text) {
    const std::size_t Ende = Text.find(':');
    if (Ende == std::string_view::npos || Ende < 2 || !IstBuchstabe(Text.front())) return {};
    const auto Schema = Text.substr(0, Ende);
    return std::all_of(Schema.begin(), Schema.end(), IstSchemazeichen) ? Schema : std::string_view();
}

std::string ProzentKodieren(std::string_view Bytes) {
    constexpr std::string_view Ziffern = "0123456789ABCDEF";
    std::string Text;
    for (const char Byte : Bytes) {
        if (IstSchemazeichen(Byte) ? Byte != '+' : Byte == '_' || Byte == '~') {
            Text += Byte;
            continue;
        }
        const auto Wert = static_cast<unsigned char>(Byte);
        Text += {'%', Ziffern[Wert / 16], Ziffern[Wert % 16]};
    }
    return Text;
}

std::string ProzentAuflösen(std::string_view Text) {
    std::string Ergebnis;
    for (std::size_t Stelle = 0; Stelle < Text.size(); ++Stelle) {
        const auto Byte = Text[Stelle] == '%' ? HexByte(Text.substr(Stelle + 1, 2)) : std::nullopt;
        Ergebnis += Byte.value_or(Text[Stelle]);
        if (Byte) Stelle += 2;
    }
    return Ergebnis;
}

std::optional<std::string> PfadAusUri(std::string_view Adresse) {
    if (!GleichOhneGroß(UriSchema(Adresse), "file")) return std::nullopt;
    Adresse.remove_prefix(5);
    if (Adresse.starts_with("//")) {
        Adresse.remove_prefix(std::min(Adresse.find('/', 2), Adresse.size()));
    }
    std::string Pfad = ProzentAuflösen(Adresse);
    if (!IstPosixPfad(Pfad) || Pfad.find('\0') != std::string::npos) return std::nullopt;
    if (HatLaufwerksbuchstaben(std::string_view(Pfad).substr(1))) return Ersetzen(Pfad.substr(1), "/", "\\");
    return Pfad;
}

}  // namespace liedwerk
