#include "core/cdlauf.h"

#include <algorithm>
#include <optional>

#include "basis/text.h"
#include "basis/zahl.h"
#include "cd/xmcd.h"

namespace liedwerk {
namespace {

void NichtLesbarMelden(Anwendung& Programm, std::string_view Laufwerk) {
    // The last line of the log says why, behind the procedure's name.
    const std::vector<std::string> Zeilen = Teilen(Programm.CD.Daten.Protokoll, "\r\n");
    std::string Grund = Zeilen.size() < 2 ? std::string() : Zeilen[Zeilen.size() - 2];
    if (const auto Stelle = Grund.find(" - "); Stelle != std::string::npos) Grund.erase(0, Stelle + 3);
    Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen, "Die Audio-CD in '" + std::string(Laufwerk) +
                                                              "' konnte nicht gelesen werden.\n" + Grund);
}

// With what the person has entered, which stays whatever happens.
CDDBHerkunft MitEingaben(Anwendung& Programm, const CDDaten& Eingaben, const CDWahl& Wählen,
                         CDDBWunsch Wunsch) {
    const CDDaten Gemerkt = Eingaben;
    Wunsch.Eingaben = &Gemerkt;
    const CDDBHerkunft Herkunft = CDStarten(Programm, Gemerkt.Laufwerk, Wählen, Wunsch);
    if (Herkunft != CDDBHerkunft::Keine && Programm.CD.Daten.ID == Gemerkt.ID) return Herkunft;
    // No disc any more, or another one: what was read of it is not what the person has at hand.
    std::string Protokoll = std::move(Programm.CD.Daten.Protokoll);
    Programm.CD.Daten = Gemerkt;
    Programm.CD.Daten.Protokoll = std::move(Protokoll);
    CDVergessen(Programm.CD);
    return CDDBHerkunft::Eingaben;
}

// The number in a line such as "# Disc length: 2642 seconds" behind its beginning; nothing for another line.
std::optional<std::int32_t> ZahlHinter(std::string_view Zeile, std::string_view Anfang) {
    if (!Zeile.starts_with(Anfang)) return std::nullopt;
    const std::string_view Rest = Kürzen(Zeile.substr(Anfang.size()));
    const auto Wert = GanzzahlLesen<std::int32_t>(Rest.substr(0, Rest.find(' ')));
    return Wert && *Wert >= 0 ? Wert : std::nullopt;
}

// The table of contents from the comments of an xmcd text: it would be lost when the record is kept again.
void InhaltAusText(CDDaten& Daten) {
    std::size_t Anzahl = 0;
    for (const std::string& Zeile : XmcdZeilen(Daten.Text)) {
        if (const auto Länge = ZahlHinter(Zeile, "# Disc length:")) Daten.Gesamtdauer = *Länge;
        const auto Offset = ZahlHinter(Zeile, "# ");
        if (Offset && Anzahl < Daten.Titel.size()) Daten.Titel[Anzahl++].Offset = *Offset;
    }
    for (std::size_t i = 0; i < Anzahl; ++i) {
        CDTitel& Titel = Daten.Titel[i];
        Titel.Frames = Titel.Offset % CDFramesJeSekunde;
        const std::int32_t Ende =
            i + 1 < Anzahl ? Daten.Titel[i + 1].Offset / CDFramesJeSekunde : Daten.Gesamtdauer;
        Titel.Dauer = std::max(Ende - Titel.Offset / CDFramesJeSekunde, 0);
    }
}

}  // namespace

CDDBUmgebung CDDBUmgebungVon(Anwendung& Programm, CDWahl Wählen) {
    return {CDUmgebungVon(Programm), Programm.Werte, Programm.Dienst.Netz, Programm.Dienst.Person,
            std::move(Wählen)};
}

CDDBHerkunft CDStarten(Anwendung& Programm, std::string_view Laufwerk, const CDWahl& Wählen,
                       const CDDBWunsch& Wunsch) {
    const CDDBHerkunft Herkunft = CDDBStart(Programm.CD, CDDBUmgebungVon(Programm, Wählen), Laufwerk, Wunsch);
    if (Herkunft == CDDBHerkunft::Keine) NichtLesbarMelden(Programm, Laufwerk);
    return Herkunft;
}

CDDBHerkunft CDEinlesen(Anwendung& Programm, std::string_view Laufwerk, const CDWahl& Wählen) {
    CDDBWunsch Wunsch;
    Wunsch.NurLesen = Kürzen(Programm.Werte.CDDBServer).empty();
    return CDStarten(Programm, Laufwerk, Wählen, Wunsch);
}

CDDBHerkunft CDAbfragen(Anwendung& Programm, const CDDaten& Eingaben, const CDWahl& Wählen) {
    CDDBWunsch Wunsch;
    Wunsch.Abfragen = true;
    return MitEingaben(Programm, Eingaben, Wählen, Wunsch);
}

void CDSenden(Anwendung& Programm, const CDDaten& Eingaben, bool Probe) {
    CDDBWunsch Wunsch;
    Wunsch.Senden = true;
    Wunsch.Probe = Probe;
    MitEingaben(Programm, Eingaben, {}, Wunsch);
}

bool CDLiegtNoch(Anwendung& Programm, std::string_view Laufwerk) {
    clsCcd Disc;
    if (Programm.Dienst.CDs == nullptr ||
        (Disc.Init(*Programm.Dienst.CDs, Laufwerk) && Disc.DiskID == Programm.CD.Daten.ID))
        return true;
    Programm.Dienst.Person.Melden(
        Symbol::Ausrufezeichen,
        "Im Laufwerk '" + std::string(Laufwerk) +
            "' liegt nicht mehr die CD, deren Daten Sie bestätigt haben. Es wurde nichts zum Index "
            "hinzugefügt, die Daten sind gespeichert.\nBitte legen Sie die CD wieder ein, und fügen Sie sie "
            "noch einmal hinzu.");
    return false;
}

bool CDAusSpeicherLesen(Anwendung& Programm, std::string_view ID) {
    const CDSpeicherumgebung Speicher = CDUmgebungVon(Programm).Speicher;
    Programm.CD = {};
    if (!CDDBCDLesen(Programm.CD, Speicher, ID, true)) {
        Programm.Dienst.Person.Melden(
            Symbol::Ausrufezeichen, "Die Datei '" + CDDatei(Speicher, ID) + "' konnte nicht gelesen werden.");
        return false;
    }
    InhaltAusText(Programm.CD.Daten);
    return true;
}

bool CDÜbernehmen(Anwendung& Programm, const CDDaten& Daten) {
    const CDSpeicherumgebung Speicher = CDUmgebungVon(Programm).Speicher;
    CDDaten Neu = Daten;
    if (!CDDBCDSpeichern(Programm.CD, Speicher, Neu.ID, Neu)) {
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                      "Die Daten der CD konnten nicht in '" + CDDatei(Speicher, Neu.ID) +
                                          "' gespeichert werden.\n" + std::string(ZugriffsHinweis));
        return false;
    }
    Programm.CD.Daten = std::move(Neu);
    const std::string ID = Programm.CD.Daten.ID;
    return CDDBCDLesen(Programm.CD, Speicher, ID, true);
}

}  // namespace liedwerk
