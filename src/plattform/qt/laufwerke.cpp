#include "plattform/qt/laufwerke.h"

#include <algorithm>
#include <sys/stat.h>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "plattform/linux/audiocd.h"
#include "plattform/qt/systembus.h"

namespace liedwerk {
namespace {

// A link that is bent while a run is on shows after this time.
constexpr std::chrono::seconds Merkzeit(1);
constexpr std::size_t HöchsteMerkzahl = 4096;
constexpr std::uint64_t HöchsteTabelle = 1 << 20;  // bytes of /etc/fstab

bool HatLaufwerksbuchstaben(std::string_view Pfad) {
    return Pfad.size() >= 2 && Pfad[1] == ':';
}

// True when a name lies on the same drive as the folder that holds it: for everything but folders, links, and
// the places of removable media that are not there now.
bool LiegtBeimOrdner(std::string_view Pfad) {
    struct stat Angaben {};
    if (::lstat(std::string(Pfad).c_str(), &Angaben) == 0)
        return !S_ISDIR(Angaben.st_mode) && !S_ISLNK(Angaben.st_mode);
    return Wechselort(Pfad) != MitTrenner(Pfad);
}

// The kind of a mount outside of the places for removable media, whose line does not tell.
Laufwerksart FesteArtPrüfen(const Einhängung& Eingehängt) {
    if (Eingehängt.Ort == "/" || !Eingehängt.Quelle.starts_with("/dev/")) return Laufwerksart::Fest;
    if (GerätIstWechselbar(Eingehängt)) return Laufwerksart::Wechsel;
    const auto Gerät = BlockgerätFragen(Eingehängt.Quelle);
    return Gerät && !Gerät->System ? Laufwerksart::Wechsel : Laufwerksart::Fest;
}

}  // namespace

Systemlaufwerke::Systemlaufwerke()
    : Vorgesehene(VorgeseheneLesen(DateiLesen("/etc/fstab", HöchsteTabelle).value_or(""))) {}

// The nearest of these places that holds the folder; null when there is none.
const Einhängung* Systemlaufwerke::VorgeseheneFür(std::string_view Ordner) const {
    const std::string AlsOrdner = MitTrenner(Ordner);
    const auto Fund = std::find_if(Vorgesehene.begin(), Vorgesehene.end(), [&](const Einhängung& Eintrag) {
        return AlsOrdner.starts_with(Eintrag.Ort);
    });
    return Fund == Vorgesehene.end() ? nullptr : &*Fund;
}

// True for a place where the files of a server are to appear.
bool Systemlaufwerke::IstNetzort(std::string_view Laufwerk) const {
    const auto* Vorgesehen = VorgeseheneFür(Laufwerk);
    return Vorgesehen != nullptr && Vorgesehen->Ort == Laufwerk &&
           ArtVon(*Vorgesehen) == Laufwerksart::Netzwerk;
}

// The drive on which the files of a folder lie. An operation over many files asks for neighbours.
std::string Systemlaufwerke::OrdnerlaufwerkVon(std::string_view Ordner) const {
    const auto& Einhängungen = Tabelle.Jetzt();
    const auto Jetzt = std::chrono::steady_clock::now();
    if (OrdnerStand != Tabelle.Stand() || Jetzt - OrdnerZeit > Merkzeit ||
        Ordnerlaufwerke.size() > HöchsteMerkzahl) {
        Ordnerlaufwerke.clear();
        OrdnerStand = Tabelle.Stand();
        OrdnerZeit = Jetzt;
    }
    auto& Laufwerk = Ordnerlaufwerke[std::string(Ordner)];
    if (Laufwerk.empty()) {
        const std::string Ziel = LinksFolgen(Ordner);
        Laufwerk = liedwerk::LaufwerkVon(Einhängungen, Ziel);
        const auto* Vorgesehen = VorgeseheneFür(Ziel);
        if (Vorgesehen != nullptr && Vorgesehen->Ort.size() > Laufwerk.size()) Laufwerk = Vorgesehen->Ort;
    }
    return Laufwerk;
}

std::string Systemlaufwerke::LaufwerkVon(std::string_view Pfad) const {
    if (!IstPosixPfad(Pfad)) return std::string(HatLaufwerksbuchstaben(Pfad) ? Pfad.substr(0, 3) : "");
    if (auto CD = CDDesPfades(Pfad)) return std::move(*CD);
    const std::lock_guard Gesperrt(Riegel);
    return OrdnerlaufwerkVon(LiegtBeimOrdner(Pfad) ? PfadVon(Pfad) : Pfad);
}

Laufwerksart Systemlaufwerke::Art(std::string_view Laufwerk) const {
    if (!IstPosixPfad(Laufwerk)) return Laufwerksart::Unbekannt;
    if (CDDesPfades(Laufwerk) == Laufwerk) return Laufwerksart::CdRom;
    const std::lock_guard Gesperrt(Riegel);
    const auto* Eingehängt = EinhängungAn(Tabelle.Jetzt(), Laufwerk);
    if (Eingehängt == nullptr) {
        if (IstNetzort(Laufwerk)) return Laufwerksart::Netzwerk;
        return Wechselort(Laufwerk) == Laufwerk ? Laufwerksart::Wechsel : Laufwerksart::Keines;
    }
    const auto NachZeile = ArtVon(*Eingehängt);
    if (NachZeile != Laufwerksart::Fest) return NachZeile;
    if (ArtenStand != Tabelle.Stand()) {
        Arten.clear();
        ArtenStand = Tabelle.Stand();
    }
    const auto Bekannt = Arten.find(Laufwerk);
    if (Bekannt != Arten.end()) return Bekannt->second;
    return Arten[std::string(Laufwerk)] = FesteArtPrüfen(*Eingehängt);
}

std::string Systemlaufwerke::Datenträgername(std::string_view Laufwerk) const {
    if (!IstPosixPfad(Laufwerk)) return {};
    const std::lock_guard Gesperrt(Riegel);
    const auto* Eingehängt = EinhängungAn(Tabelle.Jetzt(), Laufwerk);
    if (Eingehängt == nullptr) return {};
    if (ArtVon(*Eingehängt) == Laufwerksart::Netzwerk) return Eingehängt->Quelle;
    if (!Eingehängt->Quelle.starts_with("/dev/")) return {};
    const auto Gerät = BlockgerätFragen(Eingehängt->Quelle);
    return Gerät ? Gerät->Name : DatenträgernameVon(*Eingehängt);
}

bool Systemlaufwerke::Vorhanden(std::string_view Laufwerk) const {
    if (!IstPosixPfad(Laufwerk)) return false;
    if (CDDesPfades(Laufwerk) == Laufwerk) return OrdnerExistiert(Laufwerk);
    const std::lock_guard Gesperrt(Riegel);
    if (EinhängungAn(Tabelle.Jetzt(), Laufwerk) != nullptr) return true;
    // A plain folder in a place for removable media stands for one; one where a server belongs tells nothing
    // of that server.
    return !IstNetzort(Laufwerk) && Wechselort(Laufwerk) == Laufwerk && OrdnerExistiert(Laufwerk);
}

}  // namespace liedwerk
