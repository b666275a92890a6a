#include "ui/text/satz.h"

#include <optional>
#include <string>

#include "basis/ansi.h"

namespace liedwerk {
namespace {

// X(member): all members of a record in their declared order; ROH marks bytes of the file that are no text.
// clang-format off
#define LIEDWERK_SATZMITGLIEDER(X, ROH) \
    X(TagKennung) X(Titel) X(Interpret) X(Album) X(Jahr) X(Kommentar) X(Titelnummer) X(Genre) X(V1Gelesen) X(Größe) \
    X(Wechselmedium) X(HinzufügeDatum) X(Dateityp) X(AbspielHäufigkeit) X(AbspielDatum) X(BenutzerDaten) X(Qualität) \
    X(Bitrate) X(Frequenz) X(Dauer) X(MpegVersion) X(MpegLayer) X(VBR) X(Original) X(Emphasis) X(Copyright) X(Modus) \
    X(Privat) X(Padding) X(Crc) X(Frames) X(HeaderPosition) X(HatId3v1) X(HatId3v2) X(HatLyrics) X(Id3v2Version) \
    X(Id3v2Größe) X(Id3v2Position) X(Id3v2Benutzt) X(Id3v2Gelesen) ROH(Id3v2WeitereFelder) X(V2AbspielZähler) \
    X(V2Titelnummer) X(V2EncodiertVon) X(V2Link) X(V2Copyright) X(V2UrsprünglicherInterpret) X(V2Songschreiber) \
    X(V2Genre) X(V2Kommentar) X(V2Jahr) X(V2Album) X(V2Interpret) X(V2Titel) X(V2Sprache) X(V2Länge) X(V2Medientyp) \
    X(V2Herausgeber) X(V2Software) X(V2Qualität) X(LyricsVersion) X(LyricsGröße) X(LyricsPosition) X(LyricsGelesen) \
    X(LyricsText) ROH(LyricsWeitereFelder)
// clang-format on

// Calls Besuch(name, value) for every member.
template <class Besucher>
void FürJedesMitglied(const Datensatz& Satz, Besucher&& Besuch) {
#define LIEDWERK_BESUCH(Name) Besuch(std::string_view(#Name), Satz.Name);
#define LIEDWERK_ROHBESUCH(Name) Besuch(std::string_view(#Name), AnsiNachUtf8(Satz.Name));
    LIEDWERK_SATZMITGLIEDER(LIEDWERK_BESUCH, LIEDWERK_ROHBESUCH)
#undef LIEDWERK_BESUCH
#undef LIEDWERK_ROHBESUCH
}

struct Jsonbesucher {
    JsonSchreiber& Ziel;
    void operator()(std::string_view Name, const std::string& Inhalt) const { Ziel.Text(Name, Inhalt); }
    void operator()(std::string_view Name, bool Inhalt) const { Ziel.Wahrheit(Name, Inhalt); }
    void operator()(std::string_view Name, std::int64_t Inhalt) const { Ziel.Zahl(Name, Inhalt); }
    void operator()(std::string_view Name, const std::optional<std::uint8_t>& Genre) const {
        Ziel.Name(Name);
        if (Genre) {
            Ziel.Zahl(*Genre);
        } else {
            Ziel.Null();
        }
    }
    template <class Ganzzahl>
    void operator()(std::string_view Name, Ganzzahl Inhalt) const {
        (*this)(Name, static_cast<std::int64_t>(Inhalt));
    }
};

struct Textbesucher {
    Ausgabe& Ziel;
    void operator()(std::string_view Name, const std::string& Inhalt) const {
        if (!Inhalt.empty()) AngabeSchreiben(Ziel, Name, Inhalt);
    }
    void operator()(std::string_view Name, bool Inhalt) const {
        if (Inhalt) AngabeSchreiben(Ziel, Name, "Ja");
    }
    void operator()(std::string_view Name, const std::optional<std::uint8_t>& Genre) const {
        if (Genre) AngabeSchreiben(Ziel, Name, std::to_string(*Genre));
    }
    template <class Ganzzahl>
    void operator()(std::string_view Name, Ganzzahl Inhalt) const {
        if (Inhalt != 0) AngabeSchreiben(Ziel, Name, std::to_string(Inhalt));
    }
};

}  // namespace

void SatzAlsJson(JsonSchreiber& Ziel, Satznummer Nummer, std::string_view Pfad, const Datensatz& Satz) {
    Ziel.ObjektAnfang();
    if (Nummer > 0) Ziel.Zahl("Nummer", Nummer);
    Ziel.Text("Pfad", Pfad);
    FürJedesMitglied(Satz, Jsonbesucher{Ziel});
    Ziel.ObjektEnde();
}

void SatzAlsText(Ausgabe& Ziel, Satznummer Nummer, std::string_view Pfad, const Datensatz& Satz) {
    if (Nummer > 0) AngabeSchreiben(Ziel, "Nummer", std::to_string(Nummer));
    AngabeSchreiben(Ziel, "Pfad", Pfad);
    FürJedesMitglied(Satz, Textbesucher{Ziel});
    Ziel.Schreiben("\n");
}

void AngabeSchreiben(Ausgabe& Ziel, std::string_view Name, std::string_view Inhalt) {
    constexpr std::size_t Namensbreite = 27;
    std::string Zeile(Name);
    const std::size_t Breite = Anzeigebreite(Name);
    Zeile.append(Breite < Namensbreite ? Namensbreite - Breite : 1, ' ');
    Ziel.Schreiben(Zeile + Sichtbar(Inhalt) + "\n");
}

}  // namespace liedwerk
