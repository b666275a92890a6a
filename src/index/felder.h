// The fields of the index file by number: the fixed vocabulary of its data lines.
//
// One table says for each number what kind of value it is and where it lives in a Datensatz; reading,
// writing, the compact store and the command line's JSON all walk it. The numbers are frozen.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "index/datensatz.h"

namespace liedwerk {

inline constexpr int FeldAnzahl = 43;
inline constexpr int GrundfeldAnzahl = 20;  // fields of the basic group; the extended group follows

// Field numbers, as they stand in the file.
enum Feldnummer : int {
    FeldPfad = 1,
    FeldAlbum = 2,
    FeldInterpret = 3,
    FeldKommentar = 4,
    FeldGenre = 5,
    FeldTitel = 6,
    FeldTitelnummer = 7,
    FeldJahr = 8,
    FeldGröße = 9,
    FeldWechselmedium = 10,
    FeldBitrate = 11,
    FeldDauer = 12,
    FeldFrequenz = 13,
    FeldFrames = 14,
    FeldVBR = 15,
    FeldHinzufügeDatum = 16,
    FeldDateityp = 17,
    FeldModus = 18,
    FeldAbspielHäufigkeit = 19,
    FeldAbspielDatum = 20,
    FeldV2AbspielZähler = 21,
    FeldV2Album = 22,
    FeldV2Copyright = 23,
    FeldV2EncodiertVon = 24,
    FeldV2Genre = 25,
    FeldV2Herausgeber = 26,
    FeldV2Interpret = 27,
    FeldV2Jahr = 28,
    FeldV2Kommentar = 29,
    FeldV2Länge = 30,
    FeldV2Link = 31,
    FeldV2Medientyp = 32,
    FeldV2Software = 33,
    FeldV2Songschreiber = 34,
    FeldV2Sprache = 35,
    FeldId3v2Größe = 36,
    FeldId3v2Version = 37,
    FeldV2Titelnummer = 38,
    FeldV2UrsprünglicherInterpret = 39,
    FeldV2Titel = 40,
    FeldV2Qualität = 41,
    FeldBenutzerDaten = 42,
    FeldQualität = 43,
};

// Where a field lives in the record; monostate for the path, which stands beside it. The two date fields are
// texts.
using Feldort = std::variant<std::monostate, std::string Datensatz::*, std::int64_t Datensatz::*,
                             std::int32_t Datensatz::*, std::int16_t Datensatz::*, bool Datensatz::*,
                             std::uint8_t Datensatz::*, std::optional<std::uint8_t> Datensatz::*>;

enum class Feldinhalt : std::uint8_t { Text, Datum, Zahl, Wahrheit, Genre, Zeichen };
// Which tag mark a filled field sets.
enum class Feldmarke : std::uint8_t { Keine, Id3v1, Id3v2 };

struct Feldbeschreibung {
    int Nummer;
    std::string_view Name;  // the member's name
    Feldinhalt Inhalt;
    Feldmarke Marke;
    Feldort Ort;
};

// The table; entry i describes field number i + 1.
extern const std::array<Feldbeschreibung, FeldAnzahl> Felder;

// The address of the system's own page. A comment equal to it does not make a record count as tagged.
inline constexpr std::string_view Programmadresse = "https://liedwerk.invalid/";

// DatensatzFeldSetzen: stores one non-empty value (text, UTF-8) by its field number, with the tests of its
// kind: a value that fails its test leaves the member untouched (a date: empty). Sets the tag marks. Numbers
// above 43 and field 1 are ignored; the path stands outside of the record.
void DatensatzFeldSetzen(std::string_view Wert, Datensatz& Satz, int Feld);

}  // namespace liedwerk
