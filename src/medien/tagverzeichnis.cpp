#include "medien/tagverzeichnis.h"

#include <algorithm>
#include <cstring>

#include "basis/ansi.h"
#include "basis/kerne.h"
#include "basis/text.h"
#include "index/satzzeile.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

// Records a core at least, so that the threads are worth their start.
constexpr std::size_t SätzeJeKern = 20000;
// Marks that are compared at a time.
constexpr std::size_t Reihe = 256;

// Up to eight bytes as one number; no byte is read that is not the text's.
std::uint64_t Wort(const char* Stelle, std::size_t Länge) {
    const auto Lesen = [&]<class Ganzzahl>(Ganzzahl, std::size_t Ab) {
        Ganzzahl Wert = 0;
        std::memcpy(&Wert, Stelle + Ab, sizeof Wert);
        return std::uint64_t{Wert};
    };
    if (Länge == 8) return Lesen(std::uint64_t{}, 0);
    if (Länge >= 4) return Lesen(std::uint32_t{}, 0) | Lesen(std::uint32_t{}, Länge - 4) << 32U;
    return Lesen(std::uint8_t{}, 0) | Lesen(std::uint8_t{}, Länge / 2) << 8U |
           Lesen(std::uint8_t{}, Länge - 1) << 16U;
}

// 16 bits of a text, one byte a character. Letters of ASCII count without their case, and all bytes above
// them alike, so that a value of the index file needs neither folding nor another encoding; that different
// texts may fall together costs a look at the record, nothing else.
std::uint16_t MerkmalVonZeichen(std::string_view Zeichen) {
    constexpr std::uint64_t OhneGroß = 0x2020202020202020ULL;
    constexpr std::uint64_t Hohe = 0x8080808080808080ULL;
    constexpr std::uint64_t Faktor = 0x9E3779B97F4A7C15ULL;
    constexpr std::size_t Breite = sizeof(std::uint64_t);
    std::uint64_t Summe = Zeichen.size() * Faktor;
    const auto Zunehmen = [&](std::uint64_t Neues) {
        const std::uint64_t Fremde = (Neues & Hohe) >> 7U;
        Summe = (Summe ^ (Neues | OhneGroß | Fremde * 0xFFU)) * Faktor;
        Summe ^= Summe >> 29U;
    };
    const char* Stelle = Zeichen.data();
    std::size_t Rest = Zeichen.size();
    for (; Rest > Breite; Rest -= Breite, Stelle += Breite)
        Zunehmen(Wort(Stelle, Breite));
    // The last word of a long text reaches back into the one before it.
    const std::size_t Zurück = Zeichen.size() > Breite ? Breite - Rest : 0;
    if (Rest > 0) Zunehmen(Wort(Stelle - Zurück, Rest + Zurück));
    return static_cast<std::uint16_t>(Summe >> 48U);
}

// What folding makes of the characters of Windows-1252 beyond ASCII; rising.
const std::vector<char32_t>& GefalteteAnsizeichen() {
    static const std::vector<char32_t> Liste = [] {
        std::string Alle;
        for (unsigned Byte = 0x80; Byte <= 0xFF; ++Byte)
            ZeichenAnhängen(Alle, AnsiZeichen(static_cast<unsigned char>(Byte)));
        Alle = Falten(Alle);
        std::vector<char32_t> Neue;
        for (std::size_t Stelle = 0; Stelle < Alle.size();)
            Neue.push_back(ZeichenLesen(Alle, Stelle));
        std::ranges::sort(Neue);
        return Neue;
    }();
    return Liste;
}

// Characters that no value of one byte each can hold count as one of 32 letters, so that names in other
// alphabets do not all fall together.
std::uint16_t MerkmalVonText(std::string_view Text) {
    const std::string Gefaltet = Falten(Text);
    std::string Zeichen;
    for (std::size_t Stelle = 0; Stelle < Gefaltet.size();) {
        const char32_t Eines = ZeichenLesen(Gefaltet, Stelle);
        if (Eines < 0x80U)
            Zeichen += static_cast<char>(Eines);
        else if (std::ranges::binary_search(GefalteteAnsizeichen(), Eines))
            Zeichen += '\xFF';
        else
            Zeichen += static_cast<char>(0x60U | (Eines & 0x1FU));
    }
    return MerkmalVonZeichen(Zeichen);
}

// The mark of a value of the index file: of its text, made without it where the file's bytes are characters.
std::uint16_t MerkmalVonRohwert(std::string_view Roh) {
    return Roh.starts_with(IndexwertRohmarke) ? MerkmalVonText(IndexwertLesen(Roh)) : MerkmalVonZeichen(Roh);
}

// True when one of the marks of the row is the one looked for. The loop has no way out, so that it is done in
// wide steps.
bool ReiheEnthält(const std::uint16_t* V1, const std::uint16_t* V2, std::size_t Anzahl,
                  std::uint16_t Gesucht) {
    std::uint16_t Gefunden = 0;
    for (std::size_t i = 0; i < Anzahl; ++i)
        Gefunden |= static_cast<std::uint16_t>((V1[i] == Gesucht) | (V2[i] == Gesucht));
    return Gefunden != 0;
}

bool HatTag(const Satzspeicher& Sätze, Satznummer Nummer) {
    return Sätze.HatId3v1(Nummer) == TagVorhanden || Sätze.HatId3v2(Nummer) == TagVorhanden;
}

std::array<int, 2> FelderVon(Tagtext Art) {
    if (Art == Tagtext::Interpret) return {FeldInterpret, FeldV2Interpret};
    return {FeldAlbum, FeldV2Album};
}

// True when the record's text, in ID3v1 or ID3v2, is the given one.
bool TextGleich(const Satzspeicher& Sätze, Satznummer Nummer, Tagtext Art, std::string_view Text) {
    const auto Beide = FelderVon(Art);
    return std::any_of(Beide.begin(), Beide.end(), [&](int Feld) {
        const std::string_view Roh = Sätze.Roh(Nummer, Feld);
        return IstAscii(Roh) ? GleichOhneGroß(Roh, Text) : GleichOhneGroß(IndexwertLesen(Roh), Text);
    });
}

}  // namespace

Tagverzeichnis::Frage Tagverzeichnis::FrageNach(Tagtext Art, std::string_view Text) {
    return {Art, Text, MerkmalVonText(Text)};
}

bool Tagverzeichnis::Passt(const Satzspeicher& Sätze, const Frage& Gefragt, std::size_t Platz) const {
    const Spaltenpaar& Paar = SpaltenFür(Gefragt.Art);
    if (Paar.V1[Platz] != Gefragt.Merkmal && Paar.V2[Platz] != Gefragt.Merkmal) return false;
    return TextGleich(Sätze, static_cast<Satznummer>(Platz + 1), Gefragt.Art, Gefragt.Text);
}

bool Tagverzeichnis::Hat(const Satzspeicher& Sätze, Satznummer Nummer, Tagtext Art, std::string_view Text) {
    Nachführen(Sätze);
    return Passt(Sätze, FrageNach(Art, Text), static_cast<std::size_t>(Nummer - 1));
}

void Tagverzeichnis::Eintragen(const Satzspeicher& Sätze, Satznummer Nummer) {
    static constexpr std::array Gelesen = {int{FeldAlbum}, int{FeldInterpret}, int{FeldV2Album},
                                           int{FeldV2Interpret}};
    std::array<std::string_view, Gelesen.size()> Werte;
    SatzzeileFelder(Sätze.PlatzVon(Nummer).Zeile, Gelesen, Werte);
    const auto Platz = static_cast<std::size_t>(Nummer - 1);
    Spaltenpaar& Album = Spalten[static_cast<std::size_t>(Tagtext::Album)];
    Spaltenpaar& Interpret = Spalten[static_cast<std::size_t>(Tagtext::Interpret)];
    Album.V1[Platz] = MerkmalVonRohwert(Werte[0]);
    Interpret.V1[Platz] = MerkmalVonRohwert(Werte[1]);
    Album.V2[Platz] = MerkmalVonRohwert(Werte[2]);
    Interpret.V2[Platz] = MerkmalVonRohwert(Werte[3]);
}

bool Tagverzeichnis::Vorbereiten(const Satzspeicher& Sätze, std::size_t Höchstens) {
    const auto Geändert = Sätze.GeänderteSätze();
    const auto Anzahl = static_cast<std::size_t>(Sätze.Anzahl());
    std::size_t Bisher = Spalten[0].V1.size();
    if (Generation != Sätze.Generation() || GeleseneÄnderungen > Geändert.size() || Bisher > Anzahl) {
        Bisher = 0;
        GeleseneÄnderungen = Geändert.size();
        Generation = Sätze.Generation();
    }
    const std::size_t Neue = std::min(Anzahl - Bisher, Höchstens);
    for (Spaltenpaar& Paar : Spalten) {
        if (Bisher == 0) Paar.V1.reserve(Anzahl);
        if (Bisher == 0) Paar.V2.reserve(Anzahl);
        Paar.V1.resize(Bisher + Neue);
        Paar.V2.resize(Bisher + Neue);
    }
    AufKerneVerteilen(Neue, SätzeJeKern, [&](std::size_t, std::size_t Von, std::size_t Bis) {
        for (std::size_t Platz = Bisher + Von; Platz < Bisher + Bis; ++Platz)
            Eintragen(Sätze, static_cast<Satznummer>(Platz + 1));
    });
    for (; GeleseneÄnderungen < Geändert.size(); ++GeleseneÄnderungen) {
        // Those that are not read yet will be read as they are then.
        const Satznummer Nummer = Geändert[GeleseneÄnderungen];
        if (static_cast<std::size_t>(Nummer) <= Bisher) Eintragen(Sätze, Nummer);
    }
    return Bisher + Neue == Anzahl;
}

void Tagverzeichnis::Nachführen(const Satzspeicher& Sätze) {
    Vorbereiten(Sätze, static_cast<std::size_t>(Sätze.Anzahl()));
}

Satznummer Tagverzeichnis::Nächster(const Satzspeicher& Sätze, Tagtext Art, std::string_view Text,
                                    Satznummer Ab) {
    Nachführen(Sätze);
    const Frage Gefragt = FrageNach(Art, Text);
    const auto& [V1, V2] = SpaltenFür(Art);
    for (auto Anfang = static_cast<std::size_t>(Ab - 1); Anfang < V1.size(); Anfang += Reihe) {
        const std::size_t Ende = std::min(Anfang + Reihe, V1.size());
        if (!ReiheEnthält(&V1[Anfang], &V2[Anfang], Ende - Anfang, Gefragt.Merkmal)) continue;
        for (std::size_t Platz = Anfang; Platz < Ende; ++Platz) {
            const auto Nummer = static_cast<Satznummer>(Platz + 1);
            if (HatTag(Sätze, Nummer) && Passt(Sätze, Gefragt, Platz)) return Nummer;
        }
    }
    return 0;
}

Satznummer Tagverzeichnis::Voriger(const Satzspeicher& Sätze, Tagtext Art, std::string_view Text,
                                   Satznummer Ab) {
    Nachführen(Sätze);
    const Frage Gefragt = FrageNach(Art, Text);
    const auto& [V1, V2] = SpaltenFür(Art);
    for (auto Ende = static_cast<std::size_t>(Ab); Ende > 0;) {
        const std::size_t Anfang = Ende - std::min(Ende, Reihe);
        if (ReiheEnthält(&V1[Anfang], &V2[Anfang], Ende - Anfang, Gefragt.Merkmal)) {
            for (std::size_t Platz = Ende; Platz-- > Anfang;) {
                const auto Nummer = static_cast<Satznummer>(Platz + 1);
                if (HatTag(Sätze, Nummer) && Passt(Sätze, Gefragt, Platz)) return Nummer;
            }
        }
        Ende = Anfang;
    }
    return 0;
}

}  // namespace liedwerk
