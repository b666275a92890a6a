#include "suche/umlaute.h"

#include <algorithm>

namespace liedwerk {
namespace {

// The letter that stands for the two bytes of an umlaut or of "ss" as "ß", 0 for any others.
char Grundbuchstabe(char Erstes, char Zweites) {
    if (Zweites == 'e' && (Erstes == 'a' || Erstes == 'o' || Erstes == 'u')) return Erstes;
    if (Erstes != '\xC3') return 0;
    switch (Zweites) {
        case '\xA4':
            return 'a';
        case '\xB6':
            return 'o';
        case '\xBC':
            return 'u';
        case '\x9F':
            return 's';
        default:
            return 0;
    }
}

}  // namespace

std::string UmlauteAuflösen(std::string_view Gefaltet) {
    std::string Ergebnis;
    Ergebnis.reserve(Gefaltet.size());
    for (std::size_t Stelle = 0; Stelle < Gefaltet.size(); ++Stelle) {
        const char Zeichen = Gefaltet[Stelle];
        const char Nächstes = Stelle + 1 < Gefaltet.size() ? Gefaltet[Stelle + 1] : '\0';
        const char Grund = Grundbuchstabe(Zeichen, Nächstes);
        Ergebnis += Grund == 0 ? Zeichen : Grund;
        if (Grund == 's') Ergebnis += 's';
        if (Grund != 0) ++Stelle;
    }
    return Ergebnis;
}

std::string_view Umlautkern(std::string_view Aufgelöst) {
    constexpr std::string_view Mehrdeutige = "aous";
    std::string_view Längster;
    std::size_t Beginn = 0;
    while (Beginn < Aufgelöst.size()) {
        const std::size_t Ende = std::min(Aufgelöst.find_first_of(Mehrdeutige, Beginn), Aufgelöst.size());
        if (Ende - Beginn > Längster.size()) Längster = Aufgelöst.substr(Beginn, Ende - Beginn);
        Beginn = Ende + 1;
    }
    return Längster;
}

}  // namespace liedwerk
