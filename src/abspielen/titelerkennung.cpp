#include "abspielen/titelerkennung.h"

#include <algorithm>
#include <limits>

#include "abspielen/statistik.h"

namespace liedwerk {
namespace {

constexpr std::int64_t Mindestspieldauer = 30;  // seconds; a title must play longer to count
constexpr Satznummer SätzeJeAufruf = 20000;

// True when the play of this file was counted already; from then on it is not any more.
bool VorabGezählt(Vorabzählung& Vorab, const Einstellungen& Werte, const std::string& Pfad) {
    if (Vorab.Spieler != Werte.WinampPfad) Vorab = {};
    const auto Fund = std::find(Vorab.Pfade.begin(), Vorab.Pfade.end(), Pfad);
    if (Fund == Vorab.Pfade.end()) return false;
    Vorab.Pfade.erase(Fund);
    return true;
}

}  // namespace

void VorabVermerken(Vorabzählung& Vorab, const Einstellungen& Werte, std::string_view Pfad) {
    if (Vorab.Spieler != Werte.WinampPfad) Vorab = {Werte.WinampPfad, {}, false};
    Vorab.Pfade.emplace_back(Pfad);
}

void VorabPrüfen(Vorabzählung& Vorab, bool SpielerDa) {
    if (Vorab.SpielerGesehen && !SpielerDa) Vorab.Pfade.clear();
    Vorab.SpielerGesehen = SpielerDa;
}

std::vector<Satznummer> SätzeZumTitel(const Katalog& Index, std::string_view Titel) {
    Titelsuche Suche(Titel, {});
    Suche.Weitersuchen(Index, std::numeric_limits<Satznummer>::max());
    return Suche.Gefundene();
}

bool TitelErkennen(Titelerkennung& Erkennung, Katalog& Index, const Einstellungen& Werte, Oberfläche& Person,
                   const GespielterTitel& Gespielt, const Zeitpunkt& Jetzt) {
    if (Werte.AbspielStatistikSpeichern != 1) {
        Erkennung.Suche.reset();
        return true;
    }
    if (Gespielt.Titel != Erkennung.ErkannterTitel || Gespielt.Durchgang != Erkennung.Durchgang)
        Erkennung = {Gespielt.Titel, Gespielt.Durchgang, Jetzt, false, false, {}, std::move(Erkennung.Vorab)};
    if (Erkennung.TitelVerarbeitet) return true;
    if (Kalendersekunden(Jetzt) - Kalendersekunden(Erkennung.TitelStart) <= Mindestspieldauer) return true;

    if (!Erkennung.Suche) Erkennung.Suche.emplace(Gespielt.Titel, Gespielt.Dateien);
    if (!Erkennung.Suche->Weitersuchen(Index, SätzeJeAufruf)) return true;
    const std::vector<Satznummer> Gefunden = Erkennung.Suche->Gefundene();
    Erkennung.Suche.reset();
    const std::string Zeittext = DatumZeitText(Jetzt);
    for (const Satznummer Nummer : Gefunden) {
        if (!VorabGezählt(Erkennung.Vorab, Werte, Index.Sätze.Pfad(Nummer)))
            AbspielenVermerken(Index, Nummer, Zeittext);
    }
    Erkennung.TitelErkannt = !Gefunden.empty();
    Erkennung.TitelVerarbeitet = true;
    Person.StatusZeigen(Erkennung.TitelErkannt ? "Die derzeit abgespielte Datei wurde " +
                                                     std::to_string(Gefunden.size()) + " Mal erkannt"
                                               : "Die derzeit abgespielte Datei wurde nicht erkannt");
    return true;
}

}  // namespace liedwerk
