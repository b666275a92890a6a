#include "suche/feldwert.h"

#include <algorithm>
#include <utility>

#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "index/genres.h"
#include "index/wert.h"

namespace liedwerk {
namespace {

constexpr std::pair<std::string_view, Feldkennung> Feldnamen[] = {
    {Standardsuche, Feldkennung::Standardsuche},
    {"Nummer", Feldkennung::Nummer},
    {"Pfad", Feldkennung::Pfad},
    {"Dateiname", Feldkennung::Dateiname},
    {"Interpret", Feldkennung::V1Interpret},
    {"Titel", Feldkennung::V1Titel},
    {"Album", Feldkennung::V1Album},
    {"Jahr", Feldkennung::V1Jahr},
    {"Track", Feldkennung::V1Titelnummer},
    {"Titelnummer", Feldkennung::V1Titelnummer},
    {"Genre", Feldkennung::V1Genre},
    {"Kommentar", Feldkennung::V1Kommentar},
    {"Größe", Feldkennung::Größe},
    {"Bitrate", Feldkennung::Bitrate},
    {"Dauer", Feldkennung::Dauer},
    {"Frequenz", Feldkennung::Frequenz},
    {"Frames", Feldkennung::Frames},
    {"Wechselmedium", Feldkennung::Wechselmedium},
    {"Hinzufüge-Datum", Feldkennung::HinzufügeDatum},
    {"Datei-Endung", Feldkennung::DateiEndung},
    {"Abspiel-Datum", Feldkennung::AbspielDatum},
    {"Abspiel-Häufigkeit", Feldkennung::AbspielHäufigkeit},
    {"Pfad+Dateiname", Feldkennung::PfadUndDateiname},
    {"Benutzerdefiniert", Feldkennung::Benutzerdefiniert},
    {"Interpret-ID3v2", Feldkennung::V2Interpret},
    {"Titel-ID3v2", Feldkennung::V2Titel},
    {"Album-ID3v2", Feldkennung::V2Album},
    {"Kommentar-ID3v2", Feldkennung::V2Kommentar},
    {"Jahr-ID3v2", Feldkennung::V2Jahr},
    {"Track-ID3v2", Feldkennung::V2Titelnummer},
    {"Genre-ID3v2", Feldkennung::V2Genre},
    {"ID3v2-TAG-Version", Feldkennung::Id3v2Version},
    {"ID3v2-TAG-Größe", Feldkennung::Id3v2Größe},
    {"Benutzer-Daten", Feldkennung::BenutzerDaten},
    {"Qualität", Feldkennung::Qualität},
};

// The name of a template: as FeldFinden, then without regard to case.
Feldwahl VorlagenfeldFinden(std::string_view Name) {
    Feldwahl Wahl = FeldFinden(Name);
    if (Wahl.Bekannt) return Wahl;
    for (const auto& [Bekannter, Kennung] : Feldnamen) {
        if (GleichOhneGroß(Bekannter, Name)) return {Kennung, true, {}};
    }
    return Wahl;
}

// One reading of one field: what FeldWert was given, and the steps that fill its result.
struct Lesung {
    const Katalog& Index;
    Satznummer Nummer;
    Wertform Modus;
    bool AndererTag;
    bool ImNutzerformat;  // the user-defined column is being expanded
    std::string& Wert;
    Feldtyp& Typ;

    bool Anzeigen() const { return Modus == Wertform::Anzeigen; }
    bool HatV1() const { return Index.Sätze.HatId3v1(Nummer) == TagVorhanden; }
    bool HatV2() const { return Index.Sätze.HatId3v2(Nummer) == TagVorhanden; }
    std::int64_t Zahl(int Feld) const { return Index.Sätze.Zahl(Nummer, Feld); }

    void Text(int Feld) { IndexwertLesenAnhängen(Wert, Index.Sätze.Roh(Nummer, Feld)); }

    // The value of a field that both tags have. Which tag gives it is a matter of the tags, not of the value:
    // an empty field of a present tag stays empty. A number field is 0 for none.
    enum class Quelle { Keine, V1, V2 };
    Quelle QuelleWählen(Quelle Eigene) const {
        const Quelle Andere = Eigene == Quelle::V1 ? Quelle::V2 : Quelle::V1;
        const auto Vorhanden = [this](Quelle Tag) { return Tag == Quelle::V1 ? HatV1() : HatV2(); };
        if (Vorhanden(Eigene)) return Eigene;
        return AndererTag && Vorhanden(Andere) ? Andere : Quelle::Keine;
    }
    Quelle Tagtext(Quelle Eigene, int V1Feld, int V2Feld) {
        const Quelle Tag = QuelleWählen(Eigene);
        if (Tag != Quelle::Keine) Text(Tag == Quelle::V1 ? V1Feld : V2Feld);
        return Tag;
    }

    // An empty number sorts as 0.
    void Nullende() {
        if (!Anzeigen() && Wert.empty()) Wert += '0';
    }

    void Standardtext();
    void Titelnummer(Quelle Eigene);
    void Jahr(Quelle Eigene);
    void Genre(Quelle Eigene);
    void Sekunden();
    void Frequenz();
    bool Datum(int Feld);
    bool Lesen(const Feldwahl& Feld);
    bool Taglesen(Feldkennung Kennung);
    bool Dateilesen(Feldkennung Kennung);
};

void Lesung::Standardtext() {
    const Satzsicht Sicht = Index.Sätze.Sicht(Nummer);
    for (const int Feld : Standardsuchfelder) {
        if (Feld != Standardsuchfelder.front()) Wert += ' ';
        IndexwertLesenAnhängen(Wert, Sicht.Roh(Feld));
    }
}

void Lesung::Titelnummer(Quelle Eigene) {
    Typ = Feldtyp::Zahl;
    Tagtext(Eigene, FeldTitelnummer, FeldV2Titelnummer);
    if (!Wert.empty() && ZeichenAnzahl(Wert) < 2) Wert.insert(0, 1, '0');
    Nullende();
}

void Lesung::Jahr(Quelle Eigene) {
    const Quelle Tag = Tagtext(Eigene, FeldJahr, FeldV2Jahr);
    // Kept: the ID3v2 year is a text, unless it is the ID3v1 year that stands in for it.
    if (Eigene == Quelle::V1 || Tag == Quelle::V1) Typ = Feldtyp::Zahl;
    if (Tag == Quelle::V1) Nullende();
}

void Lesung::Genre(Quelle Eigene) {
    switch (QuelleWählen(Eigene)) {
        case Quelle::V1:
            Wert = GenreNameVon(Zahl(FeldGenre));
            break;
        case Quelle::V2: {
            // "(17)Rock" is the number and its name; a ")" in front of everything is part of a name.
            Text(FeldV2Genre);
            const std::size_t Klammer = Wert.find(')');
            if (Klammer != std::string::npos && Klammer > 0) {
                Wert.erase(0, Klammer + 1);
            }
            break;
        }
        case Quelle::Keine:
            break;
    }
}

void Lesung::Sekunden() {
    const std::int64_t Wie = Zahl(FeldDauer);
    if (Anzeigen()) {
        Typ = Feldtyp::Dauer;
        if (Wie >= 0) Wert = DauerFormatieren(Wie, true);
    } else {
        Typ = Feldtyp::Zahl;
        Wert = std::to_string(std::max<std::int64_t>(Wie, 0));
    }
}

void Lesung::Frequenz() {
    const std::int64_t Hertz = Zahl(FeldFrequenz);
    if (Hertz < 1) return;
    Wert = std::to_string(Hertz) + " Hz";
    const std::string_view Modustext = Index.Sätze.Roh(Nummer, FeldModus);
    if (Modustext.empty()) return;
    Wert += ", ";
    IndexwertLesenAnhängen(Wert, Modustext);
}

// Hinzufüge-Datum and Abspiel-Datum.
bool Lesung::Datum(int Feld) {
    const bool MitZeit = Feld == FeldAbspielDatum;
    Typ = !Anzeigen() ? Feldtyp::Zahl : MitZeit ? Feldtyp::DatumZeit : Feldtyp::Datum;
    Text(Feld);
    if (Wert.empty()) {
        Nullende();
        return true;
    }
    if (MitZeit && Anzeigen()) {
        Wert = ZeitFormatieren(Wert, true);
        return true;
    }
    const auto Punkt = DatumLesen(Wert);
    Wert.clear();
    if (!Punkt) return false;
    Wert = MitZeit ? ZeitSortierText(*Punkt) : Anzeigen() ? DatumText(*Punkt) : DatumSortierText(*Punkt);
    return true;
}

// The fields that stand in a tag; false when Kennung is none of them.
bool Lesung::Taglesen(Feldkennung Kennung) {
    switch (Kennung) {
        case Feldkennung::V1Interpret:
            Tagtext(Quelle::V1, FeldInterpret, FeldV2Interpret);
            return true;
        case Feldkennung::V1Titel:
            Tagtext(Quelle::V1, FeldTitel, FeldV2Titel);
            return true;
        case Feldkennung::V1Album:
            Tagtext(Quelle::V1, FeldAlbum, FeldV2Album);
            return true;
        case Feldkennung::V1Kommentar:
            Tagtext(Quelle::V1, FeldKommentar, FeldV2Kommentar);
            return true;
        case Feldkennung::V1Jahr:
            Jahr(Quelle::V1);
            return true;
        case Feldkennung::V1Titelnummer:
            Titelnummer(Quelle::V1);
            return true;
        case Feldkennung::V1Genre:
            Genre(Quelle::V1);
            return true;
        case Feldkennung::V2Interpret:
            Tagtext(Quelle::V2, FeldInterpret, FeldV2Interpret);
            return true;
        case Feldkennung::V2Titel:
            Tagtext(Quelle::V2, FeldTitel, FeldV2Titel);
            return true;
        case Feldkennung::V2Album:
            Tagtext(Quelle::V2, FeldAlbum, FeldV2Album);
            return true;
        case Feldkennung::V2Kommentar:
            Tagtext(Quelle::V2, FeldKommentar, FeldV2Kommentar);
            return true;
        case Feldkennung::V2Jahr:
            Jahr(Quelle::V2);
            return true;
        case Feldkennung::V2Titelnummer:
            Titelnummer(Quelle::V2);
            return true;
        case Feldkennung::V2Genre:
            Genre(Quelle::V2);
            return true;
        case Feldkennung::Id3v2Version:
            if (!HatV2()) return true;
            Text(FeldId3v2Version);
            if (Wert.starts_with('.')) Wert.insert(0, 1, '2');
            return true;
        case Feldkennung::Id3v2Größe:
            if (HatV2()) Wert = Gruppiert(Zahl(FeldId3v2Größe));
            return true;
        default:
            return false;
    }
}

// The fields that the file, the index or the person give. False for a bad date.
bool Lesung::Dateilesen(Feldkennung Kennung) {
    const auto Zählwert = [this](int Feld, bool AuchNull) {
        Typ = Feldtyp::Zahl;
        if (const std::int64_t Anzahl = Zahl(Feld); AuchNull || Anzahl >= 1) Wert = std::to_string(Anzahl);
        Nullende();
    };
    // The path and the part of it that is wanted, which is a view into it.
    const auto Pfadteil = [this](std::string_view (*Teil)(std::string_view)) {
        Text(FeldPfad);
        const std::string_view Rest = Teil(Wert);
        const auto Beginn = Rest.empty() ? 0 : static_cast<std::size_t>(Rest.data() - Wert.data());
        Wert.resize(Beginn + Rest.size());
        Wert.erase(0, Beginn);
    };
    switch (Kennung) {
        case Feldkennung::Nummer:
            Typ = Feldtyp::Zahl;
            Wert = std::to_string(Nummer);
            return true;
        case Feldkennung::Pfad:
            Pfadteil(PfadVon);
            return true;
        case Feldkennung::Dateiname:
            Pfadteil(DateinameVon);
            return true;
        case Feldkennung::DateiEndung:
            Pfadteil(EndungVon);
            return true;
        case Feldkennung::PfadUndDateiname:
            Text(FeldPfad);
            return true;
        case Feldkennung::Größe:
            // Kept: grouped in the sort form too.
            Typ = Feldtyp::Zahl;
            if (const std::int64_t Bytes = Zahl(FeldGröße); Bytes > 0) Wert = Gruppiert(Bytes);
            Nullende();
            return true;
        case Feldkennung::Bitrate:
            if (const std::int64_t Rate = Zahl(FeldBitrate); Rate >= 1)
                Wert = std::to_string(Rate) + (Zahl(FeldVBR) != 0 ? " VBR" : " CBR");
            return true;
        case Feldkennung::Dauer:
            Sekunden();
            return true;
        case Feldkennung::Frequenz:
            Frequenz();
            return true;
        case Feldkennung::Frames:
            Zählwert(FeldFrames, false);
            return true;
        case Feldkennung::AbspielHäufigkeit:
            Zählwert(FeldAbspielHäufigkeit, true);
            return true;
        case Feldkennung::Qualität:
            Wert = std::to_string(Zahl(FeldQualität));
            return true;
        case Feldkennung::Wechselmedium:
            Text(FeldWechselmedium);
            return true;
        case Feldkennung::BenutzerDaten:
            Text(FeldBenutzerDaten);
            return true;
        case Feldkennung::HinzufügeDatum:
            return Datum(FeldHinzufügeDatum);
        case Feldkennung::AbspielDatum:
            return Datum(FeldAbspielDatum);
        default:
            return true;
    }
}

// No name and no cell needs more. A format of a thousand fields would multiply the longest value of a record.
constexpr std::size_t HöchsterVorlagenwert = 100000;

// Appends the format with its values; ends behind the value that reaches that length.
void VorlageAnwenden(std::string& Ziel, const Katalog& Index, Satznummer Nummer, std::string_view Vorlage,
                     bool BeideTags, bool ImNutzerformat,
                     const std::function<void(std::string&)>& Säubern = {}) {
    std::string Wert;
    Feldtyp Typ{};
    while (Ziel.size() < HöchsterVorlagenwert) {
        const std::size_t Erstes = Vorlage.find('%');
        const std::size_t Zweites = Erstes == std::string_view::npos ? Erstes : Vorlage.find('%', Erstes + 1);
        if (Zweites == std::string_view::npos) break;
        Ziel += Vorlage.substr(0, Erstes);
        const Feldwahl Feld = VorlagenfeldFinden(Vorlage.substr(Erstes + 1, Zweites - Erstes - 1));
        Lesung{Index, Nummer, Wertform::Sortieren, BeideTags, ImNutzerformat, Wert, Typ}.Lesen(Feld);
        if (Säubern) Säubern(Wert);
        Ziel += Wert;
        Vorlage.remove_prefix(Zweites + 1);
    }
    if (Ziel.size() < HöchsterVorlagenwert) Ziel += Vorlage;
}

bool Lesung::Lesen(const Feldwahl& Feld) {
    Wert.clear();
    Typ = Feldtyp::Text;
    if (!Feld.Bekannt || Nummer < 1 || Nummer > Index.IndexAnzahl()) return false;
    const bool BeideTags = Index.Optionen.SpaltenBeideTags == 1;
    switch (Feld.Kennung) {
        case Feldkennung::Standardsuche:
            Standardtext();
            return true;
        case Feldkennung::Vorlage:
            VorlageAnwenden(Wert, Index, Nummer, Feld.Vorlage, BeideTags, ImNutzerformat);
            return true;
        case Feldkennung::Benutzerdefiniert:
            // A format that names its own column would never come to an end.
            if (!ImNutzerformat)
                VorlageAnwenden(Wert, Index, Nummer, Index.Optionen.SpaltenNutzerformat, BeideTags, true);
            return true;
        default:
            return Taglesen(Feld.Kennung) || Dateilesen(Feld.Kennung);
    }
}

}  // namespace

Feldwahl FeldFinden(std::string_view Feld) {
    for (const auto& [Name, Kennung] : Feldnamen) {
        if (Name == Feld) return {Kennung, true, {}};
    }
    if (Feld.starts_with('%')) return {Feldkennung::Vorlage, true, std::string(Feld)};
    return {};
}

std::optional<Feldtyp> Anzeigetyp(const Feldwahl& Feld, bool AndererTag) {
    switch (Feld.Kennung) {
        case Feldkennung::Nummer:
        case Feldkennung::V1Jahr:
        case Feldkennung::V1Titelnummer:
        case Feldkennung::V2Titelnummer:
        case Feldkennung::Größe:
        case Feldkennung::Frames:
        case Feldkennung::AbspielHäufigkeit:
            return Feldtyp::Zahl;
        case Feldkennung::HinzufügeDatum:
            return Feldtyp::Datum;
        case Feldkennung::AbspielDatum:
            return Feldtyp::DatumZeit;
        case Feldkennung::Dauer:
            return Feldtyp::Dauer;
        case Feldkennung::V2Jahr:
            return AndererTag ? std::nullopt : std::optional(Feldtyp::Text);
        default:
            return Feldtyp::Text;
    }
}

bool FeldWert(const Katalog& Index, Satznummer Nummer, std::string_view Feld, Wertform Modus, bool AndererTag,
              std::string& Wert, Feldtyp& Typ) {
    return FeldWert(Index, Nummer, FeldFinden(Feld), Modus, AndererTag, Wert, Typ);
}

bool FeldWert(const Katalog& Index, Satznummer Nummer, const Feldwahl& Feld, Wertform Modus, bool AndererTag,
              std::string& Wert, Feldtyp& Typ) {
    return Lesung{Index, Nummer, Modus, AndererTag, false, Wert, Typ}.Lesen(Feld);
}

std::string BenutzerFormatAnwenden(const Katalog& Index, Satznummer Nummer, std::string_view Vorlage,
                                   bool BeideTags) {
    std::string Text;
    VorlageAnwenden(Text, Index, Nummer, Vorlage, BeideTags, false);
    return Text;
}

std::string FormatAuflösen(const Katalog& Index, Satznummer Nummer, std::string_view Format,
                           const std::function<void(std::string&)>& Säubern) {
    std::string Text;
    VorlageAnwenden(Text, Index, Nummer, Format, Index.Optionen.SpaltenBeideTags == 1, false, Säubern);
    return Text;
}

std::string DauerFormatieren(std::int64_t Sekunden, bool OhneNullStunden) {
    const std::int64_t Stunden = Sekunden / 3600;
    const std::int64_t Rest = Sekunden % 3600;
    std::string Text;
    if (!OhneNullStunden || Stunden >= 1) Text = std::to_string(Stunden) + ':';
    Text += NullenVoran(std::to_string(Rest / 60), 2);
    Text += ':';
    Text += NullenVoran(std::to_string(Rest % 60), 2);
    return Text;
}

std::string ZeitFormatieren(std::string_view Text, bool Formatiert) {
    // Old players' "|" stood for "/", and neither of them stands in a date.
    const auto Punkt = DatumLesen(Text);
    if (!Punkt) return std::string(UngültigesDatum);
    return Formatiert ? DatumZeitText(*Punkt) : std::string(Text);
}

}  // namespace liedwerk
