// New file names: what a name may hold that the person or a tag has given.
#pragma once

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

}  // namespace liedwerk
