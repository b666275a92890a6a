#include "medien/grundfelder.h"

#include <algorithm>

#include "basis/text.h"
#include "index/genres.h"

namespace liedwerk {

using D = Datensatz;

const std::array<Grundfeld, 7> Grundfelder = {
    Grundfeld{"Titel", &D::Titel, &D::V2Titel, true},
    Grundfeld{"Interpret", &D::Interpret, &D::V2Interpret, true},
    Grundfeld{"Album", &D::Album, &D::V2Album, true},
    Grundfeld{"Jahr", &D::Jahr, &D::V2Jahr, false},
    Grundfeld{"Titelnummer", &D::Titelnummer, &D::V2Titelnummer, false},
    Grundfeld{"Genre", nullptr, &D::V2Genre, false},
    Grundfeld{"Kommentar", &D::Kommentar, &D::V2Kommentar, true},
};

const Grundfeld* GrundfeldFinden(std::string_view Name) {
    const auto* Fund = std::find_if(Grundfelder.begin(), Grundfelder.end(),
                                    [&](const Grundfeld& Feld) { return GleichOhneGroß(Feld.Name, Name); });
    return Fund == Grundfelder.end() ? nullptr : Fund;
}

std::string GrundfeldLesen(const Datensatz& Satz, const Grundfeld& Feld, Tagblock Tag) {
    if (Feld.V1 == nullptr) {
        if (Tag == Tagblock::Id3v2) return GenreOhneZahl(Satz.*Feld.V2);
        const std::size_t Nummer = Satz.Genre.value_or(KeinGenre);
        return Nummer < GenreListe.size() ? std::string(GenreListe[Nummer]) : std::string();
    }
    return Tag == Tagblock::Id3v1 ? Satz.*Feld.V1 : Satz.*Feld.V2;
}

void GrundfeldSetzen(Datensatz& Satz, const Grundfeld& Feld, Tagblock Tag, std::string_view Text) {
    if (Tag == Tagblock::Id3v2)
        Satz.*Feld.V2 = Text;
    else if (Feld.V1 != nullptr)
        Satz.*Feld.V1 = Text;
    else
        Satz.Genre = GenreNummer(GenreOhneZahl(Text)).value_or(KeinGenre);
}

bool GenreHatNummer(std::string_view Text) {
    return Text.empty() || GenreNummer(GenreOhneZahl(Text)).has_value();
}

}  // namespace liedwerk
