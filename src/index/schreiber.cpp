#include "index/schreiber.h"

#include <array>
#include <utility>

#include "basis/pfad.h"
#include "index/indexformat.h"
#include "index/optionszeilen.h"
#include "index/satzzeile.h"
#include "index/sicherungskopien.h"
#include "index/speichersperre.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

// The person can cancel after so many records or bytes.
constexpr Satznummer SätzeJeMeldung = 500;
constexpr std::size_t BytesJeMeldung = std::size_t{8} << 20;

// One save with what all its steps need.
struct Speichervorgang {
    Katalog& Index;
    const Indexumgebung& Umgebung;
    std::string Ziel;
    std::string Temporär;
    bool MitFortschritt;
    std::optional<Dateistand> Gebilligt;  // a state of the target that the person agreed to overwrite

    Speicherergebnis Scheitern(const std::string& Meldung, const Dateifehler& Fehler) const {
        Umgebung.Log.Schreiben("DateiSpeichern: Fehler - " + Fehler.Text + " (Fehler " +
                               std::to_string(Fehler.Nummer) + ") " + Zeitstempel(Umgebung.Zeit));
        Umgebung.Person.Melden(Symbol::Ausrufezeichen, Meldung);
        return Speicherergebnis::Fehlgeschlagen;
    }
    Speicherergebnis Scheitern(const Dateifehler& Fehler) const {
        return Scheitern("Es ist ein Fehler beim Speichern der Indexdatei aufgetreten.\n" + Fehler.Text +
                             " (Fehler " + std::to_string(Fehler.Nummer) + ").",
                         Fehler);
    }
};

bool IstDerselbeStand(const Dateistand& A, const Dateistand& B) {
    return A.Änderungszeit == B.Änderungszeit && A.Größe == B.Größe && A.Inode == B.Inode;
}

// The change test: true when the file under the target is the one that was read or saved last, or when the
// person agrees.
bool ÜberschreibenErlaubt(Speichervorgang& Lauf) {
    const Katalog& Index = Lauf.Index;
    if (Index.Programmmodus != ModusIndexdatei) return true;
    const auto Stand = DateistandLesen(Lauf.Ziel);
    if (!Stand || !Stand->IstDatei) return true;
    // Two saves within a second may give the file the inode number again that it had when it was read.
    if (Index.IndexDateiBekannt && IstDerselbeStand(*Stand, Index.IndexDateiZeit) &&
        Lesedatei::Öffnen(Lauf.Ziel).Generation() == Index.IndexDateiGeneration)
        return true;
    if (Lauf.Gebilligt && IstDerselbeStand(*Stand, *Lauf.Gebilligt)) return true;
    const std::string Titel(Programmtitel);
    const std::string Frage =
        "Die zu speichernde Indexdatei wurde zwischenzeitlich geändert. Das bedeutet, nachdem die Datei "
        "durch diese "
        "Instanz des " +
        Titel +
        " geöffnet wurde, wurden Änderungen vorgenommen.\n\nMöchten Sie die Indexdatei trotzdem speichern?";
    if (Lauf.Umgebung.Person.JaNein(Symbol::Ausrufezeichen, Frage, Antwort::Nein) != Antwort::Ja)
        return false;
    Lauf.Gebilligt = Stand;
    return true;
}

// Opens the "~" file; another save that is running gets some time to end.
Dateiersatz::Öffnung TemporärÖffnen(const Speichervorgang& Lauf, Dateiersatz& Ersatz) {
    const std::int64_t Beginn = Lauf.Umgebung.Zeit.Millisekunden();
    for (;;) {
        const auto Öffnung = Ersatz.Öffnen(Lauf.Ziel, Lauf.Temporär);
        if (Öffnung != Dateiersatz::Öffnung::Gesperrt) return Öffnung;
        if (Lauf.Umgebung.Zeit.Millisekunden() - Beginn > SperreHöchstens) return Öffnung;
        Lauf.Umgebung.Zeit.Warten(SperreAbstand);
    }
}

// A line of lengths and values with any number of fields.
void ZeileAnhängen(std::string& Ziel, std::string_view Anfang, std::span<const std::string> Werte) {
    Ziel += Anfang;
    for (std::size_t i = 0; i < Werte.size(); ++i) {
        if (i > 0) Ziel += '/';
        if (!Werte[i].empty()) Ziel += std::to_string(Werte[i].size());
    }
    Ziel += '|';
    for (const std::string& Wert : Werte)
        Ziel += Wert;
    Ziel += Zeilenende;
}

std::string KopfBilden(const Katalog& Index) {
    std::string Kopf;
    Kopf.append(IndexVersionAktuell).append(Zeilenende);
    OptionszeilenSchreiben(Kopf, Index.Optionen);
    for (const Termin& Eintrag : Index.Termine) {
        std::array<std::string, TerminFeldAnzahl> Werte;
        for (int Feld = 1; Feld <= TerminFeldAnzahl; ++Feld) {
            Werte[static_cast<std::size_t>(Feld - 1)] = IndexwertEinpassen(
                IndexwertSchreiben(TerminFeldText(Eintrag, Feld)), static_cast<std::size_t>(HöchsteLänge));
        }
        ZeileAnhängen(Kopf, Terminzeile, Werte);
    }
    return Kopf;
}

// The line of a record whose stored form is not what belongs into the file.
void SatzzeileSchreiben(const Speichervorgang& Lauf, Satznummer Nummer, Dateiersatz& Ersatz,
                        std::string& Zeile) {
    const auto Höchste = static_cast<std::size_t>(HöchsteLänge);
    const auto& Platz = Lauf.Index.Sätze.PlatzVon(Nummer);
    Rohwerte Werte;
    SatzzeileZerlegen(Platz.Zeile, Werte);
    std::array<std::string, FeldAnzahl> Eingepasst;
    const bool Erweitert = ErweiterungWirdGeschrieben(Werte, Platz.Id3v2);
    const int Anzahl = Erweitert ? FeldAnzahl : GrundfeldAnzahl;
    for (int Feld = 1; Feld <= Anzahl; ++Feld) {
        const auto i = static_cast<std::size_t>(Feld - 1);
        // The rating is a byte, not a text; no line end can come of it, since its neighbours hold none.
        if (Feld == FeldV2Qualität) continue;
        if (Werte[i].size() > Höchste) {
            Lauf.Umgebung.Log.Schreiben("DateiSpeichern: '" + std::string(Felder[i].Name) +
                                        "' ist länger als " + std::to_string(HöchsteLänge) +
                                        " Zeichen und wird gekürzt - '" + Lauf.Index.Sätze.Pfad(Nummer) +
                                        "'");
        } else if (!HatZeilenende(Werte[i])) {
            continue;
        }
        Eingepasst[i] = IndexwertEinpassen(Werte[i], Höchste);
        Werte[i] = Eingepasst[i];
    }
    SatzzeileBilden(Zeile, Werte, Anzahl);
    Zeile += Zeilenende;
    Ersatz.Schreiben(Zeile);
}

// Writes the record and those behind it whose lines follow it in memory as they belong into the file; gives
// the number of the last one.
Satznummer StreckeSchreiben(const Satzspeicher& Sätze, Satznummer Nummer, Dateiersatz& Ersatz) {
    const char* const Anfang = Sätze.PlatzVon(Nummer).Zeile;
    const char* Ende = Anfang + Sätze.PlatzVon(Nummer).Länge;
    // Behind every line of the store at least two bytes are readable.
    const auto EndeSteht = [&] { return std::string_view(Ende, Zeilenende.size()) == Zeilenende; };
    while (Nummer < Sätze.Anzahl() && static_cast<std::size_t>(Ende - Anfang) < BytesJeMeldung) {
        const auto& Nächster = Sätze.PlatzVon(Nummer + 1);
        if (!Nächster.Speicherform || Nächster.Zeile != Ende + Zeilenende.size() || !EndeSteht()) break;
        Ende = Nächster.Zeile + Nächster.Länge;
        ++Nummer;
    }
    const bool MitEnde = EndeSteht();
    Ersatz.Schreiben({Anfang, static_cast<std::size_t>(Ende - Anfang) + (MitEnde ? Zeilenende.size() : 0)});
    if (!MitEnde) Ersatz.Schreiben(Zeilenende);
    return Nummer;
}

enum class Schreibende { Fertig, Abgebrochen, Gescheitert };

Schreibende DatensätzeSchreiben(const Speichervorgang& Lauf, Dateiersatz& Ersatz) {
    const Satzspeicher& Sätze = Lauf.Index.Sätze;
    std::string Zeile;
    Satznummer Gemeldet = -SätzeJeMeldung;
    for (Satznummer Nummer = 1; Nummer <= Sätze.Anzahl(); ++Nummer) {
        if (Lauf.MitFortschritt && Nummer - Gemeldet >= SätzeJeMeldung) {
            if (!Lauf.Umgebung.Person.FortschrittZeigen("", Nummer)) return Schreibende::Abgebrochen;
            Gemeldet = Nummer;
        }
        if (Sätze.PlatzVon(Nummer).Speicherform) {
            Nummer = StreckeSchreiben(Sätze, Nummer, Ersatz);
        } else {
            SatzzeileSchreiben(Lauf, Nummer, Ersatz, Zeile);
        }
        if (Ersatz.Fehler()) return Schreibende::Gescheitert;
    }
    return Schreibende::Fertig;
}

// Writes everything into the "~" file.
Schreibende InhaltSchreiben(const Speichervorgang& Lauf, Dateiersatz& Ersatz) {
    const std::string& Eigentümer = Lauf.Index.Optionen.IndexEigentümer;
    if (Lauf.MitFortschritt) {
        Lauf.Umgebung.Person.FortschrittStarten(
            Eigentümer.empty() ? "Speichere Indexdatei" : "Speichere " + Eigentümer + "s Indexdatei", true,
            Lauf.Index.IndexAnzahl());
    }
    if (!Ersatz.Schreiben(KopfBilden(Lauf.Index))) return Schreibende::Gescheitert;
    // The folder view keeps its options, not what it shows.
    if (Lauf.Index.Programmmodus == ModusDateimanager) return Schreibende::Fertig;
    return DatensätzeSchreiben(Lauf, Ersatz);
}

Speicherergebnis Ersetzen(Speichervorgang& Lauf, Dateiersatz& Ersatz) {
    const auto Ende = InhaltSchreiben(Lauf, Ersatz);
    if (Ende == Schreibende::Fertig) Lauf.Umgebung.Person.EreignisseVerarbeiten();
    if (Lauf.MitFortschritt) Lauf.Umgebung.Person.FortschrittSchließen();
    if (Ende == Schreibende::Abgebrochen) {
        Ersatz.Verwerfen();
        return Speicherergebnis::Abgebrochen;
    }
    if (Ende == Schreibende::Gescheitert || !Ersatz.Übernehmen(true)) {
        const Dateifehler Fehler = Ersatz.Fehler();
        Ersatz.Verwerfen();
        // Only a rename that failed leaves the "~" file: everything stands in it.
        if (Ende == Schreibende::Fertig && DateiExistiert(Lauf.Temporär)) {
            return Lauf.Scheitern(
                "Die Datei '" + Lauf.Ziel +
                    "' konnte nicht gespeichert werden, da die bestehende Datei nicht überschrieben "
                    "werden konnte.",
                Fehler);
        }
        return Lauf.Scheitern(Fehler);
    }
    Lauf.Index.IndexDateiZeit = Ersatz.Stand();
    Lauf.Index.IndexDateiGeneration = Lesedatei::Öffnen(Lauf.Ziel).Generation();
    Lauf.Index.IndexDateiBekannt = true;
    Lauf.Index.IndexGeändert = false;
    return Speicherergebnis::Gespeichert;
}

}  // namespace

Speicherergebnis DateiSpeichern(Katalog& Index, const Einstellungen& Werte, const Indexumgebung& Umgebung,
                                std::string_view Dateiname, bool MitFortschritt) {
    const bool Zeitweilig = Index.Programmmodus > ModusIndexdatei;
    Speichervorgang Lauf{
        Index, Umgebung,       Zeitweilig ? TemporärerIndex(Umgebung) : std::string(Dateiname),
        {},    MitFortschritt, {}};
    Lauf.Temporär = TemporärnameVon(Lauf.Ziel);
    if (!ÜberschreibenErlaubt(Lauf)) return Speicherergebnis::Abgebrochen;
    if (Werte.BackupsSpeichern == 1 && DateiExistiert(Lauf.Ziel)) {
        SicherungskopienFühren(Lauf.Ziel, Werte, Umgebung, Index.Programmmodus == ModusIndexdatei);
    }
    Dateiersatz Ersatz;
    const bool HatVorgänger = DateiExistiert(Lauf.Temporär);
    const Dateifehler Fremdes = TemporärnamePrüfen(Lauf.Ziel);
    const auto Öffnung = Fremdes ? Dateiersatz::Öffnung::Fehler : TemporärÖffnen(Lauf, Ersatz);
    if (Öffnung == Dateiersatz::Öffnung::Gesperrt ||
        (Öffnung == Dateiersatz::Öffnung::Fehler && HatVorgänger)) {
        Dateifehler Fehler = Fremdes ? Fremdes : Ersatz.Fehler();
        if (!Fehler) Fehler = {1, "Die temporäre Datei wird gerade von einem anderen Programm geschrieben"};
        return Lauf.Scheitern("Die Indexdatei '" + Lauf.Ziel +
                                  "' konnte nicht gespeichert werden, da die temporäre Datei '" +
                                  Lauf.Temporär + "' nicht überschrieben werden konnte." +
                                  (Fremdes ? "\n" + Fremdes.Text + "." : std::string()),
                              Fehler);
    }
    if (Öffnung == Dateiersatz::Öffnung::Fehler) return Lauf.Scheitern(Ersatz.Fehler());
    // Only now nobody else can replace the file any more: another program may have done it since the first
    // look.
    if (!ÜberschreibenErlaubt(Lauf)) return Speicherergebnis::Abgebrochen;
    const auto Ergebnis = Ersetzen(Lauf, Ersatz);
    if (Ergebnis == Speicherergebnis::Gespeichert && Umgebung.Gespeichert) Umgebung.Gespeichert(Dateiname);
    return Ergebnis;
}

}  // namespace liedwerk
