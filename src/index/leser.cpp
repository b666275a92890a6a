#include "index/leser.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <optional>

#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/indexformat.h"
#include "index/indexinhalt.h"
#include "index/nachlesen.h"
#include "index/sicherungskopien.h"
#include "index/speichersperre.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

// The ways of a load.
constexpr int WegIndex = 0;
constexpr int WegOrdner = 1;
constexpr int WegTagEditor = 2;

// Number of the error "out of memory", as the log shows it.
constexpr int SpeicherFehlt = 7;

const Dateifehler NichtGanzLesbar{EIO, "Die Datei kann nicht ganz gelesen werden"};

// One load with what all its steps need.
struct Ladevorgang {
    Katalog& Index;
    Einstellungen& Werte;
    const Indexumgebung& Umgebung;
    std::string Name;   // as handed over
    std::string Datei;  // the file to work on
    int Weg = WegIndex;
    bool StillErstellen = false;
    bool MitFortschritt = false;

    void Loggen(const std::string& Text) const { Umgebung.Log.Schreiben("DateiLaden: " + Text); }
    void LoggenMitStempel(const std::string& Text) const { Loggen(Text + " " + Zeitstempel(Umgebung.Zeit)); }
    void Melden(Symbol Zeichen, const std::string& Text) const { Umgebung.Person.Melden(Zeichen, Text); }
    bool ZugriffGescheitert(const Dateifehler& Fehler) const {
        LoggenMitStempel("Fehler beim Zugriff - " + std::to_string(Fehler.Nummer) + ", " + Fehler.Text);
        return false;
    }
};

void Zurücksetzen(Ladevorgang& Lauf) {
    Katalog& Index = Lauf.Index;
    Lauf.LoggenMitStempel("Bereite Laden vor - '" + Lauf.Name + "'");
    Index.Sätze.Leeren();
    TrefferZurücksetzen(Index);
    Index.Optionen = Indexoptionen();
    Index.Termine.clear();
    Index.IndexGeändert = false;
    Index.IndexDateiBekannt = false;
    Index.Programmmodus = ModusNichtsGeladen;
    Index.IndexDateiname = Lauf.Name;
    Lauf.LoggenMitStempel("Lade Datei - '" + Lauf.Name + "'");
}

void WegWählen(Ladevorgang& Lauf, int Modus) {
    if (Modus > 1) {
        Lauf.Weg = Modus - 1;
    } else if (OrdnerExistiert(Lauf.Name)) {
        Lauf.Weg = WegOrdner;
    }
    Lauf.Datei = Lauf.Weg == WegIndex ? Lauf.Name : TemporärerIndex(Lauf.Umgebung);
}

// Looks for backups of a missing index; where there are any, no new ones shall push them out.
void NachSicherungenSehen(const Ladevorgang& Lauf) {
    const auto Funde = SicherungskopienSuchen(Lauf.Umgebung.Ordner, OrdnerDer(Lauf.Datei));
    if (!Funde) Lauf.LoggenMitStempel("Backups konnten nicht gefunden oder gesucht werden");
    if (!Funde || Funde->empty()) return;
    Lauf.Werte.BackupsSpeichern = 0;
    Lauf.Melden(
        Symbol::Ausrufezeichen,
        "Die zu ladende Indexdatei oder der Ordner '" + Lauf.Name +
            "' wurde nicht gefunden, jedoch mindestens eine Sicherungskopie.\n\nWenn Sie diese "
            "wiederherstellen möchten, klicken Sie im Hauptfenster auf 'Optionen' und dann auf "
            "'Sicherheit' und dort auf 'Sicherungskopie wiederherstellen'. Aus Sicherheitsgründen wurde "
            "die Funktion 'Automatisch Sicherungskopien anlegen' deaktiviert.\n\nDie zu ladende "
            "Indexdatei wird jetzt neu erstellt.");
}

// Whether the load can go on with what lies under the name; nothing when the file is known to be missing. A
// disk or a server that does not answer says nothing about its files, and to create an index that is there
// all the same would empty it.
std::optional<bool> IndexSuchen(const Ladevorgang& Lauf) {
    Dateifehler Fehler;
    if (Lesedatei::Öffnen(Lauf.Datei, &Fehler).Offen()) return true;
    if (Fehler.Nummer == ENOENT || Fehler.Nummer == ENOTDIR) return std::nullopt;
    return Lauf.ZugriffGescheitert(Fehler);
}

bool NeuErstellen(const Ladevorgang& Lauf) {
    if (const auto Fremdes = TemporärnamePrüfen(Lauf.Datei)) return Lauf.ZugriffGescheitert(Fremdes);
    Dateiersatz Ersatz;
    const auto Öffnung = Ersatz.Öffnen(Lauf.Datei, TemporärnameVon(Lauf.Datei));
    if (Öffnung == Dateiersatz::Öffnung::Gesperrt) {
        return Lauf.ZugriffGescheitert({1, "Die Datei wird gerade von einem anderen Programm geschrieben"});
    }
    // Only now nobody else can make it any more: another program may have done it since the first look.
    if (const auto Gefunden = IndexSuchen(Lauf)) return *Gefunden;
    Ersatz.Schreiben(IndexVersionNeu);
    Ersatz.Schreiben(Zeilenende);
    return Ersatz.Übernehmen() || Lauf.ZugriffGescheitert(Ersatz.Fehler());
}

// False when there is no file to load and none could be made.
bool FehlendeErstellen(const Ladevorgang& Lauf) {
    if (const auto Gefunden = IndexSuchen(Lauf)) return *Gefunden;
    Lauf.LoggenMitStempel("Indexdatei nicht gefunden");
    if (!Lauf.StillErstellen) {
        const std::string Ordner(OrdnerDer(Lauf.Datei));
        if (!OrdnerExistiert(Ordner)) {
            Lauf.Melden(Symbol::Ausrufezeichen,
                        "Die zu ladende Indexdatei oder der Ordner '" + Lauf.Name +
                            "' wurde nicht gefunden und kann nicht erstellt werden, da der Ordner '" +
                            Ordner +
                            "' nicht existiert.\n\nBitte laden Sie eine Indexdatei über den Dialog "
                            "'Indexdateien verwalten'.");
            return false;
        }
        NachSicherungenSehen(Lauf);
    }
    return NeuErstellen(Lauf);
}

// Sets Formatstand by the first line. False when the person does not want a file of unknown form to be read.
bool VersionLesen(const Ladevorgang& Lauf, std::string_view Zeile) {
    constexpr std::string_view Höchste = "102";
    int& Stand = Lauf.Index.Formatstand;
    if (Zeile.starts_with(IndexVersionAnfang)) {
        const std::string_view Rest = Zeile.substr(IndexVersionAnfang.size());
        Stand = Rest.starts_with("101") ? 1 : Rest.starts_with("100") ? 0 : 2;
        const bool Bekannt = Stand != 2 || Rest.starts_with(Höchste);
        if (!Bekannt && IstNumerisch(Rest) && Rest > Höchste) {
            Lauf.Melden(
                Symbol::Information,
                "Die Indexdatei '" + Lauf.Name + "' liegt in einem neueren Datei-Format ('" +
                    IndexwertLesen(Zeile.substr(Zeile.size() - 3)) +
                    "') vor.\n\nMöglicherweise stehen einige Funktionen nicht zur Verfügung oder es können "
                    "beim Speichern Daten verloren gehen.\n\nInstallieren Sie eine neuere Version dieses "
                    "Programmes, um diesen Hinweis zu verhindern.");
        }
        return true;
    }
    Stand = -1;
    const std::string Frage = "Die Indexdatei '" + Lauf.Name +
                              "' liegt in einem älteren Dateiformat vor oder ist ungültig. Wenn Sie die "
                              "Datei später speichern, kann das "
                              "zum Verlust von Daten führen, da die Datei möglicherweise nicht ordnungsgemäß "
                              "gelesen werden kann.\n\nSoll "
                              "versucht werden, die Datei zu lesen?";
    if (Lauf.Umgebung.Person.JaNein(Symbol::Ausrufezeichen, Frage, Antwort::Nein) != Antwort::Ja)
        return false;
    Lauf.Index.IndexGeändert = true;
    return true;
}

// The progress of the walk over the lines; nothing when none is shown.
std::function<void(std::size_t)> Lesefortschritt(const Ladevorgang& Lauf) {
    if (!Lauf.MitFortschritt || Lauf.Weg != WegIndex) return {};
    return [&Lauf](std::size_t Gelesen) {
        const std::string& Eigentümer = Lauf.Index.Optionen.IndexEigentümer;
        // Reading is not cancelled: half an index would pass for the whole.
        Lauf.Umgebung.Person.FortschrittZeigen(
            Eigentümer.empty() ? "Lese Indexdatei" : "Lese " + Eigentümer + "s Indexdatei",
            static_cast<std::int64_t>(Gelesen));
    };
}

// Reads the content into the catalogue. Unvollständig: a record wants its file to be read again.
bool InhaltLesen(const Ladevorgang& Lauf, bool& Unvollständig) {
    constexpr std::uint64_t HöchsterKopf = 4096;
    Dateifehler Fehler;
    const Lesedatei Quelle = Lesedatei::Öffnen(Lauf.Datei, &Fehler);
    if (!Quelle.Offen()) return Lauf.ZugriffGescheitert(Fehler);
    const std::string Anfang = Quelle.Lesen(0, HöchsterKopf);
    // A first line that cannot be read is not a foreign one.
    if (Anfang.size() != std::min(Quelle.Größe(), HöchsterKopf))
        return Lauf.ZugriffGescheitert(NichtGanzLesbar);
    if (!VersionLesen(Lauf, ErsteZeileLesen(Anfang).Text)) return false;
    if (Lauf.MitFortschritt && Lauf.Weg == WegIndex) {
        Lauf.Umgebung.Person.FortschrittStarten("Lade '" + std::string(DateinameVon(Lauf.Datei)) + "'", true,
                                                static_cast<std::int64_t>(Quelle.Größe()));
        Lauf.Umgebung.Person.FortschrittZeigen("Lese Indexdatei", 0);
    }
    auto Block = IndexblockLesen(Quelle);
    // A part of an index must not pass for the whole: the next save would make it so.
    if (!Block) return Lauf.ZugriffGescheitert(NichtGanzLesbar);
    if (Lauf.Index.Formatstand == -1) {
        PfadzeilenÜbernehmen(Lauf.Index, *Block);
        Unvollständig = true;
    } else {
        const Inhaltsauftrag Auftrag{Lauf.Umgebung.Log, Lauf.Weg == WegIndex, Lesefortschritt(Lauf)};
        Unvollständig = IndexzeilenÜbernehmen(Lauf.Index, *std::move(Block), Auftrag);
    }
    TrefferZurücksetzen(Lauf.Index);
    // The state of what has been read, not of what stands under the name by now.
    Lauf.Index.IndexDateiZeit = Quelle.Stand();
    Lauf.Index.IndexDateiGeneration = Quelle.Generation();
    Lauf.Index.IndexDateiBekannt = true;
    return true;
}

// Adds the default file types that the file does not name.
void DateitypenErgänzen(const Ladevorgang& Lauf) {
    Indexoptionen& Optionen = Lauf.Index.Optionen;
    const bool MitWeiteren = Lauf.Werte.WeitereFormate == 1;
    if (Optionen.DateitypenLeer != 0) {
        Optionen.Dateitypen = Grundtypen(MitWeiteren);
        Optionen.DateitypenLeer = 0;
        Lauf.Index.IndexGeändert = true;
        return;
    }
    for (const Dateityp& Vorgabe : FehlendeGrundtypen(Optionen.Dateitypen, MitWeiteren)) {
        Optionen.Dateitypen.push_back(Vorgabe);
        Lauf.Index.IndexGeändert = true;
        Lauf.Umgebung.Log.Schreiben("DateiLesen: DateitypenVerwalten erstellen für Endung '" +
                                    Vorgabe.Eintrag + "'");
    }
    if (Optionen.Dateitypen.size() > HöchsteTypen)
        Lauf.Umgebung.Log.Schreiben("DateiLesen: Zu viele Dateitypen - von " +
                                    std::to_string(Optionen.Dateitypen.size()) + " entscheiden nur " +
                                    std::to_string(HöchsteTypen));
}

// The other two ways begin with the options of the temporary index, but with rules of their own.
void WegVorbereiten(const Ladevorgang& Lauf) {
    if (Lauf.Weg == WegIndex) return;
    Indexoptionen& Optionen = Lauf.Index.Optionen;
    Optionen.SyncOrdner = {{Lauf.Name, 0, ""}};
    Optionen.SyncLeer = Lauf.Weg == WegTagEditor ? 1 : 0;
    Optionen.SyncEntfernen = 1;
    Optionen.SyncNichtBei.clear();
    if (Lauf.Weg == WegTagEditor) Lauf.Werte.Mp3TagLesen = "0010";
}

Ladeergebnis Laden(Ladevorgang& Lauf) {
    if (!SpeicherendeAbwarten(Lauf.Datei, Lauf.MitFortschritt, Lauf.Umgebung))
        return Ladeergebnis::Fehlschlag;
    bool Unvollständig = false;
    if (!FehlendeErstellen(Lauf) || !InhaltLesen(Lauf, Unvollständig)) return Ladeergebnis::Fehlschlag;
    DateitypenErgänzen(Lauf);
    if (Unvollständig && Lauf.Weg == WegIndex && !Lauf.Werte.Mp3TagLesen.starts_with("000") &&
        Lauf.Umgebung.Leser) {
        FehlendesNachlesen(Lauf.Index, Lauf.Werte, Lauf.Umgebung, Lauf.MitFortschritt);
    }
    return static_cast<Ladeergebnis>(Lauf.Weg + 1);
}

}  // namespace

std::string TemporärerIndex(const Indexumgebung& Umgebung) {
    if (!Umgebung.Temporärindex.empty()) return Umgebung.Temporärindex;
    return PfadVerbinden(Umgebung.Programmordner, "tmp.lwi");
}

std::string_view OrdnerDer(std::string_view Datei) {
    const std::string_view Ordner = PfadVon(Datei);
    return Ordner.empty() ? "." : Ordner;
}

Ladeergebnis DateiLaden(Katalog& Index, Einstellungen& Werte, const Indexumgebung& Umgebung,
                        std::string_view Dateiname, bool FortschrittOffen, bool StillErstellen, int Modus) {
    Ladevorgang Lauf{Index, Werte, Umgebung, std::string(Dateiname), {}};
    Lauf.MitFortschritt = FortschrittBeimLaden(Werte);
    Zurücksetzen(Lauf);
    WegWählen(Lauf, Modus);
    // Nobody misses the temporary index.
    Lauf.StillErstellen = StillErstellen || Lauf.Weg != WegIndex;
    auto Ergebnis = Ladeergebnis::Fehlschlag;
    try {
        Ergebnis = Laden(Lauf);
    } catch (const std::bad_alloc&) {
        Index.Sätze.Leeren();
        TrefferZurücksetzen(Index);
        Lauf.ZugriffGescheitert({SpeicherFehlt, "Nicht genügend Arbeitsspeicher"});
    }
    if (!FortschrittOffen) Umgebung.Person.FortschrittSchließen();
    if (Ergebnis == Ladeergebnis::Fehlschlag) return Ergebnis;
    WegVorbereiten(Lauf);
    Lauf.LoggenMitStempel("Datei geladen - '" + Lauf.Datei + "'");
    Lauf.LoggenMitStempel("Ende");
    return Ergebnis;
}

}  // namespace liedwerk
