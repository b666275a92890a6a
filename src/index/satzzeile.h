// The line of one record: raw values in, "#TAG:" lengths "|" values out, and back.
//
// The compact store, the reader and the writer share this codec. Lines of the store are well-formed: 20 or 43
// canonical lengths that add up exactly. What a foreign file holds goes through index/zeilenlaengen.h first.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "index/datensatz.h"
#include "index/felder.h"

namespace liedwerk {

// The values of a record by field number less one, as bytes of the file.
using Rohwerte = std::array<std::string_view, FeldAnzahl>;

// Start values of a record ahead of its line: nothing is known of the file.
Datensatz DatensatzVorZeile();

// The values of a well-formed line, views into it; gives the number of its fields, 20 or 43.
int SatzzeileZerlegen(const char* Zeile, Rohwerte& Werte);
// One value of a well-formed line; empty for a field that the line does not have.
std::string_view SatzzeileFeld(const char* Zeile, int Feld);

// Several values of a well-formed line in one pass: Felder rises, Werte has a place for each of them.
void SatzzeileFelder(const char* Zeile, std::span<const int> Felder, std::span<std::string_view> Werte);

// Writes the line of the first Anzahl values into Zeile (emptied first), without line end.
void SatzzeileBilden(std::string& Zeile, const Rohwerte& Werte, int Anzahl);

// Gives the extended group of a line that has only the basic one its start values; the new number of fields.
int ErweiterungVorgeben(Rohwerte& Werte);
// True when the extended group of a record goes into the file.
bool ErweiterungWirdGeschrieben(const Rohwerte& Werte, std::uint8_t HatId3v2);
// True when a save writes the line of these values as it stands: nothing to cut, to blank or to leave out.
bool IstSpeicherform(const Rohwerte& Werte, int Anzahl, std::uint8_t HatId3v2);

// The raw value of one field; not of the path, which is no member.
std::string Rohwert(const Datensatz& Daten, int Feld);

// The raw values of a record. Views into the record and into this object; both must outlive them.
class Rohsatz {
  public:
    Rohsatz(std::string_view Pfad, const Datensatz& Daten);
    Rohsatz(const Rohsatz&) = delete;
    Rohsatz& operator=(const Rohsatz&) = delete;
    // 43 when a member of the extended group is not at its start value, else 20: memory never loses a value,
    // even where a save leaves it out.
    int FeldAnzahlImSpeicher() const;
    Rohwerte Werte;

  private:
    std::array<std::string, FeldAnzahl> Halter;
};

// The record of raw values that a Rohsatz or a save has made. The marks are not in them.
Datensatz DatensatzVonRohwerten(const Rohwerte& Werte, int Anzahl);
// The number of a raw number value (flag, genre and rating included), its start value when it is empty.
std::int64_t RohwertZahl(std::string_view Wert, int Feld);

}  // namespace liedwerk
