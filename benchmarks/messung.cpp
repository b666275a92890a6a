// liedwerk-messung: the program's own times, measured inside of the process, so that its start is not
// counted.
//
// Each subcommand does one job on a real index or folder the way the window does it and prints "name=value"
// lines; times are milliseconds, memory is KiB. benchmarks/messen.sh calls it in turn with
// liedwerk-vergleich.
#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abspielen/titelsuche.h"
#include "basis/text.h"
#include "core/indexstatistik.h"
#include "dateien/hinzufuegen.h"
#include "export/exportieren.h"
#include "index/felderaustausch.h"
#include "index/leser.h"
#include "index/schreiber.h"
#include "medien/autotag.h"
#include "medien/medienlesen.h"
#include "plattform/linux/ordner.h"
#include "plattform/linux/uhr.h"
#include "plattform/speicher/person.h"
#include "plattform/speicher/welt.h"
#include "suche/aufraeumen.h"
#include "suche/liste.h"
#include "suche/mehrfachsuche.h"
#include "suche/sortieren.h"
#include "suche/sortierschluessel.h"
#include "suche/suchmaschine.h"
#include "suche/vervollstaendigung.h"

namespace liedwerk {
namespace {

using Stoppuhr = std::chrono::steady_clock;
using Argumente = std::vector<std::string>;

// What the processor has done for this process so far, in milliseconds: on a busy machine this tells more
// than the clock.
double Rechenzeit() {
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

double MillisekundenSeit(Stoppuhr::time_point Anfang) {
    return std::chrono::duration<double, std::milli>(Stoppuhr::now() - Anfang).count();
}

void Ausgeben(std::string_view Name, double Wert) {
    std::cout << Name << '=' << Wert << '\n';
}

double Mittlerer(std::vector<double> Werte) {
    std::ranges::sort(Werte);
    return Werte[Werte.size() / 2];
}

// Resident memory of this process in KiB (proc(5), VmRSS).
double Speicherbedarf() {
    std::ifstream Zustand("/proc/self/status");
    for (std::string Zeile; std::getline(Zustand, Zeile);) {
        if (!Zeile.starts_with("VmRSS:")) continue;
        double Wert = 0;
        const std::size_t Ziffer = Zeile.find_first_of("0123456789");
        std::from_chars(Zeile.data() + Ziffer, Zeile.data() + Zeile.size(), Wert);
        return Wert;
    }
    return 0;
}

// A log that is off, as it is for nearly everybody.
class Stummes final : public Protokoll {
  public:
    void Schreiben(std::string_view) override {}
    bool Aktiv() const override { return false; }
};

// What a run of the program has around the index.
struct Umfeld {
    speicher::Person Person;
    Stummes Log;
    Systemuhr Zeit;
    Systemordnerleser Ordner;
    speicher::Laufwerksliste Drives;
    Einstellungen Werte;
    Katalog Index;
    Mediumspeicher Medium;
    Pfadverzeichnis Pfade;

    Umfeld() { Werte.Mp3TagLesen = "111"; }

    MedienLeser Leser() {
        return [this](std::string_view Pfad, const Datensatz& Vorgabe, const Leseauftrag& Auftrag) {
            Medienumgebung Umgebung;
            Umgebung.Dateitypen = &Index.Optionen.Dateitypen;
            Umgebung.TAGsBytesSuchen = Werte.TAGsBytesSuchen;
            Umgebung.Zeit = &Zeit;
            Umgebung.Log = &Log;
            return MedienDatenLesen(Umgebung, Pfad, Vorgabe, Auftrag);
        };
    }
    Indexumgebung FürIndex() {
        return {.Person = Person,
                .Log = Log,
                .Zeit = Zeit,
                .Ordner = Ordner,
                .Programmordner = std::filesystem::temp_directory_path().string(),
                .Leser = Leser(),
                .VerfügbarkeitPrüfen = [](Katalog&, Satznummer) { return 1; }};
    }
    Hinzufügeumgebung FürHinzufügen() {
        return {.Index = Index,
                .Werte = Werte,
                .Person = Person,
                .Log = Log,
                .Ordner = Ordner,
                .Medium = Medium,
                .Laufwerk = {.Drives = Drives, .Werte = Werte, .Log = Log},
                .Pfade = Pfade,
                .Leser = Leser()};
    }
    bool Laden(const std::string& Datei) {
        return DateiLaden(Index, Werte, FürIndex(), Datei, false, false, 1) == Ladeergebnis::Index;
    }
};

int Laden(const Argumente& Worte) {
    Umfeld Lauf;
    const auto Anfang = Stoppuhr::now();
    if (!Lauf.Laden(Worte[0])) return 1;
    Suchpuffer Puffer;
    IndexDurchsuchen(Lauf.Index, Puffer, {}, false);
    Liste Ansicht;
    ListeErstellen(Ansicht, Lauf.Index, Lauf.Log, Lauf.Zeit);
    Ausgeben("ms", MillisekundenSeit(Anfang));
    Ausgeben("kib", Speicherbedarf());
    Ausgeben("zeilen", static_cast<double>(Ansicht.Zeilen.size()));
    Ausgeben("veraendert", Lauf.Index.IndexGeändert ? 1 : 0);
    return 0;
}

// One search of the search row with the list behind it.
double Suchzeit(Umfeld& Lauf, Suchpuffer& Puffer, Liste& Ansicht, std::string_view Feld,
                std::string_view Wort) {
    Suchabfragen Menge;
    SucheHinzufügen(Menge, Wort, Feld, Standardcode(false));
    const auto Anfang = Stoppuhr::now();
    IndexDurchsuchen(Lauf.Index, Puffer, Menge, false);
    ListeErstellen(Ansicht, Lauf.Index, Lauf.Log, Lauf.Zeit);
    return MillisekundenSeit(Anfang);
}

int Suchen(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    Suchpuffer Puffer;
    Liste Ansicht;
    Ausgeben("erste", Suchzeit(Lauf, Puffer, Ansicht, Standardsuche, Worte[1]));
    std::vector<double> Zeiten(5);
    for (double& Zeit : Zeiten)
        Zeit = Suchzeit(Lauf, Puffer, Ansicht, Standardsuche, Worte[1]);
    Ausgeben("ms", Mittlerer(Zeiten));
    Ausgeben("treffer", static_cast<double>(Ansicht.Zeilen.size()));
    // One letter more in the box is a search of its own.
    Ausgeben("buchstabe", Suchzeit(Lauf, Puffer, Ansicht, Standardsuche, Worte[1] + "e"));
    Ausgeben("kib", Speicherbedarf());
    Suchzeit(Lauf, Puffer, Ansicht, "Titel", Worte[1]);
    Ausgeben("feld", Suchzeit(Lauf, Puffer, Ansicht, "Titel", Worte[1]));
    return 0;
}

// What helps at the search row: the values of a field, a completion among them, words like one that is not
// found, and a hundred searches at once.
int Eingaben(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    auto Anfang = Stoppuhr::now();
    const auto Werte = AutoCompleteFüllen(Lauf.Index, Worte[1], true, Lauf.Person);
    Ausgeben("werte", MillisekundenSeit(Anfang));
    Ausgeben("verschiedene", static_cast<double>(Werte.size()));
    Anfang = Stoppuhr::now();
    EintragFinden("keiner beginnt so", Werte);
    Ausgeben("ergaenzen", MillisekundenSeit(Anfang));
    Suchpuffer Puffer;
    for (const std::string_view Feld : {Standardsuche, std::string_view(Worte[1])}) {
        Suchabfragen Menge;
        SucheHinzufügen(Menge, Worte[2], Feld, Standardcode(false));
        IndexDurchsuchen(Lauf.Index, Puffer, Menge, false);
        Anfang = Stoppuhr::now();
        const auto Ergebnis = IndexDurchsuchen(Lauf.Index, Puffer, Menge, true);
        Ausgeben(Feld == Standardsuche ? "vorschlaege" : "vorschlaege_feld", MillisekundenSeit(Anfang));
        Ausgeben("woerter", static_cast<double>(Ergebnis.Vorschläge.size()));
    }
    std::string Zeilen;
    for (Satznummer i = 1; i <= 100; ++i) {
        const Datensatz Satz = Lauf.Index.Sätze.Lesen(i * (Lauf.Index.IndexAnzahl() / 100));
        Zeilen += Satz.Interpret + " - " + Satz.Titel + "\n";
    }
    Anfang = Stoppuhr::now();
    const auto Resultate = MehrfachSuchen(Lauf.Index, Puffer, AbfragenZerlegen(Zeilen), Lauf.Person);
    Ausgeben("mehrfach", MillisekundenSeit(Anfang));
    Ausgeben("zeilen", static_cast<double>(Resultate.size()));
    return 0;
}

// A title that a player shows, looked for in the slices of the window: the clock, the processor, the longest
// slice.
int Erkennen(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    for (const char* const Name : {"ms", "nochmals"}) {
        Titelsuche Suche(Worte[1], {});
        double Längster = 0;
        const double Vorher = Rechenzeit();
        const auto Anfang = Stoppuhr::now();
        for (bool Fertig = false; !Fertig;) {
            const auto Abschnitt = Stoppuhr::now();
            Fertig = Suche.Weitersuchen(Lauf.Index, 20000);
            Längster = std::max(Längster, MillisekundenSeit(Abschnitt));
        }
        Ausgeben(Name, MillisekundenSeit(Anfang));
        Ausgeben("rechenzeit", Rechenzeit() - Vorher);
        Ausgeben("abschnitt", Längster);
        Ausgeben("treffer", static_cast<double>(Suche.Gefundene().size()));
    }
    return 0;
}

// The folded text of the standard search, a line a record: what the bare bound of a search looks through.
int Suchtext(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    std::ofstream Ziel(Worte[1], std::ios::binary);
    const Feldwahl Feld = FeldFinden(Standardsuche);
    std::string Wert;
    std::string Gefaltet;
    Feldtyp Typ{};
    for (Satznummer i = 1; i <= Lauf.Index.IndexAnzahl(); ++i) {
        FeldWert(Lauf.Index, i, Feld, Wertform::Anzeigen, false, Wert, Typ);
        Gefaltet.clear();
        FaltenAnhängen(Gefaltet, Wert);
        Ziel << Gefaltet << '\n';
    }
    return Ziel.flush() ? 0 : 1;
}

// A sort of the index by field names, twice: the second one finds the records in another order than their
// lines.
int Sortieren(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    const std::vector<std::string> Kriterien(Worte.begin() + 1, Worte.end());
    // The bound: the library's sort of the first column's keys alone.
    std::vector<std::pair<Sortierschlüssel, Satznummer>> Schlüssel(
        static_cast<std::size_t>(Lauf.Index.IndexAnzahl()));
    for (Satznummer i = 1; i <= Lauf.Index.IndexAnzahl(); ++i) {
        auto& [Eigener, Nummer] = Schlüssel[static_cast<std::size_t>(i - 1)];
        SchlüsselBilden(Lauf.Index, i, FeldFinden(Kriterien[0]), Eigener);
        Nummer = i;
    }
    auto Anfang = Stoppuhr::now();
    std::ranges::sort(Schlüssel);
    Ausgeben("schranke", MillisekundenSeit(Anfang));
    Schlüssel = {};
    std::vector<std::uint8_t> Merker;
    for (const char* Name : {"ms", "zweites"}) {
        Anfang = Stoppuhr::now();
        IndexSortieren(Lauf.Index, Kriterien, false, Merker, Lauf.Person);
        Ausgeben(Name, MillisekundenSeit(Anfang));
    }
    return 0;
}

int Speichern(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    // Some plays have been counted since the load, as on every evening.
    for (Satznummer i = 1; i <= Lauf.Index.IndexAnzahl(); i += 1000) {
        Datensatz Satz = Lauf.Index.Sätze.Lesen(i);
        ++Satz.AbspielHäufigkeit;
        Lauf.Index.Sätze.Setzen(i, Lauf.Index.Sätze.Pfad(i), Satz);
    }
    std::filesystem::remove(Worte[1]);
    const auto Anfang = Stoppuhr::now();
    const auto Ergebnis = DateiSpeichern(Lauf.Index, Lauf.Werte, Lauf.FürIndex(), Worte[1], false);
    Ausgeben("ms", MillisekundenSeit(Anfang));
    return Ergebnis == Speicherergebnis::Gespeichert ? 0 : 1;
}

// Adds a folder to an index (an empty one without a third argument), twice with doubles suppressed.
int Hinzufügen(const Argumente& Worte) {
    Umfeld Lauf;
    Lauf.Index.Programmmodus = ModusIndexdatei;
    Lauf.Index.Optionen.Dateitypen = DateitypenVorgabe();
    Lauf.Werte.HinzufügenKeineDoppelten = 1;
    if (Worte.size() > 1 && !Lauf.Laden(Worte[1])) return 1;
    const Satznummer Vorher = Lauf.Index.IndexAnzahl();
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Worte[0];
    Auftrag.StatusMelden = false;
    auto Anfang = Stoppuhr::now();
    const auto Erster = EinfachOrdnerHinzufügen(Lauf.FürHinzufügen(), Auftrag);
    Ausgeben("ms", MillisekundenSeit(Anfang));
    Anfang = Stoppuhr::now();
    const auto Zweiter = EinfachOrdnerHinzufügen(Lauf.FürHinzufügen(), Auftrag);
    Ausgeben("zweiter", MillisekundenSeit(Anfang));
    Ausgeben("neu", Erster.Anzahl);
    Ausgeben("doppelt", Zweiter.Anzahl);
    return Erster.Gelungen && Zweiter.Gelungen && Lauf.Index.IndexAnzahl() == Vorher + Erster.Anzahl ? 0 : 1;
}

// Adds one file after the other to an index, doubles suppressed: the cost of one.
int Einzeln(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[1])) return 1;
    Lauf.Werte.HinzufügenKeineDoppelten = 1;
    std::vector<std::string> Dateien;
    for (const auto& Eintrag : std::filesystem::recursive_directory_iterator(Worte[0])) {
        if (Eintrag.is_regular_file()) Dateien.push_back(Eintrag.path().string());
        if (Dateien.size() == 200) break;
    }
    std::vector<double> Zeiten;
    for (const std::string& Datei : Dateien) {
        const auto Anfang = Stoppuhr::now();
        EinfachDateiHinzufügen(Lauf.FürHinzufügen(), {Datei}, false);
        Zeiten.push_back(MillisekundenSeit(Anfang));
    }
    // The first one builds the table of paths; a run pays that once.
    Ausgeben("erste", Zeiten.front());
    Ausgeben("ms", Mittlerer(Zeiten));
    return 0;
}

// Clean-up by each of the methods that find pairs: the dearest one, and how many pairs all of them found.
int Aufräumen(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    std::vector<Satznummer> Alle(static_cast<std::size_t>(Lauf.Index.IndexAnzahl()));
    std::iota(Alle.begin(), Alle.end(), 1);
    double Teuerste = 0;
    std::size_t Paare = 0;
    for (std::size_t i = 0; i < Suchmethoden.size(); ++i) {
        const auto Methode = static_cast<Aufräummethode>(i);
        if (!FindetPaare(Methode)) continue;
        const auto Anfang = Stoppuhr::now();
        Paare += DurchsucheIndex(Lauf.Index, Alle, Methode, {}, Lauf.Person).size();
        const double Dauer = MillisekundenSeit(Anfang);
        Ausgeben("methode" + std::to_string(i), Dauer);
        Teuerste = std::max(Teuerste, Dauer);
    }
    Ausgeben("ms", Teuerste);
    Ausgeben("paare", static_cast<double>(Paare));
    return 0;
}

// The figures of the statistics window.
int Statistik(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    const auto Anfang = Stoppuhr::now();
    const auto Zahlen = IndexstatistikBilden(Lauf.Index, [](Satznummer) { return true; });
    Ausgeben("ms", MillisekundenSeit(Anfang));
    Ausgeben("dateien", static_cast<double>(Zahlen ? Zahlen->Gesamt.Dateien : 0));
    return Zahlen ? 0 : 1;
}

// MedienDatenLesen over a folder on one thread, as "datei-info" does it.
int Lesen(const Argumente& Worte) {
    Umfeld Lauf;
    Lauf.Index.Optionen.Dateitypen = DateitypenVorgabe();
    const MedienLeser Leser = Lauf.Leser();
    std::vector<std::string> Dateien;
    for (const auto& Eintrag : std::filesystem::recursive_directory_iterator(Worte[0])) {
        if (Eintrag.is_regular_file()) Dateien.push_back(Eintrag.path().string());
    }
    std::ranges::sort(Dateien);
    const Leseauftrag Auftrag{.Code = Lesecode::Lesen("1111"), .ZeilenEntfernen = true, .GrößeLesen = true};
    std::int64_t Sekunden = 0;
    const auto Anfang = Stoppuhr::now();
    for (const std::string& Datei : Dateien)
        Sekunden += Leser(Datei, {}, Auftrag).Dauer;
    Ausgeben("ms", MillisekundenSeit(Anfang));
    Ausgeben("sekunden", static_cast<double>(Sekunden));
    return 0;
}

// AutoTAG on a file name without a format: the first file of a run that nothing has been prepared for; the
// steps that the editor takes in idle moments after it was opened (the longest one, and all of them); then
// the first file and the following ones.
int AutoTag(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    Tagverzeichnis Unvorbereitetes;
    Tagverzeichnis Verzeichnis;
    const auto Zeit = [&](Tagverzeichnis& Welches) {
        Datensatz Ergebnis;
        const auto Anfang = Stoppuhr::now();
        AutoTagAusführen({Lauf.Index, Lauf.Werte, Welches}, Worte[1], "%automatik%", Ergebnis, {},
                         AutoTagZiel::Beide);
        return MillisekundenSeit(Anfang);
    };
    const double Vorher = Rechenzeit();
    Ausgeben("unvorbereitet", Zeit(Unvorbereitetes));
    Ausgeben("rechenzeit", Rechenzeit() - Vorher);
    constexpr std::size_t SätzeJeSchritt = 20000;
    double Längster = 0;
    const auto Anfang = Stoppuhr::now();
    for (bool Fertig = false; !Fertig;) {
        const auto Schrittanfang = Stoppuhr::now();
        Fertig = Verzeichnis.Vorbereiten(Lauf.Index.Sätze, SätzeJeSchritt);
        Längster = std::max(Längster, MillisekundenSeit(Schrittanfang));
    }
    Ausgeben("vorbereiten", MillisekundenSeit(Anfang));
    Ausgeben("schritt", Längster);
    Ausgeben("erste", Zeit(Verzeichnis));
    std::vector<double> Zeiten(5);
    for (double& Eine : Zeiten)
        Eine = Zeit(Verzeichnis);
    Ausgeben("ms", Mittlerer(Zeiten));
    return 0;
}

// The text export of all records, and the bytes that it writes in a second.
int Exportieren(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    std::vector<Satznummer> Alle(static_cast<std::size_t>(Lauf.Index.IndexAnzahl()));
    std::iota(Alle.begin(), Alle.end(), 1);
    Exportauftrag Auftrag;
    Auftrag.Datei = Worte[1];
    Auftrag.Trennzeichen = ";";
    Auftrag.Liste = Teilen(Worte.size() > 2 ? Worte[2] : "Interpret,Titel,Album,Pfad+Dateiname", ",");
    const double Vorher = Rechenzeit();
    const auto Anfang = Stoppuhr::now();
    if (!ExportSchreiben(Lauf.Index, Alle, Auftrag, Lauf.Person, Lauf.Log, Lauf.Zeit)) return 1;
    const double Dauer = MillisekundenSeit(Anfang);
    Ausgeben("ms", Dauer);
    Ausgeben("rechenzeit", Rechenzeit() - Vorher);
    Ausgeben("mb_je_s", static_cast<double>(std::filesystem::file_size(Worte[1])) / 1000 / Dauer);
    return 0;
}

// The import of index fields; the second one brings nothing new.
int FelderEinlesen(const Argumente& Worte) {
    Umfeld Lauf;
    if (!Lauf.Laden(Worte[0])) return 1;
    const Satzfinder Finden = [&](std::string_view Pfad) {
        return Lauf.Pfade.ErstenFinden(Lauf.Index.Sätze, Pfad);
    };
    for (const std::string_view Name : {"ms", "nochmals"}) {
        const double Vorher = Rechenzeit();
        const auto Anfang = Stoppuhr::now();
        const auto Anzahl = DateiLadenIndexFelder(Lauf.Index, Lauf.FürIndex(), Worte[1], Finden, false);
        if (!Anzahl) return 1;
        Ausgeben(Name, MillisekundenSeit(Anfang));
        Ausgeben("rechenzeit", Rechenzeit() - Vorher);
        Ausgeben("zeilen", static_cast<double>(*Anzahl));
    }
    return 0;
}

struct Befehl {
    std::string_view Name;
    std::size_t Mindestens;
    std::size_t Höchstens;
    std::string_view Aufruf;
    int (*Ausführen)(const Argumente&);
};

constexpr std::array<Befehl, 15> Befehle = {{
    {"laden", 1, 1, "INDEX", Laden},
    {"suchen", 2, 2, "INDEX WORT", Suchen},
    {"eingaben", 3, 3, "INDEX FELD FEHLENDES_WORT", Eingaben},
    {"sortieren", 2, 4, "INDEX FELD [FELD [FELD]]", Sortieren},
    {"erkennen", 2, 2, "INDEX TITEL", Erkennen},
    {"suchtext", 2, 2, "INDEX ZIEL", Suchtext},
    {"speichern", 2, 2, "INDEX ZIEL", Speichern},
    {"hinzufuegen", 1, 2, "ORDNER [INDEX]", Hinzufügen},
    {"einzeln", 2, 2, "ORDNER INDEX", Einzeln},
    {"lesen", 1, 1, "ORDNER", Lesen},
    {"exportieren", 2, 3, "INDEX ZIEL [SPALTE,SPALTE...]", Exportieren},
    {"aufraeumen", 1, 1, "INDEX", Aufräumen},
    {"statistik", 1, 1, "INDEX", Statistik},
    {"felder", 2, 2, "INDEX FELDERDATEI", FelderEinlesen},
    {"autotag", 2, 2, "INDEX DATEINAME", AutoTag},
}};

int Ausführen(const Argumente& Worte) {
    for (const Befehl& Eintrag : Befehle) {
        if (Worte.empty() || Eintrag.Name != Worte[0]) continue;
        if (Worte.size() - 1 < Eintrag.Mindestens || Worte.size() - 1 > Eintrag.Höchstens) break;
        return Eintrag.Ausführen({Worte.begin() + 1, Worte.end()});
    }
    for (const Befehl& Eintrag : Befehle)
        std::cerr << "liedwerk-messung " << Eintrag.Name << ' ' << Eintrag.Aufruf << '\n';
    return 2;
}

}  // namespace
}  // namespace liedwerk

int main(int Anzahl, char** Worte) {
    return liedwerk::Ausführen({Worte + 1, Worte + Anzahl});
}
