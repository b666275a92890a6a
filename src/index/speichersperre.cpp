#include "index/speichersperre.h"

#include "basis/pfad.h"
#include "index/indexformat.h"
#include "index/indexinhalt.h"
#include "index/sicherungskopien.h"

namespace liedwerk {
namespace {

void Abwarten(const std::string& Temporär, const std::string& Datei, bool MitFortschritt,
              const Indexumgebung& Umgebung) {
    auto& Person = Umgebung.Person;
    if (MitFortschritt) {
        Person.FortschrittStarten("Warte auf Verfügbarkeit von '" + std::string(DateinameVon(Datei)) + "'",
                                  false, 0);
    }
    const std::int64_t Beginn = Umgebung.Zeit.Millisekunden();
    while (DateiExistiert(Temporär) && Umgebung.Zeit.Millisekunden() - Beginn <= SperreHöchstens) {
        if (MitFortschritt) {
            if (!Person.FortschrittZeigen("", 0)) return;
        } else {
            Person.EreignisseVerarbeiten();
        }
        Umgebung.Zeit.Warten(SperreAbstand);
    }
}

// Removes a "~" that nobody holds. It goes under our lock, so that no save that begins now loses its file.
void Wegräumen(const std::string& Temporär, const std::string& Datei, const Indexumgebung& Umgebung) {
    Dateiersatz Ersatz;
    if (Ersatz.Öffnen(Datei, Temporär) == Dateiersatz::Öffnung::Bereit) Ersatz.Verwerfen();
    if (SperreLesen(Temporär) != Sperrzustand::Frei) return;
    if (const auto Fehler = DateiLöschen(Temporär)) {
        Umgebung.Log.Schreiben("DateiLaden: Fehler - " + std::to_string(Fehler.Nummer) + ", " + Fehler.Text +
                               " " + Zeitstempel(Umgebung.Zeit));
    }
}

// Puts the "~" into the place of an index that is missing or broken; the broken one is kept as a backup.
void AnStelleSetzen(const std::string& Temporär, const std::string& Datei, const Indexumgebung& Umgebung) {
    Dateifehler Fehler;
    if (DateiExistiert(Datei)) {
        Fehler = DateiKopieren(Datei, SicherungskopieName(Datei, Umgebung.Zeit.Jetzt()));
    }
    if (!Fehler) Fehler = DateiUmbenennen(Temporär, VerweiseAuflösen(Datei));
    const std::string Stempel = " " + Zeitstempel(Umgebung.Zeit);
    if (Fehler) {
        Umgebung.Log.Schreiben("DateiLaden: Fehler - " + std::to_string(Fehler.Nummer) + ", " + Fehler.Text +
                               Stempel);
    } else {
        Umgebung.Log.Schreiben("DateiLaden: Temporäre Datei übernommen - '" + Temporär + "'" + Stempel);
    }
}

}  // namespace

std::string TemporärnameVon(const std::string& Datei) {
    return VerweiseAuflösen(Datei) + std::string(TemporärEndung);
}

Dateifehler TemporärnamePrüfen(const std::string& Datei) {
    const std::string Temporär = TemporärnameVon(Datei);
    // What cannot be read is for the opening to judge.
    const std::string Anfang = Lesedatei::Öffnen(Temporär).Lesen(0, IndexVersionAnfang.size());
    // A system that was cut off may leave zeros.
    if (IndexVersionAnfang.starts_with(Anfang) || Anfang.find_first_not_of('\0') == Anfang.npos) return {};
    return {1, "'" + Temporär +
                   "' stammt nicht von diesem Programm. Benennen Sie diese Datei um oder löschen "
                   "Sie sie"};
}

bool SpeicherendeAbwarten(const std::string& Datei, bool MitFortschritt, const Indexumgebung& Umgebung) {
    const std::string Temporär = TemporärnameVon(Datei);
    UnfertigeKopienEntfernen(VerweiseAuflösen(Datei), Umgebung.Ordner);
    if (!DateiExistiert(Temporär)) return true;
    Abwarten(Temporär, Datei, MitFortschritt, Umgebung);
    if (!DateiExistiert(Temporär)) return true;
    const std::string Frage =
        std::string(Programmtitel) +
        " wurde entweder nicht korrekt beendet oder speichert gerade Ihre Indexdatei.\n\nDurch den "
        "Ladevorgang "
        "dieser Datei würde der Speicher-Vorgang unterbrochen und Datenverlust könnte die Folge sein.\n\n"
        "Möchten Sie den Ladevorgang fortsetzen?";
    if (Umgebung.Person.JaNein(Symbol::Ausrufezeichen, Frage, Antwort::Nein) != Antwort::Ja) return false;
    if (SperreLesen(Temporär) != Sperrzustand::Frei) return true;
    if (IndexdateiIstHeil(Temporär, true) && !IndexdateiIstHeil(Datei, false)) {
        AnStelleSetzen(Temporär, Datei, Umgebung);
    } else {
        Wegräumen(Temporär, Datei, Umgebung);
    }
    return true;
}

}  // namespace liedwerk
