#include "suche/faltung.h"

#include <array>
#include <cstdint>
#include <utility>

#include "basis/ansi.h"
#include "basis/text.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

// The folded UTF-8 form of each Windows-1252 byte.
struct Faltform {
    std::uint8_t Länge;
    std::array<char, 3> Bytes;
};
const std::array<Faltform, 256>& Faltformen() {
    static const auto Tafel = [] {
        std::array<Faltform, 256> Ergebnis{};
        for (std::size_t i = 0; i < Ergebnis.size(); ++i) {
            std::string Form;
            ZeichenAnhängen(Form, ZeichenFalten(AnsiZeichen(static_cast<unsigned char>(i))));
            Ergebnis[i].Länge = static_cast<std::uint8_t>(Form.size());
            std::copy(Form.begin(), Form.end(), Ergebnis[i].Bytes.begin());
        }
        return Ergebnis;
    }();
    return Tafel;
}

// Folds 16 bytes; false when one of them is no ASCII. Both loops become vector code.
constexpr std::size_t Schritt = 16;
inline bool SchrittFalten(const char* Quelle, char* Ziel) {
    unsigned char Hoch = 0;
    for (std::size_t i = 0; i < Schritt; ++i)
        Hoch = static_cast<unsigned char>(Hoch | static_cast<unsigned char>(Quelle[i]));
    for (std::size_t i = 0; i < Schritt; ++i) {
        const auto Byte = static_cast<unsigned char>(Quelle[i]);
        const bool Groß = static_cast<unsigned char>(Byte - 'A') < 26;
        Ziel[i] = static_cast<char>(Byte | (Groß ? 0x20 : 0));
    }
    return Hoch < 0x80;
}

// Appends the folded text of a raw value.
void RohwertFalten(Werkbank& Ziel, std::string_view Bytes) {
    // Only such values may hold more than their code page.
    if (Bytes.starts_with('\xEF')) return Ziel.Anhängen(Falten(IndexwertLesen(Bytes)));
    const auto& Tafel = Faltformen();
    char* const Beginn = Ziel.Platz(3 * Bytes.size() + Schritt);
    char* Ende = Beginn;
    std::size_t Stelle = 0;
    while (Stelle < Bytes.size()) {
        while (Bytes.size() - Stelle >= Schritt && SchrittFalten(Bytes.data() + Stelle, Ende)) {
            Stelle += Schritt;
            Ende += Schritt;
        }
        // Up to the next whole step, or what hindered this one.
        for (std::size_t i = std::min(Schritt, Bytes.size() - Stelle); i > 0; --i) {
            const Faltform& Form = Tafel[static_cast<unsigned char>(Bytes[Stelle++])];
            std::memcpy(Ende, Form.Bytes.data(), Form.Bytes.size());
            Ende += Form.Länge;
        }
    }
    Ziel.Größe += static_cast<std::size_t>(Ende - Beginn);
}

// Appends the folded text of the standard search as FeldWert joins it.
void StandardtextFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer) {
    const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
    for (const int Feld : Standardsuchfelder) {
        if (Feld != Standardsuchfelder.front()) Ziel.Anhängen(Trennblank);
        RohwertFalten(Ziel, Sicht.Roh(Feld));
    }
}

}  // namespace

void FeldwertFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld,
                    bool AndererTag, bool Gefaltet, std::string& Wert) {
    if (Feld.Kennung == Feldkennung::Standardsuche && Feld.Bekannt && Gefaltet)
        return StandardtextFalten(Ziel, Index, Nummer);
    Feldtyp Typ{};
    if (!FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, AndererTag, Wert, Typ)) return;
    Ziel.Anhängen(Gefaltet ? Falten(Wert) : Wert);
}

void StandardwörterFalten(Werkbank& Ziel, const Katalog& Index, Satznummer Nummer) {
    static constexpr std::array<std::pair<int, int>, 3> Paare = {
        {{FeldV2Titel, FeldTitel}, {FeldV2Interpret, FeldInterpret}, {FeldV2Album, FeldAlbum}}};
    const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
    const std::size_t Beginn = Ziel.Größe;
    const auto Aufnehmen = [&](std::string_view Bytes) {
        if (Bytes.empty()) return;
        const std::size_t Vorher = Ziel.Größe;
        RohwertFalten(Ziel, Bytes);
        const std::string_view Bisher = Ziel.Ab(Beginn).substr(0, Vorher - Beginn);
        if (Bisher.find(Ziel.Ab(Vorher)) != std::string_view::npos) {
            Ziel.Größe = Vorher;
        } else {
            Ziel.Anhängen(Trennblank);
        }
    };
    // The long values come first.
    Aufnehmen(Sicht.Roh(FeldPfad));
    for (const auto& [V2Feld, V1Feld] : Paare) {
        const std::string_view V2 = Sicht.Roh(V2Feld);
        const std::string_view V1 = Sicht.Roh(V1Feld);
        Aufnehmen(V2);
        // An ID3v1 value is mostly the ID3v2 value or its beginning. Bytes that may be a raw form say nothing
        // before they are read.
        if (!V2.starts_with(V1) || V1.starts_with('\xEF')) Aufnehmen(V1);
    }
    if (Ziel.Größe == Beginn) Ziel.Anhängen(Trennblank);
}

}  // namespace liedwerk
