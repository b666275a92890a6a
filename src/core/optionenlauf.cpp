#include "core/optionenlauf.h"

#include "abspielen/statistik.h"
#include "basis/zahl.h"
#include "core/beenden.h"
#include "core/suchlauf.h"

namespace liedwerk {
namespace {

// Copies into Ziel what differs between Alt and Neu; true when anything did.
bool UnterschiedeNehmen(Einstellungen& Ziel, const Einstellungen& Alt, const Einstellungen& Neu) {
    bool Geändert = false;
    const auto Nehmen = [&Geändert](auto& Wert, const auto& Vorher, const auto& Nachher) {
        if (Vorher == Nachher) return;
        Wert = Nachher;
        Geändert = true;
    };
#define LIEDWERK_NEHMEN(Art, Name, Standard) Nehmen(Ziel.Name, Alt.Name, Neu.Name);
    LIEDWERK_EINSTELLUNGEN(LIEDWERK_NEHMEN)
#undef LIEDWERK_NEHMEN
#define LIEDWERK_NEHMEN(Name) Nehmen(Ziel.Name, Alt.Name, Neu.Name);
    LIEDWERK_EINSTELLUNGSLISTEN(LIEDWERK_NEHMEN)
#undef LIEDWERK_NEHMEN
    return Geändert;
}

// The loaded index knows the further formats at once; others learn them when they are loaded. Switching off
// leaves the table to the person, who may have put in the same types.
void WeitereFormateAufnehmen(Anwendung& Programm) {
    if (Programm.Werte.WeitereFormate != 1 || Programm.Index.Programmmodus == ModusNichtsGeladen) return;
    auto& Typen = Programm.Index.Optionen.Dateitypen;
    const auto Fehlende = FehlendeGrundtypen(Typen, true);
    if (Fehlende.empty()) return;
    Typen.insert(Typen.end(), Fehlende.begin(), Fehlende.end());
    Programm.Index.IndexGeändert = true;
}

}  // namespace

Einstellungen OptionenEntwurf(const Anwendung& Programm) {
    Einstellungen Entwurf = Programm.Werte;
    if (Programm.TagLesenNurLauf) Entwurf.Mp3TagLesen = Programm.TagLesenGemerkt;
    return Entwurf;
}

void OptionenÜbernehmen(Anwendung& Programm, const Einstellungen& Alt, const Einstellungen& Neu) {
    const std::string FürDenLauf = Programm.Werte.Mp3TagLesen;
    if (!UnterschiedeNehmen(Programm.Werte, Alt, Neu)) return;
    if (Programm.TagLesenNurLauf) {
        Programm.TagLesenGemerkt = Neu.Mp3TagLesen;
        Programm.Werte.Mp3TagLesen = FürDenLauf;
    }
    WeitereFormateAufnehmen(Programm);
    Programm.Dienst.Fenster.ErscheinungAnwenden();
    if (Alt.FehlendeMedienZeigen != Neu.FehlendeMedienZeigen) Programm.Dienst.Fenster.ListeZeigen();
    if (Alt.SucheUmlauteGleich != Neu.SucheUmlauteGleich) SucheErneuern(Programm);
    Programm.Dienst.Fenster.AuswahlZeigen();
    EinstellungenSichern(Programm, true);
}

void StatistikLöschenLauf(Anwendung& Programm) {
    const Antwort Wille = Programm.Dienst.Person.JaNein(
        Symbol::Frage,
        "Möchten Sie für alle " + Gruppiert(Programm.Index.IndexAnzahl()) +
            " Datei(en) des Index das Abspiel-Datum und die Abspiel-Häufigkeit tatsächlich löschen?",
        Antwort::Nein);
    if (Wille != Antwort::Ja) return;
    const Laufsperre Sperre(Programm);
    const Satznummer Anzahl = StatistikLöschen(Programm.Index);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
    Programm.Dienst.Person.StatusZeigen("Die Statistikdaten von " + Gruppiert(Anzahl) +
                                        " Datei(en) wurden gelöscht.");
}

}  // namespace liedwerk
