#include "core/tageditorfelder.h"

#include <algorithm>

#include "basis/text.h"
#include "index/genres.h"

namespace liedwerk {
namespace {

using enum Tagblatt;
using enum Tagfeldart;
using D = Datensatz;

// Keys are unique among what is visible at the same time: a sheet and what stands around all sheets.
constexpr std::array Felder = {
    Tagfeld{Id3v1, "txtTitel", "&Titel:", &D::Titel, 30},
    Tagfeld{Id3v1, "txtInterpret", "Inter&pret:", &D::Interpret, 30},
    Tagfeld{Id3v1, "txtAlbum", "Al&bum:", &D::Album, 30},
    Tagfeld{Id3v1, "txtJahr", "&Jahr:", &D::Jahr, 4, Kurz},
    Tagfeld{Id3v1, "txtTitelnummer", "Tit&elnummer:", &D::Titelnummer, 3, Kurz},
    Tagfeld{Id3v1, "txtKommentar", "&Kommentar:", &D::Kommentar, 30},

    Tagfeld{Id3v2, "txtv2Titel", "&Titel:", &D::V2Titel},
    Tagfeld{Id3v2, "txtv2Interpret", "Inter&pret:", &D::V2Interpret},
    Tagfeld{Id3v2, "txtv2Album", "Al&bum:", &D::V2Album},
    Tagfeld{Id3v2, "txtv2Jahr", "&Jahr:", &D::V2Jahr, 0, Kurz},
    Tagfeld{Id3v2, "txtv2Titelnummer", "Tit&elnummer:", &D::V2Titelnummer, 0, Kurz},
    Tagfeld{Id3v2, "cbov2Musikrichtung", "Musikrichtun&g:", &D::V2Genre, 0, Genre},
    Tagfeld{Id3v2, "txtv2Kommentar", "&Kommentar:", &D::V2Kommentar, 0, Absatz},

    Tagfeld{Id3v2Weitere, "txtv2UrsprünglicherInterpret",
            "Ursprünglicher In&terpret:", &D::V2UrsprünglicherInterpret},
    Tagfeld{Id3v2Weitere, "txtv2Songschreiber", "Songschrei&ber:", &D::V2Songschreiber},
    Tagfeld{Id3v2Weitere, "txtv2Herausgeber", "Heraus&geber:", &D::V2Herausgeber},
    Tagfeld{Id3v2Weitere, "txtv2Copyright", "Cop&yright:", &D::V2Copyright},
    Tagfeld{Id3v2Weitere, "txtv2Link", "Lin&k:", &D::V2Link},
    Tagfeld{Id3v2Weitere, "txtv2Sprache", "S&prache:", &D::V2Sprache},
    Tagfeld{Id3v2Weitere, "txtv2EncodiertVon", "Enco&diert von:", &D::V2EncodiertVon},
    Tagfeld{Id3v2Weitere, "txtv2Software", "Soft&ware:", &D::V2Software},
    Tagfeld{Id3v2Weitere, "txtv2Medientyp", "&Medientyp:", &D::V2Medientyp},
    Tagfeld{Id3v2Weitere, "txtv2Länge", "L&änge (ms):", &D::V2Länge},
    Tagfeld{Id3v2Weitere, "txtv2AbspielZähler", "Abspi&elzähler:", &D::V2AbspielZähler},

    Tagfeld{Lyrics, "txtLiedertext", "Lieder&text:", &D::LyricsText, 0, Absatz},
};

std::string ZeilenendenEinfach(std::string_view Text) {
    return Ersetzen(Ersetzen(Text, "\r\n", "\n"), "\r", "\n");
}

}  // namespace

std::span<const Tagfeld> Tagfelder() {
    return Felder;
}

Tagblock BlockVon(Tagblatt Blatt) {
    switch (Blatt) {
        case Id3v1:
            return Tagblock::Id3v1;
        case Lyrics:
            return Tagblock::Lyrics;
        case Id3v2:
        case Id3v2Weitere:
            break;
    }
    return Tagblock::Id3v2;
}

std::string Feldtext(const Datensatz& Satz, const Tagfeld& Feld) {
    const std::string& Wert = Satz.*Feld.Wert;
    if (Feld.Art == Genre) return GenreOhneZahl(Wert);
    return ZeilenendenEinfach(Wert);
}

void FeldEintragen(Datensatz& Arbeit, const Datensatz& Gelesen, const Tagfeld& Feld, std::string_view Text) {
    std::string& Wert = Arbeit.*Feld.Wert;
    if (Text == Feldtext(Arbeit, Feld)) return;
    if (Text == Feldtext(Gelesen, Feld)) {
        Wert = Gelesen.*Feld.Wert;
    } else {
        // Lyrics3 ends its lines with CR LF, ID3v2 with LF.
        Wert = Feld.Blatt == Lyrics ? Ersetzen(Text, "\n", "\r\n") : std::string(Text);
    }
}

void BlockÜbernehmen(Datensatz& Ziel, const Datensatz& Quelle, Tagblock Block) {
    if (Block == Tagblock::Id3v1) Ziel.Genre = Quelle.Genre;
    if (Block == Tagblock::Id3v2) Ziel.V2Qualität = Quelle.V2Qualität;
    for (const Tagfeld& Feld : Felder) {
        if (BlockVon(Feld.Blatt) == Block) Ziel.*Feld.Wert = Quelle.*Feld.Wert;
    }
}

std::vector<Genrezeile> Genrezeilen(const Einstellungen& Werte, bool MitEigenen) {
    std::vector<Genrezeile> Alle;
    for (std::size_t Nummer = 0; Nummer < GenreListe.size(); ++Nummer)
        Alle.push_back({std::string(GenreListe[Nummer]), static_cast<std::uint8_t>(Nummer), false});
    std::vector<Genrezeile> Zeilen;
    if (Werte.GenreBevorzugteLeer == 0) {
        for (const std::string& Name : Werte.GenreBevorzugte) {
            const auto Nummer = GenreNummer(Name);
            if (Nummer || MitEigenen) Zeilen.push_back({Name, Nummer, true});
        }
    }
    std::stable_sort(Alle.begin(), Alle.end(), [](const Genrezeile& A, const Genrezeile& B) {
        return Falten(A.Name) < Falten(B.Name);
    });
    Zeilen.insert(Zeilen.end(), Alle.begin(), Alle.end());
    return Zeilen;
}

}  // namespace liedwerk
