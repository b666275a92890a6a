// The list's view on its own: size and selection.
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <numeric>

#include "ui/qt/listenansicht.h"

namespace liedwerk::test {
namespace {

class Langeliste : public testing::Test {
  protected:
    static constexpr int Anzahl = 1'000'000;
    Langeliste() : Modell(Zeilen, Index), Ansicht(Modell, nullptr) {
        Index.Sätze.Anhängen("/Musik/a.mp3", {});
        Zeilen.Spalten = {{3, 2800}, {5, 1400}};
        Zeilen.Zeilen.assign(Anzahl, 1);
        Ansicht.resize(900, 600);
        Ansicht.SpaltenZeigen(Zeilen.Spalten, true);
    }
    Liste Zeilen;
    Katalog Index;
    Listenmodell Modell;
    Listenansicht Ansicht;
};

TEST_F(Langeliste, EineMillionZeilenÖffnetSofort) {
    Ansicht.show();
    QElapsedTimer Uhr;
    Uhr.start();
    Ansicht.ZeilenErneuern({});
    Ansicht.grab();
    RecordProperty("Millisekunden", static_cast<int>(Uhr.elapsed()));
    EXPECT_LT(Uhr.elapsed(), 4000);
    Uhr.start();
    Ansicht.selectAll();
    Ansicht.grab();
    EXPECT_EQ(Ansicht.AuswahlAnzahl(), Anzahl);
    EXPECT_LT(Uhr.elapsed(), 4000);
}

TEST(Listenauswahl, ZerstreuteAuswahlBleibtBeimErneuernUndBeimRollenSchnell) {
    Liste Zeilen;
    Katalog Index;
    Listenmodell Modell(Zeilen, Index);
    Listenansicht Ansicht(Modell, nullptr);
    for (int Nummer = 1; Nummer <= 200'000; ++Nummer)
        Index.Sätze.Anhängen("/Musik/a.mp3", {});
    Zeilen.Spalten = {{3, 2800}, {5, 1400}};
    Zeilen.Zeilen.resize(200'000);
    std::iota(Zeilen.Zeilen.begin(), Zeilen.Zeilen.end(), 1);
    std::vector<Satznummer> Jede_Zweite;
    for (Satznummer Nummer = 2; Nummer <= 200'000; Nummer += 2)
        Jede_Zweite.push_back(Nummer);
    Ansicht.resize(900, 600);
    Ansicht.SpaltenZeigen(Zeilen.Spalten, true);
    Ansicht.show();
    QElapsedTimer Uhr;
    Uhr.start();
    Ansicht.ZeilenErneuern(Jede_Zweite);
    EXPECT_LT(Uhr.elapsed(), 20000);
    EXPECT_EQ(Ansicht.AuswahlLesen(), Jede_Zweite);
    Uhr.start();
    for (int Stelle = 0; Stelle < 10; ++Stelle) {
        Ansicht.verticalScrollBar()->setValue(Stelle * 1000);
        Ansicht.grab();
    }
    EXPECT_LT(Uhr.elapsed(), 20000);

    int Meldungen = 0;
    Ansicht.AuswahlGeändert = [&] { ++Meldungen; };
    QTest::keyClick(&Ansicht, Qt::Key_Home);
    EXPECT_EQ(Ansicht.AuswahlLesen(), std::vector<Satznummer>{1});
    EXPECT_EQ(Meldungen, 1);
    Ansicht.LetzteAuswählen(3);
    EXPECT_EQ(Ansicht.AuswahlLesen(), (std::vector<Satznummer>{199'998, 199'999, 200'000}));
}

}  // namespace
}  // namespace liedwerk::test
