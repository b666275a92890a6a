// Builds media files in memory, piece by piece: MPEG frames, tag blocks, Wave and Ogg.
//
// The demo collection, the generators of the benchmarks and the tests make their files here, so that no
// sample of somebody else is needed and every quirk can be written down on purpose. Everything gives bytes
// and is deterministic. Pieces are joined by "+": Id3v2Tag(...) + MpegRahmen(...) + Id3v1Block(...) is a
// file. Texts that are put into single-byte fields are bytes already; AnsiText converts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk::tagbau {

// Windows-1252 bytes of a UTF-8 text; what the code page lacks becomes "?".
std::string AnsiText(std::string_view Text);
// The UTF-16 bytes of a UTF-8 text, little-endian behind a byte-order mark.
std::string Utf16Text(std::string_view Text);
// A number as so many bytes.
std::string GroßesEnde(std::uint64_t Wert, int Bytes);
std::string KleinesEnde(std::uint64_t Wert, int Bytes);

// --- MPEG audio (ISO/IEC 11172-3, 13818-3) ---

// The fields of a frame header as they stand in it (codes, not values).
struct Rahmenkopf {
    unsigned Version = 3;        // 3 MPEG 1, 2 MPEG 2, 1 reserved, 0 MPEG 2.5
    unsigned Layer = 1;          // 1 Layer III, 2 Layer II, 3 Layer I, 0 reserved
    bool OhnePrüfsumme = true;   // header bit 16
    unsigned Bitratenindex = 9;  // MPEG 1 Layer III: 128 kbit/s
    unsigned Frequenzindex = 0;  // MPEG 1: 44100 Hz
    bool Padding = false;
    bool Privat = false;
    unsigned Modus = 0;  // 0 stereo, 1 joint stereo, 2 dual channel, 3 mono
    bool Copyright = false;
    bool Original = false;
    unsigned Emphasis = 0;
};

// The four header bytes.
std::string KopfBytes(const Rahmenkopf& Kopf);
// Length of a Layer III frame of MPEG 1, 2 or 2.5 in bytes; 0 for free format and reserved codes.
std::size_t Rahmenlänge(const Rahmenkopf& Kopf);
// So many silent Layer III frames: header, then zero side information and main data.
std::string MpegRahmen(const Rahmenkopf& Kopf, std::size_t Anzahl);
// One frame whose data begins, 36 bytes behind its start, with a Xing header that names the number of frames.
// (That is its right place in MPEG 1 files with two channels.)
std::string XingRahmen(const Rahmenkopf& Kopf, std::uint32_t Rahmenzahl);

// --- Tags ---

struct Id3v1Angaben {
    std::string Titel{};
    std::string Interpret{};
    std::string Album{};
    std::string Jahr{};
    std::string Kommentar{};  // up to 30 bytes, 28 with a track number
    int Titelnummer = 0;      // above 0: ID3v1.1
    int Genre = 255;
    char Füllung = '\0';  // pads short fields
};
// The 128 bytes of an ID3v1 or ID3v1.1 block.
std::string Id3v1Block(const Id3v1Angaben& Angaben);

// A frame of ID3v2: 10 bytes of header for identifiers of four characters (the size plain, or in seven-bit
// bytes when so wanted, as version 2.4 has it), 6 for identifiers of three.
std::string Id3v2Rahmen(std::string_view Kennung, std::string_view Wert, bool SiebenBit = false);
// A text frame: encoding byte 0 and Windows-1252, or encoding byte 1 and UTF-16.
std::string Id3v2Textrahmen(std::string_view Kennung, std::string_view Text, bool Utf16 = false,
                            bool SiebenBit = false);
// Header and content of a tag; the size counts the content and the padding NULs behind it. The flag 0x10
// (footer) adds the ten bytes of the footer.
std::string Id3v2Tag(int Hauptversion, std::string_view Inhalt, std::size_t Padding = 0, int Schalter = 0);

// Lyrics3: a tag of version 1; a field and a tag of version 2.
std::string LyricsV1(std::string_view Text);
std::string LyricsFeld(std::string_view Kennung, std::string_view Wert);
std::string LyricsV2(std::string_view Felder);

// --- Other files ---

// A Wave file of silent samples. Formatlänge is the length of the "fmt " chunk, 16 or more.
std::string WaveDatei(std::uint32_t Frequenz, std::uint16_t Kanäle, std::uint16_t Bits,
                      std::size_t Datenbytes, std::uint32_t Formatlänge = 16);
// The header pages of an Ogg Vorbis stream with these comments ("TITLE=..."), UTF-8, and some bytes of data.
std::string OggDatei(const std::vector<std::string>& Kommentare, std::size_t Datenbytes = 2000);
// Pictures of one colour.
std::string BmpDatei(std::uint32_t Breite, std::uint32_t Höhe, std::uint32_t Farbe);
std::string GifDatei();

}  // namespace liedwerk::tagbau
