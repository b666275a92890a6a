// Images of CDs: the table of contents as a sheet beside the sound tells it.
//
// A ".cue" sheet names files (raw sectors or Wave) and places in them, a ".toc" sheet names the pieces of
// each track. Neither says where the disc ends unless the files are looked at: lengths that a sheet leaves
// out come from their sizes. Nothing in a sheet is trusted for more than a position that is checked.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "plattform/cdlaufwerke.h"

namespace liedwerk {

// A file that a sheet names.
struct Abbilddatei {
    std::uint64_t Größe = 0;  // bytes of the whole file
    // Of a Wave file: the bytes of sound, and those of a second; 0: the file is none.
    std::uint64_t Klangbytes = 0;
    std::uint64_t BytesJeSekunde = 0;
};
// Looks at a file by its name in the sheet; nothing when it is not there.
using Abbilddateien = std::function<std::optional<Abbilddatei>(std::string_view Name)>;

// The disc that a sheet describes; an error with German text when it describes none.
CDInhalt CueAuswerten(std::string_view Text, const Abbilddateien& Dateien);
CDInhalt TocAuswerten(std::string_view Text, const Abbilddateien& Dateien);

// True for the name of a sheet.
bool IstCDAbbild(std::string_view Pfad);
// Reads the sheet and the files beside it.
CDInhalt CDAbbildLesen(std::string_view Pfad);

// For the two forms of sheets: a failure (its text becomes one line), a number of up to ten digits,
// "mm:ss:ff" in frames, and the disc of tracks that are checked to follow one another.
CDInhalt AbbildFehler(std::string Text);
std::optional<std::int64_t> AbbildZahl(std::string_view Text);
std::optional<std::int64_t> AbbildZeit(std::string_view Text);
struct Abbildspur {
    std::int64_t Anfang = 0;  // frames, absolute
    bool Daten = false;
};
CDInhalt AbbildInhalt(const std::vector<Abbildspur>& Spuren, std::int64_t LeadOut);
// The bytes of a sector of a track by its mode's name in either form of sheet; nothing for an unknown one.
std::optional<std::int64_t> AbbildSektor(std::string_view Modus);

}  // namespace liedwerk
