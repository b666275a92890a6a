// The comments of an Ogg Vorbis file (Vorbis I, comment header).
//
// They are not parsed but searched for by their keys in the bytes behind the header's marker.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "index/datensatz.h"

namespace liedwerk {

// Packet type 3 and the codec's name begin the comment header, type 5 the next one.
inline constexpr std::string_view OggKommentarmarke = "\x03vorbis";
inline constexpr std::string_view OggFolgemarke = "\x05vorbis";
// The marker counts only where it lies whole in one of the blocks of this length that a file is cut into.
inline constexpr std::uint64_t OggBlock = 2048;
// The search gives up here: by the format the header is in the first pages, and a file without one must not
// be read to an end that may be gigabytes away.
inline constexpr std::uint64_t OggSuchbereich = std::uint64_t{64} << 20;
// So many bytes from the marker on are searched for comments.
inline constexpr std::uint64_t OggTextlänge = 65536;

struct OggSchlüssel {
    std::string_view Schlüssel;
    std::string Datensatz::*Feld;  // null: not stored as it stands
};
// In the order in which they are looked for.
inline constexpr std::array<OggSchlüssel, 8> OggSchlüsselListe = {{
    {"TITLE=", &Datensatz::Titel},
    {"ARTIST=", &Datensatz::Interpret},
    {"COMMENT=", &Datensatz::Kommentar},
    {"ALBUM=", &Datensatz::Album},
    {"DATE=", &Datensatz::Jahr},
    {"TRACKNUMBER=", &Datensatz::Titelnummer},
    {"GENRE=", nullptr},
    {"ENCODED_USING=", nullptr},
}};

// Fills the ID3v1 members from the comments. All tags are marked as absent, then ID3v1 as present when a key
// was found. A genre of the ID3v1 list goes into Genre, another one into V2Genre. Members without a key keep
// their value.
void OggKommentareLesen(Dateianfang& Anfang, Datensatz& Satz);

}  // namespace liedwerk
