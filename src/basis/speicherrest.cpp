#include "basis/speicherrest.h"

#include <cerrno>

#include "basis/dateiname.h"
#include "basis/pfad.h"

namespace liedwerk {
namespace {

// A path with something behind it. A name that is too long for that on common file systems is shortened and
// told from others of the same beginning by a number of the whole of it.
std::string MitEndung(std::string_view Pfad, std::string_view Endung) {
    constexpr std::size_t HöchsterName = 255;
    const std::string_view Name = DateinameVon(Pfad);
    if (Name.size() + Endung.size() <= HöchsterName) return std::string(Pfad).append(Endung);
    const std::string Schluss = "~" + KennzahlText(Name) + std::string(Endung);
    Pfad.remove_suffix(Name.size() + Schluss.size() - HöchsterName);
    // Not in the midst of a character.
    while ((static_cast<unsigned char>(Pfad.back()) & 0xC0U) == 0x80U)
        Pfad.remove_suffix(1);
    if (static_cast<unsigned char>(Pfad.back()) >= 0xC0U) Pfad.remove_suffix(1);
    return std::string(Pfad) + Schluss;
}

}  // namespace

std::string TagTemporärname(std::string_view Pfad) {
    return MitEndung(Pfad, TagTemporärEndung);
}

std::string TagGesichertname(std::string_view Pfad) {
    return MitEndung(Pfad, "~lwineu");
}

Dateifehler UnterbrochenesSpeichern(std::string_view Pfad) {
    const std::string Gesichert = TagGesichertname(VerweiseAuflösen(Pfad));
    // A link that leads nowhere is not passed over either: what is written under that name would go there.
    if (SperreLesen(Gesichert) == Sperrzustand::Keine) return {};
    return {EEXIST, "Ein früheres Speichern wurde unterbrochen; der vollständige Inhalt liegt in '" +
                        Gesichert + "'. Schließen Sie das Speichern ab oder löschen Sie diese Datei"};
}

}  // namespace liedwerk
