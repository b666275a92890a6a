#include "core/optionentabelle.h"

#include <algorithm>

#include "basis/datei.h"
#include "basis/text.h"
#include "basis/zahl.h"
#include "cd/cddb.h"

namespace liedwerk {
namespace {

using enum Optionsseite;
using enum Optionsart;

constexpr Optionsblatt Blätter[] = {
    {Allgemein, "Allgemein", "einstellungen", "Start, Ende und Anzeige des Fortschritts"},
    {Suche, "Suche und Liste", "suchen", "Wie gesucht wird und was die Eingabe erleichtert"},
    {Darstellung, "Darstellung", "bild", "Schrift und Farben des Hauptfensters"},
    {Wiedergabe, "Wiedergabe", "spielen", "Ihr Audio-Player und was er von Liedwerk erhält"},
    {Dateien, "Hinzufügen", "hinzufuegen", "Was beim Aufnehmen von Dateien in den Index gelesen wird"},
    {Medien, "Synchronisation", "synchronisieren",
     "Wechselmedien, nicht verfügbare Dateien und der Abgleich mit Ihren Ordnern"},
    {Tags, "TAGs", "tag", "Wie TAGs gelesen und in Ihre Dateien geschrieben werden"},
    {Cd, "CD-Datenbank", "cd",
     "Woher die Titel von Audio-CDs kommen. Ohne Angabe eines Servers wird nichts abgefragt."},
    {Sicherheit, "Sicherheit", "speichern", "Speichern der Indexdatei und ihre Sicherungskopien"},
    {Hinweise, "Hinweise", "info", "Fenster, die Sie abgeschaltet haben, schalten Sie hier wieder ein"},
};

constexpr Optionswahl Beendenwahl[] = {
    {0, "Nachfragen"}, {1, "Fenster minimieren"}, {2, "Programm beenden"}, {3, "In die Startleiste"}};
constexpr Optionswahl Doppelklickwahl[] = {{0, "Abspielen", 1},
                                           {2, "An die Playliste des Audio-Players anhängen"},
                                           {3, "Datei-Informationen anzeigen"},
                                           {4, "Mit der Standard-Anwendung öffnen", 4, true}};

std::string ProgrammPrüfen(std::string_view Text) {
    if (Text.empty() || DateiExistiert(Text)) return {};
    return "Das Programm '" + std::string(Text) +
           "' wurde nicht gefunden.\nBitte wählen Sie die Programm-Datei Ihres Audio-Players, oder lassen "
           "Sie "
           "das Feld leer.";
}

// Nobody need give an address; a given one must be one that the query takes.
std::string AdressePrüfen(std::string_view Text) {
    return Text.empty() || Text == Einstellungen().CDDBEmail ? std::string() : CDDBEmailPrüfen(Text);
}

#define LIEDWERK_OPTION(Name) #Name, &Einstellungen::Name

constexpr Option Tabelle[] = {
    {Allgemein,
     "Start und Ende",
     LIEDWERK_OPTION(BeendenReaktion),
     Wahl,
     "&Beim Schließen des Fensters:",
     "Die Frage 'Programm beenden' kann diese Wahl ebenfalls treffen.",
     0,
     0,
     {},
     {},
     Beendenwahl},
    {Allgemein, "Start und Ende", LIEDWERK_OPTION(StartInTray), Schalter,
     "Beim Start nur das &Symbol in der Startleiste zeigen"},
    {Allgemein, "Fortschritt", LIEDWERK_OPTION(StartBildschirm), Schalter,
     "&Fortschritt langer Vorgänge anzeigen",
     "Nur ein angezeigter Vorgang lässt sich abbrechen. Anfragen an einen CD-Datenbank-Server zeigen sich "
     "nach "
     "zwei Sekunden immer."},
    {Allgemein,
     "Fortschritt",
     LIEDWERK_OPTION(StartBildschirmNichtBeiLaden),
     Schalter,
     "Nicht beim &Laden der Indexdatei",
     {},
     0,
     0,
     {},
     {},
     {},
     "StartBildschirm"},
    {Allgemein,
     "Fortschritt",
     LIEDWERK_OPTION(StartBildschirmNichtBeiSpeichern),
     Schalter,
     "Nicht beim S&peichern der Indexdatei",
     {},
     0,
     0,
     {},
     {},
     {},
     "StartBildschirm"},

    {Suche, "Suchen", LIEDWERK_OPTION(SucheNachEingabetaste), Schalter,
     "Erst nach Druck auf die &Eingabetaste suchen", "Sonst sucht das Programm, während Sie tippen."},
    {Suche, "Suchen", LIEDWERK_OPTION(SucheNichtBeiAuswahl), Schalter,
     "Bei &Wechsel des Suchfelds nicht suchen, solange nichts eingegeben ist"},
    {Suche, "Suchen", LIEDWERK_OPTION(SucheAlsWortStandard), Schalter, "Nur &ganze Wörter finden",
     "Gilt für neue Suchen in der Suchzeile; Such-Abfragen haben ihre eigene Einstellung."},
    {Suche, "Suchen", LIEDWERK_OPTION(SucheDirektStarten), Schalter, "Neue Such-Abfragen &direkt starten"},
    {Suche, "Suchen", LIEDWERK_OPTION(SucheNichtBeiTAGEditor), Schalter,
     "Während der Arbei&t im TAG-Editor nicht suchen"},
    {Suche, "Suchen", LIEDWERK_OPTION(SucheUmlauteGleich), Schalter,
     "'är&zte' auch bei 'arzte' und 'aerzte' finden"},
    {Suche, "Eingabehilfen", LIEDWERK_OPTION(Auswahlliste), Schalter,
     "Au&swahlliste für Such-Eingaben erstellen (langsamer)"},
    {Suche, "Eingabehilfen", LIEDWERK_OPTION(AutoCompleteVerwenden), Schalter,
     "Such-Eingaben a&utomatisch vervollständigen (langsamer)"},
    {Suche, "Eingabehilfen", LIEDWERK_OPTION(SucheVorschlägeErstellen), Schalter,
     "Ähnliche Wörter vorschlagen, wenn nichts ge&funden wurde"},
    {Suche, "Anzeigen", LIEDWERK_OPTION(SchnellsucheZeigen), Schalter,
     "&Buchstaben der Schnellsuche über der Liste"},
    {Suche, "Anzeigen", LIEDWERK_OPTION(Beschreibungsleiste), Schalter,
     "Beschreibung der gewählten Datei neben der &Liste"},
    {Suche, "Anzeigen", LIEDWERK_OPTION(FehlendeMedienZeigen), Schalter,
     "Dateien fehlender Datenträger &kennzeichnen"},

    {Darstellung, "Schrift der Liste", LIEDWERK_OPTION(ListeFont), Schrift, "Schrift&art:"},
    {Darstellung,
     "Schrift der Liste",
     LIEDWERK_OPTION(lngEinstellungenListeFontSize),
     Zahl,
     "&Größe:",
     {},
     4,
     72,
     "Punkt"},
    {Darstellung, "Schrift der Liste", LIEDWERK_OPTION(ListeFontBold), Schalter, "&Fett"},
    {Darstellung, "Schrift der Liste", LIEDWERK_OPTION(ListeFontItalic), Schalter, "&Kursiv"},
    {Darstellung, "Schrift der Liste", LIEDWERK_OPTION(ListeFontUnderline), Schalter, "&Unterstrichen"},
    {Darstellung, "Schrift der Liste", LIEDWERK_OPTION(ListeFontStrikeThrough), Schalter, "&Durchgestrichen"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeListen), Farbe, "&Listen:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeListenHintergrund), Farbe, "Hintergrund der Li&sten:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeFunktionen), Farbe, "Funkt&ionen:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeFunktionenHintergrund), Farbe,
     "Hin&tergrund der Funktionen:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeFunktionenBesucht), Farbe, "Besu&chte Funktionen:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeÜberschrift), Farbe, "Ü&berschriften:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeÜberschriftHintergrund), Farbe,
     "Hintergrund der &Überschriften:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeBeschreibungen), Farbe, "Besch&reibungen:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FarbeRahmen), Farbe, "Rah&men:"},
    {Darstellung, "Farben", LIEDWERK_OPTION(FunktionenUnterstreichen), Schalter,
     "Funktionen unt&erstreichen"},

    {Wiedergabe,
     "Audio-Player",
     LIEDWERK_OPTION(WinampPfad),
     Programm,
     "&Programm-Pfad:",
     "Mit diesem Programm werden Ihre Dateien abgespielt.",
     0,
     0,
     {},
     {},
     {},
     {},
     ProgrammPrüfen},
    {Wiedergabe, "Audio-Player", LIEDWERK_OPTION(WinampParameterAbspielen), Text, "Parameter zum Ab&spielen:",
     "Steht beim Start des Players vor der Playliste; leer, wenn er keinen braucht."},
    {Wiedergabe, "Audio-Player", LIEDWERK_OPTION(WinampParameterHinzufügen), Text,
     "Parameter zum Hin&zufügen:", "Steht vor der Playliste, wenn diese an die laufende angehängt wird."},
    {Wiedergabe, "Audio-Player", LIEDWERK_OPTION(PlaylistFürWinamp), Schalter,
     "&Titel und Dauer in Playlisten schreiben", "Ältere Player lesen nur Playlisten ohne diese Angaben."},
    {Wiedergabe,
     "Liste",
     LIEDWERK_OPTION(BeiDoppelklick),
     Wahl,
     "Bei &Doppelklick auf eine Datei:",
     {},
     0,
     0,
     {},
     {},
     Doppelklickwahl},
    {Wiedergabe, "Player-Leiste", LIEDWERK_OPTION(AudioPlayerBlinken), Schalter,
     "Zeit in den letzten 15 Sekunden eines Titels &blinken lassen"},
    {Wiedergabe, "Player-Leiste", LIEDWERK_OPTION(PlayerAusblendenBeiStopp), Schalter,
     "Player-Leiste &ausblenden, wenn nichts abgespielt wird"},
    {Wiedergabe, "Speicherung von Abspiel-Statistiken", LIEDWERK_OPTION(AbspielStatistikSpeichern), Schalter,
     "Automatisch im Index speichern, welche Titel ich abspiele (für die Funktion 'AutoDJ') - funktioniert "
     "nur mit Winamp",
     "Ebenso mit jedem Audio-Player, dessen laufender Titel in der Player-Leiste erscheint."},

    {Dateien, "Beim Hinzufügen", LIEDWERK_OPTION(HinzufügenUnterordner), Schalter, "&Unterordner einbeziehen",
     "Gilt für Ordner, die Sie wählen oder in das Fenster ziehen."},
    {Dateien, "Beim Hinzufügen", LIEDWERK_OPTION(HinzufügenKeineDoppelten), Schalter,
     "&Keine Dateien hinzufügen, die schon im Index sind"},
    {Dateien, "Beim Hinzufügen", LIEDWERK_OPTION(WeitereFormate), Schalter,
     "Auch &FLAC, Opus, MP4/M4A, APE und AIFF verwalten",
     "Diese Dateien werden gelesen, aber nie geändert. Einzelne Arten wählen Sie bei den Dateitypen des "
     "Index ab."},
    {Dateien, "Aus den Dateien lesen", LIEDWERK_OPTION(Mp3TagLesen), Stelle, "ID3v&1-TAGs", {}, 0},
    {Dateien,
     "Aus den Dateien lesen",
     LIEDWERK_OPTION(Mp3TagLesen),
     Stelle,
     "ID3v&2- und Lyrics-TAGs",
     {},
     1},
    {Dateien,
     "Aus den Dateien lesen",
     LIEDWERK_OPTION(Mp3TagLesen),
     Stelle,
     "&Informationen wie Dauer und Bitrate",
     {},
     2},

    {Medien, "Dateien, die nicht verfügbar sind", LIEDWERK_OPTION(NichtVerfügbarFragen), Schalter,
     "Nach dem fehlenden &Medium fragen", "Sonst werden solche Dateien übersprungen."},
    {Medien, "Dateien, die nicht verfügbar sind", LIEDWERK_OPTION(NichtVerfügbarNetzwerkIstWechselmedium),
     Schalter, "Netz&laufwerke wie Wechselmedien behandeln"},
    {Medien, "Dateien, die nicht verfügbar sind", LIEDWERK_OPTION(NichtVerfügbarExistierenNicht), Schalter,
     "Nicht verfügbare Dateien als nicht &existierend behandeln (Vorsicht!)",
     "Beim Synchronisieren werden dann auch Dateien aus dem Index entfernt, deren Medium gerade fehlt."},
    {Medien, "Synchronisieren", LIEDWERK_OPTION(SyncGeänderteLesen), Schalter,
     "&Geänderte Dateien dabei neu lesen",
     "Größe, Klangdaten und TAGs kommen aus der Datei; Ihre Statistik, Bewertung und Benutzer-Daten "
     "bleiben."},
    {Medien, "Synchronisieren", LIEDWERK_OPTION(SyncBeobachten), Schalter,
     "Ordner &beobachten und die Synchronisation anbieten",
     "Gilt für die Ordner zum Synchronisieren, die auf Laufwerken dieses Computers liegen."},
    {Medien, "Ordner", LIEDWERK_OPTION(LeereOrdnerLöschen), Schalter,
     "Anbieten, nach dem Verschieben oder Löschen leere O&rdner zu entfernen"},

    {Tags, "Automatisch speichern", LIEDWERK_OPTION(TAGAutomatischSpeichern), Schalter,
     "ID3v&1-TAG beim Wechsel der Datei"},
    {Tags, "Automatisch speichern", LIEDWERK_OPTION(TAGAutomatischSpeichernV2), Schalter,
     "ID3v&2-TAG beim Wechsel der Datei"},
    {Tags, "Automatisch speichern", LIEDWERK_OPTION(TAGAutomatischSpeichernLyrics), Schalter,
     "&Lyrics-TAG beim Wechsel der Datei"},
    {Tags, "ID3v2-TAGs", LIEDWERK_OPTION(TAGsModern), Schalter,
     "ID3v2-TAGs so &schreiben und lesen, wie es heute üblich ist",
     "Erhält Bilder, unbekannte Felder und Zeichen aller Sprachen."},
    {Tags, "ID3v2-TAGs", LIEDWERK_OPTION(TAGsSoftwareFeldSchreiben), Schalter,
     "Feld 'So&ftware' mit dem Namen dieses Programms füllen"},
    {Tags, "ID3v2-TAGs", LIEDWERK_OPTION(ID3v2GenreZahlenEntfernen), Schalter,
     "&Genre ohne Nummer in Klammern schreiben"},
    {Tags, "ID3v2-TAGs", LIEDWERK_OPTION(TAGsProzentHinzufügen), Zahl, "&Reserve für spätere Änderungen:",
     "Platz, den ein neu geschriebener ID3v2-TAG zusätzlich erhält. Mit Reserve muss eine Datei seltener "
     "ganz "
     "neu geschrieben werden.",
     0, 1000, "%", "keine"},
    {Tags, "ID3v2-TAGs", LIEDWERK_OPTION(TAGsBytesSuchen), Zahl, "ID3v2-TAG su&chen in den ersten:",
     "Beginnt der TAG weiter hinten in der Datei, wird er nicht gefunden.", 10, 104857600, "Bytes"},

    {Cd,
     "Server",
     LIEDWERK_OPTION(CDDBServer),
     Text,
     "&CD-Datenbank-Server:",
     "Name des Rechners ohne 'http://', zum Beispiel cddb.anbieter.invalid",
     0,
     0,
     {},
     {},
     {},
     {},
     ServernamePrüfen},
    {Cd,
     "Server",
     LIEDWERK_OPTION(CDDBEmail),
     Text,
     "&EMail-Adresse:",
     "Der Server erhält sie bei jeder Anfrage.",
     0,
     0,
     {},
     {},
     {},
     {},
     AdressePrüfen},
    {Cd, "Titel", LIEDWERK_OPTION(CDDBVariousErsetzen), Schalter,
     "Bei CDs mit &mehreren Interpreten ('Various') den Interpreten aus dem Titel nehmen"},

    {Sicherheit, "Indexdatei speichern", LIEDWERK_OPTION(DateiAutomatischSpeichern), Schalter,
     "Beim &Beenden ohne Nachfrage speichern"},
    {Sicherheit,
     "Indexdatei speichern",
     LIEDWERK_OPTION(RegelmäßigSpeichernAlle),
     Zahl,
     "&Regelmäßig speichern alle:",
     {},
     0,
     1440,
     "Minuten",
     "nie"},
    {Sicherheit, "Sicherungskopien", LIEDWERK_OPTION(BackupsSpeichern), Schalter,
     "Automatisch &Sicherungskopien anlegen",
     "Beim Speichern wird die bisherige Indexdatei neben der neuen aufgehoben."},
    {Sicherheit,
     "Sicherungskopien",
     LIEDWERK_OPTION(BackupsSpeichernIntervall),
     Zahl,
     "&Abstand zwischen zwei Kopien:",
     {},
     0,
     8760,
     "Stunden",
     "keiner (bei jedem Speichern)",
     {},
     "BackupsSpeichern"},
    {Sicherheit,
     "Sicherungskopien",
     LIEDWERK_OPTION(BackupsSpeichernKopienBehalten),
     Zahl,
     "&Kopien aufheben für:",
     "Ältere Sicherungskopien werden beim Speichern gelöscht.",
     1,
     3650,
     "Tage",
     {},
     {},
     "BackupsSpeichern"},

    {Hinweise, "Diese Fenster zeigen", LIEDWERK_OPTION(TippsAktueller), Laufend, "&Tipps beim Start"},
    {Hinweise, "Diese Fenster zeigen", LIEDWERK_OPTION(AudioplayerNachrichtZeigen), Schalter,
     "Nachricht, dass der &Audio-Player Ihre Dateien abspielt"},
    {Hinweise, "Diese Fenster zeigen", LIEDWERK_OPTION(HinzufügenZusammenfassungZeigen), Schalter,
     "&Zusammenfassung gefundener Dateinamen vor dem Hinzufügen"},
    {Hinweise, "Diese Fenster zeigen", LIEDWERK_OPTION(FremderIndexNachricht), Schalter,
     "Name des &Eigentümers beim Laden eines Index"},
    {Hinweise, "Diese Fenster zeigen", LIEDWERK_OPTION(TAGsVerlustFragen), Schalter,
     "&Frage, bevor beim Speichern eines TAGs etwas verloren geht"},
};

#undef LIEDWERK_OPTION

std::string* TextVon(Einstellungen& Werte, const Option& Eine) {
    auto* const Ort = std::get_if<std::string Einstellungen::*>(&Eine.Ort);
    return Ort == nullptr ? nullptr : &(Werte.**Ort);
}

}  // namespace

std::span<const Optionsblatt> Optionsblätter() {
    return Blätter;
}

std::span<const Option> Optionen() {
    return Tabelle;
}

std::string OptionText(const Einstellungen& Werte, const Option& Eine) {
    const auto* const Ort = std::get_if<std::string Einstellungen::*>(&Eine.Ort);
    return Ort == nullptr ? std::string() : Werte.**Ort;
}

void OptionTextSetzen(Einstellungen& Werte, const Option& Eine, std::string_view Text) {
    if (std::string* const Ziel = TextVon(Werte, Eine)) *Ziel = Text;
}

std::int32_t OptionZahl(const Einstellungen& Werte, const Option& Eine) {
    std::int32_t Zahl = 0;
    if (const auto* const Kurz = std::get_if<std::int16_t Einstellungen::*>(&Eine.Ort)) Zahl = Werte.**Kurz;
    if (const auto* const Lang = std::get_if<std::int32_t Einstellungen::*>(&Eine.Ort)) Zahl = Werte.**Lang;
    switch (Eine.Art) {
        case Stelle: {
            const std::string Ziffern = OptionText(Werte, Eine);
            const auto Platz = static_cast<std::size_t>(Eine.Mindestens);
            return Platz < Ziffern.size() && Ziffern[Platz] == '1' ? 1 : 0;
        }
        case Schalter:
            return Zahl == 1 ? 1 : 0;
        case Laufend:
            return Zahl != 0 ? 1 : 0;
        default:
            return Zahl;
    }
}

std::size_t Wahlplatz(std::span<const Optionswahl> Auswahl, std::int32_t Zahl) {
    auto Fund = std::ranges::find_if(
        Auswahl, [Zahl](const Optionswahl& Eine) { return Eine.Wert == Zahl || Eine.Auch == Zahl; });
    if (Fund == Auswahl.end()) Fund = std::ranges::find_if(Auswahl, &Optionswahl::Sonst);
    return Fund == Auswahl.end() ? 0 : static_cast<std::size_t>(Fund - Auswahl.begin());
}

void OptionZahlSetzen(Einstellungen& Werte, const Option& Eine, std::int32_t Zahl) {
    // A running number that is on goes on from where it stands.
    if (Eine.Art == Laufend && OptionZahl(Werte, Eine) == Zahl) return;
    if (const auto* const Kurz = std::get_if<std::int16_t Einstellungen::*>(&Eine.Ort))
        Werte.** Kurz = static_cast<std::int16_t>(Zahl);
    if (const auto* const Lang = std::get_if<std::int32_t Einstellungen::*>(&Eine.Ort)) Werte.** Lang = Zahl;
    std::string* const Ziffern = TextVon(Werte, Eine);
    if (Ziffern == nullptr || Eine.Art != Stelle) return;
    const auto Platz = static_cast<std::size_t>(Eine.Mindestens);
    if (Ziffern->size() <= Platz) Ziffern->resize(Platz + 1, '0');
    (*Ziffern)[Platz] = Zahl == 1 ? '1' : '0';
}

bool OptionGleich(const Einstellungen& A, const Einstellungen& B, const Option& Eine) {
    return OptionText(A, Eine) == OptionText(B, Eine) && OptionZahl(A, Eine) == OptionZahl(B, Eine);
}

void OptionVorgabe(Einstellungen& Werte, const Option& Eine) {
    const Einstellungen Vorgabe;
    if (Eine.Art != Stelle) OptionTextSetzen(Werte, Eine, OptionText(Vorgabe, Eine));
    OptionZahlSetzen(Werte, Eine, OptionZahl(Vorgabe, Eine));
}

std::optional<Optionsfehler> OptionenPrüfen(const Einstellungen& Neu, const Einstellungen& Alt) {
    for (const Option& Eine : Optionen()) {
        if (Eine.Prüfen == nullptr || OptionGleich(Neu, Alt, Eine)) continue;
        std::string Meldung = Eine.Prüfen(OptionText(Neu, Eine));
        if (!Meldung.empty()) return Optionsfehler{&Eine, std::move(Meldung)};
    }
    return std::nullopt;
}

std::string ServernamePrüfen(std::string_view Text) {
    constexpr int HöchsterAnschluss = 65535;
    const auto Erlaubt = [](char Zeichen) {
        return (Zeichen >= 'a' && Zeichen <= 'z') || (Zeichen >= 'A' && Zeichen <= 'Z') ||
               (Zeichen >= '0' && Zeichen <= '9') || Zeichen == '-' || Zeichen == '.';
    };
    const std::size_t Trennung = Text.rfind(':');
    const std::string_view Name = Text.substr(0, Trennung);
    const auto Anschluss = Trennung == std::string_view::npos
                               ? std::optional<std::int32_t>(HöchsterAnschluss)
                               : GanzzahlLesen<std::int32_t>(Text.substr(Trennung + 1));
    const bool Benannt = !Name.empty() && std::ranges::all_of(Name, Erlaubt) && !Name.starts_with('.') &&
                         !Name.starts_with('-') && !Name.ends_with('.') &&
                         Name.find("..") == std::string_view::npos;
    if (Text.empty() || (Benannt && Anschluss && *Anschluss >= 1 && *Anschluss <= HöchsterAnschluss))
        return {};
    return "Der Server '" + std::string(Text) +
           "' ist kein Name eines Rechners.\nBitte geben Sie den Namen ohne 'http://' und ohne Pfad ein, zum "
           "Beispiel 'cddb.anbieter.invalid', oder lassen Sie das Feld leer.";
}

}  // namespace liedwerk
