// The table of the program's ways of writing: the files they begin with, and the command that writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "haerte/stoerung/lauf.h"
#include "haerte/stoerung/welt.h"

namespace liedwerk::haerte {

using Befehlszeile = std::vector<std::string>;

struct Schreiber {
    std::string Name;
    Welt Anfang;
    std::vector<Befehlszeile> Vorbereitung;  // run once, undisturbed
    // The words behind the program and the common options; "@" in front stands for the folder. A command that
    // begins with "!" is one of liedwerk-handgriffe, with "#" of liedwerk-indexgenerator.
    Befehlszeile Befehl;
    bool Wiederholbar = true;   // a second run after the first one gives the same files
    bool Erneut = false;        // it gives other files, and an interruption may leave these too
    bool AmOrt = false;         // the user's file is changed where it is, by one write
    bool MehrereNamen = false;  // hard links: whole only when the interrupted save has been finished
    bool Grenze = false;        // the folder "fern" counts as another file system
    bool Kurz = false;          // belongs to the selection of the short run
    std::vector<std::string> Nebensachen{};
    bool Ausweichend = false;  // where a folder refuses, another one is taken without a word
    // Commands that do a part of it: each leaves a state that an interruption may leave too.
    std::vector<Befehlszeile> Teile{};
};

const std::vector<Schreiber>& AlleSchreiber();

// True when the bytes hold the sound of the larger media files in one piece.
bool HatTon(std::string_view Bytes);

// The whole command line of a writer's command.
Befehlszeile Aufruf(const Orte& Wo, const Befehlszeile& Befehl);

// The command with every question answered by yes.
Befehlszeile MitJa(Befehlszeile Befehl);

// Records of an index whose saving takes more than one write.
inline constexpr int GroßerIndex = 5000;

}  // namespace liedwerk::haerte
