// A reminder as the index file holds it. Recurrence and firing stand in termine/.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

struct Termin {
    std::string Beschreibung;
    std::string Kategorie;
    std::int16_t Benachrichtigen = 0;  // 1: the reminder is on
    std::string Datum;                 // "dd.mm.yyyy hh:nn:ss", may be empty
    std::string Erledigt;              // empty, or "1" when nothing further is planned
    std::string BenachrichtigenAm;
    std::string AngelegtAm;
    std::string Einheit;  // "n", "h", "d", "m", "y"; empty for no recurrence
    std::int16_t Intervall = 0;
    std::int16_t AnzeigeDauer = 0;  // seconds; 0 = until closed
    std::string Meldungstext;
    std::string Anwendung;
    bool operator==(const Termin&) const = default;
};

inline constexpr int TerminFeldAnzahl = 12;
// The reader accepts one length more than there are fields.
inline constexpr int TerminLängenAnzahl = 13;

// The fields' names in the order of their numbers 1 to 12.
extern const std::array<std::string_view, TerminFeldAnzahl> TerminFeldnamen;

// Stores field Feld (1 to 12) of reminder Nummer (1-based); an empty or non-numeric number gives 0, a number
// of a field that does not exist is ignored.
void TerminFeldSetzen(std::vector<Termin>& Termine, std::string_view Wert, std::size_t Nummer, int Feld);

// The value of a field that is a number; nothing for a text.
std::optional<std::int16_t> TerminFeldZahl(const Termin& Eintrag, int Feld);
// The text of a field as a line holds it: a value "0" is an empty one.
std::string TerminFeldText(const Termin& Eintrag, int Feld);

}  // namespace liedwerk
