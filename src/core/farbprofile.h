// The colours of the program: what each setting colours, and the profiles that set all of them at once.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "basis/einstellungen.h"

namespace liedwerk {

// The colours of the settings (0xBBGGRR, or DesktopFarbe).
inline constexpr std::array<std::int32_t Einstellungen::*, 9> Farbrollen = {
    &Einstellungen::FarbeFunktionen,
    &Einstellungen::FarbeFunktionenHintergrund,
    &Einstellungen::FarbeListen,
    &Einstellungen::FarbeListenHintergrund,
    &Einstellungen::FarbeÜberschrift,
    &Einstellungen::FarbeBeschreibungen,
    &Einstellungen::FarbeFunktionenBesucht,
    &Einstellungen::FarbeRahmen,
    &Einstellungen::FarbeÜberschriftHintergrund,
};

struct Farbprofil {
    std::string_view Name;
    std::array<std::int32_t, Farbrollen.size()> Farben;  // in the order of Farbrollen
    std::int16_t FunktionenUnterstreichen;
};

// Profile 1 comes first and follows the desktop; it is the default of the settings.
std::span<const Farbprofil> Farbprofile();
// Numbers of profiles count from 1; another number changes nothing.
inline constexpr std::size_t ProfilDesktop = 1;
inline constexpr std::size_t ProfilDunkel = 3;
void FarbprofilNehmen(Einstellungen& Werte, std::size_t Nummer);
// The number of the profile that the settings show, 0 when the person has colours of his own.
std::size_t FarbprofilVon(const Einstellungen& Werte);

}  // namespace liedwerk
