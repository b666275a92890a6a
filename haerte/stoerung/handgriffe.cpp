// liedwerk-handgriffe WELT HANDGRIFF: the writers that only the window has, for the disturbance runs. The
// files have fixed names below the folder WELT; every question is answered with yes.
#include <functional>
#include <iostream>
#include <map>
#include <numeric>
#include <vector>

#include "cd/cdspeicher.h"
#include "core/dateilauf.h"
#include "core/einstellungsspeicher.h"
#include "core/sicherungslauf.h"
#include "plattform/linux/orte.h"
#include "plattform/linux/wertdatei.h"
#include "plattform/system.h"
#include "ui/text/lauf.h"

namespace liedwerk::haerte {
namespace {

// The files of the first records.
bool Löschen(Programmlauf& Lauf, bool Papierkorb, Satznummer Anzahl = 1) {
    Anwendung& P = Lauf.Programm();
    const auto Eimer = SystempapierkorbÖffnen();
    P.Dienst.Eimer = Eimer.get();
    std::vector<Satznummer> Erste(static_cast<std::size_t>(Anzahl));
    std::iota(Erste.begin(), Erste.end(), Satznummer{1});
    const auto Ergebnis = LöschenLauf(P, Erste, Papierkorb, false);
    return Ergebnis.Gelöscht.size() == Erste.size() && Lauf.GeändertesSpeichern();
}

bool AlleLöschen(Programmlauf& Lauf, bool Papierkorb) {
    return Löschen(Lauf, Papierkorb, Lauf.Programm().Index.IndexAnzahl());
}

bool Wiederherstellen(Programmlauf& Lauf, const std::string&) {
    const auto Kopien = SicherungskopienAuflisten(Lauf.Programm());
    return Kopien && !Kopien->empty() && SicherungskopieWiederherstellen(Lauf.Programm(), Kopien->front());
}

bool CDMerken(Programmlauf& Lauf, const std::string&) {
    CDDaten Daten;
    Daten.ID = "0a0b0c0d";
    Daten.Album = "Neues Album";
    Daten.Interpret = "Künstler";
    Daten.AnzahlTitel = 1;
    Daten.Titel[1].Titel = "Titel";
    Anwendung& P = Lauf.Programm();
    if (CDDBCDSpeichern(P.CD, CDUmgebungVon(P).Speicher, Daten.ID, Daten)) return true;
    Fehlermelden("Die CD wurde nicht gespeichert.");
    return false;
}

bool Einstellen(Programmlauf& Lauf, const std::string& Welt) {
    Wertdatei Datei(Welt + "/e.conf");
    Einstellungen Werte = Lauf.Programm().Werte;
    Werte.BackupsSpeichernIntervall = 77;
    const std::string Fehler = EinstellungenSchreiben(Werte, Datei);
    if (!Fehler.empty()) Fehlermelden(Fehler);
    return Fehler.empty();
}

// The person opens a file whose save was interrupted, and says that the new content is the right one.
bool Retten(Programmlauf& Lauf, const std::string& Welt) {
    Anwendung& P = Lauf.Programm();
    P.Reste.Regel = Zweifelsfall::Fragen;
    const Tagumgebung Umgebung = TagumgebungVon(P);
    for (const char* Name : {"/a.mp3", "/b.mp3"})
        DateiZurückholen(Welt + Name, Umgebung.Person, Umgebung.Reste, Umgebung.Ausführen);
    return true;
}

int Ausführen(const std::string& Welt, const std::string& Name) {
    using Handgriff = std::function<bool(Programmlauf&, const std::string&)>;
    const std::map<std::string, Handgriff> Alle = {
        {"loeschen", [](Programmlauf& Lauf, const std::string&) { return Löschen(Lauf, false); }},
        {"papierkorb", [](Programmlauf& Lauf, const std::string&) { return Löschen(Lauf, true); }},
        {"alle-loeschen", [](Programmlauf& Lauf, const std::string&) { return AlleLöschen(Lauf, false); }},
        {"alle-papierkorb", [](Programmlauf& Lauf, const std::string&) { return AlleLöschen(Lauf, true); }},
        {"wiederherstellen", Wiederherstellen},
        {"cd-merken", CDMerken},
        {"einstellen", Einstellen},
    };
    const auto Fund = Alle.find(Name);
    const bool Rettend = Name == "retten";  // works on files that no index knows
    if (Fund == Alle.end() && !Rettend) return 2;
    Globaloptionen Global;
    Global.Index = Welt + "/i.lwi";
    Global.Programmordner = Welt + "/prog";
    Global.Einstellungen = Welt + "/e.conf";
    Global.Jetzt = Zeitpunkt{2026, 11, 21, 12, 0, 0};
    Global.Ja = Global.Still = true;
    Programmlauf Lauf(Global);
    if (Rettend) return Lauf.Bereit() && Retten(Lauf, Welt) ? 0 : 1;
    return Lauf.Bereit() && Lauf.IndexLaden() && Fund->second(Lauf, Welt) ? 0 : 1;
}

}  // namespace
}  // namespace liedwerk::haerte

int main(int Anzahl, char** Argumente) {
    if (Anzahl == 3) return liedwerk::haerte::Ausführen(Argumente[1], Argumente[2]);
    std::cerr << "Aufruf: liedwerk-handgriffe WELT HANDGRIFF\n";
    return 2;
}
