#include "core/terminlauf.h"

#include <algorithm>

#include "termine/pruefen.h"

namespace liedwerk {
namespace {

bool HatProgramme(const Katalog& Index) {
    return std::ranges::any_of(Index.Termine, [](const Termin& Einer) { return !Einer.Anwendung.empty(); });
}

std::string PrüfsummeVon(const Anwendung& Programm, std::string_view Datei) {
    return Programm.Dienst.DateiPrüfsumme ? Programm.Dienst.DateiPrüfsumme(Datei) : std::string();
}

bool Starterlaubnis(Anwendung& Programm, const Termin& Eintrag) {
    if (Programm.VertrauteProgramme.contains(Eintrag.Anwendung)) return true;
    const Antwort Erlaubt = Programm.Dienst.Person.JaNein(
        Symbol::Frage,
        "Das Ereignis '" + Eintrag.Beschreibung + "' möchte das Programm '" + Eintrag.Anwendung +
            "' starten.\nSie haben noch nicht alle Programme dieser Indexdatei erlaubt.\n\n"
            "Möchten Sie das Programm starten?",
        Antwort::Nein);
    if (Erlaubt != Antwort::Ja) return false;
    Programm.VertrauteProgramme.insert(Eintrag.Anwendung);
    return true;
}

void ProgrammStarten(Anwendung& Programm, const Termin& Eintrag) {
    if (!Starterlaubnis(Programm, Eintrag)) return;
    Programmstart* const Programme = Programm.Dienst.Programme;
    std::string Fehler = "In diesem Lauf werden keine Programme gestartet.";
    if (Programme != nullptr) {
        const Programmlaufnummer Gestartet = Programme->Starten(Eintrag.Anwendung, {});
        if (Gestartet) return;
        Fehler = Gestartet.Fehler;
    }
    Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen, "Das Programm '" + Eintrag.Anwendung +
                                                              "' des Ereignisses '" + Eintrag.Beschreibung +
                                                              "' konnte nicht gestartet werden.\n" + Fehler);
}

}  // namespace

void TerminePrüfenEinrichten(Anwendung& Programm) {
    Programm.TerminePrüfen = [&Programm] {
        const Dienste& Dienst = Programm.Dienst;
        return TerminePrüfen(
            Programm.Index,
            {Dienst.Person, Programm.Log, Dienst.Zeit,
             [&](const Terminmeldung& Meldung) { return Dienst.Fenster.TerminMelden(Meldung); },
             [&](const Termin& Eintrag) { ProgrammStarten(Programm, Eintrag); },
             [&](const Terminliste& Verpasste) { Dienst.Fenster.VerpassteTermineZeigen(Verpasste); },
             [&](std::size_t Nummer) {
                 if (Programm.TerminzeileAuffrischen) Programm.TerminzeileAuffrischen(Nummer);
             }},
            Programm.TerminePrüfenLäuft);
    };
}

void TerminGespeichert(Anwendung& Programm, std::size_t Nummer) {
    Programm.Index.IndexGeändert = true;
    Programm.VertrauteProgramme.insert(Programm.Index.Termine[Nummer - 1].Anwendung);
}

void TerminvertrauenLesen(Anwendung& Programm) {
    Programm.VertrauteProgramme.clear();
    const Einstellungen& Werte = Programm.Werte;
    const Katalog& Index = Programm.Index;
    if (!HatProgramme(Index) || Werte.TermineIndex != Index.IndexDateiname ||
        Werte.TermineIndexPrüfsumme.empty())
        return;
    // What was loaded, not what lies there now.
    if (PrüfsummeVon(Programm, Index.IndexDateiname) != Werte.TermineIndexPrüfsumme ||
        DateistandLesen(Index.IndexDateiname) != Index.IndexDateiZeit)
        return;
    for (const Termin& Einer : Index.Termine)
        Programm.VertrauteProgramme.insert(Einer.Anwendung);
}

void TerminvertrauenMerken(Anwendung& Programm, std::string_view Datei) {
    Einstellungen& Werte = Programm.Werte;
    const Katalog& Index = Programm.Index;
    if (Datei != Index.IndexDateiname || !HatProgramme(Index)) return;
    const bool AlleVertraut = std::ranges::all_of(Index.Termine, [&](const Termin& Einer) {
        return Einer.Anwendung.empty() || Programm.VertrauteProgramme.contains(Einer.Anwendung);
    });
    if (!AlleVertraut) return;
    Werte.TermineIndex = Datei;
    Werte.TermineIndexPrüfsumme = PrüfsummeVon(Programm, Datei);
    // Written at once: a run that is cut off would otherwise ask for what it was told.
    Wertspeicher& Nutzer = Programm.Dienst.Nutzerwerte;
    Nutzer.Schreiben("TermineIndex", Werte.TermineIndex);
    Nutzer.Schreiben("TermineIndexPrüfsumme", Werte.TermineIndexPrüfsumme);
    Nutzer.Sichern();
}

}  // namespace liedwerk
