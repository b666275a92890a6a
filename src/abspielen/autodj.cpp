#include "abspielen/autodj.h"

#include <algorithm>
#include <array>
#include <random>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "basis/kerne.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"
#include "index/wert.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::array<std::string_view, 3> Einheiten = {"n", "h", "d"};
constexpr std::size_t SätzeJeKern = 10000;

// A record that may be taken, with its statistics.
struct Kandidat {
    Satznummer Nummer = 0;
    std::int64_t Häufigkeit = 0;
    std::optional<Zeitpunkt> Datum;  // "Abspiel-Datum" when it is one
};

std::int64_t Alter(const Zeitpunkt& Von, const Zeitpunkt& Bis, AutoDjEinheit Einheit) {
    switch (Einheit) {
        case AutoDjEinheit::Minuten:
            return MinutenZwischen(Von, Bis);
        case AutoDjEinheit::Stunden:
            return StundenZwischen(Von, Bis);
        case AutoDjEinheit::Tage:
            break;
    }
    return TageZwischen(Von, Bis);
}

// Calendar months that have begun since.
std::int64_t AlterInMonaten(const Zeitpunkt& Von, const Zeitpunkt& Bis) {
    return (Bis.Jahr - Von.Jahr) * 12 + (Bis.Monat - Von.Monat);
}

// Whether a record is of a chosen genre. There are few genres and many records: each stored value is read and
// compared once. Used by one thread.
class Genreprüfung {
  public:
    Genreprüfung(const Katalog& Durchsucht, const std::unordered_set<std::string>& Genres)
        : Index(Durchsucht), Gewählt(Genres) {}
    bool Besteht(Satznummer Nummer, const Satzsicht& Sicht) {
        const Satzspeicher& Sätze = Index.Sätze;
        return Enthält(V1, Nummer, Sätze.HatId3v1(Nummer), Sicht.Roh(FeldGenre)) ||
               Enthält(V2, Nummer, Sätze.HatId3v2(Nummer), Sicht.Roh(FeldV2Genre));
    }

  private:
    struct Feld {
        Feldwahl Wahl;
        std::unordered_map<std::string, bool> Bekannte{};  // by the mark of the tag and the stored value
    };
    bool Enthält(Feld& Eines, Satznummer Nummer, std::uint8_t TagMarke, std::string_view Gespeichert) {
        Schlüssel.assign(1, static_cast<char>(TagMarke));
        Schlüssel += Gespeichert;
        if (const auto Fund = Eines.Bekannte.find(Schlüssel); Fund != Eines.Bekannte.end())
            return Fund->second;
        Feldtyp Typ{};
        FeldWert(Index, Nummer, Eines.Wahl, Wertform::Anzeigen, false, Wert, Typ);
        const bool Ja = Gewählt.contains(Falten(Wert));
        if (Eines.Bekannte.size() < BekannteHöchstens) Eines.Bekannte.emplace(Schlüssel, Ja);
        return Ja;
    }
    static constexpr std::size_t BekannteHöchstens = 10000;
    const Katalog& Index;
    const std::unordered_set<std::string>& Gewählt;  // folded
    Feld V1{FeldFinden("Genre")};
    Feld V2{FeldFinden("Genre-ID3v2")};
    std::string Schlüssel;
    std::string Wert;
};

// All records of the chosen genres that have been played, in record order.
std::vector<Kandidat> GespielteSammeln(const Katalog& Index, const std::vector<std::string>& Genres) {
    std::unordered_set<std::string> Gewählt;
    for (const std::string& Genre : Genres)
        Gewählt.insert(Genre == OhneGenre ? std::string() : Falten(Genre));
    std::vector<std::vector<Kandidat>> Teile(HöchsteTeilzahl());
    const auto TeilSammeln = [&](std::size_t Teil, std::size_t Von, std::size_t Bis) {
        Genreprüfung Genre(Index, Gewählt);
        std::string Datum;
        for (std::size_t i = Von; i < Bis; ++i) {
            const auto Nummer = static_cast<Satznummer>(i + 1);
            const std::int64_t Häufigkeit = Index.Sätze.Zahl(Nummer, FeldAbspielHäufigkeit);
            if (Häufigkeit < 1) continue;
            const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
            if (!Genre.Besteht(Nummer, Sicht)) continue;
            Datum.clear();
            IndexwertLesenAnhängen(Datum, Sicht.Roh(FeldAbspielDatum));
            Teile[Teil].push_back({Nummer, Häufigkeit, DatumLesen(Datum)});
        }
    };
    AufKerneVerteilen(static_cast<std::size_t>(Index.IndexAnzahl()), SätzeJeKern, TeilSammeln);
    std::vector<Kandidat> Gespielte;
    for (const auto& Teil : Teile)
        Gespielte.insert(Gespielte.end(), Teil.begin(), Teil.end());
    return Gespielte;
}

// Sum of the counts by their number, rounded to the nearest, a half to the even neighbour.
std::int64_t DurchschnittVon(const std::vector<Kandidat>& Gespielte) {
    double Summe = 0;
    for (const Kandidat& Einer : Gespielte)
        Summe += static_cast<double>(Einer.Häufigkeit);
    return Gespielte.empty()
               ? 0
               : Gerundet<std::int64_t>(Summe / static_cast<double>(Gespielte.size())).value_or(0);
}

std::int64_t Ganzzahlig(const Zufallszahl& Zufall, std::int64_t Höchstens) {
    return static_cast<std::int64_t>(Zufall() * static_cast<double>(Höchstens)) + 1;
}

void Mischen(std::vector<Kandidat>& Liste, const Zufallszahl& Zufall) {
    const auto Anzahl = static_cast<std::int64_t>(Liste.size());
    for (std::size_t i = 0; i < Liste.size(); ++i)
        std::swap(Liste[i], Liste[static_cast<std::size_t>(Ganzzahlig(Zufall, Anzahl) - 1)]);
}

// The place that an entry at place p (1-based) of n gets by its age: often heard in the last half year goes
// back, an old favourite comes to the front.
std::int64_t PlatzNachAlter(std::int64_t p, std::int64_t n, const Kandidat& Einer, const AutoDjWahl& Wahl,
                            std::int64_t Durchschnitt, const Zeitpunkt& Jetzt, const Zufallszahl& Zufall) {
    if (Einer.Häufigkeit <= Durchschnitt || !Einer.Datum) return p;
    const std::int64_t Monate = AlterInMonaten(*Einer.Datum, Jetzt);
    if (Wahl.AlteSeltener && Monate >= 1 && Monate <= 6) {
        p *= Ganzzahlig(Zufall, 4);
        // Kept: twice the new place decides, so that the whole second half goes to the last place.
        if (p * 2 > n) p = n;
    }
    if (Wahl.SehrAlteHäufiger && Monate > 6) {
        const auto Teiler = static_cast<double>(Ganzzahlig(Zufall, 4));
        p = std::max<std::int64_t>(1, Gerundet<std::int64_t>(static_cast<double>(p) / Teiler).value_or(1));
    }
    return p;
}

void Gewichten(std::vector<Kandidat>& Liste, const AutoDjWahl& Wahl, std::int64_t Durchschnitt,
               const Zeitpunkt& Jetzt, const Zufallszahl& Zufall) {
    const auto Anzahl = static_cast<std::int64_t>(Liste.size());
    std::vector<bool> Verschoben(Liste.size(), false);
    for (std::int64_t i = 1; i <= Anzahl; ++i) {
        const auto Hier = static_cast<std::size_t>(i - 1);
        if (Verschoben[Hier]) continue;
        const std::int64_t p = PlatzNachAlter(i, Anzahl, Liste[Hier], Wahl, Durchschnitt, Jetzt, Zufall);
        if (p == i) continue;
        const auto Dort = static_cast<std::size_t>(p - 1);
        std::swap(Liste[Hier], Liste[Dort]);
        Verschoben[Dort] = true;
    }
}

void ZufälligOrdnen(std::vector<Kandidat>& Gespielte, const AutoDjWahl& Wahl, const Zeitpunkt& Jetzt,
                    const Zufallszahl& Zufall) {
    const std::int64_t Durchschnitt = DurchschnittVon(Gespielte);
    std::erase_if(Gespielte, [&](const Kandidat& Einer) {
        if (Einer.Häufigkeit < Durchschnitt) return true;
        if (Wahl.Zeit < 0) return false;
        return !Einer.Datum || static_cast<double>(Alter(*Einer.Datum, Jetzt, Wahl.Einheit)) <= Wahl.Zeit;
    });
    Mischen(Gespielte, Zufall);
    Gewichten(Gespielte, Wahl, Durchschnitt, Jetzt, Zufall);
}

void NachRangOrdnen(std::vector<Kandidat>& Gespielte, const AutoDjWahl& Wahl, const Zeitpunkt& Jetzt) {
    std::erase_if(Gespielte, [&](const Kandidat& Einer) {
        if (Wahl.Zeit < 0) return false;
        return !Einer.Datum || static_cast<double>(Alter(*Einer.Datum, Jetzt, Wahl.Einheit)) > Wahl.Zeit;
    });
    std::stable_sort(Gespielte.begin(), Gespielte.end(),
                     [](const Kandidat& A, const Kandidat& B) { return A.Häufigkeit > B.Häufigkeit; });
}

}  // namespace

std::optional<AutoDjEinheit> AutoDjEinheitLesen(std::string_view Buchstabe) {
    const auto Fund = std::find(Einheiten.begin(), Einheiten.end(), Buchstabe);
    if (Fund == Einheiten.end()) return std::nullopt;
    return static_cast<AutoDjEinheit>(Fund - Einheiten.begin());
}

std::string_view AutoDjEinheitBuchstabe(AutoDjEinheit Einheit) {
    return Einheiten[static_cast<std::size_t>(Einheit)];
}

std::string AutoDjPrüfen(const AutoDjEingabe& Eingabe, AutoDjWahl& Wahl) {
    const bool Zufällig = Eingabe.Funktion == AutoDjFunktion::Zufällig;
    const auto Meldung = [](std::string_view Feld) {
        return "Bitte geben Sie eine Zahl in das Feld '" + std::string(Feld) +
               "' ein oder leeren Sie dieses.";
    };
    const auto Zeit = Zahl(Eingabe.Zeit);
    const auto Maximum = Zahl(Eingabe.Maximum);
    const bool ZeitGut = Eingabe.Zeit.empty() || Zeit;
    const bool MaximumGut = Eingabe.Maximum.empty() || Maximum;
    if (Zufällig && !ZeitGut) return Meldung("Dateien auslassen...");
    if (Zufällig && !MaximumGut) return Meldung("Finde so viele Dateien");
    if (!MaximumGut) return Meldung("Zeige meine persönlichen Top...");
    if (!ZeitGut) return Meldung("Charts der letzen...");
    if (Eingabe.Genres.empty()) return "Bitte wählen Sie mindestens ein Genre aus der Liste.";
    Wahl.Funktion = Eingabe.Funktion;
    Wahl.Zeit = Zeit.value_or(-1);
    // A number beyond all counts limits nothing.
    Wahl.Maximum = Maximum ? Gerundet<std::int64_t>(*Maximum).value_or(-1) : -1;
    Wahl.Einheit = Eingabe.Einheit;
    Wahl.AlteSeltener = Eingabe.AlteSeltener;
    Wahl.SehrAlteHäufiger = Eingabe.SehrAlteHäufiger;
    Wahl.Genres = Eingabe.Genres;
    return {};
}

std::vector<std::string> AlleAutoDjGenres() {
    std::vector<std::string> Alle(GenreListe.begin(), GenreListe.end());
    std::sort(Alle.begin(), Alle.end());
    Alle.erase(std::unique(Alle.begin(), Alle.end()), Alle.end());
    Alle.insert(Alle.begin(), std::string(OhneGenre));
    return Alle;
}

Zufallszahl ZufallszahlVon(std::uint64_t Saat) {
    return [Erzeuger = std::mt19937_64(Saat)]() mutable {
        constexpr double Stufen = 9007199254740992.0;  // 2 to the power of 53: what a double can tell apart
        return static_cast<double>(Erzeuger() >> 11U) / Stufen;
    };
}

std::vector<Satznummer> AutoDjZusammenstellen(const Katalog& Index, const AutoDjWahl& Wahl,
                                              const Zeitpunkt& Jetzt, const Zufallszahl& Zufall) {
    std::vector<Kandidat> Liste = GespielteSammeln(Index, Wahl.Genres);
    if (Wahl.Funktion == AutoDjFunktion::Zufällig) {
        ZufälligOrdnen(Liste, Wahl, Jetzt, Zufall);
    } else {
        NachRangOrdnen(Liste, Wahl, Jetzt);
    }
    std::size_t Anzahl = Liste.size();
    if (Wahl.Maximum != -1)
        Anzahl = std::min(Anzahl, static_cast<std::size_t>(std::max<std::int64_t>(0, Wahl.Maximum)));
    std::vector<Satznummer> Nummern;
    for (std::size_t i = 0; i < Anzahl; ++i)
        Nummern.push_back(Liste[i].Nummer);
    return Nummern;
}

std::string AutoDjNichtsGefunden(bool StatistikAn) {
    return std::string(
               "Die Funktion 'AutoDJ' kann nicht ausgeführt werden.\n"
               "Es liegen z.Zt. keine Nutzungsdaten für Dateien der gewählten Genre vor.\n") +
           (StatistikAn
                ? "Lassen Sie dieses Programm einfach einige Tage neben Winamp laufen, um automatisch "
                  "Nutzungsdaten zu speichern."
                : "Aktivieren Sie in den 'Optionen' die 'Speicherung von Abspiel-Statitstiken', um "
                  "Nutzungsdaten zu speichern.");
}

}  // namespace liedwerk
