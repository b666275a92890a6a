// Recognition: finds the records that belong to what the player plays, and counts the play.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basis/datum.h"
#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "index/katalog.h"

namespace liedwerk {

// What the window remembers of the title that runs.
struct Titelerkennung {
    std::string ErkannterTitel;     // the last title seen
    std::uint64_t Durchgang = 0;    // its play, as the player counts them
    Zeitpunkt TitelStart;           // when it was first seen
    bool TitelVerarbeitet = false;  // it has been dealt with
    bool TitelErkannt = false;      // it was found in the index
    // Paths of plays that were counted when they were handed over, to a player that nobody could watch then.
    std::vector<std::string> VorabGezählt{};
};

// What is played now. Dateien: paths that the player names, any of them may be the file; Durchgang as in
// Spielerlage.
struct GespielterTitel {
    std::string Titel;
    std::vector<std::string> Dateien{};
    std::uint64_t Durchgang = 0;
};

// To be called again and again while a title plays. Once it has played for more than 30 seconds the records
// that it fits get the date Jetzt and a count, and the status text tells how many they were. A file that the
// player names counts by its path; where no record has it, the title decides. Always true.
bool TitelErkennen(Titelerkennung& Erkennung, Katalog& Index, const Einstellungen& Werte, Oberfläche& Person,
                   const GespielterTitel& Gespielt, const Zeitpunkt& Jetzt);

// The records that a title fits, rising: by the tags ("Interpret - Titel"), else by the file names. A million
// records take some tens of milliseconds.
std::vector<Satznummer> SätzeZumTitel(const Katalog& Index, std::string_view Titel);

}  // namespace liedwerk
