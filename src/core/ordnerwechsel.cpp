#include "core/ordnerwechsel.h"

#include "basis/datei.h"
#include "core/laden.h"

namespace liedwerk {

bool OrdnerWechseln(Anwendung& Programm, Satznummer Nummer) {
    if (Programm.Index.Programmmodus != ModusDateimanager) return false;
    const std::string Ordner = Programm.Index.Sätze.Pfad(Nummer);
    if (!OrdnerExistiert(Ordner)) return false;
    // A search for something in the old folder would hide what is in the new one.
    Programm.Dienst.Fenster.SuchzeileLeeren();
    SucheZurücksetzen(Programm.Abfragen);
    AndereDateiLaden(Programm, Ordner);
    return true;
}

}  // namespace liedwerk
