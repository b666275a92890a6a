// The main window in use: start, search row, columns, selection, end.
#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QTextBrowser>
#include <QToolButton>
#include <QToolTip>

#include "core/suchlauf.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/meldung.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Fenster : public testing::Test {
  protected:
    Umgebung Welt;
};

TEST_F(Fenster, LeererIndexZeigtWasZuTunIstUndVerschwindetNachDemHinzufügen) {
    Lauf Eins(Welt);
    EXPECT_TRUE(Eins.Person.Meldungen.empty()) << Eins.Person.Meldungen.front();
    EXPECT_TRUE(Teil<QWidget>(Eins.Fenster, u"fraLeer"_s).isVisible());
    EXPECT_FALSE(Eins.Songs().isVisible());
    EXPECT_EQ(Teil<QLabel>(Eins.Fenster, u"lblIndex"_s).text(), u"lwStamm.lwi"_s);

    Eins.OrdnerHinzufügen(Welt.Musikordner());
    EXPECT_FALSE(Teil<QWidget>(Eins.Fenster, u"fraLeer"_s).isVisible());
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_EQ(Eins.Songs().AuswahlAnzahl(), 3);
    EXPECT_TRUE(Teil<QLabel>(Eins.Fenster, u"lblAnzahl"_s).text().startsWith(u"3 Datei(en) im Index"_s));
}

TEST_F(Fenster, MeldungSchreibtSichInDenTitelUndGehtWieder) {
    Lauf Eins(Welt);
    const QString Normal = QtText(ProgrammnameMitVersion());
    const auto Titel = [&] { return Eins.Fenster.windowTitle(); };
    QSet<QString> Gesehen;
    Eins.Fenster.StatusZeigen(QStringLiteral("Fertig"), 0);
    QObject::connect(&Eins.Fenster, &QWidget::windowTitleChanged, &Eins.Fenster,
                     [&](const QString& Text) { Gesehen.insert(Text); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return Titel() == QStringLiteral("Fertig"); }, 2000));
    EXPECT_TRUE(Gesehen.contains(QStringLiteral("F")) && Gesehen.contains(QStringLiteral("Fert")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Titel() == Normal; }, 4000));
    Eins.Fenster.StatusZeigen(QStringLiteral("Noch etwas"), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Titel().startsWith(QStringLiteral("No")); }, 2000));
    Eins.Fenster.StatusZeigen({}, 0);
    EXPECT_EQ(Titel(), Normal) << "nothing to tell leaves no half text";
}

TEST_F(Fenster, SucheWartetAufDiePauseImTippen) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    QTest::keyClicks(&Eins.Suchfeld(), u"so"_s);
    EXPECT_EQ(Eins.Listenuhr().interval(), 1200);
    QTest::keyClicks(&Eins.Suchfeld(), u"mm"_s);
    EXPECT_TRUE(Eins.Listenuhr().isActive());
    EXPECT_EQ(Eins.Listenuhr().interval(), 600);
    EXPECT_EQ(Eins.Zeilen(), 3);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Eins.Zeilen() == 2; }, 3000));
    EXPECT_FALSE(Eins.Listenuhr().isActive());

    // An empty row shows everything without a pause; Esc empties it, the next Esc goes to the list.
    Eins.Suchfeld().setFocus();
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Escape);
    EXPECT_TRUE(Eins.Suchfeld().currentText().isEmpty());
    EXPECT_EQ(Eins.Zeilen(), 3);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Escape);
    EXPECT_TRUE(Eins.Songs().hasFocus());
}

TEST_F(Fenster, EingabetasteAlleinSuchtWennEsSoEingestelltIst) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Eins.Programm.Werte.SucheNachEingabetaste = 1;
    QTest::keyClicks(&Eins.Suchfeld(), u"stille"_s);
    EXPECT_FALSE(Eins.Listenuhr().isActive());
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    EXPECT_EQ(Eins.Zeilen(), 1);
    // Back to searching while typing: the guard that the last key left must not stay.
    Eins.Programm.Werte.SucheNachEingabetaste = 0;
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Backspace);
    EXPECT_TRUE(Eins.Listenuhr().isActive());
}

TEST_F(Fenster, FeldwahlSuchtNurMitTextOderWennErlaubt) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    auto& Feld = Teil<QComboBox>(Eins.Fenster, u"cboSuche"_s);
    EXPECT_EQ(Feld.count(), 33);
    Feld.setFocus();
    QTest::keyClick(&Feld, Qt::Key_Down);
    EXPECT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 0u);  // row empty, nothing searched
    Eins.Programm.Werte.SucheNichtBeiAuswahl = 0;
    QTest::keyClick(&Feld, Qt::Key_Down);
    ASSERT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 1u);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste[0].Feld, "Pfad");
    QTest::mouseClick(&Teil<QToolButton>(Eins.Fenster, u"cmdSucheLöschen"_s), Qt::LeftButton);
    EXPECT_EQ(Feld.currentIndex(), 0);
}

TEST_F(Fenster, VorschlagWirdInDieZeileÜbernommenUndGesucht) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Teil<QComboBox>(Eins.Fenster, u"cboSuche"_s).setCurrentText(u"Titel"_s);
    QTest::keyClicks(&Eins.Suchfeld(), u"Morgenlucht"_s);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    auto& Rahmen = Teil<QWidget>(Eins.Fenster, u"fraSuchVorschläge"_s);
    ASSERT_TRUE(Rahmen.isVisible());
    EXPECT_EQ(Teil<QLabel>(Rahmen, u"lblSuchVorschläge"_s).text(),
              u"Nichts gefunden. Meinten Sie vielleicht..."_s);
    auto& Liste = Teil<QListView>(Rahmen, u"lstSuchVorschläge"_s);
    QTest::mouseClick(Liste.viewport(), Qt::LeftButton, {},
                      Liste.visualRect(Liste.model()->index(0, 0)).center());
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Morgenlicht"_s);
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_FALSE(Rahmen.isVisible());
}

TEST_F(Fenster, BreiteUndReihenfolgeDerSpaltenKommenInDenIndex) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    const auto Vorher = Eins.Programm.Ansicht.Spalten;
    SpaltenInIndex(Eins.Programm);
    EXPECT_EQ(Eins.Programm.Ansicht.Spalten, Vorher) << "untouched widths must come back to the twip";

    QHeaderView& Kopf = *Eins.Songs().header();
    const int Rand = Kopf.sectionViewportPosition(1) + Kopf.sectionSize(1) - 1;
    QTest::mousePress(Kopf.viewport(), Qt::LeftButton, {}, {Rand, 8});
    QTest::mouseMove(Kopf.viewport(), {Rand + 30, 8});
    QTest::mouseMove(Kopf.viewport(), {Rand + 60, 8});
    QTest::mouseRelease(Kopf.viewport(), Qt::LeftButton, {}, {Rand + 60, 8});
    SpaltenInIndex(Eins.Programm);
    ASSERT_EQ(Eins.Programm.Ansicht.Spalten.size(), Vorher.size());
    EXPECT_GT(Eins.Programm.Ansicht.Spalten[0].Breite, Vorher[0].Breite + 500);
    EXPECT_EQ(Eins.Programm.Ansicht.Spalten[1], Vorher[1]);

    Kopf.moveSection(2, 1);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return Eins.Programm.Ansicht.Spalten[0].Nummer == Vorher[1].Nummer; }, 2000));
    EXPECT_NE(Eins.Programm.Index.Optionen.Spalten.find("5=1400=1"), std::string::npos)
        << Eins.Programm.Index.Optionen.Spalten;
    const std::string Umgestellt = Eins.Programm.Index.Optionen.Spalten;
    SpaltenInIndex(Eins.Programm);
    EXPECT_EQ(Eins.Programm.Index.Optionen.Spalten, Umgestellt) << "a second look must not turn them back";
    EXPECT_EQ(Kopf.visualIndex(1), 1);
    EXPECT_EQ(Eins.Songs().model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Titel"));
}

TEST_F(Fenster, AuswahlFührtBeschreibungUndFunktionen) {
    Lauf Eins(Welt);
    const std::string Musik = Welt.Musikordner();
    Eins.OrdnerHinzufügen(Musik);
    auto& Text = Teil<QTextBrowser>(Eins.Fenster, u"txtBeschreibung"_s);
    EXPECT_EQ(Text.toPlainText(), u"Es wurden 3 Dateien gewählt."_s);
    EXPECT_FALSE(Teil<QToolButton>(Eins.Fenster, u"cmdOrdnerÖffnen"_s).isVisible());

    Eins.Songs().setFocus();
    QTest::keyClick(&Eins.Songs(), Qt::Key_End);
    QTest::keyClick(&Eins.Songs(), Qt::Key_Home);
    ASSERT_EQ(Eins.Programm.Ansicht.Auswahl, std::vector<Satznummer>{1});
    const QString Pfad = QtText(Eins.Programm.Index.Sätze.Pfad(1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text.toPlainText().contains(Pfad); }, 3000))
        << Text.toPlainText().toStdString();
    EXPECT_TRUE(Teil<QToolButton>(Eins.Fenster, u"cmdOrdnerÖffnen"_s).isVisible());

    QFile::remove(Pfad);
    QTest::keyClick(&Eins.Songs(), Qt::Key_Down);
    QTest::keyClick(&Eins.Songs(), Qt::Key_Up);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return Text.toPlainText().contains(u"Diese Datei existiert nicht (mehr)."_s); }, 3000));

    // A selected file that still fits stays selected through a search.
    QTest::keyClick(&Eins.Songs(), Qt::Key_End);
    const auto Gewählt = Eins.Programm.Ansicht.Auswahl;
    QTest::keyClicks(&Eins.Suchfeld(), QtText(Eins.Programm.Index.Sätze.Text(Gewählt[0], FeldTitel)));
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_EQ(Eins.Songs().AuswahlLesen(), Gewählt);
}

// What a label, a box or a hint shows and says of a text that looks like markup: the text.
void AlsTextErwarten(const QString& Klasse, const QString& Text) {
    int Gezeigte = 0;
    for (QWidget* const Einer : QApplication::allWidgets()) {
        auto* const Zeile = qobject_cast<QLabel*>(Einer);
        if (Zeile == nullptr || !Zeile->isVisible() || Zeile->text() != Text ||
            !Zeile->inherits(Klasse.toLatin1()))
            continue;
        ++Gezeigte;
        EXPECT_EQ(Zeile->textFormat(), Qt::PlainText);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(Zeile)->text(QAccessible::Name), Text);
    }
    EXPECT_GT(Gezeigte, 0) << Klasse.toStdString();
}

TEST_F(Fenster, WasEineDateiEnthältIstNieAuszeichnung) {
    Lauf Eins(Welt);
    const std::string Ordner = Welt.Ordner() + "/<b>M";
    ASSERT_TRUE(std::filesystem::create_directory(Ordner));
    const std::string Titel = "<b>x</b><img src=y>&lt;";
    MusikdateiAnlegen(Ordner + "/<i>a&lt;.mp3", Titel, "<img src=x>");
    Eins.OrdnerHinzufügen(Ordner);
    EXPECT_EQ(Eins.Zelle(0, 1), u"<i>a&lt;.mp3"_s);
    EXPECT_EQ(Eins.Zelle(0, 2), QtText(Titel));
    const auto* const Tabelle = QAccessible::queryAccessibleInterface(&Eins.Songs())->tableInterface();
    EXPECT_EQ(Tabelle->cellAt(0, 2)->text(QAccessible::Name), QtText(Titel));
    AlsTextErwarten(u"QLabel"_s, u"<i>a&lt;.mp3"_s);
    auto& Text = Teil<QTextBrowser>(Eins.Fenster, u"txtBeschreibung"_s);
    const QString Pfad = QtText(Ordner + "/<i>a&lt;.mp3");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text.toPlainText().contains(Pfad); }, 3000))
        << Text.toPlainText().toStdString();
    QToolTip::showText(QPoint(5, 5), QtText(Titel), &Eins.Fenster);
    AlsTextErwarten(u"QTipLabel"_s, QtText(Titel));
    QTimer::singleShot(0, qApp, [&] {
        AlsTextErwarten(u"QLabel"_s, QtText(Titel));
        QApplication::activeModalWidget()->close();
    });
    MeldungZeigen(&Eins.Fenster, Symbol::Information, Titel);
}

TEST_F(Fenster, SchließenFragtMerktSichDieAntwortUndSpeichert) {
    {
        Lauf Eins(Welt);
        Eins.OrdnerHinzufügen(Welt.Musikordner());
        ImDialogKlicken(u"cmdAbbrechen"_s);
        EXPECT_FALSE(Eins.Fenster.close());
        EXPECT_TRUE(Eins.Fenster.isVisible());
        ImDialogKlicken(u"cmdMinimieren"_s);
        EXPECT_FALSE(Eins.Fenster.close());
        EXPECT_TRUE(Eins.Fenster.isMinimized());
        EXPECT_FALSE(Eins.Beendet);
        EXPECT_EQ(Eins.Programm.Werte.BeendenReaktion, 0);
        Eins.Fenster.showNormal();
        ImDialogKlicken(u"cmdBeenden"_s, [](QWidget& Form) {
            QTest::mouseClick(&Teil<QCheckBox>(Form, u"chkImmer"_s), Qt::LeftButton, {}, {5, 8});
        });
        EXPECT_TRUE(Eins.Fenster.close());
        EXPECT_TRUE(Eins.Beendet);
    }
    Lauf Zwei(Welt);
    EXPECT_EQ(Zwei.Zeilen(), 3);
    EXPECT_EQ(Zwei.Programm.Werte.BeendenReaktion, 2);
    EXPECT_TRUE(Zwei.Fenster.close()) << "no question any more";
}

TEST_F(Fenster, EndeDerSitzungSpeichertOhneFrageUndVerliertKeineDateien) {
    {
        Lauf Eins(Welt);
        Eins.Programm.Werte.DateiAutomatischSpeichern = 0;
        Eins.OrdnerHinzufügen(Welt.Musikordner());
        {
            // While a run is active nothing is saved; the run is asked to end first.
            const Laufsperre Sperre(Eins.Programm);
            bool Gedrängt = false;
            Eins.Fenster.Drängen = [&] { Gedrängt = true; };
            Eins.Fenster.SitzungBeenden();
            EXPECT_TRUE(Gedrängt);
            EXPECT_FALSE(Eins.Beendet);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return Eins.Beendet; }, 2000));
        EXPECT_TRUE(Eins.Person.Gefragt.empty());
    }
    Lauf Zwei(Welt);
    EXPECT_EQ(Zwei.Zeilen(), 3);
}

TEST_F(Fenster, OhneStartleisteGehtKeinFensterVerloren) {
    Welt.Werte.Schreiben("StartInTray", std::int32_t{1});
    Lauf Eins(Welt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Eins.Fenster.isVisible(); }, 5000));
    Eins.Programm.Werte.BeendenReaktion = 3;
    EXPECT_FALSE(Eins.Fenster.close());
    EXPECT_TRUE(Eins.Fenster.isVisible());
    EXPECT_TRUE(Eins.Fenster.isMinimized());
}

TEST_F(Fenster, AbgelegteDateienMitFremdenNamenKommenHinzu) {
    Lauf Eins(Welt);
    const std::string Pfad = Welt.Ordner() + "/M\xfcller #1?.mp3";  // Latin-1, no UTF-8
    MusikdateiAnlegen(Pfad, "Lied", "Wer");
    QMimeData Daten;
    Daten.setData(u"text/uri-list"_s, UriListe({Pfad, Welt.Ordner() + "/fehlt.mp3"}));
    QDragEnterEvent Eintritt({50, 50}, Qt::CopyAction, &Daten, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Eins.Fenster, &Eintritt);
    QDropEvent Ereignis({50, 50}, Qt::CopyAction, &Daten, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Eins.Fenster, &Ereignis);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Eins.Zeilen() == 1; }, 2000));
    EXPECT_EQ(Eins.Programm.Index.Sätze.Pfad(1), Pfad);
}

}  // namespace
}  // namespace liedwerk::test
