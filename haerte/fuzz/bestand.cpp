// What is done with the records and reminders of an index file once it is loaded, whatever stands in them.
#include <algorithm>
#include <numeric>

#include "basis/text.h"
#include "core/indexstatistik.h"
#include "dateien/playlisten.h"
#include "export/exportieren.h"
#include "fuzz/indexwelt.h"
#include "suche/aufraeumen.h"
#include "suche/feldwert.h"
#include "suche/sortieren.h"
#include "termine/pruefen.h"

namespace liedwerk::fuzz {
namespace {

std::vector<std::string> Pfade(const Satzspeicher& Sätze) {
    std::vector<std::string> Alle;
    for (Satznummer Nummer = 1; Nummer <= Sätze.Anzahl(); ++Nummer)
        Alle.emplace_back(Sätze.Pfad(Nummer));
    return Alle;
}

// Every field that the system has, in both forms and with and without the other tag.
void FelderLesen(const Katalog& Index) {
    std::string Wert;
    for (Satznummer Nummer = 1; Nummer <= std::min<Satznummer>(Index.IndexAnzahl(), 20); ++Nummer) {
        for (int Kennung = 0; Kennung <= static_cast<int>(Feldkennung::Vorlage); ++Kennung) {
            const Feldwahl Feld{static_cast<Feldkennung>(Kennung), true, "%Interpret% %Nummer%"};
            for (const Wertform Form : {Wertform::Sortieren, Wertform::Anzeigen}) {
                for (const bool AndererTag : {false, true}) {
                    Feldtyp Typ{};
                    FeldWert(Index, Nummer, Feld, Form, AndererTag, Wert, Typ);
                    const auto Gesagt = Anzeigetyp(Feld, AndererTag);
                    Fordern(Form == Wertform::Sortieren || !Gesagt || Wert.empty() || *Gesagt == Typ,
                            "Der Typ eines Feldes ist der angekündigte");
                }
            }
        }
    }
}

// One field set, as an import does it, and a new path.
void EinzelnSetzen(Satzspeicher& Sätze) {
    for (Satznummer Nummer = 1; Nummer <= std::min<Satznummer>(Sätze.Anzahl(), 5); ++Nummer) {
        Datensatz Erwartet = Sätze.Lesen(Nummer);
        Erwartet.BenutzerDaten = "neu";
        const Rohfeld Neu{FeldBenutzerDaten, Erwartet.BenutzerDaten};
        Sätze.RohwerteSetzen(Nummer, {&Neu, 1});
        Sätze.PfadSetzen(Nummer, "/neu.mp3");
        Gleich("Wird ein Feld gesetzt, so bleiben die anderen", Erwartet, Sätze.Lesen(Nummer));
        Gleich("Ein gesetzter Pfad kommt wieder", "/neu.mp3", Sätze.Pfad(Nummer));
    }
}

void Sortieren(Katalog& Index, std::size_t Zufall) {
    const auto Spalte = [&](std::size_t Stelle) {
        return std::string(SpaltenNamen[(Zufall * 7 + Stelle * 11) % SpaltenNamen.size()].Name);
    };
    const std::vector<std::string> Kriterien{Spalte(0), Spalte(1), Spalte(2)};
    std::vector<std::uint8_t> Auswahl(static_cast<std::size_t>(Index.IndexAnzahl()));
    speicher::Person Person;
    auto Vorher = Pfade(Index.Sätze);
    IndexSortieren(Index, Kriterien, Zufall % 2 != 0, Auswahl, Person);
    auto Nachher = Pfade(Index.Sätze);
    std::ranges::sort(Vorher);
    std::ranges::sort(Nachher);
    Fordern(Vorher == Nachher, "Sortieren verliert und verdoppelt keinen Datensatz");
}

void Aufräumen(const Katalog& Index) {
    std::vector<Satznummer> Alle(static_cast<std::size_t>(Index.IndexAnzahl()));
    std::iota(Alle.begin(), Alle.end(), 1);
    speicher::Person Person;
    const auto Unauffällig = [](Satznummer) { return Dateibefund::Unauffällig; };
    for (std::size_t Methode = 0; Methode < Suchmethoden.size(); ++Methode) {
        const auto Art = static_cast<Aufräummethode>(Methode);
        for (const Aufräumfund& Fund : DurchsucheIndex(Index, Alle, Art, Unauffällig, Person)) {
            Fordern(Fund.Ergebnis1 >= 1 && Fund.Ergebnis1 <= Index.IndexAnzahl() &&
                        Fund.Ergebnis2 <= Index.IndexAnzahl() &&
                        (FindetPaare(Art) ? Fund.Ergebnis2 > Fund.Ergebnis1 : Fund.Ergebnis2 == 0),
                    "Ein Fund ist ein Paar von Datensätzen oder einer");
            FundText(Index, Fund);
            if (FindetPaare(Art)) GleicheFelder(Index, Fund);
        }
    }
}

// A path that a play list can hold.
bool PasstInListe(std::string_view Pfad) {
    return Pfad.starts_with('/') && Kürzen(Pfad) == Pfad && IstUtf8(Pfad) &&
           Pfad.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

void Exportieren(const Katalog& Index, const Indexwelt& Welt) {
    std::vector<Satznummer> Alle(static_cast<std::size_t>(Index.IndexAnzahl()));
    std::iota(Alle.begin(), Alle.end(), 1);
    const auto Namen = Pfade(Index.Sätze);
    const bool Passend = std::ranges::all_of(Namen, PasstInListe);
    Exportauftrag Auftrag;
    Auftrag.Liste = ExportspaltenVon(SpaltenEinrichten(Index.Optionen.Spalten));
    Auftrag.Trennzeichen = ";";
    Auftrag.Anführungszeichen = "\"";
    for (const auto& [Modus, Name] :
         std::initializer_list<std::pair<Exportmodus, const char*>>{{Exportmodus::Text, "x.txt"},
                                                                    {Exportmodus::Html, "x.html"},
                                                                    {Exportmodus::Playliste, "x.m3u"},
                                                                    {Exportmodus::Playliste, "x.pls"},
                                                                    {Exportmodus::Tabelle, "x.csv"},
                                                                    {Exportmodus::M3u8, "x.m3u8"},
                                                                    {Exportmodus::Json, "x.json"}}) {
        Auftrag.Modus = Modus;
        Auftrag.Datei = Ablage() + "/" + Name;
        speicher::Person Person;
        speicher::Protokollliste Log;
        Fordern(ExportSchreiben(Index, Alle, Auftrag, Person, Log, Welt.Uhr), "Der Export wird geschrieben");
        const std::string Text = DateiInhalt(Auftrag.Datei);
        if (Modus == Exportmodus::Json) Fordern(IstUtf8(Text), "JSON ist gültiges UTF-8");
        if (!Passend || !IstPlayliste(Auftrag.Datei)) continue;
        std::size_t Stelle = 0;
        ListeZerlegen(Text, PlaylistenArt(Auftrag.Datei), [&](const Listenname& Einer, std::size_t) {
            Fordern(Stelle < Namen.size(), "Eine Playliste kommt ohne weitere Namen wieder");
            Gleich("Ein Name kommt aus der Playliste wieder", Namen[Stelle++], Einer.Text);
            return true;
        });
        Fordern(Stelle == Namen.size(), "Eine Playliste kommt mit allen Namen wieder");
    }
}

// Reminders are told once; what comes again has its next date then.
void TermineMelden(Indexwelt& Welt) {
    const Terminumgebung Umgebung{Welt.Person,
                                  Welt.Log,
                                  Welt.Uhr,
                                  [](const Terminmeldung&) { return Terminantwort(); },
                                  [](const Termin&) {},
                                  [](const Terminliste&) {},
                                  [](std::size_t) {}};
    for (const Termin& Eintrag : Welt.Index.Termine) {
        for (int Feld = 1; Feld <= TerminFeldAnzahl; ++Feld) {
            const auto Zahl = TerminFeldZahl(Eintrag, Feld);
            if (Zahl)
                Gleich("Zahl und Text eines Terminfeldes sind dasselbe",
                       *Zahl == 0 ? "" : std::to_string(*Zahl), TerminFeldText(Eintrag, Feld));
        }
    }
    bool Läuft = false;
    for (int Runde = 0; Runde < 3; ++Runde)
        TerminePrüfen(Welt.Index, Umgebung, Läuft);
}

}  // namespace

void BestandPrüfen(std::string_view Eingabe) {
    const std::string Datei = DateiLegen("bestand.lwi", Eingabe);
    Indexwelt Welt;
    // Whoever adds bytes shall not make the runs longer than they need to be.
    if (!Welt.Laden(Datei) || Welt.Index.IndexAnzahl() > 500) return;
    FelderLesen(Welt.Index);
    Aufräumen(Welt.Index);
    Exportieren(Welt.Index, Welt);
    if (const auto Statistik = IndexstatistikBilden(Welt.Index, [](Satznummer) { return true; })) {
        Fordern(Statistik->Gesamt.Dateien == Welt.Index.IndexAnzahl(), "Die Statistik zählt jede Datei");
        StatistikAlsText(*Statistik, Welt.Index.Optionen.IndexEigentümer);
    }
    TermineMelden(Welt);
    Sortieren(Welt.Index, Eingabe.size());
    EinzelnSetzen(Welt.Index.Sätze);
}

}  // namespace liedwerk::fuzz
