#include "core/felderlauf.h"

#include "core/exportlauf.h"
#include "index/felderaustausch.h"

namespace liedwerk {

bool FelderSpeichernLauf(Anwendung& Programm, const std::string& Dateiname) {
    if (IndexdateiGeschützt(Programm, Dateiname)) return false;
    const Laufsperre Sperre(Programm);
    if (!IndexFelderSpeichern(Programm.Index, IndexumgebungVon(Programm), Dateiname,
                              FortschrittBeimSpeichern(Programm.Werte)))
        return false;
    Programm.Dienst.Person.StatusZeigen("Die Index-Felder wurden in der Datei gespeichert.");
    return true;
}

std::optional<std::size_t> FelderImportierenLauf(Anwendung& Programm, const std::string& Dateiname) {
    const Laufsperre Sperre(Programm);
    const Antwort Wille = Programm.Dienst.Person.JaNein(
        Symbol::Ausrufezeichen,
        "Wenn Sie eine IndexFelder-Datei importieren, werden für alle darin enthaltenen Dateien die "
        "Index-Felder in Ihrer aktuellen Indexdatei überschrieben.\n"
        "Bitte seien Sie daher äußerst vorsichtig mit dieser Funktion.\n\n"
        "Möchten Sie diese Funktion ausführen und die IndexFelder-Datei importieren?",
        Antwort::Nein);
    if (Wille != Antwort::Ja) return std::nullopt;
    const Satzfinder Finden = [&Programm](std::string_view Pfad) {
        return Programm.Pfade.ErstenFinden(Programm.Index.Sätze, Pfad);
    };
    const auto Anzahl = DateiLadenIndexFelder(Programm.Index, IndexumgebungVon(Programm), Dateiname, Finden,
                                              FortschrittBeimLaden(Programm.Werte));
    if (!Anzahl) return std::nullopt;
    Programm.Dienst.Fenster.ListeZeigen();
    Programm.Dienst.Fenster.AuswahlZeigen();
    Programm.Dienst.Person.StatusZeigen("Die Index-Felder von " + std::to_string(*Anzahl) +
                                        " Datei(en) wurden importiert.");
    return Anzahl;
}

}  // namespace liedwerk
