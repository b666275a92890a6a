#include "basis/vorhandensein.h"

#include <cerrno>
#include <sys/stat.h>

#include "plattform/linux/griff.h"

namespace liedwerk {

bool NichtsVorhanden(std::string_view Pfad) {
    auto Rest = Systempfad(Pfad);
    if (!Rest) return false;
    struct stat Angaben {};
    // Up to the nearest folder that is there: on the way nothing may stand but be out of reach.
    while (::stat(Rest->c_str(), &Angaben) != 0) {
        if (errno != ENOENT && errno != ENOTDIR) return false;
        if (::lstat(Rest->c_str(), &Angaben) == 0) return false;
        if (Rest->find_first_not_of('/') == std::string::npos) return true;
        *Rest = OrdnerVon(*Rest);
    }
    return *Rest != Pfad;
}

}  // namespace liedwerk
