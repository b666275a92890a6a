#include "medien/ogg.h"

#include <algorithm>
#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"
#include "medien/tagtext.h"

namespace liedwerk {
namespace {

constexpr auto Nirgends = std::string_view::npos;

// Place of the marker in Bytes, which begin at a multiple of the block length.
std::size_t MarkeSuchen(std::string_view Bytes) {
    std::size_t Stelle = Bytes.find(OggKommentarmarke);
    while (Stelle != Nirgends && Stelle % OggBlock + OggKommentarmarke.size() > OggBlock) {
        Stelle = Bytes.find(OggKommentarmarke, Stelle + 1);
    }
    return Stelle;
}

// The bytes from the comment header on; empty when there is none.
std::string KommentareSuchen(Dateianfang& Anfang) {
    const Lesedatei& Datei = Anfang.Quelle();
    const std::size_t Fund = MarkeSuchen(Anfang.Bis(2 * OggBlock));
    if (Fund != Nirgends) return std::string(Anfang.Bis(Fund + OggTextlänge).substr(Fund));
    constexpr std::uint64_t Stück = 128 * OggBlock;
    const std::uint64_t Ende = std::min(Datei.Größe(), OggSuchbereich);
    for (std::uint64_t Stelle = 0; Stelle < Ende; Stelle += Stück) {
        const std::size_t Marke = MarkeSuchen(Datei.Lesen(Stelle, Stück));
        if (Marke != Nirgends) return Datei.Lesen(Stelle + Marke, OggTextlänge);
    }
    return {};
}

// The text with the letters A to Z small; keys are ASCII, so nothing else needs folding.
std::string Kleingeschrieben(std::string_view Text) {
    std::string Klein(Text);
    for (char& Zeichen : Klein) {
        if (Zeichen >= 'A' && Zeichen <= 'Z') Zeichen = static_cast<char>(Zeichen + ('a' - 'A'));
    }
    return Klein;
}

// The value that begins the text, without the first byte of the next comment's length (four bytes,
// little-endian), which stands in front of its NULs.
std::string_view WertAbgrenzen(std::string_view Text) {
    const std::size_t Nullen = Text.find(std::string_view("\0\0\0", 3));
    const std::size_t Eins = Text.find('\1');
    const std::size_t Ende = std::min({Nullen, Eins, Text.find(OggFolgemarke), Text.size()});
    const std::string_view Folge = Text.substr(Ende);
    // Below 256 the length is a byte and three NULs, below 512 a byte, code 1 and two NULs. With one NUL
    // more the bytes found are the whole length, of 0 or 1, and the byte ahead belongs to the value.
    const bool Länge = Ende == Nullen ? Folge.find_first_not_of('\0') == 3
                                      : Ende == Eins && Folge.substr(1).find_first_not_of('\0') == 2;
    return Text.substr(0, Ende - (Länge && Ende > 0 ? 1 : 0));
}

// The text of the number with which a text begins: "03/12" is "3", a text without one is "0".
std::string Zahlentext(std::string_view Text) {
    Text.remove_prefix(std::min(Text.find_first_not_of(' '), Text.size()));
    const bool Negativ = Text.starts_with('-');
    if (Negativ || Text.starts_with('+')) Text.remove_prefix(1);
    std::string_view Ziffern = Text.substr(0, Text.find_first_not_of("0123456789"));
    Ziffern.remove_prefix(std::min(Ziffern.find_first_not_of('0'), Ziffern.size()));
    if (Ziffern.empty()) return "0";
    return (Negativ ? "-" : "") + std::string(Ziffern);
}

void WertSetzen(const OggSchlüssel& Eintrag, std::string_view Bytes, Datensatz& Satz) {
    const std::string Text = IstUtf8(Bytes) ? std::string(Bytes) : AnsiNachUtf8(Bytes);
    if (Eintrag.Feld == &Datensatz::Titelnummer) {
        Satz.Titelnummer = Zahlentext(Text);
    } else if (Eintrag.Feld != nullptr) {
        Satz.*Eintrag.Feld = Text;
    } else if (Eintrag.Schlüssel == "GENRE=") {
        GenreTextSetzen(Text, Satz);
    }
}

}  // namespace

void OggKommentareLesen(Dateianfang& Anfang, Datensatz& Satz) {
    Satz.HatId3v1 = Satz.HatId3v2 = Satz.HatLyrics = TagFehlt;
    const std::string Text = KommentareSuchen(Anfang);
    Satz.KopfGefunden = !Text.empty();
    const std::string Klein = Kleingeschrieben(Text);
    for (const OggSchlüssel& Eintrag : OggSchlüsselListe) {
        // Kept: a key that stands inside a value or at the end of another key counts as well.
        const std::size_t Stelle = Klein.find(Kleingeschrieben(Eintrag.Schlüssel));
        if (Stelle == Nirgends) continue;
        Satz.HatId3v1 = TagVorhanden;
        const std::string_view Wert = std::string_view(Text).substr(Stelle + Eintrag.Schlüssel.size());
        WertSetzen(Eintrag, WertAbgrenzen(Wert), Satz);
    }
}

}  // namespace liedwerk
