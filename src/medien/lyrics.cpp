#include "medien/lyrics.h"

#include <algorithm>
#include <optional>
#include <string>

#include "basis/ansi.h"
#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {
namespace {

constexpr auto Nirgends = std::string_view::npos;

// The number in a field of digits. More than its digits can say (an exponent passes for numeric too) and
// negative numbers count as damage: they would lead the walk backwards, or far out of the tag.
std::optional<std::int32_t> ZiffernLesen(std::string_view Text, std::size_t Stellen) {
    if (Text.size() != Stellen) return std::nullopt;
    const auto Wert = GanzzahlLesen<std::int32_t>(Text);
    constexpr std::int32_t Größter = 999999;
    if (!Wert || *Wert < 0 || *Wert > Größter) return std::nullopt;
    return Wert;
}

// Kept: the position lies one byte behind the start marker and the size is one less, so that the text loses
// its first character; the size ends with the end marker all the same.
bool Version1Lesen(const Lesedatei& Datei, std::uint64_t Fensterstelle, Datensatz& Satz) {
    const std::uint64_t Start = Fensterstelle > LyricsRückgriff ? Fensterstelle - LyricsRückgriff : 0;
    const std::string Puffer = Datei.Lesen(Start, LyricsRückgriff + LyricsFenster);
    const std::size_t Anfang = Puffer.find(LyricsAnfangsmarke);
    if (Anfang == Nirgends) return false;
    const std::size_t Ende = Puffer.find(LyricsEndmarke1, Anfang);
    if (Ende == Nirgends) return false;
    Satz.LyricsPosition = static_cast<std::int64_t>(Start + Anfang) + 2;
    const std::size_t Textstelle = Anfang + 1 + LyricsAnfangsmarke.size();
    Satz.LyricsGröße = static_cast<std::int32_t>(Ende + LyricsEndmarke1.size() - (Anfang + 1));
    if (Textstelle < Ende) {
        Satz.LyricsText = AnsiNachUtf8(std::string_view(Puffer).substr(Textstelle, Ende - Textstelle));
    }
    return true;
}

bool FelderLesen(std::string_view Felder, Datensatz& Satz) {
    // A last field with fewer than two characters of value is not looked at.
    constexpr std::size_t Mindestrest = LyricsFeldkopf + 2;
    while (Felder.size() >= Mindestrest) {
        const auto Länge =
            ZiffernLesen(Felder.substr(LyricsFeldkennung, LyricsFeldziffern), LyricsFeldziffern);
        if (!Länge) return false;
        const std::string_view Kennung = Felder.substr(0, LyricsFeldkennung);
        const std::string_view Feld = Felder.substr(0, LyricsFeldkopf + static_cast<std::size_t>(*Länge));
        if (GleichOhneGroß(Kennung, LyricsTextfeld)) {
            Satz.LyricsText = AnsiNachUtf8(Feld.substr(LyricsFeldkopf));
        } else if (Kennung != "IND" && Kennung != "CRC") {
            Satz.LyricsWeitereFelder += Feld;
        }
        Felder.remove_prefix(Feld.size());
    }
    return true;
}

// Endestelle is the 0-based offset behind the end marker.
bool Version2Lesen(const Lesedatei& Datei, std::string_view Größenfeld, std::uint64_t Endestelle,
                   Datensatz& Satz) {
    const auto Länge = ZiffernLesen(Größenfeld, LyricsGrößenziffern);
    if (!Länge) return false;
    Satz.LyricsGröße = *Länge + static_cast<std::int32_t>(LyricsNachspann);
    const auto Größe = static_cast<std::uint64_t>(Satz.LyricsGröße);
    if (Größe > Endestelle || Größe < LyricsAnfangsmarke.size() + LyricsNachspann) return false;
    const std::uint64_t Stelle = Endestelle - Größe;
    Satz.LyricsPosition = static_cast<std::int64_t>(Stelle) + 1;
    const std::string Tag = Datei.Lesen(Stelle, Größe);
    if (Tag.size() != Größe) return false;
    return FelderLesen(std::string_view(Tag).substr(LyricsAnfangsmarke.size(),
                                                    Tag.size() - LyricsAnfangsmarke.size() - LyricsNachspann),
                       Satz);
}

}  // namespace

std::string DateiendeLesen(const Lesedatei& Datei) {
    const std::uint64_t Länge = std::min(Datei.Größe(), LyricsFenster);
    return Datei.Lesen(Datei.Größe() - Länge, Länge);
}

bool LyricsLesen(const Lesedatei& Datei, std::string_view Dateiende, Datensatz& Satz) {
    Satz.HatLyrics = TagFehlt;
    Satz.LyricsVersion = 0;
    Satz.LyricsGröße = 0;
    Satz.LyricsPosition = 0;
    Satz.LyricsGelesen = false;
    Satz.LyricsText.clear();
    Satz.Id3v2WeitereFelder.clear();
    if (!Datei.Offen()) return false;
    if (Datei.Größe() <= LyricsNachspann) return true;

    const std::uint64_t Fensterstelle = Datei.Größe() - std::min(Datei.Größe(), LyricsFenster);
    bool Ganz = false;
    if (const std::size_t Marke = Dateiende.find(LyricsEndmarke2); Marke != Nirgends) {
        Satz.LyricsVersion = 2;
        const std::size_t Größenstelle = Marke - std::min(Marke, LyricsGrößenziffern);
        Ganz = Version2Lesen(Datei, Dateiende.substr(Größenstelle, Marke - Größenstelle),
                             Fensterstelle + Marke + LyricsEndmarke2.size(), Satz);
    } else if (Dateiende.find(LyricsEndmarke1) != Nirgends) {
        Satz.LyricsVersion = 1;
        Ganz = Version1Lesen(Datei, Fensterstelle, Satz);
    } else {
        return true;
    }
    if (Ganz) Satz.HatLyrics = TagVorhanden;
    return Ganz;
}

std::string LyricsTagBilden(std::string_view Text, std::string_view WeitereFelder) {
    const auto Feld = [](std::string_view Kennung, std::string_view Wert) {
        return std::string(Kennung)
            .append(NullenVoran(std::to_string(Wert.size()), LyricsFeldziffern))
            .append(Wert);
    };
    std::string Tag(LyricsAnfangsmarke);
    Tag += Feld("IND", "11");
    Tag += Feld(LyricsTextfeld, Utf8NachAnsiErsatz(Text));
    Tag += WeitereFelder;
    Tag += NullenVoran(std::to_string(Tag.size()), LyricsGrößenziffern);
    Tag += LyricsEndmarke2;
    return Tag;
}

void LyricsLeeren(Datensatz& Satz) {
    Satz.HatLyrics = TagFehlt;
    Satz.LyricsText.clear();
    Satz.LyricsWeitereFelder.clear();
}

}  // namespace liedwerk
