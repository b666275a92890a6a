// What only reads: showing, searching, comparing.
#include "haerte/namen/pruefstand.h"
#include "haerte/namen/urteil.h"

namespace liedwerk::haerte {
namespace {

const std::string Spalten =
    "Interpret,Titel,Album,Kommentar,Titel-ID3v2,Interpret-ID3v2,Dateiname,Pfad+Dateiname";

Worte Mit(Worte Anfang, const Worte& Rest) {
    Anfang.insert(Anfang.end(), Rest.begin(), Rest.end());
    return Anfang;
}

void DateienZeigen(const Prüfstand& Stand) {
    const std::size_t Alle = Stand.AlleDateien().size();
    Stand.FallBeginnen("Dateien zeigen");
    for (const char* Modern : {"TAGsModern=0", "TAGsModern=1"}) {
        const Worte Anfang = {"--setze", Modern, "datei-info", "--"};
        Stand.Befehl(Mit(Anfang, Stand.AlleDateien()));
        Stand.Prüfen(Stand.Json(Mit(Anfang, Stand.AlleDateien())) == Alle, "Zahl der Dateien");
    }
    Stand.Befehl(Mit({"dateiinfo-text", "--"}, Stand.AlleDateien()));
    Stand.Prüfen(Stand.Json(Mit({"dateiinfo-text", "--"}, Stand.AlleDateien())) == Alle, "Zahl der Texte");
    Stand.FallBeenden();
}

void SätzeZeigen(const Prüfstand& Stand) {
    const std::size_t Sätze = Stand.Dateien().size();
    Stand.FallBeginnen("Sätze zeigen");
    Stand.Befehl({"saetze"});
    Stand.Prüfen(Stand.Json({"saetze"}) == Sätze, "Zahl der Sätze");
    Stand.Befehl({"feldwerte", "--felder", Spalten + ",%Titel% - %Pfad%"});
    Stand.Prüfen(Stand.Json({"feldwerte", "--felder", Spalten}) == Sätze, "Zahl der Feldwerte");
    const auto Lauf = Stand.Befehl({"suchen", "--spalten", Spalten});
    // Head, a line for each record, the count.
    Stand.Prüfen(Zeilen(Lauf.Ausgabe).size() >= Sätze && Zeilen(Lauf.Ausgabe).size() <= Sätze + 3,
                 "Zeilen der Trefferliste: " + std::to_string(Zeilen(Lauf.Ausgabe).size()));
    for (const char* Befehl : {"index-info", "termine"}) {
        Stand.Befehl({Befehl});
        Stand.Json({Befehl});
    }
    for (int Methode = 0; Methode <= 9; ++Methode) {
        Stand.Befehl({"aufraeumen", "--methode", std::to_string(Methode)});
        Stand.Json({"aufraeumen", "--methode", std::to_string(Methode)});
    }
    Stand.Befehl({"autodj", "--saat", "1"});
    Stand.Json({"autodj", "--saat", "1", "--funktion", "1"});
    Stand.FallBeenden();
}

void Suchen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Suchen");
    std::string Liste;
    for (const auto& [Was, Wert] : Stand.Werte()) {
        Liste += Wert + "\n";
        Stand.Befehl({"suchen", "--", Wert});
        Stand.Json({"suchen", "--feld", "Titel", "--code", "0031", "--", Wert});
        Stand.Befehl({"suchen", "--abfrage", "Dateiname|0000|" + Wert}, {.AuchFalsch = true});
        Stand.Befehl({"vorschlaege", "--", "Titel", Wert.substr(0, 3)});
        Stand.Json({"vorschlaege", "--", "Interpret", Wert.substr(0, 1)});
        Stand.Befehl({"autodj", "--genre", Wert});
        Stand.Befehl({"feldwerte", "--felder", Wert}, {.AuchFalsch = true});
        Stand.Befehl({"titel-erkennen", "--", Wert + " - " + Wert, "100"});
    }
    Stand.Schreiben("aus/liste.txt", Liste);
    Stand.Befehl({"mehrfachsuche", Stand.Pfad("aus/liste.txt")});
    Stand.Json({"mehrfachsuche", Stand.Pfad("aus/liste.txt")});
    Stand.FallBeenden();
}

// A name that begins with "-" or "~" is a name also when no folder stands in front of it.
void NackteNamen(const Prüfstand& Stand) {
    Stand.FallBeginnen("Namen ohne Ordner, Namen, die es nicht gibt");
    const std::string Env = "/usr/bin/env";
    for (const auto& [Was, Name] : Stand.Namen()) {
        const auto Lauf = Stand.Programm(
            {Env, "-C", Stand.Pfad("musik"), Stand.ProgrammPfad(), "--programmordner", Stand.Pfad("prog"),
             "--einstellungen", Stand.Pfad("e.conf"), "datei-info", "--", Name + ".mp3"},
            {.Programme = {Stand.ProgrammPfad()}});
        Stand.Prüfen(Lauf.Gelungen(), "nicht gefunden: " + Was);
        for (const char* Befehl :
             {"datei-info", "dateiinfo-text", "hinzufuegen", "xmcd", "cd-info", "felder-lesen"})
            Stand.Befehl({Befehl, "--", Name});
        // Switches cannot be told from names without "--": refused as wrong, or done.
        Stand.Befehl({"datei-info", Name}, {.AuchFalsch = true});
        Stand.Befehl({Name}, {.AuchFalsch = true});
        Stand.Befehl({"--setze", Name, "index-info"}, {.AuchFalsch = true});
    }
    Stand.FallBeenden();
}

// Reminders of a stranger's index: shown, told, and nothing started.
void Termine(const Prüfstand& Stand) {
    Stand.FallBeginnen("Ereignisse eines fremden Index");
    std::string Index = "#TAG:lw102\r\n";
    std::size_t Anzahl = 0;
    const std::string Spieler = Stand.Attrappe("spieler/termin");
    for (const auto& [Was, Wert] : BöseWerte()) {
        if (Wert.find_first_of("\r\n") != std::string::npos) continue;
        const std::string Programm = ++Anzahl % 2 == 0 ? Wert : Spieler;
        const std::string Felder[] = {Wert,
                                      Wert,
                                      "1",
                                      "20.11.2026 12:00:00",
                                      "",
                                      "20.11.2026 12:00:00",
                                      "01.01.2026 00:00:00",
                                      "d",
                                      "1",
                                      "0",
                                      Wert,
                                      Programm};
        std::string Längen;
        std::string Texte;
        for (const std::string& Feld : Felder) {
            Längen += (Längen.empty() ? "" : "/") + (Feld.empty() ? "" : std::to_string(Feld.size()));
            Texte += Feld;
        }
        Index += "#TERMIN:" + Längen + "|" + Texte + "\r\n";
    }
    Stand.Schreiben("i.lwi", Index);
    Stand.Befehl({"termine"});
    Stand.Prüfen(Stand.Json({"termine"}) == Anzahl, "Zahl der Ereignisse");
    Stand.Json({"termin-naechster", "2"});
    // The common options answer every question with yes; a stranger's program asks "--nein".
    Stand.Befehl({"--nein", "termine-pruefen"});
    Stand.Prüfen(Stand.Inhalt("spieler/termin.worte").empty(), "Programm eines Ereignisses gestartet");
    Stand.Zurück();
    Stand.FallBeenden();
}

}  // namespace

void LesenPrüfen(const Prüfstand& Stand) {
    Stand.Zurück();
    DateienZeigen(Stand);
    SätzeZeigen(Stand);
    Suchen(Stand);
    NackteNamen(Stand);
    Termine(Stand);
}

}  // namespace liedwerk::haerte
