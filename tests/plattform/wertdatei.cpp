// The settings file: what goes in comes out, and nobody's lines get lost.
#include "plattform/linux/wertdatei.h"

#include <gtest/gtest.h>

#include "basis/datei.h"
#include "dateien/probeordner.h"

namespace liedwerk {
namespace {

using test::Probeordner;

struct Wertdateiprobe : testing::Test {
    Probeordner Ordner;
    std::string Pfad = Ordner.In("tief/einstellungen.ini");
    std::string Inhalt() const { return DateiLesen(Pfad).value_or("(fehlt)"); }
};

TEST_F(Wertdateiprobe, JederWertKommtWiederWieErWar) {
    const std::string Schwierig = std::string("a\"b\\c\r\n\t\0d\x7F", 10) + "Größe \xFF\xC3 \\x41 =;#";
    {
        Wertdatei Datei(Pfad);
        Datei.Schreiben("Text", Schwierig);
        Datei.Schreiben("Leer", std::string());
        Datei.Schreiben("WinampLautstärke", INT32_MIN);
        EXPECT_EQ(Datei.Lesen("Text"), Speicherwert(Schwierig)) << "visible before it is saved";
        EXPECT_EQ(Datei.Sichern(), "");
    }
    const Wertdatei Datei(Pfad);
    EXPECT_EQ(Datei.Lesen("Text"), Speicherwert(Schwierig));
    EXPECT_EQ(Datei.Lesen("Leer"), Speicherwert(std::string()));
    EXPECT_EQ(Datei.Lesen("WinampLautstärke"), Speicherwert(INT32_MIN));
    EXPECT_EQ(Datei.Lesen("Fehlt"), std::nullopt);
    EXPECT_EQ(Inhalt().find('\xFF'), std::string::npos) << "the file itself is UTF-8";
}

TEST_F(Wertdateiprobe, FremdeZeilenBleibenAnIhremPlatz) {
    Ordner.Datei(
        "tief/einstellungen.ini",
        "# Notiz\r\nA=1\n[Gruppe]\nB=\"offen\nC=99999999999\nD=\"x\\q\"\nA=2\nE = 5 \n\nLöschen=1\nohne");
    Wertdatei Datei(Pfad);
    EXPECT_EQ(Datei.Lesen("A"), Speicherwert(2));
    EXPECT_EQ(Datei.Lesen("E"), Speicherwert(5));
    for (const auto* Kaputt : {"B", "C", "D"})
        EXPECT_EQ(Datei.Lesen(Kaputt), std::nullopt) << Kaputt;
    Datei.Schreiben("A", 3);
    Datei.Schreiben("F", std::string("ü"));
    Datei.Löschen("Löschen");
    ASSERT_EQ(Datei.Sichern(), "");
    EXPECT_EQ(Inhalt(),
              "# Notiz\r\n[Gruppe]\nB=\"offen\nC=99999999999\nD=\"x\\q\"\nA=3\nE = 5 \n\nohne\nF=\"ü\"\n");
}

TEST_F(Wertdateiprobe, ZweiProgrammeÜberschreibenEinanderNurWasBeideÄndern) {
    Ordner.Datei("tief/einstellungen.ini", "A=1\nB=1\nC=1\n");
    Wertdatei Eins(Pfad);
    Wertdatei Zwei(Pfad);
    Eins.Schreiben("A", 2);
    Eins.Schreiben("C", 2);
    ASSERT_EQ(Eins.Sichern(), "");
    // A program writes all its settings at the end, most of them as it had read them.
    Zwei.Schreiben("A", 1);
    Zwei.Schreiben("B", 3);
    Zwei.Schreiben("C", 3);
    ASSERT_EQ(Zwei.Sichern(), "");
    EXPECT_EQ(Inhalt(), "A=2\nB=3\nC=3\n");
    Eins.Schreiben("B", 1);
    Eins.Schreiben("A", 2);
    ASSERT_EQ(Eins.Sichern(), "");
    EXPECT_EQ(Inhalt(), "A=2\nB=3\nC=3\n") << "nothing new was changed, so nothing is written";
}

TEST_F(Wertdateiprobe, OhneÄnderungWirdNichtGeschrieben) {
    Wertdatei Datei(Pfad);
    EXPECT_EQ(Datei.Sichern(), "");
    EXPECT_FALSE(DateiExistiert(Pfad));
    Datei.Schreiben("böse\nA=", 1);
    EXPECT_EQ(Datei.Sichern(), "");
    EXPECT_FALSE(DateiExistiert(Pfad));
}

TEST_F(Wertdateiprobe, WasNichtLesbarIstWirdNieÜberschrieben) {
    std::filesystem::create_directories(Pfad);
    Wertdatei Datei(Pfad);
    EXPECT_NE(Datei.Lesefehler(), "");
    Datei.Schreiben("A", 1);
    EXPECT_NE(Datei.Sichern().find(Pfad), std::string::npos);
    EXPECT_TRUE(OrdnerExistiert(Pfad));
    EXPECT_FALSE(DateiExistiert(VorläufigerName(Pfad)));
    // Nor what is too large to be ours.
    const std::string Riese = Ordner.Datei("riese.ini", "A=2\n");
    std::filesystem::resize_file(Riese, (64U << 20U) + 1);
    Wertdatei Zweite(Riese);
    Zweite.Schreiben("A", 1);
    EXPECT_NE(Zweite.Sichern().find("zu groß"), std::string::npos);
    EXPECT_EQ(std::filesystem::file_size(Riese), (64U << 20U) + 1);
}

TEST_F(Wertdateiprobe, GehörtNurDemEigenerUndLässtDessenKopieStehen) {
    const auto Sichern = [&](int Wert) {
        Wertdatei Datei(Pfad);
        Datei.Schreiben("A", Wert);
        return Datei.Sichern();
    };
    const auto Rechte = [](const std::string& Name) { return std::filesystem::status(Name).permissions(); };
    ASSERT_EQ(Sichern(1), "");
    EXPECT_EQ(Rechte(Pfad), std::filesystem::perms(0600));
    EXPECT_EQ(Rechte(Ordner.In("tief")), std::filesystem::perms(0700));
    std::filesystem::permissions(Pfad, std::filesystem::perms(0644));
    Ordner.Datei("tief/einstellungen.ini~", "von einem Texteditor");
    ASSERT_EQ(Sichern(2), "");
    EXPECT_EQ(Rechte(Pfad), std::filesystem::perms(0640)) << "an older one is not for everybody any more";
    EXPECT_EQ(DateiLesen(Pfad + "~"), "von einem Texteditor");
}

TEST_F(Wertdateiprobe, EineGehalteneSperreLässtDieAlteDateiGanz) {
    Ordner.Datei("tief/einstellungen.ini", "A=1\n");
    Dateiersatz Anderer;
    ASSERT_EQ(Anderer.Öffnen(Pfad, VorläufigerName(Pfad)), Dateiersatz::Öffnung::Bereit);
    Wertdatei Datei(Pfad);
    Datei.Schreiben("A", 2);
    EXPECT_NE(Datei.Sichern(), "");
    EXPECT_EQ(Inhalt(), "A=1\n");
    Anderer.Verwerfen();
    EXPECT_EQ(Datei.Sichern(), "") << "the change is still to be saved";
    EXPECT_EQ(Inhalt(), "A=2\n");
}

}  // namespace
}  // namespace liedwerk
