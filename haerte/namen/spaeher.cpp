// A library to be loaded in front of the C library (LD_PRELOAD): notes each program that is started, each
// file that is opened for writing, made, renamed, linked or removed, and each socket that listens or
// connects. Nothing is changed or refused. STOERUNG_PROTOKOLL names the file; a line is
//
//   0 <tab> name <tab> 0 <tab> path <tab> second path
//
// Paths are absolute, the folder that holds the file without links and ".."; control characters and "\" stand
// as "\xHH". Of a socket the path is its family, and the address of an IPv4 one.
#include <arpa/inet.h>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <initializer_list>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

extern char** environ;

namespace {

constexpr std::size_t Platz = 4 * PATH_MAX;

int Protokoll() {
    static const int Griff = [] {
        const char* const Datei = std::getenv("STOERUNG_PROTOKOLL");
        if (Datei == nullptr) return -1;
        return static_cast<int>(
            syscall(SYS_openat, AT_FDCWD, Datei, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    }();
    return Griff;
}

__attribute__((constructor)) void Einrichten() {
    Protokoll();
}

// A line under construction; too long ones are cut.
struct Zeile {
    char Bytes[3 * Platz];
    std::size_t Länge = 0;
    void Roh(char Zeichen) {
        if (Länge < sizeof Bytes - 1) Bytes[Länge++] = Zeichen;
    }
    void Text(const char* Woraus) {
        for (; *Woraus != '\0'; ++Woraus) {
            const auto Zahl = static_cast<unsigned char>(*Woraus);
            if (Zahl >= 0x20 && Zahl != '\\') {
                Roh(*Woraus);
                continue;
            }
            constexpr const char* Ziffern = "0123456789abcdef";
            for (const char Zeichen : {'\\', 'x', Ziffern[Zahl >> 4U], Ziffern[Zahl & 15U]})
                Roh(Zeichen);
        }
    }
};

void Notieren(const char* Name, const char* Pfad, const char* Neu = "") {
    if (Protokoll() < 0) return;
    const int Vorher = errno;
    Zeile Eine;
    Eine.Text("0");
    for (const char* Teil : {Name, "0", Pfad, Neu}) {
        Eine.Roh('\t');
        Eine.Text(Teil);
    }
    Eine.Bytes[Eine.Länge++] = '\n';
    syscall(SYS_write, Protokoll(), Eine.Bytes, Eine.Länge);
    errno = Vorher;
}

// The path as the judge compares it: the folder resolved, the last part as it is.
class Ort {
  public:
    Ort(int Ordner, const char* Pfad) {
        const int Vorher = errno;
        char Voll[2 * PATH_MAX] = "";
        if (*Pfad != '/') {
            if (Ordner == AT_FDCWD) {
                if (getcwd(Voll, PATH_MAX) == nullptr) Voll[0] = '\0';
            } else {
                char Verweis[64];
                std::snprintf(Verweis, sizeof Verweis, "/proc/self/fd/%d", Ordner);
                const auto Länge = syscall(SYS_readlinkat, AT_FDCWD, Verweis, Voll, PATH_MAX);
                Voll[Länge > 0 ? Länge : 0] = '\0';
            }
            std::strncat(Voll, "/", 2);
        }
        std::strncat(Voll, Pfad, PATH_MAX);
        char* const Trenner = std::strrchr(Voll, '/');
        *Trenner = '\0';
        const char* const Name = Trenner + 1;
        char Echter[PATH_MAX];
        const bool Punkte = std::strcmp(Name, "..") == 0 || std::strcmp(Name, ".") == 0;
        const char* const Darüber = realpath(*Voll == '\0' ? "/" : Voll, Echter);
        std::snprintf(Bytes, sizeof Bytes, "%s%s/%s", Punkte ? "(Punkte)" : "",
                      Darüber != nullptr ? Darüber : Voll, Name);
        errno = Vorher;
    }
    operator const char*() const { return Bytes; }

  private:
    char Bytes[Platz];
};

void Eines(const char* Name, const char* Pfad, int Ordner = AT_FDCWD) {
    Notieren(Name, Ort(Ordner, Pfad));
}

void Zwei(const char* Name, int A, const char* Alt, int B, const char* Neu) {
    const Ort Woher(A, Alt);
    Notieren(Name, Woher, Ort(B, Neu));
}

int Öffnen(int Ordner, const char* Pfad, int Weise, mode_t Rechte) {
    if ((Weise & (O_CREAT | O_TRUNC)) != 0 || (Weise & O_ACCMODE) != O_RDONLY) Eines("open", Pfad, Ordner);
    return static_cast<int>(syscall(SYS_openat, Ordner, Pfad, Weise, Rechte));
}

mode_t RechteAus(int Weise, va_list Liste) {
    return (Weise & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(Liste, int)) : 0;
}

template <class Funktion>
Funktion* Eigentliche(const char* Name, Funktion*) {
    return reinterpret_cast<Funktion*>(dlsym(RTLD_NEXT, Name));
}

void Steckdose(const char* Name, const sockaddr* Wo, socklen_t Länge) {
    char Text[128] = "?";
    if (Wo != nullptr && Länge >= sizeof(sa_family_t)) {
        if (Wo->sa_family == AF_INET && Länge >= sizeof(sockaddr_in)) {
            char Adresse[INET_ADDRSTRLEN] = "";
            inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in*>(Wo)->sin_addr, Adresse, sizeof Adresse);
            std::snprintf(Text, sizeof Text, "inet %s", Adresse);
        } else {
            std::snprintf(Text, sizeof Text, "%s", Wo->sa_family == AF_UNIX ? "unix" : "andere");
        }
    }
    Notieren(Name, Text);
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
int __open_2(const char* Pfad, int Weise) {
    return Öffnen(AT_FDCWD, Pfad, Weise, 0);
}
int __open64_2(const char* Pfad, int Weise) {
    return Öffnen(AT_FDCWD, Pfad, Weise | O_LARGEFILE, 0);
}
int creat(const char* Pfad, mode_t Rechte) {
    return Öffnen(AT_FDCWD, Pfad, O_CREAT | O_WRONLY | O_TRUNC, Rechte);
}
FILE* fopen(const char* Pfad, const char* Weise) {
    if (std::strpbrk(Weise, "wa+") != nullptr) Eines("open", Pfad);
    return Eigentliche("fopen", &fopen)(Pfad, Weise);
}
FILE* fopen64(const char* Pfad, const char* Weise) {
    if (std::strpbrk(Weise, "wa+") != nullptr) Eines("open", Pfad);
    return Eigentliche("fopen64", &fopen64)(Pfad, Weise);
}
int rename(const char* Alt, const char* Neu) noexcept {
    Zwei("rename", AT_FDCWD, Alt, AT_FDCWD, Neu);
    return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, Alt, AT_FDCWD, Neu, 0));
}
int renameat(int A, const char* Alt, int B, const char* Neu) noexcept {
    Zwei("rename", A, Alt, B, Neu);
    return static_cast<int>(syscall(SYS_renameat2, A, Alt, B, Neu, 0));
}
int renameat2(int A, const char* Alt, int B, const char* Neu, unsigned Weise) noexcept {
    Zwei("rename", A, Alt, B, Neu);
    return static_cast<int>(syscall(SYS_renameat2, A, Alt, B, Neu, Weise));
}
int link(const char* Alt, const char* Neu) noexcept {
    Eines("link", Neu);
    return static_cast<int>(syscall(SYS_linkat, AT_FDCWD, Alt, AT_FDCWD, Neu, 0));
}
int linkat(int A, const char* Alt, int B, const char* Neu, int Weise) noexcept {
    Eines("link", Neu, B);
    return static_cast<int>(syscall(SYS_linkat, A, Alt, B, Neu, Weise));
}
int symlink(const char* Inhalt, const char* Neu) noexcept {
    Eines("symlink", Neu);
    return static_cast<int>(syscall(SYS_symlinkat, Inhalt, AT_FDCWD, Neu));
}
int symlinkat(const char* Inhalt, int Ordner, const char* Neu) noexcept {
    Eines("symlink", Neu, Ordner);
    return static_cast<int>(syscall(SYS_symlinkat, Inhalt, Ordner, Neu));
}
int unlink(const char* Pfad) noexcept {
    Eines("unlink", Pfad);
    return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, Pfad, 0));
}
int unlinkat(int Ordner, const char* Pfad, int Weise) noexcept {
    Eines("unlink", Pfad, Ordner);
    return static_cast<int>(syscall(SYS_unlinkat, Ordner, Pfad, Weise));
}
int remove(const char* Pfad) noexcept {
    Eines("unlink", Pfad);
    return Eigentliche("remove", &remove)(Pfad);
}
int rmdir(const char* Pfad) noexcept {
    Eines("rmdir", Pfad);
    return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, Pfad, AT_REMOVEDIR));
}
int mkdir(const char* Pfad, mode_t Rechte) noexcept {
    Eines("mkdir", Pfad);
    return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, Pfad, Rechte));
}
int mkdirat(int Ordner, const char* Pfad, mode_t Rechte) noexcept {
    Eines("mkdir", Pfad, Ordner);
    return static_cast<int>(syscall(SYS_mkdirat, Ordner, Pfad, Rechte));
}
int chmod(const char* Pfad, mode_t Rechte) noexcept {
    Eines("chmod", Pfad);
    return static_cast<int>(syscall(SYS_fchmodat, AT_FDCWD, Pfad, Rechte));
}
int truncate(const char* Pfad, off_t Länge) noexcept {
    Eines("truncate", Pfad);
    return static_cast<int>(syscall(SYS_truncate, Pfad, Länge));
}
int utimensat(int Ordner, const char* Pfad, const timespec* Zeiten, int Weise) noexcept {
    Eines("utimensat", Pfad, Ordner);
    return static_cast<int>(syscall(SYS_utimensat, Ordner, Pfad, Zeiten, Weise));
}

int execve(const char* Pfad, char* const Worte[], char* const Umwelt[]) noexcept {
    Notieren("start", Pfad);
    return static_cast<int>(syscall(SYS_execve, Pfad, Worte, Umwelt));
}
int execv(const char* Pfad, char* const Worte[]) noexcept {
    return execve(Pfad, Worte, environ);
}
int execvp(const char* Name, char* const Worte[]) noexcept {
    Notieren("start", Name);
    return Eigentliche("execvp", &execvp)(Name, Worte);
}
int execvpe(const char* Name, char* const Worte[], char* const Umwelt[]) noexcept {
    Notieren("start", Name);
    return Eigentliche("execvpe", &execvpe)(Name, Worte, Umwelt);
}
int posix_spawn(pid_t* Nummer, const char* Pfad, const posix_spawn_file_actions_t* Griffe,
                const posix_spawnattr_t* Art, char* const Worte[], char* const Umwelt[]) {
    Notieren("start", Pfad);
    return Eigentliche("posix_spawn", &posix_spawn)(Nummer, Pfad, Griffe, Art, Worte, Umwelt);
}
int posix_spawnp(pid_t* Nummer, const char* Name, const posix_spawn_file_actions_t* Griffe,
                 const posix_spawnattr_t* Art, char* const Worte[], char* const Umwelt[]) {
    Notieren("start", Name);
    return Eigentliche("posix_spawnp", &posix_spawnp)(Nummer, Name, Griffe, Art, Worte, Umwelt);
}
int system(const char* Befehl) {
    Notieren("shell", Befehl == nullptr ? "" : Befehl);
    return Eigentliche("system", &system)(Befehl);
}
FILE* popen(const char* Befehl, const char* Weise) {
    Notieren("shell", Befehl);
    return Eigentliche("popen", &popen)(Befehl, Weise);
}

int bind(int Griff, const sockaddr* Wo, socklen_t Länge) noexcept {
    Steckdose("bind", Wo, Länge);
    return static_cast<int>(syscall(SYS_bind, Griff, Wo, Länge));
}
int listen(int Griff, int Schlange) noexcept {
    sockaddr_storage Wo{};
    socklen_t Länge = sizeof Wo;
    if (getsockname(Griff, reinterpret_cast<sockaddr*>(&Wo), &Länge) != 0) Länge = 0;
    Steckdose("listen", reinterpret_cast<sockaddr*>(&Wo), Länge);
    return static_cast<int>(syscall(SYS_listen, Griff, Schlange));
}
int connect(int Griff, const sockaddr* Wo, socklen_t Länge) {
    Steckdose("connect", Wo, Länge);
    return static_cast<int>(syscall(SYS_connect, Griff, Wo, Länge));
}

}  // extern "C"
