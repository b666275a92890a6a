#include "cd/cdspeicher.h"

#include <algorithm>
#include <optional>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "cd/xmcd.h"

namespace liedwerk {
namespace {

constexpr std::string_view Kopfzeile = "lwifcddb1";
constexpr std::string_view Endung = ".dat";
// More than a hundred titles of many lines need.
constexpr std::uint64_t HöchsteDatei = 1 << 20;

void Vergessen(CDStand& Stand) {
    Stand.CDDBZuletztID.clear();
    Stand.CDDBZuletztLaufwerk.clear();
}

bool HatDaten(const CDDaten& Daten) {
    return Daten.AnzahlTitel > 0 || !Daten.Album.empty() || !Daten.Interpret.empty();
}

// Why the content could not be written or take its place; the old file is whole.
bool NichtGespeichert(const CDSpeicherumgebung& Umgebung, const std::string& Datei,
                      const std::string& Grund) {
    Umgebung.Log.Schreiben("CDDBCDSpeichern: '" + Datei + "' konnte nicht gespeichert werden, da " + Grund);
    return false;
}

std::string_view ErsteZeile(std::string_view Inhalt) {
    Inhalt = Inhalt.substr(0, Inhalt.find('\n'));
    if (Inhalt.ends_with('\r')) Inhalt.remove_suffix(1);
    return Inhalt;
}

}  // namespace

std::string CDDatei(const CDSpeicherumgebung& Umgebung, std::string_view ID) {
    if (!CDIDGültig(ID)) return {};
    return PfadVerbinden(Umgebung.Ordner, Kleinbuchstaben(ID) + std::string(Endung));
}

bool CDDBCDSpeichern(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID,
                     const CDDaten& Daten) {
    Vergessen(Stand);
    const std::string Datei = CDDatei(Umgebung, ID);
    if (Datei.empty() || !HatDaten(Daten)) {
        Umgebung.Log.Schreiben(
            "CDDBCDSpeichern: CD kann nicht gespeichert werden, da entweder ID oder Daten fehlen");
        return false;
    }
    if (const auto Fehler = OrdnerAnlegen(Umgebung.Ordner); Fehler && !OrdnerExistiert(Umgebung.Ordner))
        return NichtGespeichert(Umgebung, Datei, "der Ordner nicht angelegt werden konnte: " + Fehler.Text);
    Dateiersatz Ersatz;
    if (Ersatz.Öffnen(Datei, Datei + "~") != Dateiersatz::Öffnung::Bereit) {
        return NichtGespeichert(Umgebung, Datei,
                                "die temporäre Datei '" + Datei + "~' nicht gelöscht werden konnte");
    }
    const std::string Text = CDDBTextErstellen(Daten, Umgebung.Programm);
    if (!Ersatz.Schreiben(XmcdBytesVonText(std::string(Kopfzeile) + "\r\n" + Text + "\r\n")))
        return NichtGespeichert(Umgebung, Datei, "das Schreiben fehlschlug: " + Ersatz.Fehler().Text);
    if (!Ersatz.Übernehmen(true)) {
        return NichtGespeichert(Umgebung, Datei, "die bestehende Datei nicht überschrieben werden konnte.");
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
    const auto Inhalt = Datei.empty() ? std::nullopt : DateiLesen(Datei, HöchsteDatei);
    if (!Inhalt) {
        Umgebung.Log.Schreiben("CDDBCDLesen: Datei '" + (Datei.empty() ? CDEinzeilig(Kennung) : Datei) +
                               "' nicht gefunden");
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

bool CDDBCDLöschen(CDStand& Stand, const CDSpeicherumgebung& Umgebung, std::string_view ID) {
    const std::string Datei = CDDatei(Umgebung, ID);
    if (Datei.empty() || DateiLöschen(Datei)) return false;
    if (GleichOhneGroß(Stand.CDDBZuletztID, ID)) Vergessen(Stand);
    return true;
}

std::vector<CDEintrag> CDDBCDsSuchen(const CDSpeicherumgebung& Umgebung, Oberfläche* Person) {
    std::vector<std::string> Kennungen;
    const auto Weiter = [&] { return Person == nullptr || Person->FortschrittZeigen(Umgebung.Ordner, 0); };
    bool Abgebrochen = false;
    Umgebung.Leser.Auflisten(Umgebung.Ordner, [&](const Ordnereintrag& Eintrag) {
        const std::string_view Kennung = DateiOhneEndung(Eintrag.Name);
        if (!Eintrag.IstOrdner && EndetMitOhneGroß(Eintrag.Name, Endung) && CDIDGültig(Kennung))
            Kennungen.push_back(Kleinbuchstaben(Kennung));
        Abgebrochen = !Weiter();
        return !Abgebrochen;
    });
    std::sort(Kennungen.begin(), Kennungen.end());
    // Names in capitals stand beside those in small letters on some file systems.
    Kennungen.erase(std::unique(Kennungen.begin(), Kennungen.end()), Kennungen.end());
    std::vector<CDEintrag> Gefundene;
    for (const auto& Kennung : Kennungen) {
        Abgebrochen = Abgebrochen || !Weiter();
        if (Abgebrochen) break;
        // A state of its own: looking through the files changes nothing about the CD that is loaded.
        CDStand Einer;
        if (!CDDBCDLesen(Einer, Umgebung, Kennung, true)) continue;
        Gefundene.push_back({Kennung, CDEinzeilig(Einer.Daten.Album), CDEinzeilig(Einer.Daten.Interpret),
                             CDDatei(Umgebung, Kennung)});
    }
    if (Abgebrochen) Umgebung.Log.Schreiben("CDDBCDsSuchen: Abbruch wegen DateienSuchenAPI...");
    return Gefundene;
}

std::string CDZeilentext(const CDEintrag& Eintrag) {
    return (Eintrag.Album.empty() ? "(Unbekanntes Album)" : Eintrag.Album) + " - " +
           (Eintrag.Interpret.empty() ? "(Unbekannter Interpret)" : Eintrag.Interpret);
}

}  // namespace liedwerk
