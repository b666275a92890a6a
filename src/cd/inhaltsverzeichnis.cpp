#include "cd/inhaltsverzeichnis.h"

#include <algorithm>
#include <charconv>

#include "basis/text.h"

namespace liedwerk {
namespace {

CDPosition PositionVon(std::int32_t Offset) {
    constexpr std::int32_t SekundenJeMinute = 60;
    const std::int32_t Sekunden = Offset / CDFramesJeSekunde;
    return {Sekunden / SekundenJeMinute, Sekunden % SekundenJeMinute, Offset % CDFramesJeSekunde, Offset};
}

std::int32_t SekundenVon(const CDPosition& Ort) {
    return Ort.Minuten * 60 + Ort.Sekunden;
}

std::int32_t Quersumme(std::int32_t Zahl) {
    std::int32_t Summe = 0;
    for (; Zahl > 0; Zahl /= 10)
        Summe += Zahl % 10;
    return Summe;
}

// At least Breite digits, none cut.
std::string Hex(std::int32_t Zahl, std::size_t Breite) {
    char Ziffern[8];
    const auto Ende =
        std::to_chars(std::begin(Ziffern), std::end(Ziffern), static_cast<std::uint32_t>(Zahl), 16).ptr;
    return NullenVoran(std::string_view(Ziffern, static_cast<std::size_t>(Ende - Ziffern)), Breite);
}

// The disc id of the CD database: check sum, length in seconds, number of tracks.
std::string KennungVon(const clsCcd& Disc) {
    std::int32_t Summe = 0;
    for (int i = 0; i < Disc.TrackCount; ++i)
        Summe += Quersumme(Disc.TrackTime(i));
    return Hex(Summe % 255, 2) + Hex(Disc.TotalLength, 4) + Hex(Disc.TrackCount, 2);
}

}  // namespace

bool clsCcd::Init(const CDLaufwerke& Port, std::string_view Name) {
    const CDInhalt Inhalt = Port.InhaltLesen(Name);
    *this = {};
    Laufwerk = Name;
    ErrMsg = Inhalt.Fehlertext;
    ErrorCode = Inhalt.Fehlernummer;
    if (Inhalt.Fehlernummer != 0 || Inhalt.Spuren.empty()) {
        if (ErrMsg.empty()) ErrMsg = "Undetermined MCI error";
        return false;
    }
    TrackCount = static_cast<std::int16_t>(std::min<std::size_t>(Inhalt.Spuren.size(), INT16_MAX));
    for (int i = 0; i < TrackCount; ++i) {
        const CDSpur& Spur = Inhalt.Spuren[static_cast<std::size_t>(i)];
        Positionen.push_back(PositionVon(Spur.Offset));
        Datenspuren.push_back(Spur.Daten);
    }
    // The port gives the true lead-out; no frame is missing in it.
    Positionen.push_back(PositionVon(Inhalt.LeadOut));
    TotalLength = TrackTime(TrackCount) - TrackTime(0);
    DiskID = KennungVon(*this);
    return true;
}

std::int32_t clsCcd::TrackTime(int i) const {
    return i < 0 || i > TrackCount || Positionen.empty()
               ? 0
               : SekundenVon(Positionen[static_cast<std::size_t>(i)]);
}

std::int32_t clsCcd::TrackOffset(int i) const {
    return i < 0 || i > TrackCount || Positionen.empty() ? 0 : Positionen[static_cast<std::size_t>(i)].Offset;
}

std::int32_t clsCcd::TrackFrames(int i) const {
    return i < 0 || i > TrackCount || Positionen.empty() ? 0 : Positionen[static_cast<std::size_t>(i)].Frames;
}

std::string clsCcd::QueryString() const {
    std::string Text = "cddb+query+" + DiskID + "+" + std::to_string(TrackCount);
    for (int i = 0; i < TrackCount; ++i)
        Text += "+" + std::to_string(TrackOffset(i));
    return Text + "+" + std::to_string(TrackTime(TrackCount));
}

std::string CDFehlertext(const clsCcd& Disc) {
    return "CD-Rom Gerätefehler: " + Disc.ErrMsg;
}

}  // namespace liedwerk
