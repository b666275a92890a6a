// The table of contents of an audio CD, its disc id and its query text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "plattform/cdlaufwerke.h"

namespace liedwerk {

// A place on the disc, absolute, the lead-in's two seconds included.
struct CDPosition {
    std::int32_t Minuten = 0;
    std::int32_t Sekunden = 0;  // 0 to 59
    std::int32_t Frames = 0;    // 0 to 74
    std::int32_t Offset = 0;    // all of it in frames
};

// Lives for one operation; each Init starts afresh.
struct clsCcd {
    std::string ErrMsg = "(unavailable)";
    std::int32_t ErrorCode = 0;
    std::string DiskID;  // 8 hexadecimal digits in lower case; more on a disc longer than 65,535 seconds
    std::string Laufwerk;
    std::int16_t TrackCount = 0;
    std::int32_t TotalLength = 0;        // seconds from the first track to the lead-out
    std::vector<CDPosition> Positionen;  // track i at place i - 1, the lead-out at place TrackCount
    std::vector<bool> Datenspuren;       // track i at place i - 1

    // Reads the disc. False, with ErrorCode and ErrMsg, when there is none or it cannot be read.
    bool Init(const CDLaufwerke& Port, std::string_view Name);
    // Start of place i in seconds, its offset in frames, the frames alone; 0 outside of 0 to TrackCount.
    std::int32_t TrackTime(int i) const;
    std::int32_t TrackOffset(int i) const;
    std::int32_t TrackFrames(int i) const;
    // The command by which the CD database (protocol level 5) is asked for the disc, its blanks as "+".
    std::string QueryString() const;
};

// The text of a failed Init for a log: "CD-Rom Gerätefehler: " and what the drive said.
std::string CDFehlertext(const clsCcd& Disc);

}  // namespace liedwerk
