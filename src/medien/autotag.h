// AutoTAG: fields of a tag from the name of a file.
//
// A format such as "%Interpret% - %Titel%" takes the name apart from its end; "%automatik%" needs none and
// asks the index which pieces of the name are a known artist or album (Tagverzeichnis). Nothing is written
// here: AutoTagAusführen fills a copy of a record, whoever called it saves.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basis/einstellungen.h"
#include "index/katalog.h"
#include "medien/tagverzeichnis.h"

namespace liedwerk {

// Which tags are filled; the numbers are those of the command line.
enum class AutoTagZiel { Beide = 0, Id3v1 = 1, Id3v2 = 2 };

// The title of the window in which the format is chosen; a message names it.
inline constexpr std::string_view AutoTagFenstertitel = "AutoTAG einstellen";

struct AutoTagUmgebung {
    const Katalog& Index;
    const Einstellungen& Werte;
    Tagverzeichnis& Verzeichnis;  // over the records of Index
};

// Fills Ergebnis, a copy of Satz, from the name of the file (a path). Empty on success, else the message for
// the person (an information); Ergebnis is not touched then.
std::string AutoTagAusführen(const AutoTagUmgebung& Umgebung, std::string_view Dateiname,
                             std::string_view Format, Datensatz& Ergebnis, const Datensatz& Satz,
                             AutoTagZiel Ziel);

// Why a format cannot be used, for the person; empty when it can.
std::string AutoTagFormatPrüfen(std::string_view Format);

// A format taken apart.
struct AutoTagFormat {
    std::vector<std::string> Variablen;     // with their "%"; at least one
    std::vector<std::string> Trennzeichen;  // the texts around them, one more
};
// FormatZerlegen: nothing when the "%" are not pairs, or there is none.
std::optional<AutoTagFormat> FormatZerlegen(std::string_view Format);

// NamenZerlegen: the pieces of a name between "-", "_", "," and "\", without blanks around them, without
// empty pieces and those that Ausschluss holds. A drive in front is left out.
std::vector<std::string> NamenZerlegen(std::string_view Name, const std::vector<std::string>& Ausschluss);

// LetzteStelle: the last place (1-based, bytes) at which Suchtext stands wholly within the first Grenze bytes
// of Text; 0 when there is none or Suchtext is empty.
std::size_t LetzteStelle(std::size_t Grenze, std::string_view Text, std::string_view Suchtext);

// AutoTagListe: the formats to choose from; those that the program brings along while the person has none.
std::vector<std::string> AutoTagListe(const Einstellungen& Werte);
// Ausschlußliste: the words that are no data, for editing; those that the program brings along while the
// person has none. They count only while AutoTagAusschlußLeer is off.
std::vector<std::string> Ausschlußliste(const Einstellungen& Werte);
// At the start of the editor: the first format of the list becomes the current one when there is none, unless
// AutoTagLeer says that none is wanted.
void AutoTagFormatVorgeben(Einstellungen& Werte);

}  // namespace liedwerk
