// The keys by which records are sorted, and their ranks.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"
#include "suche/feldwert.h"

namespace liedwerk {

// The number that a text stands for. A numeric text gives its value. For any other, Art says what is taken: 2
// and 3 the number in front of the first "/" ("3/12" gives 3); 1 and 3 otherwise all its digits strung
// together ("CD2 Track 5" gives 25). Everything else is 0.
float ZahlWert(std::string_view Text, int Art);

// The key of one record: a number for the fields that are numbers in the sort form, otherwise the text in
// upper case, compared by character code.
// Kept: a number is a 32-bit float, so that sizes above 16 MB and dates with their time may be equal.
struct Sortierschlüssel {
    float Zahl = 0;
    std::string Text;
    auto operator<=>(const Sortierschlüssel&) const = default;
};
void SchlüsselBilden(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld,
                     Sortierschlüssel& Schlüssel);

// True when a record's key is not its own but tells its place: the number, and formats that name it.
bool SchlüsselHängtAmPlatz(const Katalog& Index, const Feldwahl& Feld);

// For each of the fields a number for each record, in the order of the index, that compares with the others
// as its key does. All fields in one walk, on all cores: reaching a record costs more than reading it. Weiter
// is asked now and then, on the calling thread, with the count of records that are done; nothing when it gave
// false.
using Rangliste = std::vector<std::uint32_t>;
std::optional<std::vector<Rangliste>> RängeBilden(const Katalog& Index, std::span<const Feldwahl> Gefragte,
                                                  const std::function<bool(std::size_t)>& Weiter);

}  // namespace liedwerk
