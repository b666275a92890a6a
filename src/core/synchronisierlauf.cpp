#include "core/synchronisierlauf.h"

#include <algorithm>
#include <utility>

#include "core/hinzufuegelauf.h"
#include "core/suchlauf.h"
#include "dateien/neulesen.h"
#include "dateien/synchronisieren.h"

namespace liedwerk {
namespace {

// Adds what is new in every folder; false when that was cancelled or failed.
bool OrdnerHinzufügen(Anwendung& Programm) {
    // A copy: the event loop gets turns meanwhile.
    const auto Regeln = Programm.Index.Optionen.SyncOrdner;
    for (const SyncRegel& Regel : Regeln) {
        Ordnerauftrag Auftrag;
        Auftrag.Ordner = Regel.Ordner;
        Auftrag.Unterordner = Regel.Unterordner != 0;
        Auftrag.KopierenInOrdner = Regel.KopierenInOrdner;
        Auftrag.NichtBeiText = Programm.Index.Optionen.SyncNichtBei;
        Auftrag.StatusMelden = false;
        // The list and the selection follow once, at the end of all folders.
        if (OrdnerHinzufügenLauf(Programm, Auftrag, {false, false}) < 0) return false;
    }
    return true;
}

// Takes out the records whose files are gone; false when the person cancelled: then all stay. Bekannte: the
// number of records that were there before the run, of which it takes off those that go.
bool FehlendeEntfernen(Anwendung& Programm, Satznummer& Bekannte) {
    Programm.Medium.AlleÜberspringen = false;
    Katalog& Index = Programm.Index;
    if (Index.IndexAnzahl() == 0 || Index.Optionen.SyncEntfernen != 1) return true;
    const auto Prüfung =
        ExistenzenPrüfen(Index, Programm.Medium, MediumumgebungVon(Programm), Programm.Dienst.Person);
    if (Prüfung.Abgebrochen) return false;
    if (Prüfung.Unklar > 0)
        Programm.Log.Schreiben("Synchronisieren: " + std::to_string(Prüfung.Unklar) +
                               " Datei(en) sind zurzeit nicht erreichbar und bleiben im Index");
    // A new file may have vanished by now as well.
    Bekannte -= static_cast<Satznummer>(std::ranges::count_if(
        Prüfung.Fehlende, [Bis = Bekannte](Satznummer Nummer) { return Nummer <= Bis; }));
    DatensätzeEntfernen(Index, Prüfung.Fehlende);
    return true;
}

// Renews the records whose files have changed; false when the person cancelled. What could not be read is
// told at the end, in Unlesbar.
bool GeänderteLesen(Anwendung& Programm, const Neuleseauftrag& Auftrag, Synchronisierergebnis& Ergebnis,
                    std::vector<std::string>& Unlesbar) {
    if (Programm.Werte.SyncGeänderteLesen != 1) return true;
    auto Neues = GeänderteNeuLesen(HinzufügeumgebungVon(Programm), Programm.Dienst.Zeit, Auftrag);
    Ergebnis.NeuGelesen = Neues.Geändert;
    Unlesbar = std::move(Neues.Unlesbar);
    return !Neues.Abgebrochen;
}

std::string Statustext(const Anwendung& Programm, const Synchronisierergebnis& Ergebnis) {
    std::string Text = Ergebnis.Gelungen ? "Synchronisation fertig: " : "Synchronisation abgebrochen: ";
    Text += std::to_string(Ergebnis.Entfernt) + " Datei(en) entfernt, " +
            std::to_string(Ergebnis.Hinzugefügt) + " Datei(en) hinzugefügt";
    if (Programm.Werte.SyncGeänderteLesen == 1)
        Text += ", " + std::to_string(Ergebnis.NeuGelesen) + " Datei(en) neu gelesen";
    return Text;
}

// How often records were changed so far; two equal values say that none was in between.
std::pair<std::uint64_t, std::size_t> Änderungsstand(const Katalog& Index) {
    return {Index.Sätze.Generation(), Index.Sätze.GeänderteSätze().size()};
}

void ListeNachführen(Anwendung& Programm, const Synchronisierergebnis& Ergebnis, bool Geändert) {
    if (Ergebnis.Entfernt > 0) {
        // The numbers of the records have moved.
        Programm.Ansicht.Auswahl.clear();
        SucheAktualisieren(Programm);
    } else if (Ergebnis.Hinzugefügt > 0) {
        NeueSätzeZeigen(Programm, Ergebnis.Hinzugefügt);
    } else if (Geändert) {
        // Records have followed their moved files.
        SucheAktualisieren(Programm);
    }
    Programm.Dienst.Fenster.AuswahlZeigen();
}

}  // namespace

Synchronisierergebnis SynchronisierenLauf(Anwendung& Programm) {
    const Laufsperre Sperre(Programm);
    Oberfläche& Person = Programm.Dienst.Person;
    Katalog& Index = Programm.Index;
    if (Index.Programmmodus == ModusDateimanager) {
        Person.Melden(Symbol::Information, "Diese Funktion steht im Dateimanager-Modus nicht zur Verfügung.");
        return {};
    }
    Programm.AbgleichGelungen = false;
    MediumVergessen(Programm.Medium);
    if (Index.Optionen.SyncOrdner.empty())
        Person.Melden(Symbol::Information,
                      "Diese Funktion synchronisiert Ordner mit dem Index und entfernt nicht mehr vorhandene "
                      "Dateien.\n"
                      "Sie haben jedoch noch keine Ordner zum Synchronisieren angegeben.\n"
                      "Klicken Sie dazu einfach in den 'Optionen' auf 'Index-Optionen'.");
    Synchronisierergebnis Ergebnis;
    const Zeitpunkt Beginn = Programm.Dienst.Zeit.Jetzt();
    const Satznummer Vorher = Index.IndexAnzahl();
    const auto Stand = Änderungsstand(Index);
    Ergebnis.Gelungen = OrdnerHinzufügen(Programm);
    Ergebnis.Hinzugefügt = Index.IndexAnzahl() - Vorher;
    Satznummer Bekannte = Vorher;
    if (Ergebnis.Gelungen) Ergebnis.Gelungen = FehlendeEntfernen(Programm, Bekannte);
    std::vector<std::string> Unlesbar;
    if (Ergebnis.Gelungen)
        Ergebnis.Gelungen = GeänderteLesen(Programm, {Beginn, Bekannte}, Ergebnis, Unlesbar);
    Programm.AbgleichGelungen = Ergebnis.Gelungen;
    Person.FortschrittSchließen();
    Ergebnis.Entfernt = Vorher + Ergebnis.Hinzugefügt - Index.IndexAnzahl();
    Person.StatusZeigen(Statustext(Programm, Ergebnis));
    ListeNachführen(Programm, Ergebnis, Änderungsstand(Index) != Stand);
    DateienMelden(
        Person,
        " geänderte Datei(en) konnten nicht gelesen werden. Ihre Einträge im Index bleiben, wie sie "
        "sind. Prüfen Sie, ob die Dateien vollständig und für Sie lesbar sind:\n",
        Unlesbar);
    return Ergebnis;
}

}  // namespace liedwerk
