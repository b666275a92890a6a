#include "basis/dateiname.h"

#include <array>
#include <cinttypes>
#include <cstdio>

#include "basis/pfad.h"

namespace liedwerk {
namespace {

constexpr std::string_view Trennzeichen = "/\\";
constexpr std::string_view Verbotene = "*?<>|";

bool IstTrenner(char Zeichen) {
    return Trennzeichen.find(Zeichen) != std::string_view::npos;
}

bool IstSteuerzeichen(char Zeichen) {
    return static_cast<unsigned char>(Zeichen) < 0x20 || Zeichen == 0x7F;
}

bool HatLeerenTeil(std::string_view Name) {
    for (std::size_t Stelle = 1; Stelle < Name.size(); ++Stelle) {
        if (IstTrenner(Name[Stelle]) && IstTrenner(Name[Stelle - 1])) return true;
    }
    return false;
}

}  // namespace

std::string DateinameBereinigen(std::string_view Name, bool PfadErlaubt) {
    if (PfadErlaubt && IstPosixPfad(Name))
        return Name.find("//") == std::string_view::npos ? std::string(Name) : std::string();
    if (HatLeerenTeil(Name)) return {};
    std::string Sauber;
    for (std::size_t Stelle = 0; Stelle < Name.size(); ++Stelle) {
        const char Zeichen = Name[Stelle];
        if (IstTrenner(Zeichen) && !PfadErlaubt) return {};
        if (Zeichen == ':' && !(PfadErlaubt && Stelle == 1)) return {};
        if (Verbotene.find(Zeichen) == std::string_view::npos && !IstSteuerzeichen(Zeichen))
            Sauber += Zeichen;
    }
    return Sauber;
}

bool TeileEindeutig(std::string_view Pfad) {
    if (Pfad.starts_with("\\\\")) Pfad.remove_prefix(1);
    if (!Pfad.empty() && IstTrenner(Pfad.front())) Pfad.remove_prefix(1);
    for (;;) {
        const std::size_t Ende = Pfad.find_first_of(Trennzeichen);
        const std::string_view Teil = Pfad.substr(0, Ende);
        if (Teil.find_first_not_of(' ') == std::string_view::npos || Teil == "." || Teil == "..")
            return false;
        if (Ende == std::string_view::npos) return true;
        Pfad.remove_prefix(Ende + 1);
    }
}

std::uint64_t Kennzahl(std::string_view Bytes) {
    std::uint64_t Zahl = 0xCBF29CE484222325U;
    for (const char Zeichen : Bytes)
        Zahl = (Zahl ^ static_cast<unsigned char>(Zeichen)) * 0x100000001B3U;
    return Zahl;
}

std::string KennzahlText(std::string_view Bytes) {
    std::array<char, 17> Text{};
    std::snprintf(Text.data(), Text.size(), "%016" PRIx64, Kennzahl(Bytes));
    return Text.data();
}

std::string PfadMitEndung(std::string_view Pfad, std::string_view Endung) {
    constexpr std::size_t HöchsterName = 255;
    const std::string_view Name = DateinameVon(Pfad);
    if (Name.size() + Endung.size() <= HöchsterName) return std::string(Pfad).append(Endung);
    const std::string Schluss = "~" + KennzahlText(Name) + std::string(Endung);
    Pfad.remove_suffix(Name.size() + Schluss.size() - HöchsterName);
    // Not in the midst of a character.
    while ((static_cast<unsigned char>(Pfad.back()) & 0xC0U) == 0x80U)
        Pfad.remove_suffix(1);
    if (static_cast<unsigned char>(Pfad.back()) >= 0xC0U) Pfad.remove_suffix(1);
    return std::string(Pfad) + Schluss;
}

bool IstUnfertigeKopie(std::string_view Name) {
    constexpr std::size_t Stellen = 16;
    if (!Name.ends_with(KopieEndung)) return false;
    Name.remove_suffix(KopieEndung.size());
    // A second copy to the same target at the same time has a number behind that.
    if (const auto Strich = Name.rfind('-'); Strich != Name.npos && Strich + 1 < Name.size() &&
                                             Name.find_first_not_of("0123456789", Strich + 1) == Name.npos)
        Name.remove_suffix(Name.size() - Strich);
    if (Name.size() <= Stellen || Name[Name.size() - Stellen - 1] != '~') return false;
    return Name.find_first_not_of("0123456789abcdef", Name.size() - Stellen) == std::string_view::npos;
}

std::string OhneTrenner(std::string Ordner) {
    while (Ordner.size() > 1 && Ordner.back() == '/')
        Ordner.pop_back();
    return Ordner;
}

}  // namespace liedwerk
