// Wave, Ogg, the dispatcher, the information text; and that no input breaks a reader.
#include <chrono>
#include <random>

#include "basis/protokoll.h"
#include "medien/infotext.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;
using namespace std::string_literals;
using Wave = Medien;
using Ogg = Medien;
using Verteiler = Medien;

struct Spieler final : Medienauskunft {
    std::optional<Medienangaben> Angaben = Medienangaben{12.5, "T", "I", "K"};
    std::optional<Medienangaben> Lesen(std::string_view, const std::function<bool()>&) const override {
        return Angaben;
    }
};

TEST_F(Wave, DieFormatlängeGiltAlsBittiefe) {
    const Datensatz Satz = Lesen(WaveDatei(8000, 1, 16, 32000), "0010", {}, "a.wav");
    EXPECT_EQ(Satz.Dateityp, DateiartWave);
    EXPECT_EQ(Satz.Dauer, 2);
    EXPECT_EQ(Satz.Bitrate, 128000);
    EXPECT_EQ(Satz.Modus, "Mono");
    EXPECT_EQ(Satz.HatId3v1, TagFehlt);
    EXPECT_EQ(Lesen(WaveDatei(8000, 2, 16, 32000, 18), "0010", {}, "a.wav").Bitrate, 144000);
    EXPECT_EQ(Lesen(std::string(22, '\1'), "0010", {.Dauer = 4, .Modus = "x"}, "a.wav").Modus, "x");
    const Datensatz Kurz = Lesen(WaveDatei(8000, 2, 16, 0).substr(0, 26), "0010", {}, "a.wav");
    EXPECT_EQ(Kurz.Frequenz, 8000);
}

TEST_F(Wave, UnklareAngabenFragenDenSpieler) {
    const Spieler Auskunft;
    Umgebung.Auskunft = &Auskunft;
    for (const std::string& Datei :
         {WaveDatei(0x20000000, 2, 16, 0), WaveDatei(0, 2, 16, 0), std::string(30, '\xFF')}) {
        const Datensatz Satz = Lesen(Datei, "0010", {}, "a.wav");
        EXPECT_EQ(Satz.Dauer, 12);  // 12.5 to the even neighbour
        EXPECT_EQ(Satz.Titel, "");
    }
    const Datensatz Satz = Lesen("x", "0010", {}, "a.WMA");
    EXPECT_EQ(Satz.Dateityp, DateiartWindowsMedia);
    EXPECT_EQ(Satz.Titel + Satz.Interpret + Satz.Kommentar, "TIK");
    EXPECT_EQ(Satz.HatId3v1, TagVorhanden);
}

TEST_F(Verteiler, WeitereFormateNurWennEingeschaltet) {
    Spieler Auskunft;
    Umgebung.Auskunft = &Auskunft;
    const auto Typen = Grundtypen(true);
    Umgebung.Dateitypen = &Typen;
    const Datensatz Alt{.Titel = "alt", .Dateityp = 77};
    EXPECT_EQ(Lesen("x", "1111", Alt, "a.flac").Dateityp, 77) << "an entry alone changes nothing";

    Umgebung.WeitereFormate = true;
    Auskunft.Angaben = Medienangaben{.Dauer = 61.6,
                                     .Titel = "T",
                                     .Interpret = "I",
                                     .Kommentar = "a\nb",
                                     .Album = "A",
                                     .Genre = "Rock",
                                     .Jahr = 1999,
                                     .Titelnummer = 3,
                                     .Bitrate = 900,
                                     .Frequenz = 48000,
                                     .Kanäle = 2};
    for (const char* Name : {"a.flac", "a.OPUS", "a.m4a", "a.mp4", "a.ape", "a.aif", "a.aiff"}) {
        const Datensatz Satz = Lesen("x", "0010", {}, Name);
        EXPECT_EQ(Satz.Dateityp, DateiartWeitere) << Name;
        EXPECT_EQ(Satz.Titel + Satz.Interpret + Satz.Album + Satz.Jahr + Satz.Titelnummer, "TIA19993");
        EXPECT_EQ(Satz.Kommentar, "a\nb");
        EXPECT_EQ(Satz.Genre, 17);
        EXPECT_EQ(Satz.HatId3v1, TagVorhanden);
        const std::string Info = DateiinformationBilden("a", Satz, true).Info;
        const std::string Art = std::string_view(Name).starts_with("a.ai") ? "CBR" : "VBR";
        EXPECT_NE(Info.find("Modus: Stereo, 48000 Hz\nBitrate: 900 kbps " + Art + "\nDauer: 01:02"),
                  std::string::npos)
            << Info;
    }
    EXPECT_EQ(Lesen("x", "1101", Alt, "a.flac").Titel, "alt") << "without the stream nothing is asked";
    Auskunft.Angaben = {.Genre = "Schuhplattler", .Kanäle = 6};
    const Datensatz Fremd = Lesen("x", "0010", {}, "a.m4b");
    EXPECT_EQ(Fremd.V2Genre + Fremd.Modus + Fremd.Jahr, "Schuhplattler6 Kanäle");
    for (const auto& [Kanäle, Modus] : {std::pair(1, "Mono"), {0, ""}}) {
        Auskunft.Angaben->Kanäle = Kanäle;
        EXPECT_EQ(Lesen("x", "0010", {}, "a.m4b").Modus, Modus);
    }
    Auskunft.Angaben = std::nullopt;
    EXPECT_EQ(Lesen("x", "0010", {}, "a.flac").HatId3v1, TagFehlt);
}

TEST_F(Ogg, KommentareWerdenGefundenUndBegrenzt) {
    const std::string Lang(300, 'k');
    const Datensatz Satz =
        Lesen(OggDatei({"title=Größe", "ARTIST=I", "COMMENT=" + Lang, "album=Auch TITLE=", "DATE=2001",
                        "TRACKNUMBER=03/12", "genre=rock"}),
              "0010", {}, "a.ogg");
    EXPECT_EQ(Satz.Dateityp, DateiartOgg);
    EXPECT_EQ(Satz.Titel, "Größe");
    EXPECT_EQ(Satz.Interpret, "I");
    EXPECT_EQ(Satz.Kommentar, Lang);
    EXPECT_EQ(Satz.Album, "Auch TITLE=");
    EXPECT_EQ(Satz.Jahr, "2001");
    EXPECT_EQ(Satz.Titelnummer, "3");
    EXPECT_EQ(Satz.Genre, 17);
    EXPECT_EQ(Satz.HatId3v1, TagVorhanden);
    const Datensatz Fremd =
        Lesen(OggDatei({"ALBUM=Auch TITLE=Innen", "GENRE=Schuhplattler", "ARTIST=" + AnsiText("Größe")}),
              "0010", {}, "a.ogg");
    EXPECT_EQ(Fremd.Titel, "Innen");  // the first key in the block wins
    EXPECT_EQ(Fremd.Interpret, "Größe");
    EXPECT_EQ(Fremd.Genre, KeinGenre);
    EXPECT_EQ(Fremd.V2Genre, "Schuhplattler");
}

TEST_F(Ogg, DieMarkeGiltNurGanzInEinemBlock) {
    const auto Titel = [&](std::size_t Stelle) {
        return Lesen(std::string(Stelle, '\0') + "\3vorbisTITLE=x\1", "0010", {.Titel = "alt"}, "a.ogg")
            .Titel;
    };
    constexpr std::size_t Grenze = 2048 * 200;
    EXPECT_EQ(Titel(Grenze - 7), "x");
    EXPECT_EQ(Titel(Grenze - 6), "alt");
    EXPECT_EQ(Titel(Grenze - 1), "alt");
    EXPECT_EQ(Titel(Grenze), "x");
}

TEST_F(Verteiler, DerTypFolgtDerListe) {
    const auto Art = [&](std::string_view Name) {
        return Lesen("", "0000", {.Dateityp = 77}, Name).Dateityp;
    };
    EXPECT_EQ(Art("a.MP2"), DateiartMpeg);
    EXPECT_EQ(Art("a.bmp"), DateiartBild);
    EXPECT_EQ(Art("a.cda"), DateiartCdTitel);
    EXPECT_EQ(Art("a.vqf"), 77);
    EXPECT_EQ(Art("a.txt"), 77);
    EXPECT_EQ(Art("ogg"), 77);
    const std::vector<Dateityp> Eigene = {{"ogg=0", "110"}, {"wav=1", "001"}};
    Umgebung.Dateitypen = &Eigene;
    EXPECT_EQ(Art("a.ogg"), DateiartMpeg);
    EXPECT_EQ(Art("a.wav"), DateiartBild);
    EXPECT_EQ(Art("a.mp3"), 77);
}

TEST_F(Verteiler, OhneLesecodeBleibenDieTags) {
    const Datensatz Alt{.Titel = "alt", .V1Gelesen = true, .HatId3v1 = TagVorhanden, .V2Titel = "alt"};
    const Datensatz Null = Lesen(Id3v1Block({.Titel = "neu"}), "0000", Alt);
    EXPECT_EQ(Null.Titel + Null.V2Titel, "altalt");
    EXPECT_TRUE(Null.V1Gelesen && Null.Id3v2Gelesen && Null.LyricsGelesen);
    const Datensatz Keiner = Lesen(Id3v1Block({.Titel = "neu"}), "111", Alt);
    EXPECT_EQ(Keiner.Titel, "alt");
    EXPECT_EQ(Keiner.Dateityp, DateiartSonstige);
    EXPECT_TRUE(Keiner.V1Gelesen);
}

TEST_F(Verteiler, FehlendesUndOrdnerHängenNicht) {
    Umgebung.Wechselmedium = [](std::string_view) { return "CD"s; };
    const Leseauftrag Alles{.Code = Lesecode::Lesen("1111"), .GrößeLesen = true, .WechselmediumLesen = true};
    std::filesystem::create_directory(Ordner / "ordner.mp3");
    for (const std::string_view Name :
         {"fehlt.mp3", "ordner.mp3", "fehlt.ogg", "fehlt.wav", "fehlt.wma", "fehlt.mp3/"}) {
        const Datensatz Satz = MedienDatenLesen(Umgebung, (Ordner / Name).string(), {.Titel = "alt"}, Alles);
        EXPECT_EQ(Satz.Größe, -1) << Name;
        EXPECT_EQ(Satz.Wechselmedium, "");
        EXPECT_EQ(Satz.HinzufügeDatum, "21.11.2026");
    }
    std::filesystem::last_write_time(
        Anlegen("da.mp3", "xy"), std::filesystem::file_time_type::clock::from_sys(std::chrono::sys_seconds{
                                     std::chrono::sys_days{std::chrono::year{2003} / 2 / 1}}));
    const Datensatz Da = MedienDatenLesen(Umgebung, (Ordner / "da.mp3").string(), {}, Alles);
    EXPECT_EQ(Da.Größe, 2);
    EXPECT_EQ(Da.Wechselmedium, "CD");
    EXPECT_EQ(Da.HinzufügeDatum, "01.02.2003");
    EXPECT_EQ(MedienDatenLesen(Umgebung, (Ordner / "da.mp3").string(), {.HinzufügeDatum = "x"}, Alles)
                  .HinzufügeDatum,
              "x");
}

TEST(TagBlock, LeerenSetztDieMarken) {
    Datensatz Satz{.Titel = "t",
                   .Genre = std::uint8_t{1},
                   .V2Software = "s",
                   .LyricsText = "l",
                   .LyricsWeitereFelder = "w"};
    TagBlockLeeren(Satz, Tagblock::Id3v1);
    TagBlockLeeren(Satz, Tagblock::Id3v2);
    TagBlockLeeren(Satz, Tagblock::Lyrics);
    const Datensatz Leer{.HatId3v1 = TagFehlt,
                         .HatId3v2 = TagFehlt,
                         .HatLyrics = TagFehlt,
                         .Id3v2Größe = -1,
                         .Id3v2Position = -1,
                         .V2Qualität = KeineV2Qualität};
    EXPECT_EQ(Satz, Leer);
}

TEST(Infotext, NenntAllesInSeinerOrdnung) {
    const Datensatz Satz{.Größe = 1234567,
                         .HinzufügeDatum = "01.02.2003",
                         .Dateityp = DateiartMpeg,
                         .AbspielHäufigkeit = 2,
                         .AbspielDatum = "01.02.2003 04:05:06",
                         .Bitrate = 128,
                         .Frequenz = 44100,
                         .Dauer = 3825,
                         .MpegVersion = 1,
                         .MpegLayer = 3,
                         .Original = true,
                         .Emphasis = "Nein",
                         .Modus = "Stereo",
                         .Frames = 9,
                         .HatId3v1 = TagVorhanden,
                         .HatId3v2 = TagVorhanden,
                         .HatLyrics = TagVorhanden,
                         .Id3v2Version = "2.3.0",
                         .Id3v2Größe = 2000,
                         .Id3v2Benutzt = 500,
                         .Id3v2WeitereFelder = "x",
                         .LyricsVersion = 1,
                         .LyricsGröße = 44};
    const auto Texte = DateiinformationBilden("/a.mp3", Satz, true);
    EXPECT_EQ(Texte.Info,
              "Hinweis: Hier finden Sie einige Informationen über die gewählte Datei.\nDateiname: /a.mp3\n"
              "Dateigröße: 1.234.567 Bytes\nWechselmedium: (Keines)\nIm Index seit dem: 01.02.2003\n"
              "Zuletzt abgespielt: 01.02.2003 04:05:06, insgesamt 2 Mal\nMPEG Version: 1 Layer 3\n"
              "Modus: Stereo, 44100 Hz\nBitrate: 128 kbps CBR\nDauer: 1:03:45\nAnzahl Frames: 9\n"
              "Copyright: Nein\nCRC: Nein\nEmphasis: Nein\nOriginal: Ja\nPadding: Nein\nPrivat: Nein\n");
    EXPECT_EQ(Texte.Id3v1, "Der gefundene ID3v1-TAG belegt 128 Bytes.");
    EXPECT_EQ(
        Texte.Id3v2,
        "Der gefundene ID3v2-TAG belegt 2000 Bytes und liegt in der Version 2.3.0 vor. Dieser enthält noch "
        "weitere, hier nicht angezeigte Felder. 1500 Bytes sind ungenutzt.");
    EXPECT_EQ(Texte.Lyrics, "Der gefundene Lyrics-TAG belegt 44 Bytes und liegt in der Version 1.0 vor.");
    EXPECT_EQ(DateiinformationBilden("/a.mp3", Satz, false).Lyrics, "Diese Datei existiert nicht (mehr).");
    const auto Ende = [](Datensatz Anderer) {
        const std::string Text = DateiinformationBilden("/a", Anderer, true).Info;
        return Text.substr(Text.find("Informationen)\n", Text.find("Zuletzt")) + 15);
    };
    const std::string Nichts = "Für dieses Datei-Format sind keine weiteren Informationen verfügbar.\n";
    EXPECT_EQ(Ende({.Dateityp = DateiartWave}), "Dauer: 00:00\n" + Nichts);
    EXPECT_EQ(Ende({.Dateityp = DateiartOgg, .Dauer = 5}), Nichts);
    EXPECT_EQ(Ende({.Dateityp = DateiartCdTitel, .Dauer = 5}), "Dauer: 00:05\n" + Nichts);
    EXPECT_EQ(Ende({.Dateityp = DateiartMpeg}),
              "Kein Dateiheader gefunden - keine weiteren Informationen verfügbar\n");
    for (const auto Mark : {TagVorhanden, TagFehlt})
        EXPECT_TRUE(DateiinformationBilden("/a", {.Dateityp = DateiartOgg, .HatId3v1 = Mark}, true)
                        .Id3v1.ends_with("formatspezifische Informationen, sofern vorhanden."));
}

// Seeded, so that a failure comes again.
TEST_F(Verteiler, VeränderteDateienBrechenNichts) {
    const std::string Lieder =
        LyricsV2(LyricsFeld("IND", "11") + LyricsFeld("LYR", "Ein Lied") + LyricsFeld("EAL", "x"));
    const std::vector<std::pair<std::string_view, std::string>> Muster = {
        {"a.mp3", Id3v2Tag(3, Id3v2Textrahmen("TIT2", "a") + Id3v2Rahmen("POPM", "a\0b"s), 30) +
                      XingRahmen({}, 5) + Lieder + Id3v1Block({.Titel = "x"})},
        {"a.mp3", Id3v2Tag(2, Id3v2Textrahmen("TT2", "a"), 0, 0x40) + LyricsV1("Text")},
        {"a.mp3", Id3v2Tag(4, "\0\0\0\6\1\0"s + Id3v2Textrahmen("COMM", "a"), 9, 0x50) + Lieder},
        {"a.ogg", OggDatei({"TITLE=a", "GENRE=b", "TRACKNUMBER=3"}, 50)},
        {"a.wav", WaveDatei(8000, 1, 16, 20)},
    };
    std::mt19937 Zufall(4711);
    const auto Bis = [&](std::size_t Ende) { return Ende == 0 ? 0 : Zufall() % Ende; };
    for (int Nummer = 0; Nummer < 3000; ++Nummer) {
        auto [Name, Inhalt] = Muster[Bis(Muster.size())];
        for (std::size_t Änderung = Bis(6); Änderung > 0 && !Inhalt.empty(); --Änderung) {
            const std::size_t Stelle = Bis(Inhalt.size());
            switch (Bis(4)) {
                case 0:
                    Inhalt[Stelle] = static_cast<char>(Zufall());
                    break;
                case 1:
                    Inhalt.erase(Stelle, Bis(40));
                    break;
                case 2:
                    Inhalt.insert(Stelle, Inhalt.substr(Bis(Inhalt.size()), Bis(60)));
                    break;
                default:
                    Inhalt[Stelle] = "\0\xFF\x7F\x80-9"[Bis(6)];
            }
        }
        const std::string Pfad = Anlegen(Name, Inhalt);
        const Leseauftrag Auftrag{.Code = Lesecode::Lesen("1111")};
        const Datensatz Satz = MedienDatenLesen(Umgebung, Pfad, {}, Auftrag);
        ASSERT_LE(Satz.V2Titel.size() + Satz.LyricsText.size() + Satz.Id3v2WeitereFelder.size(),
                  2 * Inhalt.size());
        ASSERT_EQ(MedienDatenLesen(Umgebung, Pfad, Satz, Auftrag).LyricsWeitereFelder,
                  Satz.LyricsWeitereFelder);
    }
}

}  // namespace
}  // namespace liedwerk
