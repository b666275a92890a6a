// Which file goes where, what the hand-over file holds, and what is counted.
#include "welt.h"

namespace liedwerk {
namespace {

using Worte = std::vector<std::string>;

TEST(Abspielen, ErsteDateiSpieltSofortUndDieAnderenFolgen) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("spieler/radio");
    W.Werte.WinampParameterAbspielen = "-p \"mit Leerzeichen\"";
    const std::string Eins = W.Datei("a#?%ä.mp3"), Zwei = W.Ordner + "/caf\xe9.mp3";
    W.Anhängen(Eins, W.Lied("Foo\nGoo", "Bar", 75));
    W.Anhängen(Zwei);
    W.Anhängen(W.Datei("drei.ogg"), W.Lied("X", "Y", 0));
    const auto Ergebnis = W.Abspielen({1, 2, 3});
    EXPECT_TRUE(Ergebnis.Gelungen);
    EXPECT_EQ(Ergebnis.Anzahl, 3);
    EXPECT_EQ(Ergebnis.Playlistdatei, W.Ordner + "/spieler/liedwerk.m3u");
    ASSERT_EQ(W.Programme.Starts.size(), 2u);
    EXPECT_EQ(W.Programme.Starts[0].Argumente, (Worte{"-p", "mit Leerzeichen", Ergebnis.Playlistdatei}));
    EXPECT_EQ(W.Programme.Starts[0].Playliste, "#EXTM3U\n#EXTINF:75,Foo Goo - Bar\n" + Eins + "\n");
    EXPECT_EQ(W.Programme.Starts[1].Argumente, (Worte{"/ADD", Ergebnis.Playlistdatei}));
    // Neither a record without tag nor one without duration gets a head.
    EXPECT_EQ(W.Programme.Starts[1].Playliste, "#EXTM3U\n" + Zwei + "\n" + W.Ordner + "/drei.ogg\n");
    EXPECT_EQ(W.Person.Status.back(), "Dateien hinzugefügt bei 'radio'");
    EXPECT_EQ(W.Nachrichten, 1);
    for (const Satznummer Nummer : {1, 2, 3})
        EXPECT_EQ(W.Häufigkeit(Nummer), 1);
    EXPECT_EQ(W.Index.Sätze.Text(1, FeldAbspielDatum), "21.11.2026 12:00:00");
    EXPECT_TRUE(W.Index.IndexGeändert);
}

TEST(Abspielen, SpielerDerTabelleBekommtFensterbefehleUndZähltNichtSelbst) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("Winamp/WINAMP.EXE");
    W.Werte.PlaylistFürWinamp = 0;
    W.Werte.AudioplayerNachrichtZeigen = 0;
    W.Kanal.Klasse = "Winamp v1.x";
    const std::string Pfad = W.Datei("a.mp3");
    W.Anhängen(Pfad, W.Lied("A", "B", 9));
    W.Abspielen({1}, false, false, true);
    ASSERT_EQ(W.Programme.Starts.size(), 1u);
    EXPECT_EQ(W.Programme.Starts[0].Argumente.front(), "/ADD");
    EXPECT_EQ(W.Programme.Starts[0].Playliste, Pfad + "\n");
    EXPECT_EQ(W.Kanal.Gesendet,
              (std::vector<std::array<int, 3>>{{1024, 0, 101}, {273, 40158, 0}, {273, 40045, 0}}));
    EXPECT_EQ(W.Häufigkeit(1), 0);
    EXPECT_EQ(W.Nachrichten, 0);
}

TEST(Abspielen, SchalterKommenAusProfilBisSieGesetztSind) {
    struct Fall {
        std::string Pfad, Abspielen, Hinzufügen;
        bool Anhängen;
        Worte Schalter;
    };
    for (const Fall& Einer :
         {Fall{"vlc", "", "/ADD", true, {"--one-instance", "--playlist-enqueue"}},
          Fall{"vlc", "", "/ADD", false, {"--one-instance"}}, Fall{"vlc", "", "--eigen", true, {"--eigen"}},
          Fall{"vlc", "", "", false, {}}, Fall{"fremd", "", "/ADD", true, {}},
          Fall{"fremd", "-p", "/ADD", true, {"/ADD"}}, Fall{"fremd", "", "", true, {}}}) {
        Abspielwelt W;
        W.Werte.WinampPfad = W.Datei(Einer.Pfad);
        W.Werte.WinampParameterAbspielen = Einer.Abspielen;
        W.Werte.WinampParameterHinzufügen = Einer.Hinzufügen;
        W.Anhängen(W.Datei("a.mp3"));
        Worte Erwartet = Einer.Schalter;
        Erwartet.push_back(W.Abspielen({1}, Einer.Anhängen).Playlistdatei);
        ASSERT_EQ(W.Programme.Starts.size(), 1u);
        EXPECT_EQ(W.Programme.Starts[0].Argumente, Erwartet) << Einer.Pfad;
        // What VLC plays is counted when it is recognised.
        EXPECT_EQ(W.Häufigkeit(1), Einer.Pfad == "vlc" ? 0 : 1);
    }
}

TEST(Abspielen, UnbekannterSpielerOhneSchalterBekommtAllesInEinerListe) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("fremd");
    const std::string Eins = W.Datei("a.mp3"), Zwei = W.Datei("b.mp3");
    W.Anhängen(Eins);
    W.Anhängen(Zwei);
    const auto Ergebnis = W.Abspielen({1, 2});
    ASSERT_EQ(W.Programme.Starts.size(), 1u) << "a second list would take the place of the first";
    EXPECT_EQ(W.Programme.Starts[0].Argumente, Worte{Ergebnis.Playlistdatei});
    EXPECT_EQ(W.Programme.Starts[0].Playliste, "#EXTM3U\n" + Eins + "\n" + Zwei + "\n");
    EXPECT_EQ(W.Person.Status.back(), "Dateien abgespielt mit 'fremd'");
    EXPECT_EQ(Ergebnis.Anzahl, 2);
}

TEST(Abspielen, GezähltWirdGenauEinmalWerAuchSpielt) {
    struct Fall {
        std::string Spieler, Klasse;  // set, running
        bool Standard;
        std::string Programm;
        std::int64_t Sofort, Erkannt;  // counts after the hand-over and after the recognition
    };
    for (const Fall& Einer : {
             Fall{"audacious", "audacious", false, "", 0, 1},
             Fall{"audacious", "audacious", true, "", 1, 1},  // the association leads to the watched player
             Fall{"audacious", "audacious", true, "/bin/anderes", 1, 2},
             Fall{"qmmp", "", false, "", 1, 1},  // without its plug-in nobody would ever count
             Fall{"qmmp", "qmmp", false, "", 0, 1},
         }) {
        Abspielwelt W;
        W.Werte.WinampPfad = W.Datei(Einer.Spieler);
        W.Kanal.Klasse = Einer.Klasse;
        const std::string Pfad = W.Datei("a.mp3");
        W.Anhängen(Pfad);
        W.Abspielen({1}, false, Einer.Standard, false, Einer.Programm);
        EXPECT_EQ(W.Häufigkeit(1), Einer.Sofort) << Einer.Spieler << Einer.Programm;
        const GespielterTitel Titel{"X - Y", {Pfad}};
        for (const int Minute : {1, 2}) {
            W.Zeit.Punkt.Minute = Minute;
            TitelErkennen(W.Erkennung, W.Index, W.Werte, W.Person, Titel, W.Zeit.Jetzt());
        }
        EXPECT_EQ(W.Häufigkeit(1), Einer.Erkannt) << Einer.Spieler << Einer.Programm;
    }
}

TEST(Abspielen, WasNichtStartetIstNichtÜbergeben) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("spieler");
    W.Programme.Scheitert = true;
    W.Anhängen(W.Datei("a.txt"));
    W.Anhängen(W.Datei("b.mp3"));
    for (const bool Standard : {false, true}) {
        const auto Ergebnis = W.Abspielen({1, 2}, false, Standard);
        EXPECT_FALSE(Ergebnis.Gelungen);
        EXPECT_EQ(Ergebnis.Anzahl, 0);
        ASSERT_EQ(Ergebnis.Fehler.size(), 2u);
        EXPECT_EQ(Ergebnis.Fehler[0],
                  "Die Datei '" + W.Ordner + "/a.txt' konnte nicht übergeben werden: geht nicht");
    }
    EXPECT_TRUE(W.Person.Meldungen.empty());
    EXPECT_EQ(W.Häufigkeit(2), 1) << "a hand-over to the association counts, one to the player does not";
}

TEST(Abspielen, GewartetWirdNurVorEinerWeiterenDateiFürDenSpieler) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("vlc");
    W.Programme.Laufend = true;
    W.Anhängen(W.Datei("a.mp3"));
    W.Anhängen(W.Datei("b.txt"));
    W.Anhängen(W.Datei("c.mp3"));
    int Schritte = 0;
    Abspielumgebung Hier = W.Umgebung();
    Hier.Warteschritt = [&] { ++Schritte; };
    AbspielenMediaPlayer(Hier, {1, 2}, false, false, false, {});
    EXPECT_EQ(Schritte, 0);
    AbspielenMediaPlayer(Hier, {1, 2, 3}, false, false, false, {});
    EXPECT_GT(Schritte, 0);
    // A player that has no command to clear its list is told to play instead of to add.
    W.Programme.Starts.clear();
    W.Abspielen({1}, true, false, true);
    EXPECT_EQ(W.Programme.Starts[0].Argumente.size(), 2u);
}

TEST(Abspielen, TitelEinerCdHabenEineAdresseOderEineMeldung) {
    for (const bool Kann : {true, false}) {
        Abspielwelt W;
        W.Werte.WinampPfad = W.Datei(Kann ? "audacious" : "vlc");
        W.Anhängen("/dev/sr0/Track03.cda");
        W.Anhängen(W.Ordner + "/Album.cue/Track01.cda");
        W.Anhängen(W.Datei("a.mp3"));
        const auto Ergebnis = W.Abspielen({1, 2, 3}, true);
        ASSERT_EQ(W.Programme.Starts.size(), 1u);
        EXPECT_EQ(W.Programme.Starts[0].Playliste,
                  "#EXTM3U\n" + std::string(Kann ? "cdda://?3\n" : "") + W.Ordner + "/a.mp3\n");
        EXPECT_EQ(Ergebnis.Anzahl, Kann ? 2 : 1);
        ASSERT_EQ(W.Person.Meldungen.size(), 1u) << "one for all of them";
        EXPECT_NE(W.Person.Meldungen[0].find("Album.cue/Track01.cda"), std::string::npos);
        EXPECT_NE(W.Person.Meldungen[0].find("öffnen Sie dort das Abbild selbst"), std::string::npos);
        EXPECT_EQ(W.Person.Meldungen[0].find("'vlc' spielt einzelne Titel") != std::string::npos, !Kann);
    }
}

TEST(Abspielen, JedeArtVonDateiGehtIhrenWegUndWasNichtGehtHältDieAnderenNichtAuf) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("spieler");
    W.Werte.WinampParameterAbspielen = "-p";
    const std::string Bild = W.Datei("b.jpg"), Text = W.Datei("c.txt");
    W.Anhängen("/zeile\numbruch.mp3");
    W.Anhängen(Bild);
    W.Anhängen(Text);
    W.Anhängen(W.Ordner + "/fort.png");
    W.Index.Optionen.Dateitypen.insert(W.Index.Optionen.Dateitypen.begin(), {"png=0", "001"});
    W.Anhängen(W.Datei("gut.mp3"));
    W.Anhängen("http://fremd/x.mp3");
    const auto Ergebnis = W.Abspielen({1, 2, 3, 4, 6, 5});
    EXPECT_EQ(W.Bilder, Worte{Bild});
    EXPECT_EQ(W.Programme.Geöffnet, Worte{Text});
    ASSERT_EQ(W.Person.Meldungen.size(), 3u);
    EXPECT_NE(W.Person.Meldungen[0].find("Zeilenumbruch"), std::string::npos);
    EXPECT_EQ(W.Person.Meldungen[1], "Die Datei '' existiert nicht.");
    EXPECT_NE(W.Person.Meldungen[2].find("keinen vollständigen Pfad"), std::string::npos);
    ASSERT_EQ(W.Programme.Starts.size(), 1u);
    EXPECT_EQ(W.Programme.Starts[0].Playliste, "#EXTM3U\n" + W.Ordner + "/gut.mp3\n");
    EXPECT_NE(W.Log.Zeilen.back().find("gut.mp3' über Playlisten-Funktion aus..."), std::string::npos);
}

TEST(Abspielen, OhneSpielerEineMeldungUndKeineZählung) {
    Abspielwelt W;
    W.Anhängen(W.Datei("a.mp3"));
    W.Anhängen(W.Datei("b.mp3"));
    EXPECT_FALSE(W.Abspielen({1, 2}, true).Gelungen);
    ASSERT_EQ(W.Person.Meldungen.size(), 1u);
    EXPECT_TRUE(W.Person.Meldungen[0].starts_with("Die gewählte(n) Datei(en) können nicht an Ihren"));
    EXPECT_TRUE(W.Programme.Starts.empty());
    EXPECT_TRUE(W.Kanal.Gesucht.empty()) << "without a player nothing is looked for";
    EXPECT_EQ(W.Häufigkeit(1), 0);
}

TEST(Abspielen, VieleDateienAnAnwendungenNurNachFrage) {
    Abspielwelt W;
    std::vector<Satznummer> Elf;
    for (int i = 0; i < 11; ++i)
        Elf.push_back(W.Anhängen(W.Datei(std::to_string(i) + ".mp3")));
    W.Person.Antworten = {Antwort::Nein};
    EXPECT_FALSE(W.Abspielen(Elf, false, true).Gelungen);
    EXPECT_EQ(W.Person.Gefragt[0],
              "Möchten Sie wirklich 11 Dateien an die jeweilige Standard-Anwendung übergeben?\n"
              "Dieser Vorgang kann länger dauern.");
    EXPECT_TRUE(W.Programme.Starts.empty());
    Elf.pop_back();
    EXPECT_TRUE(W.Abspielen(Elf, false, true, false, "/bin/prog").Gelungen);
    ASSERT_EQ(W.Programme.Starts.size(), 10u);
    EXPECT_EQ(W.Programme.Starts[9].Argumente, Worte{W.Ordner + "/9.mp3"});
    EXPECT_EQ(W.Person.Gefragt.size(), 1u);
    EXPECT_EQ(W.Häufigkeit(10), 1);
}

TEST(Abspielen, FehlenderDatenträgerÜberspringtOderBrichtAb) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("spieler");
    Datensatz Cd;
    Cd.Wechselmedium = "CD";
    W.Anhängen("/media/x/CD/a.mp3", Cd);
    W.Anhängen(W.Datei("b.mp3"));
    W.Person.Verfügbarkeiten = {Verfügbarkeitsantwort::Überspringen, Verfügbarkeitsantwort::Abbrechen};
    EXPECT_EQ(W.Abspielen({1, 2}).Anzahl, 1);
    EXPECT_EQ(W.Abspielen({1, 2}).Anzahl, 0);
}

TEST(Abspielen, PlaylistenOhnePlatzBeimSpielerSindEinzelnUndVergehen) {
    Abspielwelt W;
    const std::string Lauf = W.Ordner + "/lauf";
    const auto Wählen = [&] { return PlaylistdateiWählen("/usr/bin/vlc", Lauf, W.Zeit.Jetzt()); };
    const std::string Erste = Wählen();
    EXPECT_TRUE(Erste.starts_with(Lauf + "/liedwerk-20261121120000-"));
    ASSERT_EQ(PlaylisteSchreiben(Erste, "x"), "");
    EXPECT_NE(Wählen(), Erste);
    W.Datei("lauf/fremd.m3u");
    // A list beside the player does not help where its folder takes no new file.
    W.Datei("voll/liedwerk.m3u");
    std::filesystem::create_directory(W.Ordner + "/voll/liedwerk.m3u~lwitmp");
    EXPECT_TRUE(PlaylistdateiWählen(W.Ordner + "/voll/vlc", Lauf, W.Zeit.Jetzt()).starts_with(Lauf));
    W.Zeit.Punkt.Jahr = 2100;
    AltePlaylistenLöschen(W.Leser, W.Zeit, Lauf);
    EXPECT_FALSE(DateiExistiert(Erste));
    EXPECT_TRUE(DateiExistiert(Lauf + "/fremd.m3u"));
    EXPECT_NE(PlaylisteSchreiben(W.Ordner + "/gibt/es/nicht.m3u", "x"), "");
}

TEST(Abspielen, InstallierteSpielerStehenInDerReihenfolgeDerVorschläge) {
    Abspielwelt W;
    W.Programme.Installiert = {{"vlc", "/usr/bin/vlc"}, {"audacious", "/opt/audacious"}};
    const auto Alle = InstallierteSpieler(W.Programme);
    ASSERT_EQ(Alle.size(), 2u);
    EXPECT_EQ(Alle[0].Pfad, "/opt/audacious");
    SpielerÜbernehmen(W.Werte, Alle[1]);
    EXPECT_EQ(W.Werte.WinampParameterHinzufügen, "--one-instance --playlist-enqueue");
}

}  // namespace
}  // namespace liedwerk
