// The export of lists: records as a file for other programs, or as text for the clipboard.
//
// export/ turns records of the catalogue into lists. exportformate.h makes the text of each format, here it
// is brought into the right code page and written through the commit object, so that a failed export leaves
// the old file. The dialog and the command line fill an Exportauftrag and call ExportSchreiben; what happens
// around it (questions, showing the file) is core/exportlauf.h.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/protokoll.h"
#include "export/exportformate.h"
#include "index/katalog.h"

namespace liedwerk {

// ExportModus; the three first are the formats that a list has always had.
enum class Exportmodus : std::int16_t {
    Text = 0,
    Html = 1,
    Playliste = 2,  // PLS when the file's name ends in "pls", else M3U
    Tabelle = 3,    // CSV in UTF-8 with a byte-order mark
    M3u8 = 4,
    Json = 5,
};

// ExportUntermodus: the separator of a text export.
enum class Exporttrenner : std::int16_t { Komma = 0, Tabulator = 1, Semikolon = 2, Leerzeichen = 3 };
std::string_view TrennzeichenVon(Exporttrenner Trenner);

// How a list is written.
struct Exportauftrag {
    std::string Datei;
    Exportmodus Modus = Exportmodus::Text;
    std::string Anführungszeichen;  // empty: none
    std::string Trennzeichen;
    Exportspalten Liste;
    bool PlaylistFürWinamp = true;  // title lines in PLS and M3U
};

// Writes the records in their order; true when the file stands. Text and HTML are Windows-1252, or UTF-8 with
// a byte-order mark when they hold what that lacks; a play list is Windows-1252 as long as its paths are
// Windows paths that it can express, else UTF-8. Shows Fortschritt, whose cancel is not acted upon. A failure
// is logged and shown; the old file is then as it was.
bool ExportSchreiben(const Katalog& Index, std::span<const Satznummer> Sätze, const Exportauftrag& Auftrag,
                     Oberfläche& Person, Protokoll& Log, const Uhr& Zeit);

// The text that the clipboard gets: tabulators, no quotation marks, CR LF.
std::string ExportAlsText(const Katalog& Index, std::span<const Satznummer> Sätze,
                          const Exportspalten& Liste);

}  // namespace liedwerk
