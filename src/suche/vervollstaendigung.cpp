#include "suche/vervollstaendigung.h"

#include <algorithm>

#include "basis/text.h"
#include "suche/verschiedenewerte.h"

namespace liedwerk {

std::vector<std::string> AutoCompleteFüllen(const Katalog& Index, std::string_view Feld, bool Auswahlliste,
                                            std::string_view ZweitesFeld) {
    if (!Auswahlliste || Feld.empty() || Feld == Standardsuche) return {};
    std::vector<Feldwahl> Gefragte = {FeldFinden(Feld)};
    if (!ZweitesFeld.empty()) Gefragte.push_back(FeldFinden(ZweitesFeld));
    return VerschiedeneWerte(Index, Gefragte, false);
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
