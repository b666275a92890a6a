// The cache of CDs on real files.
#include <gtest/gtest.h>

#include "basis/datei.h"
#include "cd/cdspeicher.h"
#include "dateien/probeordner.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/person.h"

namespace liedwerk {
namespace {

struct Speicherprobe : testing::Test {
    test::Probeordner Ordner;
    Systemordnerleser Leser;
    speicher::Protokollliste Log;
    CDSpeicherumgebung Umgebung{Ordner.In("CDDB"), Leser, Log, "Liedwerk 1.00"};
    CDStand Stand;
    std::string Datei = Ordner.In("CDDB/8a0b2c0d.dat");

    static CDDaten Album(const std::string& Name) {
        CDDaten Daten;
        Daten.ID = "8a0b2c0d";
        Daten.Laufwerk = "/dev/sr0";
        Daten.Album = Name;
        Daten.AnzahlTitel = 1;
        Daten.Titel[0].Titel = "Ä";
        return Daten;
    }
};

TEST_F(Speicherprobe, GespeichertesKommtWiederUndWirdNichtZweimalGelesen) {
    ASSERT_TRUE(CDDBCDSpeichern(Stand, Umgebung, "8A0B2C0D", Album("Eins")));
    const auto Inhalt = DateiLesen(Datei);
    ASSERT_TRUE(Inhalt);
    EXPECT_TRUE(Inhalt->starts_with("lwifcddb1\r\n# xmcd\r\n"));
    EXPECT_TRUE(Inhalt->ends_with("TTITLE0=\xC4\r\nEXTD=YEAR:  ID3G: 145\r\nEXTT0=\r\nPLAYORDER=\r\n"));
    EXPECT_FALSE(DateiExistiert(VorläufigerName(Datei)));

    Stand.Daten.Laufwerk = "/dev/sr1";
    ASSERT_TRUE(CDDBCDLesen(Stand, Umgebung, "8a0b2c0d", false));
    EXPECT_EQ(Stand.Daten.ID + Stand.Daten.Album + Stand.Daten.Titel[0].Titel, "8a0b2c0dEinsÄ");
    EXPECT_EQ(Stand.CDDBZuletztLaufwerk, "/dev/sr1");
    ASSERT_TRUE(DateiLöschen(Datei).Nummer == 0);
    EXPECT_TRUE(CDDBCDLesen(Stand, Umgebung, "8a0b2c0d", false)) << "the record in memory counts";
    EXPECT_FALSE(CDDBCDLesen(Stand, Umgebung, "8a0b2c0d", true));
}

TEST_F(Speicherprobe, KennungenVonAußenWerdenKeineNamen) {
    Ordner.Datei("geheim.dat", "lwifcddb1\r\nDTITLE=a / b\r\n");
    for (const std::string Kennung :
         {"", "../geheim", "8a0b2c0", "8a0b2c0d0", "8a0b2c0g", "/etc/pas", "8a0b2c0d/../x"}) {
        EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, Kennung, Album("x"))) << Kennung;
        EXPECT_FALSE(CDDBCDLesen(Stand, Umgebung, Kennung, true)) << Kennung;
        EXPECT_FALSE(CDDBCDLöschen(Stand, Umgebung, Kennung)) << Kennung;
    }
    EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", {})) << "nothing to save";
    EXPECT_FALSE(OrdnerExistiert(Ordner.In("CDDB")));
    EXPECT_TRUE(DateiExistiert(Ordner.In("geheim.dat")));
}

TEST_F(Speicherprobe, EinGescheitertesSchreibenLässtDieAlteDatei) {
    ASSERT_TRUE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Alt")));
    const auto Vorher = DateiLesen(Datei);
    Ordner.Datei("CDDB/8a0b2c0d.dat~lwitmp/im Weg");
    EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Neu")));
    EXPECT_NE(Log.Zeilen.back().find("nicht gelöscht werden konnte: "), std::string::npos);
    EXPECT_EQ(DateiLesen(Datei), Vorher);
    std::filesystem::remove_all(VorläufigerName(Datei));
    Ordner.Datei("CDDB/8a0b2c0d.dat~", "von einem Texteditor");
    ASSERT_TRUE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Alt")));
    EXPECT_EQ(DateiLesen(Datei + "~"), "von einem Texteditor");
    {
        Dateiersatz Anderer;
        ASSERT_EQ(Anderer.Öffnen(Datei, VorläufigerName(Datei)), Dateiersatz::Öffnung::Bereit);
        EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Neu")));
        EXPECT_NE(Log.Zeilen.back().find("ein anderes Programm"), std::string::npos);
    }
    std::filesystem::remove(Datei);
    Ordner.Datei("CDDB/8a0b2c0d.dat/im Weg");
    EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Neu")));
    EXPECT_TRUE(DateiExistiert(Ordner.In("CDDB/8a0b2c0d.dat/im Weg")));
    Umgebung.Ordner = Ordner.Datei("keinordner");
    EXPECT_FALSE(CDDBCDSpeichern(Stand, Umgebung, "8a0b2c0d", Album("Neu")));
}

TEST_F(Speicherprobe, DieListeZeigtNurGültigeDateienAufEinerZeile) {
    Ordner.Datei("CDDB/22222222.dat", "lwifcddb1\nDTITLE=A\\nB / C\x1B\nTTITLE0=x");
    Ordner.Datei("CDDB/11111111.DAT", "lwifcddb1\r\nTTITLE0=x");
    Ordner.Datei("CDDB/11111111.dat", "lwifcddb1\r\nTTITLE0=x");
    Ordner.Datei("CDDB/33333333.dat", "LWIFCDDB1\r\nDTITLE=a / b");
    Ordner.Datei("CDDB/44444444.dat", std::string("lwifcddb1\r\n") + std::string(2 << 20, 'x'));
    Ordner.Datei("CDDB/55555555.dat", "");
    Ordner.Datei("CDDB/name.dat", "lwifcddb1\r\nDTITLE=a / b");
    Ordner.Datei("CDDB/66666666.dat/x");
    const std::string Groß = Ordner.Datei("CDDB/0A0B2C0D.DAT", "lwifcddb1\r\nDTITLE=a / Groß");
    const auto Liste = CDDBCDsSuchen(Umgebung);
    ASSERT_EQ(Liste.size(), 3U);
    EXPECT_EQ(Liste.front().Datei, Groß) << "from a system that knows no case";
    ASSERT_TRUE(CDDBCDSpeichern(Stand, Umgebung, "0a0b2c0d", Album("Neu")));
    EXPECT_TRUE(CDDBCDLesen(Stand, Umgebung, "0a0b2c0d", true) && Stand.Daten.Album == "Neu");
    EXPECT_TRUE(CDDBCDLöschen(Stand, Umgebung, "0a0b2c0d") && !DateiExistiert(Groß));
    EXPECT_EQ(CDZeilentext(Liste[1]), "(Unbekanntes Album) - (Unbekannter Interpret)");
    EXPECT_EQ(CDZeilentext(Liste.back()), "C  - A B");
    EXPECT_EQ(Liste.back().Datei, Ordner.In("CDDB/22222222.dat"));
    speicher::Person Person;
    Person.AbbruchBei = 1;
    EXPECT_TRUE(CDDBCDsSuchen(Umgebung, &Person).empty());
    EXPECT_EQ(Log.Zeilen.back(), "CDDBCDsSuchen: Abbruch wegen DateienSuchenAPI...");
    EXPECT_TRUE(CDDBCDLöschen(Stand, Umgebung, "22222222"));
    EXPECT_FALSE(DateiExistiert(Ordner.In("CDDB/22222222.dat")));
}

}  // namespace
}  // namespace liedwerk
