#include "core/synchronwacht.h"

#include "basis/datei.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {

bool Wachtvorgabe::Gesucht(std::string_view Pfad) const {
    return DateiTypErlaubt(Dateitypen, Pfad, false, false, false, true) &&
           (NichtBei.empty() || PositionOhneGroß(DateinameVon(Pfad), NichtBei) == std::string_view::npos);
}

Wachtvorgabe WachtvorgabeVon(const Anwendung& Programm) {
    const Katalog& Index = Programm.Index;
    if (Programm.Werte.SyncBeobachten != 1 || Index.Programmmodus != ModusIndexdatei) return {};
    Wachtvorgabe Vorgabe{Index.IndexDateiname, {}, Index.Optionen.Dateitypen, Index.Optionen.SyncNichtBei};
    for (const SyncRegel& Regel : Index.Optionen.SyncOrdner)
        Vorgabe.Ordner.push_back({Regel.Ordner, Regel.Unterordner != 0});
    return Vorgabe;
}

Abgleichbedarf AbgleichbedarfPrüfen(Anwendung& Programm, const Wachtvorgabe& Vorgabe,
                                    const std::vector<std::string>& Pfade) {
    Abgleichbedarf Bedarf;
    const auto& Sätze = Programm.Index.Sätze;
    for (const std::string& Pfad : Pfade) {
        if (!Vorgabe.Gesucht(Pfad)) continue;
        const Satznummer Nummer = Programm.Pfade.ErstenFinden(Sätze, Pfad);
        const auto Datei = DateistandLesen(Pfad);
        const bool Da = Datei && Datei->IstDatei;
        if (Da && Nummer == 0) ++Bedarf.Neu;
        if (!Da && Nummer != 0 && Programm.Index.Optionen.SyncEntfernen == 1) ++Bedarf.Fehlend;
        if (Da && Nummer != 0 && Programm.Werte.SyncGeänderteLesen == 1 &&
            Sätze.Zahl(Nummer, FeldGröße) != static_cast<std::int64_t>(Datei->Größe))
            ++Bedarf.Geändert;
    }
    return Bedarf;
}

std::string Abgleichangebot(const Abgleichbedarf& Bedarf, bool Ungenau) {
    constexpr std::string_view Anfang = "In Ihren Ordnern hat sich etwas geändert";
    if (Ungenau) return std::string(Anfang) + ".";
    std::vector<std::string> Teile;
    const auto Nennen = [&](std::size_t Anzahl, std::string_view Was) {
        if (Anzahl > 0) Teile.push_back(Gruppiert(static_cast<std::int64_t>(Anzahl)).append(Was));
    };
    Nennen(Bedarf.Neu, " neue");
    Nennen(Bedarf.Fehlend, " fehlende");
    Nennen(Bedarf.Geändert, " geänderte");
    return std::string(Anfang) + ": " + Verbinden(Teile, ", ") + " Datei(en).";
}

}  // namespace liedwerk
