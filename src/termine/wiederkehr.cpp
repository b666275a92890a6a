#include "termine/wiederkehr.h"

#include <algorithm>
#include <chrono>

namespace liedwerk {
namespace {

constexpr std::int64_t MonateJeJahr = 12;
constexpr std::int64_t LetzterMonat = 9999 * MonateJeJahr + MonateJeJahr - 1;

// Months since the year 0.
std::int64_t Monatszahl(const Zeitpunkt& Punkt) {
    return std::int64_t{Punkt.Jahr} * MonateJeJahr + Punkt.Monat - 1;
}

Zeitpunkt MonateAddieren(Zeitpunkt Punkt, std::int64_t Anzahl) {
    const std::int64_t Monat = std::clamp(Monatszahl(Punkt) + Anzahl, MonateJeJahr, LetzterMonat);
    Punkt.Jahr = static_cast<std::int32_t>(Monat / MonateJeJahr);
    Punkt.Monat = static_cast<std::int32_t>(Monat % MonateJeJahr) + 1;
    const std::chrono::year_month_day_last Letzter =
        std::chrono::year(Punkt.Jahr) / static_cast<int>(Punkt.Monat) / std::chrono::last;
    Punkt.Tag = std::min(Punkt.Tag, static_cast<std::int32_t>(static_cast<unsigned>(Letzter.day())));
    return Punkt;
}

// Seconds of the units that are of one length; 0 for the others.
std::int64_t SekundenJe(std::string_view Einheit) {
    if (Einheit == "n") return 60;
    if (Einheit == "h") return 3600;
    return Einheit == "d" ? 86400 : 0;
}

// Units to step from a date that has passed, when Grenzen boundaries lie between it and now.
// Kept: these are single units, not steps of the interval. So a date that is reached may lie in the past
// still, and an interval above 1 does not stay on its grid.
std::int64_t Schrittzahl(std::int64_t Grenzen, std::int64_t Intervall) {
    const std::int64_t Ganze = Grenzen / Intervall;
    if (Grenzen % Intervall != 0) return Intervall + Ganze;
    return Ganze != 0 ? Ganze : Intervall;
}

Terminlage EinmaligeLage(const Termin& Eintrag) {
    Terminlage Lage;
    const auto Am = DatumLesen(Eintrag.BenachrichtigenAm);
    if (!Am) {
        Lage.Fällig = true;
        return Lage;
    }
    // Kept: compared with day 0 of the calendar of dates, not with now, so that such a reminder never falls
    // due by its date. Once it has passed, it is listed among the missed ones.
    constexpr Zeitpunkt TagNull{1899, 12, 30, 0, 0, 0};
    Lage.Nächster = DatumZeitText(*Am);
    Lage.Fällig = *Am <= TagNull;
    return Lage;
}

}  // namespace

Zeitpunkt EinheitenAddieren(const Zeitpunkt& Punkt, std::string_view Einheit, std::int64_t Anzahl) {
    if (Einheit == "m") return MonateAddieren(Punkt, Anzahl);
    if (Einheit == "y") return MonateAddieren(Punkt, Anzahl * MonateJeJahr);
    return AusKalendersekunden(Kalendersekunden(Punkt) + Anzahl * SekundenJe(Einheit));
}

std::int64_t EinheitenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis, std::string_view Einheit) {
    if (Einheit == "n") return MinutenZwischen(Von, Bis);
    if (Einheit == "h") return StundenZwischen(Von, Bis);
    if (Einheit == "d") return TageZwischen(Von, Bis);
    if (Einheit == "m") return Monatszahl(Bis) - Monatszahl(Von);
    return Einheit == "y" ? Bis.Jahr - Von.Jahr : 0;
}

Terminlage TerminNächsterTermin(const Termin& Eintrag, const Zeitpunkt& Jetzt) {
    const std::string& Einheit = Eintrag.Einheit;
    if (Einheit.empty()) return EinmaligeLage(Eintrag);
    Terminlage Lage;
    const bool Gefeuert = !Eintrag.Erledigt.empty();
    const auto Basis = DatumLesen(Gefeuert ? Eintrag.Erledigt : Eintrag.BenachrichtigenAm);
    if (!Basis) {
        Lage.Fällig = true;
        return Lage;
    }
    if (Gefeuert) Lage.Letzter = DatumZeitText(*Basis);
    const std::int64_t Intervall = std::max<std::int64_t>(Eintrag.Intervall, 1);
    if (*Basis > Jetzt) {
        Lage.Nächster = DatumZeitText(Gefeuert ? EinheitenAddieren(*Basis, Einheit, Intervall) : *Basis);
        return Lage;
    }
    Lage.Fällig = true;
    const std::int64_t Schritte = Schrittzahl(EinheitenZwischen(*Basis, Jetzt, Einheit), Intervall);
    Zeitpunkt Nächster = EinheitenAddieren(*Basis, Einheit, Schritte);
    if (Nächster <= Jetzt) Nächster = EinheitenAddieren(Nächster, Einheit, 1);
    Lage.Nächster = DatumZeitText(Nächster);
    return Lage;
}

}  // namespace liedwerk
