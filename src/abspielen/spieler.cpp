#include "abspielen/spieler.h"

#include <algorithm>

#include "basis/datei.h"
#include "basis/text.h"
#include "suche/feldwert.h"

namespace liedwerk {
namespace {

constexpr std::int64_t SuchdauerHöchstens = 5;  // seconds
constexpr std::int64_t Suchpause = 20;          // milliseconds between two looks
constexpr std::int64_t BlinkenAb = 15;          // seconds before the end of a title

std::int64_t Senden(const Spielersteuerung& Steuerung, int Nachricht, int wParam, int lParam) {
    if (Steuerung.PlayerFenster == 0) return 0;
    return Steuerung.Kanal.Senden(Steuerung.PlayerFenster, Nachricht, wParam, lParam);
}

// The other form: a field of characters that ends with a NUL, with a number in front and a length behind.
std::string StudioTitel(std::string_view Feld) {
    constexpr std::size_t Anhang = 10;  // characters that stand behind the title
    std::string_view Text = Feld.substr(0, Feld.find('\0'));
    const std::size_t Zeichen = ZeichenAnzahl(Text);
    Text = Kürzen(LinkerTeil(Text, Zeichen - std::min(Zeichen, Anhang)));
    if (const std::size_t Punkt = Text.find('.'); Punkt != std::string_view::npos)
        Text.remove_prefix(Punkt + 1);
    if (const std::size_t Klammer = Text.rfind('('); Klammer != std::string_view::npos)
        Text = Text.substr(0, Klammer);
    return std::string(Kürzen(Text));
}

}  // namespace

bool PlayerSuchen(Spielersteuerung& Steuerung, bool Starten) {
    const auto Wahl = SpielerVon(Steuerung.Werte.WinampPfad);
    if (!Wahl) {
        Steuerung.PlayerFenster = 0;
        return false;
    }
    const Spielerprofil Profil = Wahl->FürKanal();
    if (PlayerFensterHolen(Steuerung, false, Profil)) return true;
    return Starten && PlayerStarten(Steuerung) && PlayerFensterHolen(Steuerung, true, Profil);
}

bool PlayerFensterHolen(Spielersteuerung& Steuerung, bool Warten, const Spielerprofil& Profil) {
    const Zeitpunkt Beginn = Steuerung.Zeit.Jetzt();
    const std::int64_t Ende = Steuerung.Zeit.Millisekunden() + SuchdauerHöchstens * 1000;
    for (;;) {
        Steuerung.PlayerFenster = Steuerung.Kanal.Finden(Profil);
        if (Steuerung.PlayerFenster != 0 || !Warten) return Steuerung.PlayerFenster != 0;
        // The calendar may stand still or jump; the other clock ends the wait then.
        const std::int64_t Vergangen = Kalendersekunden(Steuerung.Zeit.Jetzt()) - Kalendersekunden(Beginn);
        if (Vergangen >= SuchdauerHöchstens || Steuerung.Zeit.Millisekunden() >= Ende) return false;
        Steuerung.Person.EreignisseVerarbeiten();
        Steuerung.Zeit.Warten(Suchpause);
    }
}

bool PlayerStarten(Spielersteuerung& Steuerung) {
    const std::string& Pfad = Steuerung.Werte.WinampPfad;
    return SpielerVon(Pfad) && DateiExistiert(Pfad) && Steuerung.Programme.Starten(Pfad, {});
}

std::int64_t PlayerBefehl(const Spielersteuerung& Steuerung, int Nummer, bool Benutzer) {
    return Benutzer ? Senden(Steuerung, NachrichtBenutzer, 0, Nummer)
                    : Senden(Steuerung, NachrichtBefehl, Nummer, 0);
}

PlayerZustand PlayerZustandLesen(const Spielersteuerung& Steuerung) {
    switch (PlayerBefehl(Steuerung, SpielerZustandFragen, true)) {
        case 1:
            return PlayerZustand::Playing;
        case 3:
            return PlayerZustand::Paused;
        default:
            return PlayerZustand::Stopped;
    }
}

std::int64_t PlayerPosition(const Spielersteuerung& Steuerung) {
    if (Steuerung.PlayerFenster == 0) return -1;
    const std::int64_t Position = Senden(Steuerung, NachrichtBenutzer, 0, SpielerZeitFragen);
    return Position < 0 ? -1 : Position / 1000;
}

std::int64_t PlayerLänge(const Spielersteuerung& Steuerung) {
    if (Steuerung.PlayerFenster == 0) return -1;
    return std::max<std::int64_t>(-1, Senden(Steuerung, NachrichtBenutzer, 1, SpielerZeitFragen));
}

void PlayerSpringen(const Spielersteuerung& Steuerung, std::int64_t Sekunden) {
    constexpr std::int64_t Höchstens = INT32_MAX / 1000;
    if (Sekunden < 0 || Sekunden > std::min(PlayerLänge(Steuerung), Höchstens)) return;
    Senden(Steuerung, NachrichtBenutzer, static_cast<int>(Sekunden * 1000), SpielerSpringen);
}

void PlayerLautstärkeSetzen(const Spielersteuerung& Steuerung, int Lautstärke) {
    if (Lautstärke < 0 || Lautstärke > HöchsteLautstärke) return;
    Senden(Steuerung, NachrichtBenutzer, Lautstärke, SpielerLautstärke);
}

void PlayerBalanceSetzen(const Spielersteuerung& Steuerung, int Balance) {
    if (Balance < -127 || Balance > 127) return;
    Senden(Steuerung, NachrichtBenutzer, Balance < 0 ? Balance + 255 : Balance, SpielerBalance);
}

std::string PlayerTitel(std::string_view Fenstertext, bool Anders) {
    if (Fenstertext.empty()) return {};
    if (Anders) return StudioTitel(Fenstertext);
    std::string_view Text = Fenstertext;
    if (Text.front() >= '0' && Text.front() <= '9') {
        if (const std::size_t Punkt = Text.find(". "); Punkt != std::string_view::npos)
            Text.remove_prefix(Punkt + 2);
    }
    for (const std::string_view Ende : {" - mp3pro - Winamp", " - Winamp"}) {
        const std::size_t Stelle = PositionOhneGroß(Text, Ende);
        if (Stelle == std::string_view::npos) continue;
        Text = Text.substr(0, Stelle);
        break;
    }
    return std::string(Kürzen(Text));
}

Spielerstand SpielerAblesen(Spielersteuerung& Steuerung) {
    Spielerstand Stand;
    Stand.Gefunden = PlayerSuchen(Steuerung, false);
    if (!Stand.Gefunden) return Stand;
    Stand.Zustand = PlayerZustandLesen(Steuerung);
    Stand.Position = PlayerPosition(Steuerung);
    Stand.Länge = PlayerLänge(Steuerung);
    Stand.Lage = Steuerung.Kanal.Lage(Steuerung.PlayerFenster);
    if (Stand.Zustand == PlayerZustand::Stopped) return Stand;
    const auto Wahl = SpielerVon(Steuerung.Werte.WinampPfad);
    Stand.Titel = Stand.Lage.TitelIstFenstertext
                      ? PlayerTitel(Stand.Lage.Titel, Wahl->Art == Spielerart::Studio)
                      : Stand.Lage.Titel;
    return Stand;
}

bool TitelEndetBald(const Spielerstand& Stand) {
    return Stand.Zustand == PlayerZustand::Playing && Stand.Länge > 0 && Stand.Position >= 0 &&
           Stand.Länge - Stand.Position < BlinkenAb;
}

std::string Positionstext(const Spielerstand& Stand) {
    std::string Text = "Titelposition";
    if (!Stand.Gefunden) return Text;
    // A stream has no length and a stopped player no position; both then count as the beginning.
    return Text + " - " + DauerFormatieren(std::max<std::int64_t>(0, Stand.Position), true) + "/" +
           DauerFormatieren(std::max<std::int64_t>(0, Stand.Länge), true);
}

std::string Titeltext(const Spielerstand& Stand, bool Erkannt) {
    std::string Text = "Audio-Player";
    // A stopped player names no title.
    if (Stand.Titel.empty()) return Text;
    Text += " - '" + Stand.Titel + "'";
    return Erkannt ? Text + " - [Erkannt]" : Text;
}

}  // namespace liedwerk
