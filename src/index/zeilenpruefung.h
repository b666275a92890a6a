// The fast test of a data line: is it one that a save would write as it stands?
//
// Nearly every line of nearly every file is. It is then taken into the store by its address, without a copy,
// and with the tag marks that reading its fields one by one would set. All other lines are left to the
// patient way.
#pragma once

#include <optional>

#include "index/satzspeicher.h"

namespace liedwerk {

struct Zeilenfund {
    Satzspeicher::Platz Platz;
    const char* Dahinter = nullptr;  // the first byte behind the line end
    bool Unvollständig = false;      // size, file type or date of adding is missing: the file is read again
};

// Looks at the bytes from Anfang, which begin with "#TAG:", up to Ende, the end of the whole content. NurLf:
// lines end with LF alone. Nothing when the line is not exactly as a save writes it.
std::optional<Zeilenfund> SatzzeilePrüfen(const char* Anfang, const char* Ende, bool NurLf);

}  // namespace liedwerk
