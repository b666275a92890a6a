#include "suche/textsammler.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace liedwerk {
namespace {

constexpr std::size_t Blockgröße = std::size_t{1} << 18;
constexpr std::size_t ErsteFächer = 1024;  // a power of two, as every later number

}  // namespace

Textsammler::Aufnahme Textsammler::Aufnehmen(std::string_view Text) {
    if (2 * (Texte.size() + 1) > Fächer.size()) Vergrößern();
    const auto Streuwert = static_cast<std::uint32_t>(std::hash<std::string_view>{}(Text));
    for (std::size_t i = Streuwert & (Fächer.size() - 1);; i = (i + 1) & (Fächer.size() - 1)) {
        Fach& Platz = Fächer[i];
        if (Platz.Nummer == 0) {
            Texte.push_back(Ablegen(Text));
            Platz = {Streuwert, Anzahl()};
            return {Anzahl() - 1, true};
        }
        if (Platz.Streuwert == Streuwert && Texte[Platz.Nummer - 1] == Text) return {Platz.Nummer - 1, false};
    }
}

std::uint32_t Textsammler::Anhängen(std::string_view Text) {
    Texte.push_back(Ablegen(Text));
    return Anzahl() - 1;
}

void Textsammler::Vergrößern() {
    std::vector<Fach> Neue(std::max(ErsteFächer, 4 * Fächer.size()));
    for (const Fach& Alt : Fächer) {
        if (Alt.Nummer == 0) continue;
        std::size_t i = Alt.Streuwert & (Neue.size() - 1);
        while (Neue[i].Nummer != 0)
            i = (i + 1) & (Neue.size() - 1);
        Neue[i] = Alt;
    }
    Fächer = std::move(Neue);
}

std::string_view Textsammler::Ablegen(std::string_view Text) {
    if (Text.empty()) return {};
    if (Text.size() > Rest) {
        Rest = std::max(Blockgröße, Text.size());
        Blöcke.push_back(std::make_unique_for_overwrite<char[]>(Rest));
        Frei = Blöcke.back().get();
    }
    std::memcpy(Frei, Text.data(), Text.size());
    const std::string_view Abgelegt(Frei, Text.size());
    Frei += Text.size();
    Rest -= Text.size();
    return Abgelegt;
}

}  // namespace liedwerk
