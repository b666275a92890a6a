#include "core/exportlauf.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "index/indexformat.h"

namespace liedwerk {

bool ExportGesperrt(Anwendung& Programm) {
    if (Programm.Index.Programmmodus != ModusDateimanager) return false;
    Programm.Dienst.Person.Melden(Symbol::Information,
                                  "Diese Funktion steht im Dateimanager-Modus nicht zur Verfügung.");
    return true;
}

bool ExportErlaubt(Oberfläche& Person, const std::string& Datei) {
    if (!DateiExistiert(Datei)) return true;
    return Person.JaNein(Symbol::Ausrufezeichen,
                         "Die Datei '" + Datei + "' existiert bereits.\nMöchten Sie diese überschreiben?",
                         Antwort::Nein) == Antwort::Ja;
}

namespace {

// True for a file that is or was an index: by its name, since it may not be readable at the moment, or by its
// beginning, which an editor may have put a byte order mark in front of.
bool GiltAlsIndexdatei(const std::string& Datei) {
    if (!DateistandLesen(Datei)) return false;
    // Its backups and unfinished saves carry its whole name; so may a list that was made from it.
    const std::string_view Name = DateinameVon(Datei);
    if (EndetMitOhneGroß(Name, Indexendung) || EndetMitOhneGroß(Name, std::string(Indexendung) + "~") ||
        (EndetMitOhneGroß(Name, Sicherungsendung) && PositionOhneGroß(Name, Indexendung) != Name.npos))
        return true;
    constexpr std::string_view Bytefolgemarke = "\xEF\xBB\xBF";
    const std::string Anfang =
        Lesedatei::Öffnen(Datei).Lesen(0, Bytefolgemarke.size() + IndexVersionAnfang.size());
    return Anfang.starts_with(IndexVersionAnfang) ||
           (Anfang.starts_with(Bytefolgemarke) && Anfang.ends_with(IndexVersionAnfang));
}

}  // namespace

bool IndexdateiGeschützt(Anwendung& Programm, const std::string& Datei) {
    if (!PfadeGleich(Datei, Programm.Index.IndexDateiname) && !GiltAlsIndexdatei(Datei)) return false;
    Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                  "'" + Datei +
                                      "' ist eine Indexdatei und wird nicht überschrieben.\n"
                                      "Bitte wählen Sie einen anderen Namen.");
    return true;
}

bool ExportierenLauf(Anwendung& Programm, std::span<const Satznummer> Sätze, const Exportauftrag& Auftrag) {
    if (IndexdateiGeschützt(Programm, Auftrag.Datei)) return false;
    const Laufsperre Sperre(Programm);
    return ExportSchreiben(Programm.Index, Sätze, Auftrag, Programm.Dienst.Person, Programm.Log,
                           Programm.Dienst.Zeit);
}

Exportanzeige ExportAnzeigeFragen(Oberfläche& Person, const std::string& Datei) {
    const Antwort Wie = Person.Fragen(
        Symbol::Frage,
        "Sie können diese Datei mit dem Standard-Editor oder dem verknüpften Programm anzeigen.\n\n"
        "Möchten Sie diese Datei mit dem 'Editor' anzeigen?\n\n"
        " - Klicken Sie auf 'Ja', um die Datei mit dem Standard-Editor anzuzeigen\n"
        " - Klicken Sie auf 'Nein', um sie mit dem verknüpften Programm anzuzeigen.",
        Knöpfe::JaNeinAbbrechen, Antwort::Abbrechen);
    if (Wie == Antwort::Abbrechen) {
        Person.StatusZeigen("Die Datei wurde gespeichert unter dem Dateinamen '" + Datei + "'.");
        return Exportanzeige::Keine;
    }
    Person.StatusZeigen("Die Datei wird angezeigt...");
    return Wie == Antwort::Ja ? Exportanzeige::Editor : Exportanzeige::Anwendung;
}

}  // namespace liedwerk
