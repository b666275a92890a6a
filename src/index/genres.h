// The names of the ID3v1 genres.
#pragma once

#include <array>
#include <string_view>

namespace liedwerk {

// The name of genre number n stands at place n (0-based). Numbers 0 to 134 are the published list of ID3v1
// genres with its usual extensions. Kept: behind it the list differs from the published one (135 skips a
// word, 142 is a second "Dance Hall"), and some names are mis-spelt; files and indexes hold them like that.
extern const std::array<std::string_view, 145> GenreListe;

}  // namespace liedwerk
