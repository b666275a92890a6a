// The port to audio CDs: the table of contents of the disc in a drive, or of an image of one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// Frames (sectors) of a second, and those in front of the first track, by the standard for compact discs
// (IEC 60908).
inline constexpr std::int32_t CDFramesJeSekunde = 75;
inline constexpr std::int32_t CDVorlauf = 150;

// A track of a disc.
struct CDSpur {
    std::int32_t Offset = 0;  // start in frames, absolute on the disc, the lead-in's 150 included
    bool Daten = false;       // no audio
    bool operator==(const CDSpur&) const = default;
};

// What a drive tells of its disc.
struct CDInhalt {
    std::int32_t Fehlernummer = 0;  // the system's; 0 when the disc was read
    std::string Fehlertext;         // German, for the person
    std::vector<CDSpur> Spuren;     // in their order, 1 to 99
    std::int32_t LeadOut = 0;       // first frame behind the last track, absolute like the tracks
};

class CDLaufwerke {
  public:
    virtual ~CDLaufwerke() = default;
    // The disc in a drive ("D:\", "/dev/sr0") or of an image ("/x/Album.cue"), with or without a separator at
    // its end. Never fails otherwise than by number and text in the result. May be called from several
    // threads.
    virtual CDInhalt InhaltLesen(std::string_view Laufwerk) const = 0;
    // The system's drives that can hold a CD, whether or not one is in them.
    virtual std::vector<std::string> Auflisten() const = 0;
};

}  // namespace liedwerk
