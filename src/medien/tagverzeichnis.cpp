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
constexpr std::size_t Reihe = 64;

// 32 bits of a folded text. Letters of ASCII count without their case, so that a plain text needs no folding;
// that other characters fall together with it costs a look at the record, nothing else.
std::uint32_t Merkmal(std::string_view Gefaltet) {
    constexpr std::uint64_t OhneGroß = 0x2020202020202020ULL;
    constexpr std::uint64_t Faktor = 0x9E3779B97F4A7C15ULL;
    std::uint64_t Summe = Gefaltet.size() * Faktor;
    while (!Gefaltet.empty()) {
        std::uint64_t Wort = 0;
        const std::size_t Länge = std::min(Gefaltet.size(), sizeof Wort);
        std::memcpy(&Wort, Gefaltet.data(), Länge);
        Summe = (Summe ^ (Wort | OhneGroß)) * Faktor;
        Summe ^= Summe >> 29U;
        Gefaltet.remove_prefix(Länge);
    }
    return static_cast<std::uint32_t>(Summe >> 32U);
}

// The folded characters of the bytes of Windows-1252.
const std::array<std::string, 256>& GefalteteBytes() {
    static const std::array<std::string, 256> Tabelle = [] {
        std::array<std::string, 256> Neu;
        for (std::size_t Byte = 0; Byte < Neu.size(); ++Byte) {
            std::string Zeichen;
            ZeichenAnhängen(Zeichen, AnsiZeichen(static_cast<unsigned char>(Byte)));
            Neu[Byte] = Falten(Zeichen);
        }
        return Neu;
    }();
    return Tabelle;
}

// The mark of a value of the index file. Puffer is used again and again: a table is built over millions.
std::uint32_t MerkmalVonRohwert(std::string_view Roh, std::string& Puffer) {
    if (IstAscii(Roh)) return Merkmal(Roh);
    Puffer.clear();
    if (Roh.front() == IndexwertRohmarke.front()) {
        FaltenAnhängen(Puffer, IndexwertLesen(Roh));
    } else {
        const auto& Tabelle = GefalteteBytes();
        for (const char Byte : Roh)
            Puffer += Tabelle[static_cast<unsigned char>(Byte)];
    }
    return Merkmal(Puffer);
}

// True when one of the marks of the row is the one looked for. The loop has no way out, so that it is done in
// wide steps.
bool ReiheEnthält(const std::uint32_t* V1, const std::uint32_t* V2, std::size_t Anzahl,
                  std::uint32_t Gesucht) {
    bool Gefunden = false;
    for (std::size_t i = 0; i < Anzahl; ++i)
        Gefunden |= (V1[i] == Gesucht) | (V2[i] == Gesucht);
    return Gefunden;
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
    return {Art, Text, Merkmal(Falten(Text))};
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

void Tagverzeichnis::Eintragen(const Satzspeicher& Sätze, Satznummer Nummer, std::string& Puffer) {
    static constexpr std::array Gelesen = {int{FeldAlbum}, int{FeldInterpret}, int{FeldV2Album},
                                           int{FeldV2Interpret}};
    std::array<std::string_view, Gelesen.size()> Werte;
    SatzzeileFelder(Sätze.PlatzVon(Nummer).Zeile, Gelesen, Werte);
    const auto Platz = static_cast<std::size_t>(Nummer - 1);
    Spaltenpaar& Album = Spalten[static_cast<std::size_t>(Tagtext::Album)];
    Spaltenpaar& Interpret = Spalten[static_cast<std::size_t>(Tagtext::Interpret)];
    Album.V1[Platz] = MerkmalVonRohwert(Werte[0], Puffer);
    Interpret.V1[Platz] = MerkmalVonRohwert(Werte[1], Puffer);
    Album.V2[Platz] = MerkmalVonRohwert(Werte[2], Puffer);
    Interpret.V2[Platz] = MerkmalVonRohwert(Werte[3], Puffer);
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
        std::string Puffer;
        for (std::size_t Platz = Bisher + Von; Platz < Bisher + Bis; ++Platz)
            Eintragen(Sätze, static_cast<Satznummer>(Platz + 1), Puffer);
    });
    std::string Puffer;
    for (; GeleseneÄnderungen < Geändert.size(); ++GeleseneÄnderungen) {
        // Those that are not read yet will be read as they are then.
        const Satznummer Nummer = Geändert[GeleseneÄnderungen];
        if (static_cast<std::size_t>(Nummer) <= Bisher) Eintragen(Sätze, Nummer, Puffer);
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
