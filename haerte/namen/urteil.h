// Judges of lists and outputs that use nothing of the program: small strict readers of their own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk::haerte {

// True for well-formed UTF-8: no overlong forms, no surrogates.
bool GültigesUtf8(std::string_view Text);
// What a terminal would take for a command or a change of direction; empty when there is nothing but text
// and line feeds.
std::string Terminalbefehl(std::string_view Text);
// The number of entries of the outermost list (or members of the object) of a JSON document by RFC 8259;
// nothing when it is none.
std::optional<std::size_t> JsonEinträge(std::string_view Text);
// The records of a CSV text by RFC 4180, CR LF between them; nothing when it breaks the rules.
std::optional<std::vector<std::vector<std::string>>> CsvLesen(std::string_view Text, char Trenner);
// What a spreadsheet would take for a formula: a text that begins with one of "=+-@", a tabulator or a
// return, and is no number.
bool IstFormel(std::string_view Wert);
// The lines of a text, ended by CR LF, LF or CR as readers of lists take them; empty ones count.
std::vector<std::string> Zeilen(std::string_view Text);
// How often a text stands in another one.
std::size_t Anzahl(std::string_view Text, std::string_view Was);

}  // namespace liedwerk::haerte
