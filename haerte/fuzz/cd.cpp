// Audio CDs: xmcd text, the replies of the CD database and of HTTP, images of discs.
#include <algorithm>
#include <filesystem>

#include "basis/text.h"
#include "cd/cddb.h"
#include "cd/xmcd.h"
#include "fuzz/ziel.h"
#include "plattform/cdabbild.h"
#include "plattform/httpleser.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/netz.h"
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
    // A line of free text that is too long for a line of xmcd becomes two.
    const auto Zeilen = Teilen(Daten.Erweitert, "\r\n");
    if (std::ranges::any_of(Zeilen, [](const std::string& Zeile) { return Zeile.size() > 200; })) return;
    const std::string Text = CDDBTextErstellen(Daten, Programm);
    const std::string Bytes = XmcdBytesVonText(Text);
    Gleich("Der Text kommt aus der Datei wieder", Text, XmcdTextVonBytes(Bytes));
    const CDDaten Wieder = XmcdGelesen(Bytes);
    Gleich("Das zweite Schreiben gibt denselben Text", Text, CDDBTextErstellen(Wieder, Programm));
    const auto Angaben = [](const CDDaten& Eine) {
        std::string Alles = Eine.Album + "|" + Eine.Interpret + "|" + Eine.Kategorie + "|" + Eine.Jahr + "|" +
                            Eine.Erweitert + "|" + std::to_string(Eine.ID3Genre);
        for (const CDTitel& Titel : Eine.Titel)
            Alles += "|" + Titel.Titel;
        return Alles;
    };
    Gleich("Die Daten der CD kommen wieder", Angaben(Daten), Angaben(Wieder));
}

void CddbPrüfen(std::string_view Eingabe) {
    const auto Teile = Stücke(Eingabe, 3);
    namespace fs = std::filesystem;
    const std::string Ordner = Ablage() + "/cddb";
    fs::remove_all(Ordner);
    fs::create_directory(Ordner);

    speicher::CDs CDs;
    CDs.Liste["/cd"] = {0, {}, {{150, false}, {15000, false}, {60000, false}}, 210000};
    speicher::Netz Netz;
    for (const std::string_view Teil : Teile)
        Netz.Antworten.emplace_back(Teil);
    speicher::Person Person;
    speicher::Protokollliste Log;
    const Titelordner Leser;
    Einstellungen Werte;
    Werte.CDDBServer = "cd.example";
    Werte.CDDBEmail = "anna@example.org";
    const CDDBUmgebung Umgebung{
        {CDs, {Ordner + "/CDDB", Leser, Log, std::string(Programm)}, [](std::string_view) { return true; }},
        Werte,
        &Netz,
        Person,
        [](const std::vector<std::string>& Zeilen) { return Zeilen.size(); }};
    CDStand Stand;
    const CDDBWunsch Fragen{.Speichern = true, .Abfragen = true};
    CDDBStart(Stand, Umgebung, "/cd", Fragen);
    const CDDBWunsch Senden{.Senden = true};
    CDDBStart(Stand, Umgebung, "/cd", Senden);

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
