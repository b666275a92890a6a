// The walk: order, links, unreadable folders, cancel.
#include "dateien/ordnersuche.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

#include "dateien/probeordner.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"

namespace liedwerk {
namespace {

// Folders with their entries in a fixed order; a name with a final separator is a folder.
struct Ordnerbuch final : Ordnerleser {
    std::map<std::string, std::vector<std::string>, std::less<>> Seiten;
    bool Auflisten(std::string_view Ordner,
                   const std::function<bool(const Ordnereintrag&)>& Besuch) const override {
        const auto Seite = Seiten.find(Ordner);
        if (Seite == Seiten.end()) return false;
        for (auto Name : Seite->second) {
            const bool IstOrdner = Name.back() == '\\' || Name.back() == '/';
            if (IstOrdner) Name.pop_back();
            if (!Besuch({Name, IstOrdner, false, 0, 0})) break;
        }
        return true;
    }
};

using Liste = std::vector<std::string>;

TEST(Ordnersuche, DateienZuerstDannOrdnerInDerReihenfolgeDesSystems) {
    Ordnerbuch Buch;
    Buch.Seiten = {{"D:\\", {"z.mp3", "B\\", "a.MP3", "A\\", "x.txt"}},
                   {"D:\\B\\", {"C\\", "2.mp3", "weg\\"}},
                   {"D:\\B\\C\\", {"3.mp3"}},
                   {"D:\\A\\", {"1.ogg"}}};
    Liste Funde = {"vorher"};
    EXPECT_TRUE(DateienSuchenAPI(Buch, "D:\\", {{}, true, false}, nullptr, Funde));
    EXPECT_EQ(Funde, (Liste{"vorher", "D:\\z.mp3", "D:\\a.MP3", "D:\\x.txt", "D:\\B\\2.mp3",
                            "D:\\B\\C\\3.mp3", "D:\\A\\1.ogg"}));
    Funde.clear();
    EXPECT_TRUE(DateienSuchenAPI(Buch, "D:", {{"3", ".ogg", ".mp3"}, false, true}, nullptr, Funde));
    EXPECT_EQ(Funde, (Liste{"D:\\z.mp3", "D:\\B", "D:\\a.MP3", "D:\\A"}));
}

TEST(Ordnersuche, AbbruchEndetSofortUndBehältDasGefundene) {
    Ordnerbuch Buch;
    Buch.Seiten = {{"/m/", {"1", "A/", "2"}}, {"/m/A/", {"3"}}};
    for (int Bei = 1; Bei <= 6; ++Bei) {
        speicher::Person Person;
        Person.AbbruchBei = Bei;
        Liste Funde;
        // Three entries, one descent, one entry.
        EXPECT_EQ(DateienSuchenAPI(Buch, "/m", {{}, true, false}, &Person, Funde), Bei == 6) << Bei;
        EXPECT_EQ(Person.Zeigungen, std::min(Bei, 5));
        EXPECT_EQ(Funde.size(), Bei < 3 ? 1U : Bei < 5 ? 2U : 3U) << Bei;
    }
}

TEST(Ordnersuche, LinksFührenWederImKreisNochZweimalInEinenOrdner) {
    const test::Probeordner Ordner;
    Ordner.Datei("A/1.mp3");
    Ordner.Datei(".B/2.mp3");
    symlink("..", Ordner.In("A/Oben").c_str());
    // Whatever the order of the listing, some of these links come ahead of the folder.
    for (const auto* Name : {"0", "NochmalA", "a", "zz", ".B/A", ".B/zz"})
        symlink(Ordner.In("A").c_str(), Ordner.In(Name).c_str());
    symlink("A/1.mp3", Ordner.In("link.mp3").c_str());
    const test::Probeordner Anderswo;
    Anderswo.Datei("3.mp3");
    symlink(Anderswo.Pfad.c_str(), Ordner.In("A/fort").c_str());
    Liste Funde;
    EXPECT_TRUE(DateienSuchenAPI(Systemordnerleser(), Ordner.Pfad, {{}, true, false}, nullptr, Funde));
    ASSERT_EQ(Funde.size(), 4U);
    EXPECT_EQ(Funde.front(), Ordner.In("link.mp3"));
    EXPECT_EQ(Funde.back(), Ordner.In("A/fort/3.mp3"));
    for (const auto* Name : {"A/1.mp3", ".B/2.mp3"})
        EXPECT_NE(std::ranges::find(Funde, Ordner.In(Name)), Funde.end()) << "found under its own name";
}

}  // namespace
}  // namespace liedwerk
