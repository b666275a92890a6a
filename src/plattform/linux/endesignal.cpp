#include "plattform/endesignal.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace liedwerk {
namespace {

// Written by the handler, which may do hardly more than that.
int Schreibende = -1;

void Weitersagen(int) {
    const int Fehler = errno;
    const char Zeichen = 1;
    // A full pipe holds signals enough.
    [[maybe_unused]] const auto Geschrieben = write(Schreibende, &Zeichen, 1);
    errno = Fehler;
}

}  // namespace

int EndesignaleAnnehmen() {
    int Enden[2];
    if (pipe2(Enden, O_CLOEXEC | O_NONBLOCK) != 0) return -1;
    Schreibende = Enden[1];
    struct sigaction Annahme {};
    Annahme.sa_handler = Weitersagen;
    sigemptyset(&Annahme.sa_mask);
    Annahme.sa_flags = SA_RESTART;
    if (sigaction(SIGTERM, &Annahme, nullptr) != 0 || sigaction(SIGHUP, &Annahme, nullptr) != 0) return -1;
    return Enden[0];
}

}  // namespace liedwerk
