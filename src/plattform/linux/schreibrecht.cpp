#include "basis/schreibrecht.h"

#include <fcntl.h>
#include <unistd.h>

#include "plattform/linux/griff.h"

namespace liedwerk {

bool OrdnerBeschreibbar(std::string_view Ordner) {
    const auto Name = Systempfad(Ordner);
    return Name && ::faccessat(AT_FDCWD, Name->c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace liedwerk
