// The formats of an export as text: what stands in front of the records, for each of them, and behind.
//
// A format only makes UTF-8 text; exportieren.h decides about the code page and writes the file. Every format
// refers to the catalogue that it was made for, which must outlive it and stay as it is.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "index/katalog.h"
#include "suche/spaltenlayout.h"

namespace liedwerk {

// Spalten: one slot for each column head of a list, in the order of their places. A slot holds the column's
// field name; the slot of a hidden column is empty.
using Exportspalten = std::vector<std::string>;
// The slots of the list's columns; one of width 0 is hidden.
Exportspalten ExportspaltenVon(const std::vector<Listenspalte>& Spalten);

// Each part appends its text, line ends included. Satz gets a record and its place in the export, from 0.
struct Exportformatierung {
    std::function<void(std::string& Ziel)> Kopf;
    std::function<void(std::string& Ziel, Satznummer Nummer, std::size_t Platz)> Satz;
    std::function<void(std::string& Ziel)> Fuß;
};

// A text table: values trimmed, in quotation marks when there are any, never doubled within.
Exportformatierung TextFormat(const Katalog& Index, const Exportspalten& Spalten,
                              std::string_view Trennzeichen, std::string_view Anführungszeichen);
// A page with one table.
// Kept: values are not escaped, so that markup in a field passes.
Exportformatierung HtmlFormat(const Katalog& Index, const Exportspalten& Spalten);
// Play lists; FürWinamp adds title lines for records with an ID3v1 tag.
Exportformatierung PlsFormat(const Katalog& Index, bool FürWinamp);
Exportformatierung M3uFormat(const Katalog& Index, bool FürWinamp);

// Formats for other programs of today. Their values are what the list shows, the other tag's included.
// RFC 4180 with ";", which a German spreadsheet expects; an apostrophe stands in front of a value that would
// be taken for a formula.
Exportformatierung CsvFormat(const Katalog& Index, const Exportspalten& Spalten);
// M3U with a title line for every record.
Exportformatierung M3u8Format(const Katalog& Index);
// A list of objects with a string for each shown column.
Exportformatierung JsonFormat(const Katalog& Index, const Exportspalten& Spalten);

// The title of a slot: the user-defined column's is its format without "%".
std::string Exporttitel(const Katalog& Index, const std::string& Spalte);
// The text with a blank for each line end: a record's line stays one line.
std::string Einzeilig(std::string Text);

}  // namespace liedwerk
