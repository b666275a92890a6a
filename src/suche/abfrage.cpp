#include "suche/abfrage.h"

#include "basis/text.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

Suchabfrage AbfrageBilden(std::string_view Begriff, std::string_view Feld, std::string_view Code) {
    return {std::string(Feld.empty() ? Standardsuche : Feld), std::string(Begriff), std::string(Code)};
}

}  // namespace

Suchcode SuchcodeLesen(std::string_view Code) {
    if (Code.size() != 4) return {};
    const auto Ziffer = [&](std::size_t Stelle) {
        const char Zeichen = Code[Stelle];
        return Zeichen >= '0' && Zeichen <= '9' ? Zeichen - '0' : 0;
    };
    return {Ziffer(0), Ziffer(1), Ziffer(2), Ziffer(3)};
}

std::string SuchcodeBilden(const Suchcode& Wahl) {
    std::string Code;
    for (const int Ziffer : {Wahl.MussDarfNicht, Wahl.UndOder, Wahl.Wo, Wahl.BeideTags})
        Code += std::to_string(Ziffer);
    return Code;
}

bool SucheHinzufügen(Suchabfragen& Menge, std::string_view Begriff, std::string_view Feld,
                     std::string_view Code) {
    Menge.Liste.push_back(AbfrageBilden(Begriff, Feld, Code));
    return true;
}

bool SucheSetzen(Suchabfragen& Menge, std::size_t Nummer, std::string_view Begriff, std::string_view Feld,
                 std::string_view Code) {
    if (Nummer < 1 || Nummer > Menge.SucheAnzahl()) return false;
    // Built first: the arguments may be views of the entry that goes.
    auto Neu = AbfrageBilden(Begriff, Feld, Code);
    Menge.Liste[Nummer - 1] = std::move(Neu);
    return true;
}

bool SucheEntfernen(Suchabfragen& Menge, const std::vector<bool>& Gelöscht) {
    if (Menge.Liste.empty()) return false;
    std::vector<Suchabfrage> Rest;
    for (std::size_t i = 0; i < Menge.Liste.size(); ++i) {
        if (i >= Gelöscht.size() || !Gelöscht[i]) Rest.push_back(std::move(Menge.Liste[i]));
    }
    Menge.Liste = std::move(Rest);
    return true;
}

bool SucheZurücksetzen(Suchabfragen& Menge) {
    Menge.Liste.clear();
    return true;
}

bool BuchstabensucheSetzen(Suchabfragen& Menge, std::string_view Buchstabe, std::string_view Feld) {
    return SucheZurücksetzen(Menge) && SucheHinzufügen(Menge, Buchstabe, Feld, "0020");
}

std::string AbfrageZeile(const Suchabfrage& Abfrage) {
    return "Suche nach '" + Abfrage.Begriff + "' im Feld '" + Abfrage.Feld + "'";
}

std::string SuchzeileÜbernehmen(Suchabfragen& Menge, std::string_view Begriff, std::string_view Feld,
                                bool ZeileAktiv, bool AlsWort) {
    if (Menge.SucheAnzahl() == 0) {
        if (!SucheZurücksetzen(Menge)) return "Die Such-Abfrage konnte nicht zurückgesetzt werden.";
        if (!SucheHinzufügen(Menge, Begriff, Feld, Standardcode(AlsWort)))
            return "Die Such-Abfrage konnte nicht eingerichtet werden.";
        return {};
    }
    // Kept: the entry keeps its code, also when the setting for whole words was changed since.
    if (ZeileAktiv && !SucheSetzen(Menge, 1, Begriff, Feld, Menge.Liste.front().Code))
        return "Die Such-Abfrage konnte nicht verarbeitet werden.";
    return {};
}

int Suchverzögerung(std::string_view Begriff, bool FeldAktiv, std::size_t Abfragen, bool Sofort) {
    // Short words wait longer, because they match more and cost more.
    constexpr int Kurz = 600;
    constexpr int Lang = 1200;
    constexpr std::size_t GenugZeichen = 3;
    if (Begriff.empty() || Sofort || Abfragen >= 2) return 0;
    return FeldAktiv && ZeichenAnzahl(Begriff) >= GenugZeichen ? Kurz : Lang;
}

}  // namespace liedwerk
