#include "core/indexdateilauf.h"

#include <algorithm>

#include "basis/pfad.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "index/indexformat.h"

namespace liedwerk {

std::vector<Indexdateizeile> ZuletztGeladeneIndexe(const Anwendung& Programm) {
    std::vector<Indexdateizeile> Zeilen;
    for (const std::string& Pfad : Programm.Werte.ZuletztGeladen) {
        Indexdateizeile& Zeile = Zeilen.emplace_back();
        Zeile.Pfad = Pfad;
        Zeile.Geladen = Programm.Index.Programmmodus == ModusIndexdatei &&
                        PfadeGleich(Pfad, Programm.Index.IndexDateiname);
        const auto Stand = DateistandLesen(Pfad);
        if (!Stand || !Stand->IstDatei) continue;
        Zeile.Vorhanden = true;
        Zeile.Größe = Stand->Größe;
        Zeile.Geändert = DatumZeitText(Programm.Dienst.Zeit.Lokal(Stand->Änderungszeit));
    }
    return Zeilen;
}

void ZuletztGeladenVergessen(Anwendung& Programm, std::string_view Pfad) {
    std::erase_if(Programm.Werte.ZuletztGeladen,
                  [&](const std::string& Alter) { return PfadeGleich(Alter, Pfad); });
    Programm.Dienst.Fenster.ZuletztGeladenZeigen();
}

std::string MitIndexendung(std::string Name) {
    if (EndungVon(Name).empty()) Name += Indexendung;
    return Name;
}

bool NeuenIndexAnlegen(Anwendung& Programm, const std::string& Name) {
    if (DateistandLesen(Name)) {
        if (!DateiExistiert(Name)) {
            Programm.Dienst.Person.Melden(Symbol::Information,
                                          "'" + Name +
                                              "' ist ein Ordner.\nBitte geben Sie den Namen einer neuen "
                                              "Indexdatei ein.");
            return false;
        }
        const Antwort Wille = Programm.Dienst.Person.JaNein(
            Symbol::Frage, "Die Indexdatei '" + Name +
                               "' existiert bereits und wird nicht überschrieben.\n"
                               "Möchten Sie diese laden?");
        if (Wille != Antwort::Ja) return false;
    }
    // The index in use goes only when the new one can come.
    const std::string_view Ordner = PfadVon(Name);
    if (!Ordner.empty() && !OrdnerExistiert(Ordner)) {
        Programm.Dienst.Person.Melden(Symbol::Information,
                                      "Der Ordner '" + std::string(Ordner) +
                                          "' existiert nicht.\nBitte wählen Sie einen anderen für die neue "
                                          "Indexdatei.");
        return false;
    }
    SpaltenInIndex(Programm);
    return AndereDateiLaden(Programm, Name, true);
}

bool IndexSpeichernUnter(Anwendung& Programm, const std::string& Name) {
    Katalog& Index = Programm.Index;
    SpaltenInIndex(Programm);
    if (PfadeGleich(Name, Index.IndexDateiname)) return IndexSpeichern(Programm);
    const auto Stand = DateistandLesen(Name);
    if (Stand && Programm.Dienst.Person.JaNein(
                     Symbol::Ausrufezeichen,
                     "Die Datei '" + Name + "' existiert bereits.\nMöchten Sie diese überschreiben?",
                     Antwort::Nein) != Antwort::Ja)
        return false;
    const std::string AlterName = Index.IndexDateiname;
    const auto AlterStand = Index.IndexDateiZeit;
    const auto AlteGeneration = Index.IndexDateiGeneration;
    const bool Bekannt = Index.IndexDateiBekannt;
    // The file that may be replaced is this one and no other that comes in its place meanwhile.
    Index.IndexDateiname = Name;
    Index.IndexDateiBekannt = Stand.has_value();
    Index.IndexDateiZeit = Stand.value_or(Dateistand{});
    Index.IndexDateiGeneration = Lesedatei::Öffnen(Name).Generation();
    if (!IndexSpeichern(Programm)) {
        Index.IndexDateiname = AlterName;
        Index.IndexDateiZeit = AlterStand;
        Index.IndexDateiGeneration = AlteGeneration;
        Index.IndexDateiBekannt = Bekannt;
        return false;
    }
    Programm.NameVonKommandozeile = false;
    Programm.Dienst.Fenster.IndexnameZeigen(DateinameVon(Name));
    ZuletztGeladenAufnehmen(Programm, Name);
    return true;
}

}  // namespace liedwerk
