#include "plattform/endesignal.h"

#include <atomic>
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

std::atomic<bool> Verlangt = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

void Merken(int) {
    Verlangt = true;
}

void MerkenLassen(int Signal, int Besonderheit) {
    struct sigaction Vorher {};
    if (sigaction(Signal, nullptr, &Vorher) != 0 || Vorher.sa_handler != SIG_DFL) return;
    struct sigaction Annahme {};
    Annahme.sa_handler = Merken;
    sigemptyset(&Annahme.sa_mask);
    Annahme.sa_flags = SA_RESTART | Besonderheit;
    sigaction(Signal, &Annahme, nullptr);
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

void EndesignaleMerken() {
    MerkenLassen(SIGINT, static_cast<int>(SA_RESETHAND));
    MerkenLassen(SIGTERM, 0);
    MerkenLassen(SIGHUP, 0);
    std::signal(SIGPIPE, SIG_IGN);
}

bool EndeVerlangt() {
    return Verlangt;
}

}  // namespace liedwerk
