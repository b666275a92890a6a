// How the new content of a media file reaches the disk.
//
// Either in place (one write, then a flush), or as a new file under the name of the old one with "~lwitmp"
// behind it, which takes the place of the original in one rename. A file with several names (hard links) is
// overwritten from "~lwineu", which is whole and flushed before the first byte of the original changes. As
// long as either lies there, a mark in the program's folder tells the next start about it (tagrettung.h).
// Whatever goes wrong, the original is whole, or its whole new content lies beside it. Why it went wrong
// comes back as Schreibausgang; the words for the person are tagdatei's.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "basis/speicherrest.h"

namespace liedwerk {

// What a rewriting takes from its surroundings.
struct Schreibrahmen {
    Kopierfortschritt Weiter{};  // asked between the blocks; its false leaves the old file
    std::string Merkordner{};    // for the marks of unfinished overwritings; empty: there are none
};

// A piece of a new file: bytes of its own, or a range of the old file.
struct Dateistück {
    std::string_view Bytes{};
    std::uint64_t Stelle = 0;
    std::uint64_t Länge = 0;
};
// The bytes of the old file from one 0-based offset up to another; none when that is not behind it.
constexpr Dateistück AusAlter(std::uint64_t Stelle, std::uint64_t Ende) {
    return {{}, Stelle, Ende > Stelle ? Ende - Stelle : 0};
}

// How far a change of a file came.
enum class Schritt {
    Fertig,
    Zugriff,    // the file cannot be opened for writing
    Vorläufig,  // the temporary file cannot be made
    Schreiben,  // the new content cannot be written
    Ersetzen,   // the original cannot be replaced
};
struct Schreibausgang {
    Schritt Stand = Schritt::Fertig;
    Dateifehler Fehler;
};

// True when the person can mend it with the rights of file and folder.
bool LiegtAmZugriff(const Dateifehler& Fehler);
// True when Schreibrahmen::Weiter has ended the rewriting.
bool WurdeAbgebrochen(const Dateifehler& Fehler);
// The failure of a file of which a part was asked for and did not come: what stands there is not known, and
// neither of the two below writes into it.
Dateifehler NichtGanzGelesen();
// The failure of a file that cannot be opened for writing.
Dateifehler KeineSchreibrechte();

// Writes bytes into the file that was opened as Quelle, from a 0-based offset on, beyond its end too. A file
// that holds these bytes already is not touched.
Schreibausgang AmOrtSchreiben(std::string_view Pfad, const Lesedatei& Quelle, std::uint64_t Stelle,
                              std::string_view Bytes);
// Replaces the file that was opened as Quelle, and claimed, by the pieces.
Schreibausgang NeuSchreiben(std::string_view Name, const Lesedatei& Quelle,
                            std::initializer_list<Dateistück> Stücke, const Schreibrahmen& Rahmen);

// Overwrites a file with several names by what lies under TagGesichertname; that goes only when it stands in
// the file. Stand is the state in which the caller has seen and claimed it; Weiter is asked between the
// blocks, and its false leaves the rest to the next time. Angefangen says on failure whether the file may be
// torn.
Dateifehler GesichertesÜbertragen(std::string_view Pfad, const Dateistand& Stand,
                                  const Kopierfortschritt& Weiter, bool& Angefangen);

// The mark of a rewriting that is not finished yet: a small file in the program's folder.
struct Schreibmarke {
    std::string Pfad;         // of the file that is rewritten, links resolved
    std::uint64_t Inode = 0;  // another one under that path is another file; 0: it is only copied
};
// Stands behind the name of a mark that is being written: no byte of the original has changed then.
inline constexpr std::string_view SchreibmarkeUnfertig = "~";
// The name of a mark's file for a path, and whether a name is one, finished or not.
std::string SchreibmarkeName(std::string_view Pfad);
bool IstSchreibmarke(std::string_view Name);
// Reads a mark; nothing when it is none that this user's program has written. Its Pfad is empty when it was
// not written to its end.
std::optional<Schreibmarke> SchreibmarkeLesen(std::string_view Markendatei);

}  // namespace liedwerk
