#include "termine/pruefen.h"

#include <optional>

#include "basis/datei.h"
#include "basis/text.h"
#include "termine/termine.h"
#include "termine/wiederkehr.h"

namespace liedwerk {
namespace {

// Notices of one round. An index may hold any number of events that are due; the rest of them comes in one
// list, and its programs are not started.
constexpr std::size_t HöchstensGemeldet = 20;

void ProgrammBedienen(const Termin& Eintrag, const Terminumgebung& Umgebung) {
    if (Eintrag.Anwendung.empty()) return;
    if (DateiExistiert(Eintrag.Anwendung)) return Umgebung.ProgrammStarten(Eintrag);
    Umgebung.Person.Melden(
        Symbol::Ausrufezeichen,
        "Das bei der Einrichtung des Ereignisses '" + Eintrag.Beschreibung + "' hinterlegte Programm '" +
            Eintrag.Anwendung +
            "' konnte nicht gestartet werden, da es nicht existiert.\nBitte ändern Sie das Ereignis über die "
            "Funktion 'Ereignisse verwalten'.");
}

Terminmeldung MeldungBilden(const Termin& Eintrag, std::size_t Nummer, const std::string& Nächster) {
    Terminmeldung Meldung{Nummer, Eintrag.Meldungstext, {}, Eintrag.AnzeigeDauer};
    if (Meldung.Text.empty()) {
        // An event without a date of its own is told by that of its notice.
        const std::string Datum = TerminZelle(Eintrag, Eintrag.Datum.empty() ? "Erinnern" : "Termin");
        Meldung.Text = "Das Ereignis '" + Eintrag.Beschreibung + "' vom " + Datum +
                       " wurde erreicht.\r\n\r\nBitte wählen Sie eine der unten stehenden Optionen, um "
                       "fortzufahren.";
    }
    if (!Eintrag.Einheit.empty()) Meldung.Nächster = Nächster;
    return Meldung;
}

void AntwortÜbernehmen(Termin& Eintrag, const Terminantwort& Antwort, const std::string& Nächster) {
    const auto Zeit = DatumLesen(Antwort.Zeit);
    if (Antwort.Wahl == Terminwahl::Folgendermaßen && Zeit) {
        Eintrag.BenachrichtigenAm = DatumZeitText(*Zeit);
        Eintrag.Erledigt.clear();
    } else if (Antwort.Wahl == Terminwahl::WieHinterlegt && !Eintrag.Einheit.empty()) {
        Eintrag.BenachrichtigenAm = Nächster;
        Eintrag.Erledigt.clear();
    } else {
        Eintrag.Erledigt = "1";
    }
}

// One event: what is told the person, if anything. Verpasste gets it when its only date has passed, or when
// it is due and no more notices are wanted.
std::optional<Terminmeldung> TerminPrüfen(Katalog& Index, std::size_t Nummer, const Terminumgebung& Umgebung,
                                          bool Einzeln, Terminliste& Verpasste) {
    // A copy: while a notice is open, the event may be changed or go.
    Termin Eintrag = Index.Termine[Nummer - 1];
    if (Eintrag.Benachrichtigen != 1 || Eintrag.Erledigt == "1") return std::nullopt;
    const auto Am = DatumLesen(Eintrag.BenachrichtigenAm);
    if (!Am) {
        Umgebung.Log.Schreiben("TerminePrüfen: Benachrichtigungs-Datum bei Termin " + std::to_string(Nummer) +
                               " ungültig - '" + Eintrag.BenachrichtigenAm + "' ");
        return std::nullopt;
    }
    const Zeitpunkt Jetzt = Umgebung.Zeit.Jetzt();
    const Terminlage Lage = TerminNächsterTermin(Eintrag, Jetzt);
    if (!Lage.Fällig) {
        if (!Eintrag.Einheit.empty() || *Am > Jetzt) return std::nullopt;
        Index.IndexGeändert = true;
        Verpasste.push_back(Eintrag);
        Eintrag.Erledigt = "1";
        Index.Termine.Setzen(Nummer - 1, Eintrag);
        Umgebung.ZeileAuffrischen(Nummer);
        return std::nullopt;
    }
    Index.IndexGeändert = true;
    if (!Einzeln) {
        Verpasste.push_back(Eintrag);
        AntwortÜbernehmen(Eintrag, {}, Lage.Nächster);
        Index.Termine.Setzen(Nummer - 1, Eintrag);
        Umgebung.ZeileAuffrischen(Nummer);
        return std::nullopt;
    }
    ProgrammBedienen(Eintrag, Umgebung);
    Terminmeldung Meldung = MeldungBilden(Eintrag, Nummer, Lage.Nächster);
    const Terminantwort Antwort = Umgebung.Melden(Meldung);
    if (Nummer <= Index.Termine.size() && Index.Termine[Nummer - 1] == Eintrag) {
        AntwortÜbernehmen(Eintrag, Antwort, Lage.Nächster);
        Index.Termine.Setzen(Nummer - 1, Eintrag);
        Umgebung.ZeileAuffrischen(Nummer);
    }
    return Meldung;
}

// Läuft while this stands: also an exception must not keep the next rounds from running.
struct Laufmarke {
    explicit Laufmarke(bool& Läuft) : Wert(Läuft) { Wert = true; }
    ~Laufmarke() { Wert = false; }
    Laufmarke(const Laufmarke&) = delete;
    Laufmarke& operator=(const Laufmarke&) = delete;
    bool& Wert;
};

}  // namespace

std::vector<Terminmeldung> TerminePrüfen(Katalog& Index, const Terminumgebung& Umgebung, bool& Läuft) {
    std::vector<Terminmeldung> Gezeigte;
    if (Läuft) return Gezeigte;
    const Laufmarke Marke(Läuft);
    Terminliste Verpasste;
    for (std::size_t Nummer = 1; Nummer <= Index.Termine.size(); ++Nummer) {
        if (auto Meldung =
                TerminPrüfen(Index, Nummer, Umgebung, Gezeigte.size() < HöchstensGemeldet, Verpasste))
            Gezeigte.push_back(std::move(*Meldung));
    }
    if (!Verpasste.empty()) Umgebung.VerpassteZeigen(Verpasste);
    return Gezeigte;
}

}  // namespace liedwerk
