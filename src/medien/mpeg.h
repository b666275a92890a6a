// The first MPEG audio frame header of a file (ISO/IEC 11172-3 and 13818-3) and what follows from it.
//
// A cheap analysis of one header plus the file length: it never walks the frames.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "basis/datei.h"
#include "index/datensatz.h"

namespace liedwerk {

// The header is looked for at the first so many positions of the file. Fixed: no setting changes it.
inline constexpr std::uint64_t MpegSuchbereich = 102400;
// A Xing header is looked for at one place only, counted from the start of the frame header. Kept: it stands
// elsewhere in mono and MPEG 2 files, which therefore count as constant bit rate.
inline constexpr std::uint64_t XingStelle = 36;
inline constexpr std::string_view XingKennung = "Xing";
// Its big-endian frame count. Kept: taken without a look at the flags that say whether it is there.
inline constexpr std::uint64_t XingFramesStelle = 44;
// Files of this length or shorter are not analysed.
inline constexpr std::uint64_t MpegMindestgröße = 4;

// The 32 bits of the first frame header, the first byte uppermost; sets HeaderPosition, VBR and, for Xing
// files, Frames. Where no sync is found, the first four bytes count as header and HeaderPosition stays. Only
// the 11 sync bits are tested, and an ID3v2 tag is not skipped. Nothing, and an untouched
// record, when the file is not open or a Xing header names more frames than 31 bits hold.
std::optional<std::uint32_t> MpegHeaderSuchen(Dateianfang& Anfang, Datensatz& Satz);

// Fills the stream fields of the record. Reads HatId3v1, HatLyrics, LyricsGröße and Größe as they stand. A
// step that would divide by zero or leave its member's 32 bits is passed over; fields that nothing sets keep
// their value.
void MpegHeaderLesen(Dateianfang& Anfang, Datensatz& Satz);

}  // namespace liedwerk
