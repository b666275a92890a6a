// Commands that carry data of the index to other programs and back.
#include <array>
#include <utility>

#include "basis/datei.h"
#include "core/exportlauf.h"
#include "core/felderlauf.h"
#include "core/suchlauf.h"
#include "suche/suchmaschine.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/suchauftrag.h"

namespace liedwerk {
namespace {

constexpr std::array<std::pair<std::string_view, Exportmodus>, 6> Formatnamen = {{
    {"text", Exportmodus::Text},
    {"html", Exportmodus::Html},
    {"playliste", Exportmodus::Playliste},
    {"tabelle", Exportmodus::Tabelle},
    {"m3u8", Exportmodus::M3u8},
    {"json", Exportmodus::Json},
}};
constexpr std::array<std::pair<std::string_view, Exporttrenner>, 4> Trennernamen = {{
    {"komma", Exporttrenner::Komma},
    {"tabulator", Exporttrenner::Tabulator},
    {"semikolon", Exporttrenner::Semikolon},
    {"leerzeichen", Exporttrenner::Leerzeichen},
}};

template <class Tabelle>
auto NameFinden(const Tabelle& Namen, const std::string& Gesucht) {
    std::optional<typename Tabelle::value_type::second_type> Fund;
    for (const auto& [Name, Wert] : Namen) {
        if (Name == Gesucht) Fund = Wert;
    }
    return Fund;
}

// The records of the queries; all without any. Nothing when the search failed.
std::optional<std::vector<Satznummer>> SätzeSuchen(Programmlauf& Lauf,
                                                   const std::vector<Suchabfrage>& Abfragen) {
    if (Abfragen.empty()) return Lauf.Nummern({});
    Anwendung& Programm = Lauf.Programm();
    AbfragenÜbernehmen(Programm, Abfragen);
    if (!IndexDurchsuchen(Programm.Index, Programm.Puffer, Programm.Abfragen, false,
                          Programm.Werte.SucheUmlauteGleich == 1)
             .Gelungen) {
        Fehlermelden("Die Suche konnte aufgrund eines Fehlers nicht durchgeführt werden.");
        return std::nullopt;
    }
    return TrefferSammeln(Programm.Index);
}

void DateiUndAnzahl(Programmlauf& Lauf, const std::string& Datei, std::size_t Anzahl, std::string_view Was) {
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Datei", Datei);
        Lauf.Dokument().Zahl("Anzahl", static_cast<std::int64_t>(Anzahl));
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(std::to_string(Anzahl) + std::string(Was) + "'" + Sichtbar(Datei) + "'.\n");
    }
}

}  // namespace

Ausgang ExportAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Modus = NameFinden(Formatnamen, Eingabe.Wert("--format").value_or(""));
    if (!Modus) return Falsch("--format ist text, html, playliste, tabelle, m3u8 oder json.");
    std::optional<Exporttrenner> Trenner;
    if (const auto Name = Eingabe.Wert("--trennzeichen")) {
        Trenner = NameFinden(Trennernamen, *Name);
        if (!Trenner) return Falsch("--trennzeichen ist komma, tabulator, semikolon oder leerzeichen.");
    }
    std::vector<Suchabfrage> Abfragen;
    for (const auto& Text : Eingabe.AlleWerte("--abfrage")) {
        auto Abfrage = AbfrageLesen(Text);
        if (!Abfrage) return Falsch("--abfrage erwartet \"Feld|Code|Begriff\".");
        FeldPrüfen(Abfrage->Feld);
        Abfragen.push_back(std::move(*Abfrage));
    }
    Exportauftrag Auftrag;
    Auftrag.Datei = EingabePfad(Eingabe.Argumente[0]);
    Auftrag.Modus = *Modus;
    if (Eingabe.Hat("--anfuehrungszeichen")) Auftrag.Anführungszeichen = "\"";
    Auftrag.Liste = NamenslisteLesen(Eingabe.Wert("--spalten").value_or(""));
    if (Auftrag.Liste.empty()) Auftrag.Liste = {"Interpret", "Titel", "Album", "Pfad+Dateiname"};
    for (const auto& Name : Auftrag.Liste)
        FeldPrüfen(Name);

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    Auftrag.Trennzeichen =
        TrennzeichenVon(Trenner.value_or(static_cast<Exporttrenner>(Programm.Werte.ExportUntermodus)));
    Auftrag.PlaylistFürWinamp = Programm.Werte.PlaylistFürWinamp == 1;
    const auto Sätze = SätzeSuchen(Lauf, Abfragen);
    if (!Sätze) return Ausgang::Fehlgeschlagen;
    if (!ExportErlaubt(Programm.Dienst.Person, Auftrag.Datei))
        return Gescheitert("Die Datei '" + Auftrag.Datei + "' wurde nicht verändert.");
    if (!ExportierenLauf(Programm, *Sätze, Auftrag)) return Ausgang::Fehlgeschlagen;
    DateiUndAnzahl(Lauf, Auftrag.Datei, Sätze->size(), " Datei(en) exportiert nach ");
    return Lauf.Abschließen();
}

Ausgang FelderSchreibenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const std::string Datei = EingabePfad(Eingabe.Argumente[0]);
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    if (!ExportErlaubt(Programm.Dienst.Person, Datei))
        return Gescheitert("Die Datei '" + Datei + "' wurde nicht verändert.");
    if (!FelderSpeichernLauf(Programm, Datei)) return Ausgang::Fehlgeschlagen;
    DateiUndAnzahl(Lauf, Datei, static_cast<std::size_t>(Programm.Index.IndexAnzahl()),
                   " Datensätze: Index-Felder gespeichert in ");
    return Lauf.Abschließen();
}

Ausgang FelderLesenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const std::string Datei = EingabePfad(Eingabe.Argumente[0]);
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    const auto Anzahl = FelderImportierenLauf(Programm, Datei);
    if (!Anzahl) return Gescheitert("Es wurden keine Index-Felder importiert.");
    if (!IndexSpeichern(Programm))
        return Gescheitert("Die Indexdatei '" + Programm.Index.IndexDateiname + "' wurde nicht gespeichert.");
    DateiUndAnzahl(Lauf, Datei, *Anzahl, " Datei(en): Index-Felder importiert aus ");
    return Lauf.Abschließen();
}

}  // namespace liedwerk
