// Path helpers in both styles.
#include "basis/pfad.h"

#include <gtest/gtest.h>

namespace liedwerk {
namespace {

TEST(Pfad, TeileInBeidenArten) {
    const struct {
        std::string_view Pfad, Ordner, Name, Endung, OhneEndung;
    } Fälle[] = {
        {"/a/b.c/d.mp3", "/a/b.c", "d.mp3", ".mp3", "/a/b.c/d"},
        {"/a.b/c", "/a.b", "c", "", "/a.b/c"},
        {"/x", "/", "x", "", "/x"},
        {"/", "/", "", "", "/"},
        {"/a\\b.c", "/", "a\\b.c", ".c", "/a\\b"},
        {"C:\\Musik\\Lied.mp3", "C:\\Musik", "Lied.mp3", ".mp3", "C:\\Musik\\Lied"},
        {"C:\\a.b\\c", "C:\\a.b", "c", "", "C:\\a.b\\c"},
        {"\\\\server\\teil\\x.y/z", "\\\\server\\teil", "x.y/z", ".y/z", "\\\\server\\teil\\x"},
        {"lied.", "", "lied.", ".", "lied"},
        {".mp3", "", ".mp3", ".mp3", ""},
        {"", "", "", "", ""},
    };
    for (const auto& Fall : Fälle) {
        EXPECT_EQ(PfadVon(Fall.Pfad), Fall.Ordner) << Fall.Pfad;
        EXPECT_EQ(DateinameVon(Fall.Pfad), Fall.Name) << Fall.Pfad;
        EXPECT_EQ(EndungVon(Fall.Pfad), Fall.Endung) << Fall.Pfad;
        EXPECT_EQ(DateiOhneEndung(Fall.Pfad), Fall.OhneEndung) << Fall.Pfad;
    }
}

TEST(Pfad, VerbindenMitGenauEinemTrenner) {
    EXPECT_EQ(PfadVerbinden("/", "x"), "/x");
    EXPECT_EQ(PfadVerbinden("/a/", "/x"), "/a/x");
    EXPECT_EQ(PfadVerbinden("/a", "x"), "/a/x");
    EXPECT_EQ(PfadVerbinden("C:\\", "x"), "C:\\x");
    EXPECT_EQ(PfadVerbinden("C:", "x"), "C:\\x");
    EXPECT_EQ(PfadVerbinden("", "x"), "x");
    EXPECT_EQ(MitTrenner("/"), "/");
}

TEST(Pfad, GleichheitUndSchlüsselStimmenÜberein) {
    const std::string_view Pfade[] = {"/a/B", "/a/b", "C:\\Ä", "c:\\ä", "C:\\A", "", "/", "/\xE4"};
    for (const auto A : Pfade) {
        for (const auto B : Pfade) {
            EXPECT_EQ(PfadeGleich(A, B), PfadSchlüssel(A) == PfadSchlüssel(B)) << A << " " << B;
        }
    }
    EXPECT_TRUE(PfadeGleich("C:\\Ä", "c:\\ä"));
    EXPECT_FALSE(PfadeGleich("/a/B", "/a/b"));
    for (const char* Voll : {"/", "/a", "C:\\a", "\\\\server\\a"})
        EXPECT_TRUE(IstVollerPfad(Voll)) << Voll;
    for (const char* Anderer : {"", "a", "C:a", "https://a/b", "--hilfe=/a", "./a", "file:///a"})
        EXPECT_FALSE(IstVollerPfad(Anderer)) << Anderer;
    EXPECT_TRUE(HatZeilenende("/a\n") && HatZeilenende("C:\\\r") && !HatZeilenende("/a b"));
}

}  // namespace
}  // namespace liedwerk
