#include "medien/schreibweise.h"

#include <cstddef>

#include "basis/text.h"

namespace liedwerk {
namespace {

// True when the character behind this one begins a word. Every other character, the separators _ ; : , ' /
// \ § among them, leaves what follows small.
bool HebtNächstes(char32_t Zeichen, bool NurErster) {
    if (Zeichen == U' ') return !NurErster;
    return std::u32string_view(U"-()[]}{<>%$&*+~#\"").find(Zeichen) != std::u32string_view::npos;
}

}  // namespace

std::string Schreibweise(std::string_view Text, bool NurErster) {
    const std::string Klein = Kleinbuchstaben(Text);
    std::string Ergebnis;
    Ergebnis.reserve(Klein.size());
    bool Heben = true;
    for (std::size_t Stelle = 0; Stelle < Klein.size();) {
        const std::size_t Anfang = Stelle;
        const char32_t Zeichen = ZeichenLesen(Klein, Stelle);
        const std::string_view Bytes = std::string_view(Klein).substr(Anfang, Stelle - Anfang);
        if (Heben)
            Ergebnis += Großbuchstaben(Bytes);
        else
            Ergebnis += Bytes;
        Heben = HebtNächstes(Zeichen, NurErster);
    }
    return Ersetzen(Ersetzen(Ergebnis, "Http://", "http://"), "Www.", "www.");
}

}  // namespace liedwerk
