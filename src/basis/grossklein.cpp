// Letter case: the table of the letters, the mapping of whole texts, and comparing without regard to case.
//
// Mappings are the simple ones of the Unicode Character Database 14 (UnicodeData.txt for lower and upper
// case, CaseFolding.txt status C and S for folding) for Latin, Greek and Cyrillic letters.
#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "basis/schreibungen.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// Capital letters Erster, Erster + Schritt, ... Letzter; the small letter of each stands Abstand code points
// further.
struct Buchstabenreihe {
    char16_t Erster;
    char16_t Letzter;
    std::int32_t Schritt;
    std::int32_t Abstand;
};

struct Buchstabenpaar {
    char16_t Von;
    char16_t Nach;
};

// clang-format off
constexpr Buchstabenreihe Reihen[] = {
    {0x0041, 0x005A, 1, 32}, {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32}, {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1}, {0x0139, 0x0147, 2, 1}, {0x014A, 0x0176, 2, 1}, {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1}, {0x0181, 0x0181, 1, 210}, {0x0182, 0x0184, 2, 1}, {0x0186, 0x0186, 1, 206},
    {0x0187, 0x0187, 1, 1}, {0x0189, 0x018A, 1, 205}, {0x018B, 0x018B, 1, 1}, {0x018E, 0x018E, 1, 79},
    {0x018F, 0x018F, 1, 202}, {0x0190, 0x0190, 1, 203}, {0x0191, 0x0191, 1, 1}, {0x0193, 0x0193, 1, 205},
    {0x0194, 0x0194, 1, 207}, {0x0196, 0x0196, 1, 211}, {0x0197, 0x0197, 1, 209}, {0x0198, 0x0198, 1, 1},
    {0x019C, 0x019C, 1, 211}, {0x019D, 0x019D, 1, 213}, {0x019F, 0x019F, 1, 214}, {0x01A0, 0x01A4, 2, 1},
    {0x01A6, 0x01A6, 1, 218}, {0x01A7, 0x01A7, 1, 1}, {0x01A9, 0x01A9, 1, 218}, {0x01AC, 0x01AC, 1, 1},
    {0x01AE, 0x01AE, 1, 218}, {0x01AF, 0x01AF, 1, 1}, {0x01B1, 0x01B2, 1, 217}, {0x01B3, 0x01B5, 2, 1},
    {0x01B7, 0x01B7, 1, 219}, {0x01B8, 0x01B8, 1, 1}, {0x01BC, 0x01BC, 1, 1}, {0x01C4, 0x01C4, 1, 2},
    {0x01C7, 0x01C7, 1, 2}, {0x01CA, 0x01CA, 1, 2}, {0x01CD, 0x01DB, 2, 1}, {0x01DE, 0x01EE, 2, 1},
    {0x01F1, 0x01F1, 1, 2}, {0x01F4, 0x01F4, 1, 1}, {0x01F6, 0x01F6, 1, -97}, {0x01F7, 0x01F7, 1, -56},
    {0x01F8, 0x021E, 2, 1}, {0x0220, 0x0220, 1, -130}, {0x0222, 0x0232, 2, 1}, {0x023A, 0x023A, 1, 10795},
    {0x023B, 0x023B, 1, 1}, {0x023D, 0x023D, 1, -163}, {0x023E, 0x023E, 1, 10792}, {0x0241, 0x0241, 1, 1},
    {0x0243, 0x0243, 1, -195}, {0x0244, 0x0244, 1, 69}, {0x0245, 0x0245, 1, 71}, {0x0246, 0x024E, 2, 1},
    {0x0370, 0x0372, 2, 1}, {0x0376, 0x0376, 1, 1}, {0x037F, 0x037F, 1, 116}, {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37}, {0x038C, 0x038C, 1, 64}, {0x038E, 0x038F, 1, 63}, {0x0391, 0x03A1, 1, 32},
    {0x03A3, 0x03AB, 1, 32}, {0x03CF, 0x03CF, 1, 8}, {0x03D8, 0x03E0, 2, 1}, {0x03F7, 0x03F7, 1, 1},
    {0x03F9, 0x03F9, 1, -7}, {0x03FA, 0x03FA, 1, 1}, {0x03FD, 0x03FF, 1, -130}, {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32}, {0x0460, 0x0480, 2, 1}, {0x048A, 0x04BE, 2, 1}, {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1}, {0x04D0, 0x052E, 2, 1}, {0x1E00, 0x1E94, 2, 1}, {0x1EA0, 0x1EFE, 2, 1},
    {0x1F08, 0x1F0F, 1, -8}, {0x1F18, 0x1F1D, 1, -8}, {0x1F28, 0x1F2F, 1, -8}, {0x1F38, 0x1F3F, 1, -8},
    {0x1F48, 0x1F4D, 1, -8}, {0x1F59, 0x1F5F, 2, -8}, {0x1F68, 0x1F6F, 1, -8}, {0x1F88, 0x1F8F, 1, -8},
    {0x1F98, 0x1F9F, 1, -8}, {0x1FA8, 0x1FAF, 1, -8}, {0x1FB8, 0x1FB9, 1, -8}, {0x1FBA, 0x1FBB, 1, -74},
    {0x1FBC, 0x1FBC, 1, -9}, {0x1FC8, 0x1FCB, 1, -86}, {0x1FCC, 0x1FCC, 1, -9}, {0x1FD8, 0x1FD9, 1, -8},
    {0x1FDA, 0x1FDB, 1, -100}, {0x1FE8, 0x1FE9, 1, -8}, {0x1FEA, 0x1FEB, 1, -112}, {0x1FEC, 0x1FEC, 1, -7},
    {0x1FF8, 0x1FF9, 1, -128}, {0x1FFA, 0x1FFB, 1, -126}, {0x1FFC, 0x1FFC, 1, -9}, {0x2C60, 0x2C60, 1, 1},
    {0x2C62, 0x2C62, 1, -10743}, {0x2C63, 0x2C63, 1, -3814}, {0x2C64, 0x2C64, 1, -10727},
    {0x2C67, 0x2C6B, 2, 1}, {0x2C6D, 0x2C6D, 1, -10780}, {0x2C6E, 0x2C6E, 1, -10749},
    {0x2C6F, 0x2C6F, 1, -10783}, {0x2C70, 0x2C70, 1, -10782}, {0x2C72, 0x2C72, 1, 1},
    {0x2C75, 0x2C75, 1, 1}, {0x2C7E, 0x2C7F, 1, -10815}, {0xA640, 0xA66C, 2, 1}, {0xA680, 0xA69A, 2, 1},
    {0xA722, 0xA72E, 2, 1}, {0xA732, 0xA76E, 2, 1}, {0xA779, 0xA77B, 2, 1}, {0xA77D, 0xA77D, 1, -35332},
    {0xA77E, 0xA786, 2, 1}, {0xA78B, 0xA78B, 1, 1}, {0xA78D, 0xA78D, 1, -42280}, {0xA790, 0xA792, 2, 1},
    {0xA796, 0xA7A8, 2, 1}, {0xA7AA, 0xA7AA, 1, -42308}, {0xA7AB, 0xA7AB, 1, -42319},
    {0xA7AC, 0xA7AC, 1, -42315}, {0xA7AD, 0xA7AD, 1, -42305}, {0xA7AE, 0xA7AE, 1, -42308},
    {0xA7B0, 0xA7B0, 1, -42258}, {0xA7B1, 0xA7B1, 1, -42282}, {0xA7B2, 0xA7B2, 1, -42261},
    {0xA7B3, 0xA7B3, 1, 928}, {0xA7B4, 0xA7C2, 2, 1}, {0xA7C4, 0xA7C4, 1, -48}, {0xA7C5, 0xA7C5, 1, -42307},
    {0xA7C6, 0xA7C6, 1, -35384}, {0xA7C7, 0xA7C9, 2, 1}, {0xA7D0, 0xA7D0, 1, 1}, {0xA7D6, 0xA7D8, 2, 1},
    {0xA7F5, 0xA7F5, 1, 1}, {0xFF21, 0xFF3A, 1, 32},
};

// Letters whose way to lower case is no way back, and those whose way to upper case is none.
constexpr Buchstabenpaar NurKlein[] = {
    {0x0130, 0x0069}, {0x01C5, 0x01C6}, {0x01C8, 0x01C9}, {0x01CB, 0x01CC}, {0x01F2, 0x01F3},
    {0x03F4, 0x03B8}, {0x1E9E, 0x00DF}, {0x2126, 0x03C9}, {0x212A, 0x006B}, {0x212B, 0x00E5},
};
constexpr Buchstabenpaar NurGroß[] = {
    {0x00B5, 0x039C}, {0x0131, 0x0049}, {0x017F, 0x0053}, {0x01C5, 0x01C4}, {0x01C8, 0x01C7},
    {0x01CB, 0x01CA}, {0x01F2, 0x01F1}, {0x0345, 0x0399}, {0x03C2, 0x03A3}, {0x03D0, 0x0392},
    {0x03D1, 0x0398}, {0x03D5, 0x03A6}, {0x03D6, 0x03A0}, {0x03F0, 0x039A}, {0x03F1, 0x03A1},
    {0x03F5, 0x0395}, {0x1C80, 0x0412}, {0x1C81, 0x0414}, {0x1C82, 0x041E}, {0x1C83, 0x0421},
    {0x1C84, 0x0422}, {0x1C85, 0x0422}, {0x1C86, 0x042A}, {0x1C87, 0x0462}, {0x1C88, 0xA64A},
    {0x1E9B, 0x1E60}, {0x1FBE, 0x0399},
};
// clang-format on

// The Turkish letters: they have a small or a capital letter, but fold to themselves.
constexpr char32_t GroßesIMitPunkt = 0x0130;
constexpr char32_t KleinesIOhnePunkt = 0x0131;

template <std::size_t Anzahl>
constexpr char32_t PaarSuchen(const Buchstabenpaar (&Paare)[Anzahl], char32_t Zeichen) {
    for (const auto& Paar : Paare) {
        if (Paar.Von == Zeichen) return Paar.Nach;
    }
    return 0;
}

constexpr char32_t KleinSuchen(char32_t Zeichen) {
    const auto* Dahinter =
        std::upper_bound(std::begin(Reihen), std::end(Reihen), Zeichen,
                         [](char32_t Wert, const auto& Reihe) { return Wert < Reihe.Erster; });
    if (Dahinter != std::begin(Reihen)) {
        const auto& Reihe = *(Dahinter - 1);
        const auto Versatz = static_cast<std::int32_t>(Zeichen) - Reihe.Erster;
        if (Zeichen <= Reihe.Letzter && Versatz % Reihe.Schritt == 0) {
            return static_cast<char32_t>(static_cast<std::int32_t>(Zeichen) + Reihe.Abstand);
        }
    }
    const char32_t Einzeln = PaarSuchen(NurKlein, Zeichen);
    return Einzeln != 0 ? Einzeln : Zeichen;
}

constexpr char32_t GroßSuchen(char32_t Zeichen) {
    for (const auto& Reihe : Reihen) {
        const auto Kandidat = static_cast<std::int32_t>(Zeichen) - Reihe.Abstand;
        if (Kandidat >= Reihe.Erster && Kandidat <= Reihe.Letzter &&
            (Kandidat - Reihe.Erster) % Reihe.Schritt == 0) {
            return static_cast<char32_t>(Kandidat);
        }
    }
    const char32_t Einzeln = PaarSuchen(NurGroß, Zeichen);
    return Einzeln != 0 ? Einzeln : Zeichen;
}

constexpr char32_t FaltungSuchen(char32_t Zeichen) {
    if (Zeichen == GroßesIMitPunkt || Zeichen == KleinesIOhnePunkt) return Zeichen;
    const char32_t Groß = PaarSuchen(NurGroß, Zeichen);
    return KleinSuchen(Groß != 0 ? Groß : Zeichen);
}

// The three mappings as flat tables for the letters that nearly every text consists of.
constexpr char32_t FlachBis = 0x05FF;
// False for the large scripts without case, which need no search behind the flat part.
constexpr bool VielleichtBuchstabe(char32_t Zeichen) {
    return (Zeichen >= 0x1C80 && Zeichen <= 0x2C7F) || (Zeichen >= 0xA640 && Zeichen <= 0xAB53) ||
           (Zeichen >= 0xFF21 && Zeichen <= 0xFF5A);
}
static_assert(
    [] {
        const auto Erfasst = [](std::int32_t Wert) {
            const auto Zeichen = static_cast<char32_t>(Wert);
            return Zeichen <= FlachBis || VielleichtBuchstabe(Zeichen);
        };
        for (const auto& Reihe : Reihen) {
            if (!Erfasst(Reihe.Erster) || !Erfasst(Reihe.Letzter)) return false;
            if (!Erfasst(Reihe.Erster + Reihe.Abstand) || !Erfasst(Reihe.Letzter + Reihe.Abstand))
                return false;
        }
        for (const auto& Paar : NurKlein) {
            if (!Erfasst(Paar.Von)) return false;
        }
        for (const auto& Paar : NurGroß) {
            if (!Erfasst(Paar.Von)) return false;
        }
        return true;
    }(),
    "a letter of the tables would be passed over");

using Tafel = std::array<char16_t, FlachBis + 1>;

struct Tafeln {
    Tafel Klein{};
    Tafel Groß{};
    Tafel Faltung{};
};

constexpr Tafeln TafelnBauen() {
    Tafeln Ergebnis;
    for (std::size_t Zeichen = 0; Zeichen <= FlachBis; ++Zeichen) {
        Ergebnis.Klein[Zeichen] = Ergebnis.Groß[Zeichen] = static_cast<char16_t>(Zeichen);
    }
    for (const auto& Reihe : Reihen) {
        for (std::int32_t Großer = Reihe.Erster; Großer <= Reihe.Letzter; Großer += Reihe.Schritt) {
            const auto Kleiner = static_cast<char32_t>(Großer + Reihe.Abstand);
            const auto Stelle = static_cast<char32_t>(Großer);
            if (Stelle <= FlachBis) Ergebnis.Klein[Stelle] = static_cast<char16_t>(Kleiner);
            if (Kleiner <= FlachBis) Ergebnis.Groß[Kleiner] = static_cast<char16_t>(Stelle);
        }
    }
    for (const auto& Paar : NurKlein) {
        if (Paar.Von <= FlachBis) Ergebnis.Klein[Paar.Von] = Paar.Nach;
    }
    Ergebnis.Faltung = Ergebnis.Klein;
    for (const auto& Paar : NurGroß) {
        if (Paar.Von > FlachBis) continue;
        Ergebnis.Groß[Paar.Von] = Paar.Nach;
        Ergebnis.Faltung[Paar.Von] = static_cast<char16_t>(KleinSuchen(Paar.Nach));
    }
    Ergebnis.Faltung[GroßesIMitPunkt] = static_cast<char16_t>(GroßesIMitPunkt);
    Ergebnis.Faltung[KleinesIOhnePunkt] = static_cast<char16_t>(KleinesIOhnePunkt);
    return Ergebnis;
}
constexpr Tafeln Flach = TafelnBauen();

// The directions of mapping: of a code point, and the first of the 26 ASCII letters that change.
struct Faltend {
    static constexpr unsigned char ErsterBuchstabe = 'A';
    static char32_t Abbilden(char32_t Zeichen) {
        if (Zeichen <= FlachBis) return Flach.Faltung[Zeichen];
        return VielleichtBuchstabe(Zeichen) ? FaltungSuchen(Zeichen) : Zeichen;
    }
};
struct Verkleinernd {
    static constexpr unsigned char ErsterBuchstabe = 'A';
    static char32_t Abbilden(char32_t Zeichen) {
        if (Zeichen <= FlachBis) return Flach.Klein[Zeichen];
        return VielleichtBuchstabe(Zeichen) ? KleinSuchen(Zeichen) : Zeichen;
    }
};
struct Vergrößernd {
    static constexpr unsigned char ErsterBuchstabe = 'a';
    static char32_t Abbilden(char32_t Zeichen) {
        if (Zeichen <= FlachBis) return Flach.Groß[Zeichen];
        return VielleichtBuchstabe(Zeichen) ? GroßSuchen(Zeichen) : Zeichen;
    }
};

// Branch-free; leaves every byte alone that is no ASCII letter of the other case.
template <class Richtung>
inline char AsciiAbbilden(char Zeichen) {
    const auto Byte = static_cast<unsigned char>(Zeichen);
    const bool Trifft = static_cast<unsigned char>(Byte - Richtung::ErsterBuchstabe) < 26;
    return static_cast<char>(Byte ^ (Trifft ? 0x20 : 0));
}

// Maps one block into Ziel; false when it holds a byte outside of ASCII. Both loops become vector code.
constexpr std::size_t Blockbreite = 16;
template <class Richtung>
inline bool BlockAbbilden(const char* Quelle, char* Ziel) {
    unsigned char Hoch = 0;
    for (std::size_t i = 0; i < Blockbreite; ++i)
        Hoch |= static_cast<unsigned char>(Quelle[i]);
    for (std::size_t i = 0; i < Blockbreite; ++i)
        Ziel[i] = AsciiAbbilden<Richtung>(Quelle[i]);
    return Hoch < 0x80;
}

// A letter needs at most half as many bytes again as its counterpart (two that become three).
constexpr std::size_t HöchsteLänge(std::size_t Bytes) {
    return Bytes + Bytes / 2;
}

// Writes the mapped text to Ziel, which holds HöchsteLänge and a block's width of bytes; gives the bytes
// written. LängenGleich becomes false when a character changed its number of bytes.
template <class Richtung>
std::size_t Abbilden(std::string_view Text, char* Ziel, bool& LängenGleich) {
    const char* const Beginn = Ziel;
    std::size_t Stelle = 0;
    std::string Einzeln;
    while (Stelle < Text.size()) {
        while (Text.size() - Stelle >= Blockbreite && BlockAbbilden<Richtung>(Text.data() + Stelle, Ziel)) {
            Stelle += Blockbreite;
            Ziel += Blockbreite;
        }
        while (Stelle < Text.size() && static_cast<unsigned char>(Text[Stelle]) < 0x80) {
            *Ziel++ = AsciiAbbilden<Richtung>(Text[Stelle++]);
        }
        while (Stelle < Text.size() && static_cast<unsigned char>(Text[Stelle]) >= 0x80) {
            const std::size_t Vorher = Stelle;
            const char32_t Zeichen = Richtung::Abbilden(ZeichenLesen(Text, Stelle));
            Einzeln.clear();
            ZeichenAnhängen(Einzeln, Zeichen);
            Ziel = std::copy(Einzeln.begin(), Einzeln.end(), Ziel);
            LängenGleich = LängenGleich && Einzeln.size() == Stelle - Vorher;
        }
    }
    return static_cast<std::size_t>(Ziel - Beginn);
}

template <class Richtung>
bool AbbildungAnhängen(std::string& Ziel, std::string_view Text) {
    const std::size_t Vorher = Ziel.size();
    bool LängenGleich = true;
    Ziel.resize(Vorher + HöchsteLänge(Text.size()) + Blockbreite);
    Ziel.resize(Vorher + Abbilden<Richtung>(Text, Ziel.data() + Vorher, LängenGleich));
    return LängenGleich;
}

template <class Richtung>
std::string Abgebildet(std::string_view Text) {
    std::string Ergebnis;
    AbbildungAnhängen<Richtung>(Ergebnis, Text);
    return Ergebnis;
}

// Both texts character by character; true when Anfang is used up while all was equal. Rest is where A stands
// then.
bool GleicherAnfang(std::string_view A, std::string_view Anfang, std::size_t& Rest) {
    std::size_t InA = 0;
    std::size_t InAnfang = 0;
    while (InAnfang < Anfang.size()) {
        if (InA >= A.size()) return false;
        const auto Links = static_cast<unsigned char>(A[InA]);
        const auto Rechts = static_cast<unsigned char>(Anfang[InAnfang]);
        if ((Links | Rechts) < 0x80) {
            if (AsciiAbbilden<Faltend>(A[InA++]) != AsciiAbbilden<Faltend>(Anfang[InAnfang++])) return false;
        } else if (ZeichenFalten(ZeichenLesen(A, InA)) != ZeichenFalten(ZeichenLesen(Anfang, InAnfang))) {
            return false;
        }
    }
    Rest = InA;
    return true;
}

bool IstFolgebyte(char Byte) {
    return (static_cast<unsigned char>(Byte) & 0xC0) == 0x80;
}

// True when Stelle lies between two characters, not inside of one. Looks at most three bytes back.
bool IstZeichengrenze(std::string_view Text, std::size_t Stelle) {
    if (Stelle >= Text.size() || !IstFolgebyte(Text[Stelle])) return true;
    for (std::size_t Zurück = 1; Zurück <= 3 && Zurück <= Stelle; ++Zurück) {
        std::size_t Anfang = Stelle - Zurück;
        if (IstFolgebyte(Text[Anfang])) continue;
        ZeichenLesen(Text, Anfang);
        return Anfang <= Stelle;
    }
    return true;
}

// Knuth, Morris and Pratt: for each length of a beginning of Teil the length of its longest proper border.
std::vector<std::size_t> Ränder(std::string_view Teil) {
    std::vector<std::size_t> Rand(Teil.size() + 1, 0);
    std::size_t Länge = 0;
    for (std::size_t i = 1; i < Teil.size(); ++i) {
        while (Länge > 0 && Teil[i] != Teil[Länge])
            Länge = Rand[Länge];
        if (Teil[i] == Teil[Länge]) ++Länge;
        Rand[i + 1] = Länge;
    }
    return Rand;
}

// Position of Teil in Text that lies on character borders, byte by byte; npos when absent. Short parts go the
// fast way of the library, whose cost per byte is bounded by the part; long ones the way that never looks
// back.
std::size_t BytesSuchen(std::string_view Text, std::string_view Teil) {
    const auto Gilt = [&](std::size_t Stelle) {
        return IstZeichengrenze(Text, Stelle) && IstZeichengrenze(Text, Stelle + Teil.size());
    };
    constexpr std::size_t Kurz = 32;
    if (Teil.size() <= Kurz) {
        std::size_t Stelle = Text.find(Teil);
        while (Stelle != std::string_view::npos && !Gilt(Stelle))
            Stelle = Text.find(Teil, Stelle + 1);
        return Stelle;
    }
    const auto Rand = Ränder(Teil);
    std::size_t Länge = 0;
    for (std::size_t i = 0; i < Text.size(); ++i) {
        while (Länge > 0 && (Länge == Teil.size() || Text[i] != Teil[Länge]))
            Länge = Rand[Länge];
        if (Text[i] == Teil[Länge]) ++Länge;
        if (Länge == Teil.size() && Gilt(i + 1 - Länge)) return i + 1 - Länge;
    }
    return std::string_view::npos;
}

// The offset in Text whose folded form begins at Gefaltet.
std::size_t Ursprung(std::string_view Text, std::size_t Gefaltet) {
    std::size_t Stelle = 0;
    std::string Form;
    for (std::size_t Länge = 0; Länge < Gefaltet && Stelle < Text.size(); Länge += Form.size()) {
        Form.clear();
        ZeichenAnhängen(Form, ZeichenFalten(ZeichenLesen(Text, Stelle)));
    }
    return Stelle;
}

}  // namespace

char32_t ZeichenFalten(char32_t Zeichen) {
    return Faltend::Abbilden(Zeichen);
}

std::string Falten(std::string_view Text) {
    return Abgebildet<Faltend>(Text);
}
void FaltenAnhängen(std::string& Ziel, std::string_view Text) {
    AbbildungAnhängen<Faltend>(Ziel, Text);
}
std::string Kleinbuchstaben(std::string_view Text) {
    return Abgebildet<Verkleinernd>(Text);
}
void KleinbuchstabenAnhängen(std::string& Ziel, std::string_view Text) {
    AbbildungAnhängen<Verkleinernd>(Ziel, Text);
}
std::string Großbuchstaben(std::string_view Text) {
    return Abgebildet<Vergrößernd>(Text);
}
void GroßbuchstabenAnhängen(std::string& Ziel, std::string_view Text) {
    AbbildungAnhängen<Vergrößernd>(Ziel, Text);
}

std::vector<char32_t> SchreibungenVon(char32_t Zeichen) {
    // Every letter that folds to another one, behind that one.
    static const auto Andere = [] {
        constexpr char32_t LetzterBuchstabe = 0xFFFF;  // of the tables
        std::vector<std::pair<char32_t, char32_t>> Paare;
        for (char32_t Einer = 0; Einer <= LetzterBuchstabe; ++Einer) {
            if (const char32_t Gefaltet = ZeichenFalten(Einer); Gefaltet != Einer)
                Paare.emplace_back(Gefaltet, Einer);
        }
        std::sort(Paare.begin(), Paare.end());
        return Paare;
    }();
    const char32_t Gefaltet = ZeichenFalten(Zeichen);
    std::vector<char32_t> Alle{Gefaltet};
    for (auto Paar = std::lower_bound(Andere.begin(), Andere.end(), std::pair(Gefaltet, char32_t{0}));
         Paar != Andere.end() && Paar->first == Gefaltet; ++Paar)
        Alle.push_back(Paar->second);
    return Alle;
}

bool GleichOhneGroß(std::string_view A, std::string_view B) {
    std::size_t Rest = 0;
    return GleicherAnfang(A, B, Rest) && Rest == A.size();
}

bool BeginntMitOhneGroß(std::string_view Text, std::string_view Anfang) {
    std::size_t Rest = 0;
    return GleicherAnfang(Text, Anfang, Rest);
}

bool EndetMitOhneGroß(std::string_view Text, std::string_view Ende) {
    return GleichOhneGroß(RechterTeil(Text, ZeichenAnzahl(Ende)), Ende);
}

std::size_t PositionOhneGroß(std::string_view Text, std::string_view Teil, std::size_t Ab) {
    if (Ab > Text.size()) return std::string_view::npos;
    if (Teil.empty()) return Ab;
    const std::string_view Rest = Text.substr(Ab);
    const std::string Gesucht = Falten(Teil);

    // Most texts are short: they fold on the stack.
    std::array<char, 512> Klein;
    std::string Groß;
    char* Gefaltet = Klein.data();
    const std::size_t Bedarf = HöchsteLänge(Rest.size()) + Blockbreite;
    if (Bedarf > Klein.size()) {
        Groß.resize(Bedarf);
        Gefaltet = Groß.data();
    }
    bool LängenGleich = true;
    const std::size_t Länge = Abbilden<Faltend>(Rest, Gefaltet, LängenGleich);
    const std::size_t Stelle = BytesSuchen(std::string_view(Gefaltet, Länge), Gesucht);
    if (Stelle == std::string_view::npos) return Stelle;
    return Ab + (LängenGleich ? Stelle : Ursprung(Rest, Stelle));
}

}  // namespace liedwerk
