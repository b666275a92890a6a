// The look-up of records by path follows every change of the store.
#include "dateien/pfadverzeichnis.h"

#include <gtest/gtest.h>

#include "index/katalog.h"

namespace liedwerk {
namespace {

using Nummern = std::vector<Satznummer>;

TEST(Pfadverzeichnis, FolgtJederÄnderungDesSpeichers) {
    Katalog Index;
    Pfadverzeichnis Pfade;
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/a"), Nummern{});
    for (const auto* Pfad : {"/a", "D:\\Ä.mp3", "/a", "/A", "d:\\ä.MP3"})
        SatzAnhängen(Index, Pfad, {});
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/a"), (Nummern{1, 3}));
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "D:\\ä.mp3"), (Nummern{2, 5}));
    Index.Sätze.PfadSetzen(1, "/neu");
    Index.Sätze.PfadSetzen(2, "D:\\ä.mp3");
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/a"), Nummern{3});
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/neu"), Nummern{1});
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "D:\\Ä.mp3"), (Nummern{2, 5}))
        << "a new spelling is no second record";
    DatensätzeEntfernen(Index, Nummern{1, 2});
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/a"), Nummern{1});
    EXPECT_EQ(Pfade.Finden(Index.Sätze, "/neu"), Nummern{});
}

TEST(Pfadverzeichnis, HältVielenÄnderungenUndGleichenPfadenStand) {
    Satzspeicher Sätze;
    Pfadverzeichnis Pfade;
    constexpr Satznummer Anzahl = 3000;
    for (Satznummer Nummer = 1; Nummer <= Anzahl; ++Nummer) {
        Sätze.Anhängen("/p/" + std::to_string(Nummer), {});
        ASSERT_EQ(Pfade.Finden(Sätze, "/p/" + std::to_string(Nummer)), Nummern{Nummer});
    }
    for (Satznummer Nummer = 1; Nummer <= Anzahl; ++Nummer) {
        Sätze.PfadSetzen(Nummer, "/gleich");
        ASSERT_EQ(Pfade.Finden(Sätze, "/p/" + std::to_string(Nummer)), Nummern{});
    }
    EXPECT_EQ(Pfade.Finden(Sätze, "/gleich").size(), static_cast<std::size_t>(Anzahl));
}

}  // namespace
}  // namespace liedwerk
