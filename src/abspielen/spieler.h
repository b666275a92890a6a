// The remote control: which player is watched, what is sent to it, what its state reads as.
//
// abspielen/ hands files to where they are played and keeps the statistics of playing. AbspielenMediaPlayer
// (abspielen.h) gives each file to the player through a play list (playliste.h), to the picture viewer or to
// the associated program; Spielersteuerung (here) drives a running player over the port plattform/spieler.h
// and reads its state; TitelErkennen (titelerkennung.h) finds what is played in the index and counts it;
// AutoDjZusammenstellen (autodj.h) draws lists from these counts. spielerprofile.h knows the players by name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "abspielen/spielerprofile.h"
#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/uhr.h"
#include "plattform/programmstart.h"
#include "plattform/spieler.h"

namespace liedwerk {

enum class PlayerZustand { Stopped, Playing, Paused };

inline constexpr int HöchsteLautstärke = 255;

struct Spielersteuerung {
    Spielerkanal& Kanal;
    Programmstart& Programme;
    const Einstellungen& Werte;
    Oberfläche& Person;
    const Uhr& Zeit;
    Spielerfenster PlayerFenster = 0;  // 0 when no player is known
};

// Finds the player that WinampPfad means, and starts it with Starten when it does not run. Without a path
// nothing is looked for.
bool PlayerSuchen(Spielersteuerung& Steuerung, bool Starten);
// Looks for the player's window; with Warten again and again for up to 5 seconds, the event loop turning.
bool PlayerFensterHolen(Spielersteuerung& Steuerung, bool Warten, const Spielerprofil& Profil);
// Starts a player of the table ("winamp.exe", "studio.exe") or a known one without arguments.
bool PlayerStarten(Spielersteuerung& Steuerung);

// The two general sends: a message of the user kind with Nummer as lParam, else a command of that number.
// Nothing happens without a player.
std::int64_t PlayerBefehl(const Spielersteuerung& Steuerung, int Nummer, bool Benutzer);

PlayerZustand PlayerZustandLesen(const Spielersteuerung& Steuerung);
std::int64_t PlayerPosition(const Spielersteuerung& Steuerung);  // seconds; -1 for none
std::int64_t PlayerLänge(const Spielersteuerung& Steuerung);     // seconds; -1 for none
// Values out of range are not sent: position 0 to the length in seconds, volume 0 to 255, balance -127 to
// 127.
void PlayerSpringen(const Spielersteuerung& Steuerung, std::int64_t Sekunden);
void PlayerLautstärkeSetzen(const Spielersteuerung& Steuerung, int Lautstärke);
void PlayerBalanceSetzen(const Spielersteuerung& Steuerung, int Balance);

// The title in a window text; Anders for the form of "studio.exe".
std::string PlayerTitel(std::string_view Fenstertext, bool Anders);

// What a tick of the panel reads, in one value.
struct Spielerstand {
    bool Gefunden = false;
    PlayerZustand Zustand = PlayerZustand::Stopped;
    std::int64_t Position = -1;
    std::int64_t Länge = -1;
    std::string Titel;
    Spielerlage Lage;
};
Spielerstand SpielerAblesen(Spielersteuerung& Steuerung);

// True when less than 15 seconds of a playing title remain.
bool TitelEndetBald(const Spielerstand& Stand);
// "Titelposition - 01:23/03:45", and the label of the panel.
std::string Positionstext(const Spielerstand& Stand);
std::string Titeltext(const Spielerstand& Stand, bool Erkannt);

}  // namespace liedwerk
