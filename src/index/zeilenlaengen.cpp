#include "index/zeilenlaengen.h"

#include "basis/zahl.h"
#include "index/indexformat.h"

namespace liedwerk {
namespace {

std::int64_t LängeVon(std::string_view Stück) {
    const auto Wert = Zahl(Stück);
    if (!Wert || *Wert < 0 || *Wert > static_cast<double>(HöchsteLänge)) return 0;
    return Gerundet<std::int64_t>(*Wert).value_or(0);
}

}  // namespace

Zeilenlängen LängenLesen(std::string_view Zeile, std::size_t Start, std::size_t Anzahl) {
    Zeilenlängen Ergebnis;
    const std::size_t Strich = Zeile.find('|', Start);
    if (Strich == Zeile.npos) return Ergebnis;
    Ergebnis.Strich = Strich + 1;
    std::size_t Nummer = 0;
    for (std::size_t Stelle = Start; Stelle <= Strich; ++Nummer) {
        const std::size_t Ende = std::min(Zeile.find('/', Stelle), Strich);
        const std::int64_t Länge = LängeVon(Zeile.substr(Stelle, Ende - Stelle));
        Ergebnis.Summe += Länge;
        if (Nummer < Anzahl) {
            Ergebnis.Längen[Nummer] = Länge;
        } else if (Länge > 0) {
            ++Ergebnis.Überzählige;
        }
        Stelle = Ende + 1;
    }
    return Ergebnis;
}

}  // namespace liedwerk
