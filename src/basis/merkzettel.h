// A note of the program to its next run: small, written at once, and not waited for on the disk.
#pragma once

#include <string_view>

namespace liedwerk {

// Puts a note down; false when there is none afterwards. An old one of this user's under that name goes;
// anything else that lies there stays, and nothing is written through a link.
bool MerkzettelAnlegen(std::string_view Pfad, std::string_view Inhalt);

}  // namespace liedwerk
