#include "basis/speicherrest.h"

#include <cerrno>

#include "basis/dateiname.h"

namespace liedwerk {
std::string TagTemporärname(std::string_view Pfad) {
    return PfadMitEndung(Pfad, TagTemporärEndung);
}

std::string TagGesichertname(std::string_view Pfad) {
    return PfadMitEndung(Pfad, "~lwineu");
}

Dateifehler UnterbrochenesSpeichern(std::string_view Pfad) {
    const std::string Gesichert = TagGesichertname(VerweiseAuflösen(Pfad));
    // A link that leads nowhere is not passed over either: what is written under that name would go there.
    if (SperreLesen(Gesichert) == Sperrzustand::Keine) return {};
    return {EEXIST, "Ein früheres Speichern wurde unterbrochen; der vollständige Inhalt liegt in '" +
                        Gesichert + "'. Schließen Sie das Speichern ab oder löschen Sie diese Datei"};
}

}  // namespace liedwerk
