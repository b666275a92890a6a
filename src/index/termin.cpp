#include "index/termin.h"

#include <variant>

#include "basis/zahl.h"

namespace liedwerk {
namespace {

using Terminort = std::variant<std::string Termin::*, std::int16_t Termin::*>;

// Where the fields live, by their numbers.
constexpr std::array<Terminort, TerminFeldAnzahl> Orte = {
    &Termin::Beschreibung, &Termin::Kategorie,         &Termin::Benachrichtigen, &Termin::Datum,
    &Termin::Erledigt,     &Termin::BenachrichtigenAm, &Termin::AngelegtAm,      &Termin::Einheit,
    &Termin::Intervall,    &Termin::AnzeigeDauer,      &Termin::Meldungstext,    &Termin::Anwendung,
};

bool IstTerminfeld(int Feld) {
    return Feld >= 1 && Feld <= TerminFeldAnzahl;
}

}  // namespace

const std::array<std::string_view, TerminFeldAnzahl> TerminFeldnamen = {
    "Beschreibung", "Kategorie", "Benachrichtigen", "Datum",        "Erledigt",     "BenachrichtigenAm",
    "AngelegtAm",   "Einheit",   "Intervall",       "AnzeigeDauer", "Meldungstext", "Anwendung",
};

void TerminFeldSetzen(std::vector<Termin>& Termine, std::string_view Wert, std::size_t Nummer, int Feld) {
    if (!IstTerminfeld(Feld) || Nummer < 1 || Nummer > Termine.size()) return;
    Termin& Eintrag = Termine[Nummer - 1];
    const Terminort& Ort = Orte[static_cast<std::size_t>(Feld - 1)];
    if (const auto* Text = std::get_if<std::string Termin::*>(&Ort)) {
        Eintrag.*(*Text) = Wert;
    } else {
        Eintrag.*std::get<std::int16_t Termin::*>(Ort) = GanzzahlLesen<std::int16_t>(Wert).value_or(0);
    }
}

std::optional<std::int16_t> TerminFeldZahl(const Termin& Eintrag, int Feld) {
    if (!IstTerminfeld(Feld)) return std::nullopt;
    const auto* Zahl = std::get_if<std::int16_t Termin::*>(&Orte[static_cast<std::size_t>(Feld - 1)]);
    return Zahl == nullptr ? std::nullopt : std::optional(Eintrag.*(*Zahl));
}

std::string TerminFeldText(const Termin& Eintrag, int Feld) {
    if (!IstTerminfeld(Feld)) return {};
    const Terminort& Ort = Orte[static_cast<std::size_t>(Feld - 1)];
    const auto* Text = std::get_if<std::string Termin::*>(&Ort);
    std::string Wert =
        Text != nullptr ? Eintrag.*(*Text) : std::to_string(Eintrag.*std::get<std::int16_t Termin::*>(Ort));
    // Kept: a text "0" is dropped too, not only a number.
    return Wert == "0" ? std::string() : Wert;
}

}  // namespace liedwerk
