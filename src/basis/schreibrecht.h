// Whether names may be changed in a folder.
#pragma once

#include <string_view>

namespace liedwerk {

// True when this process may create, rename and remove entries of the folder now (nothing is changed): by its
// rights, and by the file system, which may be read-only.
bool OrdnerBeschreibbar(std::string_view Ordner);

}  // namespace liedwerk
