// The figures of an index: how many files, how long, how large, and how that divides by genre, year and so
// on.
//
// One pass over the records; values are grouped by their bytes and become text only once per group, so that a
// million records take well under a second.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"

namespace liedwerk {

struct Statistikwerte {
    std::int64_t Dateien = 0;
    std::int64_t Sekunden = 0;
    std::int64_t Bytes = 0;  // of the files whose size is known
};

struct Statistikgruppe {
    std::string Name;
    Statistikwerte Werte;
    bool Gesammelt = false;  // files without a value, or the rest of a picture
};

// A way to divide the files; the numbers are the places in Indexstatistik::Gruppen.
enum class Statistikteilung : std::uint8_t { Genre, Jahr, Dateityp, Bitrate, Interpret, Medium };
inline constexpr std::size_t Statistikteilungen = 6;

struct Gespielter {
    Satznummer Nummer = 0;
    std::string Name;  // "artist - title", or the file's name
    std::int32_t Häufigkeit = 0;
};

struct Indexstatistik {
    Statistikwerte Gesamt;
    std::int64_t MitDauer = 0;  // files whose duration is known
    std::int64_t MitGröße = 0;  // files whose size is known
    std::int64_t MitId3v1 = 0;
    std::int64_t MitId3v2 = 0;
    std::int64_t Gespielt = 0;      // files that were played at all
    std::int64_t Abspielungen = 0;  // all plays
    // Years and bit rates in ascending order, the others by number of files; what has no value stands last.
    std::array<std::vector<Statistikgruppe>, Statistikteilungen> Gruppen;
    std::vector<Gespielter> MeistGespielt;  // the 30 most played
};

// Weiter is asked now and then with the number of records done; false cancels, and nothing is given. Where
// the ID3v1 tag is missing, the other tag's fields count if the index's columns show it so. Genres have their
// names here: "Jazz" also for a file whose ID3v2 tag says "(8)", for which the list shows nothing.
std::optional<Indexstatistik> IndexstatistikBilden(const Katalog& Index,
                                                   const std::function<bool(Satznummer)>& Weiter);

// What a bar shows of a group.
enum class Statistikmaß : std::uint8_t { Dateien, Spieldauer, Größe };
std::int64_t MaßVon(const Statistikwerte& Werte, Statistikmaß Maß);
// The value as a person reads it: "1.234", "12 Tage 03:04:05", "1,2 GB".
std::string MaßText(std::int64_t Wert, Statistikmaß Maß);
// The groups that a picture shows: at most Höchstens by the measure, the rest as one called "übrige"; years
// and bit rates keep their order and stay complete.
std::vector<Statistikgruppe> GruppenFürBild(const Indexstatistik& Statistik, Statistikteilung Teilung,
                                            Statistikmaß Maß, std::size_t Höchstens);
// All figures as lines of text, for the clipboard.
std::string StatistikAlsText(const Indexstatistik& Statistik, std::string_view Eigentümer);
std::string_view TeilungName(Statistikteilung Teilung);

}  // namespace liedwerk
