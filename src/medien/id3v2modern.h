// ID3v2 as other programs read and write it today: the other way behind the setting TAGsModern.
//
// All sizes are exact, every text encoding is understood, and a frame that the record does not show, or whose
// field did not change, keeps its bytes. id3v2modernrahmen finds the frames of a tag, id3v2modernwerte reads
// and writes what they hold, id3v2moderntext their strings; here they meet the record. Reading takes a window
// onto the file and passes over what nobody asked for; writing takes the old tag's bytes and the record and
// gives the new ones. Putting them into the file is somebody else's work.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "index/datensatz.h"
#include "medien/id3v2.h"
#include "medien/id3v2modernrahmen.h"

namespace liedwerk {

struct Id3v2Fundort {
    std::uint64_t Stelle = 0;  // 0-based
    Id3v2Kopf Kopf;            // its length may reach beyond the end of a damaged file
};
// The tag that counts: the one at the start of the file; without it, one in the first BytesSuchen bytes (0 or
// below: all) that is sound, lies wholly in the file and has no footer. A tag with a footer behind the start
// was appended by a program that knows of it; it is left alone.
std::optional<Id3v2Fundort> Id3v2ModernFinden(Dateianfang& Anfang, std::int64_t BytesSuchen);

// Like Mp3TAGLesenV2: empties the record's members of ID3v2 and fills them from the tag. Several values of a
// frame are joined by "; ". Id3v2WeitereFelder is one blank when there are frames that the record does not
// show, too short ever to be written back.
Id3v2Ergebnis Id3v2ModernLesen(Dateianfang& Anfang, std::int64_t BytesSuchen, Datensatz& Satz);

// The reading that the setting asks for.
Id3v2Ergebnis Id3v2Lesen(Dateianfang& Anfang, std::int64_t BytesSuchen, bool TAGsModern, Datensatz& Satz);

// A tag without padding; or the reason, a German sentence, why it cannot be made and the old one must stay.
struct Id3v2Neubau {
    std::string Bytes;
    std::string Hindernis;
};
// The tag with the values of the record, made from the file's old tag (header to footer; empty: none). The
// version stays; 2.2 becomes 2.3 unless it holds frames that 2.3 has no form for. Extended header and footer
// go: they describe the old bytes. A new tag is 2.3.0.
Id3v2Neubau Id3v2ModernBilden(std::string_view AlterTag, const Datensatz& Satz);

}  // namespace liedwerk
