// Stored queries: a query set under a name, as one line of the settings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "suche/abfrage.h"

namespace liedwerk {

struct GespeicherteSuche {
    std::string Name;
    Suchabfragen Menge;
    bool operator==(const GespeicherteSuche& Andere) const {
        return Name == Andere.Name && Menge.Liste == Andere.Menge.Liste;
    }
};

// Name, then field, code and text of each query, separated by tabulators; one within a text becomes a blank.
std::string SuchzeileBilden(const GespeicherteSuche& Suche);
// Nothing when the line holds no name or no whole query.
std::optional<GespeicherteSuche> SuchzeileZerlegen(std::string_view Zeile);
// Puts the query into the list of lines, in place of one with the same name.
void SucheAblegen(std::vector<std::string>& Zeilen, const GespeicherteSuche& Suche);

}  // namespace liedwerk
