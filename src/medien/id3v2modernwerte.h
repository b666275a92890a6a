// What the frames that a record shows hold: content read and written, side by side for each kind of frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// A frame with more values is left alone: nobody reads them, and comparing them takes for ever.
inline constexpr std::size_t Id3v2HöchsteWertezahl = 1000;

struct Id3v2Inhalt {
    std::string Sprache;             // COMM: three bytes as they stand
    std::string Beschreibung;        // COMM, WXXX
    std::vector<std::string> Werte;  // as the record shows them, none of them empty
};

// A kind of frame: its reader and its writer.
struct Id3v2Inhaltsform {
    // Nothing for content that is broken, in an encoding that is not known, or of too many values.
    std::optional<Id3v2Inhalt> (*Lesen)(std::string_view Bytes);
    // Nothing for a value that such a frame cannot hold.
    std::optional<std::string> (*Bilden)(const Id3v2Inhalt& Inhalt, unsigned Hauptversion);
};
// The kind of the frame with this identifier of version 2.3.
const Id3v2Inhaltsform& Id3v2InhaltsformVon(std::string_view Kennung);

// "POPM": address, NUL, rating, counter.
struct Id3v2Bewertung {
    std::string Adresse;  // bytes
    std::uint8_t Note = 0;
    std::string Zähler;  // big-endian bytes
    // The rating as the record holds it: 0 says "not known" in a file.
    std::uint8_t Qualität() const;
};
std::optional<Id3v2Bewertung> Id3v2BewertungLesen(std::string_view Bytes);
std::string Id3v2BewertungBilden(const Id3v2Bewertung& Bewertung);
// The frame content for a rating of the record, address and counter taken from the old one; empty when the
// frame would say nothing.
std::string Id3v2QualitätBilden(std::uint8_t Qualität, const std::optional<Id3v2Bewertung>& Alt);

// The "APIC" content for that of a "PIC"; nothing when it is too short.
std::optional<std::string> Id3v2BildUmwandeln(std::string_view Bytes);

}  // namespace liedwerk
