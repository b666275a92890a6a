// The messages of the remote control and the texts of the panel.
#include "welt.h"

namespace liedwerk {
namespace {

TEST(Spieler, TitelAusDemFenstertext) {
    struct Fall {
        std::string Text, Titel;
        bool Anders = false;
    };
    const std::string Anhang(10, '#');
    for (const Fall& Einer : {
             Fall{"12. Foo - Bar - Winamp", "Foo - Bar"},
             Fall{"Foo - Bar - mp3pro - WINAMP [Pause]", "Foo - Bar"},
             Fall{" Ohne Ende ", "Ohne Ende"},
             Fall{"99 Luftballons", "99 Luftballons"},
             Fall{"", ""},
             Fall{"1. Titel (3:04)" + Anhang + std::string(3, '\0') + "Rest", "Titel", true},
             Fall{"kurz", "", true},
         })
        EXPECT_EQ(PlayerTitel(Einer.Text, Einer.Anders), Einer.Titel) << Einer.Text;
}

TEST(Spieler, NurWerteImBereichWerdenGesendet) {
    Abspielwelt W;
    PlayerLautstärkeSetzen(W.Steuerung, 10);
    EXPECT_TRUE(W.Kanal.Gesendet.empty()) << "nothing is sent to nobody";
    W.Steuerung.PlayerFenster = 7;
    W.Kanal.Länge = 100;
    for (const int Wert : {-1, 0, 255, 256})
        PlayerLautstärkeSetzen(W.Steuerung, Wert);
    for (const int Wert : {-128, -127, 0, 127, 128})
        PlayerBalanceSetzen(W.Steuerung, Wert);
    for (const int Wert : {-1, 0, 100, 101})
        PlayerSpringen(W.Steuerung, Wert);
    EXPECT_EQ(W.Kanal.Gesendet, (std::vector<std::array<int, 3>>{{1024, 0, 122},
                                                                 {1024, 255, 122},
                                                                 {1024, 128, 123},
                                                                 {1024, 0, 123},
                                                                 {1024, 127, 123},
                                                                 {1024, 0, 106},
                                                                 {1024, 100000, 106}}));
}

TEST(Spieler, PfadSagtWelcherSpielerBeobachtetWird) {
    for (const auto& [Pfad, Klasse] : std::vector<std::pair<std::string, std::string>>{
             {"C:\\Programme\\Winamp.EXE", "Winamp v1.x"},
             {"/wine/studio.exe", "STUDIO"},
             {"/usr/bin/celluloid", "io.github.celluloid_player.Celluloid"},
             {"/opt/mein/spieler.bin", "spieler"},
             {"", ""},
         }) {
        Abspielwelt W;
        W.Werte.WinampPfad = Pfad;
        W.Kanal.Klasse = Klasse;
        EXPECT_EQ(PlayerSuchen(W.Steuerung, false), !Pfad.empty());
        using Klassen = std::vector<std::string>;
        EXPECT_EQ(W.Kanal.Gesucht, Pfad.empty() ? Klassen() : Klassen{Klasse});
    }
}

TEST(Spieler, GestarteterSpielerWirdFünfSekundenLangErwartet) {
    Abspielwelt W;
    W.Werte.WinampPfad = W.Datei("vlc");
    EXPECT_FALSE(PlayerSuchen(W.Steuerung, true));
    EXPECT_EQ(W.Programme.Starts.size(), 1u);
    EXPECT_EQ(W.Zeit.Vergangen, 5000);
    W.Person.Zwischendurch = [&] { W.Kanal.Klasse = "vlc"; };
    EXPECT_TRUE(PlayerSuchen(W.Steuerung, true));
}

TEST(Spieler, StandUndTexteDesFeldes) {
    Abspielwelt W;
    W.Werte.WinampPfad = "/x/winamp.exe";
    EXPECT_EQ(Titeltext(SpielerAblesen(W.Steuerung), false), "Audio-Player");
    EXPECT_EQ(Positionstext({}), "Titelposition");
    W.Kanal.Klasse = "Winamp v1.x";
    W.Kanal.Stand.Titel = "3. A - B - Winamp";
    W.Kanal.Zustand = 1;
    W.Kanal.Position = 3591999;
    W.Kanal.Länge = 3605;
    Spielerstand Stand = SpielerAblesen(W.Steuerung);
    EXPECT_EQ(Stand.Position, 3591) << "seconds round down";
    EXPECT_TRUE(TitelEndetBald(Stand));
    EXPECT_EQ(Positionstext(Stand), "Titelposition - 59:51/1:00:05");
    EXPECT_EQ(Titeltext(Stand, false), "Audio-Player - 'A - B'");
    EXPECT_EQ(Titeltext(Stand, true), "Audio-Player - 'A - B' - [Erkannt]");
    Stand.Position = 3590;
    EXPECT_FALSE(TitelEndetBald(Stand)) << "exactly 15 seconds are not less than 15";
    W.Kanal.Stand.TitelIstFenstertext = false;
    EXPECT_EQ(SpielerAblesen(W.Steuerung).Titel, "3. A - B - Winamp");
    W.Kanal.Zustand = 3;
    W.Kanal.Position = -1;
    Stand = SpielerAblesen(W.Steuerung);
    EXPECT_EQ(Stand.Zustand, PlayerZustand::Paused);
    EXPECT_EQ(Stand.Position, -1);
    EXPECT_FALSE(TitelEndetBald(Stand));
    W.Kanal.Zustand = 2;
    EXPECT_EQ(SpielerAblesen(W.Steuerung).Zustand, PlayerZustand::Stopped);
}

TEST(Spieler, SchalterzeileWirdInWorteZerlegt) {
    using Worte = std::vector<std::string>;
    for (const auto& [Zeile, Erwartet] : std::vector<std::pair<std::string, Worte>>{
             {"", {}},
             {"  -a   --b=c ", {"-a", "--b=c"}},
             {R"(-x "ein Wort" "")", {"-x", "ein Wort", ""}},
             {R"(a"b c"d """q""")", {"ab cd", R"("q")"}},
             {"$(reboot); `ls`", {"$(reboot);", "`ls`"}},
         })
        EXPECT_EQ(SchalterZerlegen(Zeile), Erwartet) << Zeile;
}

}  // namespace
}  // namespace liedwerk
