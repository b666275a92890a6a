#include "index/genres.h"

#include <algorithm>

#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {

const std::array<std::string_view, 145> GenreListe = {
    "Blues",
    "Classic Rock",
    "Country",
    "Dance",
    "Disco",
    "Funk",
    "Grunge",
    "Hip-Hop",
    "Jazz",
    "Metal",
    "New Age",
    "Oldies",
    "Other",
    "Pop",
    "R&B",
    "Rap",
    "Reggae",
    "Rock",
    "Techno",
    "Industrial",
    "Alternative",
    "Ska",
    "Death Metal",
    "Pranks",
    "Soundtrack",
    "Euro-Techno",
    "Ambient",
    "Trip-Hop",
    "Vocal",
    "Jazz+Funk",
    "Fusion",
    "Trance",
    "Classical",
    "Instrumental",
    "Acid",
    "House",
    "Game",
    "Sound Clip",
    "Gospel",
    "Noise",
    "Alt. Rock",
    "Bass",
    "Soul",
    "Punk",
    "Space",
    "Meditative",
    "Instrumental Pop",
    "Instrumental Rock",
    "Ethnic",
    "Gothic",
    "Darkwave",
    "Techno-Industrial",
    "Electronic",
    "Pop-Folk",
    "Eurodance",
    "Dream",
    "Southern Rock",
    "Comedy",
    "Cult",
    "Gangsta",
    "Top 40",
    "Christian Rap",
    "Pop/Funk",
    "Jungle",
    "Native American",
    "Cabaret",
    "New Wave",
    "Psychadelic",
    "Rave",
    "Showtunes",
    "Trailer",
    "Lo-Fi",
    "Tribal",
    "Acid Punk",
    "Acid Jazz",
    "Polka",
    "Retro",
    "Musical",
    "Rock & Roll",
    "Hard Rock",
    "Folk",
    "Folk/Rock",
    "National Folk",
    "Swing",
    "Fast Fusion",
    "Bebob",
    "Latin",
    "Revival",
    "Celtic",
    "Bluegrass",
    "Avantgarde",
    "Gothic Rock",
    "Progressive Rock",
    "Psychedelic Rock",
    "Symphonic Rock",
    "Slow Rock",
    "Big Band",
    "Chorus",
    "Easy Listening",
    "Acoustic",
    "Humor",
    "Speech",
    "Chanson",
    "Opera",
    "Chamber Music",
    "Sonata",
    "Symphony",
    "Booty Bass",
    "Primus",
    "Porn Groove",
    "Satire",
    "Slow Jam",
    "Club",
    "Tango",
    "Samba",
    "Folklore",
    "Ballad",
    "Power Ballad",
    "Rhythmic Soul",
    "Freestyle",
    "Duet",
    "Punk Rock",
    "Drum Solo",
    "A capella",
    "Euro-House",
    "Dance Hall",
    "Goa",
    "Drum & Bass",
    "Club-House",
    "Hardcore",
    "Terror",
    "Indie",
    "BritPop",
    "Negerpunk",
    "Polsk Punk",
    "Christian Gangsta Rap",
    "Heavy Metal",
    "Black Metal",
    "Crossover",
    "Contemporary Christian",
    "Christian Rock",
    "Merengue",
    "Dance Hall",
    "Salsa",
    "Thrash Metal",
};

std::string_view GenreNameVon(std::int64_t Nummer) {
    const bool Benannt = Nummer >= 0 && Nummer + 1 < static_cast<std::int64_t>(GenreListe.size());
    return Benannt ? GenreListe[static_cast<std::size_t>(Nummer)] : std::string_view();
}

std::optional<std::uint8_t> GenreNummer(std::string_view Name) {
    const auto* Fund = std::find_if(GenreListe.begin(), GenreListe.end(),
                                    [&](std::string_view Eines) { return GleichOhneGroß(Eines, Name); });
    if (Fund == GenreListe.end()) return std::nullopt;
    return static_cast<std::uint8_t>(Fund - GenreListe.begin());
}

std::string GenreOhneZahl(std::string_view Text) {
    const std::size_t Ende = Text.find(')');
    if (!Text.starts_with('(') || Ende == Text.npos) return std::string(Text);
    const std::string_view Ziffern = Text.substr(1, Ende - 1);
    if (Ziffern.find_first_not_of("0123456789") != Ziffern.npos) return std::string(Text);
    const auto Nummer = GanzzahlLesen<std::uint16_t>(Ziffern);
    if (!Nummer || *Nummer >= GenreListe.size()) return std::string(Text);
    const std::string_view Rest = Text.substr(Ende + 1);
    const std::string_view Name = GenreListe[*Nummer];
    return std::string(Rest.empty() || GleichOhneGroß(Rest, Name) ? Name : Text);
}

}  // namespace liedwerk
