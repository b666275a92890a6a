// ID3v2 as another implementation, TagLib, writes and reads it: what one side puts in, the other must get.
#include <attachedpictureframe.h>
#include <commentsframe.h>
#include <gtest/gtest.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <popularimeterframe.h>
#include <textidentificationframe.h>
#include <unsynchronizedlyricsframe.h>

#include "basis/text.h"
#include "medien/id3v2modern.h"
#include "medien/tagdatei.h"
#include "tests/dateien/probeordner.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using TagLib::ByteVector;
using TagLib::String;
using test::Probeordner;
namespace v2 = TagLib::ID3v2;

const Tagoptionen Optionen = {102400, 25, true};

String Text(std::string_view Utf8) {
    return {std::string(Utf8), String::UTF8};
}

// Every byte, and what looks like the start of a sound frame.
ByteVector Bilddaten() {
    ByteVector Bytes;
    for (int Wert = 0; Wert < 70000; ++Wert)
        Bytes.append(static_cast<char>(Wert % 7 == 0 ? 0xFF : Wert * 31));
    return Bytes;
}

Datensatz UnserLesen(const std::string& Pfad) {
    Datensatz Satz;
    const Lesedatei Datei = Lesedatei::Öffnen(Pfad);
    Dateianfang Anfang(Datei);
    EXPECT_EQ(Id3v2Lesen(Anfang, Optionen.TAGsBytesSuchen, true, Satz), Id3v2Ergebnis::Gelesen);
    return Satz;
}

// The values that both sides know, by the record's members.
struct Feldprobe {
    const char* Kennung;
    std::string Datensatz::*Feld;
};
constexpr Feldprobe Textfelder[] = {
    {"TIT2", &Datensatz::V2Titel},         {"TPE1", &Datensatz::V2Interpret},
    {"TALB", &Datensatz::V2Album},         {"TRCK", &Datensatz::V2Titelnummer},
    {"TENC", &Datensatz::V2EncodiertVon},  {"TCOP", &Datensatz::V2Copyright},
    {"TCOM", &Datensatz::V2Songschreiber}, {"TPUB", &Datensatz::V2Herausgeber},
    {"TLEN", &Datensatz::V2Länge},
};
constexpr std::string_view Proben[] = {"plain", "Größe", "“€” – Œ", "日本語 ελ", "😀 ÿþ", "a;b/c"};

void TaglibPrüfen(const std::string& Pfad, const Datensatz& Satz) {
    TagLib::MPEG::File Datei(Pfad.c_str());
    v2::Tag* const Tag = Datei.ID3v2Tag();
    ASSERT_NE(Tag, nullptr);
    for (const auto& [Kennung, Feld] : Textfelder) {
        const auto& Rahmen = Tag->frameListMap()[Kennung];
        EXPECT_EQ(Rahmen.isEmpty() ? "" : Rahmen.front()->toString().to8Bit(true), Satz.*Feld) << Kennung;
    }
    EXPECT_EQ(Tag->comment().to8Bit(true), Satz.V2Kommentar);
    EXPECT_EQ(std::to_string(Tag->year()), Satz.V2Jahr);
    // With or without its number.
    EXPECT_EQ(Tag->genre(), "Rock");
    EXPECT_TRUE(Satz.V2Genre.ends_with("Rock")) << Satz.V2Genre;
}

class Taglib : public testing::TestWithParam<int> {
  protected:
    // A file whose tag TagLib wrote: texts in this encoding, a picture, lyrics.
    std::string Anlegen(String::Type Kodierung, std::string_view Probe) {
        const std::string Pfad = Ordner.Datei("t.mp3", Ton);
        TagLib::MPEG::File Datei(Pfad.c_str());
        v2::Tag* const Tag = Datei.ID3v2Tag(true);
        for (const auto& [Kennung, Feld] : Textfelder) {
            auto* Rahmen = new v2::TextIdentificationFrame(Kennung, Kodierung);
            Rahmen->setText(Text(Probe));
            Tag->addFrame(Rahmen);
        }
        Tag->setGenre("Rock");
        Tag->setYear(2003);
        auto* Kommentar = new v2::CommentsFrame(Kodierung);
        Kommentar->setText(Text(Probe));
        Tag->addFrame(Kommentar);
        auto* Bild = new v2::AttachedPictureFrame;
        Bild->setMimeType("image/png");
        Bild->setDescription(Text(Probe));
        Bild->setTextEncoding(Kodierung);
        Bild->setPicture(Bilddaten());
        Tag->addFrame(Bild);
        auto* Lied = new v2::UnsynchronizedLyricsFrame(Kodierung);
        Lied->setText(Text(Probe));
        Tag->addFrame(Lied);
        auto* Bewertung = new v2::PopularimeterFrame;
        Bewertung->setEmail("a@b");
        Bewertung->setRating(196);
        Bewertung->setCounter(5);
        Tag->addFrame(Bewertung);
        EXPECT_TRUE(Datei.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone,
                               GetParam() == 3 ? v2::v3 : v2::v4));
        return Pfad;
    }
    const Probeordner Ordner;
    const std::string Ton = tagbau::MpegRahmen({}, 5);
};

TEST_P(Taglib, SeineTagsKommenGanzAnUndBleibenGanz) {
    for (const auto Kodierung : {String::Latin1, String::UTF16, String::UTF16BE, String::UTF8}) {
        for (const std::string_view Probe : Proben) {
            const bool Passt = Kodierung != String::Latin1 || Text(Probe).isLatin1();
            if (!Passt) continue;
            const std::string Pfad = Anlegen(Kodierung, Probe);
            Datensatz Satz = UnserLesen(Pfad);
            TaglibPrüfen(Pfad, Satz);
            EXPECT_EQ(Satz.V2Titel, Probe);
            EXPECT_EQ(Satz.V2Jahr, "2003");
            EXPECT_EQ(Satz.V2Qualität, 196);
            EXPECT_EQ(Satz.Id3v2Version, "2." + std::to_string(GetParam()) + ".0");

            Satz.V2Titel = "anders “日本”";
            Satz.V2Kommentar = "Zeile\nZeile";
            Satz.V2Jahr = "1999";
            Satz.V2Qualität = 1;
            std::string Meldung;
            ASSERT_TRUE(Id3v2Schreiben(Pfad, Satz, Optionen, Meldung)) << Meldung;
            TaglibPrüfen(Pfad, Satz);
            TagLib::MPEG::File Datei(Pfad.c_str());
            const auto& Rahmen = Datei.ID3v2Tag()->frameListMap();
            const auto* Bild = dynamic_cast<const v2::AttachedPictureFrame*>(Rahmen["APIC"].front());
            EXPECT_EQ(Bild->picture(), Bilddaten());
            EXPECT_EQ(Bild->description(), Text(Probe));
            EXPECT_EQ(Rahmen["USLT"].front()->toString(), Text(Probe));
            const auto* Bewertung = dynamic_cast<const v2::PopularimeterFrame*>(Rahmen["POPM"].front());
            EXPECT_EQ(Bewertung->rating(), 1);
            EXPECT_EQ(Bewertung->counter(), 5U);
            EXPECT_EQ(Bewertung->email(), "a@b");
            EXPECT_TRUE(DateiLesen(Pfad)->ends_with(Ton));
            EXPECT_EQ(DateiLesen(Pfad)->size(),
                      static_cast<std::size_t>(UnserLesen(Pfad).Id3v2Größe) + Ton.size());
        }
    }
}
INSTANTIATE_TEST_SUITE_P(Versionen, Taglib, testing::Values(3, 4));

TEST(TaglibNeu, EinNeuesTagIstFürAndereLesbar) {
    const Probeordner Ordner;
    for (const std::string_view Probe : Proben) {
        const std::string Pfad = Ordner.Datei("n.mp3", tagbau::MpegRahmen({}, 5));
        Datensatz Satz;
        Id3v2Leeren(Satz);
        for (const auto& [Kennung, Feld] : Textfelder)
            Satz.*Feld = Probe;
        Satz.V2Kommentar = Probe;
        Satz.V2Jahr = "2003";
        Satz.V2Genre = "(17)Rock";
        Satz.V2Link = "http://a/b";
        std::string Meldung;
        ASSERT_TRUE(Id3v2Schreiben(Pfad, Satz, Optionen, Meldung)) << Meldung;
        TaglibPrüfen(Pfad, Satz);
        const Datensatz Zurück = UnserLesen(Pfad);
        for (const Id3v2Rahmenfeld& Feld : Id3v2Rahmenfelder)
            EXPECT_EQ(Zurück.*Feld.Feld, Satz.*Feld.Feld) << Feld.Kennung;
        EXPECT_EQ(Zurück.Id3v2Version, "2.3.0");
    }
}

}  // namespace
}  // namespace liedwerk
