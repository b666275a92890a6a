// Commands that search the index and read its fields.
#include <algorithm>

#include "basis/datei.h"
#include "basis/text.h"
#include "suche/abfrage.h"
#include "suche/feldwert.h"
#include "suche/mehrfachsuche.h"
#include "suche/suchmaschine.h"
#include "suche/vervollstaendigung.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"
#include "ui/text/suchauftrag.h"

namespace liedwerk {
namespace {

// A field to show: its name as typed, resolved once.
struct Spaltenwahl {
    std::string Name;
    Feldwahl Feld;
};

std::vector<Spaltenwahl> SpaltenWählen(const std::vector<std::string>& Namen) {
    std::vector<Spaltenwahl> Spalten;
    for (const auto& Name : Namen) {
        const bool Doppelt = std::any_of(Spalten.begin(), Spalten.end(),
                                         [&](const Spaltenwahl& Andere) { return Andere.Name == Name; });
        if (!Doppelt) Spalten.push_back({Name, FeldFinden(Name)});
    }
    return Spalten;
}

// The queries as typed; an empty code is the standard one of the settings. Nothing when one has no right
// form.
std::optional<std::vector<Suchabfrage>> AbfragenLesen(const Befehlseingabe& Eingabe) {
    std::vector<Suchabfrage> Alle;
    const auto Weitere = Eingabe.AlleWerte("--abfrage");
    if (!Eingabe.Argumente.empty() || Weitere.empty() || Eingabe.Hat("--feld") || Eingabe.Hat("--code"))
        Alle.push_back({Eingabe.Wert("--feld").value_or(""),
                        Eingabe.Argumente.empty() ? "" : Eingabe.Argumente[0],
                        Eingabe.Wert("--code").value_or("")});
    for (const auto& Text : Weitere) {
        auto Abfrage = AbfrageLesen(Text);
        if (!Abfrage) return std::nullopt;
        Alle.push_back(std::move(*Abfrage));
    }
    return Alle;
}

struct Fund {
    std::vector<Satznummer> Treffer;
    std::vector<std::string> Vorschläge;
};

void FundAlsJson(Programmlauf& Lauf, const Fund& Ergebnis, const std::vector<Spaltenwahl>& Spalten,
                 bool NurZählen) {
    const Katalog& Index = Lauf.Programm().Index;
    const bool BeideTags = Index.Optionen.SpaltenBeideTags == 1;
    JsonSchreiber& Ziel = Lauf.Dokument();
    Ziel.ObjektAnfang();
    Ziel.Zahl("Anzahl", static_cast<std::int64_t>(Ergebnis.Treffer.size()));
    if (!NurZählen) {
        std::string Wert;
        Feldtyp Typ{};
        Ziel.Name("Treffer");
        Ziel.ListeAnfang();
        for (const Satznummer Nummer : Ergebnis.Treffer) {
            Ziel.ObjektAnfang();
            Ziel.Zahl("Nummer", Nummer);
            for (const auto& Spalte : Spalten) {
                // An object has each key once, and the number stands in front already.
                if (Spalte.Name == "Nummer") continue;
                FeldWert(Index, Nummer, Spalte.Feld, Wertform::Anzeigen, BeideTags, Wert, Typ);
                Ziel.Text(Spalte.Name, Wert);
            }
            Ziel.ObjektEnde();
        }
        Ziel.ListeEnde();
        Ziel.Name("Vorschläge");
        Ziel.ListeAnfang();
        for (const auto& Vorschlag : Ergebnis.Vorschläge)
            Ziel.Text(Vorschlag);
        Ziel.ListeEnde();
    }
    Ziel.ObjektEnde();
}

void FundAlsText(Programmlauf& Lauf, const Fund& Ergebnis, const std::vector<Spaltenwahl>& Spalten) {
    if (Ergebnis.Treffer.empty()) {
        Lauf.Text().Schreiben(Ergebnis.Vorschläge.empty()
                                  ? "Nichts gefunden. Bitte ändern Sie Ihre Eingabe.\n"
                                  : "Nichts gefunden. Meinten Sie vielleicht...\n");
        for (const auto& Vorschlag : Ergebnis.Vorschläge)
            Lauf.Text().Schreiben("  " + Sichtbar(Vorschlag) + "\n");
        return;
    }
    const Katalog& Index = Lauf.Programm().Index;
    std::vector<std::string> Köpfe{"Nummer"};
    for (const auto& Spalte : Spalten)
        Köpfe.push_back(Spalte.Name);
    Tabelle Zeilen(Lauf.Text(), Köpfe);
    for (const Satznummer Nummer : Ergebnis.Treffer) {
        std::vector<std::string> Werte{std::to_string(Nummer)};
        for (const auto& Spalte : Spalten) {
            Feldtyp Typ{};
            FeldWert(Index, Nummer, Spalte.Feld, Wertform::Anzeigen, Index.Optionen.SpaltenBeideTags == 1,
                     Werte.emplace_back(), Typ);
        }
        Zeilen.Zeile(std::move(Werte));
    }
    Zeilen.Fertig();
    Lauf.Text().Schreiben("\n" + std::to_string(Ergebnis.Treffer.size()) + " Datei(en) gefunden\n");
}

// The fields of one record as an object of field names.
void FelderAlsJson(Programmlauf& Lauf, Satznummer Nummer, const std::vector<Spaltenwahl>& Gewählte,
                   Wertform Form, bool AndererTag) {
    JsonSchreiber& Ziel = Lauf.Dokument();
    Ziel.ObjektAnfang();
    // A field of this name that was asked for takes the key.
    const bool NummerGewählt = std::any_of(Gewählte.begin(), Gewählte.end(),
                                           [](const Spaltenwahl& Feld) { return Feld.Name == "Nummer"; });
    if (!NummerGewählt) Ziel.Zahl("Nummer", Nummer);
    for (const auto& Feld : Gewählte) {
        std::string Wert;
        Feldtyp Typ{};
        const bool Ergebnis = FeldWert(Lauf.Programm().Index, Nummer, Feld.Feld, Form, AndererTag, Wert, Typ);
        Ziel.Name(Feld.Name);
        Ziel.ObjektAnfang();
        Ziel.Wahrheit("Ergebnis", Ergebnis);
        Ziel.Text("Wert", Wert);
        Ziel.Zahl("Feldtyp", static_cast<std::int64_t>(Typ));
        Ziel.ObjektEnde();
    }
    Ziel.ObjektEnde();
}

}  // namespace

Ausgang SuchenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Abfragen = AbfragenLesen(Eingabe);
    if (!Abfragen) return Falsch("--abfrage erwartet \"Feld|Code|Begriff\".");
    auto Namen = NamenslisteLesen(Eingabe.Wert("--spalten").value_or(""));
    if (Namen.empty()) Namen = {"Interpret", "Titel", "Album", "Pfad+Dateiname"};
    for (const auto& Abfrage : *Abfragen)
        FeldPrüfen(Abfrage.Feld);
    for (const auto& Name : Namen)
        FeldPrüfen(Name);

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    AbfragenÜbernehmen(Programm, *Abfragen);
    const bool NurZählen = Eingabe.Hat("--zaehlen");
    auto Suche = IndexDurchsuchen(Programm.Index, Programm.Puffer, Programm.Abfragen,
                                  !NurZählen && Programm.Werte.SucheVorschlägeErstellen == 1,
                                  Programm.Werte.SucheUmlauteGleich == 1);
    if (!Suche.Gelungen)
        return Gescheitert("Die Suche konnte aufgrund eines Fehlers nicht durchgeführt werden.");

    const Fund Ergebnis{TrefferSammeln(Programm.Index), std::move(Suche.Vorschläge)};
    if (Lauf.Json()) {
        FundAlsJson(Lauf, Ergebnis, SpaltenWählen(Namen), NurZählen);
    } else if (NurZählen) {
        Lauf.Text().Schreiben(std::to_string(Ergebnis.Treffer.size()) + "\n");
    } else {
        FundAlsText(Lauf, Ergebnis, SpaltenWählen(Namen));
    }
    return Lauf.Abschließen();
}

Ausgang FeldwerteAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Gewählte = SpaltenWählen(NamenslisteLesen(Eingabe.Wert("--felder").value_or("")));
    if (Gewählte.empty()) return Falsch("--felder erwartet die Namen von Feldern.");
    const std::string Modus = Eingabe.Wert("--modus").value_or("1");
    if (Modus != "0" && Modus != "1") return Falsch("--modus ist 0 oder 1.");
    const auto Gewünschte = NummernLesen(Eingabe.Argumente);
    if (!Gewünschte) return Falsch("Eine NUMMER ist eine ganze Zahl.");
    const Wertform Form = Modus == "0" ? Wertform::Sortieren : Wertform::Anzeigen;
    const bool AndererTag = Eingabe.Hat("--anderer-tag");

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Nummern = Lauf.Nummern(*Gewünschte);
    if (!Nummern) return Ausgang::Fehlgeschlagen;
    if (Lauf.Json()) {
        Lauf.Dokument().ListeAnfang();
        for (const Satznummer Nummer : *Nummern)
            FelderAlsJson(Lauf, Nummer, Gewählte, Form, AndererTag);
        Lauf.Dokument().ListeEnde();
        return Lauf.Abschließen();
    }
    Tabelle Zeilen(Lauf.Text(), {"Nummer", "Feld", "Typ", "Wert"});
    for (const Satznummer Nummer : *Nummern) {
        for (const auto& Feld : Gewählte) {
            std::string Wert;
            Feldtyp Typ{};
            const bool Bekannt =
                FeldWert(Lauf.Programm().Index, Nummer, Feld.Feld, Form, AndererTag, Wert, Typ);
            Zeilen.Zeile({std::to_string(Nummer), Feld.Name, std::to_string(static_cast<int>(Typ)),
                          Bekannt ? Wert : "(kein Wert)"});
        }
    }
    Zeilen.Fertig();
    return Lauf.Abschließen();
}

Ausgang MehrfachsucheAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const std::string& Name = Eingabe.Argumente[0];
    const auto Text = EingabeLesen(Name);
    if (!Text) return Gescheitert("Die Datei '" + Name + "' konnte nicht gelesen werden.");
    const auto Abfragen = AbfragenZerlegen(*Text);
    if (Abfragen.empty()) return Gescheitert(MehrfachsucheOhneAbfrage);

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    const auto Resultate = MehrfachSuchen(Programm.Index, Programm.Puffer, Abfragen, Programm.Dienst.Person);
    if (!Lauf.Json()) {
        Tabelle Zeilen(Lauf.Text(), {"Abfrage", "Resultate"});
        for (const auto& Eines : Resultate)
            Zeilen.Zeile({Eines.Abfrage, Eines.Resultat});
        Zeilen.Fertig();
        return Lauf.Abschließen();
    }
    JsonSchreiber& Ziel = Lauf.Dokument();
    Ziel.ListeAnfang();
    for (const auto& Eines : Resultate) {
        Ziel.ObjektAnfang();
        Ziel.Text("Abfrage", Eines.Abfrage);
        Ziel.Text("Resultat", Eines.Resultat);
        Ziel.Name("Nummern");
        Ziel.ListeAnfang();
        for (const Satznummer Nummer : Eines.Nummern)
            Ziel.Zahl(Nummer);
        Ziel.ListeEnde();
        Ziel.ObjektEnde();
    }
    Ziel.ListeEnde();
    return Lauf.Abschließen();
}

Ausgang VorschlägeAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    FeldPrüfen(Eingabe.Argumente[0]);
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    auto Werte =
        AutoCompleteFüllen(Lauf.Programm().Index, Eingabe.Argumente[0], true, Lauf.Programm().Dienst.Person);
    std::erase_if(Werte,
                  [&](const std::string& Wert) { return !BeginntMitOhneGroß(Wert, Eingabe.Argumente[1]); });
    if (Lauf.Json()) Lauf.Dokument().ListeAnfang();
    for (const std::string& Wert : Werte) {
        if (Lauf.Json()) {
            Lauf.Dokument().Text(Wert);
        } else {
            Lauf.Text().Schreiben(Sichtbar(Wert) + "\n");
        }
    }
    if (Lauf.Json()) Lauf.Dokument().ListeEnde();
    return Lauf.Abschließen();
}

}  // namespace liedwerk
