#include "core/hinzufuegewege.h"

#include <numeric>

#include "core/dateilauf.h"
#include "core/listenlauf.h"

namespace liedwerk {
namespace {

void OrdnerHinzufügen(Anwendung& Programm, const std::string& Ordner) {
    Ordnerauftrag Auftrag;
    Auftrag.Ordner = Ordner;
    Auftrag.Unterordner = Programm.Werte.HinzufügenUnterordner == 1;
    Auftrag.DateimanagerAnsicht = Programm.Index.Programmmodus == ModusDateimanager;
    OrdnerHinzufügenLauf(Programm, Auftrag, {});
}

void Hinzufügen(Anwendung& Programm, const Hinzufügewahl& Wahl) {
    switch (Wahl.Weg) {
        case Hinzufügeweg::Keiner:
            break;
        case Hinzufügeweg::Dateien:
            DateienHinzufügenLauf(Programm, Wahl.Dateien, {}, true);
            break;
        case Hinzufügeweg::Ordner:
            OrdnerHinzufügen(Programm, Wahl.Pfad);
            break;
        case Hinzufügeweg::Playliste:
            PlaylistLesen(Programm, Wahl.Pfad, {});
            break;
        case Hinzufügeweg::Dateinamen:
            DateiMitDateinamenLesen(Programm, Wahl.Pfad, {});
            break;
        case Hinzufügeweg::Zwischenablage:
            ZwischenablageHinzufügen(Programm, Wahl.Text);
            break;
    }
}

}  // namespace

void HinzufügewahlAusführen(Anwendung& Programm, const Hinzufügewahl& Wahl) {
    const Satznummer Vorher = Programm.Index.IndexAnzahl();
    Hinzufügen(Programm, Wahl);
    const Satznummer Neue = Programm.Index.IndexAnzahl() - Vorher;
    if (!Wahl.Kopieren || Neue <= 0) return;
    std::vector<Satznummer> Nummern(static_cast<std::size_t>(Neue));
    std::iota(Nummern.begin(), Nummern.end(), Vorher + 1);
    const Einstellungen& Werte = Programm.Werte;
    KopierenLauf(Programm, Nummern,
                 {Werte.KopierenOrdner, Werte.KopierenStrukturÜbernehmen == 1, Werte.KopierenModus == 1,
                  Werte.KopierenÜberschreiben});
}

}  // namespace liedwerk
