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

// A number in groups of seven bits, the lowest first; all but the last have the top bit.
void ZahlAnhängen(std::string& Ziel, std::uint64_t Zahl) {
    for (; Zahl >= 0x80; Zahl >>= 7)
        Ziel += static_cast<char>(Zahl | 0x80);
    Ziel += static_cast<char>(Zahl);
}

std::uint64_t ZahlNehmen(std::string_view& Rest) {
    std::uint64_t Zahl = 0;
    for (unsigned Stelle = 0; !Rest.empty(); Stelle += 7) {
        const auto Byte = static_cast<unsigned char>(Rest.front());
        Rest.remove_prefix(1);
        Zahl |= std::uint64_t{Byte & 0x7FU} << Stelle;
        if (Byte < 0x80) break;
    }
    return Zahl;
}

// All fields behind one another, a text with its length in front. What is missing at the end is zero: a
// reminder without content is an empty text.
std::string Packen(const Termin& Eintrag) {
    std::string Bytes;
    for (const Terminort& Ort : Orte) {
        if (const auto* Text = std::get_if<std::string Termin::*>(&Ort)) {
            ZahlAnhängen(Bytes, (Eintrag.*(*Text)).size());
            Bytes += Eintrag.*(*Text);
        } else {
            ZahlAnhängen(Bytes, static_cast<std::uint16_t>(Eintrag.*std::get<std::int16_t Termin::*>(Ort)));
        }
    }
    while (Bytes.ends_with('\0'))
        Bytes.pop_back();
    Bytes.shrink_to_fit();
    return Bytes;
}

Termin Entpacken(std::string_view Bytes) {
    Termin Eintrag;
    for (const Terminort& Ort : Orte) {
        const std::uint64_t Zahl = ZahlNehmen(Bytes);
        if (const auto* Text = std::get_if<std::string Termin::*>(&Ort)) {
            // The zeros at the end of the last text may have been left out.
            Eintrag.*(*Text) = Bytes.substr(0, Zahl);
            Bytes.remove_prefix((Eintrag.*(*Text)).size());
            (Eintrag.*(*Text)).resize(Zahl, '\0');
        } else {
            Eintrag.*std::get<std::int16_t Termin::*>(Ort) =
                static_cast<std::int16_t>(static_cast<std::uint16_t>(Zahl));
        }
    }
    return Eintrag;
}

}  // namespace

const std::array<std::string_view, TerminFeldAnzahl> TerminFeldnamen = {
    "Beschreibung", "Kategorie", "Benachrichtigen", "Datum",        "Erledigt",     "BenachrichtigenAm",
    "AngelegtAm",   "Einheit",   "Intervall",       "AnzeigeDauer", "Meldungstext", "Anwendung",
};

void TerminFeldSetzen(Termin& Eintrag, std::string_view Wert, int Feld) {
    if (!IstTerminfeld(Feld)) return;
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

Terminliste::Terminliste(std::initializer_list<Termin> Anfang) {
    for (const Termin& Einer : Anfang)
        push_back(Einer);
}

Termin Terminliste::operator[](std::size_t Platz) const {
    return Entpacken(Einträge[Platz]);
}

void Terminliste::Setzen(std::size_t Platz, const Termin& Eintrag) {
    Einträge[Platz] = Packen(Eintrag);
}

void Terminliste::push_back(const Termin& Eintrag) {
    Einträge.push_back(Packen(Eintrag));
}

void Terminliste::Entfernen(std::size_t Platz) {
    Einträge.erase(Einträge.begin() + static_cast<std::ptrdiff_t>(Platz));
}

}  // namespace liedwerk
