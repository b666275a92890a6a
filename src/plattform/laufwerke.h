// The port to drives and media: which drive holds a path, of what kind it is, what its medium is called.
//
// plattform/ holds the ports to the world as small abstract classes, without policy and without message
// texts. plattform/linux and plattform/qt implement them on the real system, plattform/speicher in memory for
// tests; CMake chooses. A "drive" is the first three characters of a Windows path ("D:\") or, for a POSIX
// path, the mount point that holds it with a final "/" (also when nothing is mounted there now).
#pragma once

#include <string>
#include <string_view>

namespace liedwerk {

// Kinds of drives, with the numbers that the question for a drive's type has always given.
enum class Laufwerksart {
    Unbekannt = 0,
    Keines = 1,
    Wechsel = 2,
    Fest = 3,
    Netzwerk = 4,
    CdRom = 5,
    Speicher = 6,
};

class Laufwerke {
  public:
    virtual ~Laufwerke() = default;
    // The drive of a path; empty when the path names none. Folders directly below the places where removable
    // media appear (/media/<user>/, /run/media/<user>/, /mnt/) are drives whether or not something is mounted
    // there.
    virtual std::string LaufwerkVon(std::string_view Pfad) const = 0;
    virtual Laufwerksart Art(std::string_view Laufwerk) const = 0;
    // The volume label of the medium now in the drive, raw; empty when there is none.
    virtual std::string Datenträgername(std::string_view Laufwerk) const = 0;
    // True when the drive is there.
    virtual bool Vorhanden(std::string_view Laufwerk) const = 0;
};

}  // namespace liedwerk
