// messlauf SEKUNDEN PROGRAMM [ARGUMENT...]: runs a program and writes one line about it to standard error:
// its exit status (or "signalN"; or "haengt" when it took more seconds of the processor, or twenty times as
// many of the clock, and was killed), processor seconds of program and system, and the most memory that it
// held, in KiB. Its standard output goes where ours goes.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

pid_t Kind = 0;
volatile std::sig_atomic_t Hängt = 0;

void Beenden(int) {
    Hängt = 1;
    kill(Kind, SIGKILL);
}

double Sekunden(const timeval& Zeit) {
    return static_cast<double>(Zeit.tv_sec) + static_cast<double>(Zeit.tv_usec) / 1e6;
}

}  // namespace

int main(int Anzahl, char** Argumente) {
    if (Anzahl < 3) {
        std::fputs("Aufruf: messlauf SEKUNDEN PROGRAMM [ARGUMENT...]\n", stderr);
        return 2;
    }
    Kind = fork();
    if (Kind < 0) return 2;
    if (Kind == 0) {
        const auto Sekundenzahl = static_cast<rlim_t>(std::atoi(Argumente[1]));
        const rlimit Grenze{Sekundenzahl, Sekundenzahl};
        setrlimit(RLIMIT_CPU, &Grenze);
        // What the program says is not ours; a line of its own would look like a measurement.
        if (std::freopen("/dev/null", "w", stderr) != nullptr) execvp(Argumente[2], Argumente + 2);
        _exit(127);
    }
    std::signal(SIGALRM, Beenden);
    alarm(20 * static_cast<unsigned>(std::atoi(Argumente[1])));
    int Status = 0;
    rusage Verbrauch{};
    while (wait4(Kind, &Status, 0, &Verbrauch) < 0) {
    }
    alarm(0);
    char Ende[32];
    if (Hängt != 0 || (WIFSIGNALED(Status) && Sekunden(Verbrauch.ru_utime) + Sekunden(Verbrauch.ru_stime) >=
                                                  std::atof(Argumente[1]))) {
        std::snprintf(Ende, sizeof Ende, "haengt");
    } else if (WIFSIGNALED(Status)) {
        std::snprintf(Ende, sizeof Ende, "signal%d", WTERMSIG(Status));
    } else {
        std::snprintf(Ende, sizeof Ende, "%d", WEXITSTATUS(Status));
    }
    std::fprintf(stderr, "%s %.3f %ld\n", Ende, Sekunden(Verbrauch.ru_utime) + Sekunden(Verbrauch.ru_stime),
                 Verbrauch.ru_maxrss);
    return 0;
}
