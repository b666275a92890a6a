#include "suche/sortieren.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <numeric>

#include "index/spalten.h"
#include "suche/quicksort.h"
#include "suche/sortierschluessel.h"

namespace liedwerk {
namespace {

// What Quicksort sees when keys are read from the index at each comparison.
struct Indexzugriff {
    Katalog& Index;
    std::vector<std::uint8_t>& Auswahlmerker;
    const Feldwahl& Feld;
    Sortierschlüssel Angel;  // key of the pivot
    Sortierschlüssel Eigener;

    static Satznummer Nummer(std::size_t i) { return static_cast<Satznummer>(i + 1); }
    bool Kleiner(std::size_t i) {
        SchlüsselBilden(Index, Nummer(i), Feld, Eigener);
        return Eigener < Angel;
    }
    bool Größer(std::size_t i) {
        SchlüsselBilden(Index, Nummer(i), Feld, Eigener);
        return Eigener > Angel;
    }
    void Tauschen(std::size_t i, std::size_t j) {
        Index.Sätze.Vertauschen(Nummer(i), Nummer(j));
        std::swap(Index.IndexTreffer[i], Index.IndexTreffer[j]);
        std::swap(Auswahlmerker[i], Auswahlmerker[j]);
    }
};

// A sort on its way. Folge tells which record of the index, as it stands, belongs to each place.
class Sortierlauf {
  public:
    Sortierlauf(Katalog& Ziel, std::vector<std::uint8_t>& Merker, Oberfläche& Gegenüber)
        : Index(Ziel), Auswahlmerker(Merker), Person(Gegenüber) {
        const auto Anzahl = static_cast<std::size_t>(Index.IndexAnzahl());
        Index.IndexTreffer.resize(Anzahl);
        Auswahlmerker.resize(Anzahl);
        FolgeBeginnen();
    }

    // Gelten is the list of all criteria, from the one of this pass on.
    void Durchgang(std::size_t Nummer, std::span<const Feldwahl> Gelten);
    void Umkehren() { std::ranges::reverse(Folge); }
    void Umstellen();

  private:
    void FolgeBeginnen() {
        Folge.resize(static_cast<std::size_t>(Index.IndexAnzahl()));
        std::iota(Folge.begin(), Folge.end(), Satznummer{1});
    }
    std::vector<Sortierbereich> Strecken() const;
    void NachRängen(std::vector<Sortierbereich> Bereiche);
    void AmPlatz(const Feldwahl& Feld, std::vector<Sortierbereich> Bereiche);
    bool Melden(std::size_t Stelle);
    bool RängeBesorgen(std::span<const Feldwahl> Gelten);

    Katalog& Index;
    std::vector<std::uint8_t>& Auswahlmerker;
    Oberfläche& Person;
    std::vector<Satznummer> Folge;
    Rangliste Vorige;              // ranks of the criterion before, by place
    std::deque<Rangliste> Vorrat;  // ranks of the next criteria, by record
    std::string Text;
    std::size_t Erledigt = 0;  // places reported by the passes before
    bool Abgebrochen = false;
};

// Keys take the first half of a pass, as far as the person can see, and moving records the second.
bool Sortierlauf::Melden(std::size_t Stelle) {
    if (!Abgebrochen && !Person.FortschrittZeigen(Text, static_cast<std::int64_t>(Erledigt + Stelle)))
        Abgebrochen = true;
    return !Abgebrochen;
}

// Ranks of the next criterion, and of those behind it that do not tell a place.
bool Sortierlauf::RängeBesorgen(std::span<const Feldwahl> Gelten) {
    if (!Vorrat.empty()) return true;
    std::size_t Anzahl = 1;
    while (Anzahl < Gelten.size() && !SchlüsselHängtAmPlatz(Index, Gelten[Anzahl]))
        ++Anzahl;
    auto Neue =
        RängeBilden(Index, Gelten.first(Anzahl), [this](std::size_t Stelle) { return Melden(Stelle / 2); });
    if (!Neue) return false;
    std::ranges::move(*Neue, std::back_inserter(Vorrat));
    return true;
}

// Brings the records and all that goes with them into the order of Folge.
void Sortierlauf::Umstellen() {
    const auto Holen = [this](auto& Feld) {
        auto Neu = Feld;
        for (std::size_t i = 0; i < Folge.size(); ++i)
            Neu[i] = Feld[static_cast<std::size_t>(Folge[i] - 1)];
        Feld = std::move(Neu);
    };
    Index.Sätze.Umordnen(Folge);
    Holen(Index.IndexTreffer);
    Holen(Auswahlmerker);
    FolgeBeginnen();
}

// Stretches of equal rank in the criterion before.
// Kept: the one that reaches the end of the index is left out, and so is never sorted further. Kept: only
// this one criterion counts, so that stretches of an earlier one run together where they meet with one key.
std::vector<Sortierbereich> Sortierlauf::Strecken() const {
    std::vector<Sortierbereich> Alle;
    std::size_t Anfang = 0;
    for (std::size_t i = 1; i < Vorige.size(); ++i) {
        if (Vorige[i] == Vorige[Anfang]) continue;
        if (i - Anfang > 1) Alle.push_back({Anfang, i - 1});
        Anfang = i;
    }
    return Alle;
}

void Sortierlauf::NachRängen(std::vector<Sortierbereich> Bereiche) {
    const Rangliste Ränge = std::move(Vorrat.front());
    Vorrat.pop_front();
    std::vector<Rangpaar> Paare(Folge.size());
    for (std::size_t i = 0; i < Folge.size(); ++i) {
        const auto Satz = static_cast<std::uint32_t>(Folge[i]);
        Paare[i] = RangpaarBilden(Ränge[Satz - 1], Satz);
    }
    BereicheSortieren(Paare, std::move(Bereiche),
                      [this](std::size_t Stelle) { return Melden((Folge.size() + Stelle) / 2); });
    Vorige.resize(Paare.size());
    for (std::size_t i = 0; i < Paare.size(); ++i) {
        Vorige[i] = RangVon(Paare[i]);
        Folge[i] = static_cast<Satznummer>(SatzVon(Paare[i]));
    }
}

// A key that tells the place of a record changes with every swap: here the records themselves have to move.
void Sortierlauf::AmPlatz(const Feldwahl& Feld, std::vector<Sortierbereich> Bereiche) {
    Umstellen();
    Indexzugriff Zugriff{Index, Auswahlmerker, Feld, {}, {}};
    while (!Bereiche.empty() && Melden(Bereiche.back().Von)) {
        const Sortierbereich Bereich = Bereiche.back();
        Bereiche.pop_back();
        SchlüsselBilden(Index, Indexzugriff::Nummer((Bereich.Von + Bereich.Bis) / 2), Feld, Zugriff.Angel);
        auto i = static_cast<std::ptrdiff_t>(Bereich.Von);
        auto j = static_cast<std::ptrdiff_t>(Bereich.Bis);
        BereichTeilen(Zugriff, Bereich, i, j);
        SeitenVormerken(Bereiche, Bereich, i, j);
    }
    // What its keys are now is known by the places they have come to.
    if (!RängeBesorgen({&Feld, 1})) return;
    Vorige = std::move(Vorrat.front());
    Vorrat.pop_front();
}

void Sortierlauf::Durchgang(std::size_t Nummer, std::span<const Feldwahl> Gelten) {
    if (Abgebrochen) return;
    Text = "Sortiere Liste (Durchgang " + std::to_string(Nummer) + ")";
    const std::size_t Anzahl = Folge.size();
    Erledigt = Nummer > 1 ? (Nummer - 2) * Anzahl : 0;
    Person.FortschrittStarten(Text, true, static_cast<std::int64_t>(Erledigt + Anzahl));
    auto Bereiche = Nummer > 1 ? Strecken() : std::vector<Sortierbereich>{{0, Anzahl - 1}};
    if (SchlüsselHängtAmPlatz(Index, Gelten.front())) {
        AmPlatz(Gelten.front(), std::move(Bereiche));
    } else if (RängeBesorgen(Gelten)) {
        NachRängen(std::move(Bereiche));
    }
}

}  // namespace

std::vector<Sortierspalten> SortierspaltenVorgabe(std::string_view Spalte) {
    std::vector<Sortierspalten> Alle(SortierkriterienHöchstens);
    for (Sortierspalten& Eine : Alle) {
        if (&Eine != &Alle.front()) Eine.Einträge.emplace_back(SortierspalteAus);
        for (const auto& Name : SpaltenNamen)
            Eine.Einträge.emplace_back(Name.Name);
    }
    if (const int Nummer = SpaltenNummer(Spalte); Nummer > 0)
        Alle.front().Gewählt = static_cast<std::size_t>(Nummer - 1);
    return Alle;
}

Sortierwahl SortierwahlPrüfen(std::span<const std::string> Gewählte) {
    Sortierwahl Wahl;
    bool AusGesehen = false;
    for (const std::string& Spalte : Gewählte) {
        if (Spalte == SortierspalteAus) {
            AusGesehen = true;
        } else if (AusGesehen) {
            Wahl.Meldung = "Bitte wählen Sie die Sortier-Kriterien nacheinander aus.";
            break;
        } else if (std::ranges::find(Wahl.Sortierkriterien, Spalte) != Wahl.Sortierkriterien.end()) {
            Wahl.Meldung = "Bitte wählen Sie jede Spalte nur einmal aus.";
            break;
        } else {
            Wahl.Sortierkriterien.push_back(Spalte);
        }
    }
    return Wahl;
}

void IndexSortieren(Katalog& Index, std::span<const std::string> Sortierkriterien, bool Absteigend,
                    std::vector<std::uint8_t>& Auswahlmerker, Oberfläche& Person) {
    if (Index.IndexAnzahl() == 0) return;
    Sortierlauf Lauf(Index, Auswahlmerker, Person);
    std::vector<Feldwahl> Gewählte;
    std::ranges::transform(Sortierkriterien, std::back_inserter(Gewählte), FeldFinden);
    for (std::size_t i = 0; i < Gewählte.size(); ++i)
        Lauf.Durchgang(i + 1, std::span(Gewählte).subspan(i));
    if (Absteigend) {
        Person.FortschrittStarten("Kehre Sortierung um", false, 0);
        Lauf.Umkehren();
    }
    Lauf.Umstellen();
}

}  // namespace liedwerk
