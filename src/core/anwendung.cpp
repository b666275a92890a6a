#include "core/anwendung.h"

#include <memory>
#include <mutex>

#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "core/terminlauf.h"
#include "medien/cdtitel.h"

namespace liedwerk {
namespace {

// The medium text of a path's drive for readers that run in several threads: a cache of its own behind a
// lock, since the run's cache belongs to the one thread of the interface.
class Mediumfrage {
  public:
    explicit Mediumfrage(Anwendung& Programm)
        : Drives(Programm.Dienst.Drives), Umgebung(MediumumgebungVon(Programm)) {}
    std::string operator()(std::string_view Pfad) {
        const std::lock_guard Halten(Sperre);
        const std::string Laufwerk = Drives.LaufwerkVon(Pfad);
        if (!Bekannt || Laufwerk != Zuletzt) {
            WechselmediumVergleichenStarten(Speicher, Umgebung, Laufwerk);
            Text = Speicher.AktuellesWechselmedium;
            Zuletzt = Laufwerk;
            Bekannt = true;
        }
        return Text;
    }

  private:
    std::mutex Sperre;
    const Laufwerke& Drives;
    Mediumumgebung Umgebung;
    Mediumspeicher Speicher;
    bool Bekannt = false;
    std::string Zuletzt;
    std::string Text;
};

// The data of the disc in a path's drive, for the same readers. The disc is looked at once in a run; the
// record of the assistant counts when it is that disc's, else what the cache knows.
class CDFrage {
  public:
    explicit CDFrage(Anwendung& Ganzes) : Programm(Ganzes), Umgebung(CDUmgebungVon(Ganzes)) {}
    void operator()(std::string_view Pfad, Datensatz& Satz) {
        const std::lock_guard Halten(Sperre);
        const std::string Laufwerk = LaufwerkDesPfades(MediumumgebungVon(Programm), Pfad);
        if (Laufwerk != Zuletzt) DiscLesen(Laufwerk);
        Zuletzt = Laufwerk;
        if (Gelesen)
            CDInfosLesen(Pfad, Satz, Stand.Daten, Programm.Werte.CDDBVariousErsetzen == 1, &Programm.Log);
    }

  private:
    void DiscLesen(const std::string& Laufwerk) {
        clsCcd Disc;
        Stand = {};
        Gelesen = CDDBDatenBereiten(Stand, Umgebung, Laufwerk, Programm.Werte.CDDBServer, Disc) !=
                  CDBereitung::Gescheitert;
        // A record out of a file alone has the id, but not the disc's places.
        if (Gelesen && Programm.CD.Daten.ID == Disc.DiskID &&
            Programm.CD.Daten.LeadOutOffset == Disc.TrackOffset(Disc.TrackCount))
            Stand.Daten = Programm.CD.Daten;
    }

    std::mutex Sperre;
    Anwendung& Programm;
    CDUmgebung Umgebung;
    CDStand Stand;
    bool Gelesen = false;
    std::string Zuletzt;
};

}  // namespace

CDUmgebung CDUmgebungVon(Anwendung& Programm) {
    return {*Programm.Dienst.CDs,
            {PfadVerbinden(Programm.Dienst.Programmordner, "CDDB"), Programm.Dienst.Ordner, Programm.Log,
             ProgrammnameMitVersion()},
            [&Programm](std::string_view Laufwerk) {
                return LaufwerkIstAudioCD(MediumumgebungVon(Programm), Laufwerk);
            }};
}

Mediumumgebung MediumumgebungVon(Anwendung& Programm) {
    return {Programm.Dienst.Drives, Programm.Werte, Programm.Log, Programm.Dienst.CDs};
}

Medienumgebung MedienumgebungVon(Anwendung& Programm) {
    Medienumgebung Umgebung;
    Umgebung.Dateitypen = &Programm.Index.Optionen.Dateitypen;
    Umgebung.TAGsBytesSuchen = Programm.Werte.TAGsBytesSuchen;
    Umgebung.TAGsModern = Programm.Werte.TAGsModern == 1;
    Umgebung.WeitereFormate = Programm.Werte.WeitereFormate == 1;
    Umgebung.Zeit = &Programm.Dienst.Zeit;
    Umgebung.Auskunft = Programm.Dienst.Auskunft;
    Umgebung.Log = &Programm.Log;
    Umgebung.Wechselmedium = [Frage = std::make_shared<Mediumfrage>(Programm)](std::string_view Pfad) {
        return (*Frage)(Pfad);
    };
    if (Programm.Dienst.CDs != nullptr) {
        Umgebung.CdInfosLesen = [Frage = std::make_shared<CDFrage>(Programm)](
                                    std::string_view Pfad, Datensatz& Satz) { (*Frage)(Pfad, Satz); };
    }
    return Umgebung;
}

MedienLeser MedienleserVon(Anwendung& Programm, std::function<bool()> Weiter) {
    Medienumgebung Medien = MedienumgebungVon(Programm);
    Medien.Weiter = std::move(Weiter);
    return [Umgebung = std::move(Medien)](std::string_view Pfad, const Datensatz& Vorgabe,
                                          const Leseauftrag& Auftrag) {
        return MedienDatenLesen(Umgebung, Pfad, Vorgabe, Auftrag);
    };
}

Indexumgebung IndexumgebungVon(Anwendung& Programm) {
    auto Prüfen = [&Programm](Katalog& Index, Satznummer Nummer) {
        return static_cast<int>(DateiNichtVerfügbarPrüfen(
            Index, Nummer, Programm.Medium, MediumumgebungVon(Programm), Programm.Dienst.Person, false));
    };
    return {Programm.Dienst.Person,
            Programm.Log,
            Programm.Dienst.Zeit,
            Programm.Dienst.Ordner,
            Programm.Dienst.Programmordner,
            MedienleserVon(Programm),
            std::move(Prüfen),
            Programm.Dienst.Temporärindex,
            [&Programm](std::string_view Datei) { TerminvertrauenMerken(Programm, Datei); }};
}

Hinzufügeumgebung HinzufügeumgebungVon(Anwendung& Programm) {
    return {Programm.Index,           Programm.Werte,      Programm.Dienst.Person,      Programm.Log,
            Programm.Dienst.Ordner,   Programm.Medium,     MediumumgebungVon(Programm), Programm.Pfade,
            MedienleserVon(Programm), Programm.CDAssistent};
}

Tagumgebung TagumgebungVon(Anwendung& Programm) {
    return {Programm.Index,
            Programm.Werte,
            MedienleserVon(Programm),
            Programm.Medium,
            MediumumgebungVon(Programm),
            Programm.Dienst.Person,
            Programm.Reste,
            ProgrammnameMitVersion(),
            Programm.Dienst.Programmordner};
}

const Programmversion& Version() {
    // The minor version has two digits, so that the number formed of both grows with every version.
    static const Programmversion Nummern{LIEDWERK_VERSION_HAUPT, NullenVoran(LIEDWERK_VERSION_NEBEN, 2),
                                         LIEDWERK_VERSION_REVISION};
    return Nummern;
}

std::int16_t Versionszahl() {
    return GanzzahlLesen<std::int16_t>(Version().Haupt + Version().Neben).value_or(0);
}

std::string ProgrammnameMitVersion() {
    return std::string(Programmtitel) + " " + Version().Haupt + "." + Version().Neben;
}

}  // namespace liedwerk
