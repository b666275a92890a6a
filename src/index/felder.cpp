#include "index/felder.h"

#include "basis/ansi.h"
#include "basis/datum.h"
#include "basis/text.h"
#include "basis/zahl.h"

namespace liedwerk {

using Art = Feldinhalt;

const std::array<Feldbeschreibung, FeldAnzahl> Felder = {{
    {FeldPfad, "Pfad", Art::Text, Feldmarke::Keine, std::monostate()},
    {FeldAlbum, "Album", Art::Text, Feldmarke::Id3v1, &Datensatz::Album},
    {FeldInterpret, "Interpret", Art::Text, Feldmarke::Id3v1, &Datensatz::Interpret},
    {FeldKommentar, "Kommentar", Art::Text, Feldmarke::Id3v1, &Datensatz::Kommentar},
    {FeldGenre, "Genre", Art::Genre, Feldmarke::Id3v1, &Datensatz::Genre},
    {FeldTitel, "Titel", Art::Text, Feldmarke::Id3v1, &Datensatz::Titel},
    {FeldTitelnummer, "Titelnummer", Art::Text, Feldmarke::Id3v1, &Datensatz::Titelnummer},
    {FeldJahr, "Jahr", Art::Text, Feldmarke::Id3v1, &Datensatz::Jahr},
    {FeldGröße, "Größe", Art::Zahl, Feldmarke::Keine, &Datensatz::Größe},
    {FeldWechselmedium, "Wechselmedium", Art::Text, Feldmarke::Keine, &Datensatz::Wechselmedium},
    {FeldBitrate, "Bitrate", Art::Zahl, Feldmarke::Keine, &Datensatz::Bitrate},
    {FeldDauer, "Dauer", Art::Zahl, Feldmarke::Keine, &Datensatz::Dauer},
    {FeldFrequenz, "Frequenz", Art::Zahl, Feldmarke::Keine, &Datensatz::Frequenz},
    {FeldFrames, "Frames", Art::Zahl, Feldmarke::Keine, &Datensatz::Frames},
    {FeldVBR, "VBR", Art::Wahrheit, Feldmarke::Keine, &Datensatz::VBR},
    {FeldHinzufügeDatum, "HinzufügeDatum", Art::Datum, Feldmarke::Keine, &Datensatz::HinzufügeDatum},
    {FeldDateityp, "Dateityp", Art::Zahl, Feldmarke::Keine, &Datensatz::Dateityp},
    {FeldModus, "Modus", Art::Text, Feldmarke::Keine, &Datensatz::Modus},
    {FeldAbspielHäufigkeit, "AbspielHäufigkeit", Art::Zahl, Feldmarke::Keine, &Datensatz::AbspielHäufigkeit},
    {FeldAbspielDatum, "AbspielDatum", Art::Datum, Feldmarke::Keine, &Datensatz::AbspielDatum},
    {FeldV2AbspielZähler, "V2AbspielZähler", Art::Text, Feldmarke::Id3v2, &Datensatz::V2AbspielZähler},
    {FeldV2Album, "V2Album", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Album},
    {FeldV2Copyright, "V2Copyright", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Copyright},
    {FeldV2EncodiertVon, "V2EncodiertVon", Art::Text, Feldmarke::Id3v2, &Datensatz::V2EncodiertVon},
    {FeldV2Genre, "V2Genre", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Genre},
    {FeldV2Herausgeber, "V2Herausgeber", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Herausgeber},
    {FeldV2Interpret, "V2Interpret", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Interpret},
    {FeldV2Jahr, "V2Jahr", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Jahr},
    // Kept: a stored ID3v2 comment alone does not make a record count as tagged.
    {FeldV2Kommentar, "V2Kommentar", Art::Text, Feldmarke::Keine, &Datensatz::V2Kommentar},
    {FeldV2Länge, "V2Länge", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Länge},
    {FeldV2Link, "V2Link", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Link},
    {FeldV2Medientyp, "V2Medientyp", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Medientyp},
    {FeldV2Software, "V2Software", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Software},
    {FeldV2Songschreiber, "V2Songschreiber", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Songschreiber},
    {FeldV2Sprache, "V2Sprache", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Sprache},
    {FeldId3v2Größe, "Id3v2Größe", Art::Zahl, Feldmarke::Id3v2, &Datensatz::Id3v2Größe},
    {FeldId3v2Version, "Id3v2Version", Art::Text, Feldmarke::Id3v2, &Datensatz::Id3v2Version},
    {FeldV2Titelnummer, "V2Titelnummer", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Titelnummer},
    {FeldV2UrsprünglicherInterpret, "V2UrsprünglicherInterpret", Art::Text, Feldmarke::Id3v2,
     &Datensatz::V2UrsprünglicherInterpret},
    {FeldV2Titel, "V2Titel", Art::Text, Feldmarke::Id3v2, &Datensatz::V2Titel},
    {FeldV2Qualität, "V2Qualität", Art::Zeichen, Feldmarke::Id3v2, &Datensatz::V2Qualität},
    {FeldBenutzerDaten, "BenutzerDaten", Art::Text, Feldmarke::Keine, &Datensatz::BenutzerDaten},
    {FeldQualität, "Qualität", Art::Zahl, Feldmarke::Keine, &Datensatz::Qualität},
}};

namespace {

// Stores a value at its place by the test of its kind; one overload per type of member. True when it was
// stored.
struct Ablage {
    std::string_view Wert;
    Feldinhalt Inhalt;
    Datensatz& Satz;

    bool operator()(std::monostate) const { return false; }
    bool operator()(std::string Datensatz::*Ort) const {
        const bool Gut = Inhalt != Art::Datum || DatumLesen(Wert).has_value();
        (Satz.*Ort) = Gut ? Wert : std::string_view();
        return Gut;
    }
    template <class Ganzzahl>
    bool operator()(Ganzzahl Datensatz::*Ort) const {
        const auto Neu = GanzzahlLesen<Ganzzahl>(Wert);
        if (Neu) Satz.*Ort = *Neu;
        return Neu.has_value();
    }
    bool operator()(bool Datensatz::*Ort) const {
        const auto Neu = Zahl(Wert);
        if (Neu) Satz.*Ort = *Neu == -1 || *Neu >= 1;
        return Neu.has_value();
    }
    // The rating: one character whose byte is the value.
    bool operator()(std::uint8_t Datensatz::*Ort) const {
        const auto Bytes = Utf8NachAnsi(Wert);
        if (!Bytes || Bytes->size() != 1) return false;
        Satz.*Ort = static_cast<std::uint8_t>(Bytes->front());
        return true;
    }
    bool operator()(std::optional<std::uint8_t> Datensatz::*Ort) const {
        const auto Neu = GanzzahlLesen<std::uint8_t>(Wert);
        if (Neu) Satz.*Ort = *Neu;
        return Neu.has_value();
    }
};

// Values that are stored without making the record count as tagged: what the program itself puts into
// comments, and the genre number for "none".
bool ZähltNichtAlsTag(int Feld, std::string_view Wert) {
    return (Feld == FeldKommentar && Wert == Programmadresse) || (Feld == FeldGenre && Wert == "255");
}

}  // namespace

void DatensatzFeldSetzen(std::string_view Wert, Datensatz& Satz, int Feld) {
    if (Feld < 1 || Feld > FeldAnzahl || Wert.empty()) return;
    const Feldbeschreibung& Beschreibung = Felder[static_cast<std::size_t>(Feld - 1)];
    if (!std::visit(Ablage{Wert, Beschreibung.Inhalt, Satz}, Beschreibung.Ort)) return;
    if (Beschreibung.Marke == Feldmarke::Id3v1 && !ZähltNichtAlsTag(Feld, Wert)) Satz.HatId3v1 = TagVorhanden;
    if (Beschreibung.Marke == Feldmarke::Id3v2) Satz.HatId3v2 = TagVorhanden;
}

}  // namespace liedwerk
