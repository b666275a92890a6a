#include "core/sortierlauf.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "core/suchlauf.h"
#include "suche/sortieren.h"

namespace liedwerk {
namespace {

// A slot for each record: whether the list's row of that number is selected.
// Kept: rows and records have the same numbers only while the list shows the whole index in its order.
std::vector<std::uint8_t> AuswahlMerken(const Liste& Ansicht, Satznummer Anzahl) {
    std::vector<bool> Gewählt(static_cast<std::size_t>(Anzahl) + 1);
    for (const Satznummer Nummer : Ansicht.Auswahl)
        Gewählt[static_cast<std::size_t>(std::clamp(Nummer, 0, Anzahl))] = true;
    std::vector<std::uint8_t> Auswahlmerker(static_cast<std::size_t>(Anzahl));
    const std::size_t Zeilen = std::min(Ansicht.Zeilen.size(), Auswahlmerker.size());
    for (std::size_t i = 0; i < Zeilen; ++i)
        Auswahlmerker[i] = Gewählt[static_cast<std::size_t>(std::clamp(Ansicht.Zeilen[i], 0, Anzahl))];
    return Auswahlmerker;
}

void AuswahlHerstellen(Liste& Ansicht, const std::vector<std::uint8_t>& Auswahlmerker) {
    Ansicht.Auswahl.clear();
    for (const Satznummer Nummer : Ansicht.Zeilen) {
        const auto Platz = static_cast<std::size_t>(Nummer - 1);
        if (Platz < Auswahlmerker.size() && Auswahlmerker[Platz] != 0) Ansicht.Auswahl.push_back(Nummer);
    }
}

}  // namespace

void SortierenLauf(Anwendung& Programm, std::span<const std::string> Sortierkriterien, bool Absteigend) {
    if (Programm.Index.IndexAnzahl() == 0) return;
    {
        const Laufsperre Sperre(Programm);
        auto Auswahlmerker = AuswahlMerken(Programm.Ansicht, Programm.Index.IndexAnzahl());
        IndexSortieren(Programm.Index, Sortierkriterien, Absteigend, Auswahlmerker, Programm.Dienst.Person);
        AuswahlHerstellen(Programm.Ansicht, Auswahlmerker);
        Programm.Dienst.Fenster.AuswahlZeigen();
        Programm.Dienst.Person.FortschrittSchließen();
        Programm.Index.IndexGeändert = true;
    }
    SucheAktualisieren(Programm);
    constexpr std::string_view Fertig = "Der Index wurde sortiert";
    Programm.Log.Schreiben(Fertig);
    Programm.Dienst.Person.StatusZeigen(Fertig);
}

}  // namespace liedwerk
