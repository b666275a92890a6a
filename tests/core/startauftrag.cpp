#include "core/startauftrag.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace liedwerk {
namespace {

using Texte = std::vector<std::string>;

struct Zeichenfall {
    const char* Eingabe;
    int Modus;
    Texte Namen;
};

TEST(Startauftrag, EineZeichenfolge) {
    const Zeichenfall Fälle[] = {
        {"", 0, {}},
        {"c:\\a b.lwi", 0, {"c:\\a b.lwi"}},
        {"\"C:\\a b.lwi\"", 0, {"C:\\a b.lwi"}},
        {"\"C:\\a b.lwi", 0, {"C:\\a b.lw"}},  // the last character goes, whatever it is
        {"/DIR c:\\musik", 2, {"c:\\musik"}},
        {"/dir", 0, {"/dir"}},
        {"/dirk/x.lwi", 0, {"/dirk/x.lwi"}},
        {"/dir  c:\\musik", 2, {" c:\\musik"}},  // exactly one blank belongs to the switch
        {"/tag \"a b.mp3\" \"c.mp3\"", 3, {"a b.mp3", "c.mp3"}},
        {"/tag \"a b.mp3\"", 3, {"a b.mp3"}},
        {"/tag a b.mp3", 3, {"a b.mp3"}},
        {"/tag \"\"", 3, {}},
        {"--dir x", 0, {"--dir x"}},
    };
    for (const auto& Fall : Fälle) {
        const auto Auftrag = StartauftragLesen(std::string_view(Fall.Eingabe));
        EXPECT_EQ(Auftrag.Programmmodus, Fall.Modus) << Fall.Eingabe;
        EXPECT_EQ(Auftrag.Namen, Fall.Namen) << Fall.Eingabe;
        EXPECT_EQ(Auftrag.Kommandozeile, Fall.Eingabe);
    }
}

struct Argumentfall {
    Texte Eingabe;
    int Modus;
    Texte Namen;
};

TEST(Startauftrag, EinzelneArgumente) {
    const Argumentfall Fälle[] = {
        {{}, 0, {}},
        {{""}, 0, {}},
        {{"/m/a b.lwi"}, 0, {"/m/a b.lwi"}},
        {{"/dirk/x.lwi"}, 0, {"/dirk/x.lwi"}},
        {{"/dir"}, 2, {}},
        {{"/DIR", "/m/a b", "/m/c"}, 2, {"/m/a b", "/m/c"}},
        {{"/dir /m/a b"}, 2, {"/m/a b"}},
        {{"/tag \"/m/a b\" \"/m/c\"", "/m/d"}, 3, {"/m/a b", "/m/c", "/m/d"}},
        {{"--tag", "--", "--dir"}, 3, {"--dir"}},
        {{"--", "--tag"}, 0, {"--tag"}},
        {{"/m/x", "--tag"}, 0, {"/m/x", "--tag"}},
        {{"\"quoted\""}, 0, {"\"quoted\""}},  // a name by itself is never cut
    };
    for (const auto& Fall : Fälle) {
        const auto Auftrag = StartauftragLesen(Fall.Eingabe);
        EXPECT_EQ(Auftrag.Programmmodus, Fall.Modus) << Auftrag.Kommandozeile;
        EXPECT_EQ(Auftrag.Namen, Fall.Namen) << Auftrag.Kommandozeile;
    }
    EXPECT_EQ(StartauftragLesen(Texte{"/tag", "/m/a b", "/m/c"}).Kommandozeile, "/tag \"/m/a b\" /m/c");
    EXPECT_TRUE(StartauftragLesen(Texte{"--hilfe"}).Hilfe);
    // A word that is neither switch nor file is told, not opened.
    EXPECT_EQ(StartauftragLesen(Texte{"--index", "/m/x"}).UnbekannteOption, "--index");
    EXPECT_EQ(StartauftragLesen(Texte{"/tag", "/m/x", "-a"}).UnbekannteOption, "-a");
    for (const Texte& Gute : {Texte{"--", "--index"}, Texte{"--dir", "--", "-x"}, Texte{"/m/-x"}, Texte{"-"}})
        EXPECT_EQ(StartauftragLesen(Gute).UnbekannteOption, "") << Gute.back();
    EXPECT_TRUE(StartauftragLesen(Texte{"--version"}).Version);
}

TEST(Startauftrag, VollerPfadFolgtKeinemTextWoEinLinkSteht) {
    EXPECT_EQ(VollerPfad("x.lwi", "/m"), "/m/x.lwi");
    EXPECT_EQ(VollerPfad(".", "/m/n"), "/m/n");
    EXPECT_EQ(VollerPfad("/a//b/./c/", "/m"), "/a/b/c");
    EXPECT_EQ(VollerPfad("../x", "/liedwerk-gibt-es-nicht/n"), "/liedwerk-gibt-es-nicht/x");
    EXPECT_EQ(VollerPfad("/../..", "/m"), "/");
    EXPECT_EQ(VollerPfad("C:\\x\\..\\y", "/m"), "C:\\x\\..\\y");
    std::string Muster = (std::filesystem::temp_directory_path() / "liedwerk-kern-XXXXXX").string();
    ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
    std::filesystem::create_directory_symlink("/usr", Muster + "/link");
    EXPECT_EQ(VollerPfad("link/../x", Muster), Muster + "/link/../x");
    std::filesystem::remove_all(Muster);
}

}  // namespace
}  // namespace liedwerk
