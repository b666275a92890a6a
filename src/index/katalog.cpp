#include "index/katalog.h"

#include <algorithm>
#include <utility>

namespace liedwerk {
namespace {

// Without records there is still one mark, for whoever looks at the first slot unasked.
void LeerenMerken(Katalog& Index) {
    Index.IndexTreffer.assign(1, 1);
    Index.ErsterTreffer = 0;
    Index.LetzterTreffer = 0;
}

}  // namespace

Satznummer SatzAnhängen(Katalog& Index, std::string_view Pfad, const Datensatz& Daten) {
    const Satznummer Nummer = Index.Sätze.Anhängen(Pfad, Daten);
    Index.IndexTreffer.resize(static_cast<std::size_t>(Nummer));
    Index.IndexTreffer.back() = 0;
    return Nummer;
}

void SätzeAnfügen(Katalog& Index, Satzspeicher&& Neue) {
    if (Neue.Anzahl() == 0) return;
    const auto Bisher = static_cast<std::size_t>(Index.IndexAnzahl());
    Index.Sätze.Anfügen(std::move(Neue));
    // The mark that an empty index keeps belongs to no record.
    Index.IndexTreffer.resize(Bisher);
    Index.IndexTreffer.resize(static_cast<std::size_t>(Index.IndexAnzahl()), 0);
}

void DatensätzeEntfernen(Katalog& Index, std::span<const Satznummer> Nummern) {
    if (Nummern.empty()) return;
    auto& Treffer = Index.IndexTreffer;
    std::vector<Satznummer> Sortiert(Nummern.begin(), Nummern.end());
    std::ranges::sort(Sortiert);
    Sortiert.erase(std::unique(Sortiert.begin(), Sortiert.end()), Sortiert.end());

    auto Nächste = Sortiert.begin();
    std::size_t Ziel = 0;
    for (std::size_t Quelle = 0; Quelle < Treffer.size(); ++Quelle) {
        if (Nächste != Sortiert.end() && static_cast<std::size_t>(*Nächste) == Quelle + 1) {
            ++Nächste;
        } else {
            Treffer[Ziel++] = Treffer[Quelle];
        }
    }
    Treffer.resize(Ziel);
    Index.Sätze.Entfernen(Sortiert);
    Index.IndexGeändert = true;
    if (Treffer.empty()) {
        LeerenMerken(Index);
        return;
    }
    // The bounds keep speaking of the same records.
    const auto EntferntBis = [&](Satznummer Grenze) {
        return static_cast<Satznummer>(std::ranges::upper_bound(Sortiert, Grenze) - Sortiert.begin());
    };
    Index.ErsterTreffer -= EntferntBis(Index.ErsterTreffer - 1);
    Index.LetzterTreffer -= EntferntBis(Index.LetzterTreffer);
    if (Index.ErsterTreffer > Index.LetzterTreffer) Index.ErsterTreffer = Index.LetzterTreffer = 0;
}

void TrefferZurücksetzen(Katalog& Index) {
    const Satznummer Anzahl = Index.IndexAnzahl();
    if (Anzahl == 0) return LeerenMerken(Index);
    Index.IndexTreffer.assign(static_cast<std::size_t>(Anzahl), 1);
    Index.ErsterTreffer = 1;
    Index.LetzterTreffer = Anzahl;
}

}  // namespace liedwerk
