// Windows Media files and the further formats through TagLib, and what keeps them from holding the program
// up.
#include "plattform/qt/medienauskunft.h"

#include <QCoreApplication>
#include <QTimer>
#include <atomic>
#include <fileref.h>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <tag.h>
#include <thread>

#include "plattform/system.h"
#include "tests/dateien/probeordner.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using tagbau::GroßesEnde;
using tagbau::KleinesEnde;
using test::Probeordner;

// Text as such files hold it: UTF-16, little-endian, with a NUL, without a mark.
std::string Breit(std::string_view Text) {
    return tagbau::Utf16Text(Text).substr(2) + "\0\0"s;
}

std::string Objekt(std::string_view Kennung, const std::string& Inhalt) {
    return std::string(Kennung) + KleinesEnde(Inhalt.size() + 24, 8) + Inhalt;
}

// The header of a file of 61.5 seconds with 3 seconds of preroll (Advanced Systems Format).
std::string AsfDatei(std::string_view Titel, std::string_view Interpret, std::string_view Kommentar) {
    const std::string Eigenschaften = std::string(40, '\0') + KleinesEnde(645000000, 8) + KleinesEnde(0, 8) +
                                      KleinesEnde(3000, 8) + std::string(16, '\0');
    const std::vector<std::string> Texte = {Breit(Titel), Breit(Interpret), "", Breit(Kommentar), ""};
    std::string Längen;
    std::string Werte;
    for (const std::string& Text : Texte) {
        Längen += KleinesEnde(Text.size(), 2);
        Werte += Text;
    }
    constexpr std::size_t Datenstromlänge = 72;
    const std::string Inhalt =
        Objekt("\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65"s, Eigenschaften) +
        Objekt("\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65"s,
               std::string(Datenstromlänge, '\0')) +
        Objekt("\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"s, Längen + Werte);
    return Objekt("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"s,
                  KleinesEnde(3, 4) + "\1\2"s + Inhalt);
}

std::string Atom(std::string_view Name, const std::string& Inhalt) {
    return GroßesEnde(Inhalt.size() + 8, 4) + std::string(Name) + Inhalt;
}

std::string OggSeite(std::string_view Inhalt, std::uint64_t Stand, int Nummer) {
    return "OggS\0"s + (Nummer == 0 ? '\2' : '\0') + KleinesEnde(Stand, 8) + KleinesEnde(1, 4) +
           KleinesEnde(static_cast<std::uint64_t>(Nummer), 4) + KleinesEnde(0, 4) + '\1' +
           static_cast<char>(Inhalt.size()) + std::string(Inhalt);
}

// Files of 10 seconds in stereo at 48 kHz without tags: the least that a format asks for.
struct Tondatei {
    std::string Endung;
    std::string Bytes;
};
std::vector<Tondatei> Tondateien() {
    const std::string Ton(6000, '\x55');
    const std::string Flac = "fLaC" + GroßesEnde(0x80000022, 4) + std::string(10, '\0') +
                             GroßesEnde(48000ULL << 44U | 1ULL << 41U | 15ULL << 36U | 480000U, 8) +
                             std::string(16, '\0') + Ton;
    const std::string Opus =
        OggSeite("OpusHead\1\2"s + KleinesEnde(0, 2) + KleinesEnde(48000, 4) + "\0\0\0"s, 0, 0) +
        OggSeite("OpusTags"s + KleinesEnde(0, 8), 0, 1) + OggSeite(std::string(200, '\x55'), 480000, 2);
    const std::string Ape = "MAC "s + KleinesEnde(3990, 4) + KleinesEnde(52, 4) + std::string(40, '\0') +
                            KleinesEnde(2000, 4) + KleinesEnde(48000, 4) + KleinesEnde(48000, 4) +
                            KleinesEnde(10, 4) + KleinesEnde(16, 2) + KleinesEnde(2, 2) +
                            KleinesEnde(48000, 4) + Ton;
    const std::string Aiff = "AIFFCOMM"s + GroßesEnde(18, 4) + GroßesEnde(2, 2) + GroßesEnde(480000, 4) +
                             GroßesEnde(16, 2) + GroßesEnde(0x400EBB80, 4) + std::string(6, '\0') + "SSND"s +
                             GroßesEnde(Ton.size(), 4) + Ton;
    const std::string Art = std::string(8, '\0') + "soun" + std::string(12, '\0');
    const std::string Dauer =
        std::string(12, '\0') + GroßesEnde(48000, 4) + GroßesEnde(480000, 4) + std::string(4, '\0');
    const std::string Klang = std::string(16, '\0') + GroßesEnde(2, 2) + GroßesEnde(16, 2) +
                              std::string(4, '\0') + GroßesEnde(48000ULL << 16U, 4);
    const std::string Tafel =
        Atom("stbl", Atom("stsd", GroßesEnde(0, 4) + GroßesEnde(1, 4) + Atom("mp4a", Klang)));
    const std::string Mp4 =
        Atom("ftyp", "M4A isom") +
        Atom("moov",
             Atom("mvhd", std::string(100, '\0')) +
                 Atom("trak", Atom("mdia", Atom("mdhd", Dauer) + Atom("hdlr", Art) + Atom("minf", Tafel)))) +
        Atom("mdat", Ton);
    return {{"flac", Flac},
            {"opus", Opus},
            {"ape", Ape},
            {"aiff", "FORM" + GroßesEnde(Aiff.size(), 4) + Aiff},
            {"m4a", Mp4}};
}

TEST(Medienauskunft, WeitereFormateGebenKlangUndTexte) {
    const Probeordner Ordner;
    const auto Auskunft = SystemauskunftÖffnen();
    for (const auto& [Endung, Bytes] : Tondateien()) {
        const std::string Pfad = Ordner.Datei("a." + Endung, Bytes);
        {
            const TagLib::FileRef Datei(Pfad.c_str());
            ASSERT_FALSE(Datei.isNull()) << Endung;
            TagLib::Tag& Texte = *Datei.tag();
            Texte.setTitle(TagLib::String("Größe 日", TagLib::String::UTF8));
            Texte.setArtist("I");
            Texte.setAlbum("A");
            Texte.setComment("K");
            Texte.setGenre("Rock");
            Texte.setYear(1999);
            Texte.setTrack(7);
            Datei.file()->save();
        }
        const auto Angaben = Auskunft->Lesen(Pfad, {});
        ASSERT_TRUE(Angaben) << Endung;
        EXPECT_DOUBLE_EQ(Angaben->Dauer, 10) << Endung;
        EXPECT_EQ(Angaben->Frequenz, 48000) << Endung;
        EXPECT_EQ(Angaben->Kanäle, 2) << Endung;
        EXPECT_EQ(Angaben->Titel, "Größe 日") << Endung;
        EXPECT_EQ(Angaben->Interpret + Angaben->Album + Angaben->Kommentar + Angaben->Genre, "IAKRock")
            << Endung;
        EXPECT_EQ(Angaben->Jahr, 1999u) << Endung;
        EXPECT_EQ(Angaben->Titelnummer, 7u) << Endung;
        const auto Leere = Auskunft->Lesen(Ordner.Datei("leer." + Endung, ""), {});
        EXPECT_TRUE(!Leere || Leere->Frequenz == 0) << Endung;
    }
}

TEST(Medienauskunft, WindowsMediaGibtDauerUndTexte) {
    const Probeordner Ordner;
    const auto Auskunft = SystemauskunftÖffnen();
    const std::string Datei = AsfDatei("Größe", "日本", "k");
    for (const char* Name : {"a.wma", "b.WMF"}) {
        const auto Angaben = Auskunft->Lesen(Ordner.Datei(Name, Datei), {});
        ASSERT_TRUE(Angaben);
        EXPECT_DOUBLE_EQ(Angaben->Dauer, 61.5);
        EXPECT_EQ(Angaben->Titel, "Größe");
        EXPECT_EQ(Angaben->Interpret, "日本");
        EXPECT_EQ(Angaben->Kommentar, "k");
    }
    EXPECT_FALSE(Auskunft->Lesen(Ordner.In("fehlt.wma"), {}));
    EXPECT_FALSE(Auskunft->Lesen(Ordner.Datei("leer.wma", ""), {}));
    EXPECT_FALSE(Auskunft->Lesen(Ordner.Datei("text.wma", "kein Ton"), {}));
}

TEST(Medienauskunft, BeschädigteDateienHaltenNichtAuf) {
    const Probeordner Ordner;
    const auto Auskunft = SystemauskunftÖffnen();
    std::mt19937 Zufall(7);
    const auto Anfang = std::chrono::steady_clock::now();
    for (int Runde = 0; Runde < 300; ++Runde) {
        std::string Datei = AsfDatei("t", "i", "k") + std::string(5000, '\0');
        for (int Schaden = 0; Schaden < 4; ++Schaden)
            Datei[Zufall() % 250] = static_cast<char>(Zufall() % 3 == 0 ? 0xFF : Zufall());
        Auskunft->Lesen(Ordner.Datei("a.wma", Datei), {});
        auto [Endung, Bytes] = Tondateien()[static_cast<std::size_t>(Runde) % 5];
        for (int Schaden = 0; Schaden < 4; ++Schaden)
            Bytes[Zufall() % 300] = static_cast<char>(Zufall() % 3 == 0 ? 0xFF : Zufall());
        Auskunft->Lesen(Ordner.Datei("a." + Endung, Bytes), {});
    }
    // Parts in parts, deeper than a thread's stack.
    std::string Tief;
    constexpr std::size_t Tiefe = 99000;
    for (std::size_t Stufe = Tiefe; Stufe > 0; --Stufe)
        Tief += GroßesEnde(Stufe * 8, 4) + "moov";
    Auskunft->Lesen(Ordner.Datei("tief.mp4", Tief), {});
    EXPECT_LT(std::chrono::steady_clock::now() - Anfang, 60s);
}

TEST(Medienauskunft, WerNichtAntwortetHältDasFensterNichtAn) {
    int Anzahl = 0;
    const char* Name = "test";
    QCoreApplication Programm(Anzahl, const_cast<char**>(&Name));
    QTimer Uhr;
    int Schläge = 0;
    std::optional<Medienangaben> Zweite = Medienangaben{};
    QObject::connect(&Uhr, &QTimer::timeout, [&] {
        ++Schläge;
        Zweite = InFristLesen([] { return Medienangaben{}; }, 1s);
    });
    Uhr.start(10);
    const auto Träge = [] {
        std::this_thread::sleep_for(400ms);
        return Medienangaben{5, {}, {}, {}};
    };
    const auto Angaben = InFristLesen(Träge, 5s);
    ASSERT_TRUE(Angaben);
    EXPECT_EQ(Angaben->Dauer, 5);
    EXPECT_GT(Schläge, 3);
    EXPECT_FALSE(Zweite);  // started from within the wait
    const auto Abbruch = std::chrono::steady_clock::now() + 60ms;
    EXPECT_FALSE(InFristLesen(Träge, 5s, [&] { return std::chrono::steady_clock::now() < Abbruch; }));
    EXPECT_LT(std::chrono::steady_clock::now(), Abbruch + 300ms);
    // More than may hang at once: those are refused and start nothing.
    std::promise<void> Antwort;
    std::atomic<int> Begonnen = 0;
    const auto Stumm = [&, Warten = Antwort.get_future().share()] {
        ++Begonnen;
        Warten.wait();
        return Medienangaben{};
    };
    for (int Nummer = 0; Nummer < 20; ++Nummer)
        EXPECT_FALSE(InFristLesen(Stumm, 30ms));
    EXPECT_LE(Begonnen, 8);
    Antwort.set_value();
    const auto Ende = std::chrono::steady_clock::now() + 20s;
    bool Wieder = false;
    while (!Wieder && std::chrono::steady_clock::now() < Ende)
        Wieder = InFristLesen([] { return Medienangaben{}; }, 5s).has_value();
    EXPECT_TRUE(Wieder);
}

}  // namespace
}  // namespace liedwerk
