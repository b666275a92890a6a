// The files that a writer works on: kept, put back, and judged after a disturbance.
//
// The judge uses nothing of the program: it compares bytes with those before the run and those after an
// undisturbed one.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "haerte/stoerung/lauf.h"

namespace liedwerk::haerte {

struct Eintrag {
    char Art = 'f';          // 'f' file, 'd' folder, 'l' symbolic link
    std::string Inhalt;      // bytes, or where the link leads
    std::string Gleiche;     // the first name of the same file, when this is another one (hard link)
    std::int64_t Zeit = 0;   // modification, seconds since 1970
    unsigned Rechte = 0644;  // of a file, put back but not judged
    bool operator==(const Eintrag& Anderer) const {
        return Art == Anderer.Art && Inhalt == Anderer.Inhalt && Gleiche == Anderer.Gleiche;
    }
};

// By the path below the folder.
using Welt = std::map<std::string, Eintrag>;

Welt WeltAufnehmen(const std::string& Ordner);
// Makes the folder hold that and nothing else.
void WeltHerstellen(const std::string& Ordner, const Welt& Inhalt);

struct Urteilsgrund {
    const Welt& Vorher;
    const Welt& Nachher;  // of an undisturbed run
    // Files that may be missing after a run that succeeded, as long as it says so (backups).
    const std::vector<std::string>& Nebensachen;
    const std::vector<Welt>& Zwischen;  // after a part of the work
    bool Ausweichend = false;           // they may be missing without a word
};

// What is wrong after a run that ended or was killed; empty: nothing. Helper files are not looked at.
std::vector<std::string> Beurteilen(const Urteilsgrund& Grund, const Welt& Jetzt, const Laufergebnis& Lauf);

// True when all files are those of the undisturbed run.
bool IstErgebnis(const Urteilsgrund& Grund, const Welt& Jetzt);

// Names that neither stood there before nor belong to the result.
std::vector<std::string> Übrige(const Urteilsgrund& Grund, const Welt& Jetzt);

}  // namespace liedwerk::haerte
