// AbspielenMediaPlayer: the way to play anything. Each file goes to where it belongs: to the audio player
// through a play list, to the picture viewer, or to the associated program.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "abspielen/playliste.h"
#include "abspielen/spieler.h"
#include "abspielen/titelerkennung.h"
#include "basis/protokoll.h"
#include "dateien/medium.h"
#include "index/katalog.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// What playing takes from its surroundings.
struct Abspielumgebung {
    Katalog& Index;
    Mediumspeicher& Medium;
    Mediumumgebung Datenträger;
    Spielersteuerung& Spieler;  // with programs, settings, person and clock
    Titelerkennung& Erkennung;
    Protokoll& Log;
    const Ordnerleser& Ordner;
    std::string Laufzeitordner;  // for play lists that cannot lie beside the player
    // frmBildAnzeige, modal; false when the picture could not be shown, and the person knows why. May be
    // empty.
    std::function<bool(std::string_view Pfad)> BildAnzeigen;
    std::function<void()> NachrichtZeigen;  // the reminder form; may be empty
    // One turn of the event loop while a player takes its list, the person's input included: a player that
    // hangs must not hold up the window. Empty: the turn of Spieler.Person.
    std::function<void()> Warteschritt{};
};

struct Abspielergebnis {
    bool Gelungen = false;      // false: declined, stopped, no player, or a file that went nowhere
    std::string Playlistdatei;  // of the last hand-over
    int Anzahl = 0;             // files that were handed over, wherever to
    // Programs that did not start, one German text each: what the person is not shown at once.
    std::vector<std::string> Fehler;
};

// Plays the records in their order. Anhängen: add to the player's list without starting. Standardanwendung:
// each file goes to Programm, or to its association when that is empty. PlaylisteLeeren clears the player's
// list first.
Abspielergebnis AbspielenMediaPlayer(Abspielumgebung& Umgebung, const std::vector<Satznummer>& Dateien,
                                     bool Anhängen, bool Standardanwendung, bool PlaylisteLeeren,
                                     std::string_view Programm);

// True when one of the records is of a type that belongs to the audio player.
bool BrauchtAudioplayer(const Katalog& Index, const std::vector<Satznummer>& Dateien);

// The steps of a play list. PlaylisteBeginnen: false, and the person knows why, without a player.
// PlaylisteEintrag: false when the file is not at hand or its name cannot stand in a list. PlaylisteÜbergeben
// writes the file and starts the player with it; Warten: until it has taken it, up to 5 seconds. Ergebnis
// gets the name of the file, and the reason when the player did not start.
bool PlaylisteBeginnen(Abspielumgebung& Umgebung, Playliste& Liste);
bool PlaylisteEintrag(Abspielumgebung& Umgebung, Playliste& Liste, Satznummer Nummer);
bool PlaylisteÜbergeben(Abspielumgebung& Umgebung, Playliste& Liste, bool Hinzufügen, bool Warten,
                        Abspielergebnis& Ergebnis);

// Shows an existing picture; otherwise the message that it does not exist. True when it was shown.
bool BildAnzeigen(const Abspielumgebung& Umgebung, std::string_view Pfad);
// cmdAudioplayerStarten.
bool AudioplayerStarten(Abspielumgebung& Umgebung);
// The message of frmAusführenMit for a path that cannot be run; empty when it can.
std::string ProgrammPrüfen(std::string_view Programm);

}  // namespace liedwerk
