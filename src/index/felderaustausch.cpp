#include "index/felderaustausch.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <vector>

#include "basis/pfad.h"
#include "index/indexformat.h"
#include "index/indexinhalt.h"
#include "index/indexzeilen.h"
#include "index/satzzeile.h"
#include "index/wert.h"
#include "index/zeilenlaengen.h"

namespace liedwerk {
namespace {

constexpr std::string_view Versionszeile = "#indexfelder11";
// The values of a line by their field numbers; the path is the key.
constexpr std::array<int, 5> Zeilenfelder = {FeldPfad, FeldAbspielHäufigkeit, FeldAbspielDatum,
                                             FeldBenutzerDaten, FeldQualität};
// Bytes of a file that is read; some hundred times those of a million records.
constexpr std::uint64_t GrößteImportdatei = std::uint64_t{4} << 30;
constexpr std::size_t BytesJeMeldung = std::size_t{1} << 20;

// ---- Writing

bool IstZahlfeld(int Feld) {
    return Feld == FeldAbspielHäufigkeit || Feld == FeldQualität;
}

void ZeileBilden(std::string& Ziel, const Satzspeicher& Sätze, Satznummer Nummer) {
    const Satzsicht Sicht = Sätze.Sicht(Nummer);
    std::array<std::string, Zeilenfelder.size()> Eigene;
    std::array<std::string_view, Zeilenfelder.size()> Werte;
    for (std::size_t i = 0; i < Zeilenfelder.size(); ++i) {
        const int Feld = Zeilenfelder[i];
        Werte[i] = Sicht.Roh(Feld);
        if (IstZahlfeld(Feld) && Werte[i].empty()) {
            Werte[i] = "0";
        } else if (Werte[i].size() > static_cast<std::size_t>(HöchsteLänge) || HatZeilenende(Werte[i])) {
            Eigene[i] = IndexwertEinpassen(Werte[i], static_cast<std::size_t>(HöchsteLänge));
            Werte[i] = Eigene[i];
        }
    }
    Ziel += Datenzeile;
    for (std::size_t i = 0; i < Werte.size(); ++i) {
        if (i > 0) Ziel += '/';
        if (!Werte[i].empty()) Ziel += std::to_string(Werte[i].size());
    }
    Ziel += '|';
    for (const std::string_view Wert : Werte)
        Ziel += Wert;
    Ziel += Zeilenende;
}

enum class Schreibende { Fertig, Abgebrochen };

Schreibende ZeilenSchreiben(const Katalog& Index, const Indexumgebung& Umgebung, Dateiersatz& Ersatz,
                            bool MitFortschritt) {
    Ersatz.Schreiben(Versionszeile);
    Ersatz.Schreiben(Zeilenende);
    if (Index.Programmmodus == ModusDateimanager) return Schreibende::Fertig;
    std::string Zeilen;
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        ZeileBilden(Zeilen, Index.Sätze, Nummer);
        if (Zeilen.size() < BytesJeMeldung && Nummer < Index.IndexAnzahl()) continue;
        Ersatz.Schreiben(Zeilen);
        Zeilen.clear();
        if (MitFortschritt && !Umgebung.Person.FortschrittZeigen({}, Nummer)) return Schreibende::Abgebrochen;
    }
    return Schreibende::Fertig;
}

bool SpeichernGescheitert(const Indexumgebung& Umgebung, const std::string& Meldung,
                          const Dateifehler& Fehler) {
    Umgebung.Log.Schreiben("IndexFelderSpeichern: Fehler - " + Fehler.Text + " (Fehler " +
                           std::to_string(Fehler.Nummer) + ") " + Zeitstempel(Umgebung.Zeit));
    Umgebung.Person.Melden(Symbol::Ausrufezeichen, Meldung);
    return false;
}

// ---- Reading

// A line that names a record of the index.
struct Feldzeile {
    Satznummer Nummer = 0;
    std::string_view Zeile;
};

// One import with what all its steps need.
struct Feldimport {
    Katalog& Index;
    const Indexumgebung& Umgebung;
    const Satzfinder& Finden;
    bool MitFortschritt;

    void Loggen(const std::string& Text) const { Umgebung.Log.Schreiben("DateiLadenIndexFelder: " + Text); }
    bool Zeigen(std::size_t Stand) const {
        return !MitFortschritt || Umgebung.Person.FortschrittZeigen({}, static_cast<std::int64_t>(Stand));
    }
};

// The lengths of a line, one more than it has values: what stands behind the fifth is from a newer program.
Zeilenlängen LängenDer(std::string_view Zeile) {
    return LängenLesen(Zeile, Datenzeile.size(), Zeilenfelder.size() + 1);
}

// Calls Ablegen(value, place in Zeilenfelder) for the values in front of the first empty one, the path's
// among them.
template <class Ablage>
void WerteNehmen(std::string_view Zeile, const Zeilenlängen& Längen, Ablage&& Ablegen) {
    std::string_view Rest = Zeile.substr(Längen.Strich);
    for (std::size_t i = 0; i < Zeilenfelder.size(); ++i) {
        const std::string_view Wert = Rest.substr(0, static_cast<std::size_t>(Längen.Längen[i]));
        if (Wert.empty()) return;
        Ablegen(Wert, i);
        Rest.remove_prefix(Wert.size());
    }
}

bool HatWertDahinter(const Zeilenlängen& Längen) {
    for (std::size_t i = 0; i <= Zeilenfelder.size(); ++i) {
        if (Längen.Längen[i] == 0) return false;
    }
    return true;
}

// Looks at a line: complains in the log where it must, and notes it when the index has its record.
void ZeilePrüfen(const Feldimport& Lauf, std::string_view Zeile, std::int64_t Nummer,
                 std::vector<Feldzeile>& Gefundene) {
    const std::string Zeilennummer = std::to_string(Nummer);
    if (!Zeile.starts_with(Datenzeile))
        return Lauf.Loggen("Ungültige Zeile - '" + IndexwertLesen(Zeile) + "'/" + Zeilennummer);
    const Zeilenlängen Längen = LängenDer(Zeile);
    if (!Längen.Stimmt(Zeile)) {
        Lauf.Loggen("Fehler in Zeile " + Zeilennummer + " - Checksumme der Zeile ist " +
                    std::to_string(Längen.Prüfwert() - 1) + " statt " + std::to_string(Zeile.size()) +
                    " (Lesen), Zeile = '" + IndexwertLesen(Zeile) + "'");
    }
    if (Längen.Strich == 0) return;
    WerteNehmen(Zeile, Längen, [&](std::string_view Wert, std::size_t Platz) {
        if (Platz != 0) return;
        const Satznummer Satz = Lauf.Finden(IndexwertLesen(Wert));
        if (Satz == 0) return;
        Gefundene.push_back({Satz, Zeile});
        if (HatWertDahinter(Längen))
            Lauf.Loggen("Zeile " + Zeilennummer + " - Datenfeld nicht erkannt, da neuer");
    });
}

// The lines of records that the index has, in their order; nothing when the person cancelled. All of them are
// looked up before the first record changes.
std::optional<std::vector<Feldzeile>> ZeilenZuordnen(const Feldimport& Lauf, std::string_view Inhalt,
                                                     const ErsteZeile& Erste) {
    std::vector<Feldzeile> Gefundene;
    std::int64_t Nummer = 1;
    for (std::size_t Stelle = Erste.Dahinter; Stelle < Inhalt.size();) {
        bool Abgeschlossen = false;
        const std::string_view Zeile = ZeileNehmen(Inhalt, Stelle, Erste.NurLf, Abgeschlossen);
        ++Nummer;
        if (Zeile.empty() && !Abgeschlossen) break;
        ZeilePrüfen(Lauf, Zeile, Nummer, Gefundene);
        if (!Lauf.Zeigen(Stelle)) return std::nullopt;
    }
    return Gefundene;
}

// What the store holds for a field once a value of a line has been put into it; a value that fails the test
// of its kind leaves a number as it was.
std::string NeuerRohwert(std::string_view Alter, std::string_view Wert, int Feld) {
    Datensatz Satz;
    DatensatzFeldSetzen(IndexwertLesen(Alter), Satz, Feld);
    DatensatzFeldSetzen(IndexwertLesen(IndexwertEinpassen(Wert, Wert.size())), Satz, Feld);
    return Rohwert(Satz, Feld);
}

void WerteÜbernehmen(Satzspeicher& Sätze, const Feldzeile& Fund) {
    std::array<std::string_view, Zeilenfelder.size()> Alte;
    SatzzeileFelder(Sätze.PlatzVon(Fund.Nummer).Zeile, Zeilenfelder, Alte);
    std::array<std::string, Zeilenfelder.size()> Halter;
    std::array<Rohfeld, Zeilenfelder.size()> Neue;
    std::size_t Anzahl = 0;
    WerteNehmen(Fund.Zeile, LängenDer(Fund.Zeile), [&](std::string_view Wert, std::size_t Platz) {
        // Most lines of a second import bring nothing new: the same bytes stand for the same value.
        if (Platz == 0 || Wert == Alte[Platz]) return;
        const int Feld = Zeilenfelder[Platz];
        Halter[Platz] = NeuerRohwert(Alte[Platz], Wert, Feld);
        const bool Gleich = IstZahlfeld(Feld)
                                ? RohwertZahl(Halter[Platz], Feld) == RohwertZahl(Alte[Platz], Feld)
                                : Halter[Platz] == Alte[Platz];
        if (!Gleich) Neue[Anzahl++] = {Feld, Halter[Platz]};
    });
    if (Anzahl > 0) Sätze.RohwerteSetzen(Fund.Nummer, std::span(Neue).first(Anzahl));
}

// The whole file; nothing, which has been logged and shown, when it is missing, of another kind, or cannot be
// read. A file of another kind is known by its beginning: it may be larger than the memory.
std::optional<std::string> ImportdateiLesen(const Feldimport& Lauf, const std::string& Dateiname) {
    Dateifehler Fehler;
    const Lesedatei Datei = Lesedatei::Öffnen(Dateiname, &Fehler);
    if (!Datei.Offen() && (Fehler.Nummer == ENOENT || Fehler.Nummer == ENOTDIR)) {
        Lauf.Loggen("IndexFelder-Datei nicht gefunden " + Zeitstempel(Lauf.Umgebung.Zeit));
        Lauf.Umgebung.Person.Melden(Symbol::Ausrufezeichen,
                                    "Die IndexFelder-Datei '" + Dateiname + "' wurde nicht gefunden.");
        return std::nullopt;
    }
    std::string Inhalt;
    if (Datei.Offen() && Datei.Lesen(0, Versionszeile.size()) != Versionszeile && !Datei.Lesefehler()) {
        Lauf.Umgebung.Person.Melden(Symbol::Information,
                                    "Die IndexFelder-Datei '" + Dateiname +
                                        "' ist ungültig oder veraltet und kann nicht verarbeitet werden.");
        return std::nullopt;
    }
    if (Datei.Größe() > GrößteImportdatei) {
        Fehler = {EFBIG, "Die Datei ist größer als 4 GB"};
    } else if (Datei.Offen()) {
        Inhalt = Datei.Lesen(0, Datei.Größe());
        if (Inhalt.size() == Datei.Größe()) return Inhalt;
        Fehler = {EIO, "Die Datei kann nicht ganz gelesen werden"};
    }
    Lauf.Loggen("Fehler beim Zugriff - " + std::to_string(Fehler.Nummer) + ", " + Fehler.Text + " " +
                Zeitstempel(Lauf.Umgebung.Zeit));
    Lauf.Umgebung.Person.Melden(
        Symbol::Ausrufezeichen,
        "Die IndexFelder-Datei '" + Dateiname + "' konnte nicht gelesen werden.\n" + Fehler.Text + ".");
    return std::nullopt;
}

}  // namespace

bool IndexFelderSpeichern(const Katalog& Index, const Indexumgebung& Umgebung, const std::string& Dateiname,
                          bool MitFortschritt) {
    const std::string Temporär = VorläufigerName(Dateiname);
    const bool Vorhanden = DateiExistiert(Dateiname);
    const bool HatVorgänger = DateiExistiert(Temporär);
    const auto Scheitern = [&](const Dateifehler& Fehler) {
        return SpeichernGescheitert(
            Umgebung, "Die Datei '" + Dateiname + "' konnte nicht gespeichert werden.\n" + Fehler.Text + ".",
            Fehler);
    };
    Dateiersatz Ersatz;
    if (Ersatz.Öffnen(Dateiname, Temporär) != Dateiersatz::Öffnung::Bereit) {
        if (!HatVorgänger) return Scheitern(Ersatz.Fehler());
        return SpeichernGescheitert(Umgebung,
                                    "Die IndexFelder-Datei '" + Dateiname +
                                        "' konnte nicht gespeichert werden, da die temporäre Datei '" +
                                        Temporär + "' nicht überschrieben werden konnte.",
                                    Ersatz.Fehler());
    }
    if (MitFortschritt) {
        Umgebung.Person.FortschrittStarten("Speichere '" + std::string(DateinameVon(Dateiname)) + "'", true,
                                           Index.IndexAnzahl());
    }
    const auto Ende = ZeilenSchreiben(Index, Umgebung, Ersatz, MitFortschritt);
    if (MitFortschritt) Umgebung.Person.FortschrittSchließen();
    if (Ende == Schreibende::Abgebrochen) return false;
    if (Ersatz.Fehler()) return Scheitern(Ersatz.Fehler());
    if (Ersatz.Übernehmen()) return true;
    if (!Vorhanden) return Scheitern(Ersatz.Fehler());
    return SpeichernGescheitert(
        Umgebung,
        "Die Datei '" + Dateiname +
            "' konnte nicht gespeichert werden, da die bestehende Datei nicht überschrieben werden konnte.",
        Ersatz.Fehler());
}

std::optional<std::size_t> DateiLadenIndexFelder(Katalog& Index, const Indexumgebung& Umgebung,
                                                 const std::string& Dateiname, const Satzfinder& Finden,
                                                 bool MitFortschritt) {
    const Feldimport Lauf{Index, Umgebung, Finden, MitFortschritt};
    Lauf.Loggen("Lade IndexFelder-Datei - '" + Dateiname + "' (Funktion=Import) " +
                Zeitstempel(Umgebung.Zeit));
    const auto Inhalt = ImportdateiLesen(Lauf, Dateiname);
    if (!Inhalt) return std::nullopt;
    const ErsteZeile Erste = ErsteZeileLesen(*Inhalt);
    if (MitFortschritt) {
        Umgebung.Person.FortschrittStarten("Importiere '" + std::string(DateinameVon(Dateiname)) + "'", true,
                                           static_cast<std::int64_t>(Inhalt->size()));
    }
    const auto Gefundene = ZeilenZuordnen(Lauf, *Inhalt, Erste);
    if (Gefundene) {
        for (const Feldzeile& Fund : *Gefundene)
            WerteÜbernehmen(Index.Sätze, Fund);
        Index.IndexGeändert = true;
    }
    Lauf.Loggen("Ende " + Zeitstempel(Umgebung.Zeit));
    if (MitFortschritt) Umgebung.Person.FortschrittSchließen();
    return Gefundene ? std::optional(Gefundene->size()) : std::nullopt;
}

}  // namespace liedwerk
