// The set of queries: which field of a record must hold which words, and how.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

struct Suchabfrage {
    std::string Feld;     // a name of FeldWert
    std::string Begriff;  // the text as typed; words separated by blanks
    std::string Code;     // four digits
    bool operator==(const Suchabfrage&) const = default;
};

// The digits of a code: must or must not, and or or, where, both tags. A code of another length counts as
// "0000".
struct Suchcode {
    int MussDarfNicht = 0;
    int UndOder = 0;
    int Wo = 0;
    int BeideTags = 0;
};
Suchcode SuchcodeLesen(std::string_view Code);
// The code of four choices, each 0 to 9.
std::string SuchcodeBilden(const Suchcode& Wahl);

// SucheAnzahl, SucheFeld, SucheBegriff and SucheCode in one; numbers are 1-based.
struct Suchabfragen {
    std::vector<Suchabfrage> Liste;
    std::size_t SucheAnzahl() const { return Liste.size(); }
};

// Appends a query; an empty field becomes the standard search.
bool SucheHinzufügen(Suchabfragen& Menge, std::string_view Begriff, std::string_view Feld,
                     std::string_view Code);
// Overwrites query Nummer; false when there is none of this number.
bool SucheSetzen(Suchabfragen& Menge, std::size_t Nummer, std::string_view Begriff, std::string_view Feld,
                 std::string_view Code);
// Drops the queries whose flag is set; false when the set is empty.
bool SucheEntfernen(Suchabfragen& Menge, const std::vector<bool>& Gelöscht);
bool SucheZurücksetzen(Suchabfragen& Menge);
// The letter buttons: the set becomes the one query for values of Feld that begin with Buchstabe.
bool BuchstabensucheSetzen(Suchabfragen& Menge, std::string_view Buchstabe, std::string_view Feld);

// What the search row shows instead of a text while there are two queries or more.
inline constexpr std::string_view MehrereAbfragen = "(Mehrere Abfragen)";
// A query as the list of queries shows it.
std::string AbfrageZeile(const Suchabfrage& Abfrage);

// The code of a new query from the search row.
inline std::string_view Standardcode(bool AlsWort) {
    return AlsWort ? "0010" : "0000";
}

// The search row taken over into the set at a refresh (only while the row is enabled): an empty set gets one
// query with the standard code, otherwise query 1 takes field and text and keeps its code. On failure the
// message to show.
std::string SuchzeileÜbernehmen(Suchabfragen& Menge, std::string_view Begriff, std::string_view Feld,
                                bool ZeileAktiv, bool AlsWort);

// The delay in milliseconds before a typed search runs; 0 for at once (empty text, several queries, or
// Sofort).
int Suchverzögerung(std::string_view Begriff, bool FeldAktiv, std::size_t Abfragen, bool Sofort);

}  // namespace liedwerk
