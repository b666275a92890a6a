#include "medien/id3v1.h"

#include <string>

#include "basis/ansi.h"
#include "basis/zahl.h"
#include "medien/tagtext.h"

namespace liedwerk {
namespace {

// A value as a field of fixed length has it: cut, or padded.
std::string Feldtext(std::string_view Bytes, const Id3v1Feld& Feld, char Füllung = ' ') {
    std::string Text(Bytes.substr(0, Feld.Länge));
    Text.resize(Feld.Länge, Füllung);
    return Text;
}

// The two bytes behind the comment.
std::string BlockendeBilden(std::string_view Kommentar, std::string_view Nummer) {
    constexpr double HöchsteNummer = 255;
    if (Nummer.empty()) {
        return Kommentar.size() > Id3v1Kommentar.Länge
                   ? Feldtext(Kommentar.substr(Id3v1Kommentar.Länge), Id3v1Titelnummer, '\0')
                   : std::string(Id3v1Titelnummer.Länge, '\0');
    }
    const auto Wert = Zahl(Nummer);
    if (!Wert || *Wert < 0 || *Wert > HöchsteNummer) return std::string(Id3v1Titelnummer.Länge, '\0');
    return {'\0', static_cast<char>(Gerundet<std::uint8_t>(*Wert).value_or(0))};
}

}  // namespace

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

std::string Id3v1BlockBilden(const Datensatz& Satz) {
    const auto Text = [](const std::string& Wert, const Id3v1Feld& Feld) {
        return Feldtext(Utf8NachAnsiErsatz(Wert), Feld);
    };
    const std::string Kommentar = Utf8NachAnsiErsatz(Satz.Kommentar);
    std::string Block(Id3v1Kennung);
    Block += Text(Satz.Titel, Id3v1Titel);
    Block += Text(Satz.Interpret, Id3v1Interpret);
    Block += Text(Satz.Album, Id3v1Album);
    Block += Text(Satz.Jahr, Id3v1Jahr);
    Block += Kommentar.size() <= Id3v1KommentarHöchstens ? Feldtext(Kommentar, Id3v1Kommentar, '\0')
                                                         : Feldtext("", Id3v1Kommentar);
    Block += BlockendeBilden(Kommentar, Utf8NachAnsiErsatz(Satz.Titelnummer));
    Block += static_cast<char>(Satz.Genre.value_or(KeinGenre));
    return Block;
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
