// The settings' store: where the table of basis/einstellungen.h meets the named values.
#pragma once

#include <string>
#include <string_view>

#include "basis/einstellungen.h"
#include "plattform/wertspeicher.h"

namespace liedwerk {

// WertLesen: the stored value when it is there and of the variable's kind (numbers: within its width), else
// the default.
void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::string& Variable);
void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::int16_t& Variable);
void WertLesen(const Wertspeicher& Wurzel, std::string_view Name, std::int32_t& Variable);

// EinstellungenLesen: all values and lists from the user's root, or from the machine's while only that has a
// Start.
Einstellungen EinstellungenLesen(const Wertspeicher& Nutzer, const Wertspeicher* Rechner);
// EinstellungenSchreiben: all values in the order of the table, then the lists. Empty on success, else the
// reason.
std::string EinstellungenSchreiben(const Einstellungen& Werte, Wertspeicher& Nutzer);

// Sets one value by its name from text ("--setze NAME=WERT"); false for an unknown name or a value of another
// kind.
bool EinstellungSetzen(Einstellungen& Werte, std::string_view Name, std::string_view Text);

}  // namespace liedwerk
