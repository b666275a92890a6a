#include "plattform/linux/audiocd.h"

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

// A drive's own list of tracks, without reading the disc further; nothing when there is no disc. An entry of
// the table tells its kind in its control bits (IEC 60908).
CDInhalt GeräteinhaltLesen(const std::string& Gerät) {
    CDInhalt Inhalt;
    const Griffhalter Griff(::open(Gerät.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    cdrom_tochdr Kopf{};
    if (!Griff || ::ioctl(Griff.Wert(), CDROMREADTOCHDR, &Kopf) != 0) return Inhalt;
    const auto Lesen = [&](int Spur, CDSpur& Neue) {
        cdrom_tocentry Eintrag{};
        Eintrag.cdte_track = static_cast<unsigned char>(Spur);
        Eintrag.cdte_format = CDROM_LBA;
        if (::ioctl(Griff.Wert(), CDROMREADTOCENTRY, &Eintrag) != 0) return false;
        Neue = {Eintrag.cdte_addr.lba + CDVorlauf, (Eintrag.cdte_ctrl & CDROM_DATA_TRACK) != 0};
        return true;
    };
    CDSpur Spur;
    for (int Nummer = Kopf.cdth_trk0; Nummer <= Kopf.cdth_trk1 && Lesen(Nummer, Spur); ++Nummer)
        Inhalt.Spuren.push_back(Spur);
    if (Lesen(CDROM_LEADOUT, Spur)) Inhalt.LeadOut = Spur.Offset;
    return Inhalt;
}

CDInhalt InhaltVon(const std::string& Träger) {
    return IstCDAbbild(Träger) ? CDAbbildLesen(Träger) : GeräteinhaltLesen(Träger);
}

std::string Titelname(std::size_t Nummer) {
    return "Track" + NullenVoran(std::to_string(Nummer), 2) + ".cda";
}

std::optional<struct stat> Trägerangaben(const std::string& Träger) {
    struct stat Angaben {};
    if (::stat(Träger.c_str(), &Angaben) != 0) return std::nullopt;
    if (IstCDAbbild(Träger) ? !S_ISREG(Angaben.st_mode) : !S_ISBLK(Angaben.st_mode)) return std::nullopt;
    return Angaben;
}

}  // namespace

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
    const CDInhalt Inhalt = InhaltVon(Teile->Träger);
    for (std::size_t i = 0; i < Inhalt.Spuren.size(); ++i) {
        if (Teile->Name != Titelname(i + 1) || Inhalt.Spuren[i].Daten) continue;
        const auto Ende = i + 1 < Inhalt.Spuren.size() ? Inhalt.Spuren[i + 1].Offset : Inhalt.LeadOut;
        Stand.Größe = static_cast<std::uint64_t>(Ende - Inhalt.Spuren[i].Offset) * Sektorbytes;
        // Each track is a file of its own.
        Stand.Inode ^= (static_cast<std::uint64_t>(i) + 1) << 48U;
        return Stand;
    }
    return std::nullopt;
}

bool CDAuflisten(std::string_view Ordner, const std::function<bool(const Ordnereintrag&)>& Besuch) {
    const auto Teile = Zerlegen(MitTrenner(Ordner));
    if (!Teile || !Trägerangaben(Teile->Träger)) return false;
    const CDInhalt Inhalt = InhaltVon(Teile->Träger);
    for (std::size_t i = 0; i < Inhalt.Spuren.size(); ++i) {
        if (Inhalt.Spuren[i].Daten) continue;
        Ordnereintrag Eintrag;
        Eintrag.Name = Titelname(i + 1);
        if (!Besuch(Eintrag)) break;
    }
    return !Inhalt.Spuren.empty();
}

}  // namespace liedwerk
