// MedienDatenLesen: fills a record from any media file.
//
// medien/ holds one file pair per format (mpeg, id3v1, id3v2, lyrics, wave, ogg). A format's reader takes
// bytes or a window onto a file and fills members of a Datensatz; it knows neither index nor settings. The
// dispatcher here chooses by extension, opens the file once and calls them in their significant order. All of
// it is pure: file and options in, record out, so that many files can be read at once.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/protokoll.h"
#include "basis/uhr.h"
#include "index/dateitypen.h"
#include "index/datensatz.h"
#include "plattform/medienauskunft.h"

namespace liedwerk {

// What reading takes from its surroundings; everything in it may be used from several threads.
struct Medienumgebung {
    const std::vector<Dateityp>* Dateitypen = nullptr;  // of the loaded index
    std::int64_t TAGsBytesSuchen = 102400;              // bytes searched for an ID3v2 tag; 0 or below: all
    bool TAGsModern = false;      // reads ID3v2 as other programs do (medien/id3v2modern.h)
    bool WeitereFormate = false;  // files of further formats (index/dateitypen.h) are asked for their data
    const Uhr* Zeit = nullptr;
    const Medienauskunft* Auskunft = nullptr;  // may be missing: such files then have no duration
    // Asked while Auskunft is at work; false gives it up. Missing: it has its full time.
    std::function<bool()> Weiter;
    Protokoll* Log = nullptr;
    // The medium text of the drive that holds a path (WechselmediumLesen); missing: the field stays.
    std::function<std::string(std::string_view Pfad)> Wechselmedium;
    // Fills a record for a CD track (CDInfosLesen); missing: only the type is set.
    std::function<void(std::string_view Pfad, Datensatz& Satz)> CdInfosLesen;
};

// The given record with what the file tells put in. Never fails: of a file that is not there, or does not let
// itself be read to the end of what is asked for, nothing but kind, size and date are taken; Lesegestört
// tells of it.
Datensatz MedienDatenLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Datensatz& Vorgabe,
                           const Leseauftrag& Auftrag);

enum class Tagblock { Id3v1 = 1, Id3v2 = 2, Lyrics = 3 };
// In the order in which they are read and saved.
inline constexpr std::array Tagblöcke = {Tagblock::Id3v1, Tagblock::Id3v2, Tagblock::Lyrics};
// Empties one tag block of a record and sets its mark to "absent".
void TagBlockLeeren(Datensatz& Satz, Tagblock Block);

}  // namespace liedwerk
