// The seven fields that ID3v1 and ID3v2 have in common: one table, for whatever works on a field of either
// tag.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "index/datensatz.h"
#include "medien/medienlesen.h"

namespace liedwerk {

struct Grundfeld {
    std::string_view Name;
    std::string Datensatz::*V1;  // nullptr for the genre, which is a number there
    std::string Datensatz::*V2;
    bool MitSchreibweise;  // a text of words, which Schreibweise makes readable
};

// In the order in which they are offered.
extern const std::array<Grundfeld, 7> Grundfelder;
// The entry of this name, compared without regard to case; nullptr when there is none.
const Grundfeld* GrundfeldFinden(std::string_view Name);

// The text of a field in one tag (Id3v1 or Id3v2); the genre by its name, empty when it has none.
std::string GrundfeldLesen(const Datensatz& Satz, const Grundfeld& Feld, Tagblock Tag);
// Sets it. A genre without a number becomes KeinGenre in ID3v1; GenreHatNummer tells before.
void GrundfeldSetzen(Datensatz& Satz, const Grundfeld& Feld, Tagblock Tag, std::string_view Text);

// True when ID3v1 can hold this text as its genre: it is empty, or a name or "(n)name" of GenreListe.
bool GenreHatNummer(std::string_view Text);

}  // namespace liedwerk
