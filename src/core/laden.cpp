#include "core/laden.h"

#include <exception>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "core/beenden.h"
#include "core/hinzufuegelauf.h"
#include "core/startauftrag.h"
#include "core/suchlauf.h"
#include "core/terminlauf.h"
#include "index/schreiber.h"

namespace liedwerk {
namespace {

constexpr std::size_t HöchstensZuletztGeladen = 10;

void LogMitStempel(Anwendung& Programm, std::string_view Text) {
    if (Programm.Log.Aktiv()) Programm.Log.Schreiben(std::string(Text) + Zeitstempel(Programm.Dienst.Zeit));
}

// The search when one runs, else the whole index.
void ListeAuffrischen(Anwendung& Programm) {
    const Suchzeile Zeile = Programm.Dienst.Fenster.SuchzeileLesen();
    if (Programm.Abfragen.SucheAnzahl() > 0 || !Zeile.Begriff.empty()) {
        SucheAktualisieren(Programm);
        return;
    }
    TrefferZurücksetzen(Programm.Index);
    ListeErstellen(Programm.Ansicht, Programm.Index, Programm.Log, Programm.Dienst.Zeit);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
}

Ladeergebnis LadenOhneListe(Anwendung& Programm, const std::string& Name, std::int16_t Modus,
                            bool StillErstellen) {
    // The ways on the temporary index create it unasked: there is nothing in it that anybody could miss.
    const bool TemporärerIndex = Modus > ModusIndexdatei || OrdnerExistiert(Name);
    const std::string TagLesenVorher = Programm.Werte.Mp3TagLesen;
    const auto Ergebnis = DateiLaden(Programm.Index, Programm.Werte, IndexumgebungVon(Programm), Name, true,
                                     StillErstellen || TemporärerIndex, Modus);
    TerminvertrauenLesen(Programm);
    if (Ergebnis == Ladeergebnis::TagEditor && !Programm.TagLesenNurLauf) {
        Programm.TagLesenNurLauf = true;
        Programm.TagLesenGemerkt = TagLesenVorher;
    }
    return Ergebnis;
}

void IndexZeigen(Anwendung& Programm, const std::string& Name) {
    Hauptfenster& Fenster = Programm.Dienst.Fenster;
    LogMitStempel(Programm, "StandardDateiLaden: Datei erfolgreich geladen (" +
                                std::to_string(Programm.Index.IndexAnzahl()) +
                                " Datensätze), setze Steuerelemente ");
    Fenster.ListeFreigeben(true);
    Fenster.IndexnameZeigen(DateinameVon(Name));
    SpaltenAusIndex(Programm);
    Fenster.SuchzeileLeeren();
    SucheZurücksetzen(Programm.Abfragen);
    Programm.Index.Programmmodus = ModusIndexdatei;
    ZuletztGeladenAufnehmen(Programm, Name);
}

void DateimanagerZeigen(Anwendung& Programm) {
    LogMitStempel(Programm,
                  "StandardDateiLaden: Ordner laden erfolgreich vorbereitet, setze Steuerelemente ");
    Programm.Dienst.Fenster.ListeFreigeben(true);
    SpaltenAusIndex(Programm);
    Programm.Index.Programmmodus = ModusDateimanager;
}

void TagEditorVorbereiten(Anwendung& Programm, const std::string& Name) {
    LogMitStempel(Programm,
                  "StandardDateiLaden: TAG Editor laden erfolgreich vorbereitet, setze Steuerelemente ");
    Programm.Dienst.Fenster.ListeFreigeben(true);
    Programm.Dienst.Fenster.IndexnameZeigen(Name);
    SpaltenAusIndex(Programm);
    Programm.Index.Programmmodus = ModusTagEditor;
}

void FehlschlagZeigen(Anwendung& Programm, const std::string& Name) {
    LogMitStempel(Programm, "StandardDateiLaden: Datei NICHT erfolgreich geladen, setze Controls ");
    Programm.Dienst.Person.Melden(
        Symbol::Ausrufezeichen,
        "Ihre Datei oder der Ordner '" + Name +
            "' konnte aufgrund eines Fehlers nicht geladen bzw. erstellt werden.\n\n" +
            std::string(ZugriffsHinweis));
    Programm.Dienst.Fenster.ListeFreigeben(false);
    Programm.Dienst.Fenster.IndexnameZeigen("(keine Datei geladen)");
    Programm.Index.Programmmodus = ModusNichtsGeladen;
}

void ErgebnisZeigen(Anwendung& Programm, Ladeergebnis Ergebnis, const std::string& Name) {
    switch (Ergebnis) {
        case Ladeergebnis::Index:
            return IndexZeigen(Programm, Name);
        case Ladeergebnis::Dateimanager:
            return DateimanagerZeigen(Programm);
        case Ladeergebnis::TagEditor:
            return TagEditorVorbereiten(Programm, Name);
        case Ladeergebnis::Fehlschlag:
            return FehlschlagZeigen(Programm, Name);
    }
}

// The common beginning of both ways on handed-over names: false, with the end asked for, when there are none.
bool NamenVorhanden(Anwendung& Programm, std::string_view Logzeile, const std::string& Name,
                    const std::vector<std::string>& Namen, std::string_view Meldung) {
    LogMitStempel(Programm, std::string(Logzeile) + ": '" + Name + "'...");
    if (Name.empty()) {
        LogMitStempel(Programm, "StandardDateiLaden: Keine Datei ausgewählt - beende Funktion");
    } else if (Namen.empty()) {
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen, Meldung);
    } else {
        return true;
    }
    Programm.BeendenErbeten = true;
    return false;
}

void OrdnerÜbernehmen(Anwendung& Programm, const std::string& Name, const std::vector<std::string>& Namen) {
    if (!NamenVorhanden(Programm, "StandardDateiLaden: Ordner-Browser - Ordner hinzufügen", Name, Namen,
                        "Bitte wählen Sie mindestens einen Ordner."))
        return;
    Programm.Index.IndexDateiname = Namen.front();
    Programm.Dienst.Fenster.IndexnameZeigen(Namen.front());
    for (const auto& Ordner : Namen) {
        Ordnerauftrag Auftrag;
        Auftrag.Ordner = Ordner;
        Auftrag.DateimanagerAnsicht = true;
        Auftrag.FortschrittOffenLassen = true;
        OrdnerHinzufügenLauf(Programm, Auftrag, {false, false});
    }
    LogMitStempel(Programm, "StandardDateiLaden: Aktualisiere Suche ");
    ListeAuffrischen(Programm);
}

void DateienÜbernehmen(Anwendung& Programm, const std::string& Name, const std::vector<std::string>& Namen) {
    if (!NamenVorhanden(Programm, "StandardDateiLaden: TAG-Editor - Dateinamen hinzufügen", Name, Namen,
                        "Bitte wählen Sie mindestens eine Datei."))
        return;
    DateienHinzufügenLauf(Programm, Namen, {false, false}, false);
    ListeAuffrischen(Programm);
}

void DatenHolen(Anwendung& Programm, const std::string& Name, std::int16_t Modus, bool StillErstellen,
                const std::vector<std::string>& Namen) {
    LogMitStempel(Programm, "StandardDateiLaden: Beginne Ladevorgang ");
    // Rows and selection of another index mean nothing for this one.
    Programm.Ansicht.ListeMarkierungenVerwerfen = true;
    Programm.Ansicht.Auswahl.clear();
    ErgebnisZeigen(Programm, LadenOhneListe(Programm, Name, Modus, StillErstellen), Name);

    if (Programm.Index.Programmmodus != ModusDateimanager) {
        if (FortschrittBeimLaden(Programm.Werte))
            Programm.Dienst.Person.FortschrittStarten("Liste erstellen", false, 0);
        LogMitStempel(Programm, "StandardDateiLaden: Aktualisiere Suche ");
        ListeAuffrischen(Programm);
    }
    Programm.Ansicht.ListeMarkierungenVerwerfen = false;

    const auto Einzelne = Namen.empty() ? NamenTeilen(Name) : Namen;
    if (Programm.Index.Programmmodus == ModusDateimanager) OrdnerÜbernehmen(Programm, Name, Einzelne);
    if (Programm.Index.Programmmodus == ModusTagEditor) DateienÜbernehmen(Programm, Name, Einzelne);
}

}  // namespace

bool StandardDateiLaden(Anwendung& Programm, std::int16_t Modus, bool StillErstellen,
                        const std::vector<std::string>& Namen) {
    const Laufsperre Sperre(Programm);
    Katalog& Index = Programm.Index;
    if (Index.IndexDateiname.empty() && Modus <= ModusIndexdatei)
        Index.IndexDateiname = Standardindex(Programm);
    const std::string Name = Index.IndexDateiname;
    try {
        DatenHolen(Programm, Name, Modus, StillErstellen, Namen);
    } catch (const std::exception& Fehler) {
        LogMitStempel(Programm,
                      "StandardDateiLaden: Fehler - " + std::string(Fehler.what()) + " (Fehler 0) ");
    }
    Programm.Dienst.Person.FortschrittSchließen();
    if (!Index.Optionen.IndexEigentümer.empty() && Index.Programmmodus == ModusIndexdatei &&
        Programm.Werte.FremderIndexNachricht == 1)
        Programm.Dienst.Fenster.EigentümerZeigen(Index.Optionen.IndexEigentümer);
    LogMitStempel(Programm, "StandardDateiLaden: Ende ");
    return Index.Programmmodus != ModusNichtsGeladen;
}

void ZuletztGeladenAufnehmen(Anwendung& Programm, const std::string& Name) {
    auto& Liste = Programm.Werte.ZuletztGeladen;
    std::erase_if(Liste, [&](const std::string& Alter) { return PfadeGleich(Alter, Name); });
    Liste.insert(Liste.begin(), Name);
    if (Liste.size() > HöchstensZuletztGeladen) Liste.resize(HöchstensZuletztGeladen);
    Programm.Dienst.Fenster.ZuletztGeladenZeigen();
}

bool AndereDateiLaden(Anwendung& Programm, std::string_view Dateiname, bool StillErstellen) {
    switch (SpeicherfrageStellen(Programm)) {
        case Speicherwunsch::Abbrechen:
            return false;
        case Speicherwunsch::NichtSpeichern:
            break;
        case Speicherwunsch::Speichern:
            // A failed save has been shown; the changes stay, and so does the index.
            if (!IndexSpeichern(Programm)) return false;
            break;
    }
    if (Programm.TagLesenNurLauf) Programm.Werte.Mp3TagLesen = Programm.TagLesenGemerkt;
    Programm.TagLesenNurLauf = false;
    Programm.NameVonKommandozeile = false;
    Programm.Index.IndexDateiname = Dateiname;
    return StandardDateiLaden(Programm, ModusNichtsGeladen, StillErstellen);
}

std::string Standardindex(const Anwendung& Programm) {
    return PfadVerbinden(Programm.Dienst.Programmordner, "lwStamm.lwi");
}

}  // namespace liedwerk
