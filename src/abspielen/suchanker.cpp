#include "abspielen/suchanker.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "basis/ansi.h"
#include "basis/schreibungen.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::size_t HöchsteSchreibungen = 8;  // each costs a pass over the lines
constexpr std::size_t HöchsteZeichen = 16;      // more sort out hardly more

// A character as a line may hold it.
struct Ankerzeichen {
    bool IstAscii = false;
    std::vector<std::string> Utf8;
    std::vector<std::string> Ansi;  // none: the value is not in the code page
};

// Nothing for what no anchor can hold: line ends, which the index has as blanks, and bytes of no character.
std::optional<Ankerzeichen> AnkerzeichenVon(char32_t Zeichen) {
    if (Zeichen < U' ' || IstBruchbyte(Zeichen)) return std::nullopt;
    Ankerzeichen Ergebnis;
    Ergebnis.IstAscii = Zeichen < 0x80;
    for (const char32_t Schreibung : SchreibungenVon(Zeichen)) {
        if (Schreibung >= U'A' && Schreibung <= U'Z') continue;
        ZeichenAnhängen(Ergebnis.Utf8.emplace_back(), Schreibung);
        if (const auto Byte = AnsiByte(Schreibung)) Ergebnis.Ansi.emplace_back(1, static_cast<char>(*Byte));
    }
    return Ergebnis;
}

using Formen = std::vector<std::string> Ankerzeichen::*;

// Some neighbouring characters, from one to behind another, and what they are worth.
struct Fenster {
    std::size_t Von = 0;
    std::size_t Bis = 0;
    int Güte = 0;
};

// The best window that begins at this character.
Fenster BestesAb(const std::vector<std::optional<Ankerzeichen>>& Zeichen, std::size_t Von) {
    // What a character sorts out, weighed against the passes that its spellings cost. A single ASCII letter
    // stands in nearly every line.
    constexpr int GüteAscii = 2;
    constexpr int GüteAndere = 3;
    constexpr int AbzugNurAscii = 2;
    Fenster Bestes{Von, Von, 0};
    std::size_t Utf8 = 1;
    std::size_t Ansi = 1;
    bool NurAscii = true;
    int Summe = 0;
    for (std::size_t i = Von; i < std::min(Zeichen.size(), Von + HöchsteZeichen) && Zeichen[i]; ++i) {
        Utf8 *= Zeichen[i]->Utf8.size();
        Ansi *= Zeichen[i]->Ansi.size();
        NurAscii = NurAscii && Zeichen[i]->IstAscii;
        // The forms of ASCII in the code page are among the others.
        const std::size_t Anzahl = NurAscii ? Utf8 : Utf8 + Ansi;
        if (Anzahl > HöchsteSchreibungen) break;
        Summe += Zeichen[i]->IstAscii ? GüteAscii : GüteAndere;
        const int Güte = Summe - static_cast<int>(Anzahl) - (NurAscii ? AbzugNurAscii : 0);
        if (Bestes.Bis == Von || Güte >= Bestes.Güte) Bestes = {Von, i + 1, Güte};
    }
    return Bestes;
}

// Every way of writing the window in one of the two forms.
void SchreibungenAnhängen(std::vector<std::string>& Ziel,
                          const std::vector<std::optional<Ankerzeichen>>& Zeichen, const Fenster& Wahl,
                          Formen Form) {
    std::vector<std::string> Bisher{{}};
    for (std::size_t i = Wahl.Von; i < Wahl.Bis; ++i) {
        std::vector<std::string> Länger;
        for (const std::string& Anfang : Bisher)
            for (const std::string& Eine : (*Zeichen[i]).*Form)
                Länger.push_back(Anfang + Eine);
        Bisher = std::move(Länger);
    }
    Ziel.insert(Ziel.end(), Bisher.begin(), Bisher.end());
}

}  // namespace

Suchanker SuchankerVon(std::string_view Text) {
    std::vector<std::optional<Ankerzeichen>> Zeichen;
    for (std::size_t Stelle = 0; Stelle < Text.size();)
        Zeichen.push_back(AnkerzeichenVon(ZeichenLesen(Text, Stelle)));
    Fenster Wahl;
    for (std::size_t Von = 0; Von < Zeichen.size(); ++Von) {
        const Fenster Hier = BestesAb(Zeichen, Von);
        if (Hier.Bis > Hier.Von && (Wahl.Bis == Wahl.Von || Hier.Güte > Wahl.Güte)) Wahl = Hier;
    }
    Suchanker Anker;
    if (Wahl.Bis == Wahl.Von) {
        Anker.Güte = -static_cast<int>(HöchsteSchreibungen);
        return Anker;
    }
    Anker.Güte = Wahl.Güte;
    SchreibungenAnhängen(Anker.Schreibungen, Zeichen, Wahl, &Ankerzeichen::Utf8);
    SchreibungenAnhängen(Anker.Schreibungen, Zeichen, Wahl, &Ankerzeichen::Ansi);
    std::ranges::sort(Anker.Schreibungen);
    const auto Doppelte = std::ranges::unique(Anker.Schreibungen);
    Anker.Schreibungen.erase(Doppelte.begin(), Doppelte.end());
    return Anker;
}

}  // namespace liedwerk
