// Who owns what while the program runs.
//
// core/ is where start, modes, periodic work and the end of the system stand, and the flows that span
// folders. Main (start.h) walks the stages of the start, StandardDateiLaden (laden.h) fetches the data,
// SucheAktualisieren (suchlauf.h) and the adding runs (hinzufuegelauf.h) connect index, search and list,
// FensterSchließen (beenden.h) ends. Anwendung is the plain sum of what lives during a run; it does nothing
// itself, and nobody takes it to reach three of its members. The windows hang on the port Hauptfenster; the
// command line program has one that shows nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/uhr.h"
#include "cd/cdbereiten.h"
#include "core/einstellungsspeicher.h"
#include "core/hauptfenster.h"
#include "core/protokolldatei.h"
#include "dateien/hinzufuegen.h"
#include "dateien/medium.h"
#include "dateien/playlisten.h"
#include "index/katalog.h"
#include "index/leser.h"
#include "medien/medienlesen.h"
#include "medien/tagspeichern.h"
#include "medien/tagverzeichnis.h"
#include "plattform/cdlaufwerke.h"
#include "plattform/desktopfarben.h"
#include "plattform/http.h"
#include "plattform/laufwerke.h"
#include "plattform/medienauskunft.h"
#include "plattform/ordnerleser.h"
#include "plattform/ordnerwacht.h"
#include "plattform/papierkorb.h"
#include "plattform/programmstart.h"
#include "plattform/spieler.h"
#include "suche/abfrage.h"
#include "suche/liste.h"
#include "suche/suchpuffer.h"
#include "termine/pruefen.h"

namespace liedwerk {

// The ports of a run, owned by main of the program in question.
struct Dienste {
    Oberfläche& Person;
    Hauptfenster& Fenster;
    const Uhr& Zeit;
    const Laufwerke& Drives;
    const Ordnerleser& Ordner;
    const Medienauskunft* Auskunft = nullptr;
    Wertspeicher& Nutzerwerte;
    Wertspeicher* Rechnerwerte = nullptr;  // machine-wide seed, read-only
    std::string Programmordner;
    // The temporary index that this process has claimed; empty: tmp.lwi in the program folder.
    std::string Temporärindex{};
    std::string Betriebssystem{};  // text of the system's name and version, for the head of the log
    // Other programs and the running audio player; without them nothing is played.
    Programmstart* Programme = nullptr;
    Spielerkanal* Spieler = nullptr;
    std::string Laufzeitordner{};      // for play lists that are handed over; empty: the program folder
    Papierkorb* Eimer = nullptr;       // the desktop's recycle bin; may be missing
    Http* Netz = nullptr;              // without it no CD database is asked
    const CDLaufwerke* CDs = nullptr;  // drives with audio CDs; without them no disc can be read
    Ordnerwacht* Wacht = nullptr;      // over the folders to synchronise; may be missing
    Desktopfarben* Desktop = nullptr;  // what the desktop wishes for its windows; may be missing
    // plattform/pruefsumme.h; missing: no file is known again.
    std::function<std::string(std::string_view Pfad)> DateiPrüfsumme{};
};

struct Anwendung {
    explicit Anwendung(const Dienste& Ports) : Dienst(Ports), Log(Ports.Programmordner) {}

    Dienste Dienst;
    Protokolldatei Log;
    Einstellungen Werte;
    Katalog Index;
    Suchabfragen Abfragen;
    Suchpuffer Puffer;
    Liste Ansicht;
    Mediumspeicher Medium;
    Pfadverzeichnis Pfade;
    Tagverzeichnis Tagtexte;
    Rettung Reste{Dienst.Zeit};  // interrupted saves of tags
    CDStand CD;

    std::string Kommandozeile;          // as it was given, for messages
    bool NameVonKommandozeile = false;  // IndexDateiname is not written back to the settings
    bool TagLesenNurLauf = false;       // Mp3TagLesen was set for the run only; TagLesenGemerkt goes back
    std::string TagLesenGemerkt;
    bool Startet = false;
    bool ErsterStart = false;
    bool BeendenErbeten = false;  // the start ends the system by itself
    bool LaufAktiv = false;       // a long run is active: timers return at once
    bool Gesperrt = false;        // the password has not been given yet: nothing of the collection is shown
    bool LageGesetzt = false;     // the window stands where the settings say; the end may take its place over
    Zeitpunkt StartZeit;
    Zeitpunkt LetzteSpeicherung;
    bool AbgleichGelungen = false;  // the last synchronisation came to its end
    // TerminePrüfen, run once at the start and by tmrEreignisse; gives the notices that were shown. Empty: no
    // reminders are looked at.
    std::function<std::vector<Terminmeldung>()> TerminePrüfen;
    bool TerminePrüfenLäuft = false;
    std::function<void(std::size_t Nummer)> TerminzeileAuffrischen;  // while the list of events is open
    std::set<std::string, std::less<>> VertrauteProgramme;           // reminders' programs that start unasked
    // frmIndexHinzufügenZusammenfassung, modal: true when the rows, some of them corrected by now, shall be
    // added. Empty: nobody looks them over.
    std::function<bool(Namensfunde& Funde)> ZusammenfassungZeigen;
    // The assistant for an audio CD that is added, with frmCDDaten; false: the person does not want the disc.
    // It leaves the disc's data in CD. Empty: discs are taken with what the cache knows of them.
    std::function<bool(std::string_view Laufwerk)> CDAssistent;
};

// Marks a long run for its lifetime, so that the timers leave it alone; runs may stand in one another.
class Laufsperre {
  public:
    explicit Laufsperre(Anwendung& Programm) : Aktiv(Programm.LaufAktiv), Vorher(Programm.LaufAktiv) {
        Aktiv = true;
    }
    Laufsperre(const Laufsperre&) = delete;
    Laufsperre& operator=(const Laufsperre&) = delete;
    ~Laufsperre() { Aktiv = Vorher; }

  private:
    bool& Aktiv;
    bool Vorher;
};

// The surroundings that the folders below core ask for, made from the parts of a run. They refer to Programm,
// which must outlive them; the reader may be called from several threads.
Medienumgebung MedienumgebungVon(Anwendung& Programm);
// Weiter is asked during long questions to the system; false ends them.
MedienLeser MedienleserVon(Anwendung& Programm, std::function<bool()> Weiter = {});
Mediumumgebung MediumumgebungVon(Anwendung& Programm);
// Needs the port to the CDs.
CDUmgebung CDUmgebungVon(Anwendung& Programm);
Indexumgebung IndexumgebungVon(Anwendung& Programm);
Hinzufügeumgebung HinzufügeumgebungVon(Anwendung& Programm);
Tagumgebung TagumgebungVon(Anwendung& Programm);

// Program version as its three parts; Versionszahl is the number formed by the texts of major and minor
// (100).
struct Programmversion {
    std::string Haupt;
    std::string Neben;
    std::string Revision;
};
const Programmversion& Version();
std::int16_t Versionszahl();
// "Liedwerk 1.00".
std::string ProgrammnameMitVersion();

}  // namespace liedwerk
