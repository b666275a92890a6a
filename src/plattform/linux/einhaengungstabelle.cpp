#include "plattform/linux/einhaengungstabelle.h"

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <linux/fs.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "basis/datei.h"

namespace liedwerk {
namespace {

constexpr std::string_view Geräteordner = "/sys/dev/block/";
constexpr const char* Namensordner = "/dev/disk/by-label";

// Files of /sys tell no true size, so they are read until they end.
std::string Ganz(int Griff) {
    std::string Text;
    std::array<char, 16384> Block;
    for (;;) {
        const auto Anzahl = Beharrlich([&] { return ::read(Griff, Block.data(), Block.size()); });
        if (Anzahl <= 0) return Text;
        Text.append(Block.data(), static_cast<std::size_t>(Anzahl));
    }
}

bool Bejaht(const std::string& Datei) {
    const Griffhalter Griff(::open(Datei.c_str(), O_RDONLY | O_CLOEXEC));
    return Griff && Ganz(Griff.Wert()).starts_with('1');
}

// The label as the file system itself tells it.
std::string NameAusDateisystem(const std::string& Ort) {
    const Griffhalter Griff(::open(Ort.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::array<char, FSLABEL_MAX + 1> Name{};
    if (!Griff || ::ioctl(Griff.Wert(), FS_IOC_GETFSLABEL, Name.data()) != 0) return {};
    return Name.data();
}

}  // namespace

Einhängungstabelle::Einhängungstabelle() : Quelle(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)) {
    Lesen();
}

const std::vector<Einhängung>& Einhängungstabelle::Jetzt() {
    pollfd Frage{Quelle.Wert(), POLLPRI, 0};
    if (Quelle && ::poll(&Frage, 1, 0) > 0) Lesen();
    return Tabelle;
}

void Einhängungstabelle::Lesen() {
    ++Änderungen;
    if (!Quelle || ::lseek(Quelle.Wert(), 0, SEEK_SET) != 0) return;
    Tabelle = EinhängungenLesen(Ganz(Quelle.Wert()));
}

bool GerätIstWechselbar(const Einhängung& Eingehängt) {
    const std::string Gerät = std::string(Geräteordner) + Eingehängt.Gerät;
    // A partition's own folder lies in that of its disk.
    if (Bejaht(Gerät + "/removable") || Bejaht(Gerät + "/../removable")) return true;
    std::error_code Fehler;
    const auto Ort = std::filesystem::canonical(Gerät, Fehler).string();
    return !Fehler && Ort.find("/usb") != std::string::npos;
}

std::string DatenträgernameVon(const Einhängung& Eingehängt) {
    std::error_code Fehler;
    for (std::filesystem::directory_iterator Eintrag(Namensordner, Fehler), Ende; !Fehler && Eintrag != Ende;
         Eintrag.increment(Fehler)) {
        std::error_code Fremd;
        if (std::filesystem::equivalent(Eintrag->path(), Eingehängt.Quelle, Fremd) && !Fremd) {
            return ZahlenfolgenAuflösen(Eintrag->path().filename().string());
        }
    }
    return NameAusDateisystem(Eingehängt.Ort);
}

}  // namespace liedwerk
