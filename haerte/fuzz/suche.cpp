// Search: what a person types as field, code and text.
#include <utility>

#include "basis/text.h"
#include "fuzz/ziel.h"
#include "plattform/speicher/person.h"
#include "suche/mehrfachsuche.h"
#include "suche/suchablage.h"
#include "suche/suchmaschine.h"

namespace liedwerk::fuzz {
namespace {

Katalog Sammlung() {
    Katalog Index;
    for (const auto& [Interpret, Titel] :
         std::initializer_list<std::pair<const char*, const char*>>{{"Die Büroklammern", "Montag"},
                                                                    {"", "(17)Rock"},
                                                                    {"Straße", "ÄRGER ärger"},
                                                                    {"K\u212A", "Жук \u1E9E"},
                                                                    {"a-b a", "7 Tage"},
                                                                    {"ab", "12"}}) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Interpret = Interpret;
        Satz.V2Titel = Titel;
        Satz.HatId3v2 = TagVorhanden;
        Satz.Dauer = 61;
        Satz.AbspielDatum = "01.02.2003 04:05:06";
        Satz.Genre = std::uint8_t{17};
        SatzAnhängen(Index, std::string("/m/\xE4/") + Titel + ".mp3", Satz);
    }
    return Index;
}

// The puffer's answer for a word against the same question to each record.
void TrefferVergleichen(const Katalog& Index, Suchpuffer& Puffer, std::string_view Feld,
                        std::string_view Wort, bool AndererTag) {
    const Feldwahl Wahl = FeldFinden(Feld);
    if (!Wahl.Bekannt || !Suchpuffer::Geeignet(Wahl, AndererTag, Wort)) return;
    const auto Treffer = Puffer.Treffer(Index, Wahl, AndererTag, Wort, 1, Index.IndexAnzahl());
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        std::string Wert;
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Wahl, Wertform::Anzeigen, AndererTag, Wert, Typ);
        const bool Enthalten = Typ == Feldtyp::Text ? PositionOhneGroß(Wert, Wort) != std::string::npos
                                                    : Wert.find(Wort) != std::string::npos;
        const bool Erwartet = Wort.empty() ? !Wert.empty() : Enthalten;
        Fordern(Erwartet == (Treffer[static_cast<std::size_t>(Nummer - 1)] != 0),
                "Der Puffer findet, was in den Feldern steht");
    }
}

}  // namespace

void SuchePrüfen(std::string_view Eingabe) {
    const auto Teile = Stücke(Eingabe, 4);
    Katalog Index = Sammlung();
    Suchpuffer Puffer;
    TrefferVergleichen(Index, Puffer, Teile[0], Teile[2], false);
    TrefferVergleichen(Index, Puffer, Standardsuche, Teile[2], false);

    Suchabfragen Menge;
    SucheHinzufügen(Menge, Teile[2], Teile[0], Teile[1]);
    SucheHinzufügen(Menge, Teile[3], Standardsuche, Teile[1]);
    IndexDurchsuchen(Index, Puffer, Menge, true, Teile[3].size() % 2 != 0);
    // Changed and new records: a puffer that has seen the old ones finds the same as a fresh one.
    Datensatz Satz = Index.Sätze.Lesen(2);
    Satz.V2Titel = Teile[2];
    Index.Sätze.Setzen(2, "/m/neu.mp3", Satz);
    SatzAnhängen(Index, "/m/dazu.mp3", Satz);
    IndexDurchsuchen(Index, Puffer, Menge, false);
    const auto Nachgeführt = std::exchange(Index.IndexTreffer, {});
    Suchpuffer Frisch;
    IndexDurchsuchen(Index, Frisch, Menge, false);
    Fordern(Nachgeführt == Index.IndexTreffer, "Ein nachgeführter Puffer findet dasselbe wie ein neuer");

    speicher::Person Person;
    MehrfachSuchen(Index, Puffer, AbfragenZerlegen(Teile[3]), Person);
    if (const auto Suche = SuchzeileZerlegen(Eingabe)) {
        const auto Wieder = SuchzeileZerlegen(SuchzeileBilden(*Suche));
        Fordern(Wieder.has_value() && *Wieder == *Suche, "Eine abgelegte Suche kommt wieder");
    }
    BenutzerFormatAnwenden(Index, 1, Eingabe, true);
}

}  // namespace liedwerk::fuzz
