#include "core/aufraeumlauf.h"

#include <algorithm>

#include "basis/datei.h"
#include "core/dateilauf.h"
#include "core/suchlauf.h"
#include "dateien/synchronisieren.h"

namespace liedwerk {
namespace {

// The look at the files of the methods that need one.
class Dateiblick {
  public:
    Dateiblick(Anwendung& Lauf, Aufräummethode Art)
        : Programm(Lauf), Methode(Art), Umgebung(MediumumgebungVon(Lauf)), Leser(MedienleserVon(Lauf)) {}

    Dateibefund operator()(Satznummer Nummer) {
        switch (DateiNichtVerfügbarPrüfen(Programm.Index, Nummer, Programm.Medium, Umgebung,
                                          Programm.Dienst.Person, false)) {
            case Verfügbarkeit::Abbrechen:
                return Dateibefund::Abbruch;
            case Verfügbarkeit::Überspringen:
                return Dateibefund::Unauffällig;
            case Verfügbarkeit::Weiter:
                break;
        }
        const std::string Pfad = Programm.Index.Sätze.Pfad(Nummer);
        // A file that is merely out of reach is no reason to take its record out.
        if (Methode == Aufräummethode::NichtVorhanden)
            return Urteil(DateiNachsehen(Pfad, Umgebung) == Dateiverbleib::Fort || OrdnerExistiert(Pfad));
        return Urteil(DateiExistiert(Pfad) && OhneTag(Pfad));
    }

  private:
    static Dateibefund Urteil(bool Verdächtig) {
        return Verdächtig ? Dateibefund::Verdächtig : Dateibefund::Unauffällig;
    }
    // Of a file that does not answer nobody can say that it lacks a tag.
    bool OhneTag(const std::string& Pfad) const {
        const bool Erster = Methode == Aufräummethode::OhneId3v1Neu;
        Leseauftrag Auftrag;
        Auftrag.Code = Lesecode::Lesen(Erster ? "1000" : "0100");
        const Datensatz Satz = Leser(Pfad, {}, Auftrag);
        const bool Gelesen = !Satz.Lesegestört && IstLesbar(Pfad);
        return Gelesen && (Erster ? Satz.HatId3v1 : Satz.HatId3v2) != TagVorhanden;
    }

    Anwendung& Programm;
    Aufräummethode Methode;
    Mediumumgebung Umgebung;
    MedienLeser Leser;
};

// The same file under two names: a folder may be reached in two ways.
bool IstDieselbeDatei(const std::string& A, const std::string& B) {
    const auto StandA = DateistandLesen(A);
    const auto StandB = DateistandLesen(B);
    return StandA && StandB && StandA->Gerät == StandB->Gerät && StandA->Inode == StandB->Inode;
}

// One run over a plan.
class Durchführung {
  public:
    Durchführung(Anwendung& Lauf, Aufräumplan Gewählte)
        : Programm(Lauf), Person(Lauf.Dienst.Person), Plan(std::move(Gewählte)) {}

    // Leaves the files alone that a record which stays still needs.
    void DieselbenSchonen(std::span<const Aufräumzeile> Zeilen) {
        auto Geht = VerlierenIhreDatei();
        NachPfadSchonen(Geht);
        // The rows of equal files form chains: one pass each way carries the first or last one through.
        for (const Aufräumzeile& Zeile : Zeilen)
            PaarSchonen(Zeile.Fund, Geht);
        for (auto Zeile = Zeilen.rbegin(); Zeile != Zeilen.rend(); ++Zeile)
            PaarSchonen(Zeile->Fund, Geht);
        for (std::vector<Satznummer>* const Menge : {&Plan.Löschen, &Plan.Papierkorb, &Plan.Ersetzen}) {
            std::erase_if(*Menge, [&](Satznummer Nummer) {
                if (Geht[Platz(Nummer)]) return false;
                Plan.AusIndexEntfernen.push_back(Nummer);
                ++GeschonteAnzahl;
                return true;
            });
        }
    }
    // "Dateien prüfen": skipped files leave the plan; false when the person ends the run.
    bool Prüfen() {
        for (std::vector<Satznummer>* const Menge : {&Plan.Löschen, &Plan.Papierkorb, &Plan.Ersetzen}) {
            StufeBeginnen("Dateien prüfen", Menge->size());
            std::vector<Satznummer> Vorhandene;
            for (const Satznummer Nummer : *Menge) {
                const auto Da = DateiNichtVerfügbarPrüfen(Programm.Index, Nummer, Programm.Medium,
                                                          MediumumgebungVon(Programm), Person, false);
                if (Da == Verfügbarkeit::Abbrechen || !Weiter()) return false;
                if (Da == Verfügbarkeit::Weiter) Vorhandene.push_back(Nummer);
            }
            *Menge = std::move(Vorhandene);
        }
        return true;
    }
    void Ausführen() {
        Löschen(Plan.Löschen, "Dateien löschen", false);
        Löschen(Plan.Papierkorb, "Dateien in Papierkorb verschieben", true);
        Ersetzen();
        StufeBeginnen("Index anpassen", 1);
        Gegangene.insert(Gegangene.end(), Plan.AusIndexEntfernen.begin(), Plan.AusIndexEntfernen.end());
        DatensätzeEntfernen(Programm.Index, Gegangene);
    }
    std::size_t Anzahl() const { return Gegangene.size(); }
    std::size_t Geschonte() const { return GeschonteAnzahl; }

  private:
    static std::size_t Platz(Satznummer Nummer) { return static_cast<std::size_t>(Nummer); }
    std::string Pfad(Satznummer Nummer) const { return Programm.Index.Sätze.Pfad(Nummer); }
    std::vector<bool> VerlierenIhreDatei() const {
        std::vector<bool> Geht(Platz(Programm.Index.IndexAnzahl()) + 1);
        for (const std::vector<Satznummer>* const Menge : {&Plan.Löschen, &Plan.Papierkorb, &Plan.Ersetzen}) {
            for (const Satznummer Nummer : *Menge)
                Geht[Platz(Nummer)] = true;
        }
        return Geht;
    }
    // An entry with the same path anywhere in the index.
    void NachPfadSchonen(std::vector<bool>& Geht) {
        const std::vector<bool> Anfangs = Geht;
        for (Satznummer Nummer = 1; Nummer <= Programm.Index.IndexAnzahl(); ++Nummer) {
            if (!Anfangs[Platz(Nummer)]) continue;
            const auto Gleiche = Programm.Pfade.Finden(Programm.Index.Sätze, Pfad(Nummer));
            Geht[Platz(Nummer)] =
                std::ranges::all_of(Gleiche, [&](Satznummer Andere) { return Anfangs[Platz(Andere)]; });
        }
    }
    void PaarSchonen(const Aufräumfund& Paar, std::vector<bool>& Geht) const {
        const auto [A, B] = Paar;
        if (B == 0 || Geht[Platz(A)] == Geht[Platz(B)]) return;
        if (IstDieselbeDatei(Pfad(A), Pfad(B))) Geht[Platz(A)] = Geht[Platz(B)] = false;
    }
    void StufeBeginnen(std::string_view Stufe, std::size_t Höchstens) {
        Stand = 0;
        Person.FortschrittStarten("Vorgänge werden ausgeführt", true, static_cast<std::int64_t>(Höchstens));
        Person.FortschrittZeigen(Stufe, 0);
    }
    bool Weiter() { return Person.FortschrittZeigen({}, ++Stand); }

    void Löschen(const std::vector<Satznummer>& Menge, std::string_view Stufe, bool Papierkorb) {
        if (Beendet || Menge.empty()) return;
        StufeBeginnen(Stufe, Menge.size());
        const auto Ergebnis = DateienLöschen(DateiumgebungVon(Programm), Menge, Papierkorb, false);
        Gegangene.insert(Gegangene.end(), Ergebnis.Gelöscht.begin(), Ergebnis.Gelöscht.end());
        Beendet = Ergebnis.Abgebrochen;
    }
    void Ersetzen() {
        if (Beendet || Plan.Ersetzen.empty()) return;
        StufeBeginnen("Dateien ersetzen", Plan.Ersetzen.size());
        for (const Satznummer Nummer : Plan.Ersetzen) {
            const std::string Alte = Pfad(Nummer);
            const std::string Fehler = DurchLeereDateiErsetzen(Alte, Alte + std::string(Ersatzendung));
            if (Fehler.empty()) {
                Gegangene.push_back(Nummer);
            } else if (Nummer == Plan.Ersetzen.back()) {
                Person.Melden(Symbol::Ausrufezeichen, Fehler);
            } else {
                Beendet = Person.JaNein(Symbol::Ausrufezeichen,
                                        Fehler + "\n\nMöchten Sie mit der nächsten Datei fortfahren?") !=
                          Antwort::Ja;
            }
            if (!Weiter() || Beendet) return;
        }
    }

    Anwendung& Programm;
    Oberfläche& Person;
    Aufräumplan Plan;
    std::vector<Satznummer> Gegangene;
    std::size_t GeschonteAnzahl = 0;
    std::int64_t Stand = 0;
    bool Beendet = false;
};

}  // namespace

std::vector<Satznummer> AufräumArbeitsmenge(const Anwendung& Programm) {
    std::vector<Satznummer> Menge = Programm.Ansicht.Auswahl;
    if (Programm.Index.Programmmodus == ModusDateimanager) {
        std::erase_if(Menge,
                      [&](Satznummer Nummer) { return OrdnerExistiert(Programm.Index.Sätze.Pfad(Nummer)); });
    }
    return Menge;
}

std::vector<Aufräumfund> AufräumenSuchen(Anwendung& Programm, std::span<const Satznummer> Arbeitsmenge,
                                         Aufräummethode Methode) {
    const Laufsperre Sperre(Programm);
    Programm.Medium.AlleÜberspringen = false;
    auto Funde = DurchsucheIndex(Programm.Index, Arbeitsmenge, Methode, Dateiblick(Programm, Methode),
                                 Programm.Dienst.Person);
    Programm.Medium.AlleÜberspringen = false;
    return Funde;
}

bool AufräumenDurchführen(Anwendung& Programm, std::span<const Aufräumzeile> Zeilen) {
    Durchführung Vorgang(Programm, AufräumplanBilden(Zeilen));
    bool Geprüft = false;
    {
        const Laufsperre Sperre(Programm);
        MediumVergessen(Programm.Medium);
        Programm.Medium.AlleÜberspringen = false;
        Vorgang.DieselbenSchonen(Zeilen);
        Geprüft = Vorgang.Prüfen();
        if (Geprüft) Vorgang.Ausführen();
        Programm.Dienst.Person.FortschrittSchließen();
    }
    if (!Geprüft) return false;
    if (Vorgang.Geschonte() > 0) {
        Programm.Dienst.Person.Melden(Symbol::Information,
                                      std::to_string(Vorgang.Geschonte()) +
                                          " Datei(en) wurden nur aus dem Index entfernt und nicht gelöscht "
                                          "oder ersetzt, da ein anderer "
                                          "Eintrag, der im Index bleibt, dieselbe Datei nennt.");
    }
    Programm.Ansicht.ListeMarkierungenVerwerfen = true;
    SucheAktualisieren(Programm);
    Programm.Dienst.Person.StatusZeigen("Der Index wurde aufgeräumt: " + std::to_string(Vorgang.Anzahl()) +
                                        " Datei(en) entfernt");
    return true;
}

}  // namespace liedwerk
