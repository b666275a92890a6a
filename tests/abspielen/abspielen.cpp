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
    for (const Fall& Einer : {Fall{"vlc", "", "/ADD", true, {"--one-instance", "--playlist-enqueue"}},
                              Fall{"vlc", "", "/ADD", false, {"--one-instance"}},
                              Fall{"vlc", "", "--eigen", true, {"--eigen"}}, Fall{"vlc", "", "", false, {}},
                              Fall{"fremd", "", "/ADD", true, {"/ADD"}}, Fall{"fremd", "", "", true, {}}}) {
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

TEST(Abspielen, JedeArtVonDateiGehtIhrenWegUndWasNichtGehtHältDieAnderenNichtAuf) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("spieler");
    const std::string Bild = W.Datei("b.jpg"), Text = W.Datei("c.txt");
    W.Anhängen("/zeile\numbruch.mp3");
    W.Anhängen(Bild);
    W.Anhängen(Text);
    W.Anhängen(W.Ordner + "/fort.png");
    W.Index.Optionen.Dateitypen.insert(W.Index.Optionen.Dateitypen.begin(), {"png=0", "001"});
    W.Anhängen(W.Datei("gut.mp3"));
    const auto Ergebnis = W.Abspielen({1, 2, 3, 4, 5});
    EXPECT_EQ(W.Bilder, Worte{Bild});
    EXPECT_EQ(W.Programme.Geöffnet, Worte{Text});
    ASSERT_EQ(W.Person.Meldungen.size(), 2u);
    EXPECT_NE(W.Person.Meldungen[0].find("Zeilenumbruch"), std::string::npos);
    EXPECT_EQ(W.Person.Meldungen[1], "Die Datei '' existiert nicht.");
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
