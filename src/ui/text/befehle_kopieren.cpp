// Renaming, copying and moving of files.
#include <set>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "core/dateilauf.h"
#include "core/umbenennlauf.h"
#include "plattform/endesignal.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

// What has become of one file.
struct Umbenennzeile {
    std::string Alt;
    std::string Neu;
    bool Ergebnis = false;
    std::string Meldung;
};

// The files of the call as records: those of the index where they stand in it, the others in a catalogue of
// their own that goes with the run.
class Namensgeber {
  public:
    Namensgeber(Programmlauf& DieserLauf, std::string GewähltesFormat) : Lauf(DieserLauf) {
        Lose.Optionen = Lauf.Programm().Index.Optionen;
        Auftrag.Format = std::move(GewähltesFormat);
    }

    Umbenennzeile Umbenennen(const std::string& Pfad, bool Probe) {
        Umbenennzeile Zeile{Pfad, Pfad, false, {}};
        if (!DateiExistiert(Pfad)) {
            Zeile.Meldung = "Die Datei '" + Pfad + "' wurde nicht gefunden.";
            return Zeile;
        }
        Anwendung& P = Lauf.Programm();
        const auto ImIndex = P.Pfade.Finden(P.Index.Sätze, Pfad);
        Katalog& Index = ImIndex.empty() ? Lose : P.Index;
        const Satznummer Nummer = ImIndex.empty() ? Aufnehmen(Pfad) : ImIndex.front();
        if (Probe) {
            Planen(Index, Nummer, Zeile);
        } else {
            Ausführen(Index, Nummer, Zeile);
        }
        return Zeile;
    }

  private:
    Satznummer Aufnehmen(const std::string& Pfad) {
        const Leseauftrag Alles{Lesecode::Lesen("1111"), true, true, true};
        return SatzAnhängen(Lose, Pfad, MedienleserVon(Lauf.Programm())(Pfad, {}, Alles));
    }

    void Planen(const Katalog& Index, Satznummer Nummer, Umbenennzeile& Zeile) {
        const Namensplan Plan = NamePlanenNachFormat(Index, Nummer, Auftrag.Format);
        Zeile.Meldung = Plan.Frage.empty() ? Plan.Hindernis : Plan.Frage;
        if (Plan.Neu.empty()) return;
        Zeile.Neu = Plan.Neu;
        if (OrdnerExistiert(Plan.Neu)) {
            Zeile.Meldung = "Das Ziel '" + Plan.Neu + "' ist ein Ordner.";
        } else if (Plan.Neu != Zeile.Alt && Belegt(Plan.Neu)) {
            Zeile.Meldung = "Die Zieldatei '" + Plan.Neu + "' existiert bereits.";
        }
        Zeile.Ergebnis = Zeile.Meldung.empty();
        if (!Zeile.Ergebnis || Plan.Neu == Zeile.Alt) return;
        Geplant.insert(Plan.Neu);
        Geräumt.insert(Zeile.Alt);
        Geräumt.erase(Plan.Neu);
        Geplant.erase(Zeile.Alt);
    }

    // Whether a file would stand under the name by the time of the rename.
    bool Belegt(const std::string& Pfad) const {
        return Geplant.contains(Pfad) || (DateiExistiert(Pfad) && !Geräumt.contains(Pfad));
    }

    void Ausführen(Katalog& Index, Satznummer Nummer, Umbenennzeile& Zeile) {
        Anwendung& P = Lauf.Programm();
        const Umbenennumgebung Umgebung{DateiumgebungVon(P, Index), MedienleserVon(P), {}, 0};
        std::string Zähler;
        const auto Ergebnis = DateiUmbenennen(Umgebung, Auftrag, Nummer, Zähler);
        Zeile.Neu = Ergebnis.Neu;
        Zeile.Ergebnis = Ergebnis.Behandelt;
        Zeile.Meldung = Ergebnis.Meldung;
        if (Zeile.Ergebnis || !Zeile.Meldung.empty()) return;
        if (Ergebnis.Gesperrt) {
            Zeile.Meldung = "Die Datei wurde ausgelassen.";
        } else {
            Zeile.Meldung = Ergebnis.Übersprungen
                                ? "Die Zieldatei existiert bereits."
                                : "Keine Variable des Formats konnte durch Daten ersetzt werden.";
        }
    }

    Programmlauf& Lauf;
    Umbenennauftrag Auftrag;
    Katalog Lose;
    std::set<std::string> Geplant;  // names that the trial has given so far
    std::set<std::string> Geräumt;  // names that it has taken away
};

void ZeileSchreiben(Programmlauf& Lauf, const Umbenennzeile& Zeile) {
    if (Lauf.Json()) {
        JsonSchreiber& Ziel = Lauf.Dokument();
        Ziel.ObjektAnfang();
        Ziel.Text("Alt", Zeile.Alt);
        Ziel.Text("Neu", Zeile.Neu);
        Ziel.Wahrheit("Ergebnis", Zeile.Ergebnis);
        Ziel.Text("Meldung", Zeile.Meldung);
        Ziel.ObjektEnde();
    } else if (Zeile.Ergebnis) {
        Lauf.Text().Schreiben(Sichtbar(Zeile.Alt) + " -> " + Sichtbar(Zeile.Neu) + "\n");
    }
    if (!Zeile.Meldung.empty()) Fehlermelden(Zeile.Meldung);
}

}  // namespace

Ausgang UmbenennenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    Umbenennauftrag Auftrag;
    Auftrag.Format = Eingabe.Wert("--format").value_or("");
    if (const std::string Fehlt = UmbenennauftragPrüfen(Auftrag); !Fehlt.empty()) return Falsch(Fehlt);
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLadenFallsDa()) return Ausgang::Fehlgeschlagen;
    Namensgeber Namen(Lauf, Auftrag.Format);
    bool Gelungen = true;
    if (Lauf.Json()) Lauf.Dokument().ListeAnfang();
    for (const auto& Pfad : EingabePfade(Eingabe.Argumente)) {
        if (EndeVerlangt()) break;
        const Umbenennzeile Zeile = Namen.Umbenennen(Pfad, Eingabe.Hat("--probe"));
        Gelungen = Zeile.Ergebnis && Gelungen;
        ZeileSchreiben(Lauf, Zeile);
    }
    if (Lauf.Json()) Lauf.Dokument().ListeEnde();
    return Lauf.Abschließen(Lauf.GeändertesSpeichern() && Gelungen);
}

Ausgang KopierenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Ziel = Eingabe.Wert("--ziel");
    if (!Ziel || Ziel->empty())
        return Falsch("Bitte geben Sie einen Zielordner für den Kopier-/Verschiebe-Vorgang an.");
    const std::string Regel = Eingabe.Wert("--ersetzen").value_or("0");
    if (Regel.size() != 1 || Regel[0] < '0' || Regel[0] > '4') return Falsch("--ersetzen erwartet 0 bis 4.");
    const auto Gewünschte = NummernLesen(Eingabe.Argumente);
    if (!Gewünschte) return Falsch("Eine NUMMER ist eine ganze Zahl.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Nummern = Lauf.Nummern(*Gewünschte);
    if (!Nummern) return Ausgang::Fehlgeschlagen;
    const auto Bericht =
        KopierenLauf(Lauf.Programm(), *Nummern,
                     {EingabePfad(*Ziel), Eingabe.Hat("--struktur"), Eingabe.Hat("--verschieben"),
                      static_cast<std::int16_t>(Regel[0] - '0')});
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Zahl("Anzahl", Bericht.Anzahl);
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(std::to_string(Bericht.Anzahl) + (Eingabe.Hat("--verschieben")
                                                                    ? " Datei(en) verschoben\n"
                                                                    : " Datei(en) kopiert\n"));
    }
    const bool Gelungen = Bericht.Gelungen && !Bericht.Abgebrochen;
    return Lauf.Abschließen(Lauf.GeändertesSpeichern() && Gelungen);
}

}  // namespace liedwerk
