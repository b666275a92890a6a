#include "suche/quicksort.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <limits>
#include <utility>

#include "basis/kerne.h"

namespace liedwerk {
namespace {

// Places whose keys are compared in one go.
constexpr std::size_t Blocklänge = 64;
// Ranges above this are divided before the threads share them out.
constexpr std::size_t GrobeGröße = std::size_t{1} << 15;
// Compared pairs between two looks at the person.
constexpr std::size_t ArbeitJeFrage = std::size_t{1} << 17;
// A range this deep in divisions is in a bad way: sound ones halve a million records in 20 to 50 steps.
constexpr std::uint32_t BedenklicheTiefe = 96;
// Ranges up to this are as fast without a tree, whatever their keys.
constexpr std::size_t BaumloseGröße = 512;

std::size_t Umfang(const Sortierbereich& Bereich) {
    return Bereich.Bis - Bereich.Von + 1;
}

struct Paarzugriff {
    std::span<Rangpaar> Paare;
    std::uint32_t Angel;  // rank of the pivot

    bool Kleiner(std::size_t i) const { return RangVon(Paare[i]) < Angel; }
    bool Größer(std::size_t i) const { return RangVon(Paare[i]) > Angel; }
    void Tauschen(std::size_t i, std::size_t j) { std::swap(Paare[i], Paare[j]); }
};

// Places of a block that have to change sides, in the order of the walk.
struct Vormerkung {
    std::array<std::uint8_t, Blocklänge> Abstände;
    std::size_t Nächster = 0;
    std::size_t Anzahl = 0;
    bool Leer() const { return Nächster == Anzahl; }
};

// The same walks as BereichTeilen for the greater part of a range. Comparing a block of keys first and
// swapping afterwards needs no branch that the processor could guess wrong, and as long as the blocks do not
// meet, the k-th place on the left meets the k-th on the right as it would one by one.
void BlockweiseTeilen(Paarzugriff& Zugriff, std::ptrdiff_t& Links, std::ptrdiff_t& Rechts) {
    Vormerkung Linke;
    Vormerkung Rechte;
    auto i = static_cast<std::size_t>(Links);
    auto j = static_cast<std::size_t>(Rechts);
    while (j - i + 1 > 2 * Blocklänge) {
        if (Linke.Leer()) {
            Linke.Nächster = Linke.Anzahl = 0;
            for (std::size_t k = 0; k < Blocklänge; ++k) {
                Linke.Abstände[Linke.Anzahl] = static_cast<std::uint8_t>(k);
                Linke.Anzahl += Zugriff.Kleiner(i + k) ? 0U : 1U;
            }
        }
        if (Rechte.Leer()) {
            Rechte.Nächster = Rechte.Anzahl = 0;
            for (std::size_t k = 0; k < Blocklänge; ++k) {
                Rechte.Abstände[Rechte.Anzahl] = static_cast<std::uint8_t>(k);
                Rechte.Anzahl += Zugriff.Größer(j - k) ? 0U : 1U;
            }
        }
        while (!Linke.Leer() && !Rechte.Leer())
            Zugriff.Tauschen(i + Linke.Abstände[Linke.Nächster++], j - Rechte.Abstände[Rechte.Nächster++]);
        if (Linke.Leer()) i += Blocklänge;
        if (Rechte.Leer()) j -= Blocklänge;
    }
    // What is left of a block goes on where its next place stands; those before it are on their side.
    Links = static_cast<std::ptrdiff_t>(Linke.Leer() ? i : i + Linke.Abstände[Linke.Nächster]);
    Rechts = static_cast<std::ptrdiff_t>(Rechte.Leer() ? j : j - Rechte.Abstände[Rechte.Nächster]);
}

// Divides a range by what Zugriff shows; puts its sides onto the stack.
void Teilen(std::span<Rangpaar> Paare, const Sortierbereich& Bereich, std::vector<Sortierbereich>& Stapel) {
    Paarzugriff Zugriff{Paare, RangVon(Paare[(Bereich.Von + Bereich.Bis) / 2])};
    auto i = static_cast<std::ptrdiff_t>(Bereich.Von);
    auto j = static_cast<std::ptrdiff_t>(Bereich.Bis);
    BlockweiseTeilen(Zugriff, i, j);
    BereichTeilen(Zugriff, Bereich, i, j);
    SeitenVormerken(Stapel, Bereich, i, j);
}

// The least and the greatest rank of each stretch of a range, doubling in length: the walks of a division
// jump to the next place where they stop. A division that cuts off a few places only makes a few swaps, so
// that keys which always have their least in the middle, and would take the square of their number, take
// hardly more than others.
class Rangbaum {
  public:
    Rangbaum(std::span<Rangpaar> Alle, const Sortierbereich& Bereich)
        : Paare(Alle.subspan(Bereich.Von, Umfang(Bereich))),
          Blätter(std::bit_ceil(Paare.size())),
          Kleinste(2 * Blätter, std::numeric_limits<std::uint32_t>::max()),
          Größte(2 * Blätter, 0) {
        for (std::size_t i = 0; i < Paare.size(); ++i)
            Kleinste[Blätter + i] = Größte[Blätter + i] = RangVon(Paare[i]);
        for (std::size_t Knoten = Blätter - 1; Knoten > 0; --Knoten)
            Zusammenfassen(Knoten);
    }

    // Divides Bereich, whose places count from the range of the tree; gives where the walks have met.
    std::pair<std::ptrdiff_t, std::ptrdiff_t> Teilen(const Sortierbereich& Bereich) {
        const std::uint32_t Angel = RangVon(Paare[(Bereich.Von + Bereich.Bis) / 2]);
        auto i = static_cast<std::ptrdiff_t>(Bereich.Von);
        auto j = static_cast<std::ptrdiff_t>(Bereich.Bis);
        while (i <= j) {
            // Both stop within the range: at the pivot first, and then at what was swapped.
            i = Suchen(i, 1, [&](std::size_t Knoten) { return Größte[Knoten] >= Angel; });
            j = Suchen(j, -1, [&](std::size_t Knoten) { return Kleinste[Knoten] <= Angel; });
            if (i > j) break;
            Tauschen(static_cast<std::size_t>(i++), static_cast<std::size_t>(j--));
        }
        return {i, j};
    }

  private:
    void Zusammenfassen(std::size_t Knoten) {
        Kleinste[Knoten] = std::min(Kleinste[2 * Knoten], Kleinste[2 * Knoten + 1]);
        Größte[Knoten] = std::max(Größte[2 * Knoten], Größte[2 * Knoten + 1]);
    }
    void Tauschen(std::size_t i, std::size_t j) {
        std::swap(Paare[i], Paare[j]);
        for (const std::size_t Platz : {i, j}) {
            std::size_t Knoten = Blätter + Platz;
            Kleinste[Knoten] = Größte[Knoten] = RangVon(Paare[Platz]);
            while ((Knoten /= 2) > 0)
                Zusammenfassen(Knoten);
        }
    }
    // The first place from Ab on, upwards or downwards, that holds what is looked for; just outside of the
    // tree when there is none.
    template <class Bedingung>
    std::ptrdiff_t Suchen(std::ptrdiff_t Ab, std::ptrdiff_t Richtung, Bedingung Hält) const {
        if (Ab < 0 || Ab >= static_cast<std::ptrdiff_t>(Blätter)) return Ab;
        const std::size_t Ferne = Richtung > 0 ? 1 : 0;  // the child that lies farther on
        std::size_t Knoten = Blätter + static_cast<std::size_t>(Ab);
        while (!Hält(Knoten)) {
            // Up to the next stretch that lies behind this one.
            while (Knoten % 2 == Ferne)
                Knoten /= 2;
            if (Knoten <= 1) return Richtung > 0 ? static_cast<std::ptrdiff_t>(Blätter) : -1;
            Knoten = Knoten + 2 * Ferne - 1;
        }
        while (Knoten < Blätter) {
            const std::size_t Nahes = 2 * Knoten + 1 - Ferne;
            Knoten = Hält(Nahes) ? Nahes : 2 * Knoten + Ferne;
        }
        return static_cast<std::ptrdiff_t>(Knoten - Blätter);
    }

    std::span<Rangpaar> Paare;
    std::size_t Blätter;
    std::vector<std::uint32_t> Kleinste;  // from node 1, the whole; leaves from Blätter on
    std::vector<std::uint32_t> Größte;
};

// The ranges that one thread works off. Weiter is asked with a place after much work.
class Bereichsstapel {
  public:
    Bereichsstapel(std::span<Rangpaar> Alle, const std::function<bool(std::size_t)>& Frage)
        : Paare(Alle), Weiter(Frage) {}

    // Works off a range down to ranges of at most Grob places, which are put into Rest; false when stopped.
    bool Abarbeiten(const Sortierbereich& Ganz, std::size_t Grob, std::vector<Sortierbereich>* Rest) {
        Stapel.assign(1, Ganz);
        while (!Stapel.empty()) {
            const Sortierbereich Bereich = Stapel.back();
            Stapel.pop_back();
            if (Rest != nullptr && Umfang(Bereich) <= Grob) {
                Rest->push_back(Bereich);
                continue;
            }
            Arbeit += Umfang(Bereich);
            if (Arbeit >= ArbeitJeFrage) {
                Arbeit = 0;
                if (!Weiter(Bereich.Von)) return false;
            }
            if (Bereich.Tiefe < BedenklicheTiefe || Umfang(Bereich) <= BaumloseGröße) {
                Teilen(Paare, Bereich, Stapel);
            } else if (!MitBaumTeilen(Bereich)) {
                return false;
            }
        }
        return true;
    }

  private:
    // Divides a range until its parts are small, which are put onto the stack.
    bool MitBaumTeilen(const Sortierbereich& Bereich) {
        constexpr std::size_t ArbeitJeTeilung = 64;
        Rangbaum Baum(Paare, Bereich);
        std::vector<Sortierbereich> Offen = {{0, Bereich.Bis - Bereich.Von}};
        while (!Offen.empty()) {
            const Sortierbereich Einer = Offen.back();
            Offen.pop_back();
            if (Umfang(Einer) <= BaumloseGröße) {
                Stapel.push_back({Bereich.Von + Einer.Von, Bereich.Von + Einer.Bis});
                continue;
            }
            Arbeit += ArbeitJeTeilung;
            if (Arbeit >= ArbeitJeFrage) {
                Arbeit = 0;
                if (!Weiter(Bereich.Von + Einer.Von)) return false;
            }
            const auto [i, j] = Baum.Teilen(Einer);
            SeitenVormerken(Offen, Einer, i, j);
        }
        return true;
    }

    std::span<Rangpaar> Paare;
    const std::function<bool(std::size_t)>& Weiter;
    std::vector<Sortierbereich> Stapel;
    std::size_t Arbeit = 0;
};

}  // namespace

void SeitenVormerken(std::vector<Sortierbereich>& Stapel, const Sortierbereich& Bereich, std::ptrdiff_t i,
                     std::ptrdiff_t j) {
    Sortierbereich Seiten[2];
    std::size_t Anzahl = 0;
    if (static_cast<std::ptrdiff_t>(Bereich.Von) < j)
        Seiten[Anzahl++] = {Bereich.Von, static_cast<std::size_t>(j), Bereich.Tiefe + 1};
    if (i < static_cast<std::ptrdiff_t>(Bereich.Bis))
        Seiten[Anzahl++] = {static_cast<std::size_t>(i), Bereich.Bis, Bereich.Tiefe + 1};
    if (Anzahl == 2 && Umfang(Seiten[0]) < Umfang(Seiten[1])) std::swap(Seiten[0], Seiten[1]);
    Stapel.insert(Stapel.end(), Seiten, Seiten + Anzahl);
}

bool BereicheSortieren(std::span<Rangpaar> Paare, std::vector<Sortierbereich> Bereiche,
                       const std::function<bool(std::size_t)>& Weiter) {
    std::erase_if(Bereiche, [](const Sortierbereich& Einer) { return Einer.Von >= Einer.Bis; });
    std::vector<Sortierbereich> Aufgaben;
    Bereichsstapel Grobe(Paare, Weiter);
    std::size_t Plätze = 0;
    for (const Sortierbereich& Einer : Bereiche) {
        Plätze += Umfang(Einer);
        if (!Grobe.Abarbeiten(Einer, GrobeGröße, &Aufgaben)) return false;
    }
    // Each thread takes the next ranges; only the calling one asks.
    std::atomic<std::size_t> Nächste = 0;
    std::atomic<bool> Angehalten = false;
    AufKerneVerteilen(HöchsteTeilzahl(), Plätze < GrobeGröße ? HöchsteTeilzahl() : 1,
                      [&](std::size_t Faden, std::size_t, std::size_t) {
                          const std::function<bool(std::size_t)> Fragen = [&](std::size_t Stelle) {
                              if (Faden == 0 && !Angehalten && !Weiter(Stelle)) Angehalten = true;
                              return !Angehalten;
                          };
                          constexpr std::size_t AufEinmal = 4;
                          Bereichsstapel Eigene(Paare, Fragen);
                          for (;;) {
                              const std::size_t Erste = Nächste.fetch_add(AufEinmal);
                              if (Erste >= Aufgaben.size()) return;
                              const std::size_t Ende = std::min(Erste + AufEinmal, Aufgaben.size());
                              for (std::size_t k = Erste; k < Ende; ++k) {
                                  if (!Eigene.Abarbeiten(Aufgaben[k], 0, nullptr)) return;
                              }
                          }
                      });
    return !Angehalten;
}

}  // namespace liedwerk
