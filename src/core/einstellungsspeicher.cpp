#include "core/einstellungsspeicher.h"

#include <charconv>
#include <limits>
#include <optional>

namespace liedwerk {
namespace {

template <class Ganzzahl>
void ZahlLesen(const Wertspeicher& Wurzel, std::string_view Name, Ganzzahl& Variable) {
    const auto Gespeichert = Wurzel.Lesen(Name);
    const auto* Zahl = Gespeichert ? std::get_if<std::int32_t>(&*Gespeichert) : nullptr;
    if (Zahl && *Zahl >= std::numeric_limits<Ganzzahl>::min() &&
        *Zahl <= std::numeric_limits<Ganzzahl>::max())
        Variable = static_cast<Ganzzahl>(*Zahl);
}

// The name of entry Nummer (1-based) of a list.
std::string Listenname(std::string_view Name, std::size_t Nummer) {
    return std::string(Name) + std::to_string(Nummer);
}

std::int16_t Startzahl(const Wertspeicher& Wurzel) {
    std::int16_t Start = 0;
    WertLesen(Wurzel, "Start", Start);
    return Start;
}

bool AusText(std::string& Ziel, std::string_view Text) {
    Ziel = Text;
    return true;
}

template <class Ganzzahl>
bool AusText(Ganzzahl& Ziel, std::string_view Text) {
    Ganzzahl Wert = 0;
    const auto [Ende, Fehler] = std::from_chars(Text.data(), Text.data() + Text.size(), Wert);
    if (Fehler != std::errc() || Ende != Text.data() + Text.size()) return false;
    Ziel = Wert;
    return true;
}

// Sets or appends the entry that Name names when it is the list's name and a number; the list has no gaps.
bool ListeneintragSetzen(std::vector<std::string>& Liste, std::string_view Listenanfang,
                         std::string_view Name, std::string_view Text) {
    if (!Name.starts_with(Listenanfang)) return false;
    std::size_t Nummer = 0;
    if (!AusText(Nummer, Name.substr(Listenanfang.size())) || Nummer < 1 || Nummer > Liste.size() + 1)
        return false;
    if (Nummer > Liste.size()) Liste.emplace_back();
    Liste[Nummer - 1] = Text;
    return true;
}

}  // namespace

void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::string& Variable) {
    auto Gespeichert = Wurzel.Lesen(Name);
    if (auto* Text = Gespeichert ? std::get_if<std::string>(&*Gespeichert) : nullptr)
        Variable = std::move(*Text);
}
void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::int16_t& Variable) {
    ZahlLesen(Wurzel, Name, Variable);
}
void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::int32_t& Variable) {
    ZahlLesen(Wurzel, Name, Variable);
}

Einstellungen EinstellungenLesen(const Wertspeicher& Nutzer, const Wertspeicher* Rechner) {
    const bool VomRechner = Startzahl(Nutzer) == 0 && Rechner && Startzahl(*Rechner) != 0;
    const Wertspeicher& Wurzel = VomRechner ? *Rechner : Nutzer;
    Einstellungen Werte;
    FürJedeEinstellung(Werte,
                       [&](std::string_view Name, auto& Variable) { WertLesen(Wurzel, Name, Variable); });
    FürJedeEinstellungsliste(Werte, [&](std::string_view Name, std::vector<std::string>& Liste) {
        for (std::size_t Nummer = 1;; ++Nummer) {
            auto Gespeichert = Wurzel.Lesen(Listenname(Name, Nummer));
            auto* Text = Gespeichert ? std::get_if<std::string>(&*Gespeichert) : nullptr;
            if (!Text) break;
            Liste.push_back(std::move(*Text));
        }
    });
    return Werte;
}

std::string EinstellungenSchreiben(const Einstellungen& Werte, Wertspeicher& Nutzer) {
    FürJedeEinstellung(
        Werte, [&](std::string_view Name, const auto& Variable) { Nutzer.Schreiben(Name, Variable); });
    FürJedeEinstellungsliste(Werte, [&](std::string_view Name, const std::vector<std::string>& Liste) {
        for (std::size_t Nummer = 1; Nummer <= Liste.size(); ++Nummer)
            Nutzer.Schreiben(Listenname(Name, Nummer), Liste[Nummer - 1]);
        // The gap behind the last entry ends the list for the reader.
        Nutzer.Löschen(Listenname(Name, Liste.size() + 1));
    });
    return Nutzer.Sichern();
}

bool EinstellungSetzen(Einstellungen& Werte, std::string_view Name, std::string_view Text) {
    bool Gesetzt = false;
    FürJedeEinstellung(Werte, [&](std::string_view Eigener, auto& Variable) {
        if (Eigener == Name) Gesetzt = AusText(Variable, Text);
    });
    FürJedeEinstellungsliste(Werte, [&](std::string_view Listenanfang, std::vector<std::string>& Liste) {
        Gesetzt = Gesetzt || ListeneintragSetzen(Liste, Listenanfang, Name, Text);
    });
    return Gesetzt;
}

}  // namespace liedwerk
