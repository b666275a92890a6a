#include "core/regelvertrauen.h"

#include <algorithm>

#include "basis/text.h"

namespace liedwerk {
namespace {

// Name in the person's settings of what a program keeps for itself, no choice of the person: the trusted
// rules, the oldest first, a line each.
constexpr std::string_view Regelwert = "SyncRegeln";
constexpr std::size_t HöchsteRegelzahl = 200;

bool Verschiebt(const SyncRegel& Regel) {
    return !Regel.KopierenInOrdner.empty();
}

// A rule of the loaded index. No path of an index holds a line end.
std::string Regelzeile(const Anwendung& Programm, const SyncRegel& Regel) {
    return Programm.Index.IndexDateiname + "\t" + Regel.Ordner + "\t" + std::to_string(Regel.Unterordner) +
           "\t" + Regel.KopierenInOrdner;
}

std::vector<std::string> Vertraute(const Anwendung& Programm) {
    const auto Wert = Programm.Dienst.Nutzerwerte.Lesen(Regelwert);
    const auto* const Text = Wert ? std::get_if<std::string>(&*Wert) : nullptr;
    return Text == nullptr || Text->empty() ? std::vector<std::string>() : Teilen(*Text, "\n");
}

bool Vertraut(const Anwendung& Programm, const SyncRegel& Regel) {
    return !Verschiebt(Regel) || std::ranges::count(Vertraute(Programm), Regelzeile(Programm, Regel)) > 0;
}

// Written at once: a run that is cut off would otherwise ask for what it was told.
void Vertrauen(Anwendung& Programm, const SyncRegel& Regel) {
    if (Vertraut(Programm, Regel)) return;
    auto Zeilen = Vertraute(Programm);
    if (Zeilen.size() >= HöchsteRegelzahl) Zeilen.erase(Zeilen.begin());
    Zeilen.push_back(Regelzeile(Programm, Regel));
    Programm.Dienst.Nutzerwerte.Schreiben(Regelwert, Verbinden(Zeilen, "\n"));
    Programm.Dienst.Nutzerwerte.Sichern();
}

}  // namespace

void RegelnEingetragen(Anwendung& Programm, const Indexoptionen& Alt) {
    for (const SyncRegel& Regel : Programm.Index.Optionen.SyncOrdner) {
        if (std::ranges::find(Alt.SyncOrdner, Regel) == Alt.SyncOrdner.end()) Vertrauen(Programm, Regel);
    }
}

bool RegelnErlauben(Anwendung& Programm) {
    const Laufsperre Sperre(Programm);
    const Katalog& Index = Programm.Index;
    // A copy: the event loop gets turns meanwhile.
    for (const SyncRegel& Regel : std::vector<SyncRegel>(Index.Optionen.SyncOrdner)) {
        if (Vertraut(Programm, Regel)) continue;
        const Antwort Erlaubt = Programm.Dienst.Person.JaNein(
            Symbol::Frage,
            "Die Indexdatei '" + Index.IndexDateiname +
                "' verschiebt beim Synchronisieren die Dateien aus dem Ordner\n'" + Regel.Ordner + "'" +
                (Regel.Unterordner != 0 ? " und seinen Unterordnern" : "") + "\nin den Ordner\n'" +
                Regel.KopierenInOrdner +
                "'.\n\nSie haben diese Regel nicht auf diesem Rechner eingetragen oder erlaubt. Möchten Sie "
                "die Dateien verschieben?",
            Antwort::Nein);
        if (Erlaubt != Antwort::Ja) {
            Programm.Dienst.Person.StatusZeigen("Synchronisation nicht begonnen");
            return false;
        }
        Vertrauen(Programm, Regel);
    }
    return true;
}

}  // namespace liedwerk
