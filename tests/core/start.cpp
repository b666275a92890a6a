#include "core/start.h"

#include <stdexcept>

#include "core/laden.h"
#include "core/suchlauf.h"
#include "welt.h"

namespace liedwerk {
namespace {

using Texte = std::vector<std::string>;

class Starttest : public Kerntest {
  protected:
    void Starten(const Texte& Argumente = {}) { Main(*P, StartauftragLesen(Argumente)); }
    // The stages in the log.
    Texte Stufen() const {
        Texte Zeilen = Logzeilen();
        std::erase_if(Zeilen, [](const std::string& Zeile) { return !Zeile.starts_with("Main: "); });
        return Zeilen;
    }
};

TEST_F(Starttest, DieStufenStehenInIhrerReihenfolgeImProtokoll) {
    Datei("programm/log.me", "");
    Datei("programm/log.txt", "von gestern");
    Starten();
    ASSERT_FALSE(Person.Meldungen.empty());
    EXPECT_TRUE(Person.Meldungen[0].starts_with("Es wurde eine Datei mit dem Namen 'log.me'"));
    const Texte Zeilen = Logzeilen();
    ASSERT_GT(Zeilen.size(), 8u);
    EXPECT_TRUE(Zeilen[0].starts_with("Liedwerk-Protokolldatei vom"));
    EXPECT_EQ(Zeilen[1], "");
    EXPECT_EQ(Zeilen[3], "Betriebssystem: Testsystem 1");
    EXPECT_EQ(Zeilen[8], "Es folgen Aktionen...");
    P->Log.Schreiben("ein\r\nMain: gefälschter\nName");
    EXPECT_EQ(Logzeilen().back(), "ein  Main: gef\xE4lschter Name");
    EXPECT_EQ(std::filesystem::status(P->Log.Datei()).permissions(), std::filesystem::perms(0600));
    const Texte Erwartet = {"Main: Start vorbereiten",
                            "Main: Variablen vorbereiten",
                            "Main: Steuerelemente pr\xFC"
                            "fen - Listen",
                            "Main: Steuerelemente pr\xFC"
                            "fen - Bild-Felder",
                            "Main: Steuerelemente pr\xFC"
                            "fen - Tray-Symbole",
                            "Main: Steuerelemente pr\xFC"
                            "fen - Grafische Men\xFC"
                            "s",
                            "Main: Steuerelemente pr\xFC"
                            "fen - Neue Bild-Felder",
                            "Main: Einstellungen lesen",
                            "Main: Parameter verarbeiten und Index laden",
                            "Main: Winamp vorbereiten und einstellen",
                            "Main: Start einleiten",
                            "Main: System-Symbol einrichten",
                            "Main: Fenster anzeigen",
                            "Main: Fenster anpassen",
                            "Main: Suche einrichten",
                            "Main: Wilkommensfenster \xFC"
                            "berpr\xFC"
                            "fen/anzeigen",
                            "Main: Wilkommensbotschaft anzeigen",
                            "Main: Tipps-Fenster \xFC"
                            "berpr\xFC"
                            "fen/anzeigen",
                            "Main: Fenster pr\xFC"
                            "fen/freigeben",
                            "Main: Ereignisse pr\xFC"
                            "fen",
                            "Main: Start abschlie\xDF"
                            "en",
                            "Main: Start abgeschlossen"};
    EXPECT_EQ(Stufen(), Erwartet);
    EXPECT_FALSE(P->Startet);
}

TEST_F(Starttest, EineFehlendeKomponenteBeendetDenStartOhneSpuren) {
    Fenster.FehlendesSteuerelement = Steuerelemente::TraySymbole;
    Starten();
    ASSERT_EQ(Person.Meldungen.size(), 1U);
    EXPECT_NE(Person.Meldungen[0].find("geladen werden.\nEine Komponente fehlt oder ist beschädigt.\n\n"),
              std::string::npos);
    EXPECT_TRUE(P->BeendenErbeten);
    EXPECT_TRUE(Fenster.Rufe.empty());
    EXPECT_TRUE(Werte.Inhalt.empty());
}

TEST_F(Starttest, OhneLogMeEntstehtKeinProtokoll) {
    Starten();
    EXPECT_FALSE(std::filesystem::exists(Ordner + "/programm/log.txt"));
}

TEST_F(Starttest, DerErsteStartZentriertUndGrüßt) {
    P->TerminePrüfen = [this] {
        Fenster.Merken("Termine");
        return std::vector<Terminmeldung>{};
    };
    Werte.Inhalt = {{"FensterWidth", 800},
                    {"FensterHeight", 600},
                    {"FarbeListen", 255},
                    {"WinampLautstärke", 300},
                    {"WinampBalance", -200}};
    Fenster.Tipps = 1;
    Starten();
    const Texte Erwartet = {"Erscheinung", "Liste frei",   "Name lwStamm.lwi",
                            "Liste",       "Regler 128/0", "Symbol",
                            "Erscheinung", "Shell",        "Zentriert",
                            "Sichtbar",    "Willkommen",   "Hinweis Willkommen zum Liedwerk",
                            "Fokus",       "Termine",      "Uhr"};
    EXPECT_EQ(Fenster.Rufe, Erwartet);
    EXPECT_EQ(P->Werte.FarbeListen, DesktopFarbe);
    EXPECT_EQ(P->Werte.Start, Versionszahl());
    EXPECT_EQ(Person.Status.back(), "Willkommen! Bitte fügen Sie Dateien zum Index hinzu");
}

TEST_F(Starttest, SpätereStartsStehenAmAltenPlatz) {
    Werte.Inhalt = {{"Start", Versionszahl()},    {"FensterWidth", 800}, {"FensterHeight", 600},
                    {"FensterLeft", 10},          {"FensterTop", 20},    {"StartInTray", 1},
                    {"Sperre", std::string("x")}, {"SperreAktiv", 1},    {"TippsAktueller", 3}};
    Fenster.Tipps = 3;
    Starten();
    EXPECT_TRUE(Fenster.Gerufen("Lage 10,20"));
    EXPECT_TRUE(Fenster.Gerufen("Versteckt"));
    EXPECT_TRUE(Fenster.Gerufen("Hinweis Willkommen zurück zum Liedwerk"));
    EXPECT_TRUE(Fenster.Gerufen("Tipp 1"));  // behind the last comes the first
    EXPECT_TRUE(Fenster.Gerufen("Sperre"));
    EXPECT_FALSE(Fenster.Gerufen("Willkommen"));
    EXPECT_FALSE(Fenster.Gerufen("Shell"));

    // Another minor version centres, but leaves the colours alone.
    NeuerLauf();
    Werte.Inhalt["Start"] = 199;
    Werte.Inhalt["FarbeListen"] = 255;
    Starten();
    EXPECT_TRUE(Fenster.Gerufen("Zentriert"));
    EXPECT_EQ(P->Werte.FarbeListen, 255);
}

TEST_F(Starttest, EinFehlerInEinerStufeBeendetNichts) {
    Datei("programm/log.me", "");
    P->TerminePrüfen = []() -> std::vector<Terminmeldung> { throw std::runtime_error("kaputt"); };
    Starten();
    EXPECT_TRUE(Person.Meldungen.back().starts_with(
        "Das Programm konnte nicht vollständig geladen werden.\nkaputt (Fehler 0).\n\nStellen Sie sicher"));
    const Texte Zeilen = Stufen();
    EXPECT_EQ(Zeilen.back(), "Main: Start abgeschlossen");
    EXPECT_EQ(Zeilen[Zeilen.size() - 3], "Main: Fehler - kaputt (0)");
    EXPECT_FALSE(P->BeendenErbeten);
}

TEST_F(Starttest, DerDateimanagerNimmtAlleOrdnerUndVergisstSie) {
    Lied("musik/eins/a.mp3", "A");
    Lied("mehr/b.mp3", "B");
    Starten({"--dir", Ordner + "/musik", Ordner + "/mehr"});
    EXPECT_EQ(P->Index.Programmmodus, ModusDateimanager);
    EXPECT_EQ(P->Index.IndexDateiname, Ordner + "/musik");
    EXPECT_TRUE(Fenster.Gerufen("Name " + Ordner + "/musik"));
    Texte Pfade;
    for (Satznummer i = 1; i <= P->Index.IndexAnzahl(); ++i)
        Pfade.push_back(P->Index.Sätze.Pfad(i));
    for (const auto* Name : {"/musik/eins", "/musik/eins/a.mp3", "/mehr/b.mp3"})
        EXPECT_NE(std::find(Pfade.begin(), Pfade.end(), Ordner + Name), Pfade.end()) << Name;
    EXPECT_EQ(P->Ansicht.Zeilen.size(), Pfade.size());

    // A folder without a switch means the same.
    NeuerLauf();
    Starten({Ordner + "/musik"});
    EXPECT_EQ(P->Index.Programmmodus, ModusDateimanager);
    EXPECT_FALSE(std::filesystem::exists(Standard()));

    NeuerLauf();
    Starten({"--dir"});
    EXPECT_TRUE(P->BeendenErbeten);
    EXPECT_FALSE(Fenster.Gerufen("Sichtbar"));
}

TEST_F(Starttest, DerTagWegZeigtNurDenEditorUndBehältDieEinstellungen) {
    const std::string A = Lied("a b.mp3", "A");
    const std::string B = Lied("b.mp3", "B");
    Werte.Inhalt = {{"Mp3TagLesen", std::string("111")}, {"Dateiname", std::string("/m/mein.lwi")}};
    Starten({"--tag", A, B});
    EXPECT_TRUE(Fenster.Gerufen("Editor"));
    EXPECT_FALSE(Fenster.Gerufen("Sichtbar"));
    EXPECT_FALSE(Fenster.Gerufen("Symbol"));
    EXPECT_EQ(P->Ansicht.Auswahl, (std::vector<Satznummer>{1, 2}));
    EXPECT_TRUE(P->BeendenErbeten);
    EXPECT_EQ(std::get<std::string>(*Werte.Lesen("Mp3TagLesen")), "111");
    EXPECT_EQ(std::get<std::string>(*Werte.Lesen("Dateiname")), "/m/mein.lwi");

    NeuerLauf();
    Starten({"--tag", Ordner + "/fehlt.mp3"});
    EXPECT_TRUE(P->BeendenErbeten);
    EXPECT_FALSE(Fenster.Gerufen("Editor"));
    EXPECT_NE(Person.Meldungen.back().find("Parameter: --tag " + Ordner +
                                           "/fehlt.mp3\n\nDer TAG-Editor kann nicht"),
              std::string::npos);
}

TEST_F(Starttest, EineDateiVonDerKommandozeileGiltNurFürDiesenLauf) {
    const std::string Fremd = Datei("fremd.lwi", "#TAG:lw102\r\n#OPT:EIGENTUEMER=Anna\r\n");
    Starten({Fremd});
    EXPECT_EQ(P->Index.Programmmodus, ModusIndexdatei);
    EXPECT_TRUE(P->NameVonKommandozeile);
    EXPECT_TRUE(Fenster.Gerufen("Eigentümer Anna"));
    EXPECT_EQ(P->Werte.ZuletztGeladen, Texte{Fremd});
}

TEST_F(Starttest, EinUnlesbarerIndexLässtDasProgrammOhneIndexLaufen) {
    Datei("kaputt.lwi", "das ist kein Index");
    Person.Antworten = {Antwort::Nein};
    Starten({Ordner + "/kaputt.lwi"});
    EXPECT_EQ(P->Index.Programmmodus, ModusNichtsGeladen);
    EXPECT_TRUE(Fenster.Gerufen("Liste gesperrt"));
    EXPECT_TRUE(Fenster.Gerufen("Name (keine Datei geladen)"));
    EXPECT_TRUE(Fenster.Gerufen("Sichtbar"));
    EXPECT_TRUE(
        Person.Meldungen.back().starts_with("Ihre Datei oder der Ordner '" + Ordner + "/kaputt.lwi' konnte"));
    EXPECT_FALSE(P->BeendenErbeten);
}

TEST_F(Starttest, EinAndererIndexFragtNachÄnderungenUndWirdGemerkt) {
    Werte.Inhalt["DateiAutomatischSpeichern"] = 0;
    Starten();
    const std::string Anderer = Datei("anderer.lwi", "#TAG:lw100\r\n");
    P->Index.IndexGeändert = true;
    Person.Antworten = {Antwort::Abbrechen};
    EXPECT_FALSE(AndereDateiLaden(*P, Anderer));
    EXPECT_EQ(P->Index.IndexDateiname, Standard());
    Person.Antworten = {Antwort::Nein};
    EXPECT_TRUE(AndereDateiLaden(*P, Anderer));
    EXPECT_EQ(P->Index.IndexDateiname, Anderer);
    for (int i = 0; i < 12; ++i)
        AndereDateiLaden(*P, Datei("nr" + std::to_string(i) + ".lwi", "#TAG:lw100\r\n"));
    AndereDateiLaden(*P, Ordner + "/nr5.lwi");
    EXPECT_EQ(P->Werte.ZuletztGeladen.size(), 10u);
    EXPECT_EQ(P->Werte.ZuletztGeladen[0], Ordner + "/nr5.lwi");
    EXPECT_EQ(P->Werte.ZuletztGeladen[1], Ordner + "/nr11.lwi");
}

}  // namespace
}  // namespace liedwerk
