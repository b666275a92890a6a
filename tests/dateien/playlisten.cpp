// Lists of file names as other programs and other systems write them.
#include "dateien/playlisten.h"

#include <gtest/gtest.h>

#include "dateien/probeordner.h"

namespace liedwerk {
namespace {

using namespace std::string_literals;

using Texte = std::vector<std::string>;

std::pair<Texte, Listenbilanz> Zerlegen(std::string_view Bytes, Listenart Art,
                                        std::size_t Höchstens = std::string::npos) {
    Texte Alle;
    const auto Bilanz = ListeZerlegen(Bytes, Art, [&](const Listenname& Name, std::size_t Gelesen) {
        EXPECT_LE(Gelesen, Bytes.size());
        Alle.push_back((Name.NurVorhanden ? "?" : "") + Name.Text);
        return Alle.size() < Höchstens;
    });
    return {Alle, Bilanz};
}

TEST(Playliste, ZerlegtJedeFormInIhreNamen) {
    struct Fall {
        std::string_view Bytes;
        Listenart Art;
        Texte Erwartet;
        std::size_t Ströme = 0;
    };
    const std::string Utf16(
        "\xFF\xFE"
        "\xE4\0.\0\r\0\n\0\x3D\xD8\xB5\xDE\0\xD8x\0",
        18);
    const std::string Utf16Hoch("\xFE\xFF\0a\0\r\0b", 8);
    const Fall Fälle[] = {
        {"#EXTM3U\r\n#EXTINF:12,A - B\r\na.mp3\r\n\r\n  b.mp3 \n", Listenart::M3u, {"a.mp3", "b.mp3"}},
        {"\xEF\xBB\xBF#EXTM3U\rä.mp3\rb.mp3", Listenart::M3u, {"ä.mp3", "b.mp3"}},
        {"# Bemerkung\n#1 Hit.mp3\n\"c d.mp3\"", Listenart::M3u, {"?# Bemerkung", "?#1 Hit.mp3", "c d.mp3"}},
        {"http://x/y\nmms://z\nFile:///a\nC:\\a\nHTTPS://q", Listenart::M3u, {"File:///a", "C:\\a"}, 3},
        {Utf16, Listenart::M3u, {"ä.", "\U0001F6B5\xEF\xBF\xBDx"}},
        {Utf16Hoch, Listenart::M3u, {"a", "b"}},
        {"[playlist]\nFILE10= j.mp3\nFile2=b=c.mp3\nTitle2=x\nfile1=http://r\nFilex=u\nFile3=\n",
         Listenart::Pls,
         {"b=c.mp3", "j.mp3"},
         1},
        {"Titel\tC:\\a.mp3\n\"X\",\"b,c.mp3\"\n\"d.mp3\"\ne.mp3",
         Listenart::Namen,
         {"?Titel", "?C:\\a.mp3", "?X", "?b,c.mp3", "d.mp3", "e.mp3"}},
        {"", Listenart::Pls, {}},
    };
    for (const auto& [Bytes, Art, Erwartet, Ströme] : Fälle) {
        const auto [Namen, Bilanz] = Zerlegen(Bytes, Art);
        EXPECT_EQ(Namen, Erwartet) << Bytes;
        EXPECT_EQ(Bilanz.Ströme, Ströme) << Bytes;
        EXPECT_FALSE(Bilanz.Gekürzt) << Bytes;
        // Whoever has enough gets no more.
        EXPECT_EQ(Zerlegen(Bytes, Art, 1).first.size(), std::min<std::size_t>(Erwartet.size(), 1));
    }
    const auto [Keine, Müll] =
        Zerlegen(std::string(1 << 20, 'x') + "\na\0b\n"s + std::string(9, '\0'), Listenart::M3u);
    EXPECT_TRUE(Keine.empty());
    EXPECT_EQ(Müll.ZuLang, 3U);
    // More names than anybody has: the first ones count, and it is told.
    for (const auto& [Zeile, Art] :
         {std::pair{"a\n"s, Listenart::M3u}, {"a\n"s, Listenart::Namen}, {"file1=a\n"s, Listenart::Pls}}) {
        std::string Viele;
        for (std::size_t Anzahl = 0; Anzahl <= ListennamenHöchstens; ++Anzahl)
            Viele += Zeile;
        const auto [Erste, Bilanz] = Zerlegen(Viele, Art);
        EXPECT_EQ(Erste.size(), ListennamenHöchstens) << Zeile;
        EXPECT_TRUE(Bilanz.Gekürzt) << Zeile;
    }
}

TEST(Playliste, FindetDieGemeinteDatei) {
    const test::Probeordner Stick;
    const auto Liste = Stick.In("listen/rock");
    std::filesystem::create_directories(Liste);
    for (const auto* Name :
         {"listen/rock/a.mp3", "Musik/ABBA/b ü.mp3", "Musik/lat\xFCn.mp3", "Musik/c%20d.mp3", "Musik/e f.mp3",
          "listen/rock/AC\\DC.mp3", "listen/rock/#1.mp3", "nur.mp3"})
        Stick.Datei(Name);
    struct Fall {
        std::string Name;
        std::string Erwartet;  // below the stick
        bool Existiert = true;
    };
    const Fall Fälle[] = {
        {"a.mp3", "listen/rock/a.mp3"},
        {"./x/../a.mp3", "listen/rock/a.mp3"},
        {"..\\..\\Musik\\ABBA\\b ü.mp3", "Musik/ABBA/b ü.mp3"},
        {"../../Musik/latün.mp3", "Musik/lat\xFCn.mp3"},
        {"../../Musik/ABBA/b \xFC.mp3", "Musik/ABBA/b ü.mp3"},
        {"AC\\DC.mp3", "listen/rock/AC\\DC.mp3"},
        {"../../Musik/c%20d.mp3", "Musik/c%20d.mp3"},
        {"../../Musik/e%20f.mp3", "Musik/e f.mp3"},
        {"file://" + Stick.In("Musik/e%20f.mp3"), "Musik/e f.mp3"},
        {"file:///E:/Musik/ABBA/b%20%C3%BC.mp3", "Musik/ABBA/b ü.mp3"},
        {"E:\\Musik\\ABBA\\b ü.mp3", "Musik/ABBA/b ü.mp3"},
        {"\\Musik\\e f.mp3", "Musik/e f.mp3"},
        {"\\\\nas\\daten\\Musik\\e f.mp3", "Musik/e f.mp3"},
        {"/media/sonstwer/STICK/Musik/e f.mp3", "Musik/e f.mp3"},
        {"D:\\sonst\\wo\\a.mp3", "listen/rock/a.mp3"},
        {"fehlt\\g.mp3", "listen/rock/fehlt/g.mp3", false},
        {"../../../../../../../../../../x.mp3", "", false},
    };
    const Listenort Ort{Liste, Stick.Pfad + "/"};
    for (const auto& [Name, Erwartet, Existiert] : Fälle) {
        const auto Fund = NamenAuflösen({Name}, Ort);
        if (Erwartet.empty()) {
            EXPECT_FALSE(Fund && Fund->Existiert) << Name;
            continue;
        }
        ASSERT_TRUE(Fund) << Name;
        EXPECT_EQ(*Fund, (Namensfund{Stick.In(Erwartet), Existiert})) << Name;
    }
    EXPECT_EQ(NamenAuflösen({"D:\\sonst\\nur.mp3"}, Ort), (Namensfund{"D:\\sonst\\nur.mp3", false}))
        << "a bare name says too little in the folders above";
    EXPECT_FALSE(NamenAuflösen({"# Bemerkung", true}, Ort));
    EXPECT_TRUE(NamenAuflösen({"#1.mp3", true}, Ort)->Existiert);
    EXPECT_FALSE(NamenAuflösen({"a.mp3"}, {})->Existiert) << "no place, no file";
}

TEST(Playliste, DieKorrekturNimmtDenErstenGleichnamigenFund) {
    Namensfunde Funde;
    Funde.Zeilen = {
        {"/da.mp3", true}, {"D:\\alt\\Lied.MP3", false}, {"/fort/x.mp3", false}, {"/y/da.mp3", false}};
    const auto Ergebnis = NamenKorrigieren(Funde, {"/neu/lied.mp3", "/neu2/LIED.mp3", "/n/da.mp3"});
    EXPECT_EQ(Ergebnis.Fehlend, 3U);
    EXPECT_EQ(Ergebnis.Korrigiert, 2U);
    EXPECT_EQ(Funde.Zeilen,
              (std::vector<Namensfund>{
                  {"/da.mp3", true}, {"/neu/lied.mp3", true}, {"/fort/x.mp3", false}, {"/n/da.mp3", true}}));
}

}  // namespace
}  // namespace liedwerk
