// Tracks of audio CDs: what a record takes from the disc's data.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "basis/protokoll.h"
#include "cd/cddaten.h"
#include "index/datensatz.h"

namespace liedwerk {

// The number of a track by its file name ("Track01.cda"); nothing for a name of another form.
std::optional<std::int32_t> CDTitelnummer(std::string_view Pfad);

// CDInfosLesen: fills the record of a track ("Track01.cda") from the data of the disc that was read. The tags
// are marked as absent, then ID3v1 as present. With VariousErsetzen the titles of a sampler ("artist /
// title", "artist - title") give their own artist. A name of another form changes nothing, a number that the
// disc does not have empties the block; both are logged. Log may be missing.
void CDInfosLesen(std::string_view Pfad, Datensatz& Satz, const CDDaten& Daten, bool VariousErsetzen,
                  Protokoll* Log);

}  // namespace liedwerk
