#include "medien/tagverlust.h"

#include <algorithm>
#include <optional>

#include "basis/ansi.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "medien/id3v1.h"
#include "medien/id3v2.h"
#include "medien/id3v2modern.h"
#include "medien/id3v2modernrahmen.h"
#include "medien/id3v2modernwerte.h"
#include "medien/lyrics.h"
#include "medien/tagtext.h"

namespace liedwerk {
namespace {

// Above this size the described way reads and replaces a part of a tag only.
constexpr std::uint64_t HöchsteTaggröße = 65535;
// The address in the rating frames that this program writes.
constexpr std::string_view EigeneAdresse = "email";

using Verluste = std::vector<std::string>;

// A text that the code page has no room for, with what becomes of it.
void TextPrüfen(const std::string& Text, Verluste& Ergebnis) {
    if (Utf8NachAnsi(Text)) return;
    constexpr std::size_t GezeigteLänge = 40;
    const std::string Anfang(LinkerTeil(Text, GezeigteLänge));
    Ergebnis.push_back("Schriftzeichen: '" + Anfang + "' wird zu '" +
                       AnsiNachUtf8(Utf8NachAnsiErsatz(Anfang)) + "'");
}

// What of an ID3v1 block no field shows. Neu is the record to be written; without it the block is to be
// removed.
Verluste Id3v1VerlusteFinden(const Lesedatei& Datei, const Datensatz* Neu) {
    const std::string Dateiende = DateiendeLesen(Datei);
    const std::string_view Block = Id3v1Lesen(Dateiende);
    if (Block.empty()) return {};
    Datensatz Zustand;
    Id3v1Auswerten(Block, false, Zustand);
    Verluste Ergebnis;
    const auto Nummer = static_cast<std::uint8_t>(Id3v1Genre.Aus(Block)[0]);
    const bool OhneGenre = Neu == nullptr || Neu->Genre.value_or(KeinGenre) == KeinGenre;
    if (Nummer >= Id3v1GenreEnde && Nummer != KeinGenre && OhneGenre)
        Ergebnis.push_back("das Genre mit der Nummer " + std::to_string(Nummer) +
                           ", für die es hier keinen Namen gibt");
    // Behind a comment that does not fill its field these two bytes are not read.
    const std::string_view Bytes = Id3v1Titelnummer.Aus(Block);
    const std::string Ende = TextBereinigen(Bytes, false);
    const bool Ungelesen = Bytes[0] != '\0' && !Ende.empty() &&
                           TextBereinigen(Id3v1Kommentar.Aus(Block), false).size() < Id3v1Kommentar.Länge;
    if (Ungelesen && (Neu == nullptr || Neu->Kommentar == Zustand.Kommentar))
        Ergebnis.push_back("das Ende des Kommentars: '" + AnsiNachUtf8(Ende) + "'");
    return Ergebnis;
}

// An ID3v2 tag as its header describes it.
class Tagkörper {
  public:
    static std::optional<Tagkörper> Öffnen(const Lesedatei& Datei, std::uint64_t Stelle) {
        const auto Kopf = Id3v2KopfLesen(Datei.Lesen(Stelle, Id3v2KopfLänge));
        if (!Kopf) return std::nullopt;
        return Tagkörper(Datei, Stelle + Id3v2KopfLänge, *Kopf);
    }
    const Id3v2Kopf Kopf;
    // Bytes of the body; what has no room in memory is cut.
    std::string Bytes(std::uint64_t Ab, std::uint64_t Anzahl) const {
        Anzahl = std::min(Anzahl, HöchsterAusschnitt);
        if (Klartext) return Ab < Klartext->size() ? Klartext->substr(Ab, Anzahl) : std::string();
        return Ab < Länge ? Datei->Lesen(Stelle + Ab, std::min(Anzahl, Länge - Ab)) : std::string();
    }
    Id3v2Gliederung Gliedern() const {
        std::string Fenster;
        const auto Zeigen = [&](std::uint64_t Ab, std::uint64_t Anzahl) {
            return std::string_view(Fenster = Bytes(Ab, Anzahl));
        };
        return Id3v2Gliedern(Kopf, Zeigen, Klartext ? Klartext->size() : Länge);
    }
    std::string Inhalt(const Id3v2Rahmenort& Ort) const { return Bytes(Ort.Stelle, Ort.Länge); }
    // The frame with its header, as the described way keeps it.
    std::string Rahmen(const Id3v2Rahmenort& Ort) const {
        const std::uint64_t Kopflänge = std::min<std::uint64_t>(Ort.Stelle, Id3v2KopfLänge);
        return Bytes(Ort.Stelle - Kopflänge, Kopflänge + Ort.Länge);
    }

  private:
    static constexpr std::uint64_t HöchsterAusschnitt = std::uint64_t{1} << 20U;
    Tagkörper(const Lesedatei& Quelle, std::uint64_t Ab, const Id3v2Kopf& Angaben)
        : Kopf(Angaben),
          Datei(&Quelle),
          Stelle(Ab),
          Länge(std::min(Angaben.Körperlänge, Quelle.Größe() - std::min(Ab, Quelle.Größe()))) {
        if (Kopf.KörperUnsynchronisiert())
            Klartext =
                Id3v2UnsynchronisationAufheben(Datei->Lesen(Stelle, std::min(Länge, HöchsterAusschnitt)));
    }
    const Lesedatei* Datei;
    std::uint64_t Stelle;
    std::uint64_t Länge;
    std::optional<std::string> Klartext;  // of a body that was unsynchronised as a whole
};

const Id3v2Rahmenfeld* FeldVon(std::string_view Kennung) {
    const auto* Fund = std::find_if(Id3v2Rahmenfelder.begin(), Id3v2Rahmenfelder.end(),
                                    [&](const Id3v2Rahmenfeld& Feld) { return Feld.Kennung == Kennung; });
    return Fund == Id3v2Rahmenfelder.end() ? nullptr : Fund;
}

// Judges the frames of a tag, whose fields were read as Zustand and are to be written as Neu. Without that
// the tag is to be removed, and no raw frame is kept either.
class Rahmenprüfung {
  public:
    Rahmenprüfung(const Tagkörper& Quelle, const Datensatz& Gelesen, const Datensatz* Geplant, bool Modern)
        : Tag(Quelle), Zustand(Gelesen), Neu(Geplant), AllesGelesen(Modern) {}

    void Prüfen(const Id3v2Rahmenort& Ort) {
        const std::string_view Kennung = Id3v2LangeKennung(Ort.Kennung);
        const auto Inhalt = Id3v2RahmeninhaltLesen(Tag.Kopf, Ort.Schalter, Tag.Inhalt(Ort));
        if (Kennung == Id3v2QualitätKennung) {
            BewertungPrüfen(Inhalt.value_or(""));
        } else if (const Id3v2Rahmenfeld* Feld = FeldVon(Kennung)) {
            FeldPrüfen(*Feld, Ort, Inhalt);
        } else if (Ort.Länge > 0 && !BleibtRoh(Ort)) {
            (Kennung == "APIC" ? Bilder : Felder).push_back(Ort.Kennung);
        }
    }

    Verluste Fertig() && {
        if (!Bilder.empty()) Texte.push_back(std::to_string(Bilder.size()) + " Bild(er)");
        if (!Felder.empty()) {
            std::sort(Felder.begin(), Felder.end());
            Felder.erase(std::unique(Felder.begin(), Felder.end()), Felder.end());
            constexpr std::size_t HöchstensGenannt = 20;
            if (Felder.size() > HöchstensGenannt) {
                Felder.resize(HöchstensGenannt);
                Felder.emplace_back("...");
            }
            Texte.push_back("Felder, die hier nicht angezeigt werden: " + Verbinden(Felder, ", "));
        }
        return std::move(Texte);
    }

  private:
    bool BleibtRoh(const Id3v2Rahmenort& Ort) const {
        return Neu != nullptr && Neu->Id3v2WeitereFelder.find(Tag.Rahmen(Ort)) != std::string::npos;
    }
    void FeldPrüfen(const Id3v2Rahmenfeld& Feld, const Id3v2Rahmenort& Ort,
                    const std::optional<std::string>& Inhalt) {
        // What the person has replaced is gone on purpose.
        if (AllesGelesen || (Neu != nullptr && Neu->*Feld.Feld != Zustand.*Feld.Feld)) return;
        const std::string Text = Id3v2RahmentextLesen(Tag.Inhalt(Ort), Feld.Feld != &Datensatz::V2Kommentar);
        if (!Inhalt || (!Text.empty() && Text != Zustand.*Feld.Feld)) {
            Felder.push_back(Ort.Kennung);
        } else if (Neu != nullptr) {
            const auto Klar = Id3v2InhaltsformVon(Feld.Kennung).Lesen(*Inhalt);
            for (const std::string& Wert : Klar.value_or(Id3v2Inhalt{}).Werte)
                TextPrüfen(Wert, Texte);
        }
    }
    // Only the rating itself is kept; a frame of ours has one byte more in front.
    void BewertungPrüfen(std::string_view Inhalt) {
        if (Inhalt.starts_with('\0')) Inhalt.remove_prefix(1);
        const auto Bewertung = Id3v2BewertungLesen(Inhalt);
        const bool Gezählt = Bewertung && Bewertung->Zähler.find_first_not_of('\0') != std::string::npos;
        if (Bewertung && !Gezählt && Bewertung->Adresse == EigeneAdresse) return;
        Texte.emplace_back("Adresse und Zähler der Bewertung");
    }

    const Tagkörper& Tag;
    const Datensatz& Zustand;
    const Datensatz* Neu;
    bool AllesGelesen;
    Verluste Texte;
    std::vector<std::string> Bilder;
    std::vector<std::string> Felder;
};

// True when bytes stand behind the frames that are no padding; they go with the tag.
bool HatFremdes(const Tagkörper& Tag, std::uint64_t Ende) {
    return Tag.Bytes(Ende, HöchsteTaggröße).find_first_not_of('\0') != std::string::npos;
}

std::string Größentext(std::uint64_t Größe) {
    return "ein TAG von " + Gruppiert(static_cast<std::int64_t>(Größe)) +
           " Bytes, von dem nur ein Teil gelesen und ersetzt werden kann";
}

// Neu is the record to be written; without it the tag is to be removed.
Verluste Id3v2VerlusteFinden(const Lesedatei& Datei, const Datensatz* Neu, const Tagoptionen& Optionen) {
    Datensatz Zustand;
    Dateianfang Anfang(Datei);
    Id3v2Lesen(Anfang, Optionen.TAGsBytesSuchen, Optionen.TAGsModern, Zustand);
    const bool Gefunden = Zustand.Id3v2Position > 0;
    // A tag that is refused is one all the same: a new one in front of it hides it.
    const auto Tag =
        Tagkörper::Öffnen(Datei, Gefunden ? static_cast<std::uint64_t>(Zustand.Id3v2Position - 1) : 0);
    if (!Tag || (!Gefunden && Neu == nullptr)) return {};
    Verluste Ergebnis;
    if (!Optionen.TAGsModern && Tag->Kopf.Körperlänge > HöchsteTaggröße)
        Ergebnis.push_back(Größentext(Tag->Kopf.Gesamtlänge()));
    Rahmenprüfung Prüfung(*Tag, Zustand, Neu, Optionen.TAGsModern);
    const Id3v2Gliederung Gliederung = Tag->Gliedern();
    for (const Id3v2Rahmenort& Ort : Gliederung.Rahmen)
        Prüfung.Prüfen(Ort);
    for (std::string& Text : std::move(Prüfung).Fertig())
        Ergebnis.push_back(std::move(Text));
    const auto Tagende = static_cast<std::int64_t>(Zustand.Id3v2Position) - 1 + Zustand.Id3v2Größe;
    if (Gefunden && Tagende > static_cast<std::int64_t>(Datei.Größe())) {
        Ergebnis.emplace_back(
            "alles bis zum Ende der Datei, auch die Musik (der TAG ist beschädigt, er endet nicht in der "
            "Datei)");
    } else if (Tag->Kopf.Körperlänge <= HöchsteTaggröße && HatFremdes(*Tag, Gliederung.Ende))
        Ergebnis.emplace_back("Daten unbekannter Art hinter den Feldern");
    return Ergebnis;
}

Verluste LyricsVerlusteFinden(const Lesedatei& Datei, const Datensatz& Satz) {
    Verluste Ergebnis;
    TextPrüfen(Satz.LyricsText, Ergebnis);
    if (Utf8NachAnsiErsatz(Satz.LyricsText).size() > LyricsTextHöchstens) {
        Ergebnis.push_back("der ganze Liedertext, denn mehr als " + Gruppiert(LyricsTextHöchstens) +
                           " Zeichen kann niemand mehr lesen");
    }
    Datensatz Zustand;
    LyricsLesen(Datei, DateiendeLesen(Datei), Zustand);
    // The reader of version 1 does not see it.
    if (Zustand.HatLyrics == TagVorhanden && Zustand.LyricsVersion == 1 &&
        Zustand.LyricsText == Satz.LyricsText)
        Ergebnis.emplace_back("das erste Zeichen des Liedertextes");
    return Ergebnis;
}

Verluste SpeicherverlusteVon(const Lesedatei& Datei, Tagblock Block, const Datensatz& Satz,
                             const Tagoptionen& Optionen) {
    Verluste Ergebnis;
    switch (Block) {
        case Tagblock::Id3v1:
            Ergebnis = Id3v1VerlusteFinden(Datei, &Satz);
            for (const auto Feld : {&Datensatz::Titel, &Datensatz::Interpret, &Datensatz::Album,
                                    &Datensatz::Jahr, &Datensatz::Kommentar})
                TextPrüfen(Satz.*Feld, Ergebnis);
            return Ergebnis;
        case Tagblock::Id3v2:
            // The modern way keeps everything.
            if (Optionen.TAGsModern) return {};
            Ergebnis = Id3v2VerlusteFinden(Datei, &Satz, Optionen);
            for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder)
                TextPrüfen(Satz.*Feld.Feld, Ergebnis);
            if (Id3v2RahmenBilden(Satz).size() > HöchsteTaggröße) {
                Ergebnis.push_back("Felder jenseits von " + Gruppiert(HöchsteTaggröße) +
                                   " Bytes, die nicht wieder gelesen werden können");
            }
            return Ergebnis;
        case Tagblock::Lyrics:
            break;
    }
    return LyricsVerlusteFinden(Datei, Satz);
}

Verluste EntfernverlusteVon(const Lesedatei& Datei, Tagblock Block, const Tagoptionen& Optionen) {
    if (Block == Tagblock::Id3v1) return Id3v1VerlusteFinden(Datei, nullptr);
    if (Block == Tagblock::Lyrics) {
        Datensatz Zustand;
        LyricsLesen(Datei, DateiendeLesen(Datei), Zustand);
        if (Zustand.LyricsWeitereFelder.empty()) return {};
        return {"weitere Felder des Lyrics-TAGs, die hier nicht angezeigt werden"};
    }
    return Id3v2VerlusteFinden(Datei, nullptr, Optionen);
}

// What a read did not give nobody has looked at.
Verluste MitUngelesenem(const Lesedatei& Datei, Verluste Gefundene) {
    if (Datei.Lesefehler())
        Gefundene.emplace_back("was in dem Teil der Datei steht, der nicht gelesen werden konnte");
    return Gefundene;
}

}  // namespace

std::vector<std::string> SpeicherverlusteFinden(std::string_view Pfad, Tagblock Block, const Datensatz& Satz,
                                                const Tagoptionen& Optionen) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    return Datei.Offen() ? MitUngelesenem(Datei, SpeicherverlusteVon(Datei, Block, Satz, Optionen))
                         : Verluste();
}

std::vector<std::string> EntfernverlusteFinden(std::string_view Pfad, Tagblock Block,
                                               const Tagoptionen& Optionen) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    return Datei.Offen() ? MitUngelesenem(Datei, EntfernverlusteVon(Datei, Block, Optionen)) : Verluste();
}

}  // namespace liedwerk
