// Names made to hurt: what a shell, a terminal, a page, a list, a path or a format of this program's own
// would take for more than a name.
#pragma once

#include <string>
#include <vector>

namespace liedwerk::haerte {

struct BöserName {
    std::string Was;    // for the report
    std::string Bytes;  // of a name: no "/" and no NUL
};

// Names that a Linux file system takes, up to 240 bytes (one has 250).
const std::vector<BöserName>& BöseNamen();
// What no name can hold but a tag, an index or a server may: separators, NUL, whole addresses.
const std::vector<BöserName>& BöseWerte();

}  // namespace liedwerk::haerte
