#include "dateien/synchronisieren.h"

#include "basis/datei.h"
#include "basis/vorhandensein.h"

namespace liedwerk {

bool FehltGewiss(const std::string& Pfad, const Mediumumgebung& Umgebung) {
    // A drive that is not there (another system's, a disk that is not mounted) tells nothing of its files,
    // and neither does a folder that may not be read or a server that does not answer.
    return Umgebung.Drives.Vorhanden(LaufwerkDesPfades(Umgebung, Pfad)) && NichtsVorhanden(Pfad);
}

Dateiverbleib DateiNachsehen(const std::string& Pfad, const Mediumumgebung& Umgebung) {
    // The file manager's list holds folders.
    if (DateiExistiert(Pfad) || OrdnerExistiert(Pfad)) return Dateiverbleib::Da;
    // The person has chosen that what cannot be reached does not exist.
    if (Umgebung.Werte.NichtVerfügbarExistierenNicht == 1) return Dateiverbleib::Fort;
    return FehltGewiss(Pfad, Umgebung) ? Dateiverbleib::Fort : Dateiverbleib::Unklar;
}

Existenzprüfung ExistenzenPrüfen(const Katalog& Index, Mediumspeicher& Speicher,
                                 const Mediumumgebung& Umgebung, Oberfläche& Person) {
    Existenzprüfung Ergebnis;
    if (Umgebung.Werte.StartBildschirm == 1)
        Person.FortschrittStarten("Datei-Existenzen prüfen", true, Index.IndexAnzahl());
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        if (!Person.FortschrittZeigen({}, Nummer)) return {true, {}, 0};
        switch (DateiNichtVerfügbarPrüfen(Index, Nummer, Speicher, Umgebung, Person, false)) {
            case Verfügbarkeit::Abbrechen:
                return {true, {}, 0};
            case Verfügbarkeit::Überspringen:
                continue;
            case Verfügbarkeit::Weiter:
                break;
        }
        const auto Was = DateiNachsehen(Index.Sätze.Pfad(Nummer), Umgebung);
        if (Was == Dateiverbleib::Fort) Ergebnis.Fehlende.push_back(Nummer);
        if (Was == Dateiverbleib::Unklar) ++Ergebnis.Unklar;
    }
    return Ergebnis;
}

}  // namespace liedwerk
