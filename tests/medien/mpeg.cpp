// The stream analysis: which header is taken, and the arithmetic that follows from it.
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;
using Mpeg = Medien;

std::string Mit(const std::string& Anfang, std::size_t Länge) {
    std::string Datei = Anfang;
    Datei.resize(Länge);
    return Datei;
}

TEST_F(Mpeg, DauerRundetAbUndZiehtTagsAb) {
    const std::string Datei = Mit(KopfBytes({}), 1000000) + Id3v1Block({.Titel = "x"});
    const Datensatz Satz = Lesen(Datei);
    EXPECT_EQ(Satz.Bitrate, 128);
    EXPECT_EQ(Satz.Frequenz, 44100);
    EXPECT_EQ(Satz.Dauer, 62);  // 62500 ms
    EXPECT_EQ(Satz.HeaderPosition, 0);
    // The mark of an earlier reading counts where this one does not look.
    EXPECT_EQ(Lesen(Datei, "0010", {.HatId3v1 = TagVorhanden}).Dauer, 62);
    EXPECT_EQ(
        Lesen(Mit(KopfBytes({}), 1000000), "0010", {.HatLyrics = TagVorhanden, .LyricsGröße = 16000}).Dauer,
        61);
    // False sizes larger than the file: below zero it goes down too.
    EXPECT_EQ(Lesen(Mit(KopfBytes({}), 1000), "0010", {.HatLyrics = TagVorhanden, .LyricsGröße = 1024}).Dauer,
              -1);
}

TEST_F(Mpeg, FramesRechnenMitDerAltenGröße) {
    const std::string Datei = Mit(KopfBytes({}), 100000) + Id3v1Block({});
    EXPECT_EQ(Lesen(Datei).Frames, 0);
    // 418 bytes a frame (417.96 rounded)
    EXPECT_EQ(Lesen(Datei, "1111", {.Größe = 128 + 418 * 7 + 209}).Frames, 8);  // 7.5: to the even neighbour
    EXPECT_EQ(Lesen(Datei, "1111", {.Größe = 128 + 418 * 6 + 209}).Frames, 6);
    // More than 32 bits: the old count stays.
    EXPECT_EQ(Lesen(Datei, "1111", {.Größe = std::int64_t{1} << 42, .Frames = 5}).Frames, 5);
}

TEST_F(Mpeg, KopffelderStehenWoSieHingehören) {
    const Datensatz Satz = Lesen(MpegRahmen({.OhnePrüfsumme = false,
                                             .Bitratenindex = 14,
                                             .Frequenzindex = 2,
                                             .Padding = true,
                                             .Privat = true,
                                             .Modus = 1,
                                             .Copyright = true,
                                             .Original = true,
                                             .Emphasis = 3},
                                            2));
    EXPECT_TRUE(Satz.Crc && Satz.Padding && Satz.Privat && Satz.Copyright && Satz.Original);
    EXPECT_EQ(Satz.Modus, "Joint Stereo");
    EXPECT_EQ(Satz.Emphasis, "CCITT J 17");
    EXPECT_EQ(Satz.Bitrate, 320);
    EXPECT_EQ(Satz.Frequenz, 32000);
    const Datensatz Gegenteil = Lesen(MpegRahmen({.Modus = 3}, 2));
    EXPECT_FALSE(Gegenteil.Crc || Gegenteil.Padding || Gegenteil.Privat || Gegenteil.Copyright ||
                 Gegenteil.Original);
    EXPECT_EQ(Gegenteil.Modus, "Einkanal");
}

TEST_F(Mpeg, BitrateFolgtVersionUndLayer) {
    const auto Bitrate = [&](unsigned Version, unsigned Layer) {
        return Lesen(Mit(KopfBytes({.Version = Version, .Layer = Layer, .Bitratenindex = 13}), 100)).Bitrate;
    };
    EXPECT_EQ(Bitrate(3, 3), 416);
    EXPECT_EQ(Bitrate(3, 2), 320);
    EXPECT_EQ(Bitrate(3, 1), 256);
    for (const unsigned Version : {2U, 0U}) {
        EXPECT_EQ(Bitrate(Version, 3), 224);
        EXPECT_EQ(Bitrate(Version, 2), 144);
        EXPECT_EQ(Bitrate(Version, 1), 144);
    }
    EXPECT_EQ(Bitrate(3, 0), 1);
    EXPECT_EQ(Bitrate(1, 1), 1);
    // MPEG 2.5 takes the frequencies of MPEG 2.
    const Datensatz Satz = Lesen(Mit(KopfBytes({.Version = 0}), 100));
    EXPECT_EQ(Satz.MpegVersion, 25);
    EXPECT_EQ(Satz.Frequenz, 22050);
}

TEST_F(Mpeg, VerboteneUndReservierteWerteLassenStehenOderNullen) {
    const Datensatz Alt{.Bitrate = 77, .Frequenz = 8};
    const Datensatz Verboten =
        Lesen(Mit(KopfBytes({.Bitratenindex = 15, .Frequenzindex = 3}), 100), "0010", Alt);
    EXPECT_EQ(Verboten.Bitrate, 77);
    EXPECT_EQ(Verboten.Frequenz, 8);
    const Datensatz Reserviert = Lesen(Mit(KopfBytes({.Version = 1, .Frequenzindex = 3}), 2000), "0010", Alt);
    EXPECT_EQ(Reserviert.MpegVersion, 0);
    EXPECT_EQ(Reserviert.Frequenz, 0);
    EXPECT_EQ(Reserviert.Frames, -1);
    EXPECT_EQ(Reserviert.Dauer, 16);  // 16000 bits at "1 kbit/s"
    const Datensatz Frei = Lesen(Mit(KopfBytes({.Bitratenindex = 0}), 2000));
    EXPECT_EQ(Frei.Bitrate, 0);
    EXPECT_EQ(Frei.Dauer, 0);
    EXPECT_EQ(Frei.Frames, -1);
    EXPECT_EQ(
        Lesen(Mit(KopfBytes({.Bitratenindex = 0, .Padding = true}), 2000), "0010", {.Größe = 44}).Frames, 44);
}

TEST_F(Mpeg, XingGiltNurAnSeinemPlatz) {
    const std::string Datei = XingRahmen({}, 1000) + std::string(400000, '\0');
    const Datensatz Satz = Lesen(Datei);
    EXPECT_TRUE(Satz.VBR);
    EXPECT_EQ(Satz.Frames, 1000);
    EXPECT_EQ(Satz.Bitrate, 123);  // 400417 * 44100 / 1000 / 1000 / 144 = 122.6
    // A count of 0 divides nothing; more than 31 bits end the reading.
    EXPECT_EQ(Lesen(XingRahmen({}, 0), "0010", {.Bitrate = 9}).Bitrate, 9);
    const Datensatz Alt{.Bitrate = 9, .Frames = 3, .HeaderPosition = 4};
    const Datensatz Zuviel = Lesen("xx" + XingRahmen({}, 0x80000000U), "0010", Alt);
    EXPECT_EQ(Zuviel.HeaderPosition, 4);
    EXPECT_EQ(Zuviel.Frames, 3);
    EXPECT_FALSE(Zuviel.VBR);
    std::string Mono = MpegRahmen({.Modus = 3}, 3);
    Mono.replace(21, 4, "Xing");
    EXPECT_FALSE(Lesen(Mono).VBR);
}

TEST_F(Mpeg, SucheReichtGenauSoWeitWieGesagt) {
    const std::string Kopf = KopfBytes({});
    // Just over the edge of each piece that is read, and at the last position of all.
    for (const std::size_t Stelle : {4094U, 4095U, 4096U, 8191U, 65535U, 102399U}) {
        EXPECT_EQ(Lesen(std::string(Stelle, '\xFF' - 1) + Kopf + "mehr").HeaderPosition, Stelle);
    }
    const Datensatz Jenseits =
        Lesen(std::string(102400, '\x40') + Kopf + "mehr", "0010", {.HeaderPosition = 7});
    EXPECT_EQ(Jenseits.HeaderPosition, 7);
    EXPECT_EQ(Jenseits.MpegVersion, 25);  // "@@@@" taken as header
    // Eleven bits suffice, also inside of a tag.
    EXPECT_EQ(Lesen(Id3v2Tag(3, Id3v2Rahmen("PRIV", "a\xFF\xE0z")) + MpegRahmen({}, 2)).HeaderPosition, 21);
    // A lone FF at the end is none.
    EXPECT_EQ(Lesen("xxxxx\xFF", "0010", {.HeaderPosition = 7}).HeaderPosition, 7);
}

TEST_F(Mpeg, KleinesBleibtUnberührtUndGroßesVerliertDieDauer) {
    const Datensatz Alt{.Bitrate = 9, .VBR = true};
    EXPECT_EQ(Lesen(KopfBytes({}), "0010", Alt).Bitrate, 9);
    EXPECT_EQ(Lesen(KopfBytes({}) + "x", "0010", Alt).Bitrate, 128);
    const std::string Pfad = Anlegen("groß.mp3", KopfBytes({}));
    const auto Dauer = [&](std::uintmax_t Länge) {
        std::filesystem::resize_file(Pfad, Länge);
        return MedienDatenLesen(Umgebung, Pfad, {}, {.Code = Lesecode::Lesen("1111"), .GrößeLesen = true});
    };
    EXPECT_EQ(Dauer(268435455).Dauer, 16777);
    EXPECT_EQ(Dauer(268435456).Dauer, 0);
    EXPECT_EQ(Dauer(5'000'000'000).Größe, 5'000'000'000);
}

}  // namespace
}  // namespace liedwerk
