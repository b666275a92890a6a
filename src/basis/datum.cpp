#include "basis/datum.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "basis/text.h"

namespace liedwerk {
namespace {

constexpr std::int64_t SekundenJeTag = 86400;

// Reads a number of Mindestens to Höchstens digits off the beginning of Rest; false when another number of
// digits stands there.
bool ZifferngruppeNehmen(std::string_view& Rest, std::size_t Mindestens, std::size_t Höchstens,
                         std::int32_t& Wert) {
    std::size_t Anzahl = 0;
    std::int32_t Summe = 0;
    while (Anzahl < Rest.size() && Rest[Anzahl] >= '0' && Rest[Anzahl] <= '9') {
        if (Anzahl == Höchstens) return false;
        Summe = Summe * 10 + (Rest[Anzahl] - '0');
        ++Anzahl;
    }
    if (Anzahl < Mindestens) return false;
    Rest.remove_prefix(Anzahl);
    Wert = Summe;
    return true;
}

bool ZeichenNehmen(std::string_view& Rest, char Zeichen) {
    if (Rest.empty() || Rest.front() != Zeichen) return false;
    Rest.remove_prefix(1);
    return true;
}

bool DeutschesDatumNehmen(std::string_view& Rest, Zeitpunkt& Punkt) {
    if (!ZifferngruppeNehmen(Rest, 1, 2, Punkt.Tag) || !ZeichenNehmen(Rest, '.')) return false;
    if (!ZifferngruppeNehmen(Rest, 1, 2, Punkt.Monat) || !ZeichenNehmen(Rest, '.')) return false;
    const std::size_t Vorher = Rest.size();
    if (!ZifferngruppeNehmen(Rest, 2, 4, Punkt.Jahr)) return false;
    const std::size_t Stellen = Vorher - Rest.size();
    if (Stellen == 2) Punkt.Jahr += Punkt.Jahr < 30 ? 2000 : 1900;
    return Stellen != 3;
}

bool IsoDatumNehmen(std::string_view& Rest, Zeitpunkt& Punkt) {
    return ZifferngruppeNehmen(Rest, 4, 4, Punkt.Jahr) && ZeichenNehmen(Rest, '-') &&
           ZifferngruppeNehmen(Rest, 2, 2, Punkt.Monat) && ZeichenNehmen(Rest, '-') &&
           ZifferngruppeNehmen(Rest, 2, 2, Punkt.Tag);
}

bool UhrzeitNehmen(std::string_view& Rest, Zeitpunkt& Punkt) {
    if (!ZifferngruppeNehmen(Rest, 1, 2, Punkt.Stunde) || !ZeichenNehmen(Rest, ':')) return false;
    if (!ZifferngruppeNehmen(Rest, 1, 2, Punkt.Minute)) return false;
    if (ZeichenNehmen(Rest, ':') && !ZifferngruppeNehmen(Rest, 1, 2, Punkt.Sekunde)) return false;
    return Punkt.Stunde < 24 && Punkt.Minute < 60 && Punkt.Sekunde < 60;
}

std::chrono::year_month_day Kalendertag(const Zeitpunkt& Punkt) {
    return {std::chrono::year(Punkt.Jahr), std::chrono::month(static_cast<unsigned>(Punkt.Monat)),
            std::chrono::day(static_cast<unsigned>(Punkt.Tag))};
}

// Division that rounds down, so that a unit before 1970 is as long as every other.
std::int64_t Abgerundet(std::int64_t Wert, std::int64_t Teiler) {
    return Wert / Teiler - (Wert % Teiler < 0 ? 1 : 0);
}

// Appends a number of the calendar (not negative) with leading zeros.
void Anhängen(std::string& Text, std::int32_t Wert, std::size_t Breite) {
    std::array<char, 10> Ziffern;
    std::size_t Anfang = Ziffern.size();
    while (Anfang > 0 && (Wert > 0 || Ziffern.size() - Anfang < Breite)) {
        Ziffern[--Anfang] = static_cast<char>('0' + Wert % 10);
        Wert /= 10;
    }
    Text.append(Ziffern.data() + Anfang, Ziffern.size() - Anfang);
}

// Three numbers with a mark between them.
std::string Dreiteilig(std::int32_t A, std::size_t BreiteA, std::int32_t B, std::int32_t C,
                       std::size_t BreiteC, std::string_view Zeichen) {
    std::string Text;
    Anhängen(Text, A, BreiteA);
    Text += Zeichen;
    Anhängen(Text, B, 2);
    Text += Zeichen;
    Anhängen(Text, C, BreiteC);
    return Text;
}

}  // namespace

std::optional<Zeitpunkt> DatumLesen(std::string_view Text) {
    std::string_view Rest = Kürzen(Text);
    Zeitpunkt Punkt;
    const bool Iso = Rest.size() > 4 && Rest[4] == '-';
    if (!(Iso ? IsoDatumNehmen(Rest, Punkt) : DeutschesDatumNehmen(Rest, Punkt))) return std::nullopt;
    if (Punkt.Jahr < 1 || !Kalendertag(Punkt).ok()) return std::nullopt;
    if (Rest.empty()) return Punkt;
    if (!(Iso && ZeichenNehmen(Rest, 'T'))) {
        if (Rest.front() != ' ') return std::nullopt;
        Rest = Kürzen(Rest);
    }
    if (!UhrzeitNehmen(Rest, Punkt) || !Rest.empty()) return std::nullopt;
    return Punkt;
}

std::string DatumText(const Zeitpunkt& Punkt) {
    return Dreiteilig(Punkt.Tag, 2, Punkt.Monat, Punkt.Jahr, 4, ".");
}
std::string ZeitText(const Zeitpunkt& Punkt) {
    return Dreiteilig(Punkt.Stunde, 2, Punkt.Minute, Punkt.Sekunde, 2, ":");
}
std::string DatumZeitText(const Zeitpunkt& Punkt) {
    std::string Text = DatumText(Punkt);
    Text += ' ';
    Text += ZeitText(Punkt);
    return Text;
}
std::string DatumSortierText(const Zeitpunkt& Punkt) {
    return Dreiteilig(Punkt.Jahr, 4, Punkt.Monat, Punkt.Tag, 2, "");
}
std::string ZeitSortierText(const Zeitpunkt& Punkt) {
    std::string Text = DatumSortierText(Punkt);
    Text += Dreiteilig(Punkt.Stunde, 2, Punkt.Minute, Punkt.Sekunde, 2, "");
    return Text;
}

std::int64_t Kalendertage(const Zeitpunkt& Punkt) {
    return std::chrono::sys_days(Kalendertag(Punkt)).time_since_epoch().count();
}
std::int64_t Kalendersekunden(const Zeitpunkt& Punkt) {
    return Kalendertage(Punkt) * SekundenJeTag + Punkt.Stunde * 3600 + Punkt.Minute * 60 + Punkt.Sekunde;
}

Zeitpunkt AusKalendersekunden(std::int64_t Sekunden) {
    Sekunden = std::clamp(Sekunden, Kalendersekunden({1, 1, 1, 0, 0, 0}),
                          Kalendersekunden({9999, 12, 31, 23, 59, 59}));
    const std::int64_t Tage = Abgerundet(Sekunden, SekundenJeTag);
    const auto Uhrzeit = static_cast<std::int32_t>(Sekunden - Tage * SekundenJeTag);
    const std::chrono::year_month_day Tag{std::chrono::sys_days(std::chrono::days(Tage))};
    return {static_cast<int>(Tag.year()),
            static_cast<std::int32_t>(static_cast<unsigned>(Tag.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(Tag.day())),
            Uhrzeit / 3600,
            Uhrzeit / 60 % 60,
            Uhrzeit % 60};
}

std::int64_t TageZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis) {
    return Kalendertage(Bis) - Kalendertage(Von);
}
std::int64_t StundenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis) {
    return Abgerundet(Kalendersekunden(Bis), 3600) - Abgerundet(Kalendersekunden(Von), 3600);
}
std::int64_t MinutenZwischen(const Zeitpunkt& Von, const Zeitpunkt& Bis) {
    return Abgerundet(Kalendersekunden(Bis), 60) - Abgerundet(Kalendersekunden(Von), 60);
}

}  // namespace liedwerk
