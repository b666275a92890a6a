#include "medien/id3v2modernwerte.h"

#include <algorithm>
#include <charconv>

#include "basis/ansi.h"
#include "basis/text.h"
#include "index/datensatz.h"
#include "index/genres.h"
#include "medien/id3v2moderntext.h"

namespace liedwerk {
namespace {

// All digits, at least one.
bool NurZiffern(std::string_view Text) {
    return !Text.empty() && std::all_of(Text.begin(), Text.end(),
                                        [](char Zeichen) { return Zeichen >= '0' && Zeichen <= '9'; });
}

// --- Texts ---

std::optional<Id3v2Inhalt> TextLesen(std::string_view Bytes) {
    auto Leser = Id3v2Textleser::Öffnen(Bytes);
    if (!Leser) return std::nullopt;
    Id3v2Inhalt Inhalt;
    while (!Leser->AmEnde()) {
        if (Inhalt.Werte.size() == Id3v2HöchsteWertezahl) return std::nullopt;
        if (std::string Wert = Leser->Nächster(); !Wert.empty()) Inhalt.Werte.push_back(std::move(Wert));
    }
    return Inhalt;
}

std::optional<std::string> TextBilden(const Id3v2Inhalt& Inhalt, unsigned Hauptversion) {
    const Id3v2Kodierung Kodierung = Id3v2KodierungWählen(Verbinden(Inhalt.Werte, ""), Hauptversion);
    std::string Bytes(1, static_cast<char>(Kodierung));
    for (const std::string& Wert : Inhalt.Werte) {
        if (Bytes.size() > 1) Bytes += Id3v2Stringende(Kodierung);
        Bytes += Id3v2TextKodieren(Wert, Kodierung);
    }
    return Bytes;
}

// --- Year: of a date "2003-05-01" only the year is shown ---

std::optional<Id3v2Inhalt> JahrLesen(std::string_view Bytes) {
    constexpr std::size_t Jahresziffern = 4;
    auto Inhalt = TextLesen(Bytes);
    if (!Inhalt || Inhalt->Werte.empty()) return Inhalt;
    Inhalt->Werte.resize(1);
    std::string& Jahr = Inhalt->Werte.front();
    if (Jahr.size() > Jahresziffern && Jahr[Jahresziffern] == '-' &&
        NurZiffern(std::string_view(Jahr).substr(0, Jahresziffern))) {
        Jahr.resize(Jahresziffern);
    }
    return Inhalt;
}

// --- Genre: "17", "(17)" and "(17)Rock" are the same; the record shows the last ---

// The name for a reference to the list of genres; empty when there is none.
std::string_view GenreName(std::string_view Verweis) {
    if (Verweis == "RX") return "Remix";
    if (Verweis == "CR") return "Cover";
    // The list is the common one up to here.
    constexpr std::size_t ErsterAbweichender = 135;
    std::size_t Nummer = GenreListe.size();
    if (NurZiffern(Verweis)) std::from_chars(Verweis.data(), Verweis.data() + Verweis.size(), Nummer);
    return Nummer < ErsterAbweichender ? GenreListe[Nummer] : std::string_view();
}

// A genre as the file has it: references and the text behind them.
struct Genreangabe {
    std::vector<std::string_view> Verweise;
    std::string_view Text;
};

Genreangabe GenreZerlegen(std::string_view Wert) {
    Genreangabe Angabe;
    if (!GenreName(Wert).empty()) return {{Wert}, {}};
    while (Wert.starts_with('(')) {
        const std::size_t Ende = Wert.find(')');
        if (Ende == std::string_view::npos || GenreName(Wert.substr(1, Ende - 1)).empty()) break;
        Angabe.Verweise.push_back(Wert.substr(1, Ende - 1));
        Wert.remove_prefix(Ende + 1);
    }
    // A bracket that begins a text is doubled.
    if (Wert.starts_with("((")) Wert.remove_prefix(1);
    Angabe.Text = Wert;
    return Angabe;
}

std::optional<Id3v2Inhalt> GenreLesen(std::string_view Bytes) {
    auto Inhalt = TextLesen(Bytes);
    if (!Inhalt) return std::nullopt;
    std::vector<std::string> Namen;
    for (const std::string& Wert : Inhalt->Werte) {
        const Genreangabe Angabe = GenreZerlegen(Wert);
        const bool Allein = Inhalt->Werte.size() == 1 && Angabe.Verweise.size() == 1;
        if (Allein && NurZiffern(Angabe.Verweise[0])) {
            Namen.push_back("(" + std::string(Angabe.Verweise[0]) + ")" +
                            std::string(Angabe.Text.empty() ? GenreName(Angabe.Verweise[0]) : Angabe.Text));
            continue;
        }
        for (const std::string_view Verweis : Angabe.Verweise) {
            Namen.emplace_back(GenreName(Verweis));
        }
        if (!Angabe.Text.empty()) Namen.emplace_back(Angabe.Text);
    }
    Inhalt->Werte = std::move(Namen);
    return Inhalt;
}

// Version 2.4 has no brackets: a genre is a number or a name.
std::optional<std::string> GenreBilden(const Id3v2Inhalt& Inhalt, unsigned Hauptversion) {
    if (Hauptversion < 4) return TextBilden(Inhalt, Hauptversion);
    Id3v2Inhalt Namen;
    for (const std::string& Wert : Inhalt.Werte) {
        const Genreangabe Angabe = GenreZerlegen(Wert);
        Namen.Werte.emplace_back(Angabe.Text.empty() ? std::string_view(Wert) : Angabe.Text);
    }
    return TextBilden(Namen, Hauptversion);
}

// --- Comment: language, description, text ---

constexpr std::size_t Sprachlänge = 3;

std::optional<Id3v2Inhalt> KommentarLesen(std::string_view Bytes) {
    auto Leser = Id3v2Textleser::Öffnen(Bytes);
    if (!Leser) return std::nullopt;
    Id3v2Inhalt Inhalt;
    Inhalt.Sprache = Leser->Überspringen(Sprachlänge);
    if (Inhalt.Sprache.size() < Sprachlänge) return std::nullopt;
    // Without an end of the description all of it is text.
    if (Leser->NächsterBegrenzt()) Inhalt.Beschreibung = Leser->Nächster();
    if (std::string Text = Leser->Nächster(); !Text.empty()) Inhalt.Werte.push_back(std::move(Text));
    return Inhalt;
}

std::optional<std::string> KommentarBilden(const Id3v2Inhalt& Inhalt, unsigned Hauptversion) {
    const std::string Text = Verbinden(Inhalt.Werte, "");
    const Id3v2Kodierung Kodierung = Id3v2KodierungWählen(Inhalt.Beschreibung + Text, Hauptversion);
    std::string Bytes(1, static_cast<char>(Kodierung));
    Bytes += Inhalt.Sprache.size() == Sprachlänge ? Inhalt.Sprache : "eng";
    Bytes += Id3v2TextKodieren(Inhalt.Beschreibung, Kodierung);
    Bytes += Id3v2Stringende(Kodierung);
    return Bytes + Id3v2TextKodieren(Text, Kodierung);
}

// --- Link: description, address of single bytes ---

std::optional<Id3v2Inhalt> LinkLesen(std::string_view Bytes) {
    auto Leser = Id3v2Textleser::Öffnen(Bytes);
    if (!Leser) return std::nullopt;
    Id3v2Inhalt Inhalt;
    if (Leser->NächsterBegrenzt()) Inhalt.Beschreibung = Leser->Nächster();
    const std::string_view Adresse = Leser->Rest().substr(0, Leser->Rest().find('\0'));
    if (!Adresse.empty())
        Inhalt.Werte.push_back(IstUtf8(Adresse) ? std::string(Adresse) : AnsiNachUtf8(Adresse));
    return Inhalt;
}

std::optional<std::string> LinkBilden(const Id3v2Inhalt& Inhalt, unsigned Hauptversion) {
    const Id3v2Kodierung Kodierung = Id3v2KodierungWählen(Inhalt.Beschreibung, Hauptversion);
    std::string Bytes(1, static_cast<char>(Kodierung));
    Bytes += Id3v2TextKodieren(Inhalt.Beschreibung, Kodierung);
    Bytes += Id3v2Stringende(Kodierung);
    // What an address cannot hold is written as its UTF-8 bytes in hexadecimal.
    for (const char Zeichen : Verbinden(Inhalt.Werte, "")) {
        if (static_cast<unsigned char>(Zeichen) < 0x80) {
            Bytes.push_back(Zeichen);
            continue;
        }
        constexpr std::string_view Ziffern = "0123456789ABCDEF";
        const auto Wert = static_cast<unsigned char>(Zeichen);
        Bytes += {'%', Ziffern[Wert >> 4U], Ziffern[Wert & 0xFU]};
    }
    return Bytes;
}

// --- Play counter: a big-endian number of four bytes or more ---

constexpr std::size_t Zählerlänge = 4;

std::optional<Id3v2Inhalt> ZählerLesen(std::string_view Bytes) {
    // The other way of writing tags has digits here, behind a NUL.
    if (Bytes.starts_with('\0') && NurZiffern(Bytes.substr(1)))
        return Id3v2Inhalt{{}, {}, {std::string(Bytes.substr(1))}};
    while (Bytes.size() > Zählerlänge && Bytes.starts_with('\0'))
        Bytes.remove_prefix(1);
    if (Bytes.empty() || Bytes.size() > sizeof(std::uint64_t)) return std::nullopt;
    std::uint64_t Zahl = 0;
    for (const char Byte : Bytes) {
        Zahl = Zahl << 8U | static_cast<unsigned char>(Byte);
    }
    return Id3v2Inhalt{{}, {}, {std::to_string(Zahl)}};
}

std::optional<std::string> ZählerBilden(const Id3v2Inhalt& Inhalt, unsigned /*Hauptversion*/) {
    const std::string Text(Kürzen(Verbinden(Inhalt.Werte, "")));
    std::uint64_t Zahl = 0;
    const auto Gelesen = std::from_chars(Text.data(), Text.data() + Text.size(), Zahl);
    if (!NurZiffern(Text) || Gelesen.ec != std::errc()) return std::nullopt;
    std::string Bytes;
    for (; Zahl > 0 || Bytes.size() < Zählerlänge; Zahl >>= 8U) {
        Bytes.push_back(static_cast<char>(Zahl & 0xFFU));
    }
    std::reverse(Bytes.begin(), Bytes.end());
    return Bytes;
}

struct Sonderform {
    std::string_view Kennung;
    Id3v2Inhaltsform Form;
};
constexpr Sonderform Sonderformen[] = {
    {"PCNT", {ZählerLesen, ZählerBilden}},       {"WXXX", {LinkLesen, LinkBilden}},
    {"COMM", {KommentarLesen, KommentarBilden}}, {"TCON", {GenreLesen, GenreBilden}},
    {"TYER", {JahrLesen, TextBilden}},
};
constexpr Id3v2Inhaltsform Textform = {TextLesen, TextBilden};

}  // namespace

const Id3v2Inhaltsform& Id3v2InhaltsformVon(std::string_view Kennung) {
    const auto* Fund = std::find_if(std::begin(Sonderformen), std::end(Sonderformen),
                                    [&](const Sonderform& Form) { return Form.Kennung == Kennung; });
    return Fund == std::end(Sonderformen) ? Textform : Fund->Form;
}

std::uint8_t Id3v2Bewertung::Qualität() const {
    return Note == 0 ? KeineV2Qualität : Note;
}

std::optional<Id3v2Bewertung> Id3v2BewertungLesen(std::string_view Bytes) {
    using namespace std::string_view_literals;
    // The other way of writing tags puts an encoding byte in front.
    if (Bytes.starts_with("\0email\0"sv)) Bytes.remove_prefix(1);
    const std::size_t Ende = Bytes.find('\0');
    if (Ende == std::string_view::npos || Ende + 1 >= Bytes.size()) return std::nullopt;
    return Id3v2Bewertung{std::string(Bytes.substr(0, Ende)), static_cast<std::uint8_t>(Bytes[Ende + 1]),
                          std::string(Bytes.substr(Ende + 2))};
}

std::string Id3v2BewertungBilden(const Id3v2Bewertung& Bewertung) {
    std::string Bytes = Bewertung.Adresse;
    Bytes.push_back('\0');
    Bytes.push_back(static_cast<char>(Bewertung.Note));
    return Bytes + Bewertung.Zähler;
}

std::string Id3v2QualitätBilden(std::uint8_t Qualität, const std::optional<Id3v2Bewertung>& Alt) {
    // An address must not be empty: the other way of reading would take the rating for a part of it.
    Id3v2Bewertung Neu = Alt.value_or(Id3v2Bewertung{"email", 0, std::string(Zählerlänge, '\0')});
    Neu.Note = Qualität == KeineV2Qualität ? std::uint8_t{0} : Qualität;
    const bool Gezählt = Neu.Zähler.find_first_not_of('\0') != std::string::npos;
    return Neu.Note == 0 && !Gezählt ? std::string() : Id3v2BewertungBilden(Neu);
}

std::optional<std::string> Id3v2BildUmwandeln(std::string_view Bytes) {
    constexpr std::size_t Formatlänge = 3;
    if (Bytes.size() < 1 + Formatlänge + 2) return std::nullopt;
    const std::string Format = Kleinbuchstaben(Bytes.substr(1, Formatlänge));
    const std::string Art = Format == "-->" ? Format : "image/" + (Format == "jpg" ? "jpeg" : Format);
    std::string Bild(Bytes.substr(0, 1));
    Bild += Art;
    Bild.push_back('\0');
    return Bild += Bytes.substr(1 + Formatlänge);
}

}  // namespace liedwerk
