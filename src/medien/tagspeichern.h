// TagsSpeichern: what the editor, its functions and the command line call to bring a record's fields into the
// tags of its file, and TagEntfernen, to take a tag out.
//
// Tagarbeit is the plain work state of one file: path, index entry, fields, and which blocks this visit has
// written. The caller puts the person's input into Tagarbeit::Satz first and shows it again afterwards.
// tagdatei.h changes the file; here stand the rules around it: what is written at all, the questions, the
// messages, and the record of the index.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "basis/datei.h"
#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "dateien/medium.h"
#include "index/katalog.h"
#include "medien/medienlesen.h"
#include "medien/tagrettung.h"

namespace liedwerk {

// The work state of one file.
struct Tagarbeit {
    std::string Pfad;
    Satznummer Nummer = 0;              // its record of the index; 0: the index does not hold the file
    Datensatz Satz;                     // the fields as they were read or typed
    std::array<bool, 3> Geschrieben{};  // run flags: the block (Tagblock less 1) was written in this visit
    bool Ungelesen = false;             // the file did not answer: what the fields lack may stand in it
};

// What these procedures take from their surroundings.
struct Tagumgebung {
    Katalog& Index;
    const Einstellungen& Werte;
    MedienLeser Leser;
    Mediumspeicher& Medium;
    Mediumumgebung Mediumfragen;
    Oberfläche& Person;
    Rettung& Reste;
    std::string Programmname;  // with version, for the field of the software
    std::string Merkordner{};  // where a start looks for saves that were interrupted; empty: nowhere
    Schrittlauf Ausführen{};   // runs the rewriting of a file
};

// The work state of a file after reading it with "1111", run flags reset. Nummer 0: a file without record.
Tagarbeit TagarbeitBeginnen(const Tagumgebung& Umgebung, std::string_view Pfad, Satznummer Nummer);
// Why nothing can be written from a work state that was not read.
std::string UngelesenText(const Tagarbeit& Arbeit);

enum class Tagauswahl { Alle = 0, Id3v1 = 1, Id3v2 = 2, Lyrics = 3 };

struct Tagsergebnis {
    bool Gespeichert = false;  // a block was written, or passed over because it is empty
    bool Gescheitert = false;  // a block that was to be written was not: failure (shown), refusal, no medium
    bool Abgebrochen = false;  // the person has stopped it: no further block is written
};

// Writes the blocks of Arbeit.Satz that Welche names; with NurMitInhalt those without content are passed over
// unless this visit has written them, and so are those whose entries are the ones of InDatei, where given.
// Asks before what may cost the file something, shows what fails, then reads the file again into Arbeit.Satz
// and into the record of the index, which is marked as changed; where it does not answer both stay. A file
// that has not answered when the work state was made is not written.
Tagsergebnis TagsSpeichern(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, Tagauswahl Welche,
                           bool NurMitInhalt, const Datensatz* InDatei = nullptr);

struct Entfernergebnis {
    bool Entfernt = false;
    bool Abgebrochen = false;  // the person has stopped it, and what was to follow
    std::string Meldung{};     // why the tag is still there
    explicit operator bool() const { return Entfernt; }
};

// Id3v1Entfernen, Id3v2Entfernen and LyricsEntfernen: removes a tag from the file, reads the file again into
// Arbeit.Satz and the record. On failure or refusal an ID3v1 is not read again; the text of a failure is
// shown unless Still is set.
Entfernergebnis TagEntfernen(const Tagumgebung& Umgebung, Tagarbeit& Arbeit, Tagblock Block, bool Still);

// True when the fields of a block have any content.
bool TagHatInhalt(const Datensatz& Satz, Tagblock Block);
// True when two records have the same entries in a block.
bool BlockGleich(const Datensatz& A, const Datensatz& B, Tagblock Block);

}  // namespace liedwerk
