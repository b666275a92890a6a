// New file names: what a name may hold that the person or a tag has given, and what tells helper files apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace liedwerk {

// DateinameBereinigen: the name without "*", "?", "<", ">", "|" and control characters; empty for one that
// cannot be used: with an empty part ("//", "\\" and the like), with ":" elsewhere than in place 2 of a path,
// and unless PfadErlaubt with any separator. A full POSIX path is only tested for empty parts: its folders
// exist, or are named on purpose, and the system takes every other character.
std::string DateinameBereinigen(std::string_view Name, bool PfadErlaubt);

// True when a path or a part of one leads nowhere else than it says: no part is empty (but what stands in
// front of leading separators), made of blanks alone, "." or "..". Both separators count.
bool TeileEindeutig(std::string_view Pfad);

// A number for the names of helper files: the same for the same bytes in every version of the program
// (FNV-1a), as good as surely another one for others.
std::uint64_t Kennzahl(std::string_view Bytes);
// The same as 16 hexadecimal digits.
std::string KennzahlText(std::string_view Bytes);

// A path with something behind it. A name that is too long for that on common file systems is shortened and
// told from others of the same beginning by a number of the whole of it.
std::string PfadMitEndung(std::string_view Pfad, std::string_view Endung);

// The ending of a copy that is being made: a "~", a number of the target's path, and this. A copy that was
// interrupted leaves such a file behind.
inline constexpr std::string_view KopieEndung = "~lwikopie";
// True for the name of such a file.
bool IstUnfertigeKopie(std::string_view Name);

// The folder without "/" at its end, except the root.
std::string OhneTrenner(std::string Ordner);

}  // namespace liedwerk
