#include "core/beenden.h"

#include <optional>

#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "core/einstellungsspeicher.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "index/schreiber.h"
#include "index/sicherungskopien.h"

namespace liedwerk {
namespace {

// Values of BeendenReaktion, and answers of the question that stands for 0.
enum Beendenart { BeendenFragen = 0, BeendenMinimieren = 1, BeendenEnde = 2, BeendenTray = 3 };

// Stands for the person while the session ends: nobody can answer then, so every question is declined and
// every message goes to the log.
class Abwesend final : public Oberfläche {
  public:
    explicit Abwesend(Protokoll& Ziel) : Log(Ziel) {}
    void Melden(Symbol, std::string_view Text) override { Log.Schreiben(Ersetzen(Text, "\n", " ")); }
    Antwort Fragen(Symbol Zeichen, std::string_view Text, Knöpfe, Antwort) override {
        Melden(Zeichen, Text);
        return Antwort::Nein;
    }
    void StatusZeigen(std::string_view, int) override {}
    Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage&) override {
        return Verfügbarkeitsantwort::AlleÜberspringen;
    }
    bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage&) override { return false; }
    void FortschrittStarten(std::string_view, bool, std::int64_t) override {}
    bool FortschrittZeigen(std::string_view, std::int64_t) override { return true; }
    void FortschrittSchließen() override {}
    bool FortschrittOffen() const override { return false; }
    void EreignisseVerarbeiten() override {}

  private:
    Protokoll& Log;
};

// What closing shall do by setting or question; true goes on with the end.
bool EndeGewählt(Anwendung& Programm) {
    Hauptfenster& Fenster = Programm.Dienst.Fenster;
    int Reaktion = Programm.Werte.BeendenReaktion;
    if (Reaktion < BeendenMinimieren || Reaktion > BeendenTray) {
        bool Immer = false;
        Reaktion = Fenster.BeendenFragen(Immer);
        if (Immer) Programm.Werte.BeendenReaktion = static_cast<std::int16_t>(Reaktion);
    }
    if (Reaktion == BeendenMinimieren) Fenster.Minimieren();
    if (Reaktion == BeendenTray) Fenster.Verbergen();
    return Reaktion == BeendenEnde;
}

void FensterlageMerken(Anwendung& Programm) {
    // A start that ended before the window stood at its place has nothing to tell about it.
    if (!Programm.LageGesetzt) return;
    Einstellungen& Werte = Programm.Werte;
    const Fensterlage Lage = Programm.Dienst.Fenster.LageLesen();
    Werte.FensterMax = Lage.Maximiert ? 1 : 0;
    Werte.FensterHeight = Lage.Höhe;
    Werte.FensterLeft = Lage.Links;
    Werte.FensterTop = Lage.Oben;
    Werte.FensterWidth = Lage.Breite;
    Werte.WinampLautstärke = static_cast<std::int16_t>(Programm.Dienst.Fenster.LautstärkeLesen());
    Werte.WinampBalance = static_cast<std::int16_t>(Programm.Dienst.Fenster.BalanceLesen());
    Programm.Dienst.Person.EreignisseVerarbeiten();
}

// True when the end goes on: saved, or the changes may go.
bool AmEndeSpeichern(Anwendung& Programm) {
    const auto Ergebnis =
        DateiSpeichern(Programm.Index, Programm.Werte, IndexumgebungVon(Programm),
                       Programm.Index.IndexDateiname, FortschrittBeimSpeichern(Programm.Werte));
    if (Ergebnis == Speicherergebnis::Gespeichert) return true;
    const std::string Grund = Ergebnis == Speicherergebnis::Abgebrochen
                                  ? "Sie haben den Speicher-Vorgang abgebrochen."
                                  : "Beim Speichern ist ein Fehler aufgetreten.";
    return Programm.Dienst.Person.JaNein(Symbol::Ausrufezeichen,
                                         Grund +
                                             "\n\nMöchten Sie dieses Programm trotzdem beenden und nicht "
                                             "gespeicherte Änderungen verwerfen?",
                                         Antwort::Nein) == Antwort::Ja;
}

// The end of the session waits for nobody. When the index cannot take the changes (somebody else wrote it
// meanwhile, the disk is full), they go beside it under the name of a backup, from which they can be
// restored.
void OhnePersonSpeichern(Anwendung& Programm) {
    Abwesend Niemand(Programm.Log);
    const Indexumgebung Eigene = IndexumgebungVon(Programm);
    const Indexumgebung Still{Niemand,
                              Eigene.Log,
                              Eigene.Zeit,
                              Eigene.Ordner,
                              Eigene.Programmordner,
                              Eigene.Leser,
                              Eigene.VerfügbarkeitPrüfen,
                              Eigene.Temporärindex,
                              Eigene.Gespeichert};
    Katalog& Index = Programm.Index;
    if (DateiSpeichern(Index, Programm.Werte, Still, Index.IndexDateiname, false) ==
        Speicherergebnis::Gespeichert)
        return;
    const std::string Rettung = SicherungskopieName(Index.IndexDateiname, Programm.Dienst.Zeit.Jetzt());
    Einstellungen OhneSicherung = Programm.Werte;
    OhneSicherung.BackupsSpeichern = 0;
    DateiSpeichern(Index, OhneSicherung, Still, Rettung, false);
}

// Everything behind the choice what closing shall do.
bool Beenden(Anwendung& Programm, Schließgrund Grund) {
    const bool SitzungEndet = Grund == Schließgrund::Betriebssystem;
    const bool Geändert = Programm.Index.IndexGeändert && Programm.Index.Programmmodus >= ModusIndexdatei;
    Speicherwunsch Wunsch = Geändert ? Speicherwunsch::Speichern : Speicherwunsch::NichtSpeichern;
    if (!SitzungEndet) Wunsch = SpeicherfrageStellen(Programm);
    if (Wunsch == Speicherwunsch::Abbrechen) return false;

    const Laufsperre Sperre(Programm);
    FensterlageMerken(Programm);
    if (Wunsch == Speicherwunsch::Speichern) {
        if (SitzungEndet) {
            OhnePersonSpeichern(Programm);
        } else if (!AmEndeSpeichern(Programm)) {
            Programm.Dienst.Fenster.Wiederherstellen();
            return false;
        }
    }
    EinstellungenSichern(Programm, !SitzungEndet);
    Programm.Dienst.Fenster.SymbolEntfernen();
    return true;
}

}  // namespace

Speicherwunsch SpeicherfrageStellen(Anwendung& Programm) {
    if (!Programm.Index.IndexGeändert || Programm.Index.Programmmodus < ModusIndexdatei)
        return Speicherwunsch::NichtSpeichern;
    if (Programm.Werte.DateiAutomatischSpeichern == 1 || Programm.Index.Programmmodus > ModusIndexdatei)
        return Speicherwunsch::Speichern;
    switch (Programm.Dienst.Person.Fragen(Symbol::Frage,
                                          "Die Indexdatei wurde geändert.\nMöchten Sie diese speichern?",
                                          Knöpfe::JaNeinAbbrechen, Antwort::Ja)) {
        case Antwort::Ja:
            return Speicherwunsch::Speichern;
        case Antwort::Nein:
            return Speicherwunsch::NichtSpeichern;
        case Antwort::Abbrechen:
            break;
    }
    return Speicherwunsch::Abbrechen;
}

bool FensterSchließen(Anwendung& Programm, Schließgrund Grund) {
    // A run that is under way is cancelled first; only the session's end does not wait. What memory holds
    // between two turns of the event loop is whole: a load is unchanged, an adding run has not committed yet.
    if (Programm.LaufAktiv && Grund != Schließgrund::Betriebssystem) return false;
    SpaltenInIndex(Programm);
    const bool PersonWählt = Grund == Schließgrund::Person || Grund == Schließgrund::Programm;
    if (PersonWählt && !EndeGewählt(Programm)) return false;
    return Beenden(Programm, Grund);
}

bool SofortBeenden(Anwendung& Programm) {
    return Beenden(Programm, Schließgrund::Programm);
}

void EinstellungenSichern(Anwendung& Programm, bool MitMeldung) {
    Einstellungen Werte = Programm.Werte;
    if (Programm.TagLesenNurLauf) Werte.Mp3TagLesen = Programm.TagLesenGemerkt;
    if (Programm.Index.Programmmodus == ModusIndexdatei && !Programm.NameVonKommandozeile) {
        // The standard index is remembered as "none named", so that a program folder on a stick may move.
        const std::string& Name = Programm.Index.IndexDateiname;
        Werte.Dateiname = Name == Standardindex(Programm) ? std::string() : Name;
    }
    const std::string Fehler = EinstellungenSchreiben(Werte, Programm.Dienst.Nutzerwerte);
    if (Fehler.empty()) return;
    Programm.Log.Schreiben("EinstellungenSchreiben: Fehler - " + Fehler + " " +
                           Zeitstempel(Programm.Dienst.Zeit));
    if (MitMeldung)
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                      "Die Einstellungen konnten nicht gespeichert werden.\n" + Fehler);
}

void RegelmäßigSpeichern(Anwendung& Programm) {
    const std::int64_t Minuten = Programm.Werte.RegelmäßigSpeichernAlle;
    if (Minuten <= 0 || Programm.LaufAktiv) return;
    const Zeitpunkt Jetzt = Programm.Dienst.Zeit.Jetzt();
    const std::int64_t Vergangen = Kalendersekunden(Jetzt) - Kalendersekunden(Programm.LetzteSpeicherung);
    // A clock that was put back would otherwise hold up the saving until it has caught up.
    if (Vergangen < 0) Programm.LetzteSpeicherung = Jetzt;
    if (Vergangen < Minuten * 60) return;
    if (Programm.Index.IndexGeändert && Programm.Index.Programmmodus == ModusIndexdatei) {
        const Laufsperre Sperre(Programm);
        const auto Ergebnis =
            DateiSpeichern(Programm.Index, Programm.Werte, IndexumgebungVon(Programm),
                           Programm.Index.IndexDateiname, FortschrittBeimSpeichern(Programm.Werte));
        if (Ergebnis == Speicherergebnis::Gespeichert)
            Programm.Dienst.Person.StatusZeigen("Die Indexdatei wurde automatisch gespeichert");
    }
    Programm.LetzteSpeicherung = Programm.Dienst.Zeit.Jetzt();
}

}  // namespace liedwerk
