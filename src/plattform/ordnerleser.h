// The port to folders: their entries in the order in which the system lists them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace liedwerk {

struct Ordnereintrag {
    std::string Name;         // the system's bytes; never "." or ".."
    bool IstOrdner = false;   // links followed
    bool IstVerweis = false;  // a link leads there
    // Identity of a folder, so that a walk visits none twice.
    std::uint64_t Gerät = 0;
    std::uint64_t Inode = 0;
};

class Ordnerleser {
  public:
    virtual ~Ordnerleser() = default;
    // Calls Besuch for every entry, hidden ones too; it ends the listing by giving false. A folder that
    // cannot be listed yields nothing; the result says whether it could be, to its end. Entries that are
    // neither file nor folder (pipes, sockets, devices, dead links) are left out.
    virtual bool Auflisten(std::string_view Ordner,
                           const std::function<bool(const Ordnereintrag&)>& Besuch) const = 0;
};

}  // namespace liedwerk
