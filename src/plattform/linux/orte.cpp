#include "plattform/linux/orte.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

#include "basis/datei.h"
#include "basis/dateiname.h"
#include "basis/pfad.h"

namespace liedwerk {
namespace {

constexpr std::string_view Unterordner = "liedwerk";
constexpr std::string_view Einstellungsname = "einstellungen.ini";

std::string Umgebungswert(const char* Name) {
    const char* Wert = std::getenv(Name);
    return Wert == nullptr ? std::string() : std::string(Wert);
}

std::string Heimatordner() {
    std::string Ordner = Umgebungswert("HOME");
    if (IstPosixPfad(Ordner)) return Ordner;
    const passwd* Eintrag = ::getpwuid(::geteuid());
    return Eintrag == nullptr || Eintrag->pw_dir == nullptr ? std::string("/") : std::string(Eintrag->pw_dir);
}

// A folder of the XDG base directory rules; a relative value counts as not set there.
std::string XdgOrdner(const char* Variable, std::string_view Sonst) {
    std::string Ordner = Umgebungswert(Variable);
    return IstPosixPfad(Ordner) ? Ordner : PfadVerbinden(Heimatordner(), Sonst);
}

// The program's own in it.
std::string GrundOrdner(const char* Variable, std::string_view Sonst) {
    return PfadVerbinden(XdgOrdner(Variable, Sonst), Unterordner);
}

// The folder of the running program; empty when the system does not tell.
std::string EigenerOrdner() {
    std::string Pfad(4096, '\0');
    const auto Länge = ::readlink("/proc/self/exe", Pfad.data(), Pfad.size());
    if (Länge <= 0) return {};
    Pfad.resize(static_cast<std::size_t>(Länge));
    return std::string(PfadVon(Pfad));
}

std::string GewählterOrdner() {
    const std::string Gesetzt = Umgebungswert("LIEDWERK_ORDNER");
    std::error_code Fehler;
    // A relative path would not be known for one of this system.
    if (!Gesetzt.empty()) return OhneTrenner(std::filesystem::absolute(Gesetzt, Fehler).string());
    std::string Eigener = EigenerOrdner();
    const bool ImSystem = MitTrenner(Eigener).starts_with("/usr/");
    if (!Eigener.empty() && !ImSystem && ::faccessat(AT_FDCWD, Eigener.c_str(), W_OK, AT_EACCESS) == 0) {
        return Eigener;
    }
    return PfadVerbinden(Datenordner(), Unterordner);
}

// Binds a name that the system gives up with the process: of the folder's identity, in no file system.
int NameBelegen(const std::string& Ordner) {
    const auto Stand = DateistandLesen(Ordner);
    if (!Stand) return -1;
    const std::string Name = "liedwerk-tmp-" + std::to_string(::geteuid()) + "-" +
                             std::to_string(Stand->Gerät) + "-" + std::to_string(Stand->Inode);
    sockaddr_un Adresse{};
    Adresse.sun_family = AF_UNIX;
    // A NUL in front makes the name an abstract one.
    Name.copy(Adresse.sun_path + 1, sizeof(Adresse.sun_path) - 1);
    Griffhalter Sockel(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const auto Länge = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + Name.size());
    if (!Sockel || ::bind(Sockel.Wert(), reinterpret_cast<const sockaddr*>(&Adresse), Länge) != 0) return -1;
    return Sockel.Lösen();
}

// A name that nothing lies under, so that what goes with the run is its own.
std::string FreierName(std::string_view Programmordner) {
    const std::string Anfang = PfadVerbinden(Programmordner, "tmp-" + std::to_string(::getpid()));
    std::string Name = Anfang + ".lwi";
    struct stat Angaben {};
    for (int Nummer = 2; ::lstat(Name.c_str(), &Angaben) == 0; ++Nummer)
        Name = Anfang + "-" + std::to_string(Nummer) + ".lwi";
    return Name;
}

}  // namespace

std::string Programmordner() {
    std::string Ordner = GewählterOrdner();
    // A folder that the person has named may be meant for others too.
    const bool Genannt = !Umgebungswert("LIEDWERK_ORDNER").empty();
    static_cast<void>(OrdnerAnlegen(Ordner, Genannt ? Zugang::Üblich : Zugang::NurEigener));
    return Ordner;
}

std::string Datenordner() {
    return XdgOrdner("XDG_DATA_HOME", ".local/share");
}

std::string Einstellungsdatei() {
    return PfadVerbinden(GrundOrdner("XDG_CONFIG_HOME", ".config"), Einstellungsname);
}

std::string Laufzeitordner() {
    const std::string Ordner = Umgebungswert("XDG_RUNTIME_DIR");
    if (IstPosixPfad(Ordner)) return PfadVerbinden(Ordner, Unterordner);
    return PfadVerbinden(GrundOrdner("XDG_CACHE_HOME", ".cache"), "wiedergabe");
}

std::string Rechnereinstellungsdatei() {
    return PfadVerbinden(PfadVerbinden("/etc/xdg", Unterordner), Einstellungsname);
}

Temporärindex::Temporärindex(std::string_view Programmordner)
    : Anspruch(NameBelegen(std::string(Programmordner))),
      Name(Anspruch ? PfadVerbinden(Programmordner, "tmp.lwi") : FreierName(Programmordner)) {}

Temporärindex::~Temporärindex() {
    if (!Anspruch && EigeneDatei(Name)) static_cast<void>(DateiLöschen(Name));
}

}  // namespace liedwerk
