#include "suche/mehrfachsuche.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <span>

#include "basis/pfad.h"
#include "basis/text.h"
#include "suche/suchmaschine.h"

namespace liedwerk {
namespace {

// Queries that are searched for in one walk through the texts: as many as take about a tenth of a second with
// a million records.
constexpr std::size_t AbfragenJeGang = 16;

std::string Bereinigen(std::string_view Zeile) {
    // The order counts: what one step leaves may be what a later one takes.
    static constexpr std::array<std::string_view, 16> ZuLeerzeichen = {
        " - ", "-", " : ", ": ", ":", " , ", ", ", ",", " / ", "/", "'", "´", "     ", "    ", "   ", "  "};
    std::string Text(Zeile);
    for (const std::string_view Teil : ZuLeerzeichen)
        Text = Ersetzen(Text, Teil, " ");
    return std::string(Kürzen(Text));
}

// The way of the search engine for one query.
void EinzelnSuchen(const Katalog& Index, Suchpuffer& Puffer, Mehrfachresultat& Zeile) {
    Suchabfragen Menge;
    SucheHinzufügen(Menge, Zeile.Abfrage, Standardsuche, Standardcode(false));
    std::vector<std::int16_t> Markierung(static_cast<std::size_t>(Index.IndexAnzahl()), 1);
    Satznummer ErsterTreffer = -1;
    Satznummer LetzterTreffer = Index.IndexAnzahl();
    if (!SucheAusführen(Index, Puffer, Menge, Markierung, ErsterTreffer, LetzterTreffer, false).Gelungen) {
        Zeile.Resultat = "(Fehler bei Suche)";
        return;
    }
    for (std::size_t i = 0; i < Markierung.size(); ++i) {
        if (Markierung[i] > 0) Zeile.Nummern.push_back(static_cast<Satznummer>(i + 1));
    }
}

// The words of a query; empty when the search text cannot answer for one of them.
std::vector<std::string> Suchwörter(const std::string& Abfrage) {
    static const Feldwahl Feld = FeldFinden(Standardsuche);
    auto Wörter = Teilen(Abfrage, " ");
    std::erase(Wörter, "");
    const bool Alle = std::ranges::all_of(
        Wörter, [](const std::string& Wort) { return Suchpuffer::Geeignet(Feld, false, Wort); });
    return Alle ? Wörter : std::vector<std::string>{};
}

void GangSuchen(const Katalog& Index, Suchpuffer& Puffer, std::span<Mehrfachresultat> Zeilen) {
    std::vector<std::vector<std::string>> Gruppen;
    std::vector<Mehrfachresultat*> Gemeinsame;
    for (Mehrfachresultat& Zeile : Zeilen) {
        if (Zeile.Abfrage.empty()) continue;
        if (auto Wörter = Suchwörter(Zeile.Abfrage); !Wörter.empty()) {
            Gruppen.push_back(std::move(Wörter));
            Gemeinsame.push_back(&Zeile);
        } else {
            EinzelnSuchen(Index, Puffer, Zeile);
        }
    }
    try {
        auto Treffer = Puffer.Gruppentreffer(Index, FeldFinden(Standardsuche), false, Gruppen);
        for (std::size_t i = 0; i < Treffer.size(); ++i)
            Gemeinsame[i]->Nummern = std::move(Treffer[i]);
    } catch (const std::exception&) {
        for (Mehrfachresultat* const Zeile : Gemeinsame)
            Zeile->Resultat = "(Fehler bei Suche)";
    }
}

std::string Resultattext(const Katalog& Index, const Mehrfachresultat& Zeile) {
    if (Zeile.Abfrage.empty()) return "(Suche ist ungültig)";
    if (!Zeile.Resultat.empty()) return Zeile.Resultat;
    if (Zeile.Nummern.empty()) return "(Nichts gefunden)";
    if (Zeile.Nummern.size() > 1) return std::to_string(Zeile.Nummern.size()) + " Resultate";
    return std::string(DateinameVon(Index.Sätze.Pfad(Zeile.Nummern.front())));
}

}  // namespace

std::vector<std::string> AbfragenZerlegen(std::string_view Text) {
    std::vector<std::string> Abfragen;
    for (const std::string& Zeile : Teilen(Ersetzen(Ersetzen(Text, "\r\n", "\n"), "\r", "\n"), "\n")) {
        if (!Zeile.empty()) Abfragen.push_back(Bereinigen(Zeile));
    }
    return Abfragen;
}

std::vector<Mehrfachresultat> MehrfachSuchen(const Katalog& Index, Suchpuffer& Puffer,
                                             const std::vector<std::string>& Abfragen, Oberfläche& Person) {
    std::vector<Mehrfachresultat> Zeilen;
    Zeilen.reserve(Abfragen.size());
    for (const std::string& Abfrage : Abfragen)
        Zeilen.push_back({Abfrage, {}, {}});
    Person.FortschrittStarten("Mehrfachsuche", true, static_cast<std::int64_t>(Abfragen.size()));
    std::size_t Fertig = 0;
    while (Fertig < Zeilen.size()) {
        const auto Gang = std::span(Zeilen).subspan(Fertig, std::min(AbfragenJeGang, Zeilen.size() - Fertig));
        GangSuchen(Index, Puffer, Gang);
        for (Mehrfachresultat& Zeile : Gang)
            Zeile.Resultat = Resultattext(Index, Zeile);
        Fertig += Gang.size();
        if (!Person.FortschrittZeigen({}, static_cast<std::int64_t>(Fertig))) Zeilen.resize(Fertig);
    }
    Person.FortschrittSchließen();
    return Zeilen;
}

}  // namespace liedwerk
