#include "plattform/linux/audiocd.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include "basis/pfad.h"
#include "basis/text.h"
#include "plattform/cdabbild.h"
#include "plattform/linux/griff.h"

namespace liedwerk {
namespace {

constexpr std::uint64_t Sektorbytes = 2352;  // of sound (IEC 60908)

struct CDPfad {
    std::string Träger;  // device or image
    std::string Name;    // what is named in it; empty: the CD itself
};

bool IstLaufwerksname(std::string_view Pfad) {
    for (const std::string_view Anfang : {"/dev/sr", "/dev/scd", "/dev/cdrom", "/dev/dvd"}) {
        if (Pfad.starts_with(Anfang) && Pfad.find('/', Anfang.size()) == std::string_view::npos) return true;
    }
    return false;
}

std::optional<CDPfad> Zerlegen(std::string_view Pfad) {
    const std::size_t Stelle = Pfad.rfind('/');
    if (Stelle == std::string_view::npos || Stelle == 0) return std::nullopt;
    const auto Träger = Systempfad(Pfad.substr(0, Stelle));
    if (!Träger || (!IstLaufwerksname(*Träger) && !IstCDAbbild(*Träger))) return std::nullopt;
    return CDPfad{*Träger, std::string(Pfad.substr(Stelle + 1))};
}

// The table of contents in a drive, entry by entry: each is a command to the drive. Nothing is open, and
// nothing read, when there is no disc.
class Geräteinhalt {
  public:
    explicit Geräteinhalt(const std::string& Gerät)
        : Griff(::open(Gerät.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
        cdrom_tochdr Kopf{};
        if (!Griff || ::ioctl(Griff.Wert(), CDROMREADTOCHDR, &Kopf) != 0) return;
        Erster = Kopf.cdth_trk0;
        Anzahl = std::max(Kopf.cdth_trk1 - Kopf.cdth_trk0 + 1, 0);
    }
    int Titelzahl() const { return Anzahl; }
    // The track of the 0-based place, at place Titelzahl() the lead-out. An entry tells its kind in its
    // control bits (IEC 60908).
    std::optional<CDSpur> Lesen(int Stelle) const {
        cdrom_tocentry Eintrag{};
        Eintrag.cdte_track = static_cast<unsigned char>(Stelle < Anzahl ? Erster + Stelle : CDROM_LEADOUT);
        Eintrag.cdte_format = CDROM_LBA;
        if (::ioctl(Griff.Wert(), CDROMREADTOCENTRY, &Eintrag) != 0) return std::nullopt;
        return CDSpur{Eintrag.cdte_addr.lba + CDVorlauf, (Eintrag.cdte_ctrl & CDROM_DATA_TRACK) != 0};
    }

  private:
    Griffhalter Griff;
    int Erster = 0;
    int Anzahl = 0;
};

std::string Titelname(std::size_t Nummer) {
    return "Track" + NullenVoran(std::to_string(Nummer), 2) + ".cda";
}

// The 0-based place of a track by its file's name.
std::optional<std::size_t> TitelstelleVon(std::string_view Name) {
    constexpr std::size_t HöchsteTitel = 99;  // IEC 60908
    for (std::size_t Stelle = 0; Stelle < HöchsteTitel; ++Stelle)
        if (Name == Titelname(Stelle + 1)) return Stelle;
    return std::nullopt;
}

// How long the track of sound at a 0-based place is, in frames. Files are looked at one by one: of a drive
// only what belongs to this one is read.
std::optional<std::int32_t> Titelframes(const std::string& Träger, std::size_t Stelle) {
    std::optional<CDSpur> Spur;
    std::optional<CDSpur> Ende;
    if (IstCDAbbild(Träger)) {
        const CDInhalt Inhalt = CDAbbildLesen(Träger);
        if (Stelle >= Inhalt.Spuren.size()) return std::nullopt;
        Spur = Inhalt.Spuren[Stelle];
        Ende = Stelle + 1 < Inhalt.Spuren.size() ? Inhalt.Spuren[Stelle + 1] : CDSpur{Inhalt.LeadOut, false};
    } else {
        const Geräteinhalt Gerät(Träger);
        const int Hier = static_cast<int>(Stelle);
        if (Hier >= Gerät.Titelzahl()) return std::nullopt;
        Spur = Gerät.Lesen(Hier);
        Ende = Gerät.Lesen(Hier + 1);
    }
    if (!Spur || !Ende || Spur->Daten || Ende->Offset < Spur->Offset) return std::nullopt;
    return Ende->Offset - Spur->Offset;
}

std::optional<struct stat> Trägerangaben(const std::string& Träger) {
    struct stat Angaben {};
    if (::stat(Träger.c_str(), &Angaben) != 0) return std::nullopt;
    if (IstCDAbbild(Träger) ? !S_ISREG(Angaben.st_mode) : !S_ISBLK(Angaben.st_mode)) return std::nullopt;
    return Angaben;
}

}  // namespace

CDInhalt GeräteinhaltLesen(const std::string& Gerät) {
    const Geräteinhalt Quelle(Gerät);
    CDInhalt Inhalt;
    for (int Stelle = 0; Stelle < Quelle.Titelzahl(); ++Stelle) {
        const auto Spur = Quelle.Lesen(Stelle);
        if (!Spur) return {};
        Inhalt.Spuren.push_back(*Spur);
    }
    const auto LeadOut = Quelle.Lesen(Quelle.Titelzahl());
    if (!LeadOut) return {};
    Inhalt.LeadOut = LeadOut->Offset;
    return Inhalt;
}

std::optional<std::string> CDDesPfades(std::string_view Pfad) {
    const auto Teile = Zerlegen(Pfad);
    if (!Teile) return std::nullopt;
    struct stat Angaben {};
    if (::stat(Teile->Träger.c_str(), &Angaben) == 0 && S_ISDIR(Angaben.st_mode)) return std::nullopt;
    return Teile->Träger + "/";
}

std::optional<Dateistand> CDStandLesen(std::string_view Pfad) {
    const auto Teile = Zerlegen(Pfad);
    const auto Angaben = Teile ? Trägerangaben(Teile->Träger) : std::nullopt;
    if (!Angaben) return std::nullopt;
    Dateistand Stand = StandVon(*Angaben);
    Stand.IstDatei = !Teile->Name.empty();
    Stand.IstOrdner = Teile->Name.empty();
    if (Stand.IstOrdner) return Stand;
    const auto Stelle = TitelstelleVon(Teile->Name);
    const auto Frames = Stelle ? Titelframes(Teile->Träger, *Stelle) : std::nullopt;
    if (!Frames) return std::nullopt;
    Stand.Größe = static_cast<std::uint64_t>(*Frames) * Sektorbytes;
    // Each track is a file of its own.
    Stand.Inode ^= (static_cast<std::uint64_t>(*Stelle) + 1) << 48U;
    return Stand;
}

bool CDAuflisten(std::string_view Ordner, const std::function<bool(const Ordnereintrag&)>& Besuch) {
    const auto Teile = Zerlegen(MitTrenner(Ordner));
    if (!Teile || !Trägerangaben(Teile->Träger)) return false;
    const CDInhalt Inhalt =
        IstCDAbbild(Teile->Träger) ? CDAbbildLesen(Teile->Träger) : GeräteinhaltLesen(Teile->Träger);
    for (std::size_t i = 0; i < Inhalt.Spuren.size(); ++i) {
        if (Inhalt.Spuren[i].Daten) continue;
        Ordnereintrag Eintrag;
        Eintrag.Name = Titelname(i + 1);
        if (!Besuch(Eintrag)) break;
    }
    return !Inhalt.Spuren.empty();
}

}  // namespace liedwerk
