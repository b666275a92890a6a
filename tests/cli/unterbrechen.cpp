// The real program, cut short in the middle of its work: index and files must agree afterwards.
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "basis/datei.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

namespace fs = std::filesystem;

constexpr int Dateianzahl = 3000;

class Unterbrechung : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string Muster = (fs::temp_directory_path() / "liedwerk-ende-XXXXXX").string();
        ASSERT_NE(::mkdtemp(Muster.data()), nullptr);
        Ordner = Muster;
        fs::create_directory(Ordner + "/musik");
        for (int Nummer = 0; Nummer < Dateianzahl; ++Nummer) {
            tagbau::Id3v1Angaben Angaben;
            Angaben.Titel = "Titel" + std::to_string(Nummer);
            std::ofstream(Ordner + "/musik/" + std::to_string(Nummer) + ".mp3", std::ios::binary)
                << tagbau::MpegRahmen({}, 2) + tagbau::Id3v1Block(Angaben);
        }
        ASSERT_EQ(Warten(Starten({"hinzufuegen", "musik"})), 0) << Fehler();
    }
    void TearDown() override { fs::remove_all(Ordner); }

    // Starts the program with fresh signals; its standard output goes to Ausgabegriff when one is given.
    pid_t Starten(std::vector<std::string> Worte, int Ausgabegriff = -1) const {
        Worte.insert(Worte.begin(), {LIEDWERK_CLI, "--programmordner", "p", "--einstellungen", "e.ini"});
        std::vector<char*> Zeiger;
        for (std::string& Wort : Worte)
            Zeiger.push_back(Wort.data());
        Zeiger.push_back(nullptr);
        const pid_t Kind = ::fork();
        if (Kind != 0) return Kind;
        for (const int Signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
            ::signal(Signal, SIG_DFL);
        if (::chdir(Ordner.c_str()) != 0) ::_exit(126);
        constexpr int Neu = O_WRONLY | O_CREAT | O_TRUNC;
        ::dup2(Ausgabegriff >= 0 ? Ausgabegriff : ::open("aus", Neu, 0600), STDOUT_FILENO);
        ::dup2(::open("fehler", Neu, 0600), STDERR_FILENO);
        ::execv(LIEDWERK_CLI, Zeiger.data());
        ::_exit(127);
    }
    static bool Läuft(pid_t Kind) {
        siginfo_t Ende{};
        ::waitid(P_PID, static_cast<id_t>(Kind), &Ende, WEXITED | WNOHANG | WNOWAIT);
        return Ende.si_pid == 0;
    }
    // The exit status; -1 when a signal has ended the program.
    static int Warten(pid_t Kind) {
        int Stand = 0;
        ::waitpid(Kind, &Stand, 0);
        return WIFEXITED(Stand) ? WEXITSTATUS(Stand) : -1;
    }
    std::string Fehler() const { return DateiLesen(Ordner + "/fehler").value_or(""); }
    static int Anzahl(const std::string& Verzeichnis) {
        std::error_code Gleich;
        int Zahl = 0;
        for ([[maybe_unused]] const auto& Eintrag : fs::directory_iterator(Verzeichnis, Gleich))
            ++Zahl;
        return Zahl;
    }
    // Every record's file stands where the saved index says.
    void IndexPrüfen() const {
        ASSERT_EQ(Warten(Starten({"--json", "saetze"})), 0) << Fehler();
        const std::string Aus = DateiLesen(Ordner + "/aus").value_or("");
        int Sätze = 0;
        int Tote = 0;
        for (auto Stelle = Aus.find("\"Pfad\":\""); Stelle != std::string::npos; ++Sätze) {
            Stelle += 8;
            const auto Ende = Aus.find('"', Stelle);
            if (!fs::exists(Aus.substr(Stelle, Ende - Stelle))) ++Tote;
            Stelle = Aus.find("\"Pfad\":\"", Ende);
        }
        EXPECT_EQ(Sätze, Dateianzahl);
        EXPECT_EQ(Tote, 0);
    }

    std::string Ordner;
};

TEST_F(Unterbrechung, EinSignalBrichtDasVerschiebenAbUndDerIndexStimmt) {
    int Mittendrin = 0;
    int Lauf = 0;
    for (const int Signal : {SIGINT, SIGTERM, SIGHUP, SIGINT, SIGTERM}) {
        const std::string Ziel = Ordner + "/ziel" + std::to_string(++Lauf);
        std::vector<std::string> Worte{"--still", "kopieren", "--verschieben", "--ziel", Ziel};
        for (int Nummer = 1; Nummer <= Dateianzahl; ++Nummer)
            Worte.push_back(std::to_string(Nummer));
        const pid_t Kind = Starten(Worte);
        while (Anzahl(Ziel) < 20 && Läuft(Kind))
            ::usleep(200);
        ::kill(Kind, Signal);
        const int Stand = Warten(Kind);
        const int Verschoben = Anzahl(Ziel);
        EXPECT_GE(Verschoben, 20) << Fehler();
        EXPECT_TRUE(Stand == 1 || (Stand == 0 && Verschoben == Dateianzahl)) << Stand << " " << Signal;
        if (Verschoben < Dateianzahl) {
            ++Mittendrin;
            EXPECT_NE(Fehler().find("durch ein Signal unterbrochen"), std::string::npos) << Fehler();
        }
        IndexPrüfen();
    }
    EXPECT_GT(Mittendrin, 0) << "no signal came in time";
}

TEST_F(Unterbrechung, UmbenennenÜberstehtSignalUndGeschlosseneAusgabe) {
    std::vector<std::string> Worte{"umbenennen", "--format", "%Titel%"};
    for (int Nummer = 0; Nummer < Dateianzahl; ++Nummer)
        Worte.push_back("musik/" + std::to_string(Nummer) + ".mp3");
    const pid_t Kind = Starten(Worte);
    while (!fs::exists(Ordner + "/musik/Titel20.mp3") && Läuft(Kind))
        ::usleep(200);
    ::kill(Kind, SIGTERM);
    EXPECT_NE(Warten(Kind), -1);
    EXPECT_TRUE(fs::exists(Ordner + "/musik/Titel20.mp3")) << Fehler();
    IndexPrüfen();

    // Nobody reads the output: the work is done all the same, and the failure is told.
    int Enden[2];
    ASSERT_EQ(::pipe2(Enden, O_CLOEXEC), 0);
    ::close(Enden[0]);
    Worte = {"umbenennen", "--format", "Neu %Titel%"};
    for (int Nummer = 0; Nummer < 20; ++Nummer)
        Worte.push_back("musik/Titel" + std::to_string(Nummer) + ".mp3");
    EXPECT_EQ(Warten(Starten(Worte, Enden[1])), 1);
    ::close(Enden[1]);
    EXPECT_NE(Fehler().find("Die Ausgabe konnte nicht vollständig geschrieben werden"), std::string::npos);
    EXPECT_TRUE(fs::exists(Ordner + "/musik/Neu Titel19.mp3"));
    IndexPrüfen();
}

}  // namespace
}  // namespace liedwerk
