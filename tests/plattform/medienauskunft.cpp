// Windows Media files through TagLib, and what keeps them from holding the program up.
#include "plattform/qt/medienauskunft.h"

#include <QCoreApplication>
#include <QTimer>
#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "plattform/system.h"
#include "tests/dateien/probeordner.h"
#include "werkzeuge/tagbau.h"

namespace liedwerk {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
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
    }
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
