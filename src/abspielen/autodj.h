// AutoDJ: lists drawn from the play statistics, at random or by rank.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/datum.h"
#include "index/katalog.h"

namespace liedwerk {

// The entry of the genre list that stands for an empty genre.
inline constexpr std::string_view OhneGenre = "(Dateien ohne Genre)";

enum class AutoDjFunktion { Zufällig = 0, Topliste = 1 };
enum class AutoDjEinheit { Minuten = 0, Stunden = 1, Tage = 2 };
// The unit by its letter: "n", "h" or "d"; nothing for another.
std::optional<AutoDjEinheit> AutoDjEinheitLesen(std::string_view Buchstabe);
std::string_view AutoDjEinheitBuchstabe(AutoDjEinheit Einheit);

// The inputs of the form as they were typed.
struct AutoDjEingabe {
    AutoDjFunktion Funktion = AutoDjFunktion::Zufällig;
    std::string Zeit;     // txtZeit, or txtTopZeitraum for the top list
    std::string Maximum;  // txtMaximum, or txtTopWieviel
    AutoDjEinheit Einheit = AutoDjEinheit::Tage;
    bool AlteSeltener = false;
    bool SehrAlteHäufiger = false;
    std::vector<std::string> Genres;  // the ticked ones, OhneGenre among them
};

// The same, checked.
struct AutoDjWahl {
    AutoDjFunktion Funktion = AutoDjFunktion::Zufällig;
    double Zeit = -1;           // below 0: no matter when
    std::int64_t Maximum = -1;  // -1: no limit
    AutoDjEinheit Einheit = AutoDjEinheit::Tage;
    bool AlteSeltener = false;
    bool SehrAlteHäufiger = false;
    std::vector<std::string> Genres;
};
// Fills Wahl; otherwise the message that says what is wrong.
std::string AutoDjPrüfen(const AutoDjEingabe& Eingabe, AutoDjWahl& Wahl);

// Every entry of the genre list: the names of the genre table, each once, in the order of the alphabet,
// behind OhneGenre.
std::vector<std::string> AlleAutoDjGenres();

// A number in [0, 1), each call the next one.
using Zufallszahl = std::function<double()>;
// A generator of its own for each seed: one seed gives the same numbers on every machine.
Zufallszahl ZufallszahlVon(std::uint64_t Saat);

// The found records in the found order. Jetzt is the moment from which ages count.
std::vector<Satznummer> AutoDjZusammenstellen(const Katalog& Index, const AutoDjWahl& Wahl,
                                              const Zeitpunkt& Jetzt, const Zufallszahl& Zufall);

// What the person reads when nothing was found.
std::string AutoDjNichtsGefunden(bool StatistikAn);

}  // namespace liedwerk
