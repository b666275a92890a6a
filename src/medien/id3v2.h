// ID3v2.2, 2.3 and 2.4.
//
// Nineteen frames of single-byte text are known; others are kept as raw bytes. There is no unsynchronisation,
// no frame flag, no compression. Kept: sizes are decoded with fixed factors that are right below 65536 only,
// also where they should be seven-bit; what a tag looks like to the rest of the system follows from that.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "index/datensatz.h"

namespace liedwerk {

inline constexpr std::string_view Id3v2Kennung = "ID3";
inline constexpr std::string_view Id3v2FußKennung = "3DI";
// Header: identifier, major and minor version, flags, size of four seven-bit bytes.
inline constexpr std::size_t Id3v2KopfLänge = 10;
inline constexpr std::size_t Id3v2FußLänge = 10;
inline constexpr std::size_t Id3v2HauptversionStelle = 3;
inline constexpr std::size_t Id3v2NebenversionStelle = 4;
inline constexpr std::size_t Id3v2SchalterStelle = 5;
inline constexpr std::size_t Id3v2GrößeStelle = 6;
inline constexpr unsigned Id3v2SchalterFuß = 0x10;
inline constexpr unsigned Id3v2SchalterErweitert = 0x40;

// A frame and the member that holds its text.
struct Id3v2Rahmenfeld {
    std::string Datensatz::*Feld;
    std::string_view Kennung;      // versions 2.3 and 2.4
    std::string_view KurzKennung;  // version 2.2; empty where the reader knows none
};

// The frames of text in the order of the record's members.
inline constexpr std::array<Id3v2Rahmenfeld, 18> Id3v2Rahmenfelder = {{
    {&Datensatz::V2AbspielZähler, "PCNT", ""},
    {&Datensatz::V2Titelnummer, "TRCK", "TRK"},
    {&Datensatz::V2EncodiertVon, "TENC", "TEN"},
    {&Datensatz::V2Link, "WXXX", ""},
    {&Datensatz::V2Copyright, "TCOP", "TCR"},
    {&Datensatz::V2UrsprünglicherInterpret, "TOPE", "TOA"},
    {&Datensatz::V2Songschreiber, "TCOM", "TCM"},
    {&Datensatz::V2Genre, "TCON", "TCO"},
    {&Datensatz::V2Kommentar, "COMM", "COM"},
    {&Datensatz::V2Jahr, "TYER", "TYE"},
    {&Datensatz::V2Album, "TALB", "TAL"},
    {&Datensatz::V2Interpret, "TPE1", "TP1"},
    {&Datensatz::V2Titel, "TIT2", "TT2"},
    {&Datensatz::V2Sprache, "TLAN", "TLA"},
    {&Datensatz::V2Länge, "TLEN", ""},
    {&Datensatz::V2Medientyp, "TMED", "TMT"},
    {&Datensatz::V2Herausgeber, "TPUB", ""},
    {&Datensatz::V2Software, "TSSE", "TSS"},
}};
// The rating's frame; it goes into V2Qualität.
inline constexpr std::string_view Id3v2QualitätKennung = "POPM";

enum class Id3v2Größenform {
    Einfach,    // all eight bits of each byte
    SiebenBit,  // the low seven
};
// The number that a size of three or four bytes stands for; 0 for fewer. Four bytes are exact below 65536.
// Kept: above that the factors are 2048 and 16384, and three bytes, the frame size of version 2.2, give 2048
// times the second and 256 times the third.
std::int32_t Id3v2GrößeLesen(std::string_view Bytes, Id3v2Größenform Form);

// 0-based place of the first "ID3" in the first BytesSuchen bytes of a file (0 or below: in all of it);
// nothing when it is not there.
std::optional<std::uint64_t> Id3v2KennungSuchen(Dateianfang& Anfang, std::int64_t BytesSuchen);
// The text of a frame's content (encoding byte in front). Kept: an encoding other than 0 is not looked at:
// its byte goes with the NULs, a byte-order mark stays.
std::string Id3v2RahmentextLesen(std::string_view Inhalt, bool ZeilenEntfernen);

enum class Id3v2Ergebnis {
    Gelesen,      // a tag was decoded, or there is none (HatId3v2 tells)
    Abgelehnt,    // no file, an unknown version, or a size that is refused
    Abgebrochen,  // the header is cut off
};
// Empties the record's ID3v2 members, then looks for a tag in the first BytesSuchen bytes (0 or below: all);
// it need not stand at the start.
Id3v2Ergebnis Mp3TAGLesenV2(Dateianfang& Anfang, std::int64_t BytesSuchen, Datensatz& Satz);

// All frames of a record in their fixed order, as version 2.3 has them, without header. Kept: the play count
// stands twice; comment and link begin with a language, as the reader takes it off; the rating has a leading
// encoding byte; artist and title are there also when empty. The raw frames of Id3v2WeitereFelder end it.
std::string Id3v2RahmenBilden(const Datensatz& Satz);

// What a save or a removal does to the tag of a file: the bytes from Stelle on (0-based, Altlänge of them)
// go, and Neu stands at the front of the file. Where Stelle is 0 and Neu is as long as the old tag, this is
// an overwriting in place.
struct Id3v2Umbau {
    std::uint64_t Stelle = 0;
    std::uint64_t Altlänge = 0;  // 0: the file has no tag
    std::string Neu;             // header, frames and padding; empty: nothing takes the old tag's place
    bool AmOrt() const { return Altlänge > 0 && Stelle == 0 && Neu.size() == Altlänge; }
};
// The change that writes the fields of Satz into a file whose ID3v2 members were read into Zustand. Prozent
// is the padding of a new or moved tag.
Id3v2Umbau Id3v2UmbauPlanen(const Datensatz& Zustand, const Datensatz& Satz, std::int32_t Prozent);
// The same for a tag of header and frames, which gets its padding and its size here: the room of the old tag
// where it fits in, else Prozent of its length. The size is exact up to 28 bits.
Id3v2Umbau Id3v2Einsetzen(const Datensatz& Zustand, std::string Tag, std::int32_t Prozent);
// The change that removes the tag; Altlänge is 0 when there is none.
Id3v2Umbau Id3v2EntfernungPlanen(const Datensatz& Zustand);

// Empties the members of ID3v2 and marks the tag as absent.
void Id3v2Leeren(Datensatz& Satz);

}  // namespace liedwerk
