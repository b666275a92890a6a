#include "ui/text/lauf.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <limits>
#include <numeric>
#include <system_error>

#include "basis/datei.h"
#include "core/einstellungsspeicher.h"
#include "core/laden.h"
#include "core/start.h"
#include "core/startauftrag.h"
#include "core/suchlauf.h"
#include "index/speichersperre.h"
#include "medien/tagrettung.h"
#include "plattform/endesignal.h"
#include "plattform/linux/ordner.h"
#include "plattform/linux/orte.h"
#include "plattform/linux/terminal.h"
#include "plattform/linux/uhr.h"
#include "plattform/linux/wertdatei.h"
#include "plattform/pruefsumme.h"
#include "plattform/system.h"
#include "ui/text/textoberflaeche.h"

namespace liedwerk {
namespace {

std::unique_ptr<Uhr> LaufUhr(const Globaloptionen& Global) {
    if (Global.Jetzt) return std::make_unique<FesteUhr>(*Global.Jetzt);
    return std::make_unique<Systemuhr>();
}

// All of the standard input; nothing when there is more of it than that.
std::optional<std::string> StandardeingabeLesen(std::uint64_t Höchstens) {
    std::string Text;
    std::array<char, 1 << 16> Stück{};
    while (std::cin.read(Stück.data(), Stück.size()) || std::cin.gcount() > 0) {
        Text.append(Stück.data(), static_cast<std::size_t>(std::cin.gcount()));
        if (Text.size() > Höchstens) return std::nullopt;
    }
    return Text;
}

std::string OrdnerDesLaufs(const Globaloptionen& Global) {
    return Global.Programmordner.empty() ? Programmordner() : EingabePfad(Global.Programmordner);
}

std::string EinstellungenDesLaufs(const Globaloptionen& Global) {
    return Global.Einstellungen.empty() ? Einstellungsdatei() : EingabePfad(Global.Einstellungen);
}

}  // namespace

// The ports of the real system and the run that stands on them, in the order of their needs.
struct Programmlauf::Welt {
    explicit Welt(const Globaloptionen& Global)
        : Zeit(LaufUhr(Global)),
          Person(*Zeit, Global.Ja, !Global.Still && FehlerausgabeIstTerminal()),
          Nutzerwerte(EinstellungenDesLaufs(Global)),
          Rechnerwerte(Rechnereinstellungsdatei()),
          Programm(Dienste{Person, Fenster, *Zeit, *Drives, Ordner, Auskunft.get(), Nutzerwerte,
                           &Rechnerwerte, OrdnerDesLaufs(Global), "", Systemtext()}) {
        Programm.Dienst.DateiPrüfsumme = DateiPrüfsumme;
        Programm.Dienst.CDs = CDs.get();
        Programm.Dienst.Spieler = Spieler.get();
        Programm.Dienst.Programme = Programme.get();
        Programm.Dienst.Netz = Netz.get();
        Programm.Dienst.Laufzeitordner = Laufzeitordner();
    }

    std::unique_ptr<Uhr> Zeit;
    Textoberfläche Person;
    OhneFenster Fenster;
    std::unique_ptr<Laufwerke> Drives = SystemlaufwerkeÖffnen();
    Systemordnerleser Ordner;
    std::unique_ptr<Medienauskunft> Auskunft = SystemauskunftÖffnen();
    std::unique_ptr<CDLaufwerke> CDs = SystemcdsÖffnen();
    std::unique_ptr<Spielerkanal> Spieler = SystemspielerÖffnen();
    std::unique_ptr<Programmstart> Programme = SystemprogrammeÖffnen();
    std::unique_ptr<Http> Netz = SystemnetzÖffnen();
    Wertdatei Nutzerwerte;
    Wertdatei Rechnerwerte;
    Anwendung Programm;
};

Programmlauf::Programmlauf(const Globaloptionen& Global)
    : Optionen(Global), Alles(std::make_unique<Welt>(Global)) {
    EndesignaleMerken();
    Anwendung& P = Alles->Programm;
    if (!OrdnerExistiert(P.Dienst.Programmordner)) {
        if (const auto Fehler = OrdnerAnlegen(P.Dienst.Programmordner)) {
            Fehlermelden("Der Programm-Ordner '" + P.Dienst.Programmordner +
                         "' konnte nicht angelegt werden: " + Fehler.Text);
            return;
        }
    }
    ProtokollEinrichten(P, Global.Kommandozeile);

    if (const std::string& Fehler = Alles->Nutzerwerte.Lesefehler(); !Fehler.empty()) {
        Fehlermelden("Die Einstellungen in '" + EinstellungenDesLaufs(Global) +
                     "' konnten nicht gelesen werden: " + Fehler);
        return;
    }
    P.Werte = EinstellungenLesen(Alles->Nutzerwerte, &Alles->Rechnerwerte);
    if (!Global.Einstellungen.empty() && !DateiExistiert(EinstellungenDesLaufs(Global))) {
        const std::string Fehler = EinstellungenSchreiben(P.Werte, Alles->Nutzerwerte);
        if (!Fehler.empty()) {
            Fehlermelden("Die Einstellungen '" + EinstellungenDesLaufs(Global) +
                         "' konnten nicht angelegt werden: " + Fehler);
            return;
        }
    }
    for (const auto& [Name, Wert] : Global.Setzen)
        EinstellungSetzen(P.Werte, Name, Wert);
    // An answer given for another question ("--ja") must not cost a file anything.
    P.Reste.Regel = Zweifelsfall::Melden;
    UnterbrocheneVollenden(P.Dienst.Programmordner, P.Dienst.Ordner, P.Dienst.Person, P.Reste, {});
    P.StartZeit = P.LetzteSpeicherung = P.Dienst.Zeit.Jetzt();
    IstBereit = true;
}

Programmlauf::~Programmlauf() = default;

Anwendung& Programmlauf::Programm() {
    return Alles->Programm;
}

std::string Programmlauf::Indexname() const {
    if (!Optionen.Index.empty()) return EingabePfad(Optionen.Index);
    const std::string& Gemerkt = Alles->Programm.Werte.Dateiname;
    return Gemerkt.empty() ? Standardindex(Alles->Programm) : Gemerkt;
}

bool Programmlauf::IndexLaden(bool Anlegen) {
    const std::string Name = Indexname();
    if (OrdnerExistiert(Name)) {
        Fehlermelden("'" + Name + "' ist ein Ordner und keine Indexdatei.");
        return false;
    }
    // A "~" file beside a missing index may be a whole save that was cut short: the load asks about it.
    const std::string Temporär = TemporärnameVon(Name);
    if (!Anlegen && !DateiExistiert(Name) && !DateiExistiert(Temporär)) {
        Fehlermelden(
            "Die Indexdatei '" + Name +
            "' wurde nicht gefunden. Legen Sie diese mit 'liedwerk-cli index-neu' an oder nennen Sie eine "
            "andere mit --index.");
        return false;
    }
    Anwendung& P = Programm();
    P.Index.IndexDateiname = Name;
    const std::int16_t Vorher = P.Werte.BackupsSpeichern;
    const bool Geladen = StandardDateiLaden(P, ModusNichtsGeladen, false);
    // A lost index has its backups left: later runs must not push these out with copies of the new one.
    if (P.Werte.BackupsSpeichern != Vorher) {
        P.Dienst.Nutzerwerte.Schreiben("BackupsSpeichern", P.Werte.BackupsSpeichern);
        if (const std::string Fehler = P.Dienst.Nutzerwerte.Sichern(); !Fehler.empty()) Fehlermelden(Fehler);
    }
    return Geladen;
}

bool Programmlauf::IndexLadenFallsDa() {
    if (!Optionen.Index.empty() || DateiExistiert(Indexname())) return IndexLaden();
    Programm().Index.Optionen.Dateitypen = Grundtypen(Programm().Werte.WeitereFormate == 1);
    return true;
}

bool Programmlauf::GeändertesSpeichern() {
    if (!Programm().Index.IndexGeändert) return true;
    Alles->Person.AbbruchErlauben(false);
    const bool Gespeichert = IndexSpeichern(Programm());
    Alles->Person.AbbruchErlauben(true);
    if (Gespeichert) return true;
    Fehlermelden("Die Indexdatei '" + Indexname() + "' wurde nicht gespeichert.");
    return false;
}

Satznummer Programmlauf::SatzFinden(std::string_view Pfad) {
    const auto Nummern = Programm().Pfade.Finden(Programm().Index.Sätze, Pfad);
    return Nummern.empty() ? 0 : Nummern.front();
}

std::optional<std::vector<Satznummer>> Programmlauf::Nummern(const std::vector<Satznummer>& Gewünschte) {
    const Satznummer Anzahl = Programm().Index.IndexAnzahl();
    if (Gewünschte.empty()) {
        std::vector<Satznummer> Alle(static_cast<std::size_t>(Anzahl));
        std::iota(Alle.begin(), Alle.end(), Satznummer{1});
        return Alle;
    }
    for (const Satznummer Nummer : Gewünschte) {
        if (Nummer >= 1 && Nummer <= Anzahl) continue;
        Fehlermelden("Den Datensatz " + std::to_string(Nummer) + " gibt es nicht. Der Index hat " +
                     std::to_string(Anzahl) + " Datensätze.");
        return std::nullopt;
    }
    return Gewünschte;
}

Ausgang Programmlauf::Abschließen(bool Gelungen) {
    if (!Standardausgabe.Fertig())
        return Gescheitert("Die Ausgabe konnte nicht vollständig geschrieben werden.");
    return Gelungen ? Ausgang::Gelungen : Ausgang::Fehlgeschlagen;
}

void Fehlermelden(std::string_view Text) {
    Ausgabe Fehlerausgabe(stderr);
    Fehlerausgabe.Schreiben(Sichtbar(Text, true) + "\n");
}

Ausgang Falsch(std::string_view Text) {
    Fehlermelden(Text);
    return Ausgang::FalscherAufruf;
}

Ausgang Gescheitert(std::string_view Text) {
    Fehlermelden(Text);
    return Ausgang::Fehlgeschlagen;
}

std::string EingabePfad(std::string_view Name) {
    std::error_code Fehler;
    return VollerPfad(Name, std::filesystem::current_path(Fehler).string());
}

std::vector<std::string> EingabePfade(const std::vector<std::string>& Namen) {
    std::vector<std::string> Pfade;
    for (const auto& Name : Namen)
        Pfade.push_back(EingabePfad(Name));
    return Pfade;
}

std::optional<std::string> EingabeLesen(std::string_view Name, std::uint64_t Höchstens) {
    constexpr std::string_view Bytefolgemarke = "\xEF\xBB\xBF";
    auto Text = Name == "-" ? StandardeingabeLesen(Höchstens) : DateiLesen(EingabePfad(Name), Höchstens);
    if (Text && Text->starts_with(Bytefolgemarke)) Text->erase(0, Bytefolgemarke.size());
    return Text;
}

std::optional<std::vector<Satznummer>> NummernLesen(const std::vector<std::string>& Argumente) {
    std::vector<Satznummer> Alle;
    for (const auto& Text : Argumente) {
        Satznummer Nummer = 0;
        const auto [Ende, Fehler] = std::from_chars(Text.data(), Text.data() + Text.size(), Nummer);
        const bool Ganz = Ende == Text.data() + Text.size();
        // A number that fits no record number is one out of range, not a wrong call.
        if (Ganz && Fehler == std::errc::result_out_of_range) {
            Nummer = std::numeric_limits<Satznummer>::max();
        } else if (Fehler != std::errc() || !Ganz) {
            return std::nullopt;
        }
        Alle.push_back(Nummer);
    }
    return Alle;
}

}  // namespace liedwerk
