// The options that a person decides: one table says on which page of frmOptionen a setting stands, in which
// group, under which label, of what kind it is and what it may hold.
//
// The form builds its controls from this table, its search looks into it, defaults and checks go by it. A
// setting that is not here is either the memory of a form (its last input) or of the program (window, files).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "basis/einstellungen.h"

namespace liedwerk {

enum class Optionsseite : std::uint8_t {
    Allgemein,
    Suche,
    Darstellung,
    Wiedergabe,
    Dateien,
    Medien,
    Tags,
    Cd,
    Sicherheit,
    Hinweise,
};

// A page: its name in the list, its symbol, and the sentence on top of it.
struct Optionsblatt {
    Optionsseite Seite;
    std::string_view Name;
    const char* Bild;
    std::string_view Satz;
};

enum class Optionsart : std::uint8_t {
    Schalter,  // 1 on, 0 off
    Stelle,    // the digit at place Mindestens (0-based) of a text of digits, "1" on
    Laufend,   // a running number that is on above 0: switching on begins with 1
    Zahl,      // from Mindestens to Höchstens
    Text,
    Programm,  // a text that names a program file
    Wahl,      // one of Auswahl
    Schrift,   // the name of a font
    Farbe,     // 0xBBGGRR, or DesktopFarbe
};

struct Optionswahl {
    std::int32_t Wert;
    std::string_view Name;
    std::int32_t Auch = Wert;  // another number of the same meaning
    bool Sonst = false;        // what every number means that is none of these
};

using Optionsort =
    std::variant<std::int16_t Einstellungen::*, std::int32_t Einstellungen::*, std::string Einstellungen::*>;

struct Option {
    Optionsseite Seite;
    std::string_view Gruppe;
    std::string_view Name;  // of the setting
    Optionsort Ort;
    Optionsart Art;
    std::string_view Beschriftung;  // with the key of its letter ("&")
    std::string_view Hinweis{};     // a sentence for whoever stays on it with the pointer
    std::int32_t Mindestens = 0;
    std::int32_t Höchstens = 0;
    std::string_view Einheit{};
    std::string_view Nullwort{};  // stands for Mindestens
    std::span<const Optionswahl> Auswahl{};
    std::string_view Voraussetzung{};  // name of the switch that must be on
    // What is wrong with a text, for the person; empty when nothing is.
    std::string (*Prüfen)(std::string_view Text) = nullptr;
};

std::span<const Optionsblatt> Optionsblätter();
std::span<const Option> Optionen();

// The value of an option as a number: of a switch 1 or 0, of a text that holds none 0.
std::int32_t OptionZahl(const Einstellungen& Werte, const Option& Eine);
void OptionZahlSetzen(Einstellungen& Werte, const Option& Eine, std::int32_t Zahl);
// The place of the choice that a number means; without one for other numbers the first stands for them.
std::size_t Wahlplatz(std::span<const Optionswahl> Auswahl, std::int32_t Zahl);
// The text of a text option; empty for the other kinds.
std::string OptionText(const Einstellungen& Werte, const Option& Eine);
void OptionTextSetzen(Einstellungen& Werte, const Option& Eine, std::string_view Text);
bool OptionGleich(const Einstellungen& A, const Einstellungen& B, const Option& Eine);
// Takes the default.
void OptionVorgabe(Einstellungen& Werte, const Option& Eine);

struct Optionsfehler {
    const Option* Wo;
    std::string Meldung;
};
// The first option that differs from Alt and is wrong. What the person has not touched is no reason to stop.
std::optional<Optionsfehler> OptionenPrüfen(const Einstellungen& Neu, const Einstellungen& Alt);

// What is wrong with the name of a CD database server ("host" or "host:port"); an empty text is right.
std::string ServernamePrüfen(std::string_view Text);

}  // namespace liedwerk
