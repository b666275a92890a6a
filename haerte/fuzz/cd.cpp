// Audio CDs: xmcd text, the replies of the CD database and of HTTP, images of discs.
#include <algorithm>
#include <deque>
#include <filesystem>

#include "basis/text.h"
#include "cd/cddb.h"
#include "cd/xmcd.h"
#include "fuzz/ziel.h"
#include "plattform/cdabbild.h"
#include "plattform/httpleser.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/person.h"

namespace liedwerk::fuzz {
namespace {

constexpr std::string_view Programm = "Liedwerk 1.00";

CDDaten XmcdGelesen(std::string_view Bytes) {
    CDDaten Daten;
    Daten.ID = "8a0b2c0d";
    Daten.AnzahlTitel = 3;
    speicher::Protokollliste Log;
    CDDBCDVerarbeiten(Bytes, Daten, Log);
    Daten.Text.clear();
    return Daten;
}

// Lists the three tracks of "/cd", and real folders.
class Titelordner final : public Ordnerleser {
  public:
    bool Auflisten(std::string_view Ordner,
                   const std::function<bool(const Ordnereintrag&)>& Besuch) const override {
        if (!Ordner.starts_with("/cd")) return Systemordnerleser().Auflisten(Ordner, Besuch);
        Ordnereintrag Eintrag;
        for (const char* const Name : {"Track01.cda", "Track02.cda", "Track03.cda"}) {
            Eintrag.Name = Name;
            if (!Besuch(Eintrag)) break;
        }
        return true;
    }
};

// Everything of a record that its xmcd text holds.
std::string Angaben(const CDDaten& Daten) {
    std::string Alles = Daten.Album + "|" + Daten.Interpret + "|" + Daten.Kategorie + "|" + Daten.Jahr + "|" +
                        Daten.Erweitert + "|" + std::to_string(Daten.ID3Genre);
    for (const CDTitel& Titel : Daten.Titel)
        Alles += "|" + Titel.Titel;
    return Alles;
}

// A line of free text that is too long for a line of xmcd becomes two.
bool HatLangeZeile(const CDDaten& Daten) {
    const auto Zeilen = Teilen(Daten.Erweitert, "\r\n");
    return std::ranges::any_of(Zeilen, [](const std::string& Zeile) { return Zeile.size() > 200; });
}

// A server by script: a letter for each request says how it ends.
class Skriptnetz final : public Http {
  public:
    explicit Skriptnetz(std::string_view Ablauf) : Ausgänge(Ablauf) {}
    std::deque<std::string> Antworten;
    std::vector<Httpanfrage> Gestellt;

    Httpantwort Anfragen(const Httpanfrage& Anfrage, const std::function<bool()>& Weiter) override {
        const char Ausgang = Gestellt.size() < Ausgänge.size() ? Ausgänge[Gestellt.size()] : ' ';
        Gestellt.push_back(Anfrage);
        std::string Inhalt;
        if (!Antworten.empty()) {
            Inhalt = std::move(Antworten.front());
            Antworten.pop_front();
        }
        if (!Weiter()) return {Httpfehler::Abgebrochen, {}, 0, {}};
        if (Ausgang >= 'A' && Ausgang <= 'H') {
            // What the system says of it may be anything.
            return {static_cast<Httpfehler>(Ausgang - 'A' + 1), Inhalt, 0, {}};
        }
        if (Ausgang == 'u') return {Httpfehler::Keiner, {}, 302, "<html>", Inhalt};
        return {Httpfehler::Keiner, {}, Ausgang == '4' ? 404 : 200, Inhalt};
    }

  private:
    std::string Ausgänge;
};

Httpantwort HttpGelesen(std::string_view Eingabe, std::size_t Stück) {
    Httpleser Leser({1000, 400, std::chrono::milliseconds(1000)});
    bool Fertig = false;
    while (!Eingabe.empty() && !Fertig) {
        Fertig = Leser.Aufnehmen(Eingabe.substr(0, Stück));
        Eingabe.remove_prefix(std::min(Stück, Eingabe.size()));
    }
    if (!Fertig) Leser.Enden();
    return Leser.Antwort;
}

}  // namespace

void XmcdPrüfen(std::string_view Eingabe) {
    if (Eingabe.empty()) return;
    const CDDaten Daten = XmcdGelesen(Eingabe);
    if (HatLangeZeile(Daten)) return;
    const std::string Text = CDDBTextErstellen(Daten, Programm);
    const std::string Bytes = XmcdBytesVonText(Text);
    Gleich("Der Text kommt aus der Datei wieder", Text, XmcdTextVonBytes(Bytes));
    const CDDaten Wieder = XmcdGelesen(Bytes);
    Gleich("Das zweite Schreiben gibt denselben Text", Text, CDDBTextErstellen(Wieder, Programm));
    Gleich("Die Daten der CD kommen wieder", Angaben(Daten), Angaben(Wieder));
}

void CDSpeicherPrüfen(std::string_view Eingabe) {
    namespace fs = std::filesystem;
    const std::string Ordner = Ablage() + "/cdspeicher";
    fs::remove_all(Ordner);
    fs::create_directory(Ordner);
    constexpr std::string_view ID = "8a0b2c0d";
    // The second name is that of another system, in capitals.
    DateiLegen("cdspeicher/8a0b2c0d.dat", "lwifcddb1\r\n" + std::string(Eingabe));
    DateiLegen("cdspeicher/8A0B2C0E.DAT", Eingabe);
    const Systemordnerleser Leser;
    speicher::Protokollliste Log;
    const CDSpeicherumgebung Umgebung{Ordner, Leser, Log, std::string(Programm)};
    for (const CDEintrag& Eintrag : CDDBCDsSuchen(Umgebung))
        Fordern(CDZeilentext(Eintrag).find_first_of("\r\n") == std::string::npos, "Eine CD ist eine Zeile");

    CDStand Stand;
    if (CDDBCDLesen(Stand, Umgebung, "8a0b2c0e", true))
        Fordern(Stand.CDDBZuletztID == "8a0b2c0e", "Was gelesen wurde, ist gemerkt");
    Stand = {};
    Fordern(CDDBCDLesen(Stand, Umgebung, ID, true), "Eine Datei mit unserem Kopf wird gelesen");
    if (HatLangeZeile(Stand.Daten)) return;
    const CDDaten Gelesen = Stand.Daten;
    if (!CDDBCDSpeichern(Stand, Umgebung, ID, Gelesen)) return;  // nothing in it
    const std::string Einmal = DateiInhalt(CDDatei(Umgebung, ID));
    CDStand Wieder;
    Fordern(CDDBCDLesen(Wieder, Umgebung, ID, true), "Was geschrieben wurde, wird gelesen");
    Gleich("Die Daten der CD kommen wieder", Angaben(Gelesen), Angaben(Wieder.Daten));
    const CDDaten Zweite = Wieder.Daten;
    Fordern(CDDBCDSpeichern(Wieder, Umgebung, ID, Zweite), "Das zweite Schreiben gelingt");
    Gleich("Das zweite Schreiben schreibt dieselben Bytes", Einmal, DateiInhalt(CDDatei(Umgebung, ID)));
    Fordern(CDDBCDLöschen(Wieder, Umgebung, ID) && Wieder.CDDBZuletztID.empty(),
            "Eine CD lässt sich löschen");
}

void CddbPrüfen(std::string_view Eingabe) {
    // Three replies, how the requests end, the row that is chosen, server and mail address, what was entered.
    const auto Teile = Stücke(Eingabe, 8);
    namespace fs = std::filesystem;
    const std::string Ordner = Ablage() + "/cddb";
    fs::remove_all(Ordner);
    fs::create_directory(Ordner);

    speicher::CDs CDs;
    CDs.Liste["/cd"] = {0, {}, {{150, false}, {15000, false}, {60000, false}}, 210000};
    Skriptnetz Netz(Teile[3]);
    for (const std::string_view Teil : {Teile[0], Teile[1], Teile[2]})
        Netz.Antworten.emplace_back(Teil);
    speicher::Person Person;
    speicher::Protokollliste Log;
    const Titelordner Leser;
    Einstellungen Werte;
    Werte.CDDBServer = Teile[5].empty() ? "cd.example" : Teile[5];
    Werte.CDDBEmail = Teile[6].empty() ? "anna@example.org" : Teile[6];
    const auto Wählen = [&](const std::vector<std::string>& Zeilen) {
        for (const std::string& Zeile : Zeilen)
            Fordern(Zeile.find_first_of("\r\n") == std::string::npos, "Ein Angebot ist eine Zeile");
        return Teile[4].empty() ? Zeilen.size() : Teile[4].size() - 1;
    };
    const CDDBUmgebung Umgebung{
        {CDs, {Ordner + "/CDDB", Leser, Log, std::string(Programm)}, [](std::string_view) { return true; }},
        Werte,
        &Netz,
        Person,
        Wählen};
    CDStand Stand;
    CDDaten Eingaben = XmcdGelesen(Teile[7]);
    const CDDBWunsch Fragen{.Speichern = true, .Abfragen = true};
    CDDBStart(Stand, Umgebung, "/cd", Fragen);
    const CDDBWunsch Senden{.Senden = true, .Probe = Teile[4].empty()};
    CDDBStart(Stand, Umgebung, "/cd", Senden);
    if (!Teile[7].empty()) {
        Eingaben.ID = Stand.Daten.ID;
        const CDDBWunsch Eigene{.Senden = true, .Eingaben = &Eingaben};
        CDDBStart(Stand, Umgebung, "/cd", Eigene);
    }

    for (const Httpanfrage& Anfrage : Netz.Gestellt) {
        Fordern(std::ranges::all_of(Anfrage.Url, [](char Byte) { return Byte > 0x20 && Byte < 0x7F; }),
                "Eine Adresse ist druckbares ASCII ohne Leerzeichen");
        for (const auto& [Name, Wert] : Anfrage.Kopfzeilen)
            Fordern((Name + Wert).find_first_of("\r\n") == std::string::npos, "Kopfzeilen sind eine Zeile");
    }
    for (const auto& Eintrag : fs::recursive_directory_iterator(Ordner)) {
        const std::string Name = Eintrag.path().string().substr(Ordner.size());
        Fordern(Name == "/CDDB" || (Name.starts_with("/CDDB/") && CDIDGültig(Eintrag.path().stem().string())),
                "Dateien liegen nur im Ordner CDDB und heißen nach einer Disc-ID");
    }
}

void HttpPrüfen(std::string_view Eingabe) {
    const Httpantwort Ganz = HttpGelesen(Eingabe, std::max<std::size_t>(1, Eingabe.size()));
    Fordern(Ganz.Inhalt.size() <= 1000, "Der Inhalt bleibt in seinen Grenzen");
    Fordern(Ganz.Fehler == Httpfehler::Keiner || Ganz.Inhalt.empty(), "Ein Fehlschlag hat keinen Inhalt");
    for (const std::size_t Stück : {std::size_t{1}, std::size_t{7}}) {
        const Httpantwort Gestückelt = HttpGelesen(Eingabe, Stück);
        Fordern(Ganz.Fehler == Gestückelt.Fehler, "Wie die Bytes ankommen, ändert den Ausgang nicht");
        Gleich("Wie die Bytes ankommen, ändert den Inhalt nicht", Ganz.Inhalt, Gestückelt.Inhalt);
        Gleich("Wie die Bytes ankommen, ändert den Status nicht", std::to_string(Ganz.Status),
               std::to_string(Gestückelt.Status));
    }
}

void CDAbbildPrüfen(std::string_view Eingabe) {
    if (Eingabe.empty()) return;
    const bool Cue = (static_cast<unsigned char>(Eingabe.front()) & 1U) != 0;
    Eingabe.remove_prefix(1);
    const auto Dateien = [](std::string_view Name) -> std::optional<Abbilddatei> {
        if (Name.starts_with('m')) return std::nullopt;
        const std::uint64_t Größe = std::uint64_t{1} << (Name.size() * 3 % 64);
        if (Name.find("wav") != std::string_view::npos) return Abbilddatei{Größe, Größe - 44, 176400};
        return Abbilddatei{Größe, 0, 0};
    };
    const CDInhalt Inhalt = Cue ? CueAuswerten(Eingabe, Dateien) : TocAuswerten(Eingabe, Dateien);
    CDAbbildLesen(DateiLegen(Cue ? "x.cue" : "x.toc", Eingabe));
    Fordern((Inhalt.Fehlernummer == 0) == Inhalt.Fehlertext.empty(), "Ein Fehler hat einen Text");
    if (Inhalt.Fehlernummer != 0) return;
    Fordern(!Inhalt.Spuren.empty() && Inhalt.Spuren.size() <= 99, "Eine CD hat 1 bis 99 Titel");
    std::int32_t Davor = -1;
    for (const CDSpur& Spur : Inhalt.Spuren) {
        Fordern(Spur.Offset > Davor, "Die Titel folgen aufeinander");
        Davor = Spur.Offset;
    }
    Fordern(Inhalt.LeadOut > Davor, "Die CD endet hinter dem letzten Titel");
    speicher::CDs CDs;
    CDs.Liste["/cd"] = Inhalt;
    clsCcd Disc;
    Fordern(Disc.Init(CDs, "/cd") && Disc.DiskID.size() >= 8, "Die CD hat eine ID");
    Disc.QueryString();
}

}  // namespace liedwerk::fuzz
