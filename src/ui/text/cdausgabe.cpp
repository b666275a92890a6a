#include "ui/text/cdausgabe.h"

#include <algorithm>

namespace liedwerk {
namespace {

std::size_t Titelzahl(const CDDaten& Daten) {
    return static_cast<std::size_t>(
        std::clamp<std::int32_t>(Daten.AnzahlTitel, 0, static_cast<std::int32_t>(CDHöchsteTitel)));
}

void ZahlenAusgeben(JsonSchreiber& Ziel, std::string_view Name, const CDDaten& Daten,
                    std::int32_t CDTitel::*Feld) {
    Ziel.Name(Name);
    Ziel.ListeAnfang();
    for (std::size_t i = 0; i < Titelzahl(Daten); ++i)
        Ziel.Zahl(Daten.Titel[i].*Feld);
    Ziel.ListeEnde();
}

void AlsJson(JsonSchreiber& Ziel, const CDDaten& Daten) {
    Ziel.ObjektAnfang();
    Ziel.Text("ID", Daten.ID);
    Ziel.Text("Laufwerk", Daten.Laufwerk);
    Ziel.Text("Protokoll", Daten.Protokoll);
    Ziel.Text("Befehl", Daten.Befehl);
    Ziel.Text("Adresse", Daten.Adresse);
    Ziel.Text("Hallo", Daten.Hallo);
    Ziel.Text("Album", Daten.Album);
    Ziel.Text("Interpret", Daten.Interpret);
    Ziel.Text("Kategorie", Daten.Kategorie);
    Ziel.Zahl("ID3Genre", Daten.ID3Genre);
    Ziel.Zahl("Gesamtdauer", Daten.Gesamtdauer);
    Ziel.Text("Jahr", Daten.Jahr);
    Ziel.Text("Erweitert", Daten.Erweitert);
    Ziel.Zahl("AnzahlTitel", Daten.AnzahlTitel);
    Ziel.Name("Titel");
    Ziel.ListeAnfang();
    for (std::size_t i = 0; i < Titelzahl(Daten); ++i)
        Ziel.Text(Daten.Titel[i].Titel);
    Ziel.ListeEnde();
    ZahlenAusgeben(Ziel, "Dauer", Daten, &CDTitel::Dauer);
    ZahlenAusgeben(Ziel, "Offset", Daten, &CDTitel::Offset);
    ZahlenAusgeben(Ziel, "Frames", Daten, &CDTitel::Frames);
    Ziel.Zahl("LeadOutOffset", Daten.LeadOutOffset);
    Ziel.ObjektEnde();
}

void AlsText(Ausgabe& Ziel, const CDDaten& Daten) {
    const auto Zeile = [&](std::string_view Name, std::string_view Wert) {
        if (!Wert.empty()) Ziel.Schreiben(std::string(Name) + ": " + Sichtbar(Wert) + "\n");
    };
    Zeile("ID", Daten.ID);
    Zeile("Interpret", CDEinzeilig(Daten.Interpret));
    Zeile("Album", CDEinzeilig(Daten.Album));
    Zeile("Jahr", CDEinzeilig(Daten.Jahr));
    Zeile("Kategorie", CDEinzeilig(Daten.Kategorie));
    Zeile("Bemerkung", CDEinzeilig(Daten.Erweitert));
    Tabelle Titel(Ziel, {"Nummer", "Titel", "Sekunden"});
    for (std::size_t i = 0; i < Titelzahl(Daten); ++i) {
        Titel.Zeile({std::to_string(i + 1), Sichtbar(CDEinzeilig(Daten.Titel[i].Titel)),
                     std::to_string(Daten.Titel[i].Dauer)});
    }
    Titel.Fertig();
}

}  // namespace

void CDDatenAusgeben(Programmlauf& Lauf, const CDDaten& Daten) {
    if (Lauf.Json()) {
        AlsJson(Lauf.Dokument(), Daten);
    } else {
        AlsText(Lauf.Text(), Daten);
    }
}

}  // namespace liedwerk
