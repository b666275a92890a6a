// The command line of liedwerk-cli as a value.
//
// ui/text is the core without a window, for scripts, servers and tests: AufrufLesen (here) turns the
// arguments into a value and judges their form by the command table (befehle.h); a command checks its own
// values, then makes a Programmlauf (lauf.h), which opens settings, ports and index, calls the procedures
// that the window calls too, and puts the result out as a table for a person (ausgabe.h) or as one JSON
// document (json.h). Nothing acts before everything that was typed has been found sensible.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basis/datum.h"

namespace liedwerk {

// Exit status of the program.
enum class Ausgang { Gelungen = 0, Fehlgeschlagen = 1, FalscherAufruf = 2 };

// An option of a command: "--name", with a value or as a switch.
struct Optionsform {
    std::string_view Name;
    bool MitWert = false;
};

struct Globaloptionen {
    std::string Index;
    std::string Programmordner;
    std::string Einstellungen;
    std::vector<std::pair<std::string, std::string>> Setzen;  // names and values, already found valid
    std::optional<Zeitpunkt> Jetzt;
    bool Ja = false;
    bool Json = false;
    bool Still = false;
    std::string Kommandozeile;  // all of it, for the head of the action log
};

// What was typed behind the command.
class Befehlseingabe {
  public:
    std::vector<std::pair<std::string_view, std::string>> Optionen;  // in the order of typing
    std::vector<std::string> Argumente;

    bool Hat(std::string_view Name) const;
    // The last value of an option.
    std::optional<std::string> Wert(std::string_view Name) const;
    std::vector<std::string> AlleWerte(std::string_view Name) const;
};

struct Befehl;

struct Aufruf {
    const Befehl* Gewählt = nullptr;  // null: only Hilfe or Version, or a fault
    Globaloptionen Global;
    Befehlseingabe Eingabe;
    bool Hilfe = false;
    bool Version = false;
    std::string Fehler;  // what is wrong, for the person; empty when the form is right
};

// Options of the program and of the command may stand anywhere behind the command; "--" ends them.
Aufruf AufrufLesen(const std::vector<std::string>& Argumente);

// Cuts "A,B,C"; empty pieces are dropped.
std::vector<std::string> NamenslisteLesen(std::string_view Text);

}  // namespace liedwerk
