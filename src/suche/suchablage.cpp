#include "suche/suchablage.h"

#include <algorithm>

#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::string_view Trenner = "\t";
constexpr std::size_t TeileJeAbfrage = 3;

std::string_view NameVon(std::string_view Zeile) {
    return Zeile.substr(0, Zeile.find(Trenner));
}

}  // namespace

std::string SuchzeileBilden(const GespeicherteSuche& Suche) {
    std::string Zeile = Ersetzen(Suche.Name, Trenner, " ");
    for (const Suchabfrage& Eine : Suche.Menge.Liste) {
        for (const std::string_view Teil :
             {std::string_view(Eine.Feld), std::string_view(Eine.Code), std::string_view(Eine.Begriff)}) {
            Zeile += Trenner;
            Zeile += Ersetzen(Teil, Trenner, " ");
        }
    }
    return Zeile;
}

std::optional<GespeicherteSuche> SuchzeileZerlegen(std::string_view Zeile) {
    const auto Teile = Teilen(Zeile, Trenner);
    if (Teile.size() < 1 + TeileJeAbfrage || Teile.size() % TeileJeAbfrage != 1 || Teile[0].empty())
        return {};
    GespeicherteSuche Suche{std::string(Teile[0]), {}};
    for (std::size_t Stelle = 1; Stelle < Teile.size(); Stelle += TeileJeAbfrage)
        SucheHinzufügen(Suche.Menge, Teile[Stelle + 2], Teile[Stelle], Teile[Stelle + 1]);
    return Suche;
}

void SucheAblegen(std::vector<std::string>& Zeilen, const GespeicherteSuche& Suche) {
    const std::string Neu = SuchzeileBilden(Suche);
    const auto Alte =
        std::ranges::find_if(Zeilen, [&](const std::string& Eine) { return NameVon(Eine) == NameVon(Neu); });
    if (Alte == Zeilen.end()) {
        Zeilen.push_back(Neu);
    } else {
        *Alte = Neu;
    }
}

}  // namespace liedwerk
