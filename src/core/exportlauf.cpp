#include "core/exportlauf.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "index/indexinhalt.h"

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

bool IndexdateiGeschützt(Anwendung& Programm, const std::string& Datei) {
    if (!PfadeGleich(Datei, Programm.Index.IndexDateiname) && !IstIndexdatei(Datei)) return false;
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
