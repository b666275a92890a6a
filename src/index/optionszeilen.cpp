#include "index/optionszeilen.h"

#include <variant>

#include "basis/text.h"
#include "basis/zahl.h"
#include "index/indexformat.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

using Beanstandung = std::function<void(std::string_view)>;
using Optionsort =
    std::variant<std::int16_t Indexoptionen::*, std::string Indexoptionen::*,
                 std::vector<SyncRegel> Indexoptionen::*, std::vector<Dateityp> Indexoptionen::*>;

struct Option {
    std::string_view Schlüssel;
    Optionsort Ort;
};

// In the order in which they are written.
constexpr Option Optionstabelle[] = {
    {option::Sync, &Indexoptionen::SyncOrdner},
    {option::SyncEntfernen, &Indexoptionen::SyncEntfernen},
    {option::SyncNichtBei, &Indexoptionen::SyncNichtBei},
    {option::Verwalten, &Indexoptionen::Dateitypen},
    {option::SpaltenLeiste, &Indexoptionen::SpaltenLeiste},
    {option::SpaltenGitter, &Indexoptionen::SpaltenGitter},
    {option::SpaltenSymbole, &Indexoptionen::SpaltenSymbole},
    {option::Spalten, &Indexoptionen::Spalten},
    {option::SpaltenNutzerformat, &Indexoptionen::SpaltenNutzerformat},
    {option::SpaltenBeideTags, &Indexoptionen::SpaltenBeideTags},
    {option::Eigentümer, &Indexoptionen::IndexEigentümer},
    {option::SyncStand, &Indexoptionen::SyncStand},
};

constexpr std::string_view UngültigeOption = "Ungültige Option";
constexpr std::string_view UngültigNachLesen = "Ungültige Option (nach lesen)";
constexpr std::string_view UngültigNachLesen2 = "Ungültige Option 2 (nach lesen)";
constexpr std::string_view UngültigerTeil1 = "Ungültiger Optionsteil 1";
constexpr std::string_view UngültigerTeil2 = "Ungültiger Optionsteil 2";

// The three parts of a folder to synchronise. A folder's name may hold commas: the number is the first piece
// between two commas that is one.
std::vector<std::string> SyncTeile(std::string_view Wert) {
    auto Stücke = Teilen(Wert, ",");
    if (Stücke.size() <= 3) return Stücke;
    std::size_t Mitte = 1;
    while (Mitte + 1 < Stücke.size() && !IstNumerisch(Stücke[Mitte]))
        ++Mitte;
    if (Mitte + 1 == Stücke.size()) Mitte = 1;
    const auto Stelle = Stücke.begin() + static_cast<std::ptrdiff_t>(Mitte);
    return {Verbinden({Stücke.begin(), Stelle}, ","), *Stelle, Verbinden({Stelle + 1, Stücke.end()}, ",")};
}

void SyncLesen(Indexoptionen& Optionen, std::string_view Wert, const Beanstandung& Beanstanden) {
    if (Optionen.SyncLeer != 0) Optionen.SyncOrdner.clear();
    Optionen.SyncLeer = 0;
    SyncRegel& Regel = Optionen.SyncOrdner.emplace_back();
    const auto Teile = SyncTeile(Wert);
    if (Teile.size() != 3) Beanstanden(UngültigNachLesen);
    if (Teile[0].empty()) Beanstanden(UngültigerTeil1);
    Regel.Ordner = IndexwertLesen(Teile[0]);
    if (Teile.size() < 2) return;
    const auto Zahl = GanzzahlLesen<std::int16_t>(Teile[1]);
    if (!Zahl) Beanstanden(UngültigerTeil2);
    Regel.Unterordner = Zahl.value_or(0);
    if (Teile.size() > 2) Regel.KopierenInOrdner = IndexwertLesen(Teile[2]);
}

void VerwaltenLesen(Indexoptionen& Optionen, std::string_view Wert, const Beanstandung& Beanstanden) {
    if (Optionen.DateitypenLeer != 0) Optionen.Dateitypen.clear();
    Optionen.DateitypenLeer = 0;
    Dateityp& Typ = Optionen.Dateitypen.emplace_back();
    const auto Teile = Teilen(Wert, ",");
    if (Teile.size() != 2) Beanstanden(UngültigNachLesen);
    if (Teile[0].empty()) Beanstanden(UngültigerTeil1);
    Typ.Eintrag = IndexwertLesen(Teile[0]);
    if (Teile.size() < 2) return;
    if (IstNumerisch(Teile[1])) {
        Typ.Schalter = Teile[1];
    } else {
        Beanstanden(UngültigerTeil2);
    }
}

// One overload per kind of option.
struct Lesend {
    Indexoptionen& Optionen;
    std::string_view Wert;
    const Beanstandung& Beanstanden;

    void operator()(std::int16_t Indexoptionen::*Ort) const {
        if (Wert.size() != 1) return Beanstanden(UngültigNachLesen);
        const auto Zahl = GanzzahlLesen<std::int16_t>(Wert);
        if (!Zahl) return Beanstanden(UngültigNachLesen2);
        Optionen.*Ort = *Zahl;
    }
    void operator()(std::string Indexoptionen::*Ort) const {
        if (Ort == &Indexoptionen::IndexEigentümer && Wert.empty()) return;
        Optionen.*Ort = IndexwertLesen(Wert);
    }
    void operator()(std::vector<SyncRegel> Indexoptionen::*) const { SyncLesen(Optionen, Wert, Beanstanden); }
    void operator()(std::vector<Dateityp> Indexoptionen::*) const {
        VerwaltenLesen(Optionen, Wert, Beanstanden);
    }
};

// Options whose line is left out while they are empty.
bool NurGefüllt(std::string Indexoptionen::*Ort) {
    return Ort == &Indexoptionen::IndexEigentümer || Ort == &Indexoptionen::SyncStand;
}

struct Schreibend {
    const Indexoptionen& Optionen;
    std::string_view Schlüssel;
    std::string& Ziel;

    void Zeile(std::string_view Wert) const {
        Ziel += Schlüssel;
        Ziel += Wert;
        Ziel += Zeilenende;
    }
    void operator()(std::int16_t Indexoptionen::*Ort) const { Zeile(std::to_string(Optionen.*Ort)); }
    void operator()(std::string Indexoptionen::*Ort) const {
        if (NurGefüllt(Ort) && (Optionen.*Ort).empty()) return;
        Zeile(EinzeiligerIndexwert(Optionen.*Ort));
    }
    void operator()(std::vector<SyncRegel> Indexoptionen::*Ort) const {
        if (Optionen.SyncLeer == 1) return;
        for (const SyncRegel& Regel : Optionen.*Ort) {
            Zeile(EinzeiligerIndexwert(Regel.Ordner) + "," + std::to_string(Regel.Unterordner) + "," +
                  EinzeiligerIndexwert(Regel.KopierenInOrdner));
        }
    }
    void operator()(std::vector<Dateityp> Indexoptionen::*Ort) const {
        if (Optionen.DateitypenLeer == 1) return;
        for (const Dateityp& Typ : Optionen.*Ort) {
            Zeile(EinzeiligerIndexwert(Typ.Eintrag) + "," + EinzeiligerIndexwert(Typ.Schalter));
        }
    }
};

}  // namespace

void OptionszeileLesen(Indexoptionen& Optionen, std::string_view Zeile, const Beanstandung& Beanstanden) {
    for (const auto& [Schlüssel, Ort] : Optionstabelle) {
        if (!Zeile.starts_with(Schlüssel)) continue;
        std::visit(Lesend{Optionen, Zeile.substr(Schlüssel.size()), Beanstanden}, Ort);
        return;
    }
    Beanstanden(UngültigeOption);
}

void OptionszeilenSchreiben(std::string& Ziel, const Indexoptionen& Optionen) {
    for (const auto& [Schlüssel, Ort] : Optionstabelle) {
        std::visit(Schreibend{Optionen, Schlüssel, Ziel}, Ort);
    }
}

}  // namespace liedwerk
