#include "core/suchlauf.h"

#include "index/schreiber.h"
#include "suche/spaltenlayout.h"
#include "suche/suchmaschine.h"

namespace liedwerk {

void SucheAktualisieren(Anwendung& Programm, bool MitVorschlägen) {
    Oberfläche& Person = Programm.Dienst.Person;
    const Suchzeile Zeile = Programm.Dienst.Fenster.SuchzeileLesen();
    const std::string Fehler = SuchzeileÜbernehmen(Programm.Abfragen, Zeile.Begriff, Zeile.Feld, Zeile.Aktiv,
                                                   Programm.Werte.SucheAlsWortStandard == 1);
    if (!Fehler.empty()) Person.Melden(Symbol::Ausrufezeichen, Fehler);

    const auto Ergebnis = IndexDurchsuchen(Programm.Index, Programm.Puffer, Programm.Abfragen,
                                           MitVorschlägen || Programm.Werte.SucheVorschlägeErstellen == 1,
                                           Programm.Werte.SucheUmlauteGleich == 1);
    if (!Ergebnis.Gelungen)
        Person.Melden(Symbol::Ausrufezeichen,
                      "Die Suche konnte aufgrund eines Fehlers nicht durchgeführt werden.");

    ListeErstellen(Programm.Ansicht, Programm.Index, Programm.Log, Programm.Dienst.Zeit);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
    Programm.Dienst.Fenster.VorschlägeZeigen(Programm.Index.ErsterTreffer > 0, Ergebnis.Vorschläge);
}

void SucheErneuern(Anwendung& Programm) {
    if (Programm.Abfragen.SucheAnzahl() > 0 || !Programm.Dienst.Fenster.SuchzeileLesen().Begriff.empty())
        SucheAktualisieren(Programm);
}

void SucheLöschen(Anwendung& Programm) {
    Programm.Dienst.Fenster.SuchzeileLeeren();
    SucheZurücksetzen(Programm.Abfragen);
    SucheAktualisieren(Programm);
}

void DatensätzeZeigen(Anwendung& Programm, const std::vector<Satznummer>& Datensätze) {
    ListeVollständigErstellen(Programm.Ansicht, Datensätze, Programm.Log, Programm.Dienst.Zeit);
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
    Programm.Dienst.Fenster.VorschlägeZeigen(true, {});
}

void SpaltenAusIndex(Anwendung& Programm) {
    Programm.Ansicht.Spalten = SpaltenEinrichten(Programm.Index.Optionen.Spalten);
    Programm.Dienst.Fenster.SpaltenZeigen();
}

Listenspalte NeueSpalte(int Nummer) {
    constexpr int OhneVorgabe = 1800;  // twips, for a column that has no default width
    const int Breite = SpaltenNamen[static_cast<std::size_t>(Nummer - 1)].Breite;
    return {Nummer, Breite > 0 ? Breite : OhneVorgabe};
}

void SpaltenInIndex(Anwendung& Programm) {
    if (Programm.Index.Programmmodus == ModusNichtsGeladen) return;
    Programm.Dienst.Fenster.SpaltenÜbernehmen();
    std::string& Alt = Programm.Index.Optionen.Spalten;
    // Two strings may tell the same arrangement (the unset one, entries of two parts): only a real change is
    // worth a save.
    if (Programm.Ansicht.Spalten == SpaltenEinrichten(Alt)) return;
    Alt = SpaltenSpeichern(Programm.Ansicht.Spalten, Alt);
    Programm.Index.IndexGeändert = true;
}

bool IndexSpeichern(Anwendung& Programm, bool MitSicherungskopien) {
    const Laufsperre Sperre(Programm);
    Einstellungen Werte = Programm.Werte;
    if (!MitSicherungskopien) Werte.BackupsSpeichern = 0;
    const auto Ergebnis = DateiSpeichern(Programm.Index, Werte, IndexumgebungVon(Programm),
                                         Programm.Index.IndexDateiname, FortschrittBeimSpeichern(Werte));
    if (Ergebnis != Speicherergebnis::Gespeichert) return false;
    Programm.Dienst.Person.StatusZeigen("Die Indexdatei wurde gespeichert");
    return true;
}

}  // namespace liedwerk
