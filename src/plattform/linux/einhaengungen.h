// The table of mounts: which file systems stand where, and which drive a path lies on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plattform/laufwerke.h"

namespace liedwerk {

struct Einhängung {
    std::string Ort;     // mount point with a final "/"
    std::string Art;     // file system type, as "ext4"
    std::string Quelle;  // device or server, as "/dev/sdb1"
    std::string Gerät;   // device number, as "8:17"
};

// Parses the text of /proc/self/mountinfo (proc(5)). Of several mounts on one place the last is the one that
// is seen; lines of another form are passed over. Longer places come first, so that the first one that holds
// a path is the right one.
std::vector<Einhängung> EinhängungenLesen(std::string_view Text);

// Parses the text of /etc/fstab (fstab(5)): the places where file systems are meant to stand, mounted or not,
// longer ones first. The root, swap and lines of another form are left out.
std::vector<Einhängung> VorgeseheneLesen(std::string_view Text);

// The mount that stands exactly at the place (final "/"); null when there is none.
const Einhängung* EinhängungAn(const std::vector<Einhängung>& Tabelle, std::string_view Ort);

// The folder directly below one of the places where removable media appear (/media/<user>/,
// /run/media/<user>/, /mnt/) that holds the path or is it, with a final "/"; empty when the path lies
// elsewhere.
std::string Wechselort(std::string_view Pfad);

// The drive that holds a POSIX path: the mount point, or the removable place where that is nearer. A folder
// counts as inside of itself.
std::string LaufwerkVon(const std::vector<Einhängung>& Tabelle, std::string_view Pfad);

// The kind of a mounted drive as far as its line tells: Wechsel by its place, CdRom, Netzwerk, Speicher, else
// Fest.
Laufwerksart ArtVon(const Einhängung& Eingehängt);

// The text of a name in which the system writes some bytes as a number: "\040" (octal) in the mount table,
// "\x20" in the folder of volume labels.
std::string ZahlenfolgenAuflösen(std::string_view Name);

// The path with every symbolic link in it replaced by its target, also where the target is missing now; the
// path itself when links lead in a circle.
std::string LinksFolgen(std::string_view Pfad);

}  // namespace liedwerk
