// Random numbers that are the same on every machine: the standard library's distributions are not.
#pragma once

#include <cstddef>
#include <cstdint>

namespace liedwerk::werkzeug {

// SplitMix64 (Steele, Lea and Flood, "Fast splittable pseudorandom number generators", 2014).
class Zufall {
  public:
    explicit Zufall(std::uint64_t Saat) : Zustand(Saat) {}

    std::uint64_t Nächste() {
        Zustand += 0x9E3779B97F4A7C15U;
        std::uint64_t Wert = Zustand;
        Wert = (Wert ^ (Wert >> 30U)) * 0xBF58476D1CE4E5B9U;
        Wert = (Wert ^ (Wert >> 27U)) * 0x94D049BB133111EBU;
        return Wert ^ (Wert >> 31U);
    }
    // From Von to Bis, both included.
    int Zahl(int Von, int Bis) {
        const auto Spanne = static_cast<std::uint64_t>(Bis - Von) + 1;
        return Von + static_cast<int>((Nächste() >> 32U) * Spanne >> 32U);
    }
    // True in Prozent of 100 cases.
    bool Trifft(int Prozent) { return Zahl(1, 100) <= Prozent; }
    // An element of an array or vector that is not empty.
    template <typename Menge>
    const auto& Aus(const Menge& Auswahl) {
        return Auswahl[static_cast<std::size_t>(Zahl(0, static_cast<int>(std::size(Auswahl)) - 1))];
    }

  private:
    std::uint64_t Zustand;
};

}  // namespace liedwerk::werkzeug
