// Index clean-up, the plan: which files shall be deleted, binned, replaced or only forgotten.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "suche/aufraeumen.h"

namespace liedwerk {

// Aktion1, Aktion2: the list index of cboAktion1 and cboAktion2.
enum class Aufräumaktion : std::uint8_t {
    Keine = 0,
    Löschen = 1,
    Papierkorb = 2,
    AusIndexEntfernen = 3,
    Ersetzen = 4,
};

// The entries of cboAktion1 and cboAktion2.
inline constexpr std::array<std::string_view, 5> Aufräumaktionen = {
    "Keine Aktion",
    "Löschen",
    "In Papierkorb verschieben",
    "Aus Index entfernen",
    "Ersetzen durch leere Datei mit Endung \".inanderemordner\"",
};
// What the name of the empty file has behind the original's.
inline constexpr std::string_view Ersatzendung = ".inanderemordner";

// A row of lstEinträge with what was chosen for each of its sides.
struct Aufräumzeile {
    Aufräumfund Fund;
    Aufräumaktion Aktion1 = Aufräumaktion::Keine;
    Aufräumaktion Aktion2 = Aufräumaktion::Keine;
};

// The records of each action, rising; no record has two.
struct Aufräumplan {
    std::vector<Satznummer> Löschen;
    std::vector<Satznummer> Papierkorb;
    std::vector<Satznummer> AusIndexEntfernen;
    std::vector<Satznummer> Ersetzen;
    bool Leer() const {
        return Löschen.empty() && Papierkorb.empty() && AusIndexEntfernen.empty() && Ersetzen.empty();
    }
};
// A record may stand in two rows; of two actions for it the one holds that takes less away.
Aufräumplan AufräumplanBilden(std::span<const Aufräumzeile> Zeilen);

// The message of a plan without any action, and the question in front of one with some.
inline constexpr std::string_view AufräumenOhneAktion =
    "Bitte wählen Sie eine Aktion für mindestens eine gefundene Datei.";
std::string AufräumFrage(const Aufräumplan& Plan);

}  // namespace liedwerk
