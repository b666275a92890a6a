#include "suche/vervollstaendigung.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "basis/text.h"
#include "suche/verschiedenewerte.h"

namespace liedwerk {

std::vector<std::string> AutoCompleteFüllen(const Katalog& Index, std::string_view Feld, bool Auswahlliste,
                                            Oberfläche& Person, std::string_view ZweitesFeld) {
    if (!Auswahlliste || Index.IndexAnzahl() == 0 || Feld.empty() || Feld == Standardsuche) return {};
    std::vector<Feldwahl> Gefragte = {FeldFinden(Feld)};
    if (!ZweitesFeld.empty()) Gefragte.push_back(FeldFinden(ZweitesFeld));
    Person.FortschrittStarten("Sammle Werte für die Auswahlliste", true, Index.IndexAnzahl());
    auto Werte = VerschiedeneWerte(Index, Gefragte, false, {}, [&Person](std::size_t Erledigt) {
        return Person.FortschrittZeigen({}, static_cast<std::int64_t>(Erledigt));
    });
    Person.FortschrittSchließen();
    return std::move(Werte).value_or(std::vector<std::string>{});
}

std::optional<std::size_t> EintragFinden(std::string_view Text, const std::vector<std::string>& Einträge) {
    const auto Fund = std::ranges::find_if(
        Einträge, [&](const std::string& Eintrag) { return BeginntMitOhneGroß(Eintrag, Text); });
    if (Fund == Einträge.end()) return std::nullopt;
    return static_cast<std::size_t>(Fund - Einträge.begin());
}

std::optional<Vervollständigung> AutoCompleteAusführen(std::string_view Text,
                                                       const std::vector<std::string>& Einträge,
                                                       std::size_t SelStart, bool AutoCompleteVerwenden,
                                                       bool& AutoCompleteÜberspringen) {
    const bool Übersprungen = AutoCompleteÜberspringen;
    AutoCompleteÜberspringen = false;
    if (Text.empty() || Übersprungen || !AutoCompleteVerwenden) return std::nullopt;
    const auto Eintrag = EintragFinden(Text, Einträge);
    if (!Eintrag) return std::nullopt;
    const std::size_t Länge = ZeichenAnzahl(Einträge[*Eintrag]);
    const std::size_t Anfang = std::min(SelStart, Länge);
    return Vervollständigung{*Eintrag, Anfang, Länge - Anfang};
}

}  // namespace liedwerk
