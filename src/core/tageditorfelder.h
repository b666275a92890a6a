// The fields of the TAG editor as one table: control, label, member of the record, limits; and how their
// texts go from the record into the controls and back.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basis/einstellungen.h"
#include "index/datensatz.h"
#include "medien/medienlesen.h"

namespace liedwerk {

// Where a field stands. ID3v2 has two sheets, Id3v2Weitere is the one behind "Mehr Felder".
enum class Tagblatt { Id3v1, Id3v2, Id3v2Weitere, Lyrics };
// The control of a field. Kurz: a short line, two of them share a row. Genre: a box that takes any text.
enum class Tagfeldart { Zeile, Kurz, Genre, Absatz };

struct Tagfeld {
    Tagblatt Blatt;
    std::string_view Steuerelement;
    std::string_view Beschriftung;  // with its key
    std::string Datensatz::*Wert;
    int Höchstens = 0;  // characters that the tag can hold; 0: no limit
    Tagfeldart Art = Tagfeldart::Zeile;
};

// All text fields, sheet by sheet in the order of the person's way through them. The genre number of ID3v1
// and the rating byte are no texts and stand beside the table.
std::span<const Tagfeld> Tagfelder();

Tagblock BlockVon(Tagblatt Blatt);

// What a control shows for a field: line ends are "\n", a genre "(17)" or "(17)Rock" is "Rock".
std::string Feldtext(const Datensatz& Satz, const Tagfeld& Feld);
// Takes a control's text into Arbeit. A text that was not touched, or is what the file holds, leaves the
// field's own bytes, so that showing a field never changes it.
void FeldEintragen(Datensatz& Arbeit, const Datensatz& Gelesen, const Tagfeld& Feld, std::string_view Text);

// Puts a block's entries of Quelle into Ziel.
void BlockÜbernehmen(Datensatz& Ziel, const Datensatz& Quelle, Tagblock Block);

// A row of the genre lists.
struct Genrezeile {
    std::string Name;
    std::optional<std::uint8_t> Nummer;  // nothing: a text of the person's own
    bool Bevorzugt = false;
};
// The favourites in their order, then all genres by name. A favourite that ID3v1 has no number for is only
// of use where free text is.
std::vector<Genrezeile> Genrezeilen(const Einstellungen& Werte, bool MitEigenen);

}  // namespace liedwerk
