#include "dateien/kopieren.h"

#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "basis/pfad.h"
#include "basis/text.h"
#include "dateien/loeschen.h"

namespace liedwerk {
namespace {

// Tells what happened to a file; true when the run goes on.
bool FehlerMelden(const Dateiumgebung& Umgebung, const std::string& Grund, bool Letzter) {
    Umgebung.Log.Schreiben("DateienKopierenVerschieben: Fehler - " + Grund);
    std::string Text = "Beim Kopieren oder Verschieben von Dateien ist ein Fehler aufgetreten.\n";
    Text.append(Grund).append("\n\n").append(ZugriffsHinweis);
    if (Letzter) {
        Umgebung.Person.Melden(Symbol::Ausrufezeichen, Text);
        return true;
    }
    return Umgebung.Person.JaNein(Symbol::Ausrufezeichen,
                                  Text + "\n\nMöchten Sie mit der nächsten Datei fortfahren?") == Antwort::Ja;
}

// The path behind a folder that it lies in; only the name when it does not.
std::string_view RestHinter(std::string_view Pfad, std::string_view Ordner) {
    const std::string Anfang = MitTrenner(Ordner);
    if (!Anfang.empty() && Pfad.size() > Anfang.size() && PfadeGleich(Pfad.substr(0, Anfang.size()), Anfang))
        return Pfad.substr(Anfang.size());
    return DateinameVon(Pfad);
}

// The files that one batch works on: its sources, and what it has put at its targets. The rule for existing
// targets was chosen for what lay there before; none of these may replace another one unasked.
class Stapeldateien {
  public:
    Stapeldateien(const Satzspeicher& Index, std::span<const Satznummer> Sätze, std::int16_t GewählteRegel)
        : Regel(GewählteRegel) {
        if (!KannErsetzen()) return;
        for (const Satznummer Nummer : Sätze)
            Aufnehmen(Index.Pfad(Nummer));
    }
    void Aufnehmen(const std::string& Pfad) {
        if (!KannErsetzen()) return;
        // Folded, since the target may be a file system for which the names are the same. By its path alone a
        // source is known whose medium is still away, by its place on the disk one behind a linked folder.
        Pfade.insert(Falten(Pfad));
        if (const auto Stand = DateistandLesen(Pfad)) Orte.emplace(Stand->Gerät, Stand->Inode);
    }
    std::int16_t RegelFür(std::string_view Ziel) const {
        if (!KannErsetzen() || !Enthält(Ziel)) return Regel;
        return Regel == ÜberschreibenÄltereSonstNie ? ÜberschreibenNie : ÜberschreibenFragen;
    }
    // Where the file of an earlier record with the same path has gone; nothing when there was none.
    const std::string* ErledigtNach(const std::string& Pfad) const {
        const auto Fund = Erledigte.find(Pfad);
        return Fund == Erledigte.end() ? nullptr : &Fund->second;
    }
    void Erledigen(const std::string& Pfad, const std::string& Ziel) { Erledigte.emplace(Pfad, Ziel); }

  private:
    bool KannErsetzen() const {
        return Regel == ÜberschreibenImmer || Regel == ÜberschreibenÄltereSonstFragen ||
               Regel == ÜberschreibenÄltereSonstNie;
    }
    bool Enthält(std::string_view Ziel) const {
        if (Pfade.contains(Falten(Ziel))) return true;
        const auto Stand = DateistandLesen(Ziel);
        return Stand && Orte.contains({Stand->Gerät, Stand->Inode});
    }
    std::int16_t Regel;
    std::unordered_set<std::string> Pfade;
    std::set<std::pair<std::uint64_t, std::uint64_t>> Orte;  // device and inode
    std::unordered_map<std::string, std::string> Erledigte;  // target by source
};

void EinzelnKopieren(const Dateiumgebung& Umgebung, Satznummer Nummer, const Kopierauftrag& Auftrag,
                     std::int64_t Position, bool Letzter, Stapeldateien& Stapel, Kopierbericht& Bericht) {
    const std::string Pfad = Umgebung.Index.Sätze.Pfad(Nummer);
    if (const std::string* const Dort = Stapel.ErledigtNach(Pfad)) {
        if (Auftrag.Verschieben) SatzUmziehen(Umgebung, Nummer, *Dort);
        return;
    }
    const std::string Ziel = KopierzielBilden(Pfad, LaufwerkDesPfades(Umgebung.Laufwerk, Pfad), Auftrag);
    const auto Ergebnis =
        DateiVerschieben(Umgebung.Person, Pfad, Ziel, Auftrag.Verschieben, Stapel.RegelFür(Ziel), Position);
    if (Ergebnis.Getan) Stapel.Aufnehmen(Ergebnis.Ziel);
    if (Ergebnis.Getan && (!Auftrag.Verschieben || Ergebnis.Umgezogen)) {
        ++Bericht.Anzahl;
        Stapel.Erledigen(Pfad, Ergebnis.Ziel);
    }
    if (!Ergebnis.Gelungen) Bericht.Gelungen = false;
    if (Ergebnis.Umgezogen) {
        SatzUmziehen(Umgebung, Nummer, Ergebnis.Ziel);
        OrdnerLöschenFragen(Umgebung, PfadVon(Pfad));
    }
    Bericht.Abgebrochen = Ergebnis.Abgebrochen;
    if (Ergebnis.Fehlertext.empty()) return;
    Bericht.Gelungen = false;
    Bericht.Abgebrochen = !FehlerMelden(Umgebung, Ergebnis.Fehlertext, Letzter);
}

}  // namespace

std::string KopierzielBilden(std::string_view Pfad, std::string_view Laufwerk, const Kopierauftrag& Auftrag) {
    const std::string_view Rest = Auftrag.Struktur ? RestHinter(Pfad, Laufwerk) : DateinameVon(Pfad);
    return PfadVerbinden(Auftrag.Ordner, Rest);
}

Kopierbericht DateienKopierenVerschieben(const Dateiumgebung& Umgebung, std::span<const Satznummer> Sätze,
                                         const Kopierauftrag& Auftrag) {
    Kopierbericht Bericht;
    Oberfläche& Person = Umgebung.Person;
    if (Auftrag.Ordner.empty()) {
        Person.Melden(Symbol::Information,
                      "Bitte geben Sie einen Zielordner für den Kopier-/Verschiebe-Vorgang an.");
        Bericht.Gelungen = false;
        return Bericht;
    }
    MediumVergessen(Umgebung.Medium);
    Stapeldateien Stapel(Umgebung.Index.Sätze, Sätze, Auftrag.Überschreiben);
    Person.FortschrittStarten("Dateien kopieren/verschieben", true, static_cast<std::int64_t>(Sätze.size()));
    for (std::size_t Stelle = 0; Stelle < Sätze.size() && !Bericht.Abgebrochen; ++Stelle) {
        const Satznummer Nummer = Sätze[Stelle];
        const auto Position = static_cast<std::int64_t>(Stelle) + 1;
        if (!Person.FortschrittZeigen(Umgebung.Index.Sätze.Pfad(Nummer), Position)) {
            Bericht.Abgebrochen = true;
            break;
        }
        const auto Da = DateiNichtVerfügbarPrüfen(Umgebung.Index, Nummer, Umgebung.Medium, Umgebung.Laufwerk,
                                                  Person, false);
        Bericht.Abgebrochen = Da == Verfügbarkeit::Abbrechen;
        if (Da != Verfügbarkeit::Weiter)
            Bericht.Gelungen = false;
        else
            EinzelnKopieren(Umgebung, Nummer, Auftrag, Position, Stelle + 1 == Sätze.size(), Stapel, Bericht);
    }
    Person.FortschrittSchließen();
    Person.StatusZeigen(std::to_string(Bericht.Anzahl) +
                        (Auftrag.Verschieben ? " Datei(en) verschoben" : " Datei(en) kopiert"));
    return Bericht;
}

Verschiebeergebnis KopierenInOrdner(Oberfläche& Person, std::string_view Pfad, std::string_view Ordner,
                                    std::string_view Zielordner, bool Verschieben,
                                    std::int16_t Überschreiben) {
    return DateiVerschieben(Person, Pfad, PfadVerbinden(Zielordner, RestHinter(Pfad, Ordner)), Verschieben,
                            Überschreiben);
}

void SatzUmziehen(const Dateiumgebung& Umgebung, Satznummer Nummer, const std::string& Ziel) {
    Satzspeicher& Sätze = Umgebung.Index.Sätze;
    std::string Medium;
    WechselmediumVergleichen(Umgebung.Medium, Umgebung.Laufwerk, LaufwerkDesPfades(Umgebung.Laufwerk, Ziel),
                             {}, Medium);
    if (Sätze.Text(Nummer, FeldWechselmedium) == Medium) {
        Sätze.PfadSetzen(Nummer, Ziel);
    } else {
        // On its new drive the file would be looked for under the label of the old medium.
        Datensatz Satz = Sätze.Lesen(Nummer);
        Satz.Wechselmedium = Medium;
        Sätze.Setzen(Nummer, Ziel, Satz);
    }
    Umgebung.Index.IndexGeändert = true;
}

}  // namespace liedwerk
