// Quicksort, the sort of the index: it is not stable, and where equal keys end up depends on every comparison
// and swap it makes. Everything here makes exactly those swaps.
//
// The pivot of a range is the key of its middle place. From the left the next key that is not less, from the
// right the next one that is not greater, these two change places, until the walks have met; then both sides
// in the same way. Ranges do not touch each other, so that their order, and the thread they run on, changes
// nothing. Places are 0-based here, bounds inclusive.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace liedwerk {

struct Sortierbereich {
    std::size_t Von = 0;
    std::size_t Bis = 0;
    std::uint32_t Tiefe = 0;  // divisions above it
};

// The rank of a record's key (high half) and what stands for the record (low half).
using Rangpaar = std::uint64_t;
inline Rangpaar RangpaarBilden(std::uint32_t Rang, std::uint32_t Satz) {
    return static_cast<Rangpaar>(Rang) << 32U | Satz;
}
inline std::uint32_t RangVon(Rangpaar Paar) {
    return static_cast<std::uint32_t>(Paar >> 32U);
}
inline std::uint32_t SatzVon(Rangpaar Paar) {
    return static_cast<std::uint32_t>(Paar);
}

// Sorts each of the ranges by rank, on all cores when that is worth it. Weiter is asked now and then, on the
// calling thread, with a place that is being worked on; when it gives false, the rest stays in the order
// reached and the answer is false. No pair is ever lost.
bool BereicheSortieren(std::span<Rangpaar> Paare, std::vector<Sortierbereich> Bereiche,
                       const std::function<bool(std::size_t)>& Weiter);

// The walks from both ends over what Zugriff shows, from i and j on, which stand behind swaps already made:
// Kleiner(i) and Größer(i) compare the key of place i with the pivot, Tauschen(i, j) swaps two records.
// Afterwards the range falls into Von to j and i to Bis. Signed, since j may end below 0.
template <class Zugriffsart>
void BereichTeilen(Zugriffsart& Zugriff, const Sortierbereich& Bereich, std::ptrdiff_t& i,
                   std::ptrdiff_t& j) {
    const auto Von = static_cast<std::ptrdiff_t>(Bereich.Von);
    const auto Bis = static_cast<std::ptrdiff_t>(Bereich.Bis);
    while (i <= j) {
        while (i < Bis && Zugriff.Kleiner(static_cast<std::size_t>(i)))
            ++i;
        while (j > Von && Zugriff.Größer(static_cast<std::size_t>(j)))
            --j;
        if (i > j) break;
        Zugriff.Tauschen(static_cast<std::size_t>(i), static_cast<std::size_t>(j));
        ++i;
        --j;
    }
}

// Puts the two sides of a divided range onto a stack of ranges, the greater one first: the other is then
// worked off before it, so that the stack never holds more than one range for each doubling of the size.
void SeitenVormerken(std::vector<Sortierbereich>& Stapel, const Sortierbereich& Bereich, std::ptrdiff_t i,
                     std::ptrdiff_t j);

}  // namespace liedwerk
