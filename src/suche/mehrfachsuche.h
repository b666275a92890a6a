// Batch search ("Mehrfachsuche"): many searches at once, one a line, for example the tracks of a CD.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

// The information box of cmdVerarbeiten when the text holds no query.
inline constexpr std::string_view MehrfachsucheOhneAbfrage =
    "Ihre Eingabe konnte nicht verarbeitet werden.\nBitte geben Sie mindestens eine Such-Abfrage ein und "
    "trennen Sie Abfragen durch Zeilenumbrüche.";

// The cleaned queries of the lines that are not empty. A line of nothing but punctuation gives an empty one.
std::vector<std::string> AbfragenZerlegen(std::string_view Text);

// A row of lstResultate with its files; those in focus make the rows of lstResultateDetails.
struct Mehrfachresultat {
    std::string Abfrage;
    std::string Resultat;             // the text of the second column
    std::vector<Satznummer> Nummern;  // rising
};
// Searches for each query by itself in the standard text; each gives a row. The event loop has a turn every
// few rows; when the Fortschritt that it shows is cancelled, the rows so far are the answer.
std::vector<Mehrfachresultat> MehrfachSuchen(const Katalog& Index, Suchpuffer& Puffer,
                                             const std::vector<std::string>& Abfragen, Oberfläche& Person);

}  // namespace liedwerk
