#include "plattform/linux/terminal.h"

#include <unistd.h>

namespace liedwerk {

bool FehlerausgabeIstTerminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

}  // namespace liedwerk
