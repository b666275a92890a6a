// Audio CDs as folders: what the file procedures see below a drive or an image.
//
// A path that goes through such a carrier ("/dev/sr0/", "/x/Album.cue/Track01.cda") names nothing that the
// system has. Here it is a folder with one file for each audio track; a path that is the carrier's own stays
// the device or the file that it is.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "plattform/cdlaufwerke.h"
#include "plattform/ordnerleser.h"

namespace liedwerk {

// A drive's own list of tracks, without reading the disc further; no tracks when there is no disc or a part
// of the list cannot be read.
CDInhalt GeräteinhaltLesen(const std::string& Gerät);

// The CD ("/dev/sr0/", "/x/Album.cue/") that a path names or goes through, by its text alone and whether or
// not it is there; nothing for every other path, and for what is a real folder.
std::optional<std::string> CDDesPfades(std::string_view Pfad);

// State of the CD as a folder or of a track as a file, for a path that the system does not know. The size of
// a track is that of its sound.
std::optional<Dateistand> CDStandLesen(std::string_view Pfad);

// Lists the tracks; false when the folder is no CD or the disc cannot be read.
bool CDAuflisten(std::string_view Ordner, const std::function<bool(const Ordnereintrag&)>& Besuch);

}  // namespace liedwerk
