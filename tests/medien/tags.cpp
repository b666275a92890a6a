// ID3v1, ID3v2 and Lyrics3: a sample for each quirk of the readers.
#include "medien/id3v2.h"
#include "tests/medien/umgebung.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace tagbau;
using Id3v1 = Medien;
using Id3v2 = Medien;
using Lyrics = Medien;
using namespace std::string_literals;

TEST_F(Id3v1, FelderVerlierenNullenUndRechteLeerzeichen) {
    const Datensatz Satz = Lesen(Id3v1Block({.Titel = "  a\0b\1c\r\n"s,
                                             .Interpret = AnsiText("Dübel €"),
                                             .Jahr = "1999",
                                             .Kommentar = "z\r\nz",
                                             .Titelnummer = 7,
                                             .Genre = 144,
                                             .Füllung = ' '}));
    EXPECT_EQ(Satz.TagKennung, "TAG");
    EXPECT_EQ(Satz.Titel, "  abc");
    EXPECT_EQ(Satz.Interpret, "Dübel €");
    EXPECT_EQ(Satz.Jahr, "1999");
    EXPECT_EQ(Satz.Kommentar, "z\r\nz");
    EXPECT_EQ(Satz.Titelnummer, "7");
    EXPECT_EQ(Satz.Genre, 144);
    EXPECT_EQ(Satz.HatId3v1, TagVorhanden);
    EXPECT_EQ(Lesen(Id3v1Block({.Genre = 145})).Genre, KeinGenre);
    const std::string Pfad = Anlegen("zeilen.mp3", Id3v1Block({.Kommentar = "z\r\nz"}));
    EXPECT_EQ(MedienDatenLesen(Umgebung, Pfad, {}, {.Code = Lesecode{.Id3v1 = true}, .ZeilenEntfernen = true})
                  .Kommentar,
              "zz");
}

TEST_F(Id3v1, NurEinVollerKommentarBehältSeineLetztenBeidenBytes) {
    const std::string Voll(28, 'k');
    EXPECT_EQ(Lesen(Id3v1Block({.Kommentar = Voll + "xy"})).Kommentar, Voll + "xy");
    EXPECT_EQ(Lesen(Id3v1Block({.Kommentar = Voll + "x "})).Kommentar, Voll + "x");
    EXPECT_EQ(Lesen(Id3v1Block({.Kommentar = std::string(27, 'k') + " xy"})).Kommentar, std::string(27, 'k'));
    const Datensatz OhneNummer = Lesen(Id3v1Block({.Kommentar = Voll}));
    EXPECT_EQ(OhneNummer.Kommentar, Voll);
    EXPECT_EQ(OhneNummer.Titelnummer, "");
}

TEST_F(Id3v1, FehlenderBlockLeertDieFelder) {
    const Datensatz Alt{
        .TagKennung = "TAG", .Titel = "alt", .Genre = std::uint8_t{3}, .HatId3v1 = TagVorhanden};
    for (const std::string& Inhalt : {std::string(127, 'x'), "TAG" + std::string(126, 'x'), std::string()}) {
        const Datensatz Satz = Lesen(Inhalt, "1000", Alt);
        EXPECT_EQ(Satz.Titel + Satz.TagKennung, "");
        EXPECT_FALSE(Satz.Genre.has_value());
        EXPECT_EQ(Satz.HatId3v1, TagFehlt);
    }
    EXPECT_EQ(Lesen("", "0111", Alt).Titel, "alt");
}

TEST_F(Id3v2, GrößenStimmenNurUnter65536) {
    EXPECT_EQ(Id3v2GrößeLesen("\0\3\x7F\x7F"s, Id3v2Größenform::SiebenBit), 65535);
    EXPECT_EQ(Id3v2GrößeLesen("\0\4\0\0"s, Id3v2Größenform::SiebenBit), 2048);
    EXPECT_EQ(Id3v2GrößeLesen("\1\1\1\1"s, Id3v2Größenform::Einfach), 16384 + 2048 + 257);
    EXPECT_EQ(Id3v2GrößeLesen("\7\1\2"s, Id3v2Größenform::Einfach), 2048 + 512);
    EXPECT_EQ(Id3v2GrößeLesen("\1\2", Id3v2Größenform::Einfach), 0);
}

TEST_F(Id3v2, RahmenAllerVersionenLandenInIhremFeld) {
    for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder) {
        const Datensatz Satz = Lesen(Id3v2Tag(4, Id3v2Textrahmen(Feld.Kennung, "Wert")));
        EXPECT_EQ(Satz.*Feld.Feld, "Wert") << Feld.Kennung;
        EXPECT_EQ(Satz.Id3v2Version, "2.4.0");
        EXPECT_EQ(Satz.HatId3v2, TagVorhanden);
        if (Feld.KurzKennung.empty()) continue;
        EXPECT_EQ(Lesen(Id3v2Tag(2, Id3v2Textrahmen(Feld.KurzKennung, "Wert"))).*Feld.Feld, "Wert");
    }
    // The first frame of 2.2 swallows what follows it.
    EXPECT_EQ(Lesen(Id3v2Tag(2, Id3v2Textrahmen("TT2", "a") + Id3v2Textrahmen("TP1", "b"))).V2Titel,
              "aTP1\2b");
}

TEST_F(Id3v2, WerteWerdenVonSpracheUndNullenBefreit) {
    const auto Titel = [&](const std::string& Wert) {
        return Lesen(Id3v2Tag(3, Id3v2Rahmen("TIT2", Wert))).V2Titel;
    };
    EXPECT_EQ(Titel("\0abc\0Text\n "s), "Text");
    EXPECT_EQ(Titel("abc\0Text"s), "Text");
    EXPECT_EQ(Titel("\1" + Utf16Text("Größe")), "ÿþGröße");  // the byte-order mark stays
    EXPECT_EQ(Titel("\3Gr\xC3\xB6"), "\3GrÃ¶");
    EXPECT_EQ(Titel(""), "");
    const std::string Kommentar = Id3v2Tag(3, Id3v2Rahmen("COMM", "\0eng\0a\r\nb "s));
    EXPECT_EQ(Lesen(Kommentar).V2Kommentar, "a\r\nb");
    EXPECT_EQ(MedienDatenLesen(Umgebung, Anlegen("k.mp3", Kommentar), {},
                               {.Code = Lesecode{.Id3v2 = true}, .ZeilenEntfernen = true})
                  .V2Kommentar,
              "ab");
    // The last of two wins.
    EXPECT_EQ(Lesen(Id3v2Tag(3, Id3v2Textrahmen("TIT2", "a") + Id3v2Textrahmen("TIT2", "b"))).V2Titel, "b");
}

TEST_F(Id3v2, QualitätStehtHinterDerErstenNull) {
    const auto Qualität = [&](const std::string& Wert) {
        return Lesen(Id3v2Tag(3, Id3v2Rahmen("POPM", Wert))).V2Qualität;
    };
    EXPECT_EQ(Qualität("a@b\0\xC4\0\0\0\0"s), 196);
    EXPECT_EQ(Qualität("\0abc\0\xC4"s), 196);  // not hurt by the rule for languages
    EXPECT_EQ(Qualität("ohne"), KeineV2Qualität);
    EXPECT_EQ(Qualität("a\0"s), KeineV2Qualität);
}

TEST_F(Id3v2, WeitereFelderUndPaddingWerdenGezählt) {
    const std::string Bild = Id3v2Rahmen("APIC", "\0image\0Bytes"s);
    const std::string Titel = Id3v2Textrahmen("TIT2", "a");
    const std::string Datei = Id3v2Tag(3, Titel + Bild + Id3v2Rahmen("1234", "Z") + Titel, 40);
    const Datensatz Satz = Lesen(Datei, "0100");
    EXPECT_EQ(Satz.Id3v2WeitereFelder, Bild);
    EXPECT_EQ(Satz.Id3v2Größe, static_cast<std::int32_t>(Datei.size()));
    EXPECT_EQ(Satz.Id3v2Benutzt, Satz.Id3v2Größe - 40);
    EXPECT_EQ(Satz.Id3v2Position, 1);
    EXPECT_EQ(Lesen(Datei, "0101").Id3v2WeitereFelder, "");  // emptied by the Lyrics reader
    EXPECT_EQ(Lesen(Id3v2Tag(3, Titel)).Id3v2Benutzt, 0);
    EXPECT_EQ(Lesen(Id3v2Tag(2, Id3v2Rahmen("PIC", std::string(256 * 3, 'p'))), "0100").Id3v2WeitereFelder,
              " ");
}

TEST_F(Id3v2, FußUndErweiterterKopf) {
    const std::string Titel = Id3v2Textrahmen("TIT2", "a");
    const std::string MitFuß = Id3v2Tag(4, Titel, 0, 0x10);
    EXPECT_EQ(Lesen(MitFuß + MpegRahmen({}, 1)).Id3v2Größe, static_cast<std::int32_t>(MitFuß.size()));
    EXPECT_EQ(Lesen(Id3v2Tag(4, Titel, 40, 0x10)).Id3v2Benutzt, 20 + static_cast<int>(Titel.size()));
    // 2.4 counts the extended header's own size: its six bytes are skipped.
    const std::string Erweitert = "\0\0\0\6\1\0"s + Titel;
    EXPECT_EQ(Lesen(Id3v2Tag(4, Erweitert, 20, 0x40)).V2Titel, "a");
    EXPECT_EQ(Lesen(Id3v2Tag(4, Erweitert, 20, 0x40)).Id3v2Benutzt, 16 + static_cast<int>(Titel.size()));
    // The size is read at the eleventh byte of the file, wherever the tag is.
    EXPECT_EQ(Lesen("0123456789\0\0\0\6"s + Id3v2Tag(4, "\0\0\0\2\1\0"s + Titel, 0, 0x40)).V2Titel, "a");
    EXPECT_EQ(Lesen("0123456789\1\0\0\0"s + Id3v2Tag(4, Erweitert, 0, 0x40)).HatId3v2, TagFehlt);
}

TEST_F(Id3v2, SucheUndAblehnung) {
    const std::string Tag = Id3v2Tag(3, Id3v2Textrahmen("TIT2", "a"));
    for (const std::size_t Stelle : {1U, 61U, 62U, 63U, 64U, 4093U, 4094U, 4095U, 4096U, 50000U}) {
        EXPECT_EQ(Lesen(std::string(Stelle, 'I') + Tag).Id3v2Position, Stelle + 1);
    }
    Umgebung.TAGsBytesSuchen = 100;
    EXPECT_EQ(Lesen(std::string(98, 'x') + Tag).HatId3v2, TagFehlt);
    EXPECT_EQ(Lesen(std::string(90, 'x') + Tag).V2Titel, "a");  // the tag itself may reach further
    Umgebung.TAGsBytesSuchen = 0;
    for (const std::size_t Stelle : {200000U, 1048574U, 1048575U, 1048576U, 3000000U}) {
        const Datensatz Satz = Lesen(std::string(Stelle, 'x') + Tag, "0100");
        EXPECT_EQ(Satz.Id3v2Position, Stelle + 1);
        EXPECT_EQ(Satz.V2Titel, "a");
    }
    const Datensatz Alt{.Id3v2WeitereFelder = "x", .V2Titel = "alt", .V2Qualität = 3};
    for (const std::string& Inhalt : {"ID3\5\0\0\0\0\0\0"s, "ID3\3\0\0\1\0\0\0"s, "ID3\3"s, "ID3"s, ""s}) {
        const Datensatz Satz = Lesen(Inhalt, "0100", Alt);
        EXPECT_EQ(Satz.V2Titel + Satz.Id3v2WeitereFelder, "");
        EXPECT_EQ(Satz.HatId3v2, TagFehlt);
        EXPECT_EQ(Satz.V2Qualität, KeineV2Qualität);
    }
}

TEST_F(Lyrics, Version2WirdFeldweiseGelesen) {
    const std::string Felder = LyricsFeld("IND", "11") + LyricsFeld("EAL", "Album") +
                               LyricsFeld("lyr", "Zeile\r\n!") + LyricsFeld("CRC", "12345678") +
                               LyricsFeld("INF", "Info");
    const std::string Tag = LyricsV2(Felder);
    for (const std::string& Ende : {Id3v1Block({}), std::string()}) {
        const Datensatz Satz = Lesen(MpegRahmen({}, 1) + Tag + Ende);
        EXPECT_EQ(Satz.HatLyrics, TagVorhanden);
        EXPECT_EQ(Satz.LyricsVersion, 2);
        EXPECT_EQ(Satz.LyricsText, "Zeile\r\n!");
        EXPECT_EQ(Satz.LyricsWeitereFelder, LyricsFeld("EAL", "Album") + LyricsFeld("INF", "Info"));
        EXPECT_EQ(Satz.LyricsGröße, static_cast<std::int32_t>(Tag.size()));
        EXPECT_EQ(Satz.LyricsPosition, 418);
        EXPECT_EQ(Lesen(MpegRahmen({}, 1) + Tag + Ende, "1111", Satz), Satz);
    }
}

TEST_F(Lyrics, EinLetztesFeldUnterZweiZeichenWirdNichtBetrachtet) {
    for (const std::string_view Text : {"", "x"}) {
        const Datensatz Satz = Lesen(LyricsV2(LyricsFeld("IND", "11") + LyricsFeld("LYR", Text)));
        EXPECT_EQ(Satz.HatLyrics, TagVorhanden);
        EXPECT_EQ(Satz.LyricsText, "");
    }
    EXPECT_EQ(Lesen(LyricsV2(LyricsFeld("LYR", "x") + LyricsFeld("IND", "11"))).LyricsText, "x");
}

TEST_F(Lyrics, BeschädigteTagsZählenAlsKeine) {
    for (const std::string Tag :
         {"LYRICSBEGINLYR-0008xxLYR-0008000027LYRICS200", "LYRICSBEGINLYR 1x  xx000021LYRICS200",
          "LYRICSBEGIN00xx11LYRICS200", "LYRICSBEGIN000010LYRICS200", "LYRICSBEGIN999999LYRICS200",
          "LYRICSBEGINxxxxxxx1E9999LYRICS200", "xxxxxxxxxxxxx-00050LYRICS200", "12345LYRICS200     "}) {
        const Datensatz Satz = Lesen(Tag, "0001");
        EXPECT_EQ(Satz.HatLyrics, TagFehlt) << Tag;
        EXPECT_EQ(Satz.LyricsVersion, 2);
    }
    EXPECT_EQ(Lesen("LYRICSBEGINLYRICSBEGINLYRICSEND" + std::string(120, 'x')).LyricsVersion, 1);
    EXPECT_EQ(Lesen("LYRICSENDxxxxxxxxxxLYRICSBEGIN").HatLyrics, TagFehlt);
    // The size and the end marker count in the last 144 bytes only.
    const std::string Tag = LyricsV2(LyricsFeld("LYR", "Text"));
    EXPECT_EQ(Lesen(Tag + std::string(129, 'x')).LyricsText, "Text");
    EXPECT_EQ(Lesen(Tag + std::string(130, 'x')).HatLyrics, TagFehlt);
    EXPECT_EQ(Lesen(Tag + std::string(135, 'x')).LyricsVersion, 2);
    EXPECT_EQ(Lesen(Tag + std::string(136, 'x')).LyricsVersion, 0);
}

TEST_F(Lyrics, Version1VerliertDasErsteZeichen) {
    const Datensatz Satz = Lesen("12345" + LyricsV1("Das Lied") + Id3v1Block({}));
    EXPECT_EQ(Satz.LyricsText, "as Lied");
    EXPECT_EQ(Satz.LyricsPosition, 7);
    EXPECT_EQ(Satz.LyricsGröße, 27);
    EXPECT_EQ(Lesen(LyricsV1("")).LyricsText, "");
    // The start marker is looked for in 5200 bytes in front of the window.
    EXPECT_EQ(Lesen(LyricsV1(std::string(5200 + 144 - 128 - 20, 'x')) + Id3v1Block({})).HatLyrics,
              TagVorhanden);
    EXPECT_EQ(Lesen("x" + LyricsV1(std::string(5200 + 144 - 128 - 19, 'x')) + Id3v1Block({})).HatLyrics,
              TagFehlt);
}

}  // namespace
}  // namespace liedwerk
