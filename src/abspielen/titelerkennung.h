// Recognition: finds the records that belong to what the player plays, and counts the play.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "abspielen/titelsuche.h"
#include "basis/datum.h"
#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "index/katalog.h"

namespace liedwerk {

// Plays that were counted when they were handed over, to a player that nobody could watch then. Each of them
// goes when its play is recognised. What is left ends with the list that it stands in: when a new list takes
// its place, when the player ends, when another player is set.
struct Vorabzählung {
    std::string Spieler;  // WinampPfad at the hand-over
    std::vector<std::string> Pfade;
    bool SpielerGesehen = false;  // the player has shown itself since
};

// What the window remembers of the title that runs.
struct Titelerkennung {
    std::string ErkannterTitel;         // the last title seen
    std::uint64_t Durchgang = 0;        // its play, as the player counts them
    Zeitpunkt TitelStart;               // when it was first seen
    bool TitelVerarbeitet = false;      // it has been dealt with
    bool TitelErkannt = false;          // it was found in the index
    std::optional<Titelsuche> Suche{};  // under way: the title has played long enough
    Vorabzählung Vorab{};
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
// player names counts by its path; where no record has it, the title decides. Each call searches for some ten
// milliseconds at most: while Erkennung.Suche is there, the next call is wanted soon. Always true.
bool TitelErkennen(Titelerkennung& Erkennung, Katalog& Index, const Einstellungen& Werte, Oberfläche& Person,
                   const GespielterTitel& Gespielt, const Zeitpunkt& Jetzt);

// A play that was counted at its hand-over.
void VorabVermerken(Vorabzählung& Vorab, const Einstellungen& Werte, std::string_view Pfad);
// To be told at each look whether the player is there.
void VorabPrüfen(Vorabzählung& Vorab, bool SpielerDa);

// The records that a title fits, rising: by the tags ("Interpret - Titel"), else by the file names.
std::vector<Satznummer> SätzeZumTitel(const Katalog& Index, std::string_view Titel);

}  // namespace liedwerk
