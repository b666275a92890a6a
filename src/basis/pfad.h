// Paths and their parts. A path is its bytes.
//
// A path that begins with "/" is a POSIX path with the separator "/"; its bytes are the system's own. Any
// other path is a Windows path with the separator "\" (drive letter or UNC). Every helper follows the style
// of the path in hand, so that an index from another system can be searched, sorted and shown here. A
// folder's name has no separator at its end, except a root.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace liedwerk {

bool IstPosixPfad(std::string_view Pfad);
// From the root on: "/x", "C:\\x" or "\\\\server\\x". Anything else could be an address, a switch of a
// program, or mean another file in each folder.
bool IstVollerPfad(std::string_view Pfad);
// The separator of the path's style: '/' or '\'.
char Trenner(std::string_view Pfad);

// From the last "." to the end, the dot included; empty when there is no dot or a separator follows it.
std::string_view EndungVon(std::string_view Pfad);
// The path without that extension.
std::string_view DateiOhneEndung(std::string_view Pfad);
// Everything left of the last separator, without it; empty when there is none. "/x" gives "/".
std::string_view PfadVon(std::string_view Pfad);
// Everything right of the last separator; the whole text when there is none.
std::string_view DateinameVon(std::string_view Pfad);
// Folder and name with exactly one separator between them.
std::string PfadVerbinden(std::string_view Ordner, std::string_view Name);
// The folder with a separator at its end.
std::string MitTrenner(std::string_view Ordner);

// True when two paths name the same file: POSIX paths by their bytes, Windows paths without regard to case.
bool PfadeGleich(std::string_view A, std::string_view B);
// A text that is equal for two paths exactly when PfadeGleich holds; made for look-up tables.
std::string PfadSchlüssel(std::string_view Pfad);

// True when the path holds CR or LF: such a name can stand in no list and in no line of the index file.
bool HatZeilenende(std::string_view Pfad);

}  // namespace liedwerk
