#include "medien/cdtitel.h"

#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"
#include "medien/id3v1.h"

namespace liedwerk {
namespace {

void GenreSetzen(const CDDaten& Daten, Datensatz& Satz) {
    const bool Nummer = Daten.ID3Genre >= 0 && static_cast<std::size_t>(Daten.ID3Genre) < GenreListe.size();
    Satz.Genre =
        Nummer ? static_cast<std::uint8_t>(Daten.ID3Genre) : GenreNummer(Daten.Kategorie).value_or(KeinGenre);
    Satz.V2Genre = Satz.Genre == KeinGenre ? CDEinzeilig(Daten.Kategorie) : std::string();
}

// A sampler's title tells its artist.
void SamplerTeilen(Datensatz& Satz) {
    if (!GleichOhneGroß(Satz.Interpret, "Various") && !GleichOhneGroß(Satz.Interpret, "Various Artists"))
        return;
    for (const std::string_view Trenner : {" / ", " - "}) {
        const std::size_t Stelle = Satz.Titel.find(Trenner);
        if (Stelle == std::string::npos) continue;
        Satz.Interpret = Satz.Titel.substr(0, Stelle);
        Satz.Titel.erase(0, Stelle + Trenner.size());
        return;
    }
}

}  // namespace

std::optional<std::int32_t> CDTitelnummer(std::string_view Pfad) {
    const std::string_view Name = DateinameVon(Pfad);
    constexpr std::string_view Anfang = "Track";
    constexpr std::size_t HöchsteStellen = 9;
    if (!BeginntMitOhneGroß(Name, Anfang)) return std::nullopt;
    const std::string_view Ziffern = DateiOhneEndung(Name).substr(Anfang.size());
    if (Ziffern.empty() || Ziffern.size() > HöchsteStellen ||
        Ziffern.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    return GanzzahlLesen<std::int32_t>(Ziffern);
}

void CDInfosLesen(std::string_view Pfad, Datensatz& Satz, const CDDaten& Daten, bool VariousErsetzen,
                  Protokoll* Log) {
    const std::string Name(DateinameVon(Pfad));
    const auto Melden = [&](const std::string& Text) {
        if (Log != nullptr) Log->Schreiben("CDInfosLesen: " + Text);
    };
    const auto Nummer = CDTitelnummer(Pfad);
    if (!Nummer) return Melden("Dateiname '" + CDEinzeilig(Name) + "' ungültig");
    Satz.HatId3v1 = Satz.HatId3v2 = Satz.HatLyrics = TagFehlt;
    if (*Nummer < 1 || *Nummer > Daten.AnzahlTitel) {
        Id3v1Leeren(Satz);
        return Melden("Titelnummer " + std::to_string(*Nummer) + " in '" + Name + "' ...");
    }
    const CDTitel& Titel = Daten.Titel[static_cast<std::size_t>(*Nummer) - 1];
    Satz.Titel = CDEinzeilig(Titel.Titel);
    Satz.Interpret = CDEinzeilig(Daten.Interpret);
    Satz.Album = CDEinzeilig(Daten.Album);
    Satz.Jahr = CDEinzeilig(Daten.Jahr);
    Satz.Titelnummer = std::to_string(*Nummer);
    GenreSetzen(Daten, Satz);
    Satz.Dauer = Titel.Dauer;
    if (VariousErsetzen) SamplerTeilen(Satz);
    Satz.HatId3v1 = TagVorhanden;
}

}  // namespace liedwerk
