// Commands on audio CDs and their cache.
#include "cd/cdspeicher.h"
#include "cd/inhaltsverzeichnis.h"
#include "cd/xmcd.h"
#include "ui/text/befehle.h"
#include "ui/text/cdausgabe.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

void InhaltAlsJson(JsonSchreiber& Ziel, const clsCcd& Disc) {
    Ziel.ObjektAnfang();
    Ziel.Zahl("TrackCount", Disc.TrackCount);
    Ziel.Zahl("TotalLength", Disc.TotalLength);
    Ziel.Text("DiskID", Disc.DiskID);
    Ziel.Text("QueryString", Disc.QueryString());
    Ziel.Name("Offsets");
    Ziel.ListeAnfang();
    for (int i = 0; i <= Disc.TrackCount; ++i)
        Ziel.Zahl(Disc.TrackOffset(i));
    Ziel.ListeEnde();
    Ziel.ObjektEnde();
}

void InhaltAlsText(Ausgabe& Ziel, const clsCcd& Disc) {
    Ziel.Schreiben("DiskID: " + Disc.DiskID + "\nLänge: " + std::to_string(Disc.TotalLength) +
                   " Sekunden\nAbfrage: " + Disc.QueryString() + "\n");
    Tabelle Zeilen(Ziel, {"Titel", "Offset", "Sekunde", "Art"});
    for (int i = 0; i <= Disc.TrackCount; ++i) {
        const bool Ende = i == Disc.TrackCount;
        const bool Daten = !Ende && Disc.Datenspuren[static_cast<std::size_t>(i)];
        Zeilen.Zeile({Ende ? "Ende" : std::to_string(i + 1), std::to_string(Disc.TrackOffset(i)),
                      std::to_string(Disc.TrackTime(i)),
                      Ende    ? ""
                      : Daten ? "Daten"
                              : "Audio"});
    }
    Zeilen.Fertig();
}

}  // namespace

Ausgang CdInfoAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    clsCcd Disc;
    if (!Disc.Init(*Lauf.Programm().Dienst.CDs, EingabePfad(Eingabe.Argumente.front())))
        return Gescheitert(CDFehlertext(Disc));
    if (Lauf.Json()) {
        InhaltAlsJson(Lauf.Dokument(), Disc);
    } else {
        InhaltAlsText(Lauf.Text(), Disc);
    }
    return Lauf.Abschließen();
}

Ausgang CdCacheAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    const auto Einträge = CDDBCDsSuchen(CDUmgebungVon(Lauf.Programm()).Speicher);
    if (Lauf.Json()) {
        JsonSchreiber& Ziel = Lauf.Dokument();
        Ziel.ListeAnfang();
        for (const CDEintrag& Eintrag : Einträge) {
            Ziel.ObjektAnfang();
            Ziel.Text("ID", Eintrag.ID);
            Ziel.Text("Album", Eintrag.Album);
            Ziel.Text("Interpret", Eintrag.Interpret);
            Ziel.Text("Datei", Eintrag.Datei);
            Ziel.ObjektEnde();
        }
        Ziel.ListeEnde();
    } else {
        Tabelle Zeilen(Lauf.Text(), {"ID", "CD", "Datei"});
        for (const CDEintrag& Eintrag : Einträge)
            Zeilen.Zeile({Eintrag.ID, Sichtbar(CDZeilentext(Eintrag)), Sichtbar(Eintrag.Datei)});
        Zeilen.Fertig();
        Lauf.Text().Schreiben(std::to_string(Einträge.size()) + " CD(s)\n");
    }
    return Lauf.Abschließen();
}

Ausgang XmcdAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const std::string& Name = Eingabe.Argumente.front();
    const auto Text = EingabeLesen(Name, XmcdHöchsteBytes);
    if (!Text)
        return Gescheitert("Die Datei '" + Name + "' konnte nicht gelesen werden oder ist größer als 1 MiB.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    CDDaten Daten;
    if (!CDDBCDVerarbeiten(*Text, Daten, Lauf.Programm().Log))
        return Gescheitert("Die Datei '" + Name + "' enthält keine Daten einer CD.");
    CDDatenAusgeben(Lauf, Daten);
    return Lauf.Abschließen();
}

}  // namespace liedwerk
