// ID3v1 and ID3v1.1: the 128 bytes at the very end of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "index/datensatz.h"

namespace liedwerk {

// A field of the block: 0-based offset and length in bytes.
struct Id3v1Feld {
    std::size_t Stelle;
    std::size_t Länge;
    // The field's bytes in a whole block.
    std::string_view Aus(std::string_view Block) const { return Block.substr(Stelle, Länge); }
};

inline constexpr std::size_t Id3v1Größe = 128;
inline constexpr std::string_view Id3v1Kennung = "TAG";
inline constexpr Id3v1Feld Id3v1Titel{3, 30};
inline constexpr Id3v1Feld Id3v1Interpret{33, 30};
inline constexpr Id3v1Feld Id3v1Album{63, 30};
inline constexpr Id3v1Feld Id3v1Jahr{93, 4};
inline constexpr Id3v1Feld Id3v1Kommentar{97, 28};
// The end of the comment, or in ID3v1.1 NUL and the track number.
inline constexpr Id3v1Feld Id3v1Titelnummer{125, 2};
inline constexpr Id3v1Feld Id3v1Genre{127, 1};
// Numbers from here on have no name and are read as "none".
inline constexpr std::uint8_t Id3v1GenreEnde = 145;

// The block at the end of a file, whose last bytes (128 at least, if it has so many) are given; empty when
// there is none.
std::string_view Id3v1Lesen(std::string_view Dateiende);

// Spreads a block over the record; ZeilenEntfernen counts for the comment, the other fields never keep line
// ends.
void Id3v1Auswerten(std::string_view Block, bool ZeilenEntfernen, Datensatz& Satz);

// The 128 bytes of a block for a record's fields. Text is cut to its field and padded with blanks, the
// comment with NUL; no genre is written as 255. Kept: a comment of more than Id3v1KommentarHöchstens bytes is
// not taken, its field stays blank; the two bytes behind it are the track number when one is given, whether
// or not it is a number from 0 to 255.
inline constexpr std::size_t Id3v1KommentarHöchstens = 30;
std::string Id3v1BlockBilden(const Datensatz& Satz);

// Empties the fields of ID3v1 and marks the block as absent.
void Id3v1Leeren(Datensatz& Satz);

}  // namespace liedwerk
