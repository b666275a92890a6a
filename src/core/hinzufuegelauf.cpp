#include "core/hinzufuegelauf.h"

#include <algorithm>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "core/listenlauf.h"
#include "core/suchlauf.h"

namespace liedwerk {
namespace {

bool WirdGesucht(const Anwendung& Programm) {
    const Suchzeile Zeile = Programm.Dienst.Fenster.SuchzeileLesen();
    return !Zeile.Begriff.empty() || Programm.Abfragen.SucheAnzahl() > 1;
}

// Search or list after Anzahl records were appended from Erster on.
void ListeNachführen(Anwendung& Programm, Satznummer Erster) {
    if (WirdGesucht(Programm)) {
        SucheAktualisieren(Programm);
        return;
    }
    ListeAnhängen(Programm.Ansicht, Programm.Index, Erster);
    Programm.Dienst.Fenster.ListeZeigen();
}

void NeueMarkieren(Anwendung& Programm, Satznummer Anzahl) {
    const auto& Zeilen = Programm.Ansicht.Zeilen;
    const auto Letzte = std::min(static_cast<std::size_t>(Anzahl), Zeilen.size());
    Programm.Ansicht.Auswahl.assign(Zeilen.end() - static_cast<std::ptrdiff_t>(Letzte), Zeilen.end());
    Programm.Dienst.Fenster.ZeilenAuswählen(Letzte);
}

// Everything behind a run: list or search, selection, counts. -1 when the run was cancelled or failed.
Satznummer Abschließen(Anwendung& Programm, const Hinzufügeergebnis& Ergebnis,
                       const Hinzufügefolgen& Folgen) {
    // After a cancel the list follows only when it shows the whole index; a search stays as it was.
    const bool Nachführen = Ergebnis.Gelungen || !WirdGesucht(Programm);
    if (Folgen.ListeAktualisieren && Ergebnis.Anzahl > 0 && Nachführen)
        ListeNachführen(Programm, Ergebnis.ErsterNeuer);
    if (Ergebnis.Gelungen && Folgen.NeueDateienMarkieren && Ergebnis.Anzahl > 0)
        NeueMarkieren(Programm, Ergebnis.Anzahl);
    Programm.Dienst.Fenster.AuswahlZeigen();
    // Names that no index can hold are told, so that nobody believes them added.
    DateienMelden(
        Programm.Dienst.Person,
        " Datei(en) wurden nicht hinzugefügt, da ihr Name ein Zeilenende enthält. Benennen Sie diese "
        "um und fügen Sie sie erneut hinzu:\n",
        Ergebnis.Ausgelassen);
    DateienMelden(
        Programm.Dienst.Person,
        " Ordner konnte(n) nicht oder nicht ganz gelesen werden, die Dateien darin wurden nicht "
        "hinzugefügt. Bitte prüfen Sie Ihre Zugriffsrechte, den Datenträger und die Länge des Namens:\n",
        Ergebnis.Ungelesene);
    return Ergebnis.Gelungen ? Ergebnis.Anzahl : -1;
}

}  // namespace

void DateienMelden(Oberfläche& Person, std::string_view Was, const std::vector<std::string>& Dateien) {
    if (Dateien.empty()) return;
    std::string Text = std::to_string(Dateien.size()).append(Was);
    constexpr std::size_t Höchstens = 10;
    constexpr std::size_t Namensrand = 150;  // characters of either end that are shown of a longer name
    for (std::size_t i = 0; i < std::min(Dateien.size(), Höchstens); ++i) {
        const std::string Name = Ersetzen(Ersetzen(Dateien[i], "\r", " "), "\n", " ");
        const bool Kurz = ZeichenAnzahl(Name) <= 2 * Namensrand;
        Text += '\n';
        Text += Kurz ? Name
                     : std::string(LinkerTeil(Name, Namensrand)) + " ... " +
                           std::string(RechterTeil(Name, Namensrand));
    }
    if (Dateien.size() > Höchstens) Text += "\n...";
    Person.Melden(Symbol::Ausrufezeichen, Text);
}

bool AlsOrdnerHinzufügbar(std::string_view Pfad) {
    return !Pfad.empty() && OrdnerExistiert(MitTrenner(Pfad));
}

void NeueSätzeZeigen(Anwendung& Programm, Satznummer Anzahl) {
    ListeNachführen(Programm, Programm.Index.IndexAnzahl() - Anzahl + 1);
    NeueMarkieren(Programm, Anzahl);
}

Satznummer OrdnerHinzufügenLauf(Anwendung& Programm, const Ordnerauftrag& Auftrag,
                                const Hinzufügefolgen& Folgen) {
    const Laufsperre Sperre(Programm);
    return Abschließen(Programm, EinfachOrdnerHinzufügen(HinzufügeumgebungVon(Programm), Auftrag), Folgen);
}

Satznummer DateienHinzufügenLauf(Anwendung& Programm, const std::vector<std::string>& Dateien,
                                 const Hinzufügefolgen& Folgen, bool StatusMelden) {
    const Laufsperre Sperre(Programm);
    return Abschließen(Programm,
                       EinfachDateiHinzufügen(HinzufügeumgebungVon(Programm), Dateien, StatusMelden), Folgen);
}

Satznummer DragDropVerarbeiten(Anwendung& Programm, const std::vector<std::string>& Objekte) {
    const Laufsperre Sperre(Programm);
    const Satznummer Vorher = Programm.Index.IndexAnzahl();
    const Hinzufügefolgen Keine{false, false};
    bool Gelungen = true;
    std::vector<std::string> Dateien;
    for (const auto& Pfad : Objekte) {
        if (IstPlayliste(Pfad)) {
            PlaylistLesen(Programm, Pfad, Keine);
        } else if (AlsOrdnerHinzufügbar(Pfad)) {
            Ordnerauftrag Auftrag;
            Auftrag.Ordner = Pfad;
            Auftrag.Unterordner = Programm.Werte.HinzufügenUnterordner == 1;
            Auftrag.DateimanagerAnsicht = Programm.Index.Programmmodus == ModusDateimanager;
            Gelungen = OrdnerHinzufügenLauf(Programm, Auftrag, Keine) >= 0;
            // A cancel means the whole drop.
            if (!Gelungen) break;
        } else if (DateiExistiert(Pfad)) {
            Dateien.push_back(Pfad);
        }
    }
    if (Gelungen && !Dateien.empty()) Gelungen = DateienHinzufügenLauf(Programm, Dateien, Keine, true) >= 0;

    Hinzufügeergebnis Summe;
    Summe.Gelungen = Gelungen;
    Summe.Anzahl = Programm.Index.IndexAnzahl() - Vorher;
    Summe.ErsterNeuer = Summe.Anzahl > 0 ? Vorher + 1 : 0;
    return Abschließen(Programm, Summe, {});
}

}  // namespace liedwerk
