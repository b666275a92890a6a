#include "dateien/neuaufnahme.h"

#include <algorithm>
#include <utility>

#include "basis/datei.h"
#include "basis/dateiname.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "dateien/kopieren.h"
#include "dateien/loeschen.h"
#include "index/dateitypen.h"

namespace liedwerk {
namespace {

// What the walk over a folder takes for a file too: nothing can be read from a pipe or a device.
bool IstGewöhnlicheDatei(std::string_view Pfad) {
    const auto Stand = DateistandLesen(Pfad);
    return Stand && Stand->IstDatei;
}

// A log line that stays one line.
std::string Einzeilig(std::string_view Text) {
    return Ersetzen(Ersetzen(Text, "\r", "\\r"), "\n", "\\n");
}

}  // namespace

Leseauftrag HinzufügeLeseauftrag(std::string_view Mp3TagLesen) {
    Leseauftrag Auftrag;
    Auftrag.Code = Lesecode::Lesen(std::string(Mp3TagLesen.substr(0, 3)) +
                                   std::string(Mp3TagLesen.size() > 1 ? Mp3TagLesen.substr(1, 1) : ""));
    Auftrag.ZeilenEntfernen = true;
    Auftrag.GrößeLesen = Mp3TagLesen.size() > 2 && Mp3TagLesen[2] == '1';
    Auftrag.WechselmediumLesen = Auftrag.GrößeLesen;
    return Auftrag;
}

void LeerenOrdnerAnbieten(const Hinzufügeumgebung& Umgebung, std::string_view Ordner) {
    OrdnerLöschenFragen({Umgebung.Index, Umgebung.Werte, Umgebung.Person, Umgebung.Log, Umgebung.Ordner,
                         Umgebung.Medium, Umgebung.Laufwerk, nullptr},
                        Ordner);
}

Neuaufnahme::Neuaufnahme(const Hinzufügeumgebung& Ziel)
    : Umgebung(Ziel), Dateiauftrag(HinzufügeLeseauftrag(Ziel.Werte.Mp3TagLesen)) {
    Ordnerauftrag.Code = Lesecode{};
    Ordnerauftrag.ZeilenEntfernen = true;
    Ordnerauftrag.WechselmediumLesen = true;
    MediumVergessen(Umgebung.Medium);
}

const std::string& Neuaufnahme::MediumDesPfades(const std::string& Pfad) {
    const std::string Laufwerk = LaufwerkDesPfades(Umgebung.Laufwerk, Pfad);
    const auto Fund = Medien.find(Laufwerk);
    if (Fund != Medien.end()) return Fund->second;
    WechselmediumVergleichenStarten(Umgebung.Medium, Umgebung.Laufwerk, Laufwerk);
    return Medien[Laufwerk] = Umgebung.Medium.AktuellesWechselmedium;
}

std::vector<Satznummer> Neuaufnahme::DoppelteSätze(const std::string& Pfad) {
    const auto& Sätze = Umgebung.Index.Sätze;
    std::vector<Satznummer> Treffer = Umgebung.Pfade.Finden(Sätze, Pfad);
    std::erase_if(Treffer, [&](Satznummer Nummer) {
        return Sätze.Text(Nummer, FeldWechselmedium) != MediumDesPfades(Pfad);
    });
    return Treffer;
}

bool Neuaufnahme::ZeilenendeMelden(const std::string& Pfad) {
    if (!HatZeilenende(Pfad)) return false;
    Umgebung.Log.Schreiben("DateienZumIndexHinzufügen: '" + Einzeilig(Pfad) +
                           "' enthält ein Zeilenende und kann nicht in den Index aufgenommen werden");
    Ausgelassen.push_back(Pfad);
    return true;
}

bool Neuaufnahme::Gesucht(const std::string& Pfad, const Aufnahmeregel& Regel, bool IstOrdner) const {
    if (!Regel.NichtBeiText.empty() &&
        PositionOhneGroß(DateinameVon(Pfad), Regel.NichtBeiText) != std::string_view::npos) {
        return false;
    }
    return IstOrdner || DateiTypErlaubt(Umgebung.Index.Optionen.Dateitypen, Pfad, false, false, false, true);
}

Neuaufnahme::Plan Neuaufnahme::Planen(const std::string& Pfad, const Aufnahmeregel& Regel, Vorleser& Leser) {
    Plan Neu;
    const bool IstOrdner = Regel.OrdnerErlaubt && OrdnerExistiert(Pfad);
    Neu.Zeigen = Gesucht(Pfad, Regel, IstOrdner);
    if (!Neu.Zeigen) return Neu;
    const bool Fehlt = Regel.ErstVorhanden && !IstGewöhnlicheDatei(Pfad);
    if (Fehlt || HatZeilenende(Pfad)) return Neu;
    if (Regel.KeineDoppelten) {
        const auto Doppelte = DoppelteSätze(Pfad);
        if (!Doppelte.empty()) Neu.Treffer = Doppelte.front();
    }
    Neu.Art = Neu.Treffer != 0 ? Schritt::Doppelt : Schritt::Lesen;
    if (Neu.Art != Schritt::Lesen) return Neu;
    const auto& Auftrag = IstOrdner ? Ordnerauftrag : Dateiauftrag;
    if (Auftrag.WechselmediumLesen) Neu.Wechselmedium = MediumDesPfades(Pfad);
    // Which medium is in a drive is known here; the readers need not ask for it from several threads.
    Leseauftrag OhneMedium = Auftrag;
    OhneMedium.WechselmediumLesen = false;
    Leser.Auftragen(Pfad, IstOrdner, OhneMedium);
    return Neu;
}

void Neuaufnahme::DoppeltenVermerken(Satznummer Nummer, const std::string& Pfad) {
    // Kept: the index counts as changed even when the spelling is the same.
    Umgebung.Index.IndexGeändert = true;
    auto& Sätze = Umgebung.Index.Sätze;
    if (Sätze.Pfad(Nummer) != Pfad) Sätze.PfadSetzen(Nummer, Pfad);
}

void Neuaufnahme::Eintragen(Leseposten& Posten, const std::string& Wechselmedium) {
    if (!Posten.Fehler.empty()) {
        Umgebung.Log.Schreiben("DateienZumIndexHinzufügen: Fehler - " + Posten.Fehler + " bei '" +
                               Posten.Pfad + "'");
    }
    if (!Posten.Vorhanden) return;
    Posten.Satz.Wechselmedium = Wechselmedium;
    NeueDatensätze.Anhängen(Posten.Pfad, Posten.Satz);
}

bool Neuaufnahme::LeseErgebnis(const Plan& Was, Vorleser& Leser, std::int64_t Position) {
    Leseposten* Posten = Leser.Abwarten(Lesewartezeit);
    while (Posten == nullptr) {
        if (!Zeigen(Position)) return false;
        Posten = Leser.Abwarten(Lesewartezeit);
    }
    Eintragen(*Posten, Was.Wechselmedium);
    Leser.Ablegen();
    return true;
}

bool Neuaufnahme::Ausführen(const std::string& Pfad, const Plan& Was, const Aufnahmeregel& Regel,
                            Vorleser& Leser, std::int64_t Position) {
    if ((Was.Zeigen || !Regel.ZweimalZeigen) && !Zeigen(Position)) return false;
    if (Was.Zeigen && ZeilenendeMelden(Pfad)) return true;
    switch (Was.Art) {
        case Schritt::Übergehen:
            return true;
        case Schritt::Doppelt:
            DoppeltenVermerken(Was.Treffer, Pfad);
            return true;
        case Schritt::Lesen:
            break;
    }
    if (Regel.ZweimalZeigen && !Zeigen(Position)) return false;
    return LeseErgebnis(Was, Leser, Position);
}

void Neuaufnahme::OrdnerAufnehmen(const std::string& Ordner) {
    if (ZeilenendeMelden(Ordner) || !OrdnerExistiert(Ordner)) return;
    Leseposten Posten{Ordner, true, Ordnerauftrag, true, {}, {}};
    Leseauftrag OhneMedium = Ordnerauftrag;
    OhneMedium.WechselmediumLesen = false;
    Posten.Satz = Umgebung.Leser(Ordner, Datensatz{}, OhneMedium);
    Eintragen(Posten, MediumDesPfades(Ordner));
}

bool Neuaufnahme::Aufnehmen(std::span<const std::string> Pfade, const Aufnahmeregel& Regel) {
    Vorleser Leser(Umgebung.Leser, Lesefäden(Pfade.size()));
    // How many paths may be decided ahead: enough to keep all threads busy.
    constexpr std::size_t Vorlauf = 1024;
    std::deque<Plan> Pläne;
    std::size_t Geplant = 0;
    for (std::size_t Nummer = 0; Nummer < Pfade.size(); ++Nummer) {
        // Refilled in larger pieces, so that the threads are not woken up for single files.
        if (Pläne.size() < Vorlauf / 2) {
            while (Geplant < Pfade.size() && Pläne.size() < Vorlauf && !Leser.Voll())
                Pläne.push_back(Planen(Pfade[Geplant++], Regel, Leser));
            Leser.Losschicken();
        }
        const Plan Was = std::move(Pläne.front());
        Pläne.pop_front();
        if (!Ausführen(Pfade[Nummer], Was, Regel, Leser, static_cast<std::int64_t>(Nummer) + 1)) return false;
    }
    return true;
}

std::optional<std::string> Neuaufnahme::Umziehen(const std::string& Pfad, const Aufnahmeregel& Regel,
                                                 bool& Abbruch) {
    const std::string Ziel(Regel.KopierenInOrdner);
    // A target within the folder: what has been moved there is at its place.
    if (Pfad.starts_with(MitTrenner(Ziel))) return Pfad;
    if (DateinameBereinigen(Ziel, true) != Ziel) {
        Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                               "Beim Kopieren der Datei '" + Pfad + "' ist ein Fehler aufgetreten: \n" +
                                   "Der Zielordner-Name '" + Ziel + "' enthält ungültige Zeichen.\n" +
                                   "Die Kopieren-Funktion wurde für diesen Ordner deaktiviert.");
        return std::nullopt;
    }
    const auto Ergebnis = KopierenInOrdner(Umgebung.Person, Pfad, Regel.Ordner, Ziel, true, ÜberschreibenNie);
    // A copy whose source could not be removed is told as a failure: the file keeps its own path.
    if (Ergebnis.Gelungen && Ergebnis.Fehlertext.empty()) {
        // A file that stays because its target exists already keeps its own path.
        if (!Ergebnis.Umgezogen) return Pfad;
        LeerenOrdnerAnbieten(Umgebung, PfadVon(Pfad));
        return Ergebnis.Ziel;
    }
    Abbruch = Ergebnis.Abgebrochen;
    if (Abbruch) return std::nullopt;
    const bool Fortfahren =
        Umgebung.Person.JaNein(Symbol::Ausrufezeichen,
                               "Beim Verschieben der Datei '" + Pfad + "' ist ein Fehler aufgetreten: " +
                                   Ergebnis.Fehlertext + "\nMöchten Sie mit weiteren Dateien im Ordner '" +
                                   std::string(Regel.Ordner) + "' fortfahren?") == Antwort::Ja;
    return Fortfahren ? std::optional(Pfad) : std::nullopt;
}

void Neuaufnahme::SätzeMitnehmen(const std::vector<Satznummer>& Nummern, const std::string& Pfad,
                                 const std::string& Ort) {
    const auto Umschreiben = [&](const std::vector<Satznummer>& Welche, const std::string& Wohin) {
        for (const Satznummer Nummer : Welche) {
            Datensatz Satz = Umgebung.Index.Sätze.Lesen(Nummer);
            Satz.Wechselmedium = MediumDesPfades(Wohin);
            Umgebung.Index.Sätze.Setzen(Nummer, Wohin, Satz);
        }
    };
    // No file stood at the target: a record there had lost its own. It changes places with the file's
    // records, and so goes on as what it was, the record of a file that is missing.
    const auto Verwaiste = DoppelteSätze(Ort);
    Umschreiben(Nummern, Ort);
    Umschreiben(Verwaiste, Pfad);
    Umgebung.Index.IndexGeändert = true;
}

bool Neuaufnahme::UmziehenUndAufnehmen(std::span<const std::string> Pfade, const Aufnahmeregel& Regel) {
    Vorleser Leser(Umgebung.Leser, 1);
    Aufnahmeregel Danach = Regel;
    Danach.ZweimalZeigen = false;
    std::int64_t Position = 0;
    for (const auto& Pfad : Pfade) {
        ++Position;
        if (!Gesucht(Pfad, Regel, false)) continue;
        if (!Umgebung.Person.FortschrittZeigen(Pfad, Position)) return false;
        if (ZeilenendeMelden(Pfad)) continue;
        bool Abbruch = false;
        const auto Bisherige = DoppelteSätze(Pfad);
        const auto Ort = Umziehen(Pfad, Regel, Abbruch);
        if (!Ort) return !Abbruch;
        if (!Bisherige.empty() && *Ort != Pfad) {
            SätzeMitnehmen(Bisherige, Pfad, *Ort);
            continue;
        }
        const Plan Was = Planen(*Ort, Danach, Leser);
        Leser.Losschicken();
        if (!Ausführen(*Ort, Was, Danach, Leser, Position)) return false;
    }
    return true;
}

Hinzufügeergebnis Neuaufnahme::Abschließen() {
    Hinzufügeergebnis Ergebnis;
    Ergebnis.Ausgelassen = std::move(Ausgelassen);
    Ergebnis.Anzahl = NeueDatensätze.Anzahl();
    if (Ergebnis.Anzahl == 0) return Ergebnis;
    Ergebnis.ErsterNeuer = Umgebung.Index.IndexAnzahl() + 1;
    SätzeAnfügen(Umgebung.Index, std::move(NeueDatensätze));
    Umgebung.Index.IndexGeändert = true;
    return Ergebnis;
}

}  // namespace liedwerk
