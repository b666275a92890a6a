#include "abspielen/statistik.h"

#include <limits>

namespace liedwerk {

void AbspielenVermerken(Katalog& Index, Satznummer Nummer, std::string_view Zeittext) {
    Datensatz Satz = Index.Sätze.Lesen(Nummer);
    Satz.AbspielDatum = Zeittext;
    // The count stands still at the end of its range.
    if (Satz.AbspielHäufigkeit < std::numeric_limits<std::int32_t>::max()) ++Satz.AbspielHäufigkeit;
    Index.Sätze.Setzen(Nummer, Index.Sätze.Pfad(Nummer), Satz);
    Index.IndexGeändert = true;
}

Satznummer StatistikLöschen(Katalog& Index) {
    Satznummer Gelöscht = 0;
    for (Satznummer Nummer = 1; Nummer <= Index.IndexAnzahl(); ++Nummer) {
        if (Index.Sätze.Zahl(Nummer, FeldAbspielHäufigkeit) == 0 &&
            Index.Sätze.Roh(Nummer, FeldAbspielDatum).empty())
            continue;
        Datensatz Satz = Index.Sätze.Lesen(Nummer);
        Satz.AbspielDatum.clear();
        Satz.AbspielHäufigkeit = 0;
        Index.Sätze.Setzen(Nummer, Index.Sätze.Pfad(Nummer), Satz);
        ++Gelöscht;
    }
    if (Gelöscht > 0) Index.IndexGeändert = true;
    return Gelöscht;
}

}  // namespace liedwerk
