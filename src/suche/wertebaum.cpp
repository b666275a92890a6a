#include "suche/wertebaum.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "basis/text.h"
#include "suche/suchmaschine.h"
#include "suche/verschiedenewerte.h"

namespace liedwerk {
namespace {

// The marks of the records that hold every value of the path.
std::vector<std::int16_t> Zutreffende(const Katalog& Index, Suchpuffer& Puffer,
                                      std::span<const std::string> Pfad, bool BeideTags) {
    std::vector<std::int16_t> Markierung(static_cast<std::size_t>(Index.IndexAnzahl()), 1);
    Suchabfragen Gleiche;
    for (std::size_t i = 0; i + 1 < Pfad.size(); i += 2)
        SucheHinzufügen(Gleiche, Pfad[i + 1], Pfad[i], BeideTags ? "0041" : "0040");
    Satznummer ErsterTreffer = -1;
    Satznummer LetzterTreffer = Index.IndexAnzahl();
    SucheAusführen(Index, Puffer, Gleiche, Markierung, ErsterTreffer, LetzterTreffer, false);
    return Markierung;
}

std::vector<std::string> ÜbrigeFelder(std::span<const std::string> Pfad) {
    std::vector<std::string> Felder;
    for (const std::string_view Feld : WertebaumFelder) {
        bool Steht = false;
        for (std::size_t i = 0; i < Pfad.size(); i += 2)
            Steht = Steht || Pfad[i] == Feld;
        if (!Steht) Felder.emplace_back(Feld);
    }
    return Felder;
}

void NachAlphabet(std::vector<std::string>& Werte) {
    std::vector<std::pair<std::string, std::string>> Paare;
    Paare.reserve(Werte.size());
    for (std::string& Wert : Werte)
        Paare.emplace_back(Falten(Wert), std::move(Wert));
    std::ranges::sort(Paare);
    std::ranges::transform(Paare, Werte.begin(), [](auto& Paar) { return std::move(Paar.second); });
}

}  // namespace

std::optional<std::vector<std::string>> WertebaumÖffnen(const Katalog& Index, Suchpuffer& Puffer,
                                                        std::span<const std::string> Pfad,
                                                        Oberfläche& Person) {
    if (Pfad.size() % 2 == 0) return ÜbrigeFelder(Pfad);
    const bool BeideTags = Index.Optionen.SpaltenBeideTags == 1;
    const Feldwahl Feld = FeldFinden(Pfad.back());
    Person.FortschrittStarten("Sammle Werte von '" + Pfad.back() + "'", true, Index.IndexAnzahl());
    auto Werte =
        VerschiedeneWerte(Index, {&Feld, 1}, BeideTags, Zutreffende(Index, Puffer, Pfad, BeideTags),
                          [&Person](std::size_t Erledigt) {
                              return Person.FortschrittZeigen({}, static_cast<std::int64_t>(Erledigt));
                          });
    if (Werte) NachAlphabet(*Werte);
    Person.FortschrittSchließen();
    return Werte;
}

std::string WertebaumÜbernehmen(Suchabfragen& Menge, std::span<const std::string> Pfad, bool AlsWort) {
    if (Pfad.empty()) return "Die aktuelle Auswahl konnte nicht in eine Such-Abfrage umgewandelt werden.";
    if (Pfad.size() == 1) return "Die aktuelle Auswahl kann nicht in eine Such-Abfrage umgewandelt werden.";
    for (std::size_t i = 0; i + 1 < Pfad.size(); i += 2) {
        if (!SucheHinzufügen(Menge, Pfad[i + 1], Pfad[i], Standardcode(AlsWort)))
            return "Eine Such-Abfrage konnte nicht gespeichert werden.";
    }
    return {};
}

}  // namespace liedwerk
