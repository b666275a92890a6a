// Commands that tidy the index.
#include <algorithm>

#include "core/aufraeumlauf.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

// "0" to "9" as Methode.
std::optional<Aufräummethode> MethodeLesen(const std::string& Text) {
    if (Text.size() != 1 || Text[0] < '0' || Text[0] > '9') return std::nullopt;
    return static_cast<Aufräummethode>(Text[0] - '0');
}

// The numbers in their order, each once: no record is its own double.
std::vector<Satznummer> OhneDoppelte(const std::vector<Satznummer>& Nummern, Satznummer Anzahl) {
    std::vector<bool> Dabei(static_cast<std::size_t>(Anzahl) + 1);
    std::vector<Satznummer> Einfache;
    for (const Satznummer Nummer : Nummern) {
        if (!Dabei[static_cast<std::size_t>(Nummer)]) Einfache.push_back(Nummer);
        Dabei[static_cast<std::size_t>(Nummer)] = true;
    }
    return Einfache;
}

}  // namespace

Ausgang AufräumenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Methode = MethodeLesen(Eingabe.Wert("--methode").value_or(""));
    if (!Methode) return Falsch("--methode ist 0 bis 9.");
    const auto Gewünschte = NummernLesen(Eingabe.Argumente);
    if (!Gewünschte) return Falsch("Eine NUMMER ist eine ganze Zahl.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Nummern = Lauf.Nummern(*Gewünschte);
    if (!Nummern) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    const auto Funde =
        AufräumenSuchen(Programm, OhneDoppelte(*Nummern, Programm.Index.IndexAnzahl()), *Methode);
    if (Lauf.Json()) {
        JsonSchreiber& Ziel = Lauf.Dokument();
        Ziel.ListeAnfang();
        for (const Aufräumfund& Fund : Funde) {
            Ziel.ListeAnfang();
            Ziel.Zahl(Fund.Ergebnis1);
            Ziel.Zahl(Fund.Ergebnis2);
            Ziel.ListeEnde();
        }
        Ziel.ListeEnde();
        return Lauf.Abschließen();
    }
    for (const Aufräumfund& Fund : Funde) {
        std::string Zeile = std::to_string(Fund.Ergebnis1);
        if (Fund.Ergebnis2 != 0) Zeile += " " + std::to_string(Fund.Ergebnis2);
        Lauf.Text().Schreiben(Zeile + "  " + Sichtbar(FundText(Programm.Index, Fund)) + "\n");
    }
    Lauf.Text().Schreiben(std::to_string(Funde.size()) + " Datei(en)\n");
    return Lauf.Abschließen();
}

}  // namespace liedwerk
