#include "plattform/qt/laufwerke.h"

#include <unistd.h>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "plattform/qt/systembus.h"

namespace liedwerk {
namespace {

// A link that is bent while a run is on shows after this time.
constexpr std::chrono::seconds Merkzeit(1);

bool HatLaufwerksbuchstaben(std::string_view Pfad) {
    return Pfad.size() >= 2 && Pfad[1] == ':';
}

bool IstLink(const std::string& Pfad) {
    char Erstes = 0;
    return ::readlink(Pfad.c_str(), &Erstes, 1) > 0;
}

// The kind of a mount outside of the places for removable media, whose line does not tell.
Laufwerksart FesteArtPrüfen(const Einhängung& Eingehängt) {
    if (Eingehängt.Ort == "/" || !Eingehängt.Quelle.starts_with("/dev/")) return Laufwerksart::Fest;
    if (GerätIstWechselbar(Eingehängt)) return Laufwerksart::Wechsel;
    const auto Gerät = BlockgerätFragen(Eingehängt.Quelle);
    return Gerät && !Gerät->System ? Laufwerksart::Wechsel : Laufwerksart::Fest;
}

}  // namespace

std::string Systemlaufwerke::Aufgelöst(std::string_view Pfad) const {
    const auto Jetzt = std::chrono::steady_clock::now();
    const auto Oben = PfadVon(Pfad);
    if (Oben != Ordner || Jetzt - OrdnerZeit > Merkzeit) {
        Ordner = Oben;
        OrdnerOhneLinks = LinksFolgen(Oben);
        OrdnerZeit = Jetzt;
    }
    std::string Ganz = PfadVerbinden(OrdnerOhneLinks, DateinameVon(Pfad));
    return IstLink(Ganz) ? LinksFolgen(Ganz) : Ganz;
}

std::string Systemlaufwerke::LaufwerkVon(std::string_view Pfad) const {
    if (!IstPosixPfad(Pfad)) return std::string(HatLaufwerksbuchstaben(Pfad) ? Pfad.substr(0, 3) : "");
    const std::lock_guard Gesperrt(Riegel);
    std::string Echt = Aufgelöst(Pfad);
    // A file that lies directly in such a place is not a drive itself.
    if (Wechselort(Echt).size() == Echt.size() + 1 && DateiExistiert(Echt)) Echt = PfadVon(Echt);
    return liedwerk::LaufwerkVon(Tabelle.Jetzt(), Echt);
}

Laufwerksart Systemlaufwerke::Art(std::string_view Laufwerk) const {
    if (!IstPosixPfad(Laufwerk)) return Laufwerksart::Unbekannt;
    const std::lock_guard Gesperrt(Riegel);
    const auto* Eingehängt = EinhängungAn(Tabelle.Jetzt(), Laufwerk);
    if (Eingehängt == nullptr) {
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
    const std::lock_guard Gesperrt(Riegel);
    if (EinhängungAn(Tabelle.Jetzt(), Laufwerk) != nullptr) return true;
    // A plain folder in a place for removable media stands for one.
    return Wechselort(Laufwerk) == Laufwerk && OrdnerExistiert(Laufwerk);
}

}  // namespace liedwerk
