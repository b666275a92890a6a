#include "core/dateilauf.h"

#include "basis/pfad.h"
#include "core/hinzufuegelauf.h"
#include "core/suchlauf.h"

namespace liedwerk {

Dateiumgebung DateiumgebungVon(Anwendung& Programm, Katalog& Index) {
    return {Index,
            Programm.Werte,
            Programm.Dienst.Person,
            Programm.Log,
            Programm.Dienst.Ordner,
            Programm.Medium,
            MediumumgebungVon(Programm),
            Programm.Dienst.Eimer};
}

Dateiumgebung DateiumgebungVon(Anwendung& Programm) {
    return DateiumgebungVon(Programm, Programm.Index);
}

Kopierauftrag KopierauftragAus(const Einstellungen& Werte) {
    return {Werte.KopierenOrdner, Werte.KopierenStrukturÜbernehmen == 1, Werte.KopierenModus == 1,
            Werte.KopierenÜberschreiben};
}

Kopierbericht KopierenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze,
                           const Kopierauftrag& Auftrag) {
    Kopierbericht Bericht;
    {
        const Laufsperre Sperre(Programm);
        Programm.Medium.AlleÜberspringen = false;
        Bericht = DateienKopierenVerschieben(DateiumgebungVon(Programm), Sätze, Auftrag);
    }
    if (Auftrag.Verschieben && Bericht.Anzahl > 0) SucheAktualisieren(Programm);
    return Bericht;
}

Löschergebnis LöschenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze, bool Papierkorb,
                          bool MitFrage) {
    Löschergebnis Ergebnis;
    {
        const Laufsperre Sperre(Programm);
        MediumVergessen(Programm.Medium);
        Programm.Medium.AlleÜberspringen = false;
        Ergebnis = DateienLöschen(DateiumgebungVon(Programm), Sätze, Papierkorb, MitFrage);
        DatensätzeEntfernen(Programm.Index, Ergebnis.Gelöscht);
    }
    if (Ergebnis.Gelöscht.empty()) return Ergebnis;
    Programm.Ansicht.ListeMarkierungenVerwerfen = true;
    SucheAktualisieren(Programm);
    Programm.Dienst.Person.StatusZeigen(
        std::to_string(Ergebnis.Gelöscht.size()) +
        (Papierkorb ? " Datei(en) in den Papierkorb verschoben" : " Datei(en) gelöscht"));
    return Ergebnis;
}

bool EntfernenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze) {
    if (Sätze.empty()) return false;
    const std::string Anzahl = std::to_string(Sätze.size());
    if (Programm.Dienst.Person.JaNein(
            Symbol::Frage,
            "Möchten Sie " + Anzahl + " Datei(en) aus dem Index entfernen, ohne diese zu löschen?",
            Antwort::Nein) != Antwort::Ja)
        return false;
    DatensätzeEntfernen(Programm.Index, Sätze);
    Programm.Ansicht.ListeMarkierungenVerwerfen = true;
    SucheAktualisieren(Programm);
    Programm.Dienst.Person.StatusZeigen(Anzahl + " Datei(en) aus dem Index entfernt");
    return true;
}

void EinfügenLauf(Anwendung& Programm, const std::vector<std::string>& Pfade, bool Verschieben) {
    Oberfläche& Person = Programm.Dienst.Person;
    std::vector<std::string> Neue;
    {
        const Laufsperre Sperre(Programm);
        Person.FortschrittStarten("Dateien kopieren/verschieben", true,
                                  static_cast<std::int64_t>(Pfade.size()));
        std::int64_t Position = 0;
        for (const auto& Pfad : Pfade) {
            if (!Person.FortschrittZeigen(Pfad, ++Position)) break;
            const auto Ergebnis = KopierenInOrdner(Person, Pfad, PfadVon(Pfad), Programm.Index.IndexDateiname,
                                                   Verschieben, ÜberschreibenFragen);
            if (!Ergebnis.Fehlertext.empty()) Person.Melden(Symbol::Ausrufezeichen, Ergebnis.Fehlertext);
            if (Ergebnis.Getan) Neue.push_back(Ergebnis.Ziel);
            if (Ergebnis.Abgebrochen) break;
        }
        Person.FortschrittSchließen();
    }
    if (!Neue.empty()) DateienHinzufügenLauf(Programm, Neue, {}, true);
}

}  // namespace liedwerk
