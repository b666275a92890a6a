#include "core/umbenennlauf.h"

#include "core/dateilauf.h"
#include "core/suchlauf.h"

namespace liedwerk {
namespace {

// Shows what went wrong and asks whether the run goes on.
bool Weitermachen(Anwendung& Programm, const Umbenennergebnis& Ergebnis, bool Letzter) {
    if (Ergebnis.Abgebrochen) return false;
    Oberfläche& Person = Programm.Dienst.Person;
    if (!Ergebnis.Meldung.empty()) {
        Programm.Log.Schreiben("DateiUmbenennen: Fehler - " + Ergebnis.Meldung);
        Person.Melden(Symbol::Ausrufezeichen, Ergebnis.Meldung);
    }
    if (Ergebnis.Behandelt || Ergebnis.Übersprungen || Letzter) return true;
    return Person.JaNein(Symbol::Frage, "Möchten Sie mit der nächsten Datei fortfahren?") == Antwort::Ja;
}

// One file of the run; false ends it.
bool EinzelnUmbenennen(Anwendung& Programm, Umbenennumgebung& Umgebung, const Umbenennauftrag& Auftrag,
                       Satznummer Nummer, std::string& Zähler, bool Letzter, Satznummer& Anzahl) {
    if (!NurIndex(Auftrag.Funktion)) {
        const auto Da = DateiNichtVerfügbarPrüfen(Programm.Index, Nummer, Programm.Medium,
                                                  Umgebung.Dateien.Laufwerk, Programm.Dienst.Person, false);
        if (Da != Verfügbarkeit::Weiter) return Da == Verfügbarkeit::Überspringen;
    }
    const auto Ergebnis = DateiUmbenennen(Umgebung, Auftrag, Nummer, Zähler);
    if (Ergebnis.Geändert) ++Anzahl;
    return Weitermachen(Programm, Ergebnis, Letzter);
}

}  // namespace

Umbenennauftrag UmbenennauftragAus(const Einstellungen& Werte, Umbenennfunktion Funktion) {
    Umbenennauftrag Auftrag;
    Auftrag.Funktion = Funktion;
    Auftrag.Format = Werte.UmbenennenEingabeID3;
    Auftrag.FortlaufendAnfang = Werte.UmbenennenEingabeNeuAnfang;
    Auftrag.FortlaufendZahl = Werte.UmbenennenEingabeNeuZahl;
    Auftrag.FortlaufendEnde = Werte.UmbenennenEingabeNeuEnde;
    if (Funktion == Umbenennfunktion::ZeichenErsetzen) {
        Auftrag.Ersetzen = Werte.UmbenennenEingabeErsetzenText;
        Auftrag.ErsetzenDurch = Werte.UmbenennenEingabeErsetzenDurch;
        Auftrag.ErsetzenAuchPfad = Werte.UmbenennenErsetzenPfadVerwenden == 1;
    }
    if (Werte.UmbenennenEingabeSchreibweise > 0 && Werte.UmbenennenEingabeSchreibweise <= 4)
        Auftrag.Schreibweise = static_cast<Namensschreibweise>(Werte.UmbenennenEingabeSchreibweise);
    Auftrag.Endung = Funktion == Umbenennfunktion::LeereDatei ? Werte.UmbenennenEingabeErsetzenDateiEndung
                                                              : Werte.UmbenennenEingabeDateiEndung;
    Auftrag.Schreibschutz = Werte.UmbenennenAttributeR == 1;
    return Auftrag;
}

void UmbenennauftragMerken(Einstellungen& Werte, const Umbenennauftrag& Auftrag) {
    switch (Auftrag.Funktion) {
        case Umbenennfunktion::NachFeldern:
            Werte.UmbenennenEingabeID3 = Auftrag.Format;
            break;
        case Umbenennfunktion::ZeichenErsetzen:
            Werte.UmbenennenEingabeErsetzenText = Auftrag.Ersetzen;
            Werte.UmbenennenEingabeErsetzenDurch = Auftrag.ErsetzenDurch;
            Werte.UmbenennenErsetzenPfadVerwenden = Auftrag.ErsetzenAuchPfad ? 1 : 0;
            break;
        case Umbenennfunktion::Fortlaufend:
            Werte.UmbenennenEingabeNeuAnfang = Auftrag.FortlaufendAnfang;
            Werte.UmbenennenEingabeNeuZahl = Auftrag.FortlaufendZahl;
            Werte.UmbenennenEingabeNeuEnde = Auftrag.FortlaufendEnde;
            break;
        case Umbenennfunktion::Schreibweise:
            Werte.UmbenennenEingabeSchreibweise = static_cast<std::int16_t>(Auftrag.Schreibweise);
            break;
        case Umbenennfunktion::Endung:
            Werte.UmbenennenEingabeDateiEndung = Auftrag.Endung;
            break;
        case Umbenennfunktion::LeereDatei:
            Werte.UmbenennenEingabeErsetzenDateiEndung = Auftrag.Endung;
            break;
        case Umbenennfunktion::Attribute:
            Werte.UmbenennenAttributeR = Auftrag.Schreibschutz ? 1 : 0;
            break;
        case Umbenennfunktion::Manuell:
        case Umbenennfunktion::IndexManuell:
        case Umbenennfunktion::IndexZeichenErsetzen:
            break;
    }
}

Satznummer UmbenennenLauf(Anwendung& Programm, const Umbenennauftrag& Auftrag,
                          std::span<const Satznummer> Sätze, const Namensfrage& NamenErfragen) {
    Oberfläche& Person = Programm.Dienst.Person;
    Satznummer Anzahl = 0;
    {
        const Laufsperre Sperre(Programm);
        MediumVergessen(Programm.Medium);
        Programm.Medium.AlleÜberspringen = false;
        Umbenennumgebung Umgebung{DateiumgebungVon(Programm), MedienleserVon(Programm), NamenErfragen};
        std::string Zähler = Auftrag.FortlaufendZahl;
        Person.FortschrittStarten("Benenne Dateien um", true, static_cast<std::int64_t>(Sätze.size()));
        for (std::size_t Stelle = 0; Stelle < Sätze.size(); ++Stelle) {
            Umgebung.Position = static_cast<std::int64_t>(Stelle) + 1;
            if (!Person.FortschrittZeigen(Programm.Index.Sätze.Pfad(Sätze[Stelle]), Umgebung.Position)) break;
            const bool Letzter = Stelle + 1 == Sätze.size();
            if (!EinzelnUmbenennen(Programm, Umgebung, Auftrag, Sätze[Stelle], Zähler, Letzter, Anzahl))
                break;
        }
        Person.FortschrittSchließen();
    }
    if (Anzahl > 0) SucheAktualisieren(Programm);
    Person.StatusZeigen(std::to_string(Anzahl) + " Dateien wurden umbenannt/geändert.");
    return Anzahl;
}

}  // namespace liedwerk
