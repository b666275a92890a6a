// The column vocabulary: the names that columns, search fields and formats use, and the layout string of the
// list.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

inline constexpr int SpaltenAnzahl = 32;

struct Spalte {
    std::string_view Name;
    int Breite;  // default width in twips (1440 per inch), 0: not shown
};

// The 32 columns; a column's number is its place in the list, from 1.
inline constexpr std::array<Spalte, SpaltenAnzahl> SpaltenNamen = {{
    {"Nummer", 0},
    {"Pfad", 0},
    {"Dateiname", 2800},
    {"Interpret", 0},
    {"Titel", 1400},
    {"Album", 0},
    {"Jahr", 0},
    {"Track", 0},
    {"Genre", 0},
    {"Kommentar", 0},
    {"Größe", 0},
    {"Bitrate", 0},
    {"Dauer", 0},
    {"Frequenz", 0},
    {"Frames", 0},
    {"Wechselmedium", 0},
    {"Hinzufüge-Datum", 0},
    {"Pfad+Dateiname", 0},
    {"Benutzerdefiniert", 0},
    {"Abspiel-Datum", 0},
    {"Abspiel-Häufigkeit", 0},
    {"Interpret-ID3v2", 0},
    {"Titel-ID3v2", 0},
    {"Album-ID3v2", 0},
    {"Jahr-ID3v2", 0},
    {"Track-ID3v2", 0},
    {"Genre-ID3v2", 0},
    {"Kommentar-ID3v2", 0},
    {"ID3v2-TAG-Version", 0},
    {"ID3v2-TAG-Größe", 0},
    {"Benutzer-Daten", 0},
    {"Qualität", 0},
}};

// The place of a column's name, 1 to 32; 0 for no column.
int SpaltenNummer(std::string_view Name);

}  // namespace liedwerk
