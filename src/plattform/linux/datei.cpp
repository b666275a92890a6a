// Looking at files, reading them, and the small changes of names. POSIX.
#include "basis/datei.h"

#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "basis/dateiname.h"
#include "basis/pfad.h"
#include "plattform/linux/audiocd.h"
#include "plattform/linux/griff.h"
#include "plattform/linux/systemfehler.h"

namespace liedwerk {
namespace {

// Reading: a pipe or a device must never hold us up, and no program that we start may inherit the descriptor.
constexpr int ZumLesen = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

std::optional<struct stat> AngabenLesen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    if (!Name || ::stat(Name->c_str(), &Angaben) != 0) return std::nullopt;
    return Angaben;
}

// A name beside Ziel for a helper file; cut where the file system could not hold it.
std::string Hilfsname(std::string_view Ziel, std::string_view Ende) {
    constexpr std::size_t Namenslänge = 255;
    const std::size_t Name = Ziel.size() - (Ziel.rfind('/') + 1);
    std::size_t Länge = Ziel.size();
    if (Name + Ende.size() > Namenslänge) Länge -= std::min(Name, Name + Ende.size() - Namenslänge);
    // Half a character is no name everywhere.
    while (Länge < Ziel.size() && (static_cast<unsigned char>(Ziel[Länge]) & 0xC0U) == 0x80)
        --Länge;
    return std::string(Ziel.substr(0, Länge)).append(Ende);
}

// The same with a number of the whole path in it, so that nobody else calls a file so: under that name lies
// nothing, or what a copy to this very target has left behind when it was interrupted. One that is being
// written stays. The first name once a hundred are taken; opening it then tells what is wrong.
std::string FreierHilfsname(std::string_view Ziel, std::string_view Ende) {
    constexpr int Versuche = 100;
    struct stat Angaben {};
    const std::string Mitte = "~" + KennzahlText(Ziel);
    for (int Nummer = 1; Nummer <= Versuche; ++Nummer) {
        const std::string Zähler = Nummer == 1 ? "" : "-" + std::to_string(Nummer);
        std::string Name = Hilfsname(Ziel, (Mitte + Zähler).append(Ende));
        if (::lstat(Name.c_str(), &Angaben) != 0) return Name;
        if (EigeneDatei(Name) && SperreLesen(Name) == Sperrzustand::Frei) return Name;
    }
    return Hilfsname(Ziel, std::string(Mitte).append(Ende));
}

// True when the content is that of the state before, by its size and its exact time.
bool Unverändert(const std::optional<Änderungsspur>& Vorher, std::string_view Pfad) {
    const auto Jetzt = ÄnderungsspurLesen(Pfad);
    return Vorher && Jetzt && Jetzt->Stand == Vorher->Stand && Jetzt->Änderung == Vorher->Änderung;
}

}  // namespace

std::optional<std::string> Systempfad(std::string_view Pfad) {
    if (Pfad.find('\0') != std::string_view::npos) {
        errno = EINVAL;
        return std::nullopt;
    }
    if (!IstPosixPfad(Pfad)) {
        errno = ENOENT;
        return std::nullopt;
    }
    return std::string(Pfad);
}

Griffhalter::~Griffhalter() {
    if (Griff >= 0) ::close(Griff);
}

int Griffhalter::Lösen() {
    return std::exchange(Griff, -1);
}

Dateistand StandVon(const struct stat& Angaben) {
    Dateistand Stand;
    Stand.Größe = static_cast<std::uint64_t>(std::max<off_t>(Angaben.st_size, 0));
    Stand.Änderungszeit = Angaben.st_mtime;
    Stand.Gerät = Angaben.st_dev;
    Stand.Inode = Angaben.st_ino;
    Stand.IstOrdner = S_ISDIR(Angaben.st_mode);
    Stand.IstDatei = S_ISREG(Angaben.st_mode);
    return Stand;
}

bool DieselbeDatei(const struct stat& A, const struct stat& B) {
    return A.st_dev == B.st_dev && A.st_ino == B.st_ino;
}

bool SperrenFehlen(int Nummer) {
    return Nummer == ENOLCK || Nummer == EOPNOTSUPP || Nummer == ENOSYS || Nummer == EINVAL ||
           Nummer == EBADF;
}

bool Festschreiben(int Griff) {
    return Beharrlich([&] { return ::fsync(Griff); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

std::string OrdnerVon(const std::string& Pfad) {
    const std::size_t Stelle = Pfad.rfind('/');
    if (Stelle == std::string::npos) return ".";
    return Pfad.substr(0, std::max<std::size_t>(Stelle, 1));
}

void OrdnerFestschreiben(const std::string& Ordner) {
    const Griffhalter Griff(::open(Ordner.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (Griff) Beharrlich([&] { return ::fsync(Griff.Wert()); });
}

std::optional<Dateistand> DateistandLesen(std::string_view Pfad) {
    if (const auto Angaben = AngabenLesen(Pfad)) return StandVon(*Angaben);
    return errno == ENOTDIR ? CDStandLesen(Pfad) : std::nullopt;
}

std::optional<Änderungsspur> ÄnderungsspurLesen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return std::nullopt;
    const Griffhalter Griff(Beharrlich([&] { return ::open(Name->c_str(), ZumLesen); }));
    struct stat Angaben {};
    if (!Griff || ::fstat(Griff.Wert(), &Angaben) != 0 || !S_ISREG(Angaben.st_mode)) return std::nullopt;
    return Änderungsspur{StandVon(Angaben), Angaben.st_mtim.tv_nsec, Angaben.st_ctim.tv_sec,
                         Angaben.st_ctim.tv_nsec};
}

bool DateiExistiert(std::string_view Pfad) {
    if (Pfad.empty() || Pfad.back() == '/') return false;
    // A drive or a folder on Windows; a POSIX name may end so, and what lies there must not count as absent.
    if (!IstPosixPfad(Pfad) && (Pfad.back() == ':' || Pfad.back() == '\\')) return false;
    const auto Stand = DateistandLesen(Pfad);
    return Stand && !Stand->IstOrdner;
}

bool OrdnerExistiert(std::string_view Pfad) {
    const auto Stand = DateistandLesen(Pfad);
    return Stand && Stand->IstOrdner;
}

bool DateiBeschreibbar(std::string_view Pfad) {
    if (!DateiExistiert(Pfad)) return false;
    const Griffhalter Griff(::open(Systempfad(Pfad)->c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    return static_cast<bool>(Griff);
}

bool EigeneDatei(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    return Name && ::lstat(Name->c_str(), &Angaben) == 0 && S_ISREG(Angaben.st_mode) &&
           Angaben.st_nlink == 1 && Angaben.st_uid == ::geteuid();
}

std::string HilfsdateiBleibt(std::string_view Hilfsdatei) {
    return ". Die Hilfsdatei '" + std::string(Hilfsdatei) +
           "' ließ sich nicht löschen; löschen Sie diese selbst";
}

Dateifehler DateiLöschen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    if (!Name || ::unlink(Name->c_str()) != 0) return LetzterSystemfehler();
    return {};
}

bool NameWechseln(const std::string& Alt, const std::string& Neu, Vorhandenes Regel) {
    if (Regel == Vorhandenes::Ersetzen) return std::rename(Alt.c_str(), Neu.c_str()) == 0;
    if (::renameat2(AT_FDCWD, Alt.c_str(), AT_FDCWD, Neu.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // A file system that cannot do both in one step: then the look in front is all there is.
    struct stat Angaben {};
    if (::lstat(Neu.c_str(), &Angaben) == 0) {
        errno = EEXIST;
        return false;
    }
    return std::rename(Alt.c_str(), Neu.c_str()) == 0;
}

Dateifehler DateiUmbenennen(std::string_view Alt, std::string_view Neu, Vorhandenes Regel) {
    const auto AlterName = Systempfad(Alt);
    const auto NeuerName = Systempfad(Neu);
    if (!AlterName || !NeuerName || !NameWechseln(*AlterName, *NeuerName, Regel)) {
        return LetzterSystemfehler();
    }
    const std::string Ordner = OrdnerVon(*NeuerName);
    OrdnerFestschreiben(Ordner);
    if (OrdnerVon(*AlterName) != Ordner) OrdnerFestschreiben(OrdnerVon(*AlterName));
    return {};
}

Dateifehler OrdnerAnlegen(std::string_view Pfad, Zugang FürNeue) {
    const auto Ganz = Systempfad(Pfad);
    if (!Ganz) return LetzterSystemfehler();
    for (std::size_t Ende = 0; Ende < Ganz->size();) {
        Ende = std::min(Ganz->find('/', Ende + 1), Ganz->size());
        const std::string Teil = Ganz->substr(0, Ende);
        // What exists need not be writable, and mkdir asks about that first on some file systems.
        if (OrdnerExistiert(Teil)) continue;
        if (::mkdir(Teil.c_str(), FürNeue == Zugang::Üblich ? 0777 : 0700) == 0) continue;
        auto Fehler = LetzterSystemfehler();
        // Another program may have made it meanwhile.
        if (!OrdnerExistiert(Teil)) return Fehler;
    }
    return {};
}

bool AnderesDateisystem(const Dateifehler& Fehler) {
    return Fehler.Nummer == EXDEV;
}

bool NameVerzeichnet(std::string_view Pfad) {
    const auto Ganz = Systempfad(Pfad);
    if (!Ganz) return false;
    DIR* const Offen = ::opendir(OrdnerVon(*Ganz).c_str());
    if (Offen == nullptr) return false;
    const std::string Name = Ganz->substr(Ganz->rfind('/') + 1);
    bool Gefunden = false;
    while (const dirent* Eintrag = Gefunden ? nullptr : ::readdir(Offen))
        Gefunden = Name == Eintrag->d_name;
    ::closedir(Offen);
    return Gefunden;
}

Dateifehler DateiNeuAnlegen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return LetzterSystemfehler();
    const Griffhalter Griff(
        Beharrlich([&] { return ::open(Name->c_str(), O_WRONLY | O_CLOEXEC | O_CREAT | O_EXCL, 0666); }));
    if (!Griff) return LetzterSystemfehler();
    OrdnerFestschreiben(OrdnerVon(*Name));
    return {};
}

Dateifehler DateiAnhängen(std::string_view Pfad, std::string_view Bytes) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return LetzterSystemfehler();
    constexpr int Art = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    const Griffhalter Griff(Beharrlich([&] { return ::open(Name->c_str(), Art, S_IRUSR | S_IWUSR); }));
    struct stat Angaben {};
    if (!Griff || ::fstat(Griff.Wert(), &Angaben) != 0) return LetzterSystemfehler();
    if (!S_ISREG(Angaben.st_mode)) return Systemfehler(EINVAL, "Sie ist keine gewöhnliche Datei");
    const auto Anzahl = Beharrlich([&] { return ::write(Griff.Wert(), Bytes.data(), Bytes.size()); });
    if (Anzahl < 0) return LetzterSystemfehler();
    return static_cast<std::size_t>(Anzahl) == Bytes.size() ? Dateifehler() : Systemfehler(ENOSPC);
}

Dateifehler OrdnerLöschen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    if (!Name || ::rmdir(Name->c_str()) != 0) return LetzterSystemfehler();
    return {};
}

Dateifehler SchreibschutzSetzen(std::string_view Pfad, bool Geschützt) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    if (!Name || ::stat(Name->c_str(), &Angaben) != 0) return LetzterSystemfehler();
    const mode_t Alt = Angaben.st_mode & 07777;
    const mode_t Alle = S_IWUSR | S_IWGRP | S_IWOTH;
    const mode_t Neu = Geschützt ? Alt & ~Alle : Alt | S_IWUSR;
    if (Neu != Alt && ::chmod(Name->c_str(), Neu) != 0) return LetzterSystemfehler();
    return {};
}

Dateifehler DateiKopieren(std::string_view Quelle, std::string_view Ziel, Vorhandenes Regel,
                          const Kopierfortschritt& Weiter) {
    Dateifehler Fehler;
    const auto Vorher = ÄnderungsspurLesen(Quelle);
    const Lesedatei Von = Lesedatei::Öffnen(Quelle, &Fehler);
    if (!Von.Offen()) return Fehler;
    struct stat Stand {};
    if (::lstat(std::string(Ziel).c_str(), &Stand) == 0 && S_ISLNK(Stand.st_mode)) {
        // The name is replaced, never the file that it leads to.
        const std::string Daneben = FreierHilfsname(Ziel, "~lwiverweis");
        if ((Fehler = DateiKopieren(Quelle, Daneben, Vorhandenes::Ersetzen, Weiter))) return Fehler;
        if ((Fehler = DateiUmbenennen(Daneben, Ziel, Regel))) DateiLöschen(Daneben);
        return Fehler;
    }
    Dateiersatz Nach;
    switch (Nach.Öffnen(std::string(Ziel), FreierHilfsname(Ziel, KopieEndung), std::string(Quelle))) {
        case Dateiersatz::Öffnung::Gesperrt:
            return Systemfehler(EAGAIN);
        case Dateiersatz::Öffnung::Fehler:
            return Nach.Fehler();
        case Dateiersatz::Öffnung::Bereit:
            break;
    }
    if (!Nach.Kopieren(Von, Weiter)) {
        Nach.Verwerfen();
        return Nach.Fehler();
    }
    // A file that somebody is still writing (a download) would come out as a part of itself.
    if (!Unverändert(Vorher, Quelle))
        return Systemfehler(EBUSY, "Die Quelldatei wurde während des Kopierens verändert");
    if (!Nach.Übernehmen(false, Regel)) return Nach.Fehler();
    if (Nach.Stand().Größe != Von.Größe()) return Systemfehler(EIO);
    return {};
}

Lesedatei Lesedatei::Öffnen(std::string_view Pfad, Dateifehler* Fehler) {
    const auto Scheitern = [&](Dateifehler Grund) {
        if (Fehler != nullptr) *Fehler = std::move(Grund);
        return Lesedatei();
    };
    const auto Name = Systempfad(Pfad);
    if (!Name) return Scheitern(LetzterSystemfehler());
    Griffhalter Neu(Beharrlich([&] { return ::open(Name->c_str(), ZumLesen); }));
    struct stat Angaben {};
    if (!Neu || ::fstat(Neu.Wert(), &Angaben) != 0) return Scheitern(LetzterSystemfehler());
    if (S_ISDIR(Angaben.st_mode)) return Scheitern(Systemfehler(EISDIR));
    if (!S_ISREG(Angaben.st_mode)) {
        return Scheitern(
            Systemfehler(EINVAL, "Das ist keine gewöhnliche Datei, sondern ein Gerät oder Ähnliches"));
    }
    Lesedatei Datei;
    Datei.Griff = Neu.Lösen();
    Datei.Zustand = StandVon(Angaben);
    return Datei;
}

Lesedatei::Lesedatei(Lesedatei&& Andere) noexcept
    : Griff(std::exchange(Andere.Griff, -1)),
      Zustand(std::exchange(Andere.Zustand, {})),
      Gestört(std::exchange(Andere.Gestört, false)) {}

Lesedatei& Lesedatei::operator=(Lesedatei&& Andere) noexcept {
    std::swap(Griff, Andere.Griff);
    std::swap(Zustand, Andere.Zustand);
    std::swap(Gestört, Andere.Gestört);
    return *this;
}

Lesedatei::~Lesedatei() {
    if (Griff >= 0) ::close(Griff);
}

Dateifehler Lesedatei::Sperren(std::string_view Pfad) const {
    if (Beharrlich([&] { return ::flock(Griff, LOCK_EX | LOCK_NB); }) != 0 && !SperrenFehlen(errno))
        return Systemfehler(errno == EWOULDBLOCK ? EAGAIN : errno);
    const auto Jetzt = DateistandLesen(Pfad);
    if (!Jetzt) return LetzterSystemfehler();
    return *Jetzt == Zustand ? Dateifehler() : Systemfehler(EBUSY, DateiVerändert);
}

std::uint32_t Lesedatei::Generation() const {
    // The call is declared with a long, but file systems fill in an int.
    long Nummer = 0;
    if (::ioctl(Griff, FS_IOC_GETVERSION, &Nummer) != 0) return 0;
    return static_cast<std::uint32_t>(Nummer);
}

std::size_t Lesedatei::Lesen(char* Ziel, std::uint64_t Stelle, std::size_t Länge) const {
    constexpr auto LetzteStelle = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    std::size_t Gelesen = 0;
    while (Gelesen < Länge && Stelle <= LetzteStelle - Gelesen) {
        const auto Anzahl = Beharrlich([&] {
            return ::pread(Griff, Ziel + Gelesen, Länge - Gelesen, static_cast<off_t>(Stelle + Gelesen));
        });
        if (Anzahl <= 0) {
            Gestört = Gestört || Anzahl < 0 || Stelle + Gelesen < Größe();
            break;
        }
        Gelesen += static_cast<std::size_t>(Anzahl);
    }
    return Gelesen;
}

std::string Lesedatei::Lesen(std::uint64_t Stelle, std::uint64_t Länge) const {
    if (Stelle >= Größe()) return {};
    std::string Bytes(std::min(Länge, Größe() - Stelle), '\0');
    Bytes.resize(Lesen(Bytes.data(), Stelle, Bytes.size()));
    return Bytes;
}

std::optional<std::string> DateiLesen(std::string_view Pfad, std::uint64_t Höchstens) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    if (!Datei.Offen() || Datei.Größe() > Höchstens) return std::nullopt;
    std::string Inhalt = Datei.Lesen(0, Datei.Größe());
    // A part of a file must not pass for the whole.
    if (Inhalt.size() != Datei.Größe()) return std::nullopt;
    return Inhalt;
}

bool IstLesbar(std::string_view Pfad) {
    constexpr std::uint64_t Rand = 65536;
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    if (!Datei.Offen()) return false;
    static_cast<void>(Datei.Lesen(0, Rand));
    static_cast<void>(Datei.Lesen(Datei.Größe() - std::min(Rand, Datei.Größe()), Rand));
    return !Datei.Lesefehler();
}

Sperrzustand SperreLesen(std::string_view Temporär) {
    const auto Name = Systempfad(Temporär);
    if (!Name) return Sperrzustand::Keine;
    const Griffhalter Griff(Beharrlich([&] { return ::open(Name->c_str(), ZumLesen | O_NOFOLLOW); }));
    // What cannot be judged, and what is none of our files, counts as held, so that nobody deletes it.
    // A name that the file system cannot hold is nobody's file.
    if (!Griff) {
        const bool Fehlt = errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
        return Fehlt ? Sperrzustand::Keine : Sperrzustand::Gehalten;
    }
    struct stat Offen {};
    if (::fstat(Griff.Wert(), &Offen) != 0 || !S_ISREG(Offen.st_mode)) return Sperrzustand::Gehalten;
    if (Beharrlich([&] { return ::flock(Griff.Wert(), LOCK_SH | LOCK_NB); }) != 0)
        return Sperrzustand::Gehalten;
    // The save may have come to its end in between: then the name is gone, or it is a new save's.
    struct stat Jetzt {};
    if (::lstat(Name->c_str(), &Jetzt) != 0) {
        return errno == ENOENT ? Sperrzustand::Keine : Sperrzustand::Gehalten;
    }
    return DieselbeDatei(Offen, Jetzt) ? Sperrzustand::Frei : Sperrzustand::Gehalten;
}

std::string_view Dateianfang::Bis(std::uint64_t Länge) {
    constexpr std::uint64_t ErsterSchritt = 4096;
    const std::uint64_t Gewünscht = std::min(Länge, Datei.Größe());
    if (Gewünscht > Gültig) {
        const std::uint64_t Wachstum = std::max({ErsterSchritt, Gewünscht, std::uint64_t{2} * Gültig});
        Puffer.resize(std::min(Wachstum, Datei.Größe()));
        Gültig += Datei.Lesen(Puffer.data() + Gültig, Gültig, Puffer.size() - Gültig);
    }
    return std::string_view(Puffer).substr(0, std::min<std::uint64_t>(Gewünscht, Gültig));
}

}  // namespace liedwerk
