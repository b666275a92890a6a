// The frame of an ID3v2 tag without a look at its meaning: header, sizes, unsynchronisation, frame headers of
// versions 2.2, 2.3 and 2.4. Source: ID3v2.2.0, ID3v2.3.0, ID3v2.4.0 informal standards.
//
// Id3v2KopfLesen finds out how far a tag reaches, Id3v2Gliedern where its frames lie. Both only look at bytes
// that a window (Id3v2Bytes) shows them, so that a large picture is passed over without being read.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// Flags of the tag's header beside those for extended header and footer.
inline constexpr unsigned Id3v2SchalterUnsynchronisiert = 0x80;
inline constexpr unsigned Id3v2SchalterKomprimiert = 0x40;  // version 2.2: the whole tag
inline constexpr unsigned Id3v2SchalterErprobung = 0x20;
// Sizes of a tag and of a frame of version 2.4 have four bytes of seven bits.
inline constexpr std::uint64_t Id3v2Höchstlänge = (std::uint64_t{1} << 28U) - 1;

struct Id3v2Kopf {
    unsigned Hauptversion = 3;  // 2, 3 or 4
    unsigned Nebenversion = 0;
    unsigned Schalter = 0;
    std::uint64_t Körperlänge = 0;  // bytes of extended header, frames and padding

    bool HatFuß() const;
    bool Unsynchronisiert() const { return (Schalter & Id3v2SchalterUnsynchronisiert) != 0; }
    // True when unsynchronisation was applied to all behind the header, not to each frame.
    bool KörperUnsynchronisiert() const { return Unsynchronisiert() && Hauptversion < 4; }
    // True for a tag of version 2.2 that cannot be looked into.
    bool Verschlossen() const { return Hauptversion == 2 && (Schalter & Id3v2SchalterKomprimiert) != 0; }
    // Bytes from the first of the header to the last of body or footer.
    std::uint64_t Gesamtlänge() const;
};
// The header in the first ten bytes; nothing when it is none, of an unknown version, or damaged.
std::optional<Id3v2Kopf> Id3v2KopfLesen(std::string_view Bytes);
std::string Id3v2KopfBilden(const Id3v2Kopf& Kopf);

// Takes the zero bytes out that follow an FF, and puts them in where they are needed.
std::string Id3v2UnsynchronisationAufheben(std::string_view Bytes);
std::string Id3v2UnsynchronisationAnwenden(std::string_view Bytes);

// A frame in the body of a tag.
struct Id3v2Rahmenort {
    std::string Kennung;       // as it stands, three or four characters
    unsigned Schalter = 0;     // the two flag bytes
    std::uint64_t Stelle = 0;  // of its content, 0-based in the body
    std::uint64_t Länge = 0;   // bytes of content
};
struct Id3v2Gliederung {
    std::vector<Id3v2Rahmenort> Rahmen;
    std::uint64_t Ende = 0;      // first byte of the body that is in no frame
    bool MitAuffüllung = false;  // a NUL stands there
};
// Shows bytes of a body from a 0-based place on: as many as asked for, fewer only at its end. Valid until the
// next call.
using Id3v2Bytes = std::function<std::string_view(std::uint64_t Stelle, std::uint64_t Länge)>;
// Walks the frames as far as they are sound, 65536 at most. Sizes in the wrong form (seven-bit or plain, as
// some programs write them) are recognised by where they lead.
Id3v2Gliederung Id3v2Gliedern(const Id3v2Kopf& Kopf, const Id3v2Bytes& Körper, std::uint64_t Körperlänge);

// The identifier of versions 2.3 and 2.4 for one of version 2.2 (also of one with a fourth character that is
// NUL or blank); others as they are, empty where there is none.
std::string_view Id3v2LangeKennung(std::string_view Kennung);
// The identifier of version 2.2; empty where there is none.
std::string_view Id3v2KurzeKennung(std::string_view Kennung);

// What a frame holds, freed of unsynchronisation and of what its flags put in front; nothing when it is
// compressed or encrypted, or shorter than its flags say.
std::optional<std::string> Id3v2RahmeninhaltLesen(const Id3v2Kopf& Kopf, unsigned Schalter,
                                                  std::string_view Bytes);
// Appends a frame whose content stands as the tag wants it.
void Id3v2RahmenAnhängen(std::string& Ziel, unsigned Hauptversion, std::string_view Kennung,
                         unsigned Schalter, std::string_view Bytes);
// Appends a frame of new content without flags, in the manner of the tag.
void Id3v2NeuenRahmenAnhängen(std::string& Ziel, const Id3v2Kopf& Kopf, std::string_view Kennung,
                              std::string_view Inhalt);

}  // namespace liedwerk
