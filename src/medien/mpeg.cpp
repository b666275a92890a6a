#include "medien/mpeg.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "basis/zahl.h"
#include "medien/id3v1.h"

namespace liedwerk {
namespace {

// Bits of the header by their classic numbers, 1 being the first of the sync.
constexpr std::uint32_t Bits(std::uint32_t Header, unsigned Erstes, unsigned Letztes) {
    return (Header >> (32 - Letztes)) & ((1U << (Letztes - Erstes + 1)) - 1U);
}

using Bitratentabelle = std::array<std::int16_t, 15>;

// kbit/s by index, as the standards have them; index 0 is free format, 15 is forbidden.
constexpr Bitratentabelle Mpeg1Layer1 = {0,   32,  64,  96,  128, 160, 192, 224,
                                         256, 288, 320, 352, 384, 416, 448};
constexpr Bitratentabelle Mpeg1Layer2 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr Bitratentabelle Mpeg1Layer3 = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr Bitratentabelle Mpeg2Layer1 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr Bitratentabelle Mpeg2Layer23 = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

// The table of a version and layer; none for reserved ones.
const Bitratentabelle* Bitraten(std::int16_t Version, std::int16_t Layer) {
    if (Version == 0 || Layer == 0) return nullptr;
    if (Version != 1) return Layer == 1 ? &Mpeg2Layer1 : &Mpeg2Layer23;
    return Layer == 1 ? &Mpeg1Layer1 : Layer == 2 ? &Mpeg1Layer2 : &Mpeg1Layer3;
}

// Gives the member the rounded value; one outside of its 32 bits (infinite, not a number) leaves it as it is.
void GerundetSetzen(std::int32_t& Ziel, double Wert) {
    Ziel = Gerundet<std::int32_t>(Wert).value_or(Ziel);
}

// 0-based place of the first sync, looked for in growing pieces so that a usual file costs one small read.
std::optional<std::uint64_t> SyncSuchen(Dateianfang& Anfang) {
    constexpr std::uint64_t ErstesStück = 4096;
    constexpr std::uint64_t Ende = MpegSuchbereich + 1;  // the last position's second byte
    std::size_t Ab = 0;
    for (std::uint64_t Stück = ErstesStück;; Stück *= 2) {
        const std::string_view Bytes = Anfang.Bis(std::min(Stück, Ende));
        while ((Ab = Bytes.find('\xFF', Ab)) != std::string_view::npos && Ab + 1 < Bytes.size()) {
            if ((static_cast<unsigned char>(Bytes[Ab + 1]) & 0xE0U) == 0xE0U) return Ab;
            ++Ab;
        }
        if (Bytes.size() < Stück) return std::nullopt;
        // The last byte may be the first half of a sync.
        Ab = Bytes.size() - 1;
    }
}

// A big-endian number; bytes behind the end of the file count as 0.
std::uint32_t ZahlBei(std::string_view Bytes, std::uint64_t Stelle) {
    std::uint32_t Wert = 0;
    for (std::uint64_t Nummer = Stelle; Nummer < Stelle + 4; ++Nummer) {
        Wert = Wert << 8 | (Nummer < Bytes.size() ? static_cast<unsigned char>(Bytes[Nummer]) : 0U);
    }
    return Wert;
}

void FrequenzSetzen(std::uint32_t Header, Datensatz& Satz) {
    // Kept: MPEG 2.5 takes the frequencies of MPEG 2, not its own halves of them.
    constexpr std::array<std::int32_t, 3> Mpeg1 = {44100, 48000, 32000};
    constexpr std::array<std::int32_t, 3> Mpeg2 = {22050, 24000, 16000};
    const std::uint32_t Code = Bits(Header, 21, 22);
    if (Satz.MpegVersion == 0) {
        Satz.Frequenz = 0;
    } else if (Code < 3) {
        Satz.Frequenz = (Satz.MpegVersion == 1 ? Mpeg1 : Mpeg2)[Code];
    }
}

void KopffelderSetzen(std::uint32_t Header, Datensatz& Satz) {
    constexpr std::array<std::int16_t, 4> Versionen = {25, 0, 2, 1};
    constexpr std::array<std::int16_t, 4> Layer = {0, 3, 2, 1};
    constexpr std::array<std::string_view, 4> Modi = {"Stereo", "Joint Stereo", "Zweikanal", "Einkanal"};
    constexpr std::array<std::string_view, 4> Emphasen = {"Nein", "50/15", "Reserviert", "CCITT J 17"};
    Satz.MpegVersion = Versionen[Bits(Header, 12, 13)];
    Satz.MpegLayer = Layer[Bits(Header, 14, 15)];
    Satz.Modus = Modi[Bits(Header, 25, 26)];
    Satz.Emphasis = Emphasen[Bits(Header, 31, 32)];
    FrequenzSetzen(Header, Satz);
    Satz.Original = Bits(Header, 30, 30) == 1;
    Satz.Copyright = Bits(Header, 29, 29) == 1;
    Satz.Padding = Bits(Header, 23, 23) == 1;
    Satz.Privat = Bits(Header, 24, 24) == 1;
    Satz.Crc = Bits(Header, 16, 16) == 0;
}

void FesteBitrateSetzen(std::uint32_t Header, Datensatz& Satz) {
    const Bitratentabelle* Tabelle = Bitraten(Satz.MpegVersion, Satz.MpegLayer);
    const std::uint32_t Code = Bits(Header, 17, 20);
    if (Tabelle == nullptr) {
        Satz.Bitrate = 1;
    } else if (Code < Tabelle->size()) {
        Satz.Bitrate = (*Tabelle)[Code];
    }
}

// The average over the whole file. Kept: the tags count as audio, and MPEG 2 is not halved.
void MittlereBitrateSetzen(double Dateilänge, Datensatz& Satz) {
    if (Satz.MpegLayer == 0) {
        Satz.Bitrate = 0;
    } else if (Satz.Frames != 0) {
        GerundetSetzen(Satz.Bitrate,
                       Dateilänge * Satz.Frequenz / Satz.Frames / 1000 / (Satz.MpegLayer == 1 ? 12 : 144));
    }
}

void DauerSetzen(std::int64_t Audiobytes, Datensatz& Satz) {
    std::int32_t Millisekunden = 0;
    // Kept: the bits are counted in 32 bits; a file with more has no duration.
    constexpr std::int64_t MeisteBits = std::numeric_limits<std::int32_t>::max();
    if (Satz.Bitrate > 0 && Audiobytes <= MeisteBits / 8) {
        GerundetSetzen(Millisekunden, static_cast<double>(Audiobytes * 8) / Satz.Bitrate);
    }
    // Down also where false sizes have made it negative.
    Satz.Dauer = Millisekunden / 1000 - (Millisekunden % 1000 < 0 ? 1 : 0);
}

// Kept: 144 for all layers and versions, and the size that the record had before this reading.
void FramesSetzen(std::int64_t Nebendaten, Datensatz& Satz) {
    std::int32_t Framelänge = 0;
    if (Satz.Frequenz >= 1) {
        GerundetSetzen(Framelänge,
                       static_cast<double>(Satz.Bitrate) * 144000 / Satz.Frequenz + (Satz.Padding ? 1 : 0));
    }
    if (Framelänge < 1) {
        Satz.Frames = -1;
    } else {
        GerundetSetzen(Satz.Frames, static_cast<double>(Satz.Größe - Nebendaten) / Framelänge);
    }
}

}  // namespace

std::optional<std::uint32_t> MpegHeaderSuchen(Dateianfang& Anfang, Datensatz& Satz) {
    if (!Anfang.Quelle().Offen()) return std::nullopt;
    const auto Fund = SyncSuchen(Anfang);
    Satz.KopfGefunden = Fund.has_value();
    const std::uint64_t Stelle = Fund.value_or(0);
    const std::string_view Bytes = Anfang.Bis(Stelle + XingFramesStelle + 4);
    const bool Xing =
        Bytes.size() > Stelle + XingStelle && Bytes.substr(Stelle + XingStelle).starts_with(XingKennung);
    if (Xing) {
        const std::uint32_t Frames = ZahlBei(Bytes, Stelle + XingFramesStelle);
        // The count has 32 bits with a sign; one that does not fit ends the search without a header.
        if (Frames > std::uint32_t{std::numeric_limits<std::int32_t>::max()}) return std::nullopt;
        Satz.Frames = static_cast<std::int32_t>(Frames);
    }
    Satz.VBR = Xing;
    if (Fund) Satz.HeaderPosition = static_cast<std::int32_t>(*Fund);
    return ZahlBei(Bytes, Stelle);
}

void MpegHeaderLesen(Dateianfang& Anfang, Datensatz& Satz) {
    if (Anfang.Dateigröße() <= MpegMindestgröße) return;
    const auto Header = MpegHeaderSuchen(Anfang, Satz);
    if (!Header) return;
    KopffelderSetzen(*Header, Satz);
    const auto Dateilänge = static_cast<std::int64_t>(Anfang.Dateigröße());
    if (Satz.VBR) {
        MittlereBitrateSetzen(static_cast<double>(Dateilänge), Satz);
    } else {
        FesteBitrateSetzen(*Header, Satz);
    }
    // Bytes that are no audio. An ID3v2 tag lies ahead of the first header and is in its position.
    const std::int64_t Nebendaten =
        std::int64_t{Satz.HeaderPosition} +
        (Satz.HatId3v1 == TagVorhanden ? static_cast<std::int64_t>(Id3v1Größe) : 0) +
        (Satz.HatLyrics == TagVorhanden ? Satz.LyricsGröße : 0);
    DauerSetzen(Dateilänge - Nebendaten, Satz);
    if (!Satz.VBR) FramesSetzen(Nebendaten, Satz);
}

}  // namespace liedwerk
