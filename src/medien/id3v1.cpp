#include "medien/id3v1.h"

#include <string>

#include "basis/ansi.h"
#include "medien/tagtext.h"

namespace liedwerk {

std::string_view Id3v1Lesen(std::string_view Dateiende) {
    if (Dateiende.size() < Id3v1Größe) return {};
    const std::string_view Block = Dateiende.substr(Dateiende.size() - Id3v1Größe);
    return Block.starts_with(Id3v1Kennung) ? Block : std::string_view();
}

void Id3v1Auswerten(std::string_view Block, bool ZeilenEntfernen, Datensatz& Satz) {
    const auto Text = [&](const Id3v1Feld& Feld) {
        return AnsiNachUtf8(TextBereinigen(Feld.Aus(Block), true));
    };
    Satz.TagKennung = Id3v1Kennung;
    Satz.Titel = Text(Id3v1Titel);
    Satz.Interpret = Text(Id3v1Interpret);
    Satz.Album = Text(Id3v1Album);
    Satz.Jahr = Text(Id3v1Jahr);

    std::string Kommentar = TextBereinigen(Id3v1Kommentar.Aus(Block), ZeilenEntfernen);
    const std::string_view Ende = Id3v1Titelnummer.Aus(Block);
    Satz.Titelnummer.clear();
    if (Ende[0] == '\0') {
        const auto Nummer = static_cast<unsigned char>(Ende[1]);
        if (Nummer != 0) Satz.Titelnummer = std::to_string(Nummer);
    } else if (Kommentar.size() == Id3v1Kommentar.Länge) {
        Kommentar += TextBereinigen(Ende, ZeilenEntfernen);
    }
    Satz.Kommentar = AnsiNachUtf8(Kommentar);

    const auto Genre = static_cast<std::uint8_t>(Id3v1Genre.Aus(Block)[0]);
    Satz.Genre = Genre < Id3v1GenreEnde ? Genre : KeinGenre;
    Satz.HatId3v1 = TagVorhanden;
}

void Id3v1Leeren(Datensatz& Satz) {
    for (auto Feld : {&Datensatz::TagKennung, &Datensatz::Titel, &Datensatz::Interpret, &Datensatz::Album,
                      &Datensatz::Jahr, &Datensatz::Kommentar, &Datensatz::Titelnummer}) {
        (Satz.*Feld).clear();
    }
    Satz.Genre.reset();
    Satz.HatId3v1 = TagFehlt;
}

}  // namespace liedwerk
