#include "dateien/loeschen.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/speicherrest.h"
#include "dateien/verschieben.h"

namespace liedwerk {
namespace {

// A progress display of this run, unless a larger run has opened one.
class EigenerFortschritt {
  public:
    EigenerFortschritt(Oberfläche& Wem, std::string_view Titel, std::size_t Höchstens)
        : Person(Wem), Eigener(!Wem.FortschrittOffen()) {
        if (Eigener) Person.FortschrittStarten(Titel, true, static_cast<std::int64_t>(Höchstens));
    }
    EigenerFortschritt(const EigenerFortschritt&) = delete;
    EigenerFortschritt& operator=(const EigenerFortschritt&) = delete;
    ~EigenerFortschritt() {
        if (Eigener) Person.FortschrittSchließen();
    }

  private:
    Oberfläche& Person;
    bool Eigener;
};

Dateifehler EinzelnLöschen(const Dateiumgebung& Umgebung, const std::string& Pfad, bool Papierkorb) {
    if (OrdnerExistiert(Pfad)) return {-1, "Sie ist ein Ordner"};
    // What is gone already needs no deletion; but where the folder is missing, the drive may only be away.
    if (!DateiExistiert(Pfad) && OrdnerExistiert(PfadVon(Pfad)) && !NameVerzeichnet(Pfad)) return {};
    // A link goes without its file.
    if (VerweiseAuflösen(Pfad) == Pfad) {
        if (auto Rest = UnterbrochenesSpeichern(Pfad)) return Rest;
    }
    if (!Papierkorb) return DateiLöschen(Pfad);
    if (Umgebung.Eimer == nullptr) return {-1, "Es ist kein Papierkorb vorhanden"};
    return Umgebung.Eimer->Verschieben(Pfad);
}

std::string Fehlersatz(std::string_view Pfad, bool Papierkorb, std::string_view Grund) {
    std::string Text = "Die Datei '";
    Text.append(Pfad);
    Text.append(Papierkorb ? "' konnte nicht in den Papierkorb verschoben werden.\n"
                           : "' konnte nicht gelöscht werden.\n");
    return Text.append(Grund).append(".\n\n").append(ZugriffsHinweis);
}

// Tells what went wrong; true when the run goes on.
bool FehlerMelden(const Dateiumgebung& Umgebung, const std::string& Text, bool Letzter) {
    if (!Letzter) {
        return Umgebung.Person.JaNein(Symbol::Ausrufezeichen,
                                      Text + "\n\nMöchten Sie mit der nächsten Datei fortfahren?") ==
               Antwort::Ja;
    }
    Umgebung.Person.Melden(Symbol::Ausrufezeichen, Text);
    return true;
}

bool OrdnerIstLeer(const Ordnerleser& Leser, std::string_view Ordner) {
    bool Leer = true;
    const bool Lesbar = Leser.Auflisten(Ordner, [&](const Ordnereintrag&) { return Leer = false; });
    return Lesbar && Leer;
}

}  // namespace

std::string Löschfrage(std::size_t Anzahl) {
    return "Möchten Sie " + std::to_string(Anzahl) + " Datei(en) vom Datenträger löschen?";
}

Löschergebnis DateienLöschen(const Dateiumgebung& Umgebung, std::span<const Satznummer> Sätze,
                             bool Papierkorb, bool MitFrage) {
    Löschergebnis Ergebnis;
    if (Sätze.empty()) return Ergebnis;
    Oberfläche& Person = Umgebung.Person;
    if (MitFrage &&
        Person.JaNein(Symbol::Ausrufezeichen, Löschfrage(Sätze.size()), Antwort::Nein) != Antwort::Ja) {
        Ergebnis.Abgebrochen = true;
        return Ergebnis;
    }
    const EigenerFortschritt Anzeige(
        Person, Papierkorb ? "Dateien in Papierkorb verschieben" : "Dateien löschen", Sätze.size());
    for (std::size_t Stelle = 0; Stelle < Sätze.size() && !Ergebnis.Abgebrochen; ++Stelle) {
        const std::string Pfad = Umgebung.Index.Sätze.Pfad(Sätze[Stelle]);
        if (!Person.FortschrittZeigen(Pfad, static_cast<std::int64_t>(Stelle) + 1)) {
            Ergebnis.Abgebrochen = true;
            break;
        }
        const auto Da = DateiNichtVerfügbarPrüfen(Umgebung.Index, Sätze[Stelle], Umgebung.Medium,
                                                  Umgebung.Laufwerk, Person, false);
        Ergebnis.Abgebrochen = Da == Verfügbarkeit::Abbrechen;
        if (Da != Verfügbarkeit::Weiter || !SchreibtestDatei(Person, Pfad)) continue;
        const auto Fehler = EinzelnLöschen(Umgebung, Pfad, Papierkorb);
        if (!Fehler) {
            Ergebnis.Gelöscht.push_back(Sätze[Stelle]);
            continue;
        }
        Umgebung.Log.Schreiben("DateienLöschen: Fehler - " + Fehler.Text);
        Ergebnis.Abgebrochen =
            !FehlerMelden(Umgebung, Fehlersatz(Pfad, Papierkorb, Fehler.Text), Stelle + 1 == Sätze.size());
    }
    return Ergebnis;
}

std::string DurchLeereDateiErsetzen(std::string_view Pfad, std::string_view Neu) {
    const std::string Gescheitert = "Die Datei '" + std::string(Pfad) + "' konnte nicht gelöscht werden.";
    if (const auto Rest = UnterbrochenesSpeichern(Pfad)) return Gescheitert + "\n" + Rest.Text + ".";
    if (Pfad == Neu && VerweiseAuflösen(Pfad) != Pfad) return Gescheitert + "\nSie ist eine Verknüpfung.";
    if (Pfad == Neu) {
        Dateiersatz Ersatz;
        if (Ersatz.Öffnen(std::string(Pfad), TagTemporärname(Pfad)) == Dateiersatz::Öffnung::Bereit &&
            Ersatz.Übernehmen())
            return {};
        return Gescheitert + "\n" + Ersatz.Fehler().Text + ".";
    }
    if (const auto Fehler = DateiNeuAnlegen(Neu)) {
        return "Die leere Datei '" + std::string(Neu) + "' konnte nicht angelegt werden.\n" + Fehler.Text +
               ".";
    }
    const auto Fehler = DateiLöschen(Pfad);
    if (!Fehler) return {};
    DateiLöschen(Neu);
    return Gescheitert + "\n" + Fehler.Text + ".";
}

void OrdnerLöschenFragen(const Dateiumgebung& Umgebung, std::string_view Ordner) {
    if (Umgebung.Werte.LeereOrdnerLöschen != 1 || !OrdnerExistiert(Ordner)) return;
    if (!OrdnerIstLeer(Umgebung.Ordner, Ordner)) return;
    const std::string Anfang = "Der Ordner '" + std::string(Ordner) + "' ";
    if (Umgebung.Person.JaNein(Symbol::Frage, Anfang + "ist (nun) leer.\nMöchten Sie diesen entfernen?") !=
        Antwort::Ja)
        return;
    if (OrdnerLöschen(Ordner)) {
        Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                               Anfang +
                                   "konnte nicht gelöscht werden.\nMöglicherweise ist dieser "
                                   "schreibgeschützt oder es befinden sich noch (versteckte) Dateien "
                                   "darin.");
    }
}

}  // namespace liedwerk
