// A library to be loaded in front of the C library (LD_PRELOAD): counts the calls by which a program changes
// files below a folder, and disturbs one of them, or all from one on. What it does stands in the environment:
//
//   STOERUNG_ORDNER     only calls on names below this folder count, "/": on any name; without it none do
//   STOERUNG_RUF        1-based number of the call that is disturbed; 0 or missing: none
//   STOERUNG_ART        the errno of the answer as a number, or "halb" (a write writes half), "halbvoll"
//   (half,
//                       then ENOSPC for good), "tot" (SIGKILL before the call), "totdanach" (SIGKILL behind
//                       it), "tothalb" (the same, a write having written half)
//   STOERUNG_IMMER      1: all calls from that one on are answered so
//   STOERUNG_PROTOKOLL  a file outside the folder: one line a call, "number name result path path"
//   STOERUNG_GRENZE     a folder that counts as another file system: renames into or out of it give EXDEV
//   STOERUNG_PAUSE      each counted call waits up to so many microseconds first; STOERUNG_SAAT seeds that
//   STOERUNG_RAFFER     sleeping takes so many times less; the monotonic clock jumps ahead by the rest
//   STOERUNG_NAMEN      the look-up of a host's name takes so many seconds
//
// The protocol also tells of connections over the internet's protocols: "0 verbunden 0 address:port" and,
// when one is closed, "0 empfangen bytes".
//
// Flushing is answered without waiting for the disk: nothing here survives a loss of power anyway.
#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <netdb.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Plan {
    const char* Ordner = nullptr;
    const char* Grenze = nullptr;
    long Ruf = 0;
    int Nummer = 0;
    bool Halb = false;
    bool Tot = false;
    bool Danach = false;
    bool Immer = false;
    long Raffer = 0;
    unsigned long Pause = 0;
    std::atomic<unsigned long> Zufall{1};
    std::atomic<long> Rufe{0};
    std::atomic<long> Gerafft{0};  // nanoseconds
    int Protokoll = -1;
};
Plan P;

const char* Wert(const char* Name) {
    const char* const Text = std::getenv(Name);
    return Text != nullptr && *Text != '\0' ? Text : nullptr;
}

long Zahl(const char* Name) {
    const char* const Text = Wert(Name);
    return Text == nullptr ? 0 : std::atol(Text);
}

__attribute__((constructor)) void Einrichten() {
    P.Grenze = Wert("STOERUNG_GRENZE");
    P.Ruf = Zahl("STOERUNG_RUF");
    P.Immer = Zahl("STOERUNG_IMMER") != 0;
    P.Raffer = Zahl("STOERUNG_RAFFER");
    P.Pause = static_cast<unsigned long>(Zahl("STOERUNG_PAUSE"));
    P.Zufall = static_cast<unsigned long>(Zahl("STOERUNG_SAAT")) * 2 + 1;
    if (const char* Art = Wert("STOERUNG_ART")) {
        P.Halb = std::strncmp(Art, "halb", 4) == 0 || std::strcmp(Art, "tothalb") == 0;
        P.Tot = std::strncmp(Art, "tot", 3) == 0;
        P.Danach = P.Tot && std::strcmp(Art, "tot") != 0;
        P.Nummer = std::strcmp(Art, "halbvoll") == 0 ? ENOSPC : std::atoi(Art);
        if (P.Halb && P.Nummer != 0) P.Immer = true;
    }
    if (const char* Datei = Wert("STOERUNG_PROTOKOLL")) {
        const auto Offen =
            syscall(SYS_openat, AT_FDCWD, Datei, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        P.Protokoll = static_cast<int>(Offen);
    }
    P.Ordner = Wert("STOERUNG_ORDNER");
}

bool Darunter(const char* Pfad, const char* Ordner) {
    if (Pfad == nullptr || Ordner == nullptr) return false;
    if (std::strcmp(Ordner, "/") == 0) return true;
    const std::size_t Länge = std::strlen(Ordner);
    return std::strncmp(Pfad, Ordner, Länge) == 0 && (Pfad[Länge] == '/' || Pfad[Länge] == '\0');
}

// One call that changes something, from the look at its names to the line in the protocol.
class Ruf {
  public:
    Ruf(const char* Wie, const char* Einer, const char* Zweiter = nullptr)
        : Name(Wie), Pfad(Einer), Neu(Zweiter) {
        if (Darunter(Einer, P.Ordner) || Darunter(Zweiter, P.Ordner)) Zählen();
    }
    Ruf(const char* Wie, int Griff) : Name(Wie), Pfad(Puffer) {
        if (P.Ordner == nullptr) return;
        char Verweis[64];
        std::snprintf(Verweis, sizeof Verweis, "/proc/self/fd/%d", Griff);
        const int Vorher = errno;
        const auto Länge = syscall(SYS_readlinkat, AT_FDCWD, Verweis, Puffer, sizeof Puffer - 1);
        errno = Vorher;
        Puffer[Länge > 0 ? Länge : 0] = '\0';
        if (Darunter(Puffer, P.Ordner)) Zählen();
    }
    // Does the call, or what stands in its place.
    template <class Tun>
    long Ausführen(Tun&& Rufen) {
        return Ausführen([&](bool) { return Rufen(); }, false);
    }
    // The same for a write, which gets told whether to write only half.
    template <class Tun>
    long Ausführen(Tun&& Rufen, bool Schreibt) {
        const bool Getroffen = Nummer > 0 && P.Ruf > 0 && (Nummer == P.Ruf || (P.Immer && Nummer > P.Ruf));
        if (!Getroffen) return Vermerken(Rufen(false));
        if (P.Tot && !P.Danach) Sterben();
        const bool Hälfte = P.Halb && Schreibt && Nummer == P.Ruf;
        if (P.Tot) {
            Vermerken(Rufen(Hälfte));
            Sterben();
        }
        if (Hälfte || P.Nummer == 0) return Vermerken(Rufen(Hälfte));
        errno = P.Nummer;
        return Vermerken(-1);
    }

  private:
    void Zählen() {
        Nummer = ++P.Rufe;
        if (P.Pause == 0) return;
        P.Zufall = P.Zufall * 6364136223846793005UL + 1442695040888963407UL;
        const timespec Dauer{0, static_cast<long>((P.Zufall >> 33U) % P.Pause) * 1000};
        syscall(SYS_nanosleep, &Dauer, nullptr);
    }
    [[noreturn]] void Sterben() {
        for (;;)
            syscall(SYS_kill, syscall(SYS_getpid), SIGKILL);
    }
    long Vermerken(long Ergebnis) {
        if (Nummer == 0 || P.Protokoll < 0) return Ergebnis;
        const int Vorher = errno;
        char Zeile[3 * PATH_MAX];
        const int Länge = std::snprintf(Zeile, sizeof Zeile, "%ld\t%s\t%ld\t%s\t%s\n", Nummer, Name,
                                        Ergebnis < 0 ? -static_cast<long>(Vorher) : Ergebnis, Pfad,
                                        Neu == nullptr ? "" : Neu);
        syscall(SYS_write, P.Protokoll, Zeile, Länge);
        errno = Vorher;
        return Ergebnis;
    }
    const char* Name;
    const char* Pfad;
    const char* Neu = nullptr;
    long Nummer = 0;
    char Puffer[PATH_MAX];
};

std::size_t Teil(bool Hälfte, std::size_t Länge) {
    return Hälfte && Länge > 1 ? Länge / 2 : Länge;
}

// Which opened descriptors may write: closing these counts too.
constexpr int HöchsterGriff = 1024;
std::atomic<bool> Schreibend[HöchsterGriff];

int Öffnen(int Ordner, const char* Pfad, int Weise, mode_t Rechte) {
    const auto Tun = [&] { return syscall(SYS_openat, Ordner, Pfad, Weise, Rechte); };
    const bool Schreibt = (Weise & (O_CREAT | O_TRUNC)) != 0 || (Weise & O_ACCMODE) != O_RDONLY;
    if (!Schreibt) return static_cast<int>(Tun());
    const char* const Name = (Weise & O_TRUNC) != 0   ? "open-leerend"
                             : (Weise & O_CREAT) != 0 ? "open-neu"
                                                      : "open";
    const auto Griff = static_cast<int>(Ruf(Name, Pfad).Ausführen(Tun));
    if (Griff >= 0 && Griff < HöchsterGriff) Schreibend[Griff] = true;
    return Griff;
}

// Each connection: one more than the bytes that came, so that 0 stands for none.
std::atomic<long> Verbindungen[HöchsterGriff];

void Notieren(const char* Name, long Zahl, const char* Text) {
    char Zeile[256];
    const int Vorher = errno;
    const int Länge = std::snprintf(Zeile, sizeof Zeile, "0\t%s\t%ld\t%s\n", Name, Zahl, Text);
    if (P.Protokoll >= 0) syscall(SYS_write, P.Protokoll, Zeile, Länge);
    errno = Vorher;
}

void Verbunden(int Griff, const sockaddr* Ziel) {
    char Adresse[INET6_ADDRSTRLEN] = "";
    char Text[INET6_ADDRSTRLEN + 8];
    int Port = 0;
    if (Ziel->sa_family == AF_INET) {
        const auto* const Ort = reinterpret_cast<const sockaddr_in*>(Ziel);
        inet_ntop(AF_INET, &Ort->sin_addr, Adresse, sizeof Adresse);
        Port = ntohs(Ort->sin_port);
    } else if (Ziel->sa_family == AF_INET6) {
        const auto* const Ort = reinterpret_cast<const sockaddr_in6*>(Ziel);
        inet_ntop(AF_INET6, &Ort->sin6_addr, Adresse, sizeof Adresse);
        Port = ntohs(Ort->sin6_port);
    } else {
        return;
    }
    std::snprintf(Text, sizeof Text, "%s:%d", Adresse, Port);
    Notieren("verbunden", 0, Text);
    if (Griff >= 0 && Griff < HöchsterGriff && Verbindungen[Griff] == 0) Verbindungen[Griff] = 1;
}

ssize_t Empfangen(int Griff, ssize_t Anzahl) {
    if (Anzahl > 0 && Griff >= 0 && Griff < HöchsterGriff && Verbindungen[Griff] > 0)
        Verbindungen[Griff] += Anzahl;
    return Anzahl;
}

void Getrennt(int Griff) {
    const long Zahl = Griff >= 0 && Griff < HöchsterGriff ? Verbindungen[Griff].exchange(0) : 0;
    if (Zahl > 0) Notieren("empfangen", Zahl - 1, "");
}

__attribute__((destructor)) void Abrechnen() {
    for (int Griff = 0; Griff < HöchsterGriff; ++Griff)
        Getrennt(Griff);
}

bool ÜberGrenze(const char* Alt, const char* Neu) {
    return P.Grenze != nullptr && Darunter(Alt, P.Grenze) != Darunter(Neu, P.Grenze);
}

int Umbenennen(const char* Name, const char* Alt, const char* Neu, unsigned Weise) {
    if (ÜberGrenze(Alt, Neu)) {
        errno = EXDEV;
        return -1;
    }
    return static_cast<int>(Ruf(Name, Alt, Neu).Ausführen([&] {
        return syscall(SYS_renameat2, AT_FDCWD, Alt, AT_FDCWD, Neu, Weise);
    }));
}

mode_t RechteAus(int Weise, va_list Liste) {
    return (Weise & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(Liste, int)) : 0;
}

int Schlafen(const timespec* Dauer) {
    const long Ganz = Dauer->tv_sec * 1'000'000'000L + Dauer->tv_nsec;
    const long Wirklich = Ganz / P.Raffer;
    const timespec Kurz{Wirklich / 1'000'000'000L, Wirklich % 1'000'000'000L};
    syscall(SYS_nanosleep, &Kurz, nullptr);
    P.Gerafft += Ganz - Wirklich;
    return 0;
}

}  // namespace

#define MIT_RECHTEN(Ergebnis)                 \
    va_list Liste;                            \
    va_start(Liste, Weise);                   \
    const mode_t R = RechteAus(Weise, Liste); \
    va_end(Liste);                            \
    return Ergebnis

extern "C" {

int open(const char* Pfad, int Weise, ...) {
    MIT_RECHTEN(Öffnen(AT_FDCWD, Pfad, Weise, R));
}
int open64(const char* Pfad, int Weise, ...) {
    MIT_RECHTEN(Öffnen(AT_FDCWD, Pfad, Weise | O_LARGEFILE, R));
}
int openat(int Ordner, const char* Pfad, int Weise, ...) {
    MIT_RECHTEN(Öffnen(Ordner, Pfad, Weise, R));
}
int openat64(int Ordner, const char* Pfad, int Weise, ...) {
    MIT_RECHTEN(Öffnen(Ordner, Pfad, Weise | O_LARGEFILE, R));
}
int connect(int Griff, const sockaddr* Ziel, socklen_t Länge) {
    Verbunden(Griff, Ziel);
    return static_cast<int>(syscall(SYS_connect, Griff, Ziel, Länge));
}
ssize_t read(int Griff, void* Bytes, size_t Anzahl) {
    return Empfangen(Griff, syscall(SYS_read, Griff, Bytes, Anzahl));
}
ssize_t recv(int Griff, void* Bytes, size_t Anzahl, int Weise) {
    const ssize_t Menge = syscall(SYS_recvfrom, Griff, Bytes, Anzahl, Weise, nullptr, nullptr);
    return (Weise & MSG_PEEK) != 0 ? Menge : Empfangen(Griff, Menge);
}
int close(int Griff) {
    Getrennt(Griff);
    const auto Tun = [&] { return syscall(SYS_close, Griff); };
    if (Griff < 0 || Griff >= HöchsterGriff || !Schreibend[Griff].exchange(false))
        return static_cast<int>(Tun());
    Ruf Einer("close", Griff);
    // A failed close has closed.
    return static_cast<int>(Einer.Ausführen(Tun)) | static_cast<int>(fcntl(Griff, F_GETFD) >= 0 ? Tun() : 0);
}
ssize_t write(int Griff, const void* Bytes, size_t Anzahl) {
    return Ruf("write", Griff)
        .Ausführen([&](bool H) { return syscall(SYS_write, Griff, Bytes, Teil(H, Anzahl)); }, true);
}
ssize_t pwrite(int Griff, const void* Bytes, size_t Anzahl, off_t Stelle) {
    return Ruf("pwrite", Griff)
        .Ausführen([&](bool H) { return syscall(SYS_pwrite64, Griff, Bytes, Teil(H, Anzahl), Stelle); },
                   true);
}
ssize_t pwrite64(int Griff, const void* Bytes, size_t Anzahl, off64_t Stelle) {
    return pwrite(Griff, Bytes, Anzahl, Stelle);
}
ssize_t writev(int Griff, const iovec* Teile, int Anzahl) {
    return Ruf("writev", Griff)
        .Ausführen([&](bool H) { return syscall(SYS_writev, Griff, Teile, H ? (Anzahl + 1) / 2 : Anzahl); },
                   true);
}
ssize_t copy_file_range(int Von, off64_t* A, int Nach, off64_t* B, size_t Anzahl, unsigned Weise) {
    return Ruf("copy_file_range", Nach)
        .Ausführen(
            [&](bool H) { return syscall(SYS_copy_file_range, Von, A, Nach, B, Teil(H, Anzahl), Weise); },
            true);
}
ssize_t sendfile(int Nach, int Von, off_t* Stelle, size_t Anzahl) {
    return Ruf("sendfile", Nach)
        .Ausführen([&](bool H) { return syscall(SYS_sendfile, Nach, Von, Stelle, Teil(H, Anzahl)); }, true);
}
int fallocate(int Griff, int Weise, off_t Stelle, off_t Anzahl) {
    return static_cast<int>(Ruf("fallocate", Griff).Ausführen([&] {
        return syscall(SYS_fallocate, Griff, Weise, Stelle, Anzahl);
    }));
}
int ftruncate(int Griff, off_t Anzahl) noexcept {
    return static_cast<int>(
        Ruf("ftruncate", Griff).Ausführen([&] { return syscall(SYS_ftruncate, Griff, Anzahl); }));
}
int fsync(int Griff) {
    return static_cast<int>(Ruf("fsync", Griff).Ausführen([] { return 0; }));
}
int fdatasync(int Griff) {
    return static_cast<int>(Ruf("fdatasync", Griff).Ausführen([] { return 0; }));
}
int rename(const char* Alt, const char* Neu) noexcept {
    return Umbenennen("rename", Alt, Neu, 0);
}
int renameat2(int, const char* Alt, int, const char* Neu, unsigned Weise) noexcept {
    return Umbenennen("renameat2", Alt, Neu, Weise);
}
int link(const char* Alt, const char* Neu) noexcept {
    return static_cast<int>(Ruf("link", Alt, Neu).Ausführen([&] {
        return syscall(SYS_linkat, AT_FDCWD, Alt, AT_FDCWD, Neu, 0);
    }));
}
int symlink(const char* Inhalt, const char* Neu) noexcept {
    return static_cast<int>(
        Ruf("symlink", Neu).Ausführen([&] { return syscall(SYS_symlinkat, Inhalt, AT_FDCWD, Neu); }));
}
int unlink(const char* Pfad) noexcept {
    return static_cast<int>(
        Ruf("unlink", Pfad).Ausführen([&] { return syscall(SYS_unlinkat, AT_FDCWD, Pfad, 0); }));
}
int rmdir(const char* Pfad) noexcept {
    return static_cast<int>(
        Ruf("rmdir", Pfad).Ausführen([&] { return syscall(SYS_unlinkat, AT_FDCWD, Pfad, AT_REMOVEDIR); }));
}
int mkdir(const char* Pfad, mode_t Rechte) noexcept {
    return static_cast<int>(
        Ruf("mkdir", Pfad).Ausführen([&] { return syscall(SYS_mkdirat, AT_FDCWD, Pfad, Rechte); }));
}
int chmod(const char* Pfad, mode_t Rechte) noexcept {
    return static_cast<int>(
        Ruf("chmod", Pfad).Ausführen([&] { return syscall(SYS_fchmodat, AT_FDCWD, Pfad, Rechte); }));
}
int fchmod(int Griff, mode_t Rechte) noexcept {
    return static_cast<int>(
        Ruf("fchmod", Griff).Ausführen([&] { return syscall(SYS_fchmod, Griff, Rechte); }));
}
int fchown(int Griff, uid_t Wer, gid_t Gruppe) noexcept {
    return static_cast<int>(
        Ruf("fchown", Griff).Ausführen([&] { return syscall(SYS_fchown, Griff, Wer, Gruppe); }));
}
int fsetxattr(int Griff, const char* Name, const void* Bytes, size_t Anzahl, int Weise) noexcept {
    return static_cast<int>(Ruf("fsetxattr", Griff).Ausführen([&] {
        return syscall(SYS_fsetxattr, Griff, Name, Bytes, Anzahl, Weise);
    }));
}
int fremovexattr(int Griff, const char* Name) noexcept {
    return static_cast<int>(
        Ruf("fremovexattr", Griff).Ausführen([&] { return syscall(SYS_fremovexattr, Griff, Name); }));
}
int futimens(int Griff, const timespec* Zeiten) noexcept {
    return static_cast<int>(
        Ruf("futimens", Griff).Ausführen([&] { return syscall(SYS_utimensat, Griff, nullptr, Zeiten, 0); }));
}
int utimensat(int Ordner, const char* Pfad, const timespec* Zeiten, int Weise) noexcept {
    return static_cast<int>(Ruf("utimensat", Pfad).Ausführen([&] {
        return syscall(SYS_utimensat, Ordner, Pfad, Zeiten, Weise);
    }));
}

int getaddrinfo(const char* Wirt, const char* Dienst, const addrinfo* Wunsch, addrinfo** Ergebnis) {
    if (const long Sekunden = Zahl("STOERUNG_NAMEN"); Sekunden > 0) {
        const timespec Dauer{Sekunden, 0};
        syscall(SYS_nanosleep, &Dauer, nullptr);
        return EAI_AGAIN;
    }
    using Tun = int(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto Echt = reinterpret_cast<Tun*>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return Echt(Wirt, Dienst, Wunsch, Ergebnis);
}

int nanosleep(const timespec* Dauer, timespec* Rest) {
    return P.Raffer > 0 ? Schlafen(Dauer) : static_cast<int>(syscall(SYS_nanosleep, Dauer, Rest));
}
int clock_nanosleep(clockid_t Welche, int Weise, const timespec* Dauer, timespec* Rest) {
    if (P.Raffer > 0 && Weise == 0) return Schlafen(Dauer);
    return syscall(SYS_clock_nanosleep, Welche, Weise, Dauer, Rest) == 0 ? 0 : errno;
}
int clock_gettime(clockid_t Welche, timespec* Zeit) noexcept {
    const auto Ergebnis = static_cast<int>(syscall(SYS_clock_gettime, Welche, Zeit));
    if (Ergebnis == 0 && Welche == CLOCK_MONOTONIC && P.Gerafft != 0) {
        const long Summe = Zeit->tv_nsec + P.Gerafft;
        Zeit->tv_sec += Summe / 1'000'000'000L;
        Zeit->tv_nsec = Summe % 1'000'000'000L;
    }
    return Ergebnis;
}

}  // extern "C"
