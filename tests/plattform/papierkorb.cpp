// The desktop's recycle bin: files come back out of it, and what it refuses stays where it was.
#include "plattform/papierkorb.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "plattform/system.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

TEST(Desktoppapierkorb, NimmtDateienAufUndLöschtNie) {
    // On the file system of the home folder, whose bin is the one that XDG_DATA_HOME names.
    std::string Ordner =
        std::string(std::getenv("HOME") ? std::getenv("HOME") : "/tmp") + "/liedwerk-eimer-XXXXXX";
    if (::mkdtemp(Ordner.data()) == nullptr) GTEST_SKIP() << "no home folder";
    ::setenv("XDG_DATA_HOME", (Ordner + "/daten").c_str(), 1);
    // Folders of people are often links to another drive.
    fs::create_directories(Ordner + "/dahinter");
    fs::create_directory_symlink(Ordner + "/dahinter", Ordner + "/daten");
    fs::create_directory_symlink(Ordner, Ordner + "/verweis");
    const auto Eimer = SystempapierkorbÖffnen();
    const std::string Lied = Ordner + "/Größe & \"x\".mp3";
    std::ofstream(Lied) << "lied";
    EXPECT_FALSE(Eimer->Verschieben(Lied));
    EXPECT_FALSE(fs::exists(Lied));
    std::string Inhalt;
    for (const auto& Eintrag : fs::recursive_directory_iterator(Ordner + "/daten"))
        if (Eintrag.path().filename() == fs::path(Lied).filename())
            Inhalt = DateiLesen(Eintrag.path().string()).value_or("");
    EXPECT_EQ(Inhalt, "lied") << "it can be taken out again";

    // One more of that name, and a bin that cannot be made: nothing of it goes anywhere else.
    std::ofstream(Lied) << "zweites";
    EXPECT_FALSE(Eimer->Verschieben(Ordner + "/verweis/Größe & \"x\".mp3"));
    EXPECT_EQ(DateiLesen(Ordner + "/daten/Trash/files/Größe & \"x\".mp3.2"), "zweites");
    const std::string Angaben =
        DateiLesen(Ordner + "/daten/Trash/info/Größe & \"x\".mp3.trashinfo").value_or("");
    EXPECT_NE(Angaben.find("Path=" + Ordner + "/Gr%C3%B6%C3%9Fe%20%26%20%22x%22.mp3\n"), std::string::npos)
        << Angaben;
    std::ofstream(Lied) << "drittes";
    fs::remove_all(Ordner + "/daten/Trash/info");
    std::ofstream(Ordner + "/daten/Trash/info") << "kein Ordner";
    EXPECT_TRUE(Eimer->Verschieben(Lied));
    EXPECT_EQ(DateiLesen(Lied), "drittes");
    EXPECT_TRUE(Eimer->Verschieben(Ordner + "/fehlt.mp3"));
    fs::remove_all(Ordner);
}

}  // namespace
}  // namespace liedwerk
