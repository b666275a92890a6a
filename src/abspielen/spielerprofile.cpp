#include "abspielen/spielerprofile.h"

#include <array>

#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// Switches and names as the players of Debian 12 have them.
constexpr std::array<Spielerprofil, 7> Profile = {{
    {"Audacious", "audacious", "", "-e", "audacious", true, false, "cdda://?"},
    {"VLC", "vlc", "--one-instance", "--one-instance --playlist-enqueue", "vlc"},
    {"Strawberry", "strawberry", "--load --play", "--append", "strawberry"},
    {"Celluloid", "celluloid", "", "--enqueue", "io.github.celluloid_player.Celluloid"},
    {"Clementine", "clementine", "--load --play", "--append", "clementine"},
    {"SMPlayer", "smplayer", "", "-add-to-playlist", "smplayer"},
    {"Qmmp", "qmmp", "", "-e", "qmmp", false, true},
}};

bool SchalterUngesetzt(const Einstellungen& Werte) {
    const Einstellungen Vorgabe;
    return Werte.WinampParameterAbspielen == Vorgabe.WinampParameterAbspielen &&
           Werte.WinampParameterHinzufügen == Vorgabe.WinampParameterHinzufügen;
}

constexpr Spielerprofil Winampprofil{"Winamp", "winamp.exe", "", "/ADD", "Winamp v1.x"};
constexpr Spielerprofil Studioprofil{"Studio", "studio.exe", "", "/ADD", "STUDIO"};

}  // namespace

std::span<const Spielerprofil> Spielerprofile() {
    return Profile;
}

std::optional<Spielerwahl> SpielerVon(std::string_view WinampPfad) {
    const auto Wahl = [](const Spielerprofil& Profil, Spielerart Art) {
        return Spielerwahl{Profil, Art, std::string(Profil.Klasse)};
    };
    if (EndetMitOhneGroß(WinampPfad, Winampprofil.Programm)) return Wahl(Winampprofil, Spielerart::Winamp);
    if (EndetMitOhneGroß(WinampPfad, Studioprofil.Programm)) return Wahl(Studioprofil, Spielerart::Studio);
    const std::string_view Name = DateinameVon(WinampPfad);
    for (const Spielerprofil& Profil : Profile) {
        if (Profil.Programm == Name) return Wahl(Profil, Spielerart::Andere);
    }
    if (Name.empty()) return std::nullopt;
    Spielerwahl Unbekannter;
    Unbekannter.Profil.Name = Name;
    Unbekannter.Profil.Programm = Name;
    Unbekannter.Klasse = DateiOhneEndung(Name);
    return Unbekannter;
}

std::string SpielerSchalter(const Einstellungen& Werte, bool Hinzufügen) {
    // An unknown program has no switches in its profile: it would take "/ADD" for a file.
    if (const auto Wahl = SpielerVon(Werte.WinampPfad); Wahl && SchalterUngesetzt(Werte))
        return std::string(Hinzufügen ? Wahl->Profil.Hinzufügen : Wahl->Profil.Abspielen);
    return Hinzufügen ? Werte.WinampParameterHinzufügen : Werte.WinampParameterAbspielen;
}

bool KenntNurDateien(const Einstellungen& Werte) {
    const auto Wahl = SpielerVon(Werte.WinampPfad);
    return Wahl && !Wahl->HatProfil() && SchalterUngesetzt(Werte);
}

std::vector<InstallierterSpieler> InstallierteSpieler(const Programmstart& Programme) {
    std::vector<InstallierterSpieler> Alle;
    for (const Spielerprofil& Profil : Profile) {
        std::string Pfad = Programme.Finden(Profil.Programm);
        if (!Pfad.empty()) Alle.push_back({std::move(Pfad), &Profil});
    }
    return Alle;
}

void SpielerÜbernehmen(Einstellungen& Werte, const InstallierterSpieler& Spieler) {
    Werte.WinampPfad = Spieler.Pfad;
    Werte.WinampParameterAbspielen = Spieler.Profil->Abspielen;
    Werte.WinampParameterHinzufügen = Spieler.Profil->Hinzufügen;
}

}  // namespace liedwerk
