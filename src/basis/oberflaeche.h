// The port to the person: messages, questions, progress, and one turn of the event loop.
//
// All texts are German and final; an implementation shows them and adds nothing but its own frame. The
// window's and the command line's implementations stand in ui/, the scripted one of the tests in
// plattform/speicher.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace liedwerk {

// The program's title as it stands in messages and in names of places.
inline constexpr std::string_view Programmtitel = "Liedwerk";

enum class Symbol { Information, Ausrufezeichen, Kritisch, Frage };
enum class Knöpfe { JaNein, JaNeinAbbrechen };
enum class Antwort { Ja, Nein, Abbrechen };

// Answer of the dialog about an absent medium, with the numbers of its buttons.
enum class Verfügbarkeitsantwort { Verfügbar = 0, Überspringen = 1, Abbrechen = 2, AlleÜberspringen = 3 };

// What the dialog about an absent medium needs: its text and the look that its timer repeats every second.
struct Verfügbarkeitsfrage {
    std::string Text;
    // Looks at the drive anew; puts the current medium into Aktuell and gives true when the file is at hand.
    std::function<bool(std::string& Aktuell)> Nachsehen;
};

// What the dialog about a file that another program holds needs, in the same way. Nachsehen tries to write
// anew and gives true when that can be done.
struct Schreibsperrfrage {
    std::string Text;
    std::function<bool()> Nachsehen;
};

// Answer of the dialog about a target file that exists, with the numbers of its buttons.
enum class Vorhandenantwort { Umbenennen = 1, Ersetzen = 2, Abbrechen = 3, Überspringen = 4 };

class Oberfläche {
  public:
    virtual ~Oberfläche() = default;

    // A message box with the program's title and one button.
    virtual void Melden(Symbol Zeichen, std::string_view Text) = 0;
    // A question; Vorgabe is the preset button.
    virtual Antwort Fragen(Symbol Zeichen, std::string_view Text, Knöpfe Auswahl, Antwort Vorgabe) = 0;
    Antwort JaNein(Symbol Zeichen, std::string_view Text, Antwort Vorgabe = Antwort::Ja) {
        return Fragen(Zeichen, Text, Knöpfe::JaNein, Vorgabe);
    }
    // The text of the status line; it goes after Dauer milliseconds when that is above 0.
    virtual void StatusZeigen(std::string_view Text, int Dauer = 0) = 0;
    // frmDateiNichtVerfügbar, modal.
    virtual Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) = 0;
    // frmDateiNichtVerfügbarSchreiben, modal: true when the file can be written now, false when it is
    // skipped.
    virtual bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) = 0;
    // frmVerschiebenDateiExistiert, modal. Where nobody can choose, the file is skipped.
    virtual Vorhandenantwort DateiExistiertZeigen(std::string_view Text) {
        Melden(Symbol::Ausrufezeichen, Text);
        return Vorhandenantwort::Überspringen;
    }

    // Fortschritt, the one modal progress window. Starting while it is open changes its title and bound.
    // Höchstens is ignored without percentage. The window appears after 300 ms at the earliest.
    virtual void FortschrittStarten(std::string_view Titel, bool MitProzent, std::int64_t Höchstens) = 0;
    // The same without percentage for a wait on another machine, which may take any time and must not be one
    // without a way out: the window comes, some seconds later, even where no progress is wanted.
    virtual void NetzfortschrittStarten(std::string_view Titel) { FortschrittStarten(Titel, false, 0); }
    // Sets text (empty: the old one) and position (-1: the old one), gives the event loop a turn, is false
    // when the person has cancelled. True as well when no progress is open. Cheap enough for every record: it
    // throttles itself.
    virtual bool FortschrittZeigen(std::string_view Text, std::int64_t Position) = 0;
    virtual void FortschrittSchließen() = 0;
    virtual bool FortschrittOffen() const = 0;

    // One turn of the event loop.
    virtual void EreignisseVerarbeiten() = 0;
};

// The hint behind messages about files, its lines joined by line feeds.
inline constexpr std::string_view ZugriffsHinweis =
    "Stellen Sie sicher, dass...\n"
    " \xE2\x80\xA2 diese nicht in einem Programm (z.B. Download, Audioplayer) geöffnet ist.\n"
    " \xE2\x80\xA2 der Zugriff möglich ist (z.B. schreibgeschütze(s) Datei/Laufwerk).\n"
    " \xE2\x80\xA2 Sie die nötigen Datei-/Ordner-Berechtigungen besitzen";

}  // namespace liedwerk
