#include "dateien/mediumblick.h"

namespace liedwerk {
namespace {

constexpr std::int64_t Gültigkeit = 5;  // seconds

// The label stands first in the stored text; the id of an audio CD, which would have to be read, behind it.
bool Eingelegt(const Mediumumgebung& Umgebung, const std::string& Laufwerk, std::string_view Gespeichert) {
    if (!LaufwerkExistiert(Umgebung, Laufwerk)) return false;
    Mediumspeicher Eigener;
    const std::string Name = WechselmediumLesen(Eigener, Umgebung, Laufwerk, false);
    return !Name.empty() && Gespeichert.starts_with(Name);
}

}  // namespace

bool MediumFehlt(Mediumblick& Blick, const Mediumumgebung& Umgebung, const Katalog& Index, Satznummer Nummer,
                 std::int64_t Sekunde) {
    std::string Medium = Index.Sätze.Text(Nummer, FeldWechselmedium);
    if (Medium.empty()) return false;
    const std::string Laufwerk = LaufwerkDesPfades(Umgebung, Index.Sätze.Pfad(Nummer));
    const auto [Stelle, Neu] = Blick.Antworten.try_emplace({Laufwerk, Medium});
    if (Neu || Sekunde - Stelle->second.Sekunde >= Gültigkeit)
        Stelle->second = {Sekunde, !Eingelegt(Umgebung, Laufwerk, Medium)};
    return Stelle->second.Fehlt;
}

}  // namespace liedwerk
