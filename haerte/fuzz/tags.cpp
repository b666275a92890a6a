// The tags of MPEG files: read, written, read again, removed.
#include <algorithm>

#include "basis/ansi.h"
#include "basis/datei.h"
#include "basis/zahl.h"
#include "fuzz/ziel.h"
#include "medien/id3v1.h"
#include "medien/id3v2modern.h"
#include "medien/lyrics.h"
#include "medien/tagdatei.h"
#include "medien/tagverlust.h"

namespace liedwerk::fuzz {
namespace {

// What stands in the file once the tag is gone; the file itself when it has none or the tag is damaged.
std::string OhneTag(std::string_view Bytes, Tagblock Block, const Tagoptionen& Optionen) {
    const std::string Pfad = DateiLegen("ohne.mp3", Bytes);
    std::string Meldung;
    if (!TagAusDateiEntfernen(Pfad, Block, Optionen, Meldung))
        Gleich("Wer nichts entfernt, ändert nichts", Bytes, DateiInhalt(Pfad));
    return DateiInhalt(Pfad);
}

Datensatz Id3v2Gelesen(const std::string& Pfad, bool Modern) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    Dateianfang Anfang(Datei);
    Datensatz Satz;
    Id3v2Lesen(Anfang, 102400, Modern, Satz);
    return Satz;
}

// Only what the person sees: where the tag lies and how large it is changes with a save.
Datensatz NurWerte(Datensatz Satz) {
    Satz.Id3v2Größe = Satz.Id3v2Benutzt = 0;
    Satz.Id3v2Position = 0;
    Satz.Id3v2Version.clear();
    Satz.HatId3v2 = TagUnberührt;
    // Only tells that there was more, and is too short to be written back.
    if (Satz.Id3v2WeitereFelder.size() < 2) Satz.Id3v2WeitereFelder.clear();
    return Satz;
}

// True when something follows the frames of the tag that is neither frame nor padding: nobody understands it,
// it stays, and with other padding behind it it may look like a frame.
bool HatUnverstandenes(const std::string& Pfad) {
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    Dateianfang Anfang(Datei);
    const auto Ort = Id3v2ModernFinden(Anfang, 102400);
    if (!Ort) return false;
    std::string Körper = Datei.Lesen(Ort->Stelle + Id3v2KopfLänge, Ort->Kopf.Körperlänge);
    if (Ort->Kopf.KörperUnsynchronisiert()) Körper = Id3v2UnsynchronisationAufheben(Körper);
    const auto Zeigen = [&](std::uint64_t Stelle, std::uint64_t Länge) {
        return std::string_view(Körper).substr(std::min<std::uint64_t>(Stelle, Körper.size()), Länge);
    };
    return Körper.find_first_not_of('\0', Id3v2Gliedern(Ort->Kopf, Zeigen, Körper.size()).Ende) !=
           std::string::npos;
}

// True when the frames that are kept raw are whole: one that the tag's end cuts off takes what follows it,
// once it is written back.
bool RahmenSindGanz(std::string_view Rahmen) {
    while (Rahmen.size() > 10) {
        const auto Länge = Id3v2GrößeLesen(Rahmen.substr(4, 4), Id3v2Größenform::Einfach);
        const std::size_t Ganz = 10 + static_cast<std::size_t>(std::max(Länge, 0));
        if (Ganz > Rahmen.size()) return false;
        Rahmen.remove_prefix(Ganz);
    }
    return Rahmen.size() < 2;
}

// Every field gets the value of its neighbour: what is new in a frame comes back, or nothing changes.
void GeändertSchreiben(const std::string& Pfad, const Datensatz& Satz, const Tagoptionen& Optionen) {
    const std::string Vorher = DateiInhalt(Pfad);
    Datensatz Anders = Satz;
    for (std::size_t i = 0; i < Id3v2Rahmenfelder.size(); ++i)
        Anders.*Id3v2Rahmenfelder[i].Feld = Satz.*Id3v2Rahmenfelder[(i + 1) % Id3v2Rahmenfelder.size()].Feld;
    Anders.V2Qualität = Satz.V2Qualität == 1 ? 255 : 1;
    std::string Meldung;
    if (!Id3v2Schreiben(Pfad, Anders, Optionen, Meldung)) {
        Fordern(!Meldung.empty(), "Wer eine Änderung ablehnt, sagt warum");
        Gleich("Wer eine Änderung ablehnt, ändert nichts", Vorher, DateiInhalt(Pfad));
        return;
    }
    if (!Optionen.TAGsModern) return;
    const std::string Geändert = DateiInhalt(Pfad);
    const Datensatz Gelesen = Id3v2Gelesen(Pfad, true);
    Fordern(Gelesen.V2Qualität == Anders.V2Qualität, "Die geänderte Bewertung kommt wieder");
    Fordern(Id3v2Schreiben(Pfad, Gelesen, Optionen, Meldung), "Was geändert wurde, lässt sich schreiben");
    Gleich("Ein geänderter TAG wird wieder so geschrieben", Geändert, DateiInhalt(Pfad));
    Gleich("Der Klang bleibt bei Änderungen", OhneTag(Vorher, Tagblock::Id3v2, Optionen),
           OhneTag(Geändert, Tagblock::Id3v2, Optionen));
}

void Id3v2WegPrüfen(std::string_view Eingabe, bool Modern) {
    const Tagoptionen Optionen{102400, 25, Modern};
    const std::string Pfad = DateiLegen("x.mp3", Eingabe);
    const Datensatz Satz = Id3v2Gelesen(Pfad, Modern);
    const bool Unverstanden = HatUnverstandenes(Pfad);
    SpeicherverlusteFinden(Pfad, Tagblock::Id3v2, Satz, Optionen);
    EntfernverlusteFinden(Pfad, Tagblock::Id3v2, Optionen);
    std::string Meldung;
    if (!Id3v2Schreiben(Pfad, Satz, Optionen, Meldung)) {
        Fordern(!Meldung.empty(), "Wer ablehnt, sagt warum");
        Gleich("Wer ablehnt, ändert nichts", Eingabe, DateiInhalt(Pfad));
        return;
    }
    // The plain way reads sizes right below 65536 only.
    if (!Modern && Satz.Id3v2Größe > 65000) return;
    if (Modern ? Unverstanden : !RahmenSindGanz(Satz.Id3v2WeitereFelder)) return;
    const std::string Einmal = DateiInhalt(Pfad);
    const Datensatz Wieder = Id3v2Gelesen(Pfad, Modern);
    Gleich("Was geschrieben wurde, kommt wieder", NurWerte(Satz), NurWerte(Wieder));
    Fordern(Id3v2Schreiben(Pfad, Wieder, Optionen, Meldung), "Das zweite Schreiben gelingt");
    Gleich("Das zweite Schreiben schreibt dieselben Bytes", Einmal, DateiInhalt(Pfad));
    // What reading refuses is no tag to a save, though a removal takes it out.
    Gleich("Der Klang bleibt",
           Satz.HatId3v2 == TagVorhanden ? OhneTag(Eingabe, Tagblock::Id3v2, Optionen) : std::string(Eingabe),
           OhneTag(Einmal, Tagblock::Id3v2, Optionen));
    GeändertSchreiben(Pfad, Wieder, Optionen);
}

// The value of the last field of a Lyrics tag.
std::string_view LetzterWert(std::string_view Felder) {
    std::string_view Wert;
    while (Felder.size() >= LyricsFeldkopf) {
        const auto Länge = GanzzahlLesen<std::uint32_t>(Felder.substr(LyricsFeldkennung, LyricsFeldziffern));
        Wert = Felder.substr(LyricsFeldkopf, Länge.value_or(0));
        Felder.remove_prefix(LyricsFeldkopf + Wert.size());
    }
    return Wert;
}

}  // namespace

void Id3v1Prüfen(std::string_view Eingabe) {
    const std::string Pfad = DateiLegen("x.mp3", Eingabe);
    const auto Lesen = [&](std::string_view Bytes) {
        Datensatz Satz;
        const auto Block = Id3v1Lesen(Bytes);
        if (!Block.empty()) Id3v1Auswerten(Block, false, Satz);
        return Satz;
    };
    const Datensatz Satz = Lesen(Eingabe);
    std::string Meldung;
    Fordern(Id3v1Schreiben(Pfad, Id3v1BlockBilden(Satz), Meldung), "Der Block wird geschrieben");
    const std::string Einmal = DateiInhalt(Pfad);
    const Datensatz Wieder = Lesen(Einmal);
    if (Satz.HatId3v1 == TagVorhanden) Gleich("Was geschrieben wurde, kommt wieder", Satz, Wieder);
    Fordern(Id3v1Schreiben(Pfad, Id3v1BlockBilden(Wieder), Meldung), "Das zweite Schreiben gelingt");
    Gleich("Das zweite Schreiben schreibt dieselben Bytes", Einmal, DateiInhalt(Pfad));
    Gleich("Der Klang bleibt", OhneTag(Eingabe, Tagblock::Id3v1, {}), OhneTag(Einmal, Tagblock::Id3v1, {}));
}

void Id3v2Prüfen(std::string_view Eingabe) {
    Id3v2WegPrüfen(Eingabe, false);
}

void Id3v2ModernPrüfen(std::string_view Eingabe) {
    Id3v2WegPrüfen(Eingabe, true);
}

void LyricsPrüfen(std::string_view Eingabe) {
    const std::string Pfad = DateiLegen("x.mp3", Eingabe);
    const auto Lesen = [&] {
        const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
        Datensatz Satz;
        LyricsLesen(Datei, DateiendeLesen(Datei), Satz);
        return Satz;
    };
    const Datensatz Satz = Lesen();
    // A damaged tag counts as none and stays: its marker hides the one that a save puts behind it.
    const auto HatMarke = [](std::string_view Bytes) {
        return Bytes.find("LYRICS200") != Bytes.npos || Bytes.find("LYRICSEND") != Bytes.npos;
    };
    if (HatMarke(Eingabe) && Satz.HatLyrics != TagVorhanden) return;
    // So does one in the sound in front of it, once the tag is shorter.
    if (HatMarke(OhneTag(Eingabe, Tagblock::Lyrics, {}))) return;
    // Nor does a marker, or most of one, in the text or another field: the first one counts.
    if ((Satz.LyricsText + Satz.LyricsWeitereFelder).find("LYRICS") != std::string::npos) return;
    // A last field of fewer than two characters is not looked at.
    if (Satz.LyricsWeitereFelder.empty() ? Utf8NachAnsiErsatz(Satz.LyricsText).size() == 1
                                         : LetzterWert(Satz.LyricsWeitereFelder).size() < 2)
        return;
    // A tag that does not end where it should leaves bytes behind it, in which a marker is found first.
    const std::int64_t Dahinter = Id3v1Lesen(Eingabe).empty() ? 0 : Id3v1Größe;
    if (Satz.HatLyrics == TagVorhanden &&
        Satz.LyricsPosition - 1 + Satz.LyricsGröße + Dahinter != std::ssize(Eingabe))
        return;
    SpeicherverlusteFinden(Pfad, Tagblock::Lyrics, Satz, {});
    Fordern(EntfernverlusteFinden(Pfad, Tagblock::Lyrics, {}).empty() == Satz.LyricsWeitereFelder.empty(),
            "Vor dem Verlust von Feldern wird gewarnt");
    std::string Meldung;
    Fordern(LyricsSchreiben(Pfad, Satz.LyricsText, Meldung), "Der Text wird geschrieben");
    const std::string Einmal = DateiInhalt(Pfad);
    const Datensatz Wieder = Lesen();
    Gleich("Der Text kommt wieder", Satz.LyricsText, Wieder.LyricsText);
    Gleich("Die weiteren Felder kommen wieder", Satz.LyricsWeitereFelder, Wieder.LyricsWeitereFelder);
    Fordern(LyricsSchreiben(Pfad, Wieder.LyricsText, Meldung), "Das zweite Schreiben gelingt");
    Gleich("Das zweite Schreiben schreibt dieselben Bytes", Einmal, DateiInhalt(Pfad));
    Gleich("Der Klang bleibt", OhneTag(Eingabe, Tagblock::Lyrics, {}), OhneTag(Einmal, Tagblock::Lyrics, {}));
}

}  // namespace liedwerk::fuzz
