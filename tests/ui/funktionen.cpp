// What the menus, the function pane and the session do with index, list and window.
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTextBrowser>
#include <QToolButton>

#include "core/laden.h"
#include "tests/ui/fensterlauf.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Funktionen : public testing::Test {
  protected:
    Umgebung Welt;

    static void Auslösen(Lauf& Programmlauf, const QString& Name) {
        Teil<QAction>(Programmlauf.Fenster, Name).trigger();
    }
    // The entry of the column menu with this name; the menu is filled when it opens.
    static void SpalteUmschalten(Lauf& Programmlauf, const QString& Name) {
        auto& Menü = Teil<QMenu>(Programmlauf.Fenster, u"mnuSpalten"_s);
        emit Menü.aboutToShow();
        for (QAction* const Aktion : Menü.findChildren<QAction*>()) {
            if (Aktion->text() == Name) return Aktion->trigger();
        }
        FAIL() << "keine Spalte " << Name.toStdString();
    }
};

TEST_F(Funktionen, SpaltenLassenSichZeigenUndVerbergenUndBleibenImIndex) {
    const auto Titel = [](Lauf& Eins, int Spalte) {
        return Eins.Songs().model()->headerData(Spalte, Qt::Horizontal).toString();
    };
    {
        Lauf Eins(Welt);
        Eins.OrdnerHinzufügen(Welt.Musikordner());
        const auto Gewählt = Eins.Songs().AuswahlLesen();
        SpalteUmschalten(Eins, u"Interpret"_s);
        EXPECT_EQ(Titel(Eins, 3), u"Interpret"_s);
        EXPECT_EQ(Eins.Songs().AuswahlLesen(), Gewählt)
            << "the columns have nothing to do with the selection";
        SpalteUmschalten(Eins, u"Dateiname"_s);
        EXPECT_EQ(Titel(Eins, 1), u"Titel"_s);
        Auslösen(Eins, u"mnuSpaltentitel"_s);
        EXPECT_TRUE(Eins.Songs().header()->isHidden());
        Auslösen(Eins, u"mnuSymbole"_s);
        EXPECT_TRUE(Eins.Songs().isColumnHidden(0));
        Eins.Fenster.SitzungBeenden();
    }
    Lauf Zwei(Welt);
    EXPECT_EQ(Titel(Zwei, 1), u"Titel"_s);
    EXPECT_EQ(Titel(Zwei, 2), u"Interpret"_s);
    EXPECT_TRUE(Zwei.Songs().header()->isHidden());
    EXPECT_FALSE(Teil<QAction>(Zwei.Fenster, u"mnuSymbole"_s).isChecked());
}

TEST_F(Funktionen, KopierterPfadBehältJedesByte) {
    Lauf Eins(Welt);
    const std::string Pfad = Welt.Ordner() + "/caf\xe9.mp3";  // Latin-1
    MusikdateiAnlegen(Pfad, "Lied", "Wer");
    EXPECT_FALSE(Teil<QAction>(Eins.Fenster, u"mnuPfadKopieren"_s).isEnabled());
    DateienHinzufügenLauf(Eins.Programm, {Pfad}, {}, true);
    Auslösen(Eins, u"mnuPfadKopieren"_s);
    const QMimeData* const Daten = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(PfadeAusUriListe(Daten->data(u"text/uri-list"_s)), std::vector<std::string>{Pfad});
    EXPECT_TRUE(Daten->text().startsWith(QtText(Welt.Ordner())));
}

TEST_F(Funktionen, FehlenderOrdnerWirdGemeldetStattGeöffnet) {
    Lauf Eins(Welt);
    Datensatz Satz;
    SatzAnhängen(Eins.Programm.Index, "D:\\Musik\\fort.mp3", Satz);
    TrefferZurücksetzen(Eins.Programm.Index);
    Eins.Programm.Ansicht.Zeilen = {1};
    Eins.Programm.Ansicht.Auswahl = {1};
    Eins.Fenster.ListeZeigen();
    Auslösen(Eins, u"mnuOrdnerÖffnen"_s);
    ASSERT_EQ(Eins.Person.Meldungen.size(), 1u);
    EXPECT_NE(Eins.Person.Meldungen[0].find("'D:\\Musik'"), std::string::npos);
}

TEST_F(Funktionen, ZuletztGeladeneFührenZuIhremIndex) {
    const std::string Zweiter = Welt.Ordner() + "/A&B.lwi";
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Auslösen(Eins, u"mnuSpeichern"_s);
    EXPECT_FALSE(Eins.Programm.Index.IndexGeändert);
    {
        std::ofstream Datei(Zweiter, std::ios::binary);
        Datei << "#TAG:lw10\r\n";
    }
    ASSERT_TRUE(AndereDateiLaden(Eins.Programm, Zweiter));
    EXPECT_EQ(Eins.Zeilen(), 0);
    EXPECT_EQ(Teil<QLabel>(Eins.Fenster, u"lblIndex"_s).text(), u"A&B.lwi"_s);
    const auto Einträge = Teil<QMenu>(Eins.Fenster, u"mnuZuletztGeladen"_s).actions();
    ASSERT_EQ(Einträge.size(), 2);
    EXPECT_TRUE(Einträge[0]->text().endsWith(u"A&&B.lwi"_s)) << "a plain & would be a key";
    Einträge[1]->trigger();
    EXPECT_EQ(Eins.Zeilen(), 3);
}

TEST_F(Funktionen, FensterlageKommtWiederUndNieAußerhalbDerBildschirme) {
    Lauf Eins(Welt);
    Fensterlage Lage{false, 10, 50, 780, 600, false};
    Eins.Fenster.LageSetzen(Lage);
    const Fensterlage Gelesen = Eins.Fenster.LageLesen();
    EXPECT_EQ(Gelesen.Links, 10);
    EXPECT_EQ(Gelesen.Oben, 50);
    EXPECT_EQ(Gelesen.Höhe, 600);
    Lage.Links = 50000;  // a screen that is gone
    Eins.Fenster.LageSetzen(Lage);
    const QRect Schirm = Eins.Fenster.screen()->availableGeometry();
    EXPECT_TRUE(Schirm.contains(Eins.Fenster.geometry().center()));
    // A screen that has become smaller than the window.
    Eins.Fenster.LageSetzen({false, 0, 0, Schirm.width() * 2 - 50, Schirm.height() * 2 - 50, false});
    EXPECT_LE(Eins.Fenster.height(), Schirm.height());
    EXPECT_GE(Eins.Fenster.y(), Schirm.top());
}

TEST_F(Funktionen, SicherungDerSitzungSpeichertUndDasProgrammLäuftWeiter) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    EXPECT_TRUE(Eins.Programm.Index.IndexGeändert);
    Eins.Fenster.SitzungSichern();
    EXPECT_FALSE(Eins.Programm.Index.IndexGeändert);
    EXPECT_FALSE(Eins.Beendet);
    EXPECT_TRUE(Eins.Fenster.isVisible());
    QTest::keyClicks(&Eins.Suchfeld(), u"stille"_s);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    EXPECT_EQ(Eins.Zeilen(), 1);
}

TEST_F(Funktionen, ErsterStartBegrüßtEinmal) {
    Welt.Werte.Löschen("Start");
    QString Gezeigt;
    QTimer::singleShot(0, qApp, [&] {
        Gezeigt = QApplication::activeModalWidget()->objectName();
        QApplication::activeModalWidget()->close();
    });
    {
        Lauf Eins(Welt);
        EXPECT_EQ(Gezeigt, u"frmWillkommen"_s);
        Eins.Fenster.SitzungBeenden();
    }
    Lauf Zwei(Welt);  // would hang in a modal window if it were shown again
    EXPECT_TRUE(Zwei.Fenster.isVisible());
}

TEST_F(Funktionen, BeschreibungsleisteUndFarbenFolgenDenEinstellungen) {
    Welt.Werte.Schreiben("Beschreibungsleiste", std::int32_t{0});
    Welt.Werte.Schreiben("FarbeListen", std::int32_t{0x0000FF});  // red, as 0xBBGGRR
    Lauf Eins(Welt);
    EXPECT_FALSE(Teil<QTextBrowser>(Eins.Fenster, u"txtBeschreibung"_s).isVisible());
    EXPECT_EQ(Eins.Songs().palette().color(QPalette::Text), QColor(255, 0, 0));
    Auslösen(Eins, u"mnuBeschreibungsleiste"_s);
    EXPECT_TRUE(Teil<QTextBrowser>(Eins.Fenster, u"txtBeschreibung"_s).isVisible());
    EXPECT_EQ(Eins.Programm.Werte.Beschreibungsleiste, 1);
}

}  // namespace
}  // namespace liedwerk::test
