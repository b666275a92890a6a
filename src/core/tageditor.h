// The TAG editor without its window: which files are on the list, which of them is open, and what becomes of
// the person's entries when they are saved or the file is left.
//
// TagEditor is plain data. The form shows Arbeit, puts the controls' texts back into it
// (core/tageditorfelder.h) and calls the procedures here; the files are written by medien/tagspeichern.h,
// which asks and tells what there is to ask and to tell.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "core/anwendung.h"
#include "medien/infotext.h"
#include "medien/tagfunktionslauf.h"
#include "medien/tagspeichern.h"

namespace liedwerk {

struct TagEditor {
    std::vector<Satznummer> Dateien;  // the list; records must stay while the editor is open
    std::size_t Platz = 0;            // of the current file, 0-based
    bool Vorhanden = false;           // the current file was there and is read
    Datensatz Gelesen;                // as the file told
    Tagarbeit Arbeit;                 // the work record: what was read with the person's entries put in
    Dateiinformation Texte;           // of the panes

    Satznummer Nummer() const { return Dateien[Platz]; }
};

// The setting behind the box of automatic saving of a block.
std::int16_t& AutomatikVon(Einstellungen& Werte, Tagblock Block);

// The selected records that are files; the folders of the file manager have no tags.
std::vector<Satznummer> GewählteDateien(const Anwendung& Programm);

// Opens the editor on the given records (at least one) and reads the first file.
void TagEditorÖffnen(TagEditor& Editor, Anwendung& Programm, std::vector<Satznummer> Dateien);
// For idle moments while the editor is open: prepares AutoTAG's look into the index step by step, some
// milliseconds each, so that its first file takes no longer than the others. True when nothing is left to do.
bool AutoTagVorbereiten(Anwendung& Programm);
// DateiInfoAnzeigen: reads the current file into the work record and makes the texts of the panes; entries
// that were not saved and the run flags are gone. A file on an absent medium is asked for first.
void DateiInfoAnzeigen(TagEditor& Editor, Anwendung& Programm);

// The blocks whose entries differ from what the file holds.
std::array<bool, 3> GeänderteBlöcke(const TagEditor& Editor);

// TagsSpeichern for the current file. What could not be saved stays in the work record.
Tagsergebnis EingabenSpeichern(TagEditor& Editor, Anwendung& Programm, Tagauswahl Welche, bool NurMitInhalt);
// Ahead of another file and of OK: saves the blocks whose automatic saving is on. About other entries that
// are not in the file the person is asked. False: the person stays with the file.
bool DateiVerlassen(TagEditor& Editor, Anwendung& Programm, bool MitAutomatik);
// Leaves the current file and opens the next (Richtung 1) or the previous one (-1). False when the person
// stays with it, or at the end of the list.
bool Weitergehen(TagEditor& Editor, Anwendung& Programm, int Richtung);

// Runs a function of the editor, which FunktionPrüfen has let pass and the person has confirmed, on the
// current file or on the whole list, and reads the current file again. A function on the current file's
// fields works on what was entered; entries of tags that it did not save stay open.
void EditorFunktionAusführen(TagEditor& Editor, Anwendung& Programm, Tagfunktion Funktion,
                             const Funktionsauswahl& Auswahl, const Feldvorgabe& Feld);

}  // namespace liedwerk
