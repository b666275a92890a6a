// Building ID3v2.3 tags, and the decision how one takes the place of an old one.
#include <algorithm>

#include "basis/ansi.h"
#include "basis/zahl.h"
#include "medien/id3v2.h"

namespace liedwerk {
namespace {

using namespace std::string_view_literals;

std::string GroßesEnde(std::uint32_t Wert) {
    std::string Bytes(4, '\0');
    for (auto Stelle = Bytes.rbegin(); Stelle != Bytes.rend(); ++Stelle, Wert >>= 8)
        *Stelle = static_cast<char>(Wert & 0xFFU);
    return Bytes;
}

void Id3v2RahmenAnhängen(std::string_view Wert, std::string_view Kennung, std::string& Rahmen,
                         bool AuchLeer = false) {
    if (Wert.empty() && !AuchLeer) return;
    Rahmen += Kennung;
    Rahmen += GroßesEnde(static_cast<std::uint32_t>(Wert.size() + 1));
    Rahmen += "\0\0\0"sv;  // two bytes of flags, encoding 0
    Rahmen += Wert;
}

std::string MitSprache(const std::string& Wert) {
    return Wert.empty() ? Wert : std::string("eng\0"sv) + Wert;
}

// The bytes of a field's frame behind the encoding.
std::string Rahmenwert(std::string Datensatz::*Feld, const Datensatz& Satz) {
    const std::string Wert = Utf8NachAnsiErsatz(Satz.*Feld);
    const bool Sprache = Feld == &Datensatz::V2Link || Feld == &Datensatz::V2Kommentar;
    return Sprache ? MitSprache(Wert) : Wert;
}

// The four seven-bit bytes of a tag's size; values above 28 bits are cut.
std::string SiebenBitGröße(std::uint64_t Wert) {
    std::string Bytes;
    for (int Stelle = 3; Stelle >= 0; --Stelle)
        Bytes += static_cast<char>(Wert >> (7 * Stelle) & 0x7FU);
    return Bytes;
}

}  // namespace

std::string Id3v2RahmenBilden(const Datensatz& Satz) {
    std::string Rahmen;
    for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder) {
        const bool AuchLeer = Feld.Feld == &Datensatz::V2Interpret || Feld.Feld == &Datensatz::V2Titel;
        Id3v2RahmenAnhängen(Rahmenwert(Feld.Feld, Satz), Feld.Kennung, Rahmen, AuchLeer);
    }
    Id3v2RahmenAnhängen(Rahmenwert(&Datensatz::V2AbspielZähler, Satz), "PCNT", Rahmen);
    if (Satz.V2Qualität != KeineV2Qualität) {
        std::string Wert("email\0"sv);
        Wert += static_cast<char>(Satz.V2Qualität);
        Wert += "\0\0\0\0"sv;
        Id3v2RahmenAnhängen(Wert, Id3v2QualitätKennung, Rahmen, true);
    }
    // A single blank stands for frames that cannot be written back.
    if (Satz.Id3v2WeitereFelder.size() >= 2) Rahmen += Satz.Id3v2WeitereFelder;
    return Rahmen;
}

Id3v2Umbau Id3v2UmbauPlanen(const Datensatz& Zustand, const Datensatz& Satz, std::int32_t Prozent) {
    const std::string Kopf = std::string(Id3v2Kennung) + std::string("\3\0\0\0\0\0\0"sv);
    return Id3v2Einsetzen(Zustand, Kopf + Id3v2RahmenBilden(Satz), Prozent);
}

Id3v2Umbau Id3v2Einsetzen(const Datensatz& Zustand, std::string Tag, std::int32_t Prozent) {
    Id3v2Umbau Umbau;
    if (Zustand.HatId3v2 == TagVorhanden) Umbau = Id3v2EntfernungPlanen(Zustand);
    if (Umbau.Altlänge > 0 && Umbau.Stelle == 0 && Tag.size() <= Umbau.Altlänge) {
        Tag.resize(static_cast<std::size_t>(Umbau.Altlänge), '\0');
    } else {
        // More than its size can say is no use to a tag.
        constexpr double HöchsterZuschlag = (1 << 28) - 1;
        const double Zuschlag = static_cast<double>(Tag.size()) * std::max(Prozent, 0) / 100;
        const auto Padding = Gerundet<std::int64_t>(std::min(Zuschlag, HöchsterZuschlag));
        Tag.append(static_cast<std::size_t>(Padding.value_or(0)), '\0');
    }
    Umbau.Neu = std::move(Tag);
    Umbau.Neu.replace(Id3v2GrößeStelle, 4, SiebenBitGröße(Umbau.Neu.size() - Id3v2KopfLänge));
    return Umbau;
}

Id3v2Umbau Id3v2EntfernungPlanen(const Datensatz& Zustand) {
    if (Zustand.Id3v2Größe < 1 || Zustand.Id3v2Position < 1) return {};
    return {static_cast<std::uint64_t>(Zustand.Id3v2Position - 1),
            static_cast<std::uint64_t>(Zustand.Id3v2Größe),
            {}};
}

}  // namespace liedwerk
