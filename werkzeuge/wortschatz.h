// Invented artists, albums and titles, for collections and indexes that look like a person's own.
#pragma once

#include <string>
#include <string_view>

#include "werkzeuge/zufall.h"

namespace liedwerk::werkzeug {

// Texts are UTF-8; a good part has umlauts, and one artist in two hundred a name outside of Windows-1252.
std::string KünstlerBilden(Zufall& Würfel);
std::string AlbumBilden(Zufall& Würfel);
std::string TitelBilden(Zufall& Würfel);
std::string KommentarBilden(Zufall& Würfel);
std::string VerlagBilden(Zufall& Würfel);

// A genre of ID3v1 with its number.
struct Genrewahl {
    int Nummer;
    std::string_view Name;
};
Genrewahl GenreWählen(Zufall& Würfel);

// Text as part of a file name: the characters that file systems refuse become "_".
std::string Namensteil(std::string Text);

}  // namespace liedwerk::werkzeug
