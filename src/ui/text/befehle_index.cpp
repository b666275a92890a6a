// Commands on the index as a whole.
#include "basis/datei.h"
#include "basis/pfad.h"
#include "core/sortierlauf.h"
#include "core/suchlauf.h"
#include "index/indexformat.h"
#include "index/schreiber.h"
#include "index/speichersperre.h"
#include "suche/feldwert.h"
#include "suche/sortieren.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/satz.h"

namespace liedwerk {
namespace {

void PaareAlsJson(JsonSchreiber& Ziel, const Indexoptionen& Optionen) {
    Ziel.Name("SyncOrdner");
    Ziel.ListeAnfang();
    for (const auto& Regel : Optionen.SyncOrdner) {
        Ziel.ListeAnfang();
        Ziel.Text(Regel.Ordner);
        Ziel.Zahl(Regel.Unterordner);
        Ziel.Text(Regel.KopierenInOrdner);
        Ziel.ListeEnde();
    }
    Ziel.ListeEnde();
    Ziel.Zahl("SyncEntfernen", Optionen.SyncEntfernen);
    Ziel.Text("SyncNichtBei", Optionen.SyncNichtBei);
    Ziel.Name("Dateitypen");
    Ziel.ListeAnfang();
    for (const auto& Typ : Optionen.Dateitypen) {
        Ziel.ListeAnfang();
        Ziel.Text(Typ.Eintrag);
        Ziel.Text(Typ.Schalter);
        Ziel.ListeEnde();
    }
    Ziel.ListeEnde();
}

void OptionenAlsJson(JsonSchreiber& Ziel, const Indexoptionen& Optionen) {
    Ziel.ObjektAnfang();
    PaareAlsJson(Ziel, Optionen);
    Ziel.Zahl("SpaltenLeiste", Optionen.SpaltenLeiste);
    Ziel.Zahl("SpaltenGitter", Optionen.SpaltenGitter);
    Ziel.Zahl("SpaltenSymbole", Optionen.SpaltenSymbole);
    Ziel.Zahl("SpaltenBeideTags", Optionen.SpaltenBeideTags);
    Ziel.Text("Spalten", Optionen.Spalten);
    Ziel.Text("SpaltenNutzerformat", Optionen.SpaltenNutzerformat);
    Ziel.Text("IndexEigentümer", Optionen.IndexEigentümer);
    Ziel.ObjektEnde();
}

void OptionenAlsText(Ausgabe& Ziel, const Indexoptionen& Optionen) {
    for (const auto& Regel : Optionen.SyncOrdner)
        AngabeSchreiben(Ziel, "SyncOrdner",
                        Regel.Ordner + (Regel.Unterordner == 1 ? " (mit Unterordnern)" : "") +
                            (Regel.KopierenInOrdner.empty() ? "" : " -> " + Regel.KopierenInOrdner));
    AngabeSchreiben(Ziel, "SyncEntfernen", std::to_string(Optionen.SyncEntfernen));
    AngabeSchreiben(Ziel, "SyncNichtBei", Optionen.SyncNichtBei);
    std::string Typen;
    for (const auto& Typ : Optionen.Dateitypen)
        Typen += (Typen.empty() ? "" : ", ") + Typ.Eintrag;
    AngabeSchreiben(Ziel, "Dateitypen", Typen);
    AngabeSchreiben(Ziel, "SpaltenLeiste", std::to_string(Optionen.SpaltenLeiste));
    AngabeSchreiben(Ziel, "SpaltenGitter", std::to_string(Optionen.SpaltenGitter));
    AngabeSchreiben(Ziel, "SpaltenSymbole", std::to_string(Optionen.SpaltenSymbole));
    AngabeSchreiben(Ziel, "SpaltenBeideTags", std::to_string(Optionen.SpaltenBeideTags));
    AngabeSchreiben(Ziel, "Spalten", Optionen.Spalten);
    AngabeSchreiben(Ziel, "SpaltenNutzerformat", Optionen.SpaltenNutzerformat);
    AngabeSchreiben(Ziel, "IndexEigentümer", Optionen.IndexEigentümer);
}

bool Bestätigt(Programmlauf& Lauf, const std::string& Frage) {
    return Lauf.Programm().Dienst.Person.JaNein(Symbol::Ausrufezeichen, Frage, Antwort::Nein) == Antwort::Ja;
}

// Puts an empty index in the place of an existing file, in one step.
bool DurchLeerenErsetzen(const std::string& Name) {
    Dateiersatz Ersatz;
    const auto Fremdes = TemporärnamePrüfen(Name);
    if (!Fremdes && Ersatz.Öffnen(Name, TemporärnameVon(Name)) == Dateiersatz::Öffnung::Bereit &&
        Ersatz.Schreiben(std::string(IndexVersionNeu) + std::string(Zeilenende)) && Ersatz.Übernehmen())
        return true;
    Fehlermelden("Die Indexdatei '" + Name + "' konnte nicht ersetzt werden: " +
                 (Fremdes           ? Fremdes.Text
                  : Ersatz.Fehler() ? Ersatz.Fehler().Text
                                    : "Sie wird gerade gespeichert."));
    return false;
}

// The file that the index goes to: its own or another one, which is not replaced unasked. Nothing, with a
// message, when it must not be.
std::optional<std::string> ZielWählen(Programmlauf& Lauf, const std::optional<std::string>& Ausgabedatei) {
    Katalog& Index = Lauf.Programm().Index;
    const std::string Ziel = Ausgabedatei ? EingabePfad(*Ausgabedatei) : Index.IndexDateiname;
    if (PfadeGleich(Ziel, Index.IndexDateiname)) return Ziel;
    if (DateiExistiert(Ziel) &&
        !Bestätigt(Lauf, "Die Datei '" + Ziel +
                             "' gibt es schon. Ihr Inhalt geht verloren.\nSoll sie ersetzt werden?")) {
        Fehlermelden("Die Datei '" + Ziel + "' wurde nicht verändert.");
        return std::nullopt;
    }
    Index.IndexDateiname = Ziel;
    // The state that was seen belongs to the file that was loaded.
    Index.IndexDateiBekannt = false;
    return Ziel;
}

Ausgang NichtGespeichert(const std::string& Ziel) {
    return Gescheitert("Die Indexdatei '" + Ziel + "' wurde nicht gespeichert.");
}

// The overview of records: what a person looks for first.
void SätzeAlsTabelle(Programmlauf& Lauf, const std::vector<Satznummer>& Nummern) {
    Tabelle Zeilen(Lauf.Text(), {"Nummer", "Interpret", "Titel", "Album", "Pfad+Dateiname"});
    const Katalog& Index = Lauf.Programm().Index;
    for (const Satznummer Nummer : Nummern) {
        std::vector<std::string> Werte{std::to_string(Nummer)};
        for (const auto* Feld : {"Interpret", "Titel", "Album", "Pfad+Dateiname"}) {
            Feldtyp Typ{};
            FeldWert(Index, Nummer, Feld, Wertform::Anzeigen, true, Werte.emplace_back(), Typ);
        }
        Zeilen.Zeile(std::move(Werte));
    }
    Zeilen.Fertig();
}

}  // namespace

Ausgang IndexNeuAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    const std::string Name = Lauf.Indexname();
    if (DateiExistiert(Name)) {
        if (!Bestätigt(Lauf, "Die Datei '" + Name +
                                 "' gibt es schon. Ihr Inhalt geht verloren.\nSoll sie durch einen leeren "
                                 "Index ersetzt werden?"))
            return Gescheitert("Die Datei '" + Name + "' wurde nicht verändert.");
        if (!DurchLeerenErsetzen(Name)) return Ausgang::Fehlgeschlagen;
    } else if (!Lauf.IndexLaden(true)) {
        return Ausgang::Fehlgeschlagen;
    }
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Datei", Name);
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben("Die Indexdatei '" + Sichtbar(Name) + "' wurde angelegt.\n");
    }
    return Lauf.Abschließen();
}

Ausgang IndexInfoAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const Katalog& Index = Lauf.Programm().Index;
    const auto Termine = static_cast<std::int64_t>(Index.Termine.size());
    if (Lauf.Json()) {
        JsonSchreiber& Ziel = Lauf.Dokument();
        Ziel.ObjektAnfang();
        Ziel.Text("Datei", Index.IndexDateiname);
        Ziel.Zahl("Formatstand", Index.Formatstand);
        Ziel.Zahl("IndexAnzahl", Index.IndexAnzahl());
        Ziel.Wahrheit("IndexGeändert", Index.IndexGeändert);
        Ziel.Zahl("TerminAnzahl", Termine);
        Ziel.Name("Optionen");
        OptionenAlsJson(Ziel, Index.Optionen);
        Ziel.ObjektEnde();
    } else {
        AngabeSchreiben(Lauf.Text(), "Datei", Index.IndexDateiname);
        AngabeSchreiben(Lauf.Text(), "Formatstand", std::to_string(Index.Formatstand));
        AngabeSchreiben(Lauf.Text(), "Datensätze", std::to_string(Index.IndexAnzahl()));
        AngabeSchreiben(Lauf.Text(), "Beim Laden geändert", Index.IndexGeändert ? "Ja" : "Nein");
        AngabeSchreiben(Lauf.Text(), "Termine", std::to_string(Termine));
        OptionenAlsText(Lauf.Text(), Index.Optionen);
    }
    return Lauf.Abschließen();
}

Ausgang IndexSpeichernAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Ausgabedatei = Eingabe.Wert("--ausgabe");
    if (Ausgabedatei && Ausgabedatei->empty()) return Falsch("--ausgabe erwartet einen Namen.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const Katalog& Index = Lauf.Programm().Index;
    const auto Ziel = ZielWählen(Lauf, Ausgabedatei);
    if (!Ziel) return Ausgang::Fehlgeschlagen;
    if (!IndexSpeichern(Lauf.Programm())) return NichtGespeichert(*Ziel);
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Datei", *Ziel);
        Lauf.Dokument().Zahl("IndexAnzahl", Index.IndexAnzahl());
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(std::to_string(Index.IndexAnzahl()) + " Datensätze in '" + Sichtbar(*Ziel) +
                              "' gespeichert.\n");
    }
    return Lauf.Abschließen();
}

Ausgang SortierenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Ausgabedatei = Eingabe.Wert("--ausgabe");
    if (Ausgabedatei && Ausgabedatei->empty()) return Falsch("--ausgabe erwartet einen Namen.");
    const auto Wahl = SortierwahlPrüfen(Eingabe.Argumente);
    if (!Wahl.Meldung.empty()) return Gescheitert(Wahl.Meldung);
    // All records have the same key in a field that does not exist, and the order would be lost for nothing.
    for (const std::string& Feld : Wahl.Sortierkriterien) {
        if (!FeldFinden(Feld).Bekannt) return Falsch("Das Feld '" + Feld + "' gibt es nicht.");
    }
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Ziel = ZielWählen(Lauf, Ausgabedatei);
    if (!Ziel) return Ausgang::Fehlgeschlagen;
    SortierenLauf(Lauf.Programm(), Wahl.Sortierkriterien, Eingabe.Hat("--absteigend"));
    if (!IndexSpeichern(Lauf.Programm())) return NichtGespeichert(*Ziel);
    const Satznummer Anzahl = Lauf.Programm().Index.IndexAnzahl();
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Zahl("IndexAnzahl", Anzahl);
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben(std::to_string(Anzahl) + " Datensätze sortiert und in '" + Sichtbar(*Ziel) +
                              "' gespeichert.\n");
    }
    return Lauf.Abschließen();
}

Ausgang SätzeAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Gewünschte = NummernLesen(Eingabe.Argumente);
    if (!Gewünschte) return Falsch("Eine NUMMER ist eine ganze Zahl.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Nummern = Lauf.Nummern(*Gewünschte);
    if (!Nummern) return Ausgang::Fehlgeschlagen;
    const Satzspeicher& Sätze = Lauf.Programm().Index.Sätze;
    if (Lauf.Json()) {
        Lauf.Dokument().ListeAnfang();
        for (const Satznummer Nummer : *Nummern)
            SatzAlsJson(Lauf.Dokument(), Nummer, Sätze.Pfad(Nummer), Sätze.Lesen(Nummer));
        Lauf.Dokument().ListeEnde();
    } else if (Gewünschte->empty()) {
        SätzeAlsTabelle(Lauf, *Nummern);
    } else {
        for (const Satznummer Nummer : *Nummern)
            SatzAlsText(Lauf.Text(), Nummer, Sätze.Pfad(Nummer), Sätze.Lesen(Nummer));
    }
    return Lauf.Abschließen();
}

}  // namespace liedwerk
