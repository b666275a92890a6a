// The colours of the program: what each setting colours, and the profiles that set all of them at once.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "basis/einstellungen.h"

namespace liedwerk {

// A colour of the settings (0xBBGGRR, or DesktopFarbe) with its label for the person.
struct Farbrolle {
    std::string_view Beschriftung;
    std::int32_t Einstellungen::*Wert;
};

inline constexpr std::array<Farbrolle, 9> Farbrollen = {{
    {"Funktionen", &Einstellungen::FarbeFunktionen},
    {"Hintergrund der Funktionen", &Einstellungen::FarbeFunktionenHintergrund},
    {"Listen", &Einstellungen::FarbeListen},
    {"Hintergrund der Listen", &Einstellungen::FarbeListenHintergrund},
    {"Überschriften", &Einstellungen::FarbeÜberschrift},
    {"Beschreibungen", &Einstellungen::FarbeBeschreibungen},
    {"Besuchte Funktionen", &Einstellungen::FarbeFunktionenBesucht},
    {"Rahmen", &Einstellungen::FarbeRahmen},
    {"Hintergrund der Überschriften", &Einstellungen::FarbeÜberschriftHintergrund},
}};

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
