// The text encodings of ID3v2 frames, read and written.
//
// A frame's first byte names the encoding of the strings behind it; a string ends at a NUL of the encoding's
// width or at the end of the frame. Source: ID3v2.2.0, ID3v2.3.0, ID3v2.4.0 informal standards.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// The encoding byte.
enum class Id3v2Kodierung : std::uint8_t {
    Einzelbyte = 0,     // ISO 8859-1 by the standard; files hold Windows-1252
    Utf16MitMarke = 1,  // a byte-order mark in front of each string
    Utf16Groß = 2,      // big-endian, no mark; version 2.4
    Utf8 = 3,           // version 2.4
};

// Takes the strings of a frame one after another. Broken text never fails: halves of surrogate pairs become
// U+FFFD, bytes that are no UTF-8 are read as Windows-1252.
class Id3v2Textleser {
  public:
    // Frame content that begins with the encoding byte; nothing for an unknown encoding or no content.
    static std::optional<Id3v2Textleser> Öffnen(std::string_view Inhalt);
    bool AmEnde() const { return Bytes.empty(); }
    // What was not taken yet.
    std::string_view Rest() const { return Bytes; }
    // Passes over so many bytes (fewer at the end) and gives them as they stand.
    std::string_view Überspringen(std::size_t Anzahl);
    // The next string, which is taken with the NUL behind it.
    std::string Nächster();
    // True when a NUL ends the next string, so that something else may follow it.
    bool NächsterBegrenzt() const;

  private:
    std::size_t Einheit() const;
    std::size_t Stringende() const;
    Id3v2Kodierung Kodierung = Id3v2Kodierung::Einzelbyte;
    bool GroßesEnde = false;  // a string without a mark is in the order of the one before it
    std::string_view Bytes;
};

// The encoding for new text in a tag of this major version: single bytes where every reader understands them
// alike, else UTF-8 in version 4 and UTF-16 in the others.
Id3v2Kodierung Id3v2KodierungWählen(std::string_view Text, unsigned Hauptversion);

// The bytes of a string, and the NUL that ends one when another follows.
std::string Id3v2TextKodieren(std::string_view Text, Id3v2Kodierung Kodierung);
std::string_view Id3v2Stringende(Id3v2Kodierung Kodierung);

}  // namespace liedwerk
