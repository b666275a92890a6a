// The record of one media file: what analysis finds in it and what the person and the playing have added.
//
// One plain type serves a file under analysis, the editor and the exchange with the index. In the index
// itself a record lives in a compact form (index/satzspeicher.h); what has a field number (index/felder.h)
// survives there and in the index file, the rest is filled for a file under analysis only. Text members are
// UTF-8; the two
// "...WeitereFelder" are raw bytes of the file. Main types: Datensatz here, Katalog (index/katalog.h) with
// all records and options, DateiLaden (index/leser.h) and DateiSpeichern (index/schreiber.h) for the file.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// Number of a record in the index, 1-based; 0 is none.
using Satznummer = std::int32_t;

// Media type codes of Datensatz::Dateityp.
enum Dateiart : std::int16_t {
    DateiartSonstige = 0,
    DateiartMpeg = 1,
    DateiartWindowsMedia = 2,
    DateiartWave = 3,
    DateiartBild = 4,
    DateiartCdTitel = 5,
    DateiartOgg = 6,
    DateiartWeitere = 7,  // a further format that the person has switched on; never written
};

// States of HatId3v1, HatId3v2, HatLyrics.
enum Tagzustand : std::uint8_t {
    TagUnberührt = 0,  // nothing has touched the slot
    TagVorhanden = 1,
    TagFehlt = 2,  // absent or not known
    TagOhneDaten = 3,
};

// A rating byte that means "none".
inline constexpr std::uint8_t KeineV2Qualität = 128;
// A genre number that means "none".
inline constexpr std::uint8_t KeinGenre = 255;

struct Datensatz {
    std::string TagKennung;  // "TAG" when an ID3v1 block was read
    std::string Titel;
    std::string Interpret;
    std::string Album;
    std::string Jahr;
    std::string Kommentar;
    std::string Titelnummer;
    std::optional<std::uint8_t> Genre;  // ID3v1 genre number; empty and 255 both mean none
    bool V1Gelesen = false;
    std::int64_t Größe = 0;  // bytes; -1 when not known
    std::string Wechselmedium;
    std::string HinzufügeDatum;  // "dd.mm.yyyy"
    std::int16_t Dateityp = DateiartSonstige;
    std::int32_t AbspielHäufigkeit = 0;
    std::string AbspielDatum;  // text that reads as a date
    std::string BenutzerDaten;
    std::int16_t Qualität = 0;  // the person's mark: 0 none, 1 to 10
    std::int32_t Bitrate = 0;   // kbit/s
    std::int32_t Frequenz = 0;  // Hz
    std::int32_t Dauer = 0;     // seconds
    std::int16_t MpegVersion = 0;
    std::int16_t MpegLayer = 0;
    bool VBR = false;
    bool Original = false;
    std::string Emphasis;
    bool Copyright = false;
    std::string Modus;
    bool Privat = false;
    bool Padding = false;
    bool Crc = false;
    std::int32_t Frames = 0;
    std::int32_t HeaderPosition = 0;  // bytes in front of the first frame header
    bool KopfGefunden = false;        // what its kind of sound begins with was there when it was read
    bool Lesegestört = false;         // bytes of the file did not come: what was read tells nothing of it
    std::uint8_t HatId3v1 = TagUnberührt;
    std::uint8_t HatId3v2 = TagUnberührt;
    std::uint8_t HatLyrics = TagUnberührt;
    std::string Id3v2Version;
    std::int32_t Id3v2Größe = 0;     // bytes
    std::int64_t Id3v2Position = 0;  // 1-based; -1 when none
    std::int32_t Id3v2Benutzt = 0;   // bytes up to the padding
    bool Id3v2Gelesen = false;
    std::string Id3v2WeitereFelder;  // raw bytes
    std::string V2AbspielZähler;
    std::string V2Titelnummer;
    std::string V2EncodiertVon;
    std::string V2Link;
    std::string V2Copyright;
    std::string V2UrsprünglicherInterpret;
    std::string V2Songschreiber;
    std::string V2Genre;
    std::string V2Kommentar;
    std::string V2Jahr;
    std::string V2Album;
    std::string V2Interpret;
    std::string V2Titel;
    std::string V2Sprache;
    std::string V2Länge;
    std::string V2Medientyp;
    std::string V2Herausgeber;
    std::string V2Software;
    std::uint8_t V2Qualität = 0;  // rating byte; KeineV2Qualität means none
    std::int16_t LyricsVersion = 0;
    std::int32_t LyricsGröße = 0;     // bytes, end marker included
    std::int64_t LyricsPosition = 0;  // 1-based
    bool LyricsGelesen = false;
    std::string LyricsText;
    std::string LyricsWeitereFelder;  // raw bytes

    bool operator==(const Datensatz&) const = default;
};

// Four switches that say what is read from a file.
struct Lesecode {
    bool Id3v1 = false;
    bool Id3v2 = false;
    bool Datenstrom = false;  // MPEG or stream header
    bool Lyrics = false;
    // The code of a text of exactly four characters "1" or "0"; nothing for a text of another length.
    static std::optional<Lesecode> Lesen(std::string_view Text) {
        if (Text.size() != 4) return std::nullopt;
        return Lesecode{Text[0] == '1', Text[1] == '1', Text[2] == '1', Text[3] == '1'};
    }
};

// What a reader of media files is asked for. A code of nothing reads no tag at all.
struct Leseauftrag {
    std::optional<Lesecode> Code;
    bool ZeilenEntfernen = false;
    bool GrößeLesen = false;
    bool WechselmediumLesen = false;
};

// Fills a record from a file: the given record with what was found put in. Never fails; the index and the
// adding of files get it handed in, so that they know nothing of tag formats.
using MedienLeser =
    std::function<Datensatz(std::string_view Pfad, const Datensatz& Vorgabe, const Leseauftrag& Auftrag)>;

}  // namespace liedwerk
