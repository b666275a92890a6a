// Images of CDs: places on the disc for each way of writing a sheet, hostile sheets, and the image as a
// folder.
#include <gtest/gtest.h>
#include <map>

#include "basis/datei.h"
#include "dateien/probeordner.h"
#include "plattform/cdabbild.h"
#include "plattform/linux/audiocd.h"
#include "plattform/linux/ordner.h"

namespace liedwerk {
namespace {

constexpr std::uint64_t Sektor = 2352;

// Files as the sheets name them.
std::optional<Abbilddatei> Nachsehen(std::string_view Name) {
    constexpr std::uint64_t Takt = 176400;
    const std::map<std::string, Abbilddatei, std::less<>> Dateien = {
        {"a b.bin", {5000 * Sektor, 0, 0}},
        {"m.bin", {1000 * 2048 + 500 * Sektor, 0, 0}},
        {"1.wav", {10000 * Sektor + 44, 10000 * Sektor, Takt}},
        {"2.wav", {20000 * Sektor + 45, 20000 * Sektor + 1, Takt}},  // a frame that has begun counts
        {"rw.bin", {100 * 2448, 0, 0}},
        {"null.wav", {44, 0, Takt}},
        {"riesig.bin", {UINT64_MAX, UINT64_MAX, 1}}};
    const auto Fund = Dateien.find(Name);
    return Fund == Dateien.end() ? std::nullopt : std::optional(Fund->second);
}

// The starts of the tracks and the lead-out as text, data tracks marked; "!" for a refusal.
std::string Plätze(const CDInhalt& Inhalt) {
    if (Inhalt.Fehlernummer != 0) return Inhalt.Fehlertext.empty() ? "" : "!";
    std::string Text;
    for (const CDSpur& Spur : Inhalt.Spuren)
        Text += std::to_string(Spur.Offset) + (Spur.Daten ? "d " : " ");
    return Text + std::to_string(Inhalt.LeadOut);
}

struct Fall {
    std::string_view Blatt;
    std::string_view Erwartet;
};

TEST(Abbild, CueBlätter) {
    const Fall Fälle[] = {
        {"FILE \"a b.bin\" BINARY\r\n  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n  TRACK 02 AUDIO\r\n    "
         "INDEX 00 "
         "00:10:00\r\n    INDEX 01 00:12:00\r\n",
         "150 1050 5150"},
        {"file a b.bin binary\n\ttrack 1 audio\n\tindex 1 0:2:0\n",
         "300 5150"},  // the gap before is a hidden track
        {"FILE m.bin BINARY\rTRACK 01 MODE1/2048\rINDEX 01 00:00:00\rTRACK 02 AUDIO\rPREGAP 00:02:00\rINDEX "
         "01 00:13:25",
         "150d 1300 1800"},
        {"FILE 1.wav WAVE\nTRACK 01 AUDIO\nPREGAP 00:01:00\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 00 "
         "02:00:00\nFILE "
         "2.wav WAVE\nINDEX 01 00:00:00\nPOSTGAP 00:00:10\nTRACK 03 AUDIO\nINDEX 01 01:00:00\nINDEX 02 "
         "02:00:00",
         "225 10225 14735 30236"},
        {"", "!"},
        {"FILE \"", "!"},
        {"FILE fehlt.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00", "!"},
        {"FILE \"a b.bin\" WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:60:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 -1:00:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 99:00:00", "!"},  // behind the end of the file
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 00 00:00:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:10:00\nTRACK 02 AUDIO\nINDEX 01 00:05:00",
         "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nTRACK 02 AUDIO\nINDEX 01 00:05:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 KLANG\nINDEX 01 00:05:00", "!"},
        {"FILE null.wav WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00", "!"},
        {"FILE riesig.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00", "!"},
        {"FILE \"a b.bin\" BINARY\nTRACK 01 AUDIO\nPREGAP 999999999:00:00\nINDEX 01 00:00:00", "!"},
        {"TRACK 01 AUDIO\nINDEX 01 00:00:00", "!"},
        {"PREGAP 00:00:00", "!"},
    };
    for (const Fall& Einer : Fälle)
        EXPECT_EQ(Plätze(CueAuswerten(Einer.Blatt, Nachsehen)), Einer.Erwartet) << Einer.Blatt;
    std::string Viele = "FILE 2.wav WAVE\n";
    for (int i = 0; i < 100; ++i)
        Viele += "TRACK 01 AUDIO\nINDEX 01 00:" + std::string(i < 60 ? "00:" : "01:") +
                 std::to_string(i % 60) + "\n";
    EXPECT_EQ(Plätze(CueAuswerten(Viele, Nachsehen)), "!") << "more tracks than a disc holds";
}

TEST(Abbild, TocBlätter) {
    const Fall Fälle[] = {
        {"CD_DA\nCATALOG \"123\"\nCD_TEXT { LANGUAGE 0 { TITLE \"TRACK } AUDIO\" } }\n// TRACK AUDIO\nTRACK "
         "AUDIO\nNO "
         "COPY\nFILE \"a b.bin\" 0 00:20:00\nTRACK AUDIO\nISRC \"X\"\nFILE \"a b.bin\" 00:20:00 "
         "00:10:00\nSTART "
         "00:01:00\nINDEX 00:03:00\nTRACK AUDIO\nPREGAP 00:02:00\nSILENCE 00:01:00\nAUDIOFILE \"a b.bin\" "
         "00:30:00",
         "150 1725 2550 5375"},
        {"CD_ROM_XA\nTRACK MODE2_RAW\nDATAFILE \"a b.bin\"\nTRACK AUDIO\nZERO AUDIO 88200\nSTART\nFILE "
         "\"1.wav\" 588",
         "150d 5300 15299"},
        {"TRACK AUDIO RW\nFILE \"rw.bin\" 0", "150 250"},
        {"TRACK AUDIO\nFILE \"a\\040b.b\\151n\" #2352 0\n", "150 5149"},
        {"TRACK AUDIO\nFILE \"fehlt\" 0 00:00:01\n", "150 151"},  // its length is told
        {"TRACK AUDIO\nFILE \"fehlt\" 0\n", "!"},
        {"TRACK AUDIO\nFILE \"null.wav\" 00:00:01", "!"},
        {"TRACK AUDIO\nFILE \"riesig.bin\" 0", "!"},
        {"TRACK AUDIO\nSILENCE", "!"},
        {"TRACK AUDIO\nFILE \"1.wav\" 0 00:60:00", "!"},  // no length: not the rest of the file
        {"TRACK AUDIO\nFILE \"1.wav\" 0x10", "!"},
        {"TRACK AUDIO\nFILE \"1.wav\" #x 0 00:00:01", "!"},
        {"TRACK AUDIO\nFILE \"1.wav\" 0 00:01:00\nSTART 1:0", "!"},
        {"TRACK AUDIO RW\nFILE \"fehlt\" #1000000000 0 00:00:01", "150 151"},
        {"TRACK AUDIO", "!"},
        {"TRACK", "!"},
        {"{{{{ TRACK AUDIO \"", "!"},
        {"TRACK AUDIO FILE \"\\", "!"},
    };
    for (const Fall& Einer : Fälle)
        EXPECT_EQ(Plätze(TocAuswerten(Einer.Blatt, Nachsehen)), Einer.Erwartet) << Einer.Blatt;
    std::string Endlos = "TRACK AUDIO\n";
    for (int i = 0; i < 40000; ++i)
        Endlos += "SILENCE 9999999999:0:0\n";
    EXPECT_EQ(Plätze(TocAuswerten(Endlos, Nachsehen)), "!") << "no sum overflows";
    EXPECT_EQ(TocAuswerten("TRACK AUDIO\nFILE \"a\\033[2J\nb\"", Nachsehen).Fehlertext,
              "Die Datei 'a [2J b' des CD-Abbildes fehlt oder ist zu lang.");
}

std::string Wave(std::size_t Frames) {
    const auto Klein = [](std::size_t Zahl) {
        std::string Bytes;
        for (unsigned i = 0; i < 32; i += 8)
            Bytes += static_cast<char>(Zahl >> i);
        return Bytes;
    };
    const std::size_t Bytes = Frames * Sektor;
    return "RIFF" + Klein(Bytes + 46) + "WAVEfmt " + Klein(16) + std::string("\1\0\2\0", 4) + Klein(44100) +
           Klein(176400) + std::string("\4\0\20\0", 4) + "LIST" + Klein(1) + std::string("x\0", 2) + "data" +
           Klein(0xFFFFFFFF) + std::string(Bytes, '\0');
}

TEST(Abbild, IstEinOrdnerMitDenKlangtitelnAlsDateien) {
    const test::Probeordner Ordner;
    Ordner.Datei("Klang/ERSTER.WAV", Wave(80));
    const std::string Blatt = Ordner.Datei(
        "Klang/x.CUE",
        "\xEF\xBB\xBF"
        "FILE \"C:\\Rip\\Erster.wav\" WAVE\r\nTRACK 01 AUDIO\r\nINDEX 01 00:00:00\r\nTRACK 02 MODE1/2352\r\n"
        "INDEX 01 00:01:00\r\n");
    const CDInhalt Inhalt = CDAbbildLesen(Blatt);
    EXPECT_EQ(Plätze(Inhalt), "150 225d 230") << Inhalt.Fehlertext;
    const std::string Titel = Blatt + "/Track01.cda";
    EXPECT_EQ(CDDesPfades(Titel), Blatt + "/");
    EXPECT_EQ(CDDesPfades(Blatt), std::nullopt) << "the sheet itself is a file of its folder";
    EXPECT_TRUE(OrdnerExistiert(Blatt + "/") && !OrdnerExistiert(Blatt) && DateiExistiert(Blatt));
    EXPECT_TRUE(DateiExistiert(Titel));
    EXPECT_EQ(DateistandLesen(Titel)->Größe, 75 * Sektor);
    for (const std::string Name : {"Track02.cda", "Track00.cda", "Track1.cda", "x", "Track01.cda/x"})
        EXPECT_FALSE(DateiExistiert(Blatt + "/" + Name)) << Name;
    std::vector<std::string> Namen;
    EXPECT_TRUE(Systemordnerleser().Auflisten(Blatt + "/", [&](const Ordnereintrag& Eintrag) {
        Namen.push_back(Eintrag.Name);
        return true;
    }));
    EXPECT_EQ(Namen, std::vector<std::string>{"Track01.cda"});
    EXPECT_NE(DateiLöschen(Titel).Nummer, 0);

    const std::string Fort = Ordner.In("fort.cue/Track01.cda");
    EXPECT_EQ(CDDesPfades(Fort), Ordner.In("fort.cue/")) << "a disc that is away is a drive all the same";
    EXPECT_FALSE(DateiExistiert(Fort));
    Ordner.Datei("ordner.cue/Track01.cda");
    EXPECT_EQ(CDDesPfades(Ordner.In("ordner.cue/Track01.cda")), std::nullopt);
    const std::string Anderes = Ordner.Datei("y.txt");
    EXPECT_FALSE(OrdnerExistiert(Anderes + "/") || DateiExistiert(Anderes + "/Track01.cda"));
    EXPECT_NE(CDAbbildLesen(Ordner.Datei("z.cue", std::string("FILE\0x", 6))).Fehlernummer, 0);
    EXPECT_NE(CDAbbildLesen(Ordner.Datei("groß.toc", std::string(2 << 20, ' '))).Fehlernummer, 0);
}

}  // namespace
}  // namespace liedwerk
