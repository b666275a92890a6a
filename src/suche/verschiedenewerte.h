// The distinct values of fields, for drop-downs and trees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "index/katalog.h"
#include "suche/feldwert.h"

namespace liedwerk {

// The display texts of the asked fields, record by record, each cut at its first character 0; empty ones and
// those that are Gleich to an earlier one are left out. Only records whose mark is above 0 count, all when
// there are no marks. Weiter is asked now and then, on the calling thread, with the count of records that are
// done. Nothing when it gave false.
std::optional<std::vector<std::string>> VerschiedeneWerte(const Katalog& Index,
                                                          std::span<const Feldwahl> Gefragte, bool AndererTag,
                                                          std::span<const std::int16_t> Markierung,
                                                          const std::function<bool(std::size_t)>& Weiter);

}  // namespace liedwerk
