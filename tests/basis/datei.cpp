// Files on a real file system: what is read, and that a replacement is the old file or the new one, never a
// mixture.
#include "basis/datei.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace liedwerk {
namespace {

namespace fs = std::filesystem;
using Öffnung = Dateiersatz::Öffnung;

class Dateien : public testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (fs::temp_directory_path() / "liedwerk-basis-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
    }
    void TearDown() override { fs::remove_all(Ordner); }

    std::string Pfad(std::string_view Name) const { return Ordner + "/" + std::string(Name); }
    std::string Anlegen(std::string_view Name, std::string_view Inhalt) const {
        std::ofstream(Pfad(Name), std::ios::binary) << Inhalt;
        return Pfad(Name);
    }
    // The whole way of a replacement.
    static bool Ersetzen(const std::string& Ziel, std::string_view Inhalt) {
        Dateiersatz Ersatz;
        return Ersatz.Öffnen(Ziel, Ziel + "~") == Öffnung::Bereit && Ersatz.Schreiben(Inhalt) &&
               Ersatz.Übernehmen();
    }
    static mode_t Rechte(const std::string& Name) {
        struct stat Angaben {};
        ::stat(Name.c_str(), &Angaben);
        return Angaben.st_mode & 07777;
    }

    std::string Ordner;
};

TEST_F(Dateien, FragenNachDemBestand) {
    const auto Datei = Anlegen("a", "xy");
    ::mkfifo(Pfad("leitung").c_str(), 0600);
    EXPECT_TRUE(DateiExistiert(Datei) && DateiExistiert(Pfad("leitung")));
    EXPECT_TRUE(DateiExistiert(Anlegen("b:", "")) && DateiExistiert(Anlegen("b\\", "")));
    EXPECT_FALSE(DateiExistiert(Ordner) || DateiExistiert(Datei + "/") || DateiExistiert("") ||
                 DateiExistiert("C:"));
    EXPECT_FALSE(DateiExistiert(Datei + std::string("\0x", 2))) << "a NUL must not cut the name";
    // What an index from elsewhere calls "a" is no file of the folder that the program stands in.
    const fs::path Vorher = fs::current_path();
    const auto Anzahl = std::distance(fs::directory_iterator(Ordner), {});
    fs::current_path(Ordner);
    EXPECT_FALSE(DateiExistiert("a") || OrdnerExistiert(".") || Lesedatei::Öffnen("a").Offen());
    EXPECT_TRUE(DateiLöschen("a") && DateiUmbenennen("a", Pfad("b")) && DateiUmbenennen(Datei, "b"));
    EXPECT_TRUE(DateiNeuAnlegen("c") && OrdnerAnlegen("d") && DateiKopieren(Datei, "e"));
    fs::current_path(Vorher);
    EXPECT_EQ(std::distance(fs::directory_iterator(Ordner), {}), Anzahl) << "nothing came, nothing went";
    EXPECT_TRUE(OrdnerExistiert(Ordner) && !OrdnerExistiert(Datei));
    EXPECT_EQ(DateistandLesen(Datei)->Größe, 2U);
    EXPECT_TRUE(DateiBeschreibbar(Datei) && !DateiBeschreibbar(Ordner) && !DateiBeschreibbar(Pfad("fehlt")));
    EXPECT_EQ(DateiLöschen(Pfad("fehlt")).Text, "Die Datei oder der Ordner ist nicht vorhanden");
    EXPECT_FALSE(OrdnerAnlegen(Pfad("x/y/z")));
    EXPECT_TRUE(OrdnerExistiert(Pfad("x/y/z")));
    EXPECT_TRUE(OrdnerAnlegen(Datei + "/y"));
    EXPECT_FALSE(DateiUmbenennen(Datei, Pfad("x/b")));
    EXPECT_EQ(DateiLesen(Pfad("x/b")), "xy");
}

TEST_F(Dateien, LesenBleibtInDenGrenzenUndHängtNie) {
    const auto Datei = Lesedatei::Öffnen(Anlegen("a", "0123456789"));
    EXPECT_EQ(Datei.Lesen(8, UINT64_MAX), "89");
    EXPECT_EQ(Datei.Lesen(UINT64_MAX, UINT64_MAX), "");
    char Platz[4];
    EXPECT_EQ(Datei.Lesen(Platz, UINT64_MAX, 4), 0U);
    EXPECT_EQ(DateiLesen(Pfad("a"), 9), std::nullopt);
    ::mkfifo(Pfad("leitung").c_str(), 0600);
    for (const auto& Name : {Pfad("leitung"), Ordner, Pfad("fehlt"), std::string("/dev/null")}) {
        Dateifehler Fehler;
        EXPECT_FALSE(Lesedatei::Öffnen(Name, &Fehler).Offen());
        EXPECT_TRUE(Fehler && !Fehler.Text.empty());
        EXPECT_FALSE(IstLesbar(Name)) << Name;
    }
    EXPECT_TRUE(IstLesbar(Pfad("a")) && IstLesbar(Anlegen("leer", "")));
    EXPECT_FALSE(Datei.Lesefehler()) << "nothing is missing behind the end";
    Anlegen("a", "01234");
    EXPECT_EQ(Datei.Lesen(0, 10), "01234");
    EXPECT_TRUE(Datei.Lesefehler());
}

TEST_F(Dateien, DateianfangLiestNurSoWeitGefragtWird) {
    std::string Inhalt;
    for (int i = 0; i < 5000; ++i)
        Inhalt += std::to_string(i);
    const auto Datei = Lesedatei::Öffnen(Anlegen("a", Inhalt));
    Dateianfang Anfang(Datei);
    for (const std::size_t Länge :
         {std::size_t{10}, std::size_t{4096}, std::size_t{4097}, std::size_t{100}, Inhalt.size()}) {
        EXPECT_EQ(Anfang.Bis(Länge), std::string_view(Inhalt).substr(0, Länge));
    }
    EXPECT_EQ(Anfang.Bis(UINT64_MAX), Inhalt);
}

TEST_F(Dateien, ErsatzIstAltOderNeu) {
    const auto Ziel = Anlegen("a", "alt");
    {
        Dateiersatz Ersatz;
        ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
        EXPECT_TRUE(Ersatz.Schreiben("halb"));
        EXPECT_EQ(DateiLesen(Ziel), "alt");
        EXPECT_EQ(SperreLesen(Ziel + "~"), Sperrzustand::Gehalten);
    }
    EXPECT_EQ(DateiLesen(Ziel), "alt");
    EXPECT_EQ(SperreLesen(Ziel + "~"), Sperrzustand::Keine);

    std::string Erwartet;
    Dateiersatz Ersatz;
    ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
    for (const std::size_t Länge : {5UL, 1UL << 20, 3UL, (1UL << 20) + 1, 0UL, 700'000UL, 700'000UL}) {
        const std::string Stück(Länge, static_cast<char>('a' + Länge % 26));
        EXPECT_TRUE(Ersatz.Schreiben(Stück));
        Erwartet += Stück;
    }
    EXPECT_TRUE(Ersatz.Übernehmen());
    EXPECT_TRUE(DateiLesen(Ziel) == Erwartet) << "small and large pieces keep their order";
    EXPECT_EQ(Ersatz.Stand(), *DateistandLesen(Ziel));
    EXPECT_FALSE(Ersatz.Schreiben("x") || Ersatz.Übernehmen());
    EXPECT_FALSE(DateiExistiert(Ziel + "~"));
}

TEST_F(Dateien, ErsatzBehältRechteUndMerkmale) {
    const auto Ziel = Anlegen("a", "alt");
    ::chmod(Ziel.c_str(), 0640);
    const bool MitMerkmal = ::setxattr(Ziel.c_str(), "user.liedwerk", "wert", 4, 0) == 0;
    ASSERT_TRUE(Ersetzen(Ziel, "neu"));
    EXPECT_EQ(Rechte(Ziel), 0640U);
    char Wert[8];
    EXPECT_EQ(::getxattr(Ziel.c_str(), "user.liedwerk", Wert, sizeof Wert) == 4, MitMerkmal);

    ::chmod(Ziel.c_str(), 0444);
    ASSERT_TRUE(Ersetzen(Ziel, "noch neuer"));
    EXPECT_EQ(Rechte(Ziel), 0444U);

    const mode_t Maske = ::umask(027);
    ASSERT_TRUE(Ersetzen(Pfad("ganz neu"), "x"));
    ::umask(Maske);
    EXPECT_EQ(Rechte(Pfad("ganz neu")), 0640U);
}

TEST_F(Dateien, InhaltPrivaterDateienIstAuchUnterwegsPrivat) {
    const auto Ziel = Anlegen("a", "geheim");
    ::chmod(Ziel.c_str(), 0600);
    Dateiersatz Ersatz;
    ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
    EXPECT_EQ(Rechte(Ziel + "~"), 0600U);
    Ersatz.Verwerfen();
    // Who has opened what an earlier run has left behind must not see the new content either.
    ::chmod(Anlegen("a~", "Rest").c_str(), 0644);
    const Lesedatei Mitleser = Lesedatei::Öffnen(Ziel + "~");
    ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
    EXPECT_EQ(Rechte(Ziel + "~"), 0600U);
    EXPECT_TRUE(Ersatz.Schreiben("noch geheimer") && Ersatz.Übernehmen());
    EXPECT_EQ(Mitleser.Lesen(0, 99), "Rest");
}

TEST_F(Dateien, AngehängtWirdNurAnEigeneGewöhnlicheDateien) {
    for (const char* Bytes : {"eins", "zwei"})
        EXPECT_FALSE(DateiAnhängen(Pfad("log"), Bytes));
    EXPECT_EQ(DateiLesen(Pfad("log")), "einszwei");
    EXPECT_EQ(Rechte(Pfad("log")), 0600U);
    fs::create_symlink(Pfad("log"), Pfad("verweis"));
    ::mkfifo(Pfad("leitung").c_str(), 0600);
    for (const char* Name : {"verweis", "leitung", "", "fehlt/log"})
        EXPECT_TRUE(DateiAnhängen(Pfad(Name), "x")) << Name;
    EXPECT_EQ(DateiLesen(Pfad("log")), "einszwei");
}

TEST_F(Dateien, VorläufigeNamenSindNurUnsereUndTreffenSichHinterVerknüpfungen) {
    fs::create_directory(Pfad("fern"));
    fs::create_symlink(Pfad("fern/ziel"), Pfad("hier"));
    EXPECT_EQ(VorläufigerName(Pfad("hier")), Pfad("fern/ziel~lwitmp"));
    const auto Lang = Anlegen(std::string(250, 'x'), "alt");
    Dateiersatz Ersatz;
    ASSERT_EQ(Ersatz.Öffnen(Lang, VorläufigerName(Lang)), Öffnung::Bereit) << "no name is too long for it";
}

TEST_F(Dateien, ErsatzHinterEinerVerknüpfungLässtSieBestehen) {
    fs::create_directory(Pfad("fern"));
    Anlegen("fern/ziel", "alt");
    fs::create_symlink("fern/weiter", Pfad("hier"));
    fs::create_symlink("ziel", Pfad("fern/weiter"));
    ASSERT_TRUE(Ersetzen(Pfad("hier"), "neu"));
    EXPECT_TRUE(fs::is_symlink(Pfad("hier")) && fs::is_symlink(Pfad("fern/weiter")));
    EXPECT_EQ(DateiLesen(Pfad("fern/ziel")), "neu");
    fs::create_symlink("fern/noch nicht da", Pfad("leer"));
    ASSERT_TRUE(Ersetzen(Pfad("leer"), "da"));
    EXPECT_EQ(DateiLesen(Pfad("fern/noch nicht da")), "da");
    fs::create_symlink("kreis", Pfad("kreis"));
    EXPECT_FALSE(Ersetzen(Pfad("kreis"), "x"));
}

TEST_F(Dateien, FremdesUnterDemVorläufigenNamenBleibtUnberührt) {
    const auto Ziel = Anlegen("a", "alt");
    const auto Opfer = Anlegen("opfer", "wertvoll");
    const auto Prüfen = [&] {
        Dateiersatz Ersatz;
        EXPECT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Fehler);
        EXPECT_FALSE(Ersatz.Fehler().Text.empty());
        EXPECT_EQ(SperreLesen(Ziel + "~") == Sperrzustand::Keine, false);
        EXPECT_EQ(DateiLesen(Opfer), "wertvoll");
        EXPECT_EQ(DateiLesen(Ziel), "alt");
        EXPECT_EQ(fs::remove_all(Ziel + "~"), 1U) << "it was still there";
    };
    fs::create_symlink(Opfer, Ziel + "~");
    Prüfen();
    fs::create_hard_link(Opfer, Ziel + "~");
    Prüfen();
    fs::create_directory(Ziel + "~");
    Prüfen();
    ::mkfifo((Ziel + "~").c_str(), 0600);
    Prüfen();
}

TEST_F(Dateien, GesperrteDateiWirdGemeldetÜbriggebliebeneÜbernommen) {
    const auto Ziel = Anlegen("a", "alt");
    const auto Temporär = Anlegen("a~", "von einem anderen Lauf und viel länger");
    EXPECT_EQ(SperreLesen(Temporär), Sperrzustand::Frei);
    const int Fremd = ::open(Temporär.c_str(), O_RDWR);
    ASSERT_EQ(::flock(Fremd, LOCK_EX), 0);
    EXPECT_EQ(SperreLesen(Temporär), Sperrzustand::Gehalten);
    Dateiersatz Ersatz;
    EXPECT_EQ(Ersatz.Öffnen(Ziel, Temporär), Öffnung::Gesperrt);
    EXPECT_EQ(DateiLesen(Temporär)->size(), 39U) << "the other's work is not emptied";
    ::close(Fremd);
    ::chmod(Temporär.c_str(), 0400);
    EXPECT_TRUE(Ersetzen(Ziel, "neu"));
    EXPECT_EQ(DateiLesen(Ziel), "neu");
}

TEST_F(Dateien, AusgetauschteVorläufigeDateiWirdNichtZumZiel) {
    const auto Ziel = Anlegen("a", "alt");
    Dateiersatz Ersatz;
    ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
    Ersatz.Schreiben("neu");
    fs::remove(Ziel + "~");
    Anlegen("a~", "untergeschoben");
    EXPECT_FALSE(Ersatz.Übernehmen());
    EXPECT_EQ(DateiLesen(Ziel), "alt");
    EXPECT_EQ(DateiLesen(Ziel + "~"), "untergeschoben");
}

TEST_F(Dateien, GescheitertesUmbenennenKannDieVorläufigeDateiBehalten) {
    for (const bool Behalten : {true, false}) {
        const auto Ziel = Pfad("ziel");
        Dateiersatz Ersatz;
        ASSERT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
        Ersatz.Schreiben("neu");
        fs::create_directories(Ziel + "/belegt");
        EXPECT_FALSE(Ersatz.Übernehmen(Behalten));
        EXPECT_FALSE(Ersatz.Fehler().Text.empty());
        EXPECT_EQ(DateiExistiert(Ziel + "~"), Behalten);
        fs::remove_all(Ziel);
    }
}

TEST_F(Dateien, VollerDatenträgerLässtDieAlteDateiStehen) {
    const auto Ziel = Anlegen("a", "alt");
    rlimit Vorher{};
    ::getrlimit(RLIMIT_FSIZE, &Vorher);
    const auto Signal = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit Knapp{100'000, Vorher.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &Knapp);
    Dateiersatz Ersatz;
    EXPECT_EQ(Ersatz.Öffnen(Ziel, Ziel + "~"), Öffnung::Bereit);
    EXPECT_TRUE(Ersatz.Schreiben(std::string(200'000, 'x'))) << "still in the buffer";
    const bool Übernommen = Ersatz.Übernehmen();
    const Dateifehler Kopierfehler = DateiKopieren(Ziel, Pfad("kopie"));
    ::setrlimit(RLIMIT_FSIZE, &Vorher);
    std::signal(SIGXFSZ, Signal);
    EXPECT_FALSE(Übernommen);
    EXPECT_EQ(Ersatz.Fehler().Nummer, EFBIG);
    EXPECT_EQ(DateiLesen(Ziel), "alt");
    EXPECT_FALSE(DateiExistiert(Ziel + "~"));
    EXPECT_FALSE(Kopierfehler) << Kopierfehler.Text;
}

TEST_F(Dateien, KopierenNimmtInhaltUndÄnderungszeitMit) {
    const std::string Inhalt(3'000'000, 'k');
    const auto Quelle = Anlegen("quelle", Inhalt);
    const timespec Zeiten[2] = {{5, 0}, {1'000'000'000, 123'000'000}};
    ::utimensat(AT_FDCWD, Quelle.c_str(), Zeiten, 0);
    const auto Ziel = Anlegen("ziel", "alt");
    ASSERT_FALSE(DateiKopieren(Quelle, Ziel));
    EXPECT_TRUE(DateiLesen(Ziel) == Inhalt);
    EXPECT_EQ(fs::last_write_time(Ziel), fs::last_write_time(Quelle));
    EXPECT_TRUE(DateiKopieren(Pfad("fehlt"), Ziel));
    EXPECT_TRUE(DateiKopieren(Quelle, Ordner));
    EXPECT_TRUE(DateiKopieren(Quelle, Pfad("fehlt/ziel")));
    EXPECT_TRUE(DateiLesen(Ziel) == Inhalt);
}

}  // namespace
}  // namespace liedwerk
