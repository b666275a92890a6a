// Lists of file names (play lists, plain texts, the clipboard): the names in them, and the files they mean.
//
// ListeZerlegen takes the bytes apart, name by name; NamenAuflösen looks on the disk for what a name may
// mean, since such a list often comes from another program, another system or another place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

enum class Listenart {
    M3u,    // a name a line, "#" before remarks
    Pls,    // "File1=name" under "[playlist]"
    Namen,  // any text: a name a line, or in columns between tabulators or quotes
};

// True for a name that adding takes for a play list: ".pls", ".m3u" or ".m3u8" at its end, in exactly this
// spelling.
bool IstPlayliste(std::string_view Pfad);
// The kind of a play list by its extension, in any spelling: ".pls" or, for all others, M3u.
Listenart PlaylistenArt(std::string_view Pfad);

// A name as a list gives it: its bytes as they stand, without a line end.
struct Listenname {
    std::string Text;
    bool NurVorhanden = false;  // may be something else (a remark): counts only if there is such a file
    bool operator==(const Listenname&) const = default;
};

// What a list held beside its names.
struct Listenbilanz {
    std::size_t Ströme = 0;  // addresses on the net
    std::size_t ZuLang = 0;  // lines that are longer than any path, or hold a zero byte
    bool Gekürzt = false;    // it has more names than ListennamenHöchstens; the others were left out
};

// So many names of one list count.
inline constexpr std::size_t ListennamenHöchstens = 1'000'000;

// Takes one name after the other, in the order of the list, with the number of bytes of it that have been
// gone through; false ends the list.
using Namensempfänger = std::function<bool(const Listenname& Name, std::size_t Bytes)>;

// Hands the names in the bytes of a list to Empfänger. Lines end with CR, LF or both; a byte-order mark of
// UTF-8 or UTF-16 is understood. Of names that nobody keeps, none is held in memory.
Listenbilanz ListeZerlegen(std::string_view Bytes, Listenart Art, const Namensempfänger& Empfänger);

// A path that a name stands for.
struct Namensfund {
    std::string Pfad;
    bool Existiert = false;
    bool operator==(const Namensfund&) const = default;
};

// What has been found in one list.
struct Namensfunde {
    std::string Quelle;  // path of the list; empty for the clipboard
    std::vector<Namensfund> Zeilen;
    std::size_t Ströme = 0;
    std::size_t ZuLang = 0;
    bool Gekürzt = false;  // the list was too long; its end was not read
};

// Of a longer list only so many bytes are read, and the paths found in one hold no more than so many.
inline constexpr std::uint64_t ListeHöchstens = 64ULL << 20;
inline constexpr std::uint64_t FundeHöchstens = 256ULL << 20;

// Where a list lies: its folder, and the drive that holds it (no name is looked for outside of it but by its
// full path). Both empty for a list without a place.
struct Listenort {
    std::string Ordner;
    std::string Laufwerk;
};

// The file that a name means. Tried are, in this order: the name as it stands (an address, a full path, a
// path from the list's folder with either kind of separator), and for a full path of another system or of
// another place of the medium its rear parts below the list's folder and those above it. Each also with
// "%20" and the like resolved, and in the other text encoding. If nothing is there, the first path that was
// tried, marked as missing; nothing for a mere remark.
std::optional<Namensfund> NamenAuflösen(const Listenname& Name, const Listenort& Ort);

// Name correction: gives each missing row the path of a found file with the same name, in any spelling.
struct Namenskorrektur {
    std::size_t Fehlend = 0;
    std::size_t Korrigiert = 0;
};
Namenskorrektur NamenKorrigieren(Namensfunde& Funde, const std::vector<std::string>& FundListe);

}  // namespace liedwerk
