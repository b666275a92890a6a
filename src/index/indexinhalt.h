// The content of an index file becomes a catalogue: records, options and reminders, line by line.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "basis/datei.h"
#include "basis/protokoll.h"
#include "index/katalog.h"

namespace liedwerk {

// The bytes of a whole index file, with room for a line end behind them.
struct Indexblock {
    std::unique_ptr<char[]> Bytes;
    std::size_t Länge = 0;
    std::string_view Inhalt() const { return {Bytes.get(), Länge}; }
};
// Reads an open file in one go; nothing when it gives less than its size.
std::optional<Indexblock> IndexblockLesen(const Lesedatei& Datei);

// How the first line of a file ends, and where the rest begins.
struct ErsteZeile {
    std::string_view Text;
    std::size_t Dahinter = 0;
    bool NurLf = false;  // the whole file ends its lines with LF alone
};
ErsteZeile ErsteZeileLesen(std::string_view Inhalt);

struct Inhaltsauftrag {
    Protokoll& Log;
    bool MitDatensätzen = true;  // false: data lines do not belong into this file
    // Called with the bytes done while the walk goes on; may be empty.
    std::function<void(std::size_t)> Zeigen;
};

// Puts the lines behind the first one into the catalogue, whose records, options and reminders are empty. The
// block goes over to the store. Gives true when a record lacks data that its file could tell.
bool IndexzeilenÜbernehmen(Katalog& Index, Indexblock Block, const Inhaltsauftrag& Auftrag);

// The same for a file of unknown form: every line that is neither empty nor a data line is the path of a
// record.
void PfadzeilenÜbernehmen(Katalog& Index, const Indexblock& Block);

// True when a file begins as an index file does; false for one that cannot be read.
bool IstIndexdatei(const std::string& Pfad);
// True when a file is an index file without a fault: version line, every sum right. Vollständig also asks for
// the current version, for known lines only and for a line end at the end, as a finished save leaves it.
bool IndexdateiIstHeil(std::string_view Pfad, bool Vollständig);

}  // namespace liedwerk
