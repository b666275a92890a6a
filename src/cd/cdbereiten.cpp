#include "cd/cdbereiten.h"

#include <algorithm>
#include <optional>

#include "basis/pfad.h"
#include "basis/text.h"

namespace liedwerk {
namespace {

// A step that ends the preparation: the record is empty but for its log.
CDBereitung Scheitern(CDDaten& Daten, const std::string& Grund) {
    std::string Protokoll = std::move(Daten.Protokoll);
    Daten = {};
    Daten.Protokoll = std::move(Protokoll);
    CDProtokollieren(Daten, "CDDBStart: Fehler" + Grund);
    return CDBereitung::Gescheitert;
}

// How many tracks the drive lists as files; nothing when it cannot be listed.
std::optional<std::size_t> TiteldateienZählen(const Ordnerleser& Leser, std::string_view Laufwerk) {
    std::size_t Anzahl = 0;
    const bool Gelungen = Leser.Auflisten(MitTrenner(Laufwerk), [&](const Ordnereintrag& Eintrag) {
        if (!Eintrag.IstOrdner && EndetMitOhneGroß(Eintrag.Name, ".cda")) ++Anzahl;
        return true;
    });
    return Gelungen ? std::optional(Anzahl) : std::nullopt;
}

void InhaltÜbernehmen(const clsCcd& Disc, CDDaten& Daten) {
    Daten.ID = Disc.DiskID;
    Daten.Gesamtdauer = Disc.TotalLength + 2;
    Daten.LeadOutOffset = Disc.TrackOffset(Disc.TrackCount);
    Daten.AnzahlTitel = std::min(Disc.TrackCount, static_cast<std::int16_t>(CDHöchsteTitel));
    for (int i = 0; i < Daten.AnzahlTitel; ++i) {
        CDTitel& Titel = Daten.Titel[static_cast<std::size_t>(i)];
        Titel.Offset = Disc.TrackOffset(i);
        Titel.Frames = Disc.TrackFrames(i);
        Titel.Dauer = Disc.TrackTime(i + 1) - Disc.TrackTime(i);
        Titel.Datenspur = Disc.Datenspuren[static_cast<std::size_t>(i)];
    }
}

// Takes what the cache knows of the disc. A file without titles knows nothing; one with fewer than the disc
// has hides none of its tracks.
bool AusSpeicherLesen(CDStand& Stand, const CDSpeicherumgebung& Speicher) {
    const CDDaten Vorher = Stand.Daten;
    if (!CDDBCDLesen(Stand, Speicher, Vorher.ID, true)) return false;
    if (Stand.Daten.AnzahlTitel == 0) {
        Stand.Daten = Vorher;
        CDVergessen(Stand);
        return false;
    }
    Stand.Daten.AnzahlTitel = std::max(Stand.Daten.AnzahlTitel, Vorher.AnzahlTitel);
    return true;
}

void StandardtitelSetzen(CDDaten& Daten) {
    for (int i = 0; i < Daten.AnzahlTitel; ++i)
        Daten.Titel[static_cast<std::size_t>(i)].Titel = "Titel " + std::to_string(i + 1);
    Daten.Album = CDStandardAlbum;
    Daten.Interpret = CDStandardInterpret;
}

}  // namespace

CDBereitung CDDBDatenBereiten(CDStand& Stand, const CDUmgebung& Umgebung, std::string_view Laufwerk,
                              std::string_view Server, clsCcd& Disc) {
    const std::string Name(Laufwerk);
    CDDaten& Daten = Stand.Daten;
    Stand.CDDBFehler = 0;
    Stand.CDDBFehlerText.clear();
    const std::string Beginn = "CDDBStart: Start - " + Name + ", " + std::string(Server);
    const bool AudioCD = Umgebung.LaufwerkIstAudioCD(Laufwerk);
    const bool Gelesen = AudioCD && Disc.Init(Umgebung.CDs, Laufwerk);
    // The disc decides, not the drive's name alone: another one may have been put in meanwhile. And a record
    // out of a file knows no drive.
    const bool Geladen = Gelesen && !Stand.CDDBZuletztID.empty() && Disc.DiskID == Stand.CDDBZuletztID &&
                         Daten.ID == Disc.DiskID && Daten.Laufwerk == Name;
    if (Geladen) {
        Daten.Protokoll.clear();
        CDProtokollieren(Daten, Beginn);
        return CDBereitung::Geladen;
    }
    Daten = {};
    CDVergessen(Stand);
    CDProtokollieren(Daten, Beginn);
    if (!AudioCD) {
        return Scheitern(Daten, " - Laufwerk '" + Name +
                                    "' wurde nicht angegeben, existiert nicht oder enthält keine AudioCD");
    }
    const auto Titeldateien = TiteldateienZählen(Umgebung.Speicher.Leser, Laufwerk);
    if (!Titeldateien) return Scheitern(Daten, " bei DateienSuchenAPI");
    if (*Titeldateien == 0) return Scheitern(Daten, " - Keine Dateien gefunden");
    if (!Gelesen) return Scheitern(Daten, " bei CD-Initialisierung - " + CDFehlertext(Disc));
    Daten.Laufwerk = Name;
    InhaltÜbernehmen(Disc, Daten);
    if (AusSpeicherLesen(Stand, Umgebung.Speicher)) return CDBereitung::AusSpeicher;
    StandardtitelSetzen(Daten);
    return CDBereitung::Unbekannt;
}

}  // namespace liedwerk
