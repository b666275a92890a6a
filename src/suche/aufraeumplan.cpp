#include "suche/aufraeumplan.h"

#include <algorithm>

namespace liedwerk {
namespace {

// How much an action takes away: nothing, the entry, a file that can be fetched back, a file for good.
int Gewicht(Aufräumaktion Aktion) {
    switch (Aktion) {
        case Aufräumaktion::Keine:
            return 0;
        case Aufräumaktion::AusIndexEntfernen:
            return 1;
        case Aufräumaktion::Papierkorb:
            return 2;
        case Aufräumaktion::Ersetzen:
            return 3;
        case Aufräumaktion::Löschen:
            return 4;
    }
    return 0;
}

}  // namespace

Aufräumplan AufräumplanBilden(std::span<const Aufräumzeile> Zeilen) {
    Satznummer Höchste = 0;
    for (const Aufräumzeile& Zeile : Zeilen)
        Höchste = std::max({Höchste, Zeile.Fund.Ergebnis1, Zeile.Fund.Ergebnis2});
    std::vector<Aufräumaktion> Gewählt(static_cast<std::size_t>(Höchste) + 1, Aufräumaktion::Keine);
    const auto Wählen = [&](Satznummer Nummer, Aufräumaktion Aktion) {
        if (Nummer == 0 || Aktion == Aufräumaktion::Keine) return;
        Aufräumaktion& Bisher = Gewählt[static_cast<std::size_t>(Nummer)];
        if (Bisher == Aufräumaktion::Keine || Gewicht(Aktion) < Gewicht(Bisher)) Bisher = Aktion;
    };
    for (const Aufräumzeile& Zeile : Zeilen) {
        Wählen(Zeile.Fund.Ergebnis1, Zeile.Aktion1);
        Wählen(Zeile.Fund.Ergebnis2, Zeile.Aktion2);
    }
    Aufräumplan Plan;
    for (Satznummer Nummer = 1; Nummer <= Höchste; ++Nummer) {
        switch (Gewählt[static_cast<std::size_t>(Nummer)]) {
            case Aufräumaktion::Keine:
                break;
            case Aufräumaktion::Löschen:
                Plan.Löschen.push_back(Nummer);
                break;
            case Aufräumaktion::Papierkorb:
                Plan.Papierkorb.push_back(Nummer);
                break;
            case Aufräumaktion::AusIndexEntfernen:
                Plan.AusIndexEntfernen.push_back(Nummer);
                break;
            case Aufräumaktion::Ersetzen:
                Plan.Ersetzen.push_back(Nummer);
                break;
        }
    }
    return Plan;
}

std::string AufräumFrage(const Aufräumplan& Plan) {
    std::string Text = "Sie haben folgende Aktionen gewählt:\n";
    const auto Nennen = [&](const std::vector<Satznummer>& Sätze, std::string_view Was) {
        if (!Sätze.empty()) Text.append("\n - ").append(std::to_string(Sätze.size())).append(Was);
    };
    Nennen(Plan.Löschen, " Datei(en) löschen und aus dem Index entfernen");
    Nennen(Plan.Papierkorb, " Datei(en) in den Papierkob verschieben und aus dem Index entfernen");
    Nennen(Plan.AusIndexEntfernen, " Datei(en) aus dem Index entfernen, ohne diese zu löschen");
    Nennen(Plan.Ersetzen,
           " Datei(en) durch eine leere Datei mit Endung '.inanderemordner' ersetzen und aus dem Index "
           "entfernen");
    return Text + "\n\nMöchten Sie diese Aktionen durchführen?";
}

}  // namespace liedwerk
