// The functions of the TAG editor by their names in its lists, and what they do to the fields of a record.
//
// Everything here is pure: a function takes a record and says what becomes of it. The run over files, with
// reading, saving, questions and progress, is tagfunktionslauf.h.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "index/datensatz.h"
#include "medien/autotag.h"
#include "medien/grundfelder.h"

namespace liedwerk {

enum class Tagfunktion {
    AutoTag,
    AutoTagEinstellen,
    Aufräumen,
    TitelInterpretTauschen,
    TitelAlbumTauschen,
    InterpretAlbumTauschen,
    ZahlAusKommentar,
    KleinErsterGroß,
    KleinWörterGroß,
    Klein,
    Groß,
    FelderKopieren,
    TagKopieren,
    Entfernen,
};

struct Funktionszeile {
    Tagfunktion Funktion;
    std::string_view Name;
    bool FürLyrics = false;  // goes on with a selection of Lyrics
    bool NurEinTag = false;  // refuses a selection of both tags
};
// The entries of cboFunktion in their order.
extern const std::array<Funktionszeile, 14> Tagfunktionen;

// To which files and tags a function applies.
struct Funktionsauswahl {
    std::string_view Name;
    bool AlleDateien = false;
    bool Id3v1 = false;
    bool Id3v2 = false;
    bool Lyrics = false;
};
// The entries of cboFunktionTAG; the place is the number.
extern const std::array<Funktionsauswahl, 8> Funktionsauswahlen;

// The entry of this name, as it stands in the list; nullptr for another text.
const Funktionszeile* TagfunktionFinden(std::string_view Name);
const Funktionsauswahl* FunktionsauswahlFinden(std::string_view Name);

// Why a function cannot run on a selection (nullptr: nothing was chosen); empty when it can.
std::string FunktionPrüfen(const Funktionszeile* Funktion, const Funktionsauswahl* Auswahl);

// The ID3 tags of a selection, in their order.
std::vector<Tagblock> Id3Blöcke(const Funktionsauswahl& Auswahl);
// The target of AutoTAG for a selection of at least one ID3 tag.
AutoTagZiel AutoTagZielVon(const Funktionsauswahl& Auswahl);

// The choice made for "Felder kopieren...".
struct Feldvorgabe {
    const Grundfeld* Feld = nullptr;
    std::string Text;
};
// The message when a text cannot go into the ID3v1 fields of the selection; empty when it can.
std::string FeldvorgabePrüfen(const Feldvorgabe& Vorgabe, const Funktionsauswahl& Auswahl);

// The functions that need nothing but the fields. Each works on the given tags (Id3v1, Id3v2), each for
// itself.
void FelderTauschen(Datensatz& Satz, Tagblock Tag, std::string_view Eines, std::string_view Anderes);
// One of the four functions of spelling, on title, artist, album and comment.
void SchreibweiseÄndern(Datensatz& Satz, Tagblock Tag, Tagfunktion Art);
// The number that the comment holds becomes the track number; none leaves it. The message when the number is
// too large: above 255 in ID3v1, above 2,147,483,647 in ID3v2; else empty.
std::string ZahlInTitelnummer(Datensatz& Satz, Tagblock Tag);
// The seven fields of a tag go to the other one.
void InAnderenKopieren(Datensatz& Satz, Tagblock Tag);

// A tag that is there and says nothing: title, artist and album, or the text of the Lyrics, are blank.
bool TagIstNichtssagend(const Datensatz& Satz, Tagblock Tag);
// AutoTAG is to fill this tag: it is missing, or names an artist and no title.
bool TagBrauchtAutoTag(const Datensatz& Satz, Tagblock Tag);
// "TAGs aufräumen", the step that makes the texts of all three tags readable.
void LesbarMachen(Datensatz& Satz);

}  // namespace liedwerk
