// The compact store of all records: IndexPfade and IndexDaten in one.
//
// A record is held as one line of the index file ("#TAG:" lengths "|" values, in the file's bytes): lines of
// a loaded file stay in the one block that was read, changed and new records stand in blocks of their own. A
// slot is the address of such a line, its length and the record's marks: 16 bytes. So a million records cost
// little more than their file, loading copies nothing, and a save writes unchanged stretches as they are.
// Fields are found by the lengths in front; whoever needs several fields of a record takes a Satzsicht.
// Numbers are 1-based; a number out of range is a fault of the caller.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "index/datensatz.h"
#include "index/felder.h"

namespace liedwerk {

// The raw values of one record, found in one pass over its lengths. Valid as long as the store is not
// changed.
class Satzsicht {
  public:
    // The bytes of a field as the file holds them (index/wert.h turns them into text); empty when it has no
    // value.
    std::string_view Roh(int Feld) const { return Werte[static_cast<std::size_t>(Feld - 1)]; }
    std::array<std::string_view, FeldAnzahl> Werte;
};

// A field with its bytes as the file holds them, canonical (satzzeile.h, Rohwert).
struct Rohfeld {
    int Feld = 0;
    std::string_view Wert;
};

class Satzspeicher {
  public:
    Satzspeicher();
    Satzspeicher(Satzspeicher&& Andere) noexcept;
    // The generation rises above both, so that a cache of the old content sees it.
    Satzspeicher& operator=(Satzspeicher&& Andere) noexcept;
    ~Satzspeicher();

    Satznummer Anzahl() const { return static_cast<Satznummer>(Plätze.size()); }

    // Text values, UTF-8 (a POSIX path: its bytes). A number or date gives the text that the line holds.
    std::string Pfad(Satznummer Nummer) const;
    std::string Text(Satznummer Nummer, int Feld) const;
    // The number of a number field, of a flag (0 or 1), of the genre and of the rating byte; the start value
    // when it holds none (-1 for Größe, KeinGenre, KeineV2Qualität, 0 else).
    std::int64_t Zahl(Satznummer Nummer, int Feld) const;
    // The bytes of a field as the file holds them.
    std::string_view Roh(Satznummer Nummer, int Feld) const;
    Satzsicht Sicht(Satznummer Nummer) const;
    std::uint8_t HatId3v1(Satznummer Nummer) const { return PlatzVon(Nummer).Id3v1; }
    std::uint8_t HatId3v2(Satznummer Nummer) const { return PlatzVon(Nummer).Id3v2; }

    // The whole record, and its replacement; path and data. Members without a field number are not kept, but
    // for the three marks; everything else comes back as it was set, also what a save would leave out or cut.
    Datensatz Lesen(Satznummer Nummer) const;
    void Setzen(Satznummer Nummer, std::string_view Pfad, const Datensatz& Daten);
    void PfadSetzen(Satznummer Nummer, std::string_view Pfad);
    // Single fields replaced; the others and the marks keep what they are.
    void RohwerteSetzen(Satznummer Nummer, std::span<const Rohfeld> Neue);
    Satznummer Anhängen(std::string_view Pfad, const Datensatz& Daten);
    // Appends all records of another store, which is empty afterwards. Their lines are not copied, unless
    // they are few.
    void Anfügen(Satzspeicher&& Neue);

    // Drops all records; drops the listed ones (any order, doubles allowed), the others keep their order.
    void Leeren();
    void Entfernen(std::span<const Satznummer> Nummern);
    // Exchanges two slots; puts slot Folge[i - 1] at place i (Folge is a permutation of 1..Anzahl).
    void Vertauschen(Satznummer A, Satznummer B);
    void Umordnen(std::span<const Satznummer> Folge);

    // What caches need: Generation rises when slots move, vanish or are replaced as a whole; single changes
    // are listed in order in GeänderteSätze (which a rise of the generation empties); appended records show
    // in Anzahl.
    std::uint64_t Generation() const { return Generationszahl; }
    std::span<const Satznummer> GeänderteSätze() const { return Geändert; }

    // For reader and writer. A block is taken over whole and lives until nothing points into it.
    struct Platz {
        const char* Zeile = nullptr;  // the "#" of "#TAG:"
        std::uint32_t Länge = 0;      // bytes, without line end
        std::uint8_t Id3v1 : 2 = TagFehlt;
        std::uint8_t Id3v2 : 2 = TagFehlt;
        std::uint8_t Lyrics : 2 = TagUnberührt;
        // The line is exactly what a save writes for this record; otherwise it is built anew from the fields.
        bool Speicherform : 1 = false;
    };
    void BlockÜbernehmen(std::unique_ptr<char[]> Block, std::size_t Länge);
    // Stores a record's line without giving it a slot yet.
    Platz Ablegen(std::string_view Pfad, const Datensatz& Daten);
    // Replaces all slots; their lines lie in blocks taken over or were put down by Ablegen.
    void PlätzeÜbernehmen(std::vector<Platz> Neue);
    const Platz& PlatzVon(Satznummer Nummer) const { return Plätze[static_cast<std::size_t>(Nummer - 1)]; }

  private:
    struct Blöcke;
    void Ersetzen(Satznummer Nummer, const Platz& Neu);
    void Neuordnen();
    void Vermerken(Satznummer Nummer);
    void Verdichten();
    std::vector<Platz> Plätze;
    std::unique_ptr<Blöcke> Speicher;
    std::vector<Satznummer> Geändert;
    std::uint64_t Generationszahl = 1;
};

}  // namespace liedwerk
