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

// Puts the old bytes and the old length back after a write that went wrong on the way.
void Zurücknehmen(int Griff, std::uint64_t Größe, std::uint64_t Stelle, std::string_view Alt) {
    SpanneSchreiben(Griff, Stelle, Alt);
    Beharrlich([&] { return ::ftruncate(Griff, static_cast<off_t>(Größe)); });
    Festschreiben(Griff);
}

// Opens a file for overwriting while it is in the state that the caller has seen.
Dateifehler BekanntesÖffnen(std::string_view Pfad, const Dateistand& Erwartet, Griffhalter& Ergebnis) {
    const auto Name = Systempfad(Pfad);
    if (!Name) return LetzterSystemfehler();
    Griffhalter Griff(
        Beharrlich([&] { return ::open(Name->c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    struct stat Angaben {};
    if (!Griff || ::fstat(Griff.Wert(), &Angaben) != 0) return LetzterSystemfehler();
    if (!S_ISREG(Angaben.st_mode)) return Systemfehler(EINVAL, "Das ist keine gewöhnliche Datei");
    if (StandVon(Angaben) != Erwartet) return Systemfehler(EBUSY, DateiVerändert);
    Ergebnis.Tauschen(Griff);
    return {};
}

}  // namespace

Dateifehler DateiÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet, std::uint64_t Stelle,
                               std::string_view Bytes) {
    Griffhalter Griff;
    if (auto Fehler = BekanntesÖffnen(Pfad, Erwartet, Griff)) return Fehler;
    const std::uint64_t Größe = Erwartet.Größe;
    std::string Alt(Stelle < Größe ? std::min<std::uint64_t>(Bytes.size(), Größe - Stelle) : 0, '\0');
    if (!SpanneLesen(Griff.Wert(), Stelle, Alt)) return LetzterSystemfehler();
    if (!PlatzBelegen(Griff.Wert(), Größe, Stelle + Bytes.size())) return LetzterSystemfehler();
    if (SpanneSchreiben(Griff.Wert(), Stelle, Bytes) && Festschreiben(Griff.Wert())) return {};
    auto Fehler = LetzterSystemfehler();
    Zurücknehmen(Griff.Wert(), Größe, Stelle, Alt);
    return Fehler;
}

bool HatWeitereNamen(std::string_view Pfad) {
    const auto Name = Systempfad(Pfad);
    struct stat Angaben {};
    return Name && ::stat(Name->c_str(), &Angaben) == 0 && S_ISREG(Angaben.st_mode) && Angaben.st_nlink > 1;
}

Dateifehler DateiinhaltÜberschreiben(std::string_view Pfad, const Dateistand& Erwartet,
                                     const Lesedatei& Quelle, bool& Angefangen) {
    constexpr std::uint64_t Blockgröße = 1 << 20;
    Angefangen = false;
    Griffhalter Griff;
    if (auto Fehler = BekanntesÖffnen(Pfad, Erwartet, Griff)) return Fehler;
    if (!PlatzBelegen(Griff.Wert(), Erwartet.Größe, Quelle.Größe())) return LetzterSystemfehler();
    Angefangen = true;
    for (std::uint64_t Stelle = 0; Stelle < Quelle.Größe(); Stelle += Blockgröße) {
        const std::string Block = Quelle.Lesen(Stelle, Blockgröße);
        if (Block.size() != std::min(Blockgröße, Quelle.Größe() - Stelle)) return Systemfehler(EIO);
        if (!SpanneSchreiben(Griff.Wert(), Stelle, Block)) return LetzterSystemfehler();
    }
    const auto Kürzen = [&] { return ::ftruncate(Griff.Wert(), static_cast<off_t>(Quelle.Größe())); };
    if (Beharrlich(Kürzen) != 0 || !Festschreiben(Griff.Wert())) return LetzterSystemfehler();
    return {};
}

}  // namespace liedwerk
