#include "core/sicherungslauf.h"

#include <algorithm>

#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "core/beenden.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "index/indexformat.h"
#include "index/indexinhalt.h"
#include "index/sicherungskopien.h"

namespace liedwerk {
namespace {

constexpr std::uint64_t Leseblock = 1 << 20;
constexpr int HöchstensNamen = 100;

// A free name beside the index for the file that is replaced. It has not the form of a rolling backup, since
// these are deleted when they are old.
std::string NameFürErsetzte(const Anwendung& Programm, const std::string& Ziel) {
    std::string Stempel = DatumZeitText(Programm.Dienst.Zeit.Jetzt());
    std::ranges::replace(Stempel, ':', '-');
    const std::string Anfang = Ziel + " - Ersetzt am " + Stempel;
    std::string Name = Anfang + std::string(Sicherungsendung);
    for (int Nummer = 2; DateistandLesen(Name) && Nummer < HöchstensNamen; ++Nummer)
        Name = Anfang + " (" + std::to_string(Nummer) + ")" + std::string(Sicherungsendung);
    return Name;
}

void ScheiternMelden(Anwendung& Programm, const std::string& Anfang, const Dateifehler& Fehler,
                     bool Gespeichert) {
    Programm.Dienst.Person.Melden(
        Symbol::Ausrufezeichen,
        Anfang + "\n" + Fehler.Text + "\n\n" + std::string(ZugriffsHinweis) +
            (Gespeichert ? "\n\nIhre Änderungen wurden in der Indexdatei gespeichert, sonst wurde an ihr und "
                           "ihren Sicherungskopien nichts geändert."
                         : "\n\nAn Ihrer Indexdatei und ihren Sicherungskopien wurde nichts geändert."));
}

// What the index holds and its file does not goes into the file first, when the person wants that. No backups
// are kept on this way: the chosen one may be among those that are old enough to be deleted.
// Gespeichert tells whether the file has changed by it.
bool ÄnderungenVersorgen(Anwendung& Programm, bool& Gespeichert) {
    SpaltenInIndex(Programm);
    switch (SpeicherfrageStellen(Programm)) {
        case Speicherwunsch::Abbrechen:
            return false;
        case Speicherwunsch::NichtSpeichern:
            return true;
        case Speicherwunsch::Speichern:
            break;
    }
    return Gespeichert = IndexSpeichern(Programm, false);
}

bool Gefragt(Anwendung& Programm, const Sicherungskopie& Kopie) {
    return Programm.Dienst.Person.JaNein(
               Symbol::Ausrufezeichen,
               "Möchten Sie die Indexdatei '" + Programm.Index.IndexDateiname +
                   "' durch diese Sicherungskopie ersetzen?\n\n" + SicherungskopieText(Kopie) +
                   "\n\nDie jetzige Indexdatei bleibt als weitere Sicherungskopie erhalten.",
               Antwort::Nein) == Antwort::Ja;
}

// What was to take the index's place cannot be used: the file that stood there comes back. Its copy stays.
void Zurückholen(Anwendung& Programm, const std::string& Ziel, const std::string& Ersetzte) {
    const std::string Anfang = "Die Sicherungskopie konnte nicht geladen werden.\n";
    if (const Dateifehler Fehler = DateiKopieren(Ersetzte, VerweiseAuflösen(Ziel))) {
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                      Anfang + "Die vorherige Indexdatei liegt unter '" + Ersetzte +
                                          "', konnte aber nicht zurückgeholt werden.\n" + Fehler.Text);
        return;
    }
    Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                  Anfang + "Die vorherige Indexdatei wird wieder geladen.");
    Programm.Index.IndexDateiname = Ziel;
    StandardDateiLaden(Programm, ModusNichtsGeladen, false);
}

}  // namespace

std::optional<std::vector<Sicherungskopie>> SicherungskopienAuflisten(const Anwendung& Programm) {
    const std::string& Ziel = Programm.Index.IndexDateiname;
    const auto Namen = SicherungskopienSuchen(Programm.Dienst.Ordner, OrdnerDer(Ziel));
    if (!Namen) return std::nullopt;
    std::vector<Sicherungskopie> Kopien;
    for (const std::string& Name : *Namen) {
        if (!PfadeGleich(std::string_view(Name).substr(0, Ziel.size()), Ziel)) continue;
        const auto Stand = DateistandLesen(Name);
        if (!Stand || !Stand->IstDatei) continue;
        Kopien.push_back({Name, Programm.Dienst.Zeit.Lokal(Stand->Änderungszeit), Stand->Größe});
    }
    std::ranges::sort(Kopien, [](const Sicherungskopie& A, const Sicherungskopie& B) {
        return A.Geändert != B.Geändert ? A.Geändert > B.Geändert : A.Pfad > B.Pfad;
    });
    return Kopien;
}

std::string SicherungskopieText(const Sicherungskopie& Kopie) {
    return std::string(DateinameVon(Kopie.Pfad)) + " (zuletzt geändert am " + DatumZeitText(Kopie.Geändert) +
           ")";
}

std::int64_t DatensätzeZählen(const std::string& Pfad, const std::function<bool()>& Weiter) {
    if (!IstIndexdatei(Pfad)) return -1;
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    // The version line begins like a record and is none; each record's line begins behind a line end.
    std::int64_t Anzahl = 0;
    std::string Anfang = "\n";
    Anfang += Datenzeile;
    std::string Block;
    for (std::uint64_t Stelle = 0; Stelle < Datei.Größe(); Stelle += Leseblock) {
        if (Weiter && !Weiter()) return -1;
        // A line's beginning may lie across two blocks; it belongs to the one in which it begins.
        Block = Datei.Lesen(Stelle, Leseblock + Anfang.size() - 1);
        for (std::size_t Fund = Block.find(Anfang); Fund != std::string::npos && Fund < Leseblock;
             Fund = Block.find(Anfang, Fund + Anfang.size()))
            ++Anzahl;
    }
    return Anzahl;
}

bool SicherungskopieWiederherstellen(Anwendung& Programm, const Sicherungskopie& Kopie) {
    // The periodic save would tidy the backups away while the questions stand.
    const Laufsperre Sperre(Programm);
    const std::string Ziel = Programm.Index.IndexDateiname;
    if (!IstIndexdatei(Kopie.Pfad)) {
        Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                      "Die Sicherungskopie '" + Kopie.Pfad +
                                          "' kann nicht gelesen werden oder ist keine Indexdatei.\n"
                                          "Bitte wählen Sie eine andere.");
        return false;
    }
    bool Gespeichert = false;
    if (!Gefragt(Programm, Kopie) || !ÄnderungenVersorgen(Programm, Gespeichert)) return false;
    const bool Vorhanden = DateiExistiert(Ziel);
    const std::string Ersetzte = NameFürErsetzte(Programm, Ziel);
    const std::string Misslungen =
        "Die Indexdatei '" + Ziel + "' konnte nicht durch die Sicherungskopie ersetzt werden.";
    const auto Vorher = DateistandLesen(Ziel);
    if (Vorhanden) {
        if (const Dateifehler Fehler = DateiKopieren(Ziel, Ersetzte, Vorhandenes::Lassen)) {
            ScheiternMelden(Programm,
                            "Die jetzige Indexdatei konnte nicht als '" + Ersetzte + "' aufgehoben werden.",
                            Fehler, Gespeichert);
            return false;
        }
    }
    // A link stays one; the index lies where it leads.
    if (const Dateifehler Fehler = DateiKopieren(Kopie.Pfad, VerweiseAuflösen(Ziel))) {
        // What stands there now may be a replacement that failed late, or what another program has saved
        // meanwhile: nothing is written over it. Where it is the old file, its copy is not needed.
        const bool Unberührt = !Vorhanden || DateistandLesen(Ziel) == Vorher;
        if (Vorhanden && Unberührt) DateiLöschen(Ersetzte);
        ScheiternMelden(
            Programm, Unberührt ? Misslungen : Misslungen + " Die vorherige liegt unter '" + Ersetzte + "'.",
            Fehler, Gespeichert);
        return false;
    }
    if (StandardDateiLaden(Programm, ModusNichtsGeladen, false)) {
        Programm.Dienst.Person.StatusZeigen("Die Indexdatei wurde ersetzt und geladen");
        return true;
    }
    if (Vorhanden) Zurückholen(Programm, Ziel, Ersetzte);
    return false;
}

}  // namespace liedwerk
