// xmcd text: what a server or a file may say, and what comes back of what was written.
#include "cd/xmcd.h"

#include <gtest/gtest.h>

#include "basis/text.h"
#include "plattform/speicher/person.h"

namespace liedwerk {
namespace {

struct Xmcdprobe : testing::Test {
    speicher::Protokollliste Log;
    CDDaten Gelesen(std::string_view Text) {
        CDDaten Daten;
        Daten.Interpret = "alt";
        EXPECT_TRUE(CDDBCDVerarbeiten(Text, Daten, Log));
        return Daten;
    }
};

TEST_F(Xmcdprobe, EineAntwortFülltDenSatz) {
    const auto Daten = Gelesen(
        "210 rock 8a0b2c0d CD database entry follows\r\n# xmcd\r\n# TTITLE9=nein\r\nDISCID=8a0b2c0d\r\n"
        "dtitle=Die \xC4rzte / Das\r\nDTITLE=  Album\r\nDYEAR=1998\r\nDGENRE=\r\nTTITLE0=Eins\r\nTTITLE0= "
        "und mehr\r\n"
        "TTITLE1=Zwei\\nZeilen\r\nEXTD=YEAR: 1999 ID3G: 17 "
        "x\\nNotiz\\nEnde\r\nEXTD=Mehr\r\nEXTT0=\r\nPLAYORDER=\r\n.\r\n");
    EXPECT_EQ(Daten.Kategorie, "rock");
    EXPECT_EQ(Daten.Interpret, "Die Ärzte");
    EXPECT_EQ(Daten.Album, "Das  Album");
    EXPECT_EQ(Daten.AnzahlTitel, 2);
    EXPECT_EQ(Daten.Titel[0].Titel, "Eins und mehr");
    EXPECT_EQ(Daten.Titel[1].Titel, "Zwei\r\nZeilen");
    EXPECT_EQ(Daten.Jahr, "1999");
    EXPECT_EQ(Daten.ID3Genre, 17);
    EXPECT_EQ(Daten.Erweitert, "Notiz\r\nEnde\r\nMehr");
    EXPECT_TRUE(Log.Zeilen.empty());
    for (const char* Text : {"# x\rTTITLE0=A\rTTITLE1=B", "# x\rTTITLE0=A\rTTITLE1=B\r\n",
                             "210 rock 1\r\n# x\rDTITLE=C / D\rTTITLE0=A\rTTITLE1=B\rEXTD=\r\n.\r\n"})
        EXPECT_EQ(Gelesen(Text).AnzahlTitel, 2) << "bare returns end lines too";
    const auto Gestreut = Gelesen("TTITLE0=A\ru\r\r\nTTITLE0=B\nTTITLE1=C\r\n");
    EXPECT_EQ(Gestreut.AnzahlTitel, 2) << "a stray return ends none";
    EXPECT_EQ(Gestreut.Titel[0].Titel, "A uB");
    // Answers with bare line feeds and in UTF-8 read the same.
    EXPECT_EQ(Gelesen("DTITLE=Bj\xC3\xB6rk / Début\nTTITLE0=\xD0\x9F\nDGENRE=Jazz\n").Titel[0].Titel, "П");
}

TEST_F(Xmcdprobe, UnpassendesVerdirbtNichts) {
    CDDaten Leer;
    EXPECT_FALSE(CDDBCDVerarbeiten("", Leer, Log));
    const auto OhneTeilung = Gelesen("DTITLE=Nur eins\r\nDTITLE=\r\nEXTD=ID3G: 146\r\n");
    EXPECT_EQ(OhneTeilung.Interpret, "alt");
    EXPECT_EQ(OhneTeilung.Kategorie, "Misc");
    EXPECT_EQ(OhneTeilung.ID3Genre, 0);
    EXPECT_EQ(Log.Zeilen.back(), "CDDBCDVerarbeiten: Verarbeitungsfehler bei strAlbumName ('Nur eins')");
    EXPECT_EQ(Gelesen("TTITLE0\r\n=x\r\n").AnzahlTitel, 0);
    EXPECT_EQ(Log.Zeilen.back(), "CDDBCDVerarbeiten: Verarbeitungsfehler bei 'TTITLE'");
    EXPECT_EQ(Gelesen("x\r\n").ID3Genre, 13);
    EXPECT_EQ(Gelesen("210").Kategorie, "Misc");

    std::string Viele;
    for (int i = 0; i < 101; ++i)
        Viele += "TTITLE" + std::to_string(i) + "=T" + std::to_string(i) + "\r\n";
    const auto Hundert = Gelesen(Viele + "TTITLE100=Rest\r\n");
    EXPECT_EQ(Hundert.AnzahlTitel, 100);
    EXPECT_EQ(Hundert.Titel[99].Titel, "T99");

    const auto Steuernd = Gelesen(
        "TTITLE0=a\x1B[2J\x07\xC2\x9B"
        "b\r\nDTITLE=x\x7F / y\t\r\n");
    EXPECT_EQ(Steuernd.Titel[0].Titel, "a [2J  b");
    EXPECT_EQ(CDEinzeilig("a\r\nb\nc\x01"), "a b c ");
    std::string Müll;
    for (unsigned i = 0; i < 100000; ++i)
        Müll += static_cast<char>((i * 2654435761U) >> 24U);
    Gelesen(Müll);
}

TEST_F(Xmcdprobe, DerTextHatDieFormDerDatenbank) {
    CDDaten Daten;
    Daten.ID = "8a0b2c0d";
    Daten.Interpret = "A";
    Daten.Album = "B";
    Daten.Jahr = "2001";
    Daten.Kategorie = "jazz";
    Daten.ID3Genre = 8;
    Daten.Gesamtdauer = 1272;
    Daten.AnzahlTitel = 2;
    Daten.Titel[0] = {"Eins", 1, 150, 0};
    Daten.Titel[1] = {"Zwei\r\nTTITLE9=x", 1, 15363, 63};
    Daten.Erweitert = "Notiz";
    EXPECT_EQ(CDDBTextErstellen(Daten, "Liedwerk 1.00"),
              "# xmcd\r\n#\r\n# Track frame offsets:\r\n#   150\r\n#   15363\r\n#\r\n# Disc length: 1272 "
              "seconds\r\n#\r\n"
              "# Revision: 0\r\n# Submitted via: Liedwerk 1.00\r\n#\r\nDISCID=8a0b2c0d\r\nDTITLE=A / "
              "B\r\nDYEAR=2001\r\n"
              "DGENRE=jazz\r\nTTITLE0=Eins\r\nTTITLE1=Zwei\\nTTITLE9=x\r\nEXTD=YEAR: 2001 ID3G: "
              "8\\nNotiz\r\nEXTT0=\r\n"
              "EXTT1=\r\nPLAYORDER=");
}

TEST_F(Xmcdprobe, WasGeschriebenWirdKommtWieder) {
    const std::string Lang = Ersetzen(std::string(90, 'x'), "x", "Größe, ");
    for (const std::string& Text :
         {std::string("Schlicht"), std::string("Ä"), std::string("Ã¤"), std::string("Привет"), Lang,
          Lang + "\r\n" + Lang + "Привет", std::string(249, 'a') + "\r\n\r\nb"}) {
        CDDaten Daten;
        Daten.Album = Text;
        Daten.Interpret = "I" + Text;
        Daten.Jahr = "1999/2000";
        Daten.Kategorie = "rock";
        Daten.ID3Genre = 0;
        Daten.AnzahlTitel = 2;
        Daten.Titel[0].Titel = Text;
        Daten.Titel[1].Titel = "";
        Daten.Erweitert = Text.size() < 200 ? Text + "\r\n" + Text : "eine\r\nzweite";
        const std::string Bytes = XmcdBytesVonText(CDDBTextErstellen(Daten, "Liedwerk 1.00"));
        for (const auto& Zeile : Teilen(Bytes, "\r\n"))
            EXPECT_LE(Zeile.size(), 254U);
        CDDaten Wieder;
        ASSERT_TRUE(CDDBCDVerarbeiten(Bytes, Wieder, Log));
        Wieder.Text.clear();
        EXPECT_TRUE(Wieder == Daten) << Text;
    }
    EXPECT_TRUE(Log.Zeilen.empty());
    EXPECT_EQ(XmcdBytesVonText("Ä"), "\xC4");
}

}  // namespace
}  // namespace liedwerk
