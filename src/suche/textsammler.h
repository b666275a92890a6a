// Distinct texts, numbered in the order in which they came.
//
// A table of open addressing over texts that lie one behind the other: a million distinct values of a field
// cost their bytes and some forty more each, and a value that is there already costs one look.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace liedwerk {

class Textsammler {
  public:
    struct Aufnahme {
        std::uint32_t Nummer = 0;  // 0-based
        bool Neu = false;
    };
    // The number of a text; it is copied when it is new.
    Aufnahme Aufnehmen(std::string_view Text);
    // Gives a text a number of its own without looking for it; from then on the numbers tell more texts than
    // there are distinct ones. For texts that hardly ever come twice.
    std::uint32_t Anhängen(std::string_view Text);
    std::uint32_t Anzahl() const { return static_cast<std::uint32_t>(Texte.size()); }
    // Valid as long as the collector lives.
    std::string_view Text(std::uint32_t Nummer) const { return Texte[Nummer]; }

  private:
    struct Fach {
        std::uint32_t Streuwert = 0;
        std::uint32_t Nummer = 0;  // 1-based, 0 for an empty place
    };
    void Vergrößern();
    std::string_view Ablegen(std::string_view Text);

    std::vector<Fach> Fächer;
    std::vector<std::string_view> Texte;
    std::vector<std::unique_ptr<char[]>> Blöcke;
    char* Frei = nullptr;
    std::size_t Rest = 0;
};

}  // namespace liedwerk
