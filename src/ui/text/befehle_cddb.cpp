// The command that asks the CD database.
#include "basis/zahl.h"
#include "core/cdlauf.h"
#include "ui/text/befehle.h"
#include "ui/text/cdausgabe.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

// Shows the discs that fit, and takes the one that was named beforehand.
std::size_t TrefferZeigen(const std::vector<std::string>& Zeilen, std::size_t Wahl) {
    if (Wahl >= 1 && Wahl <= Zeilen.size()) return Wahl;
    std::string Text = "Mehrere CDs passen. Nennen Sie die Nummer der richtigen mit --wahl:";
    for (std::size_t i = 0; i < Zeilen.size(); ++i)
        Text += "\n  " + std::to_string(i + 1) + "  " + Zeilen[i];
    Fehlermelden(Text);
    return 0;
}

}  // namespace

Ausgang CddbAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Wahl = GanzzahlLesen<std::int32_t>(Eingabe.Wert("--wahl").value_or("0"));
    if (!Wahl || *Wahl < 0 || (*Wahl == 0 && Eingabe.Wert("--wahl")))
        return Falsch("--wahl braucht eine ganze Zahl ab 1.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    CDDBWunsch Wunsch;
    Wunsch.Speichern = true;
    const CDDBHerkunft Herkunft = CDStarten(
        Programm, EingabePfad(Eingabe.Argumente.front()),
        [Wahl](const std::vector<std::string>& Zeilen) {
            return TrefferZeigen(Zeilen, static_cast<std::size_t>(*Wahl));
        },
        Wunsch);
    if (Herkunft == CDDBHerkunft::Keine) return Ausgang::Fehlgeschlagen;
    // Default titles are shown as well, but they are not what was asked for.
    const bool Gefunden = Herkunft != CDDBHerkunft::Standard;
    if (!Gefunden && Programm.CD.CDDBFehler == 0)
        Fehlermelden("Der CD-Datenbank-Server hat keine Daten zu dieser CD geliefert.");
    CDDatenAusgeben(Lauf, Programm.CD.Daten);
    return Lauf.Abschließen(Gefunden);
}

}  // namespace liedwerk
