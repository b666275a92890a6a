// The constants of the index file, shared by reader and writer; docs/indexformat.md tells the format.
#pragma once

#include <cstdint>
#include <string_view>

namespace liedwerk {

inline constexpr std::string_view IndexVersionAktuell = "#TAG:lw102";
// Kept: a new empty index starts with the oldest version line.
inline constexpr std::string_view IndexVersionNeu = "#TAG:lw100";
inline constexpr std::string_view IndexVersionAnfang = "#TAG:lw";
inline constexpr std::string_view Datenzeile = "#TAG:";
inline constexpr std::string_view Optionszeile = "#OPT:";
inline constexpr std::string_view Terminzeile = "#TERMIN:";
inline constexpr std::string_view Zeilenende = "\r\n";
inline constexpr std::string_view TemporärEndung = "~";
inline constexpr std::string_view Indexendung = ".lwi";
inline constexpr std::string_view Sicherungsendung = ".bak";
// A length in a line counts from 0 to this; a longer value is cut when it is written.
inline constexpr std::int64_t HöchsteLänge = 100000;

namespace option {
inline constexpr std::string_view Sync = "#OPT:SYNC=";
inline constexpr std::string_view SyncEntfernen = "#OPT:SYNC_ENTFERNEN=";
inline constexpr std::string_view SyncNichtBei = "#OPT:SYNC_NICHTBEI=";
inline constexpr std::string_view SyncStand = "#OPT:SYNC_STAND=";
inline constexpr std::string_view Verwalten = "#OPT:VERWALTEN=";
inline constexpr std::string_view SpaltenLeiste = "#OPT:SPALTEN_LEISTE=";
inline constexpr std::string_view SpaltenGitter = "#OPT:SPALTEN_GITTER=";
inline constexpr std::string_view SpaltenSymbole = "#OPT:SPALTEN_SYMBOLE=";
inline constexpr std::string_view Spalten = "#OPT:SPALTEN=";
inline constexpr std::string_view SpaltenNutzerformat = "#OPT:SPALTEN_NUTZERFORMAT=";
inline constexpr std::string_view SpaltenBeideTags = "#OPT:SPALTEN_BEIDETAGS=";
inline constexpr std::string_view Eigentümer = "#OPT:EIGENTUEMER=";
}  // namespace option

}  // namespace liedwerk
