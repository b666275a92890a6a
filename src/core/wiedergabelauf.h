// Playing as the programs run it: the parts of a run put together for abspielen/, and what follows in list
// and settings.
#pragma once

#include <vector>

#include "abspielen/abspielen.h"
#include "abspielen/autodj.h"
#include "core/anwendung.h"

namespace liedwerk {

// The player's state of a run. It refers to Programm, whose ports for players and programs must be there.
struct Wiedergabe {
    explicit Wiedergabe(Anwendung& Lauf);
    Anwendung& Programm;
    Spielersteuerung Steuerung;
    Titelerkennung Erkennung;
};

// BildAnzeigen and NachrichtZeigen are left to the caller.
Abspielumgebung AbspielumgebungVon(Wiedergabe& Lauf);

// What a tick does with the player: reads its state and lets the title be recognised.
Spielerstand SpielerTakt(Wiedergabe& Lauf);
// True while the tick has something to wait for: a playing player, or a title that is not dealt with yet.
bool SpielerBrauchtTakt(const Wiedergabe& Lauf, const Spielerstand& Stand);

// While no player is set, asks whether the first one that is installed shall be it, and takes it over into
// the settings.
void SpielerVorschlagen(Anwendung& Programm);

// The AutoDJ's inputs as the settings remember them, and back. While no choice was ever made every genre is
// in.
AutoDjEingabe AutoDjAusEinstellungen(const Einstellungen& Werte, AutoDjFunktion Funktion);
void AutoDjInEinstellungen(Einstellungen& Werte, const AutoDjEingabe& Eingabe);
// Shows exactly these records in their order, with date and count of playing among the columns.
void AutoDjZeigen(Anwendung& Programm, const std::vector<Satznummer>& Gefunden);

}  // namespace liedwerk
