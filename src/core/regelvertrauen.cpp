#include "core/regelvertrauen.h"

#include <algorithm>

#include "core/terminlauf.h"

namespace liedwerk {
namespace {

// Names in the person's settings of what a program keeps for itself, no choice of the person.
constexpr std::string_view SyncIndex = "SyncIndex";
constexpr std::string_view SyncIndexPrüfsumme = "SyncIndexPrüfsumme";

bool Verschiebt(const SyncRegel& Regel) {
    return !Regel.KopierenInOrdner.empty();
}

bool Vertraut(const Anwendung& Programm, const SyncRegel& Regel) {
    return !Verschiebt(Regel) ||
           std::ranges::find(Programm.VertrauteRegeln, Regel) != Programm.VertrauteRegeln.end();
}

void Vertrauen(Anwendung& Programm, const SyncRegel& Regel) {
    if (!Vertraut(Programm, Regel)) Programm.VertrauteRegeln.push_back(Regel);
}

std::string Gemerkt(const Anwendung& Programm, std::string_view Name) {
    const auto Wert = Programm.Dienst.Nutzerwerte.Lesen(Name);
    const auto* const Text = Wert ? std::get_if<std::string>(&*Wert) : nullptr;
    return Text == nullptr ? std::string() : *Text;
}

}  // namespace

void RegelvertrauenLesen(Anwendung& Programm) {
    Programm.VertrauteRegeln.clear();
    const auto& Regeln = Programm.Index.Optionen.SyncOrdner;
    if (std::ranges::none_of(Regeln, Verschiebt)) return;
    if (IstGeladeneDatei(Programm, Gemerkt(Programm, SyncIndex), Gemerkt(Programm, SyncIndexPrüfsumme)))
        std::ranges::copy_if(Regeln, std::back_inserter(Programm.VertrauteRegeln), Verschiebt);
}

void RegelvertrauenMerken(Anwendung& Programm, std::string_view Datei) {
    const Katalog& Index = Programm.Index;
    const auto& Regeln = Index.Optionen.SyncOrdner;
    if (Datei != Index.IndexDateiname || std::ranges::none_of(Regeln, Verschiebt)) return;
    if (!std::ranges::all_of(Regeln, [&](const SyncRegel& Regel) { return Vertraut(Programm, Regel); }))
        return;
    Wertspeicher& Nutzer = Programm.Dienst.Nutzerwerte;
    Nutzer.Schreiben(SyncIndex, std::string(Datei));
    Nutzer.Schreiben(SyncIndexPrüfsumme, IndexprüfsummeVon(Programm, Datei));
    // Written at once: a run that is cut off would otherwise ask for what it was told.
    Nutzer.Sichern();
}

void RegelnEingetragen(Anwendung& Programm, const Indexoptionen& Alt) {
    for (const SyncRegel& Regel : Programm.Index.Optionen.SyncOrdner) {
        if (std::ranges::find(Alt.SyncOrdner, Regel) == Alt.SyncOrdner.end()) Vertrauen(Programm, Regel);
    }
}

bool RegelnErlauben(Anwendung& Programm) {
    const Laufsperre Sperre(Programm);
    const Katalog& Index = Programm.Index;
    bool Gefragt = false;
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
        Gefragt = true;
    }
    // What lies in the file is what was asked about.
    if (Gefragt && !Index.IndexGeändert && DateistandLesen(Index.IndexDateiname) == Index.IndexDateiZeit)
        RegelvertrauenMerken(Programm, Index.IndexDateiname);
    return true;
}

}  // namespace liedwerk
