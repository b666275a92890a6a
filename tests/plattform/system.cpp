// Folders, links, clock and places of the real system.
#include "plattform/system.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "basis/datei.h"
#include "basis/pfad.h"
#include "dateien/probeordner.h"
#include "plattform/linux/einhaengungen.h"
#include "plattform/linux/ordner.h"
#include "plattform/linux/orte.h"
#include "plattform/linux/uhr.h"

namespace liedwerk {
namespace {

using test::Probeordner;

std::map<std::string, Ordnereintrag> Liste(std::string_view Ordner) {
    std::map<std::string, Ordnereintrag> Ergebnis;
    Systemordnerleser().Auflisten(Ordner, [&](const Ordnereintrag& Eintrag) {
        Ergebnis[Eintrag.Name] = Eintrag;
        return true;
    });
    return Ergebnis;
}

TEST(Systemprogramme, ÖffnenNurGanzePfade) {
    for (const char* Name : {"", "--help", "a.mp3", "http://fremd/x", "file:///etc/passwd", "C:\\x"})
        EXPECT_EQ(SystemprogrammeÖffnen()->MitAnwendungÖffnen(Name).Fehler,
                  "Das ist auf diesem System kein Pfad einer Datei.");
}

TEST(Systemordner, NurDateienUndOrdnerAuchÜberLinks) {
    const Probeordner Ordner;
    Ordner.Datei(".versteckt");
    Ordner.Datei("Album/1.mp3");
    Ordner.Datei("kaputt\xFF.mp3");
    symlink("Album", Ordner.In("LinkOrdner").c_str());
    symlink(".versteckt", Ordner.In("LinkDatei").c_str());
    symlink("fehlt", Ordner.In("LinkTot").c_str());
    mkfifo(Ordner.In("Rohr").c_str(), 0600);
    const auto Namen = Liste(Ordner.Pfad);
    ASSERT_EQ(Namen.size(), 5U);
    EXPECT_FALSE(Namen.at(".versteckt").IstOrdner);
    EXPECT_FALSE(Namen.at("LinkDatei").IstOrdner);
    EXPECT_TRUE(Namen.contains("kaputt\xFF.mp3"));
    EXPECT_TRUE(Namen.at("Album").IstOrdner);
    EXPECT_TRUE(Namen.at("LinkOrdner").IstOrdner);
    EXPECT_EQ(Namen.at("LinkOrdner").Inode, Namen.at("Album").Inode);
    EXPECT_NE(Namen.at("Album").Inode, 0U);
    EXPECT_FALSE(Systemordnerleser().Auflisten(Ordner.In("fehlt"), [](const auto&) { return true; }));
}

TEST(Links, FührenAuchInsFehlendeUndNieImKreis) {
    const Probeordner Ordner;
    Ordner.Datei("a/b/x");
    symlink("/media/ute/STICK", Ordner.In("Musik").c_str());
    symlink("../Musik/Jazz", Ordner.In("a/Jazz").c_str());
    symlink("Kreis", Ordner.In("Kreis").c_str());
    EXPECT_EQ(LinksFolgen(Ordner.In("a/Jazz/1.mp3")), "/media/ute/STICK/Jazz/1.mp3");
    EXPECT_EQ(LinksFolgen(Ordner.In("a/./b/../b/x")), LinksFolgen(Ordner.In("a/b/x")));
    EXPECT_EQ(LinksFolgen(Ordner.In("Kreis/x")), Ordner.In("Kreis/x"));
    EXPECT_EQ(LinksFolgen("/../.."), "/");
}

TEST(Systemzeit, KaputteDateizeitenBleibenImKalender) {
    const Systemuhr Zeit;
    EXPECT_EQ(Zeit.Lokal(INT64_MAX).Jahr, 9999);
    EXPECT_EQ(Zeit.Lokal(INT64_MIN).Jahr, 1);
    EXPECT_GE(Zeit.Jetzt().Jahr, 2024);
    const Zeitpunkt Fest{2001, 2, 3, 4, 5, 6};
    EXPECT_EQ(FesteUhr(Fest).Jetzt(), Fest);
}

TEST(Orte, FolgenDerUmgebung) {
    const Probeordner Ordner;
    setenv("LIEDWERK_ORDNER", Ordner.In("neu/tief/").c_str(), 1);
    EXPECT_EQ(Programmordner(), Ordner.In("neu/tief"));
    EXPECT_TRUE(OrdnerExistiert(Ordner.In("neu/tief")));
    setenv("LIEDWERK_ORDNER", std::filesystem::relative(Ordner.In("kurz")).c_str(), 1);
    EXPECT_TRUE(IstPosixPfad(Programmordner()));
    EXPECT_TRUE(OrdnerExistiert(Ordner.In("kurz")));
    unsetenv("LIEDWERK_ORDNER");
    setenv("XDG_CONFIG_HOME", "relativ", 1);
    setenv("HOME", "/heim", 1);
    EXPECT_EQ(Einstellungsdatei(), "/heim/.config/liedwerk/einstellungen.ini");
    setenv("XDG_CONFIG_HOME", "/k", 1);
    EXPECT_EQ(Einstellungsdatei(), "/k/liedwerk/einstellungen.ini");
}

TEST(Orte, JederProzessHatSeinenTemporärenIndex) {
    const Probeordner Ordner;
    {
        const Temporärindex Erster(Ordner.Pfad);
        EXPECT_EQ(Erster.Pfad(), Ordner.In("tmp.lwi"));
        std::string ZweiterPfad;
        {
            const Temporärindex Zweiter(Ordner.Pfad);
            ZweiterPfad = Zweiter.Pfad();
            EXPECT_NE(ZweiterPfad, Erster.Pfad());
            Ordner.Datei(std::filesystem::path(ZweiterPfad).filename().string());
        }
        EXPECT_FALSE(DateiExistiert(ZweiterPfad));
        Ordner.Datei(std::filesystem::path(ZweiterPfad).filename().string(), "fremd");
        EXPECT_NE(Temporärindex(Ordner.Pfad).Pfad(), ZweiterPfad);
        EXPECT_EQ(DateiLesen(ZweiterPfad), "fremd");
    }
    EXPECT_EQ(Temporärindex(Ordner.Pfad).Pfad(), Ordner.In("tmp.lwi"));
}

TEST(Medienauskunft, MillionenLeererAbschnitteFressenKeinenSpeicher) {
    const Probeordner Ordner;
    std::string Datei = "RIFF\xFF\xFF\xFF\x02WAVEfmt ";
    Datei += std::string("\x10\0\0\0\1\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0", 20);
    while (Datei.size() < std::size_t{48} << 20U)
        Datei.append("AAAA\0\0\0\0", 8);
    const std::string Pfad = Ordner.Datei("a.wav", Datei);
    const auto Höchststand = [] {
        struct rusage Verbrauch {};
        getrusage(RUSAGE_SELF, &Verbrauch);
        return Verbrauch.ru_maxrss;  // KiB
    };
    const auto Vorher = Höchststand();
    SystemauskunftÖffnen()->Lesen(Pfad, {});
    // Far below the file's million parts, with room for what a sanitizer puts around each allocation.
    EXPECT_LT(Höchststand() - Vorher, 160 << 10);
}

}  // namespace
}  // namespace liedwerk
