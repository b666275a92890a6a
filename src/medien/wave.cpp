#include "medien/wave.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "basis/zahl.h"

namespace liedwerk {
namespace {

// A little-endian number; bytes behind the end count as 0.
std::int64_t ZahlBei(std::string_view Bytes, std::size_t Stelle, std::size_t Länge) {
    std::int64_t Wert = 0;
    for (std::size_t Nummer = Länge; Nummer > 0; --Nummer) {
        const std::size_t Platz = Stelle + Nummer - 1;
        Wert = Wert << 8 | (Platz < Bytes.size() ? static_cast<unsigned char>(Bytes[Platz]) : 0);
    }
    return Wert;
}

// A RIFF file, one with big-endian numbers, and one that may be longer than 4 GB (EBU Tech 3306).
constexpr std::array<std::string_view, 3> Wavekennungen = {"RIFF", "RIFX", "RF64"};

// The products have 32 bits with a sign.
bool Passt(std::int64_t Wert) {
    return Wert <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

void WavHeaderLesen(std::string_view Kopf, std::uint64_t Dateilänge, Datensatz& Satz,
                    bool& UnbekannteAngaben) {
    Satz.HatId3v1 = Satz.HatId3v2 = Satz.HatLyrics = TagFehlt;
    UnbekannteAngaben = false;
    Satz.KopfGefunden = std::ranges::any_of(
        Wavekennungen, [&](std::string_view Kennung) { return Kopf.starts_with(Kennung); });
    if (Dateilänge < WaveMindestgröße) return;

    // Kept: the length of the chunk "fmt " is taken for the bit depth. It is 16 in most files, as that is.
    const std::int64_t Bittiefe = ZahlBei(Kopf, WaveFormatlängeStelle, 4);
    const std::int64_t Frequenz = ZahlBei(Kopf, WaveFrequenzStelle, 4);
    const std::int64_t Kanäle = ZahlBei(Kopf, WaveKanäleStelle, 2);

    UnbekannteAngaben = true;
    if (!Passt(Bittiefe) || !Passt(Frequenz) || !Passt(Bittiefe * Frequenz)) return;
    if (!Passt(Bittiefe * Frequenz * Kanäle)) return;
    const double BytesJeSekunde = std::nearbyint(static_cast<double>(Bittiefe * Frequenz * Kanäle) / 8);
    if (BytesJeSekunde < 1) return;
    const auto Dauer = Gerundet<std::int32_t>(static_cast<double>(Dateilänge) / BytesJeSekunde);
    if (!Dauer) return;

    UnbekannteAngaben = false;
    Satz.Dauer = *Dauer;
    Satz.Bitrate = static_cast<std::int32_t>(Bittiefe * Frequenz);
    Satz.Frequenz = static_cast<std::int32_t>(Frequenz);
    Satz.Modus = Kanäle == 1 ? "Mono" : "Stereo";
}

}  // namespace liedwerk
