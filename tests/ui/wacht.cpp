// The offer to synchronise: when it comes, what it says, and that it goes.
#include <QAbstractButton>
#include <QLabel>

#include "fensterlauf.h"
#include "plattform/ordnerwacht.h"

namespace liedwerk::test {
namespace {

using namespace Qt::StringLiterals;

struct Merkwacht final : Ordnerwacht {
    Wachtauftrag Auftrag;
    int Begonnen = 0;
    void Beginnen(Wachtauftrag Neuer) override {
        Auftrag = std::move(Neuer);
        ++Begonnen;
    }
    void Beenden() override { Auftrag = {}; }
    void Melden(std::vector<std::string> Pfade, bool Ungenau = false) const {
        Auftrag.Melden({std::move(Pfade), Ungenau, false});
        QTest::qWait(1);
    }
};

TEST(Angebot, ErscheintNurWennEtwasZuTunIstUndSynchronisiert) {
    Merkwacht Wacht;
    Umgebung Welt;
    Welt.Wacht = &Wacht;
    const std::string Musik = Welt.Musikordner();
    Lauf Programm(Welt);
    Programm.OrdnerHinzufügen(Musik);
    auto& Leiste = Teil<QFrame>(Programm.Fenster, u"fraAngebot"_s);
    auto& Optionen = Programm.Programm.Index.Optionen;
    Optionen.SyncOrdner = {{Musik, 1, {}}};
    const auto Nachführen = [&] { Programm.Fenster.AuswahlZeigen(); };
    Nachführen();
    EXPECT_EQ(Wacht.Begonnen, 0) << "off by default";
    Programm.Programm.Werte.SyncBeobachten = 1;
    Nachführen();
    Nachführen();
    ASSERT_EQ(Wacht.Begonnen, 1);
    EXPECT_EQ(Wacht.Auftrag.Ordner, (std::vector<Wachtordner>{{Musik, true}}));
    EXPECT_TRUE(Wacht.Auftrag.Gesucht("a.MP3"));
    EXPECT_FALSE(Wacht.Auftrag.Gesucht("a_incomplete_.mp3") || Wacht.Auftrag.Gesucht("a.txt"));

    Wacht.Melden({Musik + "/eins.mp3", Musik + "/niegesehen.mp3"});
    EXPECT_FALSE(Leiste.isVisibleTo(&Programm.Fenster)) << "what the index tells already";
    MusikdateiAnlegen(Musik + "/vier.mp3", "Vier", "Anna Berg");
    std::filesystem::remove(Musik + "/eins.mp3");
    {
        const Laufsperre Sperre(Programm.Programm);
        Wacht.Melden({Musik + "/vier.mp3"});
        EXPECT_FALSE(Leiste.isVisibleTo(&Programm.Fenster)) << "a run is active";
    }
    Wacht.Melden({Musik + "/eins.mp3"});
    EXPECT_TRUE(Leiste.isVisibleTo(&Programm.Fenster));
    EXPECT_EQ(Teil<QLabel>(Leiste, u"lblAngebot"_s).text(),
              u"In Ihren Ordnern hat sich etwas geändert: 1 neue, 1 fehlende Datei(en)."_s);
    const auto Abbrechen = [&] {
        Programm.Person.AbbruchBei = 1;
        Teil<QAbstractButton>(Leiste, u"cmdAngebotSynchronisieren"_s).click();
        Programm.Person.AbbruchBei = 0;
        EXPECT_TRUE(Leiste.isVisibleTo(&Programm.Fenster)) << "what there was to do is there still";
    };
    Abbrechen();
    Teil<QAbstractButton>(Leiste, u"cmdAngebotSynchronisieren"_s).click();
    EXPECT_FALSE(Leiste.isVisibleTo(&Programm.Fenster));
    EXPECT_EQ(Programm.Zeilen(), 3);
    EXPECT_EQ(Programm.Programm.Pfade.ErstenFinden(Programm.Programm.Index.Sätze, Musik + "/eins.mp3"), 0);

    Wacht.Melden({}, true);
    EXPECT_TRUE(Leiste.isVisibleTo(&Programm.Fenster));
    Abbrechen();
    Teil<QAbstractButton>(Leiste, u"cmdAngebotSchließen"_s).click();
    EXPECT_FALSE(Leiste.isVisibleTo(&Programm.Fenster));
    Programm.Programm.Werte.SyncBeobachten = 0;
    Nachführen();
    EXPECT_FALSE(Wacht.Auftrag.Melden);
}

}  // namespace
}  // namespace liedwerk::test
