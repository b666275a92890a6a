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
    fs::create_directories(Ordner + "/daten");
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

    const std::string Kaputt = Ordner + "/\xFF\xFE.mp3";
    std::ofstream(Kaputt) << "lied";
    EXPECT_TRUE(Eimer->Verschieben(Kaputt));
    EXPECT_TRUE(fs::exists(Kaputt));
    EXPECT_TRUE(Eimer->Verschieben(Ordner + "/fehlt.mp3"));
    fs::remove_all(Ordner);
}

}  // namespace
}  // namespace liedwerk
