// The command "cddb": the real program, an image of a CD, a server on loopback.
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "dateien/probeordner.h"
#include "werkzeuge/webserver.h"

namespace liedwerk::test {
namespace {

// Runs the program; Aus receives what it wrote, messages too.
int Cli(const std::string& Argumente, std::string& Aus) {
    std::FILE* const Rohr = popen((std::string(LIEDWERK_CLI) + " " + Argumente + " 2>&1").c_str(), "r");
    Aus.clear();
    char Puffer[4096];
    for (std::size_t Anzahl = 0; (Anzahl = fread(Puffer, 1, sizeof Puffer, Rohr)) > 0;)
        Aus.append(Puffer, Anzahl);
    return WEXITSTATUS(pclose(Rohr));
}

TEST(CddbBefehl, HoltWähltUndMerktSichDieCd) {
    const Probeordner Ordner;
    const std::string Abbild =
        Ordner.Datei("a.cue",
                     "FILE \"a.bin\" BINARY\n TRACK 01 AUDIO\n  INDEX 01 00:00:00\n TRACK 02 AUDIO\n"
                     "  INDEX 01 02:00:00\n");
    std::filesystem::resize_file(Ordner.Datei("a.bin"), 2352 * 75 * 300);
    int Gefragt = 0;
    werkzeuge::Server Fern([&](const std::string& Anfrage, werkzeuge::Server::Leitung& Weg) {
        ++Gefragt;
        if (Anfrage.find("cddb+query") != std::string::npos) {
            Weg.Antworten("210 x\r\nrock 1 A / B\r\nfolk 2 Anna / Fr\xfch\r\n.\r\n");
        } else if (Anfrage.find("+folk+2&") != std::string::npos) {
            Weg.Antworten("210 folk 2\r\nDTITLE=Anna / Fr\xfch\r\nTTITLE0=eins\r\nTTITLE1=zwei\r\n.\r\n");
        } else {
            Weg.Antworten("401 nichts");
        }
    });
    const std::string Kopf = "--programmordner " + Ordner.Pfad + " --einstellungen " + Ordner.In("e.ini") +
                             " --setze CDDBServer=" + Fern.Name() + " --setze CDDBEmail=anna@example.org ";
    std::string Aus;
    EXPECT_EQ(Cli(Kopf + "cddb --wahl 0 " + Abbild, Aus), 2);
    EXPECT_EQ(Cli(Kopf + "cddb " + Abbild + "x", Aus), 1);
    EXPECT_NE(Aus.find("konnte nicht gelesen werden"), std::string::npos) << Aus;
    EXPECT_EQ(Gefragt, 0);
    EXPECT_EQ(Cli(Kopf + "cddb " + Abbild, Aus), 1);
    EXPECT_NE(Aus.find("  2  folk 2 Anna / Früh"), std::string::npos) << Aus;
    EXPECT_NE(Aus.find("(401)"), std::string::npos) << Aus;
    EXPECT_EQ(Cli(Kopf + "--json cddb --wahl 2 " + Abbild, Aus), 0) << Aus;
    EXPECT_NE(Aus.find("\"Früh\""), std::string::npos) << Aus;
    EXPECT_NE(Aus.find("zwei"), std::string::npos);
    EXPECT_EQ(Gefragt, 4);
    // From the cache now, also into the records of its tracks.
    EXPECT_EQ(Cli(Kopf + "cddb " + Abbild, Aus), 0);
    EXPECT_EQ(Cli(Kopf + "--json datei-info " + Abbild + "/Track02.cda", Aus), 0);
    EXPECT_NE(Aus.find("zwei"), std::string::npos) << Aus;
    EXPECT_EQ(Gefragt, 4);
}

}  // namespace
}  // namespace liedwerk::test
