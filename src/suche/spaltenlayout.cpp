#include "suche/spaltenlayout.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

constexpr std::string_view Nutzerspalte = "Benutzerdefiniert";

bool IstSpalte(std::int32_t Nummer) {
    return Nummer >= 1 && Nummer <= SpaltenAnzahl;
}

const Spalte& SpalteVon(int Nummer) {
    return SpaltenNamen[static_cast<std::size_t>(Nummer - 1)];
}

// An entry of a layout string whose column could be read.
struct Eintrag {
    std::int32_t Nummer = 0;
    std::int32_t Breite = 0;
    std::int32_t Position = 0;
    bool Gültig = false;  // the other numbers could be read and lie in their range
};

std::optional<Eintrag> EintragLesen(std::string_view Text, std::int32_t Ordnung) {
    const auto Teile = Teilen(Text, "=");
    if (Teile.size() < 2) return std::nullopt;
    const auto Nummer = GanzzahlLesen<std::int32_t>(Teile[0]);
    if (!Nummer || !IstSpalte(*Nummer)) return std::nullopt;
    const auto Breite = GanzzahlLesen<std::int32_t>(Teile[1]);
    const auto Position = Teile.size() > 2 ? GanzzahlLesen<std::int32_t>(Teile[2]) : Ordnung;
    // A column that is not shown has no position.
    const bool Gültig = Breite && Position && (*Breite == 0 || IstSpalte(*Position));
    return Eintrag{*Nummer, Gültig ? *Breite : 0, Gültig ? *Position : 0, Gültig};
}

std::vector<Eintrag> EinträgeLesen(std::string_view Spaltenformat) {
    std::vector<Eintrag> Einträge;
    std::int32_t Ordnung = 0;
    for (const auto& Text : Teilen(Spaltenformat, ",")) {
        if (const auto Gelesen = EintragLesen(Text, ++Ordnung)) Einträge.push_back(*Gelesen);
    }
    return Einträge;
}

bool Nennt(const std::vector<Eintrag>& Einträge, std::int32_t Nummer) {
    return std::any_of(Einträge.begin(), Einträge.end(),
                       [&](const Eintrag& Einer) { return Einer.Nummer == Nummer; });
}

std::string EintragText(int Nummer, int Breite, int Position) {
    return std::to_string(Nummer) + '=' + std::to_string(Breite) + '=' + std::to_string(Position);
}

}  // namespace

std::string SpaltenformatVorgabe() {
    std::vector<std::string> Einträge;
    int Position = 0;
    for (int Nummer = 1; Nummer <= SpaltenAnzahl; ++Nummer) {
        const int Breite = SpalteVon(Nummer).Breite;
        // Kept: a column that is not shown repeats the last position.
        if (Breite != 0) ++Position;
        Einträge.push_back(EintragText(Nummer, Breite, Position));
    }
    return Verbinden(Einträge, ",");
}

std::vector<Listenspalte> SpaltenEinrichten(std::string_view Spaltenformat) {
    auto Einträge = EinträgeLesen(Spaltenformat);
    const auto Gültig = [](const Eintrag& Einer) { return Einer.Gültig; };
    if (std::none_of(Einträge.begin(), Einträge.end(), Gültig)) Einträge.clear();
    for (const auto& Ersatz : EinträgeLesen(SpaltenformatVorgabe())) {
        if (!Nennt(Einträge, Ersatz.Nummer)) Einträge.push_back(Ersatz);
    }

    std::stable_sort(Einträge.begin(), Einträge.end(),
                     [](const Eintrag& A, const Eintrag& B) { return A.Position < B.Position; });
    std::vector<Listenspalte> Gezeigt;
    for (const auto& Einer : Einträge) {
        if (!Einer.Gültig || Einer.Breite <= 0) continue;
        std::erase_if(Gezeigt, [&](const Listenspalte& Spalte) { return Spalte.Nummer == Einer.Nummer; });
        Gezeigt.push_back({Einer.Nummer, Einer.Breite});
    }
    return Gezeigt;
}

std::string SpaltenSpeichern(const std::vector<Listenspalte>& Gezeigt, std::string_view Alt) {
    std::vector<int> Reihenfolge;
    const auto Aufnehmen = [&](int Nummer) {
        if (std::find(Reihenfolge.begin(), Reihenfolge.end(), Nummer) == Reihenfolge.end())
            Reihenfolge.push_back(Nummer);
    };
    for (const auto& Einer : EinträgeLesen(Alt))
        Aufnehmen(Einer.Nummer);
    for (int Nummer = 1; Nummer <= SpaltenAnzahl; ++Nummer)
        Aufnehmen(Nummer);

    std::vector<std::string> Einträge;
    for (const int Nummer : Reihenfolge) {
        const auto Fund = std::find_if(Gezeigt.begin(), Gezeigt.end(),
                                       [&](const Listenspalte& Spalte) { return Spalte.Nummer == Nummer; });
        const bool Sichtbar = Fund != Gezeigt.end() && Fund->Breite > 0;
        Einträge.push_back(
            Sichtbar ? EintragText(Nummer, Fund->Breite, static_cast<int>(Fund - Gezeigt.begin()) + 1)
                     : EintragText(Nummer, 0, 0));
    }
    return Verbinden(Einträge, ",");
}

std::string_view Spaltenfeld(const Listenspalte& Spalte) {
    return IstSpalte(Spalte.Nummer) ? SpalteVon(Spalte.Nummer).Name : std::string_view{};
}

std::string Spaltentitel(const Listenspalte& Spalte, std::string_view Nutzerformat) {
    const std::string_view Feld = Spaltenfeld(Spalte);
    return Feld == Nutzerspalte ? Ersetzen(Nutzerformat, "%", "") : std::string(Feld);
}

}  // namespace liedwerk
