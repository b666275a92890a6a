// Lyrics3 version 1 and 2: the song text in front of the ID3v1 block, or at the end of a file without one.
//
// Version 1: start marker, text, end marker. Version 2: start marker, fields, six digits with the length of
// both, end marker. A field is an identifier of three characters, five digits of length, the value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "index/datensatz.h"

namespace liedwerk {

inline constexpr std::string_view LyricsAnfangsmarke = "LYRICSBEGIN";
inline constexpr std::string_view LyricsEndmarke1 = "LYRICSEND";
inline constexpr std::string_view LyricsEndmarke2 = "LYRICS200";
inline constexpr std::size_t LyricsGrößenziffern = 6;
// What a tag of version 2 has behind its fields.
inline constexpr std::size_t LyricsNachspann = LyricsGrößenziffern + LyricsEndmarke2.size();
inline constexpr std::size_t LyricsFeldkennung = 3;
inline constexpr std::size_t LyricsFeldziffern = 5;
inline constexpr std::size_t LyricsFeldkopf = LyricsFeldkennung + LyricsFeldziffern;
inline constexpr std::string_view LyricsTextfeld = "LYR";

// The last bytes of a file in which an end marker is looked for: an ID3v1 block, a trailer and one more.
inline constexpr std::uint64_t LyricsFenster = 144;
// Those bytes, or all of a shorter file.
std::string DateiendeLesen(const Lesedatei& Datei);
// How far in front of that window a tag of version 1 may begin.
inline constexpr std::uint64_t LyricsRückgriff = 5200;

// Resets the Lyrics members of the record, but adds to LyricsWeitereFelder, and reads the tag. Dateiende are
// the last LyricsFenster bytes of the file, or all of them. True when the file was read in a regular way,
// whether or not a tag was found; false for a damaged tag or a file that is not open.
// Kept: empties Id3v2WeitereFelder, so that a record read with both tags has none.
bool LyricsLesen(const Lesedatei& Datei, std::string_view Dateiende, Datensatz& Satz);

// The longest text whose length fits its field's digits, in bytes. A longer one makes a tag that no reader
// finds its way through.
inline constexpr std::size_t LyricsTextHöchstens = 99999;
// A whole tag of version 2: the song text (UTF-8) and further fields as raw bytes. Kept: "IND" always says
// the same, whatever the text holds, and there is no "CRC".
std::string LyricsTagBilden(std::string_view Text, std::string_view WeitereFelder);

// Empties texts and further fields and marks the tag as absent.
void LyricsLeeren(Datensatz& Satz);

}  // namespace liedwerk
