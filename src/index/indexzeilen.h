// The walk over the lines of an index file, on as many threads as there are cores.
//
// The content is cut into parts at line ends. Each part collects the slots of sound data lines and, as
// exceptions, all lines that need a closer look; handed over in order, the parts give what one walk from
// front to back gives, whatever their number. A part with too many exceptions is handed over in pieces, so
// that a file of nothing but line ends needs no more memory than any other.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "index/satzspeicher.h"

namespace liedwerk {

// A line that is no data line, or not one as a save writes it.
struct Sonderzeile {
    std::string_view Zeile;   // without line end
    std::int64_t Nummer = 0;  // in the file, from 1
    std::size_t Davor = 0;    // slots of the part in front of it
};

struct Zeilenteil {
    std::vector<Satzspeicher::Platz> Plätze;
    std::vector<Sonderzeile> Sonderzeilen;
    std::int64_t Zeilen = 0;     // line ends in the part
    bool Unvollständig = false;  // a record wants its file to be read again
};

struct Zeilenauftrag {
    std::string_view Inhalt;                  // what stands behind the lines that have been read already
    std::int64_t ErsteNummer = 1;             // number of the line in front of it
    bool NurLf = false;                       // lines end with LF alone; a CR in front of it goes with it
    bool MitDatensätzen = true;               // false: data lines are special lines too
    unsigned Teile = 0;                       // 0: as many as suit the content and the machine
    std::function<void(std::size_t)> Zeigen;  // called about every 100 ms with the bytes done
};

// Walks over all lines and calls Übernehmen for each part in order, on the calling thread.
void ZeilenDurchgehen(const Zeilenauftrag& Auftrag, const std::function<void(Zeilenteil&)>& Übernehmen);

// The next line from Stelle on, without its end; Stelle moves behind it. Abgeschlossen: it has a line end. A
// CR at the end of a last line without line end is dropped.
std::string_view ZeileNehmen(std::string_view Inhalt, std::size_t& Stelle, bool NurLf, bool& Abgeschlossen);

}  // namespace liedwerk
