// Commands on the reminders of an index.
#include "basis/zahl.h"
#include "core/suchlauf.h"
#include "core/terminlauf.h"
#include "termine/termine.h"
#include "termine/wiederkehr.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

void TerminAlsJson(JsonSchreiber& Ziel, const Termin& Eintrag) {
    Ziel.ObjektAnfang();
    for (int Feld = 1; Feld <= TerminFeldAnzahl; ++Feld) {
        const std::string_view Name = TerminFeldnamen[static_cast<std::size_t>(Feld - 1)];
        if (const auto Zahl = TerminFeldZahl(Eintrag, Feld)) {
            Ziel.Zahl(Name, *Zahl);
        } else {
            Ziel.Text(Name, TerminFeldText(Eintrag, Feld));
        }
    }
    Ziel.ObjektEnde();
}

void TermineAlsTabelle(Ausgabe& Ziel, const Terminliste& Termine) {
    std::vector<std::string> Köpfe{"Nummer"};
    Köpfe.insert(Köpfe.end(), TerminSpalten.begin(), TerminSpalten.end());
    Tabelle Zeilen(Ziel, std::move(Köpfe));
    for (std::size_t i = 0; i < Termine.size(); ++i) {
        std::vector<std::string> Werte{std::to_string(i + 1)};
        for (const std::string_view Spalte : TerminSpalten)
            Werte.push_back(Sichtbar(TerminZelle(Termine[i], Spalte)));
        Zeilen.Zeile(std::move(Werte));
    }
    Zeilen.Fertig();
    Ziel.Schreiben(TerminBeschriftung(Termine.size()) + "\n");
}

}  // namespace

Ausgang TermineAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const Terminliste& Termine = Lauf.Programm().Index.Termine;
    if (Lauf.Json()) {
        Lauf.Dokument().ListeAnfang();
        for (const Termin& Einer : Termine)
            TerminAlsJson(Lauf.Dokument(), Einer);
        Lauf.Dokument().ListeEnde();
    } else {
        TermineAlsTabelle(Lauf.Text(), Termine);
    }
    return Lauf.Abschließen();
}

Ausgang TerminNächsterAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Nummer = GanzzahlLesen<std::int32_t>(Eingabe.Argumente.front());
    if (!Nummer || *Nummer < 1) return Falsch("Eine NUMMER ist eine ganze Zahl ab 1.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const Terminliste& Termine = Lauf.Programm().Index.Termine;
    const auto Platz = static_cast<std::size_t>(*Nummer) - 1;
    if (Platz >= Termine.size())
        return Gescheitert("Das Ereignis " + std::to_string(*Nummer) + " gibt es nicht.");
    const Terminlage Lage = TerminNächsterTermin(Termine[Platz], Lauf.Programm().Dienst.Zeit.Jetzt());
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Nächster", Lage.Nächster);
        Lauf.Dokument().Text("Letzter", Lage.Letzter);
        Lauf.Dokument().Wahrheit("Fällig", Lage.Fällig);
        Lauf.Dokument().ObjektEnde();
    } else {
        Lauf.Text().Schreiben("Nächster: " + Lage.Nächster + "\nLetzter: " + Lage.Letzter +
                              "\nFällig: " + (Lage.Fällig ? "ja" : "nein") + "\n");
    }
    return Lauf.Abschließen();
}

Ausgang TerminePrüfenAusführen(const Globaloptionen& Global, const Befehlseingabe&) {
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    TerminePrüfenEinrichten(Programm);
    const std::vector<Terminmeldung> Gezeigte = Programm.TerminePrüfen();
    if (!Lauf.GeändertesSpeichern()) return Ausgang::Fehlgeschlagen;
    if (Lauf.Json()) {
        Lauf.Dokument().ListeAnfang();
        for (const Terminmeldung& Eine : Gezeigte) {
            Lauf.Dokument().ObjektAnfang();
            Lauf.Dokument().Zahl("Nummer", static_cast<std::int64_t>(Eine.Nummer));
            Lauf.Dokument().Text("Meldung", Eine.Text);
            Lauf.Dokument().ObjektEnde();
        }
        Lauf.Dokument().ListeEnde();
    } else {
        for (const Terminmeldung& Eine : Gezeigte)
            Lauf.Text().Schreiben(std::to_string(Eine.Nummer) + "  " + Sichtbar(Eine.Text) + "\n");
        Lauf.Text().Schreiben(std::to_string(Gezeigte.size()) + " Ereignis(se) gemeldet.\n");
    }
    return Lauf.Abschließen();
}

}  // namespace liedwerk
