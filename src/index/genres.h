// The names of the ID3v1 genres.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// The name of genre number n stands at place n (0-based). Numbers 0 to 134 are the published list of ID3v1
// genres with its usual extensions. Kept: behind it the list differs from the published one (135 skips a
// word, 142 is a second "Dance Hall"), and some names are mis-spelt; files and indexes hold them like that.
extern const std::array<std::string_view, 145> GenreListe;

// The name that stands for the number of a record; empty for a number without one. Kept: the last name of the
// list is never shown.
std::string_view GenreNameVon(std::int64_t Nummer);

// The number of a name, compared as a whole without regard to case; the first of two alike. Nothing for
// another text.
std::optional<std::uint8_t> GenreNummer(std::string_view Name);
// The name in a genre text of ID3v2: "Rock" for "(17)" and for "(17)Rock", any other text as it stands.
std::string GenreOhneZahl(std::string_view Text);

}  // namespace liedwerk
