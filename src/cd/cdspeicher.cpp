#include "cd/cdspeicher.h"

#include <map>
#include <optional>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "cd/xmcd.h"

namespace liedwerk {
namespace {

constexpr std::string_view Kopfzeile = "lwifcddb1";
constexpr std::string_view Endung = ".dat";

bool HatDaten(const CDDaten& Daten) {
    return Daten.AnzahlTitel > 0 || !Daten.Album.empty() || !Daten.Interpret.empty();
}

// Why the content could not be written or take its place; the old file is whole.
bool NichtGespeichert(const CDSpeicherumgebung& Umgebung, const std::string& Datei,
                      const std::string& Grund) {
    Umgebung.Log.Schreiben("CDDBCDSpeichern: '" + Datei + "' konnte nicht gespeichert werden, da " + Grund);
    return false;
}

// Why the temporary file could not be had.
std::string Öffnungshindernis(const std::string& Temporär, Dateiersatz::Öffnung Öffnung,
                              const Dateifehler& Fehler) {
    if (Öffnung == Dateiersatz::Öffnung::Gesperrt)
        return "ein anderes Programm die temporäre Datei '" + Temporär + "' gerade schreibt";
    const bool Bestehend = DateistandLesen(Temporär).has_value();
    return "die temporäre Datei '" + Temporär + "' nicht " + (Bestehend ? "gelöscht" : "angelegt") +
           " werden konnte: " + Fehler.Text;
}

std::string_view ErsteZeile(std::string_view Inhalt) {
    Inhalt = Inhalt.substr(0, Inhalt.find('\n'));
    if (Inhalt.ends_with('\r')) Inhalt.remove_suffix(1);
    return Inhalt;
}

// The second half of CDDBCDLesen, for the file of that name.
bool DateiEinlesen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, const std::string& Kennung,
                   const std::string& Datei) {
    const auto Inhalt = DateiLesen(Datei, XmcdHöchsteBytes);
    if (!Inhalt) {
        Umgebung.Log.Schreiben("CDDBCDLesen: Datei '" + Datei + "' nicht gefunden");
        return false;
    }
    const std::string_view Kopf = ErsteZeile(*Inhalt);
    if (Kopf != Kopfzeile) {
        constexpr std::size_t Gezeigt = 80;
        Umgebung.Log.Schreiben("CDDBCDLesen: Datei '" + Datei + "' - Header ('" +
                               XmcdTextVonBytes(Kopf.substr(0, Gezeigt)) + "') ungültig");
        return false;
    }
    if (Stand.Daten.ID.empty()) Stand.Daten.ID = Kennung;
    CDDBCDVerarbeiten(*Inhalt, Stand.Daten, Umgebung.Log);
    Stand.CDDBZuletztID = Kennung;
    Stand.CDDBZuletztLaufwerk = Stand.Daten.Laufwerk;
    return true;
}

}  // namespace

std::string CDDatei(const CDSpeicherumgebung& Umgebung, std::string_view ID) {
    if (!CDIDGültig(ID)) return {};
    const std::string Name = Kleinbuchstaben(ID) + std::string(Endung);
    std::string Datei = PfadVerbinden(Umgebung.Ordner, Name);
    if (DateistandLesen(Datei)) return Datei;
    Umgebung.Leser.Auflisten(Umgebung.Ordner, [&](const Ordnereintrag& Eintrag) {
        const bool Gefunden = !Eintrag.IstOrdner && GleichOhneGroß(Eintrag.Name, Name);
        if (Gefunden) Datei = PfadVerbinden(Umgebung.Ordner, Eintrag.Name);
        return !Gefunden;
    });
    return Datei;
}

bool CDDBCDSpeichern(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID,
                     const CDDaten& Daten) {
    CDVergessen(Stand);
    const std::string Datei = CDDatei(Umgebung, ID);
    if (Datei.empty() || !HatDaten(Daten)) {
        Umgebung.Log.Schreiben(
            "CDDBCDSpeichern: CD kann nicht gespeichert werden, da entweder ID oder Daten fehlen");
        return false;
    }
    if (const auto Fehler = OrdnerAnlegen(Umgebung.Ordner, Zugang::NurEigener);
        Fehler && !OrdnerExistiert(Umgebung.Ordner))
        return NichtGespeichert(Umgebung, Datei, "der Ordner nicht angelegt werden konnte: " + Fehler.Text);
    Dateiersatz Ersatz;
    const std::string Temporär = VorläufigerName(Datei);
    if (const auto Öffnung = Ersatz.Öffnen(Datei, Temporär); Öffnung != Dateiersatz::Öffnung::Bereit)
        return NichtGespeichert(Umgebung, Datei, Öffnungshindernis(Temporär, Öffnung, Ersatz.Fehler()));
    const std::string Text = CDDBTextErstellen(Daten, Umgebung.Programm);
    if (!Ersatz.Schreiben(XmcdBytesVonText(std::string(Kopfzeile) + "\r\n" + Text + "\r\n")))
        return NichtGespeichert(Umgebung, Datei, "das Schreiben fehlschlug: " + Ersatz.Fehler().Text);
    const bool Bestehend = DateistandLesen(Datei).has_value();
    if (!Ersatz.Übernehmen(true)) {
        const std::string Grund = Ersatz.Fehler().Text;
        return NichtGespeichert(
            Umgebung, Datei,
            Bestehend ? "die bestehende Datei nicht überschrieben werden konnte. Grund: " + Grund
                      : "das Schreiben fehlschlug: " + Grund);
    }
    return true;
}

bool CDDBCDLesen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID, bool Erzwingen) {
    const std::string Kennung(ID);
    if (Kennung.empty()) {
        Umgebung.Log.Schreiben("CDDBCDLesen: Keine ID angegeben - Abbruch");
        return false;
    }
    if (!Erzwingen && Kennung == Stand.CDDBZuletztID) {
        Umgebung.Log.Schreiben("CDDBCDLesen: CD '" + Kennung + "' im Cache gefunden - Abbruch");
        return true;
    }
    const std::string Datei = CDDatei(Umgebung, Kennung);
    if (Datei.empty()) {
        Umgebung.Log.Schreiben("CDDBCDLesen: Datei '" + CDEinzeilig(Kennung) + "' nicht gefunden");
        return false;
    }
    return DateiEinlesen(Stand, Umgebung, Kennung, Datei);
}

bool CDDBCDLöschen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID) {
    const std::string Datei = CDDatei(Umgebung, ID);
    if (Datei.empty() || DateiLöschen(Datei)) return false;
    if (GleichOhneGroß(Stand.CDDBZuletztID, ID)) CDVergessen(Stand);
    return true;
}

std::vector<CDEintrag> CDDBCDsSuchen(const CDSpeicherumgebung& Umgebung, Oberfläche* Person) {
    std::map<std::string, std::string> Namen;  // of the files, by id
    const auto Weiter = [&] { return Person == nullptr || Person->FortschrittZeigen(Umgebung.Ordner, 0); };
    bool Abgebrochen = false;
    Umgebung.Leser.Auflisten(Umgebung.Ordner, [&](const Ordnereintrag& Eintrag) {
        const std::string Kennung = Kleinbuchstaben(DateiOhneEndung(Eintrag.Name));
        if (!Eintrag.IstOrdner && EndetMitOhneGroß(Eintrag.Name, Endung) && CDIDGültig(Kennung)) {
            // Beside a name in small letters one in capitals does not count.
            std::string& Name = Namen[Kennung];
            if (Name.empty() || Eintrag.Name == Kennung + std::string(Endung)) Name = Eintrag.Name;
        }
        Abgebrochen = !Weiter();
        return !Abgebrochen;
    });
    std::vector<CDEintrag> Gefundene;
    for (const auto& [Kennung, Name] : Namen) {
        Abgebrochen = Abgebrochen || !Weiter();
        if (Abgebrochen) break;
        // A state of its own: looking through the files changes nothing about the CD that is loaded.
        CDStand Einer;
        const std::string Datei = PfadVerbinden(Umgebung.Ordner, Name);
        if (!DateiEinlesen(Einer, Umgebung, Kennung, Datei)) continue;
        Gefundene.push_back(
            {Kennung, CDEinzeilig(Einer.Daten.Album), CDEinzeilig(Einer.Daten.Interpret), Datei});
    }
    if (Abgebrochen) Umgebung.Log.Schreiben("CDDBCDsSuchen: Abbruch wegen DateienSuchenAPI...");
    return Gefundene;
}

std::string CDZeilentext(const CDEintrag& Eintrag) {
    return (Eintrag.Album.empty() ? "(Unbekanntes Album)" : Eintrag.Album) + " - " +
           (Eintrag.Interpret.empty() ? "(Unbekannter Interpret)" : Eintrag.Interpret);
}

}  // namespace liedwerk
