// The players that are known by their switches and abilities, and which one the settings mean.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basis/einstellungen.h"
#include "plattform/programmstart.h"
#include "plattform/spieler.h"

namespace liedwerk {

// The known players of this system; the first ones are proposed first.
std::span<const Spielerprofil> Spielerprofile();

// Which player a path means. By the end of the path, without regard to case: "winamp.exe" and "studio.exe"
// have their window classes, a known player its profile; any other program is looked for under its own name.
// Nothing for an empty path. The views in the result live as long as WinampPfad.
enum class Spielerart { Winamp, Studio, Andere };
struct Spielerwahl {
    Spielerprofil Profil;
    Spielerart Art = Spielerart::Andere;
    std::string Klasse;  // of the profile, or made from the name of a program that has none
    bool HatProfil() const { return !Profil.Klasse.empty(); }
    // The profile as a channel takes it.
    Spielerprofil FürKanal() const {
        Spielerprofil Ganz = Profil;
        Ganz.Klasse = Klasse;
        return Ganz;
    }
};
std::optional<Spielerwahl> SpielerVon(std::string_view WinampPfad);

// Switches for a hand-over: those of the settings; while they were never set (both stand at their defaults,
// which only the players of the window classes understand) a known player gets its own and any other none.
std::string SpielerSchalter(const Einstellungen& Werte, bool Hinzufügen);
// True for an unknown player whose switches were never set: there is no telling "play" from "add".
bool KenntNurDateien(const Einstellungen& Werte);

// Known players that are installed, with their full paths, in the order of the profiles.
struct InstallierterSpieler {
    std::string Pfad;
    const Spielerprofil* Profil = nullptr;
};
std::vector<InstallierterSpieler> InstallierteSpieler(const Programmstart& Programme);
// Takes a player over into the settings, with its switches.
void SpielerÜbernehmen(Einstellungen& Werte, const InstallierterSpieler& Spieler);

}  // namespace liedwerk
