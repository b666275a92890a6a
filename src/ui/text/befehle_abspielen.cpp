// Commands around playing: hand-over, remote control, recognition, AutoDJ.
#include <algorithm>
#include <array>

#include "basis/zahl.h"
#include "core/wiedergabelauf.h"
#include "suche/feldwert.h"
#include "ui/text/befehle.h"
#include "ui/text/lauf.h"

namespace liedwerk {
namespace {

constexpr std::int64_t Suchzeit = 2500;     // milliseconds for finding a running player
constexpr std::int64_t Antwortzeit = 1500;  // milliseconds that a command may take
constexpr std::int64_t Pause = 10;

// Waits until something holds; false when it did not in time.
template <class Bedingung>
bool Abwarten(const Uhr& Zeit, std::int64_t Dauer, Bedingung&& Erfüllt) {
    const std::int64_t Ende = Zeit.Millisekunden() + Dauer;
    while (!Erfüllt()) {
        if (Zeit.Millisekunden() >= Ende) return false;
        Zeit.Warten(Pause);
    }
    return true;
}

void NummernSchreiben(JsonSchreiber& Ziel, const std::vector<Satznummer>& Nummern) {
    Ziel.ListeAnfang();
    for (const Satznummer Nummer : Nummern)
        Ziel.Zahl(Nummer);
    Ziel.ListeEnde();
}

void NummernZeigen(Programmlauf& Lauf, const std::vector<Satznummer>& Nummern) {
    Tabelle Zeilen(Lauf.Text(), {"Nummer", "Abspiel-Häufigkeit", "Abspiel-Datum", "Datei"});
    const Satzspeicher& Sätze = Lauf.Programm().Index.Sätze;
    for (const Satznummer Nummer : Nummern)
        Zeilen.Zeile({std::to_string(Nummer), std::to_string(Sätze.Zahl(Nummer, FeldAbspielHäufigkeit)),
                      Sätze.Text(Nummer, FeldAbspielDatum), Sätze.Pfad(Nummer)});
    Zeilen.Fertig();
}

// A command of the remote control: its name, and the number that goes to the player.
struct Fernbefehl {
    std::string_view Name;
    int Nummer = 0;  // 0: asks only, or takes a value
    bool MitWert = false;
};
constexpr std::array<Fernbefehl, 10> Fernbefehle = {{
    {"zustand"},
    {"titel"},
    {"spielen", SpielerSpielen},
    {"pause", SpielerPause},
    {"stopp", SpielerStopp},
    {"vor", SpielerNächster},
    {"zurueck", SpielerVorheriger},
    {"position", 0, true},
    {"lautstaerke", 0, true},
    {"ende", SpielerSchließen},
}};

void BefehlSenden(const Spielersteuerung& Steuerung, const Fernbefehl& Befehl, int Wert) {
    if (Befehl.Nummer != 0) PlayerBefehl(Steuerung, Befehl.Nummer, false);
    if (Befehl.Name == "position") PlayerSpringen(Steuerung, Wert);
    if (Befehl.Name == "lautstaerke") PlayerLautstärkeSetzen(Steuerung, Wert);
}

// Why a player cannot do what it is told; empty when it can.
std::string BefehlPrüfen(const Fernbefehl& Befehl, std::int64_t Wert, const Spielerstand& Stand) {
    const auto Kann = [&](bool Fähig, std::string_view Was) {
        return Fähig ? std::string() : "Der Audioplayer kann " + std::string(Was) + ".";
    };
    const auto ImBereich = [&](std::string_view Was, std::int64_t Höchstens, std::string_view Einheit) {
        if (Wert >= 0 && Wert <= Höchstens) return std::string();
        return std::string(Was) + " " + std::to_string(Wert) + " gibt es nicht: Möglich ist 0 bis " +
               std::to_string(Höchstens) + std::string(Einheit) + ".";
    };
    if (Befehl.Name == "lautstaerke") {
        const std::string Meldung = ImBereich("Die Lautstärke", HöchsteLautstärke, "");
        return Meldung.empty() ? Kann(Stand.Lage.KannLautstärke, "seine Lautstärke nicht ändern") : Meldung;
    }
    if (Befehl.Name == "position") {
        if (Stand.Zustand == PlayerZustand::Stopped || Stand.Länge < 0)
            return "Der Audioplayer spielt keinen Titel, dessen Länge bekannt ist.";
        const std::string Meldung = ImBereich("Die Position", Stand.Länge, " Sekunden");
        return Meldung.empty() ? Kann(Stand.Lage.KannSpringen, "in diesem Titel nicht springen") : Meldung;
    }
    if (Befehl.Nummer == SpielerSchließen) return Kann(Stand.Lage.KannSchließen, "nicht beendet werden");
    if (Befehl.Nummer == SpielerNächster || Befehl.Nummer == SpielerVorheriger)
        return Kann(Stand.Lage.KannBlättern, "hier nicht blättern");
    return {};
}

std::string_view Zustandstext(const Spielerstand& Stand) {
    if (!Stand.Gefunden) return "";
    switch (Stand.Zustand) {
        case PlayerZustand::Playing:
            return "PLAYING";
        case PlayerZustand::Paused:
            return "PAUSED";
        case PlayerZustand::Stopped:
            break;
    }
    return "STOPPED";
}

}  // namespace

Ausgang AbspielenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Gewünschte = NummernLesen(Eingabe.Argumente);
    if (!Gewünschte) return Falsch("Eine NUMMER ist eine ganze Zahl.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    const auto Nummern = Lauf.Nummern(*Gewünschte);
    if (!Nummern) return Ausgang::Fehlgeschlagen;
    Wiedergabe Spielen(Lauf.Programm());
    Abspielumgebung Umgebung = AbspielumgebungVon(Spielen);
    Umgebung.BildAnzeigen = [&](std::string_view Pfad) {
        // There is no picture viewer here; the desktop's takes its place.
        const auto Start = Spielen.Steuerung.Programme.MitAnwendungÖffnen(Pfad);
        if (!Start)
            Fehlermelden("Das Bild '" + std::string(Pfad) +
                         "' konnte nicht geöffnet werden: " + Start.Fehler);
        return static_cast<bool>(Start);
    };
    const Abspielergebnis Ergebnis = AbspielenMediaPlayer(Umgebung, *Nummern, Eingabe.Hat("--anhaengen"),
                                                          Eingabe.Hat("--standard"), false, {});
    for (const std::string& Fehler : Ergebnis.Fehler)
        Fehlermelden(Fehler);
    const bool Gesichert = Lauf.GeändertesSpeichern();
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Playlistdatei", Ergebnis.Playlistdatei);
        Lauf.Dokument().Zahl("Anzahl", Ergebnis.Anzahl);
        Lauf.Dokument().ObjektEnde();
    } else if (Ergebnis.Anzahl > 0) {
        Lauf.Text().Schreiben(std::to_string(Ergebnis.Anzahl) + " Datei(en) übergeben\n");
    }
    return Lauf.Abschließen(Ergebnis.Gelungen && Gesichert);
}

Ausgang SpielerAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Befehl = std::find_if(Fernbefehle.begin(), Fernbefehle.end(), [&](const Fernbefehl& Einer) {
        return Einer.Name == Eingabe.Argumente[0];
    });
    if (Befehl == Fernbefehle.end())
        return Falsch("'" + Eingabe.Argumente[0] + "' ist kein Befehl für den Audio-Player.");
    if (Befehl->MitWert != (Eingabe.Argumente.size() == 2))
        return Falsch(Befehl->MitWert ? "Der Befehl braucht eine Zahl." : "Der Befehl hat keinen Wert.");
    const auto Wert = Befehl->MitWert ? GanzzahlLesen<std::int32_t>(Eingabe.Argumente[1]) : 0;
    if (!Wert) return Falsch("'" + Eingabe.Argumente[1] + "' ist keine Zahl.");

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit()) return Ausgang::Fehlgeschlagen;
    Wiedergabe Spielen(Lauf.Programm());
    Spielersteuerung& Steuerung = Spielen.Steuerung;
    const Uhr& Zeit = Steuerung.Zeit;
    if (Steuerung.Werte.WinampPfad.empty())
        return Gescheitert("Es ist kein Audioplayer eingestellt (Einstellung WinampPfad).");
    Abwarten(Zeit, Suchzeit, [&] { return PlayerSuchen(Steuerung, false) || Steuerung.Kanal.Umgesehen(); });
    if (!PlayerSuchen(Steuerung, false))
        return Gescheitert(Steuerung.Kanal.Schweigt()
                               ? "Der Audioplayer läuft, antwortet aber nicht.\nBitte versuchen Sie es noch "
                                 "einmal oder starten Sie ihn neu."
                               : "Der Audioplayer läuft nicht.");
    if (const std::string Meldung = BefehlPrüfen(*Befehl, *Wert, SpielerAblesen(Steuerung)); !Meldung.empty())
        return Gescheitert(Meldung);
    BefehlSenden(Steuerung, *Befehl, *Wert);
    const bool Angenommen =
        Abwarten(Zeit, Antwortzeit, [&] { return Steuerung.Kanal.Lage(Steuerung.PlayerFenster).Offen == 0; });
    // What the command has changed is read a moment later.
    if (Befehl->Nummer != 0 || Befehl->MitWert) Zeit.Warten(200);
    const Spielerstand Stand = SpielerAblesen(Steuerung);
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Text("Zustand", Zustandstext(Stand));
        Lauf.Dokument().Text("Titel", Stand.Titel);
        Lauf.Dokument().Zahl("Position", Stand.Position);
        Lauf.Dokument().Zahl("Länge", Stand.Länge);
        Lauf.Dokument().ObjektEnde();
    } else if (Befehl->Name == "titel") {
        Lauf.Text().Schreiben(Sichtbar(Stand.Titel) + "\n");
    } else if (Stand.Gefunden) {
        Lauf.Text().Schreiben(std::string(Zustandstext(Stand)) + "\n" + Sichtbar(Titeltext(Stand, false)) +
                              "\n" + Positionstext(Stand) + "\n");
    }
    if (!Angenommen) Fehlermelden("Der Audioplayer antwortet nicht.");
    return Lauf.Abschließen(Angenommen);
}

Ausgang TitelErkennenAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    const auto Sekunden = GanzzahlLesen<std::int32_t>(Eingabe.Argumente[1]);
    if (!Sekunden || *Sekunden < 0) return Falsch("SEKUNDEN ist eine ganze Zahl ab 0.");
    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    const GespielterTitel Gespielt{Eingabe.Argumente[0]};
    const Zeitpunkt Jetzt = Programm.Dienst.Zeit.Jetzt();
    Titelerkennung Erkennung;
    const auto Sehen = [&](std::int64_t Vorher) {
        TitelErkennen(Erkennung, Programm.Index, Programm.Werte, Programm.Dienst.Person, Gespielt,
                      AusKalendersekunden(Kalendersekunden(Jetzt) - Vorher));
    };
    // Seen first so many seconds ago, and once more now, until the whole index has been looked through.
    Sehen(*Sekunden);
    do
        Sehen(0);
    while (Erkennung.Suche);
    const auto Nummern =
        Erkennung.TitelErkannt ? SätzeZumTitel(Programm.Index, Gespielt.Titel) : std::vector<Satznummer>();
    const bool Gesichert = Lauf.GeändertesSpeichern();
    if (Lauf.Json()) {
        Lauf.Dokument().ObjektAnfang();
        Lauf.Dokument().Zahl("Anzahl", static_cast<std::int64_t>(Nummern.size()));
        Lauf.Dokument().Name("Nummern");
        NummernSchreiben(Lauf.Dokument(), Nummern);
        Lauf.Dokument().ObjektEnde();
    } else {
        NummernZeigen(Lauf, Nummern);
    }
    return Lauf.Abschließen(Gesichert);
}

Ausgang AutoDjAusführen(const Globaloptionen& Global, const Befehlseingabe& Eingabe) {
    AutoDjEingabe Wünsche;
    const std::string Funktion = Eingabe.Wert("--funktion").value_or("0");
    if (Funktion != "0" && Funktion != "1") return Falsch("--funktion ist 0 oder 1.");
    Wünsche.Funktion = Funktion == "1" ? AutoDjFunktion::Topliste : AutoDjFunktion::Zufällig;
    Wünsche.Maximum = Eingabe.Wert("--maximum").value_or("");
    Wünsche.Zeit = Eingabe.Wert("--zeit").value_or("");
    const auto Einheit = AutoDjEinheitLesen(Eingabe.Wert("--einheit").value_or("d"));
    if (!Einheit) return Falsch("--einheit ist n (Minuten), h (Stunden) oder d (Tage).");
    Wünsche.Einheit = *Einheit;
    Wünsche.AlteSeltener = Eingabe.Hat("--seltener");
    Wünsche.SehrAlteHäufiger = Eingabe.Hat("--haeufiger");
    Wünsche.Genres = Eingabe.AlleWerte("--genre");
    if (Wünsche.Genres.empty()) Wünsche.Genres = AlleAutoDjGenres();
    AutoDjWahl Wahl;
    if (const std::string Meldung = AutoDjPrüfen(Wünsche, Wahl); !Meldung.empty()) return Falsch(Meldung);
    const auto Saat = GanzzahlLesen<std::int64_t>(Eingabe.Wert("--saat").value_or("0"));
    if (!Saat) return Falsch("--saat ist eine ganze Zahl.");

    Programmlauf Lauf(Global);
    if (!Lauf.Bereit() || !Lauf.IndexLaden()) return Ausgang::Fehlgeschlagen;
    Anwendung& Programm = Lauf.Programm();
    const Zeitpunkt Jetzt = Programm.Dienst.Zeit.Jetzt();
    const auto Zufall =
        ZufallszahlVon(static_cast<std::uint64_t>(Eingabe.Hat("--saat") ? *Saat : Kalendersekunden(Jetzt)));
    const auto Nummern = AutoDjZusammenstellen(Programm.Index, Wahl, Jetzt, Zufall);
    if (Nummern.empty()) Fehlermelden(AutoDjNichtsGefunden(Programm.Werte.AbspielStatistikSpeichern == 1));
    if (Lauf.Json()) {
        NummernSchreiben(Lauf.Dokument(), Nummern);
    } else if (!Nummern.empty()) {
        NummernZeigen(Lauf, Nummern);
    }
    return Lauf.Abschließen(!Nummern.empty());
}

}  // namespace liedwerk
