// A reminder as the index file holds it, and the list of all. Recurrence and firing stand in termine/.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
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

// Stores field Feld (1 to 12) of a reminder; an empty or non-numeric number gives 0, a number of a field that
// does not exist is ignored.
void TerminFeldSetzen(Termin& Eintrag, std::string_view Wert, int Feld);

// The value of a field that is a number; nothing for a text.
std::optional<std::int16_t> TerminFeldZahl(const Termin& Eintrag, int Feld);
// The text of a field as a line holds it: a value "0" is an empty one.
std::string TerminFeldText(const Termin& Eintrag, int Feld);

// The reminders of an index in their order. Each is held as one short text, not as nine: a broken file may
// have a million lines of reminders that hold nothing. Platz counts from 0 and is below size().
class Terminliste {
  public:
    Terminliste() = default;
    Terminliste(std::initializer_list<Termin> Anfang);

    std::size_t size() const { return Einträge.size(); }
    bool empty() const { return Einträge.empty(); }
    void clear() { Einträge.clear(); }
    // A copy; changes go back by Setzen.
    Termin operator[](std::size_t Platz) const;
    void Setzen(std::size_t Platz, const Termin& Eintrag);
    void push_back(const Termin& Eintrag);
    void Entfernen(std::size_t Platz);
    bool operator==(const Terminliste&) const = default;

    class Stelle {
      public:
        using value_type = Termin;
        using difference_type = std::ptrdiff_t;
        Stelle() = default;
        Stelle(const Terminliste& Liste, std::size_t Erster) : Alle(&Liste), Platz(Erster) {}
        Termin operator*() const { return (*Alle)[Platz]; }
        Stelle& operator++() {
            ++Platz;
            return *this;
        }
        Stelle operator++(int) { return {*Alle, Platz++}; }
        bool operator==(const Stelle&) const = default;

      private:
        const Terminliste* Alle = nullptr;
        std::size_t Platz = 0;
    };
    Stelle begin() const { return {*this, 0}; }
    Stelle end() const { return {*this, size()}; }

  private:
    std::vector<std::string> Einträge;
};
static_assert(std::input_iterator<Terminliste::Stelle>);

}  // namespace liedwerk
