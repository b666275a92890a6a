// FeldWert: the one place where a record of the index is turned into text.
//
// suche/ holds queries and the search, field values, the list's rows and columns as plain data. A
// Suchabfragen set says what is wanted (abfrage.h), SucheAusführen marks the records that pass
// (suchmaschine.h) with the help of folded field texts kept in a Suchpuffer (suchpuffer.h), ListeErstellen
// turns the marks into rows (liste.h), and every cell, key and test reads its text here.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "index/katalog.h"

namespace liedwerk {

enum class Feldtyp : std::int16_t { Text = 0, Zahl = 1, Datum = 2, DatumZeit = 3, Dauer = 4 };
enum class Wertform : std::int16_t { Sortieren = 0, Anzeigen = 1 };

// The fields that FeldWert knows. V1... values come from the ID3v1 tag first, V2... from the ID3v2 tag.
enum class Feldkennung : std::uint8_t {
    Standardsuche,
    Nummer,
    Pfad,
    Dateiname,
    V1Interpret,
    V1Titel,
    V1Album,
    V1Jahr,
    V1Titelnummer,  // "Track" and "Titelnummer"
    V1Genre,
    V1Kommentar,
    Größe,
    Bitrate,
    Dauer,
    Frequenz,
    Frames,
    Wechselmedium,
    HinzufügeDatum,
    DateiEndung,
    AbspielDatum,
    AbspielHäufigkeit,
    PfadUndDateiname,
    Benutzerdefiniert,
    V2Interpret,
    V2Titel,
    V2Album,
    V2Kommentar,
    V2Jahr,
    V2Titelnummer,
    V2Genre,
    Id3v2Version,
    Id3v2Größe,
    BenutzerDaten,
    Qualität,
    Vorlage,  // any name that begins with "%"
};

inline constexpr std::string_view Standardsuche = "(Standardsuche)";
// The fields that make up the text of the standard search, in their order, joined by one blank each.
inline constexpr std::array<int, 7> Standardsuchfelder = {
    FeldV2Interpret, FeldV2Titel, FeldV2Album, FeldInterpret, FeldTitel, FeldAlbum, FeldPfad};

// A field name resolved once, so that loops over records compare no names.
struct Feldwahl {
    Feldkennung Kennung{};
    bool Bekannt = false;
    std::string Vorlage;  // for names that begin with "%"
    bool operator==(const Feldwahl&) const = default;
};
// Looks a field name up: exact, case-sensitive.
Feldwahl FeldFinden(std::string_view Feld);

// The type of a field's display form when it is the same for every record.
std::optional<Feldtyp> Anzeigetyp(const Feldwahl& Feld, bool AndererTag);

// Text of a field. Wert is emptied on entry, Typ starts at Text. False for an unknown field name, for a
// number that is no record's, and for a stored date that is none; callers treat all of them as an empty
// field. AndererTag allows the fall-back to the other tag.
bool FeldWert(const Katalog& Index, Satznummer Nummer, std::string_view Feld, Wertform Modus, bool AndererTag,
              std::string& Wert, Feldtyp& Typ);
bool FeldWert(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld, Wertform Modus, bool AndererTag,
              std::string& Wert, Feldtyp& Typ);

// Expands a template: each %name% becomes the sort form of that field (names without regard to case); a value
// is not expanded again, a lone "%" stays. Unknown names and a number that is no record's insert nothing, nor
// does the user-defined column within its own format.
std::string BenutzerFormatAnwenden(const Katalog& Index, Satznummer Nummer, std::string_view Vorlage,
                                   bool BeideTags);

// The same for a new file name, with both tags as the columns take them. Each value goes through Säubern
// before it is put in, so that no tag decides what only the format may decide.
std::string FormatAuflösen(const Katalog& Index, Satznummer Nummer, std::string_view Format,
                           const std::function<void(std::string& Wert)>& Säubern = {});

// "mm:ss" with the hours in front when there are any or when OhneNullStunden is false.
std::string DauerFormatieren(std::int64_t Sekunden, bool OhneNullStunden);
// A stored play date: as "dd.mm.yyyy hh:nn:ss", or as it stands when Formatiert is false; UngültigesDatum for
// no date.
std::string ZeitFormatieren(std::string_view Text, bool Formatiert);

}  // namespace liedwerk
