// Overwriting a span of a file in place. POSIX, with the reservation of room that Linux has.
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "basis/datei.h"
#include "basis/mehrfachnamen.h"
#include "plattform/linux/griff.h"
#include "plattform/linux/systemfehler.h"

namespace liedwerk {
namespace {

// Claims the room behind the end of the file before a byte of it is changed: a full disk then shows while
// nothing has happened yet. Where the file system cannot, the write itself will tell.
bool PlatzBelegen(int Griff, std::uint64_t Größe, std::uint64_t Ende) {
    if (Ende <= Größe) return true;
    const auto Belegen = [&] {
        return ::fallocate(Griff, FALLOC_FL_KEEP_SIZE, static_cast<off_t>(Größe),
                           static_cast<off_t>(Ende - Größe));
    };
    return Beharrlich(Belegen) == 0 || errno == EOPNOTSUPP || errno == ENOSYS;
}

bool SpanneSchreiben(int Griff, std::uint64_t Stelle, std::string_view Bytes) {
    // One call in all but the rarest cases.
    while (!Bytes.empty()) {
        const auto Anzahl = Beharrlich(
            [&] { return ::pwrite(Griff, Bytes.data(), Bytes.size(), static_cast<off_t>(Stelle)); });
        if (Anzahl <= 0) {
            if (Anzahl == 0) errno = EIO;
            return false;
        }
        Bytes.remove_prefix(static_cast<std::size_t>(Anzahl));
        Stelle += static_cast<std::uint64_t>(Anzahl);
    }
    return true;
}

bool SpanneLesen(int Griff, std::uint64_t Stelle, std::string& Bytes) {
    std::size_t Gelesen = 0;
    while (Gelesen < Bytes.size()) {
        const auto Anzahl = Beharrlich([&] {
            return ::pread(Griff, Bytes.data() + Gelesen, Bytes.size() - Gelesen,
                           static_cast<off_t>(Stelle + Gelesen));
        });
        if (Anzahl <= 0) {
            if (Anzahl == 0) errno = EIO;
            return false;
        }
        Gelesen += static_cast<std::size_t>(Anzahl);
    }
    return true;
}

// Puts the old bytes and the old length back after a write that went wrong on the way; false when that is
// refused too.
bool Zurücknehmen(int Griff, std::uint64_t Größe, std::uint64_t Stelle, std::string_view Alt) {
    const bool Geschrieben = SpanneSchreiben(Griff, Stelle, Alt);
    const bool Gekürzt = Beharrlich([&] { return ::ftruncate(Griff, static_cast<off_t>(Größe)); }) == 0;
    return Festschreiben(Griff) && Geschrieben && Gekürzt;
}

// Opens a file for overwriting while it is in the state that the caller has seen.
Dateifehler BekanntesÖffnen(std::string_view Pfad, const Dateistand& Erwartet, Griffhalter& Ergebnis,
                            struct stat& Angaben) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return LetzterSystemfehler();
    Griffhalter Griff(
        Beharrlich([&] { return ::open(Name->c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!Griff || ::fstat(Griff.Wert(), &Angaben) != 0) return LetzterSystemfehler();
    if (!S_ISREG(Angaben.st_mode)) return Systemfehler(EINVAL, "Das ist keine gewöhnliche Datei");
    if (StandVon(Angaben) != Erwartet) return Systemfehler(EBUSY, DateiVerändert);
    Ergebnis.Tauschen(Griff);
    return {};
}

// Sets the modification time. Where the system does not let us, the person is asked more often than needed.
void ZeitSetzen(int Griff, const timespec& Zeit) {
    const timespec Zeiten[2] = {{0, UTIME_OMIT}, Zeit};
    ::futimens(Griff, Zeiten);
}

// Gives the helper file the time by which a torn file is known again, and brings that to the disk.
Dateifehler ZeitVermerken(std::string_view Hilfsdatei, const timespec& Zeit) {
    const auto Name = Systempfad(Hilfsdatei);
    if (!Name) return LetzterSystemfehler();
    const Griffhalter Griff(Beharrlich(
        [&] { return ::open(Name->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW); }));
    if (!Griff) return LetzterSystemfehler();
    ZeitSetzen(Griff.Wert(), Zeit);
    return Festschreiben(Griff.Wert()) ? Dateifehler{} : LetzterSystemfehler();
}

// Whether the name leads to the open file by itself: what a stranger has put there since is not read.
bool IstSelbst(std::string_view Pfad, const Lesedatei& Datei) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    return Name && ::lstat(Name->c_str(), &Angaben) == 0 && S_ISREG(Angaben.st_mode) &&
           Angaben.st_dev == Datei.Stand().Gerät && Angaben.st_ino == Datei.Stand().Inode;
}

// Every change is followed by the old time at once, also one that failed half-way.
Dateifehler BlöckeÜbertragen(int Griff, const Lesedatei& Quelle, const timespec& Zeit,
                             const Kopierfortschritt& Weiter) {
    constexpr std::uint64_t Blockgröße = 1 << 20;
    for (std::uint64_t Stelle = 0; Stelle < Quelle.Größe(); Stelle += Blockgröße) {
        const std::string Block = Quelle.Lesen(Stelle, Blockgröße);
        if (Block.size() != std::min(Blockgröße, Quelle.Größe() - Stelle)) return Systemfehler(EIO);
        Dateifehler Fehler;
        if (!SpanneSchreiben(Griff, Stelle, Block)) Fehler = LetzterSystemfehler();
        ZeitSetzen(Griff, Zeit);
        if (Fehler) return Fehler;
        if (Weiter && !Weiter(Stelle + Block.size())) return Systemfehler(ECANCELED);
    }
    if (Beharrlich([&] { return ::ftruncate(Griff, static_cast<off_t>(Quelle.Größe())); }) != 0)
        return LetzterSystemfehler();
    ZeitSetzen(Griff, Zeit);
    return Festschreiben(Griff) ? Dateifehler{} : LetzterSystemfehler();
}

}  // namespace

Dateifehler DateiÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet, std::uint64_t Stelle,
                               std::string_view Bytes) {
    Griffhalter Griff;
    struct stat Angaben {};
    if (auto Fehler = BekanntesÖffnen(Pfad, Erwartet, Griff, Angaben)) return Fehler;
    const std::uint64_t Größe = Erwartet.Größe;
    std::string Alt(Stelle < Größe ? std::min<std::uint64_t>(Bytes.size(), Größe - Stelle) : 0, '\0');
    if (!SpanneLesen(Griff.Wert(), Stelle, Alt)) return LetzterSystemfehler();
    if (Alt == Bytes) return {};
    if (!PlatzBelegen(Griff.Wert(), Größe, Stelle + Bytes.size())) return LetzterSystemfehler();
    if (SpanneSchreiben(Griff.Wert(), Stelle, Bytes) && Festschreiben(Griff.Wert())) return {};
    auto Fehler = LetzterSystemfehler();
    if (!Zurücknehmen(Griff.Wert(), Größe, Stelle, Alt))
        Fehler.Text +=
            ". Auch ihr alter Inhalt ließ sich nicht wiederherstellen: Die Datei kann beschädigt sein, bitte "
            "prüfen Sie diese";
    return Fehler;
}

bool HatWeitereNamen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    return Name && ::stat(Name->c_str(), &Angaben) == 0 && S_ISREG(Angaben.st_mode) && Angaben.st_nlink > 1;
}

bool IstHilfsdateiVon(std::string_view Hilfsdatei, std::string_view Datei) {
    if (EigeneDatei(Hilfsdatei)) return true;
    const auto Name = Systempfad(Hilfsdatei);
    const auto Neben = Systempfad(Datei);
    struct stat Angaben {};
    struct stat Alt {};
    return ::geteuid() == 0 && Name && Neben && ::lstat(Name->c_str(), &Angaben) == 0 &&
           ::stat(Neben->c_str(), &Alt) == 0 && S_ISREG(Angaben.st_mode) && Angaben.st_nlink == 1 &&
           Angaben.st_uid == Alt.st_uid;
}

Dateifehler DateiinhaltÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet,
                                     std::string_view Quelle, const Kopierfortschritt& Weiter,
                                     bool& Angefangen) {
    Angefangen = false;
    Dateifehler Fehler;
    const Lesedatei Neu = Lesedatei::Öffnen(Quelle, &Fehler);
    if (Fehler) return Fehler;
    if (!IstSelbst(Quelle, Neu)) return Systemfehler(EINVAL, "Die Hilfsdatei ist ein Verweis");
    Griffhalter Griff;
    struct stat Alt {};
    Fehler = BekanntesÖffnen(Pfad, Erwartet, Griff, Alt);
    if (Fehler) return Fehler;
    if (!PlatzBelegen(Griff.Wert(), Erwartet.Größe, Neu.Größe())) Fehler = LetzterSystemfehler();
    ZeitSetzen(Griff.Wert(), Alt.st_mtim);
    if (!Fehler) Fehler = ZeitVermerken(Quelle, Alt.st_mtim);
    if (Fehler) return Fehler;
    Angefangen = true;
    return BlöckeÜbertragen(Griff.Wert(), Neu, Alt.st_mtim, Weiter);
}

bool GleicheÄnderungszeit(std::string_view Eine, std::string_view Andere) {
    const auto A = Systempfad(Eine);
    const auto B = Systempfad(Andere);
    struct stat VonA {};
    struct stat VonB {};
    return A && B && ::stat(A->c_str(), &VonA) == 0 && ::stat(B->c_str(), &VonB) == 0 &&
           VonA.st_mtim.tv_sec == VonB.st_mtim.tv_sec && VonA.st_mtim.tv_nsec == VonB.st_mtim.tv_nsec;
}

void ÄnderungszeitErneuern(std::string_view Pfad) {
    const timespec Zeiten[2] = {{0, UTIME_OMIT}, {0, UTIME_NOW}};
    if (const auto Name = Systempfad(Pfad)) ::utimensat(AT_FDCWD, Name->c_str(), Zeiten, 0);
}

}  // namespace liedwerk
