// Disc ids and query texts of known tables of contents, and the record made of a disc.
#include <gtest/gtest.h>
#include <numeric>

#include "cd/cdbereiten.h"
#include "dateien/probeordner.h"
#include "medien/cdtitel.h"
#include "plattform/linux/ordner.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/person.h"

namespace liedwerk {
namespace {

CDInhalt Inhalt(const std::vector<std::int32_t>& Offsets, std::int32_t LeadOut) {
    CDInhalt Neu;
    for (const std::int32_t Offset : Offsets)
        Neu.Spuren.push_back({Offset, false});
    Neu.LeadOut = LeadOut;
    return Neu;
}

TEST(Disc, KennungUndAbfrageStimmenFürBekannteTabellen) {
    struct Fall {
        std::vector<std::int32_t> Offsets;
        std::int32_t LeadOut;
        std::string Kennung;
        std::string Ende;
    };
    std::vector<std::int32_t> Quersumme255{150, 201 * 75};
    for (int Sekunde = 202; Sekunde <= 231; ++Sekunde)
        Quersumme255.push_back(Sekunde * 75);
    Quersumme255.push_back(289 * 75);
    const Fall Fälle[] = {
        {{150,    9700,   25887,  39297,  53795,  63735,  77517,  94877,  107270, 123552, 135522,
          148422, 161197, 174790, 192022, 205545, 218010, 228700, 239590, 255470, 266932, 288750},
         303602,
         "370fce16",
         "+266932+288750+4048"},
        {{150, 15363, 32314, 46592, 63414, 80489},
         95462,
         "3404f606",
         "+6+150+15363+32314+46592+63414+80489+1272"},
        {{150}, 225, "02000101", "+1+150+3"},
        {{182, 344925}, 345000, "1d11f602", "+2+182+344925+4600"},  // the frames of both ends are dropped
        {Quersumme255, 299 * 75, "00012921", "+21675+299"},         // 255 is 0
        {{0}, 70000 * 75, "001117001", "+1+0+70000"},               // no digit is cut
    };
    for (const Fall& Einer : Fälle) {
        speicher::CDs CDs;
        CDs.Liste["D:"] = Inhalt(Einer.Offsets, Einer.LeadOut);
        clsCcd Disc;
        ASSERT_TRUE(Disc.Init(CDs, "D:\\"));
        EXPECT_EQ(Disc.DiskID, Einer.Kennung);
        EXPECT_TRUE(Disc.QueryString().starts_with("cddb+query+" + Einer.Kennung + "+"))
            << Disc.QueryString();
        EXPECT_TRUE(Disc.QueryString().ends_with(Einer.Ende)) << Disc.QueryString();
        EXPECT_EQ(Disc.TrackTime(Disc.TrackCount) - Disc.TrackTime(0), Disc.TotalLength);
        EXPECT_EQ(Disc.TrackOffset(Disc.TrackCount), Einer.LeadOut);
        EXPECT_EQ(Disc.TrackFrames(0), Einer.Offsets[0] % 75);
        for (const int Außen : {-1, Disc.TrackCount + 1})
            EXPECT_EQ(Disc.TrackTime(Außen) + Disc.TrackOffset(Außen) + Disc.TrackFrames(Außen), 0);
    }
}

struct Discprobe : testing::Test {
    test::Probeordner Ordner;
    Systemordnerleser Leser;
    speicher::Protokollliste Log;
    speicher::CDs CDs;
    CDStand Stand;
    std::string Laufwerk = Ordner.In("cd");
    CDUmgebung Umgebung{
        CDs, {Ordner.In("CDDB"), Leser, Log, "Liedwerk 1.00"}, [](std::string_view) { return true; }};
    clsCcd Disc;

    CDBereitung Bereiten() { return CDDBDatenBereiten(Stand, Umgebung, Laufwerk, "server", Disc); }
};

TEST_F(Discprobe, EineAndereScheibeImSelbenLaufwerkErbtNichts) {
    EXPECT_EQ(Bereiten(), CDBereitung::Gescheitert);
    EXPECT_NE(Stand.Daten.Protokoll.find("CDDBStart: Fehler bei DateienSuchenAPI"), std::string::npos);
    Ordner.Datei("cd/Track01.cda");
    EXPECT_EQ(Bereiten(), CDBereitung::Gescheitert);
    EXPECT_NE(Stand.Daten.Protokoll.find("Gerätefehler: Es liegt keine CD im Laufwerk."), std::string::npos);
    EXPECT_EQ(Stand.Daten.ID, "");

    CDs.Liste[Laufwerk] = Inhalt({150, 15363}, 95462);
    EXPECT_EQ(Bereiten(), CDBereitung::Unbekannt);
    EXPECT_EQ(Stand.Daten.AnzahlTitel, 2);
    EXPECT_EQ(Stand.Daten.Titel[1].Titel, "Titel 2");
    EXPECT_EQ(Stand.Daten.Titel[0].Dauer, 202);
    EXPECT_EQ(Stand.Daten.Titel[1].Dauer, 1068);
    EXPECT_EQ(Stand.Daten.Gesamtdauer, 1272);
    EXPECT_EQ(Stand.Daten.LeadOutOffset, 95462);
    Stand.Daten.Titel[1].Titel = "Bekannt";
    const std::string Erste = Stand.Daten.ID;
    ASSERT_TRUE(CDDBCDSpeichern(Stand, Umgebung.Speicher, Erste, Stand.Daten));

    EXPECT_EQ(Bereiten(), CDBereitung::AusSpeicher);
    EXPECT_EQ(Stand.Daten.Titel[1].Titel, "Bekannt");
    Stand.Daten.Titel[1].Titel = "Im Speicher";
    EXPECT_EQ(Bereiten(), CDBereitung::Geladen);
    EXPECT_EQ(Stand.Daten.Titel[1].Titel, "Im Speicher");
    CDs.Liste[Laufwerk] = Inhalt({150, 20000}, 95462);
    EXPECT_EQ(Bereiten(), CDBereitung::Unbekannt);
    EXPECT_EQ(Stand.Daten.Titel[1].Titel, "Titel 2");
    Umgebung.LaufwerkIstAudioCD = [](std::string_view) { return false; };
    EXPECT_EQ(Bereiten(), CDBereitung::Gescheitert);
    EXPECT_EQ(Stand.Daten.ID, "");
}

TEST_F(Discprobe, EinSatzAusEinerDateiIstNichtDerDerScheibeUndVerdecktKeinenTitel) {
    Ordner.Datei("cd/Track01.cda");
    CDs.Liste[Laufwerk] = Inhalt({150, 15363}, 95462);
    ASSERT_EQ(Bereiten(), CDBereitung::Unbekannt);
    const std::string ID = Stand.Daten.ID;
    const std::string Datei = "CDDB/" + ID + ".dat";
    Ordner.Datei(Datei, "lwifcddb1\r\nDTITLE=A / B\r\nTTITLE0=Eins\r\n");
    Stand = {};
    ASSERT_TRUE(CDDBCDLesen(Stand, Umgebung.Speicher, ID, true));
    EXPECT_EQ(Bereiten(), CDBereitung::AusSpeicher);
    EXPECT_EQ(Stand.Daten.Laufwerk, Laufwerk);
    EXPECT_EQ(Stand.Daten.LeadOutOffset, 95462);
    EXPECT_EQ(Stand.Daten.AnzahlTitel, 2) << "the file has one title, the disc two";
    EXPECT_EQ(Stand.Daten.Titel[1].Dauer, 1068);

    Umgebung.LaufwerkIstAudioCD = [](std::string_view) { return false; };
    EXPECT_EQ(Bereiten(), CDBereitung::Gescheitert);
    EXPECT_EQ(Stand.CDDBZuletztID + Stand.CDDBZuletztLaufwerk, "");
    Umgebung.LaufwerkIstAudioCD = [](std::string_view) { return true; };
    Ordner.Datei(Datei, "lwifcddb1\r\nDTITLE=A / B\r\nDYEAR=1999\r\n");
    EXPECT_EQ(Bereiten(), CDBereitung::Unbekannt);
    EXPECT_EQ(Stand.Daten.Titel[1].Titel + Stand.Daten.Jahr, "Titel 2");
    EXPECT_EQ(Stand.CDDBZuletztID, "");
}

TEST(CDTitel, DerSatzFolgtDerScheibeUndSonstNichts) {
    CDDaten Daten;
    Daten.AnzahlTitel = 3;
    Daten.Interpret = "various artists";
    Daten.Album = "Zwei\r\nZeilen";
    Daten.Titel[0] = {"A - B / C - D", 61, 150, 0};
    Daten.Titel[1] = {"E - F", 0, 0, 0};
    Daten.Titel[2] = {"G", 0, 0, 0};
    struct Fall {
        std::string Name;
        std::string Interpret;
        std::string Titel;
        std::uint8_t V1;
    };
    const Fall Fälle[] = {{"Track01.cda", "A - B", "C - D", TagVorhanden},
                          {"track2.CDA", "E", "F", TagVorhanden},
                          {"Track003.cda", "various artists", "G", TagVorhanden},
                          {"Track04.cda", "", "", TagFehlt},
                          {"Track00.cda", "", "", TagFehlt},
                          {"Trackx.cda", "Alt", "Alt", TagUnberührt},
                          {"Track99999999999999999999.cda", "Alt", "Alt", TagUnberührt}};
    for (const Fall& Einer : Fälle) {
        speicher::Protokollliste Log;
        Datensatz Satz;
        Satz.Titel = Satz.Interpret = "Alt";
        CDInfosLesen("/dev/sr0/" + Einer.Name, Satz, Daten, true, &Log);
        EXPECT_EQ(Satz.Interpret, Einer.Interpret) << Einer.Name;
        EXPECT_EQ(Satz.Titel, Einer.Titel) << Einer.Name;
        EXPECT_EQ(Satz.HatId3v1, Einer.V1) << Einer.Name;
        EXPECT_EQ(Log.Zeilen.empty(), Einer.V1 == TagVorhanden) << Einer.Name;
    }
    Datensatz Satz;
    CDInfosLesen("Track01.cda", Satz, Daten, false, nullptr);
    EXPECT_EQ(Satz.Titel, "A - B / C - D");
    EXPECT_EQ(Satz.Album, "Zwei Zeilen");
    EXPECT_EQ(Satz.Dauer, 61);
    EXPECT_EQ(Satz.Genre, KeinGenre);
    Daten.ID3Genre = 145;
    Daten.Kategorie = "rock";
    CDInfosLesen("Track01.cda", Satz, Daten, false, nullptr);
    EXPECT_EQ(Satz.Genre, 17);
}

}  // namespace
}  // namespace liedwerk
