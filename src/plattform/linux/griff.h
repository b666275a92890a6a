// What the file procedures of this folder share: names for the system, descriptors, the state of a file.
#pragma once

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

#include "basis/datei.h"

namespace liedwerk {

inline constexpr std::string_view DateiVerändert =
    "Die Datei wurde inzwischen von einem anderen Programm verändert";

// The path as the system takes it; nothing when it holds a NUL byte (errno is EINVAL), behind which the
// system would not read on, or is no full path (errno is ENOENT): an index from elsewhere may hold a relative
// one, which would mean a file of the folder that the program happens to stand in.
std::optional<std::string> Systempfad(std::string_view Pfad);

// Repeats a system call that a signal has interrupted.
template <class Aufruf>
auto Beharrlich(Aufruf&& Rufen) {
    auto Ergebnis = Rufen();
    while (Ergebnis < 0 && errno == EINTR)
        Ergebnis = Rufen();
    return Ergebnis;
}

// A descriptor that closes itself.
class Griffhalter {
  public:
    explicit Griffhalter(int Neu = -1) : Griff(Neu) {}
    Griffhalter(const Griffhalter&) = delete;
    Griffhalter& operator=(const Griffhalter&) = delete;
    ~Griffhalter();
    int Wert() const { return Griff; }
    explicit operator bool() const { return Griff >= 0; }
    // Gives the descriptor away.
    int Lösen();
    void Tauschen(Griffhalter& Anderer) { std::swap(Griff, Anderer.Griff); }

  private:
    int Griff;
};

Dateistand StandVon(const struct stat& Angaben);

// True when both tell of one file.
bool DieselbeDatei(const struct stat& A, const struct stat& B);

// True for the error of a file system that knows no locks; there the exclusive creation of a name is all the
// protection there is. Network file systems refuse to lock what is open for reading only (EBADF).
bool SperrenFehlen(int Nummer);

// Brings a file's content to the disk; true also where the file system cannot flush a single file. Else errno
// tells.
bool Festschreiben(int Griff);

// The folder of a path of this system; "." for a bare name.
std::string OrdnerVon(const std::string& Pfad);

// Renames in one step; where Regel says so and an entry stands there, it fails with EEXIST.
bool NameWechseln(const std::string& Alt, const std::string& Neu, Vorhandenes Regel);

// Brings the names in a folder to the disk, as far as the file system can. A failure is none for the caller:
// the change itself has happened and is visible.
void OrdnerFestschreiben(const std::string& Ordner);

}  // namespace liedwerk
