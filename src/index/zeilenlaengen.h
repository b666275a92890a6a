// The lengths in front of the values of a line, read as any file may hold them.
//
// Lines of our own making are read by index/zeilenpruefung.h in one sweep; this is the patient way for all
// others: odd numbers, too many lengths, sums that are wrong. Positions and sums have 64 bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "index/felder.h"

namespace liedwerk {

struct Zeilenlängen {
    std::array<std::int64_t, FeldAnzahl> Längen{};
    std::int64_t Summe = 0;        // of all lengths, also of those beyond the list
    std::int64_t Überzählige = 0;  // lengths above 0 beyond the asked number of fields
    std::size_t Strich = 0;        // position of the first "|", from 1; 0 when there is none

    // The "Checksumme": where the line ends by its lengths.
    std::int64_t Prüfwert() const { return static_cast<std::int64_t>(Strich) + Summe; }
    bool Stimmt(std::string_view Zeile) const {
        return Strich != 0 && Prüfwert() == static_cast<std::int64_t>(Zeile.size());
    }
};

// LängenLesen: the lengths from the 0-based offset Start to the first "|". A piece that is no number from 0
// to 100000 counts as 0. Anzahl: fields that the kind of line has, at most FeldAnzahl.
Zeilenlängen LängenLesen(std::string_view Zeile, std::size_t Start, std::size_t Anzahl);

// Calls Ablegen(value, number from 1) for each of the first Anzahl fields that has a length and still some
// text in the line.
template <class Ablage>
void WerteSchneiden(std::string_view Zeile, const Zeilenlängen& Längen, std::size_t Anzahl,
                    Ablage&& Ablegen) {
    std::string_view Rest = Zeile.substr(Längen.Strich);
    for (std::size_t i = 0; i < Anzahl && !Rest.empty(); ++i) {
        const std::string_view Wert = Rest.substr(0, static_cast<std::size_t>(Längen.Längen[i]));
        if (!Wert.empty()) Ablegen(Wert, static_cast<int>(i) + 1);
        Rest.remove_prefix(Wert.size());
    }
}

}  // namespace liedwerk
