#include "core/cdfunktionen.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <ranges>
#include <string>
#include <utility>

#include "basis/text.h"
#include "medien/schreibweise.h"

namespace liedwerk {
namespace {

// Between artist and title of a sampler's track: the database's own separator, else what people type.
constexpr std::string_view Trenner = " / ";
constexpr std::string_view Gedankenstrich = " - ";
constexpr std::string_view Verschiedene = "Various";

// The titles that are played.
auto TitelVon(CDDaten& Daten) {
    return std::span(Daten.Titel)
               .first(static_cast<std::size_t>(std::clamp<int>(Daten.AnzahlTitel, 0, int{CDHöchsteTitel}))) |
           std::views::filter([](const CDTitel& Einer) { return !Einer.Datenspur; });
}

// The two sides of a separator; nothing when the text has none.
std::optional<std::pair<std::string, std::string>> Zerlegen(std::string_view Text) {
    for (const std::string_view Einer : {Trenner, Gedankenstrich}) {
        const auto Stelle = Text.find(Einer);
        if (Stelle != std::string_view::npos)
            return std::pair(std::string(Text.substr(0, Stelle)),
                             std::string(Text.substr(Stelle + Einer.size())));
    }
    return std::nullopt;
}

bool TitelTeileTauschen(CDDaten& Daten) {
    bool Geändert = false;
    for (CDTitel& Einer : TitelVon(Daten)) {
        const auto Teile = Zerlegen(Einer.Titel);
        if (!Teile) continue;
        Einer.Titel = Teile->second + std::string(Trenner) + Teile->first;
        Geändert = true;
    }
    return Geändert;
}

// "Anna Berg / Morgenlicht" in every title: the artist is the disc's when all name the same, else the disc is
// a sampler and keeps them in its titles.
bool InterpretAusTiteln(CDDaten& Daten) {
    auto Titel = TitelVon(Daten);
    if (Titel.empty()) return false;
    const auto Erster = Zerlegen(Titel.front().Titel);
    const bool AlleZerlegbar =
        std::ranges::all_of(Titel, [](const CDTitel& Einer) { return Zerlegen(Einer.Titel).has_value(); });
    if (!AlleZerlegbar) return false;
    const bool AlleGleich = std::ranges::all_of(Titel, [&](const CDTitel& Einer) {
        return GleichOhneGroß(Zerlegen(Einer.Titel)->first, Erster->first);
    });
    Daten.Interpret = AlleGleich ? Erster->first : std::string(Verschiedene);
    for (CDTitel& Einer : Titel) {
        const auto Teile = *Zerlegen(Einer.Titel);
        Einer.Titel = AlleGleich ? Teile.second : Teile.first + std::string(Trenner) + Teile.second;
    }
    return true;
}

bool InterpretVorTitel(CDDaten& Daten) {
    if (Daten.Interpret.empty()) return false;
    for (CDTitel& Einer : TitelVon(Daten))
        Einer.Titel = Daten.Interpret + std::string(Trenner) + Einer.Titel;
    return true;
}

template <class Umformung>
bool AlleTexte(CDDaten& Daten, const Umformung& Form) {
    bool Geändert = false;
    const auto Eines = [&](std::string& Text) {
        std::string Neu = Form(Text);
        Geändert = Geändert || Neu != Text;
        Text = std::move(Neu);
    };
    Eines(Daten.Album);
    Eines(Daten.Interpret);
    for (CDTitel& Einer : TitelVon(Daten))
        Eines(Einer.Titel);
    return Geändert;
}

}  // namespace

void CDAlbumInterpretTauschen(CDDaten& Daten) {
    std::swap(Daten.Album, Daten.Interpret);
}

std::span<const CDFunktion> CDFunktionen() {
    static constexpr CDFunktion Alle[] = {
        {"&Interpret aus den Titeln übernehmen (Interpret / Titel)", InterpretAusTiteln},
        {"Interpret &vor die Titel setzen (Interpret / Titel)", InterpretVorTitel},
        {"Interpret und Titel &tauschen (Titel / Interpret)", TitelTeileTauschen},
        {"&Jedes Wort groß",
         [](CDDaten& Daten) {
             return AlleTexte(Daten, [](const std::string& Text) { return Schreibweise(Text, false); });
         }},
        {"&Erstes Wort groß",
         [](CDDaten& Daten) {
             return AlleTexte(Daten, [](const std::string& Text) { return Schreibweise(Text, true); });
         }},
        {"Alles &klein",
         [](CDDaten& Daten) {
             return AlleTexte(Daten, [](const std::string& Text) { return Kleinbuchstaben(Text); });
         }},
        {"Alles &groß",
         [](CDDaten& Daten) {
             return AlleTexte(Daten, [](const std::string& Text) { return Großbuchstaben(Text); });
         }},
    };
    return Alle;
}

}  // namespace liedwerk
