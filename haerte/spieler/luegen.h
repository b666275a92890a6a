// The lies of a player of audio files: what it answers and what it does. A player of its own process tells
// them (luegner.cpp), haupt.cpp looks at what the program makes of them.
#pragma once

#include <QString>
#include <QVariantMap>
#include <vector>

namespace liedwerk::haerte {

// How questions are answered.
enum class Antwortart { Werte, Keine, Fehler, SpäterFehler, ZuSpät, Leer, Text, Zahl, Liste };

// What the player does besides.
enum class Treiben {
    Nichts,
    Wechsel,       // another title five times a second
    Flackern,      // stops and plays ten times a second
    Zurück,        // the position falls from far to nothing five times a second
    Sturm,         // 10,000 signals a second: changes
    GroßerSturm,   // the same with 2 KiB in each
    FremderSturm,  // the same for another interface
    Sprungsturm,   // the same, jumps to places below 0
    Unsinnssturm,  // the same, without what belongs into them
    Namenssturm,   // its name goes and comes again twenty times a second
    Besitzer,      // two connections take the name from each other twenty times a second
    Viele,         // 300 players of its kind
};

struct Lüge {
    QString Name;
    QVariantMap Werte;
    Antwortart Antwort = Antwortart::Werte;
    Treiben Tun = Treiben::Nichts;
    bool Verweigert = false;  // every command is answered by an error
    int Gezählt = 1;          // plays that the program counts in a minute: the title is one of the index
    bool NachPfad = false;    // that play belongs to the record whose path it names
};

std::vector<Lüge> AlleLügen();

// Plays the player until the process is ended; the number is the place in AlleLügen.
int Lügen(int Nummer);

}  // namespace liedwerk::haerte
