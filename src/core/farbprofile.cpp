#include "core/farbprofile.h"

namespace liedwerk {
namespace {

// A colour as it is usually written (0xRRGGBB) in the order of the settings.
constexpr std::int32_t Ton(std::uint32_t RotGrünBlau) {
    return static_cast<std::int32_t>((RotGrünBlau & 0xFF) << 16 | (RotGrünBlau & 0xFF00) |
                                     (RotGrünBlau >> 16 & 0xFF));
}

// Every text stands out from its background by at least 4.5 : 1, in the last profile by 7 : 1; edges by 3
// : 1.
constexpr Farbprofil Tabelle[] = {
    {"Wie der Desktop",
     {DesktopFarbe, DesktopFarbe, DesktopFarbe, DesktopFarbe, DesktopFarbe, DesktopFarbe, DesktopFarbe,
      DesktopFarbe, DesktopFarbe},
     0},
    {"Hell",
     {Ton(0x1F2933), Ton(0xF3F5F7), Ton(0x16202A), Ton(0xFFFFFF), Ton(0x0F3D63), Ton(0x33424F), Ton(0x6B2F86),
      Ton(0x7A8794), Ton(0xD6E4F0)},
     0},
    {"Dunkel",
     {Ton(0xE3E7EB), Ton(0x24282D), Ton(0xE9ECEF), Ton(0x1A1D21), Ton(0xFFFFFF), Ton(0xCBD2D9), Ton(0xC9A6F0),
      Ton(0x788390), Ton(0x2C5A85)},
     0},
    {"Hoher Kontrast",
     {Ton(0xFFFFFF), Ton(0x000000), Ton(0xFFFFFF), Ton(0x000000), Ton(0x000000), Ton(0xFFFFFF), Ton(0x7FFFD4),
      Ton(0xFFFFFF), Ton(0xFFE100)},
     1},
};
static_assert(std::string_view(Tabelle[ProfilDunkel - 1].Name) == "Dunkel");

}  // namespace

std::span<const Farbprofil> Farbprofile() {
    return Tabelle;
}

void FarbprofilNehmen(Einstellungen& Werte, std::size_t Nummer) {
    if (Nummer < 1 || Nummer > std::size(Tabelle)) return;
    const Farbprofil& Profil = Tabelle[Nummer - 1];
    for (std::size_t Rolle = 0; Rolle < Farbrollen.size(); ++Rolle)
        Werte.*Farbrollen[Rolle] = Profil.Farben[Rolle];
    Werte.FunktionenUnterstreichen = Profil.FunktionenUnterstreichen;
}

std::size_t FarbprofilVon(const Einstellungen& Werte) {
    for (std::size_t Nummer = 1; Nummer <= std::size(Tabelle); ++Nummer) {
        const Farbprofil& Profil = Tabelle[Nummer - 1];
        bool Gleich = Werte.FunktionenUnterstreichen == Profil.FunktionenUnterstreichen;
        for (std::size_t Rolle = 0; Rolle < Farbrollen.size(); ++Rolle)
            Gleich = Gleich && Werte.*Farbrollen[Rolle] == Profil.Farben[Rolle];
        if (Gleich) return Nummer;
    }
    return 0;
}

}  // namespace liedwerk
