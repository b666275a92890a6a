// The file-type table of an index: which extensions are managed and what kind of media they are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// Entry "<extension>=<1 managed, 0 not>", "*=..." for all other formats; Flags three times "1" or "0": MPEG
// audio with ID3 tags, media file for the player, picture for the built-in viewer.
struct Dateityp {
    std::string Eintrag;
    std::string Schalter;
    bool operator==(const Dateityp&) const = default;
};

// The default table, in its order.
const std::vector<Dateityp>& DateitypenVorgabe();
// The same with the further formats that a person can switch on, where MitWeiteren says so.
std::vector<Dateityp> Grundtypen(bool MitWeiteren);
// Those of them whose extension the table does not name.
std::vector<Dateityp> FehlendeGrundtypen(const std::vector<Dateityp>& Dateitypen, bool MitWeiteren);
// True for the extension (with its dot) of a further format.
bool IstWeiteresFormat(std::string_view Endung);

// So many entries of a table decide, half of them at its beginning and half at its end, where those of the
// program stand. No person has as many; a longer table stays whole, but no file costs a walk through it.
inline constexpr std::size_t HöchsteTypen = 1000;

// The first deciding entry of the table for an extension (without its dot, in any spelling); none: nullptr.
const Dateityp* TypFinden(const std::vector<Dateityp>& Dateitypen, std::string_view Endung);

// The file-type test. The first entry whose extension equals the path's (without regard to case) decides.
bool DateiTypErlaubt(const std::vector<Dateityp>& Dateitypen, std::string_view Pfad, bool NurMpeg,
                     bool NurBilder, bool NurAudio, bool NurVerwaltete);

// The extension of an entry: the part before "=".
std::string_view EintragsEndung(std::string_view Eintrag);

}  // namespace liedwerk
