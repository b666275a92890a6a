#include "medien/medienlesen.h"

#include <algorithm>
#include <array>
#include <optional>

#include "basis/datei.h"
#include "basis/datum.h"
#include "basis/pfad.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "medien/id3v1.h"
#include "medien/id3v2modern.h"
#include "medien/lyrics.h"
#include "medien/mpeg.h"
#include "medien/ogg.h"
#include "medien/tagtext.h"
#include "medien/wave.h"

namespace liedwerk {
namespace {

struct Endungsart {
    std::string_view Endung;
    Dateiart Art;
};
// Types that are known by their extension when the flags of their entry say nothing else.
constexpr std::array<Endungsart, 5> Endungsarten = {{
    {".wma", DateiartWindowsMedia},
    {".wmf", DateiartWindowsMedia},
    {".wav", DateiartWave},
    {".cda", DateiartCdTitel},
    {".ogg", DateiartOgg},
}};

// The media type of a path; nothing when its extension is in no group.
std::optional<Dateiart> DateiartFinden(const Medienumgebung& Umgebung, std::string_view Pfad) {
    const std::vector<Dateityp>* const Dateitypen = Umgebung.Dateitypen;
    const std::string_view Endung = EndungVon(Pfad);
    if (Dateitypen == nullptr || Endung.empty()) return std::nullopt;
    const Dateityp* const Eintrag = TypFinden(*Dateitypen, Endung.substr(1));
    if (Eintrag == nullptr) return std::nullopt;
    const auto Gesetzt = [&](std::size_t Stelle) {
        return Stelle < Eintrag->Schalter.size() && Eintrag->Schalter[Stelle] == '1';
    };
    if (Gesetzt(0)) return DateiartMpeg;
    if (Gesetzt(2)) return DateiartBild;
    const auto* Fund = std::find_if(Endungsarten.begin(), Endungsarten.end(), [&](const Endungsart& Art) {
        return GleichOhneGroß(Art.Endung, Endung);
    });
    if (Fund != Endungsarten.end()) return Fund->Art;
    return Umgebung.WeitereFormate && IstWeiteresFormat(Endung) ? std::optional(DateiartWeitere)
                                                                : std::nullopt;
}

void Id3v2BlockLesen(const Medienumgebung& Umgebung, std::string_view Pfad, bool ZeilenEntfernen,
                     Dateianfang& Anfang, Datensatz& Satz) {
    const auto Ergebnis = Id3v2Lesen(Anfang, Umgebung.TAGsBytesSuchen, Umgebung.TAGsModern, Satz);
    if (Ergebnis == Id3v2Ergebnis::Abgebrochen && Umgebung.Log != nullptr && Umgebung.Log->Aktiv()) {
        Umgebung.Log->Schreiben("Mp3TAGLesenV2: Fehler - Der Kopf des ID3v2-TAGs der Datei '" +
                                std::string(Pfad) + "' ist nicht vollständig.");
    }
    Satz.V2Kommentar = TextBereinigen(Satz.V2Kommentar, ZeilenEntfernen);
}

// The order is significant: the Lyrics reader empties what the ID3v2 reader found besides its frames, and
// the duration depends on which tags are there.
void MpegDateiLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Lesecode& Code,
                    bool ZeilenEntfernen, const Lesedatei& Datei, Datensatz& Satz) {
    Dateianfang Anfang(Datei);
    const std::string Dateiende = Code.Id3v1 || Code.Lyrics ? DateiendeLesen(Datei) : std::string();
    if (Code.Id3v1) {
        const std::string_view Block = Id3v1Lesen(Dateiende);
        if (Block.empty()) {
            Id3v1Leeren(Satz);
        } else {
            Id3v1Auswerten(Block, ZeilenEntfernen, Satz);
        }
    }
    if (Code.Id3v2) Id3v2BlockLesen(Umgebung, Pfad, ZeilenEntfernen, Anfang, Satz);
    if (Code.Lyrics) {
        // The reader only adds to these; reading twice must not double them.
        Satz.LyricsWeitereFelder.clear();
        LyricsLesen(Datei, Dateiende, Satz);
    }
    if (Code.Datenstrom) MpegHeaderLesen(Anfang, Satz);
    Satz.V1Gelesen = Satz.Id3v2Gelesen = Satz.LyricsGelesen = true;
}

// The record of a file that did not answer keeps what it knows. One that nothing has touched says that it
// knows of no tag.
void UngelesenLassen(Datensatz& Satz) {
    Satz.V1Gelesen = Satz.Id3v2Gelesen = Satz.LyricsGelesen = Satz.KopfGefunden = false;
    if (Satz.HatId3v1 == TagUnberührt) Satz.HatId3v1 = TagFehlt;
    if (Satz.HatId3v2 == TagUnberührt) Id3v2Leeren(Satz);
    if (Satz.HatLyrics == TagUnberührt) Satz.HatLyrics = TagFehlt;
}

// What the player control tells of a file; nothing when it does not answer. An answer without texts, where
// the record has some, counts only for a file that can be read.
std::optional<Medienangaben> AuskunftHolen(const Medienumgebung& Umgebung, std::string_view Pfad,
                                           const Datensatz& Bisher) {
    if (Umgebung.Auskunft == nullptr || !DateiExistiert(Pfad)) return std::nullopt;
    auto Angaben = Umgebung.Auskunft->Lesen(Pfad, Umgebung.Weiter);
    if (Angaben && Bisher.HatId3v1 == TagVorhanden && !IstLesbar(Pfad)) return std::nullopt;
    return Angaben;
}

// Of a file that TagLib tells nothing about: whether it answers at all.
void OhneAuskunftLassen(std::string_view Pfad, Datensatz& Satz) {
    UngelesenLassen(Satz);
    Satz.Lesegestört = DateiExistiert(Pfad) && !IstLesbar(Pfad);
}

// MediaPlayerLesen with its texts.
void WindowsMediaLesen(const Medienumgebung& Umgebung, std::string_view Pfad, Datensatz& Satz) {
    auto Angaben = AuskunftHolen(Umgebung, Pfad, Satz);
    if (!Angaben) return OhneAuskunftLassen(Pfad, Satz);
    Satz.HatId3v1 = TagVorhanden;
    Satz.HatId3v2 = Satz.HatLyrics = TagFehlt;
    Satz.Dauer = Gerundet<std::int32_t>(Angaben->Dauer).value_or(Satz.Dauer);
    Satz.Titel = std::move(Angaben->Titel);
    Satz.Interpret = std::move(Angaben->Interpret);
    Satz.Kommentar = std::move(Angaben->Kommentar);
}

std::string Kanalmodus(int Kanäle) {
    switch (Kanäle) {
        case 0:
            return {};
        case 1:
            return "Mono";
        case 2:
            return "Stereo";
        default:
            return std::to_string(Kanäle) + " Kanäle";
    }
}

// A further format: its sound and its texts, in the members that other files than MPEG audio use.
void WeiteresFormatLesen(const Medienumgebung& Umgebung, std::string_view Pfad, bool ZeilenEntfernen,
                         Datensatz& Satz) {
    auto Angaben = AuskunftHolen(Umgebung, Pfad, Satz);
    if (!Angaben) return OhneAuskunftLassen(Pfad, Satz);
    Satz.HatId3v1 = Satz.HatId3v2 = Satz.HatLyrics = TagFehlt;
    const auto Zahlentext = [](unsigned Zahl) { return Zahl == 0 ? std::string() : std::to_string(Zahl); };
    Satz.Dauer = Gerundet<std::int32_t>(Angaben->Dauer).value_or(Satz.Dauer);
    Satz.Bitrate = Angaben->Bitrate;
    // A mean value, but for plain samples.
    const std::string_view Endung = EndungVon(Pfad);
    Satz.VBR = !GleichOhneGroß(Endung, ".aif") && !GleichOhneGroß(Endung, ".aiff");
    Satz.Frequenz = Angaben->Frequenz;
    Satz.Modus = Kanalmodus(Angaben->Kanäle);
    Satz.Titel = std::move(Angaben->Titel);
    Satz.Interpret = std::move(Angaben->Interpret);
    Satz.Album = std::move(Angaben->Album);
    Satz.Jahr = Zahlentext(Angaben->Jahr);
    Satz.Titelnummer = Zahlentext(Angaben->Titelnummer);
    Satz.Kommentar = TextBereinigen(Angaben->Kommentar, ZeilenEntfernen);
    Satz.Genre.reset();
    Satz.V2Genre.clear();
    if (!Angaben->Genre.empty()) GenreTextSetzen(Angaben->Genre, Satz);
    const auto Texte = {&Datensatz::Titel,   &Datensatz::Interpret,   &Datensatz::Album,    &Datensatz::Jahr,
                        &Datensatz::V2Genre, &Datensatz::Titelnummer, &Datensatz::Kommentar};
    const bool Gefunden =
        std::any_of(Texte.begin(), Texte.end(), [&](auto Feld) { return !(Satz.*Feld).empty(); });
    if (Gefunden || Satz.Genre.value_or(KeinGenre) != KeinGenre) Satz.HatId3v1 = TagVorhanden;
}

void WaveDateiLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Lesedatei& Datei,
                    Datensatz& Satz) {
    bool UnbekannteAngaben = false;
    WavHeaderLesen(Datei.Lesen(0, WaveKopfLänge), Datei.Größe(), Satz, UnbekannteAngaben);
    if (!UnbekannteAngaben) return;
    // Its texts are not taken.
    if (const auto Angaben = AuskunftHolen(Umgebung, Pfad, {}))
        Satz.Dauer = Gerundet<std::int32_t>(Angaben->Dauer).value_or(Satz.Dauer);
}

// True for a kind whose bytes are read here, when the code asks for any of them.
bool WirdGeöffnet(std::int16_t Art, const Lesecode& Code) {
    if (Art == DateiartMpeg) return Code.Id3v1 || Code.Id3v2 || Code.Datenstrom || Code.Lyrics;
    return Code.Datenstrom && (Art == DateiartWave || Art == DateiartOgg);
}

// Reads the kinds that are opened here.
void BytesLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Lesecode& Code,
                bool ZeilenEntfernen, const Lesedatei& Datei, Datensatz& Satz) {
    if (Satz.Dateityp == DateiartMpeg)
        return MpegDateiLesen(Umgebung, Pfad, Code, ZeilenEntfernen, Datei, Satz);
    if (Satz.Dateityp == DateiartWave) return WaveDateiLesen(Umgebung, Pfad, Datei, Satz);
    Dateianfang Anfang(Datei);
    OggKommentareLesen(Anfang, Satz);
}

// Reads the kinds that somebody else opens.
void AnderesLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Lesecode& Code,
                  bool ZeilenEntfernen, Datensatz& Satz) {
    switch (Satz.Dateityp) {
        case DateiartMpeg:
            Satz.V1Gelesen = Satz.Id3v2Gelesen = Satz.LyricsGelesen = true;
            break;
        case DateiartWindowsMedia:
            if (Code.Datenstrom) WindowsMediaLesen(Umgebung, Pfad, Satz);
            break;
        case DateiartWeitere:
            if (Code.Datenstrom) WeiteresFormatLesen(Umgebung, Pfad, ZeilenEntfernen, Satz);
            break;
        case DateiartCdTitel:
            if (Umgebung.CdInfosLesen) Umgebung.CdInfosLesen(Pfad, Satz);
            break;
        default:
            break;
    }
}

// Reads what the code asks for; gives the state of the file where it was opened.
std::optional<Dateistand> InhaltLesen(const Medienumgebung& Umgebung, std::string_view Pfad,
                                      const Lesecode& Code, bool ZeilenEntfernen, const Datensatz& Vorgabe,
                                      Datensatz& Satz) {
    if (!WirdGeöffnet(Satz.Dateityp, Code)) {
        AnderesLesen(Umgebung, Pfad, Code, ZeilenEntfernen, Satz);
        return std::nullopt;
    }
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    if (Datei.Offen()) BytesLesen(Umgebung, Pfad, Code, ZeilenEntfernen, Datei, Satz);
    // What did not come tells nothing: a share that is away must not look like a file without tags.
    if (!Datei.Offen() || Datei.Lesefehler()) {
        const std::int16_t Art = Satz.Dateityp;
        Satz = Vorgabe;
        Satz.Dateityp = Art;
        UngelesenLassen(Satz);
        Satz.Lesegestört = true;
    }
    return Datei.Offen() ? std::optional(Datei.Stand()) : std::nullopt;
}

// Size, medium and date, which do not depend on the kind of file.
void RandangabenLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Leseauftrag& Auftrag,
                      std::optional<Dateistand> Stand, Datensatz& Satz) {
    const bool DatumFehlt = Satz.HinzufügeDatum.empty() && Umgebung.Zeit != nullptr;
    if (!Auftrag.GrößeLesen && !Auftrag.WechselmediumLesen && !DatumFehlt) return;
    // A file that could not be opened, or was not, may exist all the same.
    if (!Stand && DateiExistiert(Pfad)) Stand = DateistandLesen(Pfad);
    // By its size a file is known for changed: one that did not answer keeps that of the last time.
    if (Auftrag.GrößeLesen && !(Stand && Satz.Lesegestört))
        Satz.Größe = Stand ? static_cast<std::int64_t>(Stand->Größe) : -1;
    if (Auftrag.WechselmediumLesen && Stand && Umgebung.Wechselmedium) {
        Satz.Wechselmedium = Umgebung.Wechselmedium(Pfad);
    }
    if (DatumFehlt) {
        Satz.HinzufügeDatum =
            DatumText(Stand ? Umgebung.Zeit->Lokal(Stand->Änderungszeit) : Umgebung.Zeit->Jetzt());
    }
}

}  // namespace

Datensatz MedienDatenLesen(const Medienumgebung& Umgebung, std::string_view Pfad, const Datensatz& Vorgabe,
                           const Leseauftrag& Auftrag) {
    Datensatz Satz = Vorgabe;
    std::optional<Dateistand> Stand;
    if (Auftrag.Code) {
        Satz.V1Gelesen = Satz.Id3v2Gelesen = Satz.LyricsGelesen = false;
        Satz.KopfGefunden = Satz.Lesegestört = false;
        if (const auto Art = DateiartFinden(Umgebung, Pfad)) {
            Satz.Dateityp = *Art;
            Stand = InhaltLesen(Umgebung, Pfad, *Auftrag.Code, Auftrag.ZeilenEntfernen, Vorgabe, Satz);
        }
    }
    RandangabenLesen(Umgebung, Pfad, Auftrag, Stand, Satz);
    return Satz;
}

void TagBlockLeeren(Datensatz& Satz, Tagblock Block) {
    switch (Block) {
        case Tagblock::Id3v1:
            return Id3v1Leeren(Satz);
        case Tagblock::Id3v2:
            return Id3v2Leeren(Satz);
        case Tagblock::Lyrics:
            return LyricsLeeren(Satz);
    }
}

}  // namespace liedwerk
