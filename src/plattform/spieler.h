// The port to a running audio player, in the numbers with which such players have always been driven.
//
// An implementation answers at once from what it knows of the player and sends commands without waiting for
// an answer, so that a player that hangs holds up nobody.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// A player as data: how it is started, how it is found, what it understands beyond the common.
struct Spielerprofil {
    std::string_view Name;        // for the person
    std::string_view Programm;    // file name of the program
    std::string_view Abspielen;   // switches that play a list now
    std::string_view Hinzufügen;  // switches that append a list without starting it
    std::string_view Klasse;      // window class, or what follows "org.mpris.MediaPlayer2."
    // Has the interface org.atheme.audacious besides: balance, clearing, start of the list, preferences.
    bool Zweitschnittstelle = false;
    // Speaks on the bus only when the person has switched its plug-in for that on.
    bool NurMitZusatz = false;
    // Tracks of the CD in the system's first drive, in front of the number; empty: the player takes none.
    std::string_view Cdadresse{};
};

// The two kinds of messages, and the numbers that go with them.
enum Spielernachricht : int { NachrichtBenutzer = 1024, NachrichtBefehl = 273 };
enum Benutzernummer : int {  // lParam of NachrichtBenutzer
    SpielerListeLeeren = 101,
    SpielerZustandFragen = 104,  // 1 playing, 3 paused, else stopped
    SpielerZeitFragen = 105,     // wParam 0: position in milliseconds, 1: length in seconds; -1 for none
    SpielerSpringen = 106,       // wParam: milliseconds
    SpielerLautstärke = 122,     // wParam: 0 to 255
    SpielerBalance = 123,        // wParam: 0 to 127 right, value + 255 for left
};
enum Befehlsnummer : int {  // wParam of NachrichtBefehl
    SpielerSchließen = 40001,
    SpielerEinstellungen = 40012,
    SpielerVorheriger = 40044,
    SpielerSpielen = 40045,
    SpielerPause = 40046,
    SpielerStopp = 40047,
    SpielerNächster = 40048,
    SpielerListenanfang = 40158,
};

// Handle of a found player; 0 when there is none.
using Spielerfenster = std::uint32_t;

// What is known of the player beyond the numbers.
struct Spielerlage {
    // Text of the window, or "artist - title" where the player tells them apart.
    std::string Titel;
    bool TitelIstFenstertext = true;  // the text carries the player's own additions
    // Paths that the played file may mean (an address can be read in several ways); empty when not told.
    std::vector<std::string> Dateien;
    // Rises with every new play, also of the same file; 0 when the player cannot tell.
    std::uint64_t Durchgang = 0;
    std::optional<int> Lautstärke;  // 0 to 255
    std::optional<int> Balance;     // -127 to 127
    bool KannSpringen = true;
    bool KannLautstärke = true;
    bool KannBalance = true;
    bool KannBlättern = true;  // previous and next title
    bool KannSchließen = true;
    bool KannEinstellungen = true;
    int Offen = 0;  // commands that are under way
};

class Spielerkanal {
  public:
    virtual ~Spielerkanal() = default;
    // Looks for the player of this profile and watches it from now on, in place of the one before.
    virtual Spielerfenster Finden(const Spielerprofil& Profil) = 0;
    // The answer of the player for the questions 104 and 105; 0 for commands, which are sent only.
    virtual std::int64_t Senden(Spielerfenster Fenster, int Nachricht, int wParam, int lParam) = 0;
    virtual Spielerlage Lage(Spielerfenster Fenster) const = 0;
    // True when Finden has had the time to look around; before that "not found" may be too early.
    virtual bool Umgesehen() const = 0;
    // True when the player is there but does not answer; Finden then gives 0.
    virtual bool Schweigt() const = 0;
    // Called in the owner's event loop whenever the player came, went or changed its state.
    std::function<void()> Geändert;
};

}  // namespace liedwerk
