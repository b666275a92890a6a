// The header of a Wave file (RIFF, chunk "fmt " in front).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "index/datensatz.h"

namespace liedwerk {

// Shorter files are not looked at; bytes that a file of 23 to 27 bytes lacks count as 0.
inline constexpr std::uint64_t WaveMindestgröße = 23;
// 0-based places, little-endian.
inline constexpr std::size_t WaveFormatlängeStelle = 16;  // 32 bits
inline constexpr std::size_t WaveKanäleStelle = 22;       // 16 bits
inline constexpr std::size_t WaveFrequenzStelle = 24;     // 32 bits
inline constexpr std::size_t WaveKopfLänge = 28;

// Fills the stream fields from the first WaveKopfLänge bytes of a file and its length, and marks all tags as
// absent. UnbekannteAngaben becomes true when the header gives no duration.
void WavHeaderLesen(std::string_view Kopf, std::uint64_t Dateilänge, Datensatz& Satz,
                    bool& UnbekannteAngaben);

}  // namespace liedwerk
