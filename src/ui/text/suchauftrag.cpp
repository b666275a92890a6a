#include "ui/text/suchauftrag.h"

#include "suche/feldwert.h"
#include "ui/text/lauf.h"

namespace liedwerk {

void FeldPrüfen(const std::string& Feld) {
    if (!Feld.empty() && !FeldFinden(Feld).Bekannt)
        Fehlermelden("Hinweis: Das Feld '" + Feld + "' gibt es nicht; es gilt als leer.");
}

std::optional<Suchabfrage> AbfrageLesen(const std::string& Text) {
    const std::size_t Erster = Text.find('|');
    const std::size_t Zweiter = Erster == std::string::npos ? Erster : Text.find('|', Erster + 1);
    if (Zweiter == std::string::npos) return std::nullopt;
    return Suchabfrage{Text.substr(0, Erster), Text.substr(Zweiter + 1),
                       Text.substr(Erster + 1, Zweiter - Erster - 1)};
}

void AbfragenÜbernehmen(Anwendung& Programm, const std::vector<Suchabfrage>& Abfragen) {
    const std::string Standard(Standardcode(Programm.Werte.SucheAlsWortStandard == 1));
    for (const auto& Abfrage : Abfragen)
        SucheHinzufügen(Programm.Abfragen, Abfrage.Begriff, Abfrage.Feld,
                        Abfrage.Code.empty() ? Standard : Abfrage.Code);
}

std::vector<Satznummer> TrefferSammeln(const Katalog& Index) {
    std::vector<Satznummer> Treffer;
    if (Index.ErsterTreffer < 1 || Index.IndexAnzahl() == 0) return Treffer;
    for (Satznummer Nummer = Index.ErsterTreffer; Nummer <= Index.LetzterTreffer; ++Nummer) {
        if (Index.IndexTreffer[static_cast<std::size_t>(Nummer - 1)] > 0) Treffer.push_back(Nummer);
    }
    return Treffer;
}

}  // namespace liedwerk
