// Completing, sorting, the value tree and the batch search.
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <random>

#include "core/sortierlauf.h"
#include "core/suchlauf.h"
#include "tests/ui/fensterlauf.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Suchhilfen : public testing::Test {
  protected:
    Suchhilfen() : Eins(Welt) { Eins.OrdnerHinzufügen(Welt.Musikordner()); }
    void FeldWählen(const QString& Name) {
        Teil<QComboBox>(Eins.Fenster, u"cboSuche"_s).setCurrentText(Name);
    }
    QString Ausgewählt() { return Eins.Suchfeld().lineEdit()->selectedText(); }
    std::string Titel(Satznummer Nummer) { return Eins.Programm.Index.Sätze.Text(Nummer, FeldTitel); }
    void KopfKlicken(int Spalte) {
        QHeaderView& Kopf = *Eins.Songs().header();
        QTest::mouseClick(Kopf.viewport(), Qt::LeftButton, {},
                          {Kopf.sectionViewportPosition(Spalte) + Kopf.sectionSize(Spalte) / 2, 8});
    }

    Umgebung Welt;
    Lauf Eins;
};

TEST_F(Suchhilfen, TippenVervollständigtUndLöschenLässtEsGelöscht) {
    FeldWählen(u"Titel"_s);
    EXPECT_EQ(Eins.Suchfeld().count(), 3);
    QTest::keyClicks(&Eins.Suchfeld(), u"so"_s);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Sommerregen"_s);
    EXPECT_EQ(Ausgewählt(), u"mmerregen"_s);
    QTest::keyClicks(&Eins.Suchfeld(), u"m"_s);  // typed over the offered tail
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Sommerregen"_s);
    EXPECT_EQ(Ausgewählt(), u"merregen"_s);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Backspace);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Som"_s);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste.front().Begriff, "Som");
    EXPECT_EQ(Eins.Zeilen(), 1);

    Eins.Programm.Werte.AutoCompleteVerwenden = 0;
    QTest::keyClicks(&Eins.Suchfeld(), u"m"_s);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Somm"_s);
    FeldWählen(u"(Standardsuche)"_s);
    EXPECT_EQ(Eins.Suchfeld().count(), 0);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Somm"_s) << "the text outlives its list";
    Eins.Programm.Werte.Auswahlliste = 0;
    FeldWählen(u"Interpret"_s);
    EXPECT_EQ(Eins.Suchfeld().count(), 0);
}

TEST_F(Suchhilfen, EintragDerAuswahllisteWirdGenauSoGesucht) {
    Welt.Musikordner();
    MusikdateiAnlegen(Welt.Ordner() + "/Musik/vier.mp3", "Sommer", "Lea Sommer");
    Eins.OrdnerHinzufügen(Welt.Ordner() + "/Musik");
    FeldWählen(u"Titel"_s);
    const int Kurz = Eins.Suchfeld().findText(u"Sommer"_s);
    ASSERT_GE(Kurz, 0);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Down, Qt::AltModifier);
    auto& Liste = *static_cast<QListView*>(Eins.Suchfeld().view());
    ASSERT_TRUE(Liste.isVisible());
    Liste.setCurrentIndex(Liste.model()->index(Kurz, 0));
    QTest::keyClick(&Liste, Qt::Key_Return);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Sommer"_s) << "not the longer one that begins with it";
    ASSERT_TRUE(QTest::qWaitFor([&] { return Eins.Zeilen() == 2; }, 3000));
}

TEST_F(Suchhilfen, EineMillionWerteÖffnetSichSofort) {
    Suchfeld Feld(nullptr);
    Feld.resize(300, 30);
    Feld.show();
    std::vector<std::string> Werte;
    for (int Nummer = 0; Nummer < 1000000; ++Nummer)
        Werte.push_back("Wert " + std::to_string(Nummer));
    QElapsedTimer Uhr;
    Uhr.start();
    Feld.ListeSetzen(std::move(Werte));
    Feld.showPopup();
    QTest::qWait(1);
    EXPECT_TRUE(Feld.view()->isVisible());
    EXPECT_EQ(Feld.findText(u"Wert 999999"_s), 999999);
    EXPECT_LT(Uhr.elapsed(), 20000);
    Feld.hidePopup();
}

TEST_F(Suchhilfen, KopfklickSortiertUndDieAuswahlFolgtIhrenDateien) {
    // Order by file name, with one file selected.
    Eins.Songs().setFocus();
    Eins.Songs().setCurrentIndex(Eins.Songs().model()->index(0, 1));
    const std::string Gewählt = Titel(Eins.Songs().AuswahlLesen().at(0));
    std::vector<std::string> Erwartet = {"Stille Wasser", "Sommerregen", "Morgenlicht"};
    bool Gezeigt = false;
    KopfKlicken(2);
    QTimer::singleShot(0, qApp, [&] {
        QWidget& Form = *QApplication::activeModalWidget();
        Gezeigt = Form.objectName() == u"frmSortieren"_s;
        auto& Erste = Teil<QComboBox>(Form, u"cboSpalte(0)"_s);
        EXPECT_EQ(Erste.currentText(), u"Titel"_s);
        auto& Dritte = Teil<QComboBox>(Form, u"cboSpalte(2)"_s);
        Dritte.setCurrentText(u"Album"_s);
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte wählen Sie die Sortier-Kriterien nacheinander aus.");
        EXPECT_TRUE(Form.isVisible());
        QTest::keyClick(&Dritte, Qt::Key_Home);
        QTest::mouseClick(&Teil<QRadioButton>(Form, u"optAbsteigend"_s), Qt::LeftButton, {}, {5, 8});
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return Gezeigt; }, 2000));
    EXPECT_EQ((std::vector<std::string>{Titel(1), Titel(2), Titel(3)}), Erwartet);
    EXPECT_EQ(Eins.Zelle(0, 2), u"Stille Wasser"_s);
    ASSERT_EQ(Eins.Songs().AuswahlLesen().size(), 1u);
    EXPECT_EQ(Titel(Eins.Songs().AuswahlLesen()[0]), Gewählt);
    EXPECT_EQ(Eins.Person.Status.back(), "Der Index wurde sortiert");
    EXPECT_EQ(Eins.Person.Offen, 0);

    // A cancelled form changes nothing; a head that is dragged sorts nothing.
    QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    Teil<QAction>(Eins.Fenster, u"mnuSortieren"_s).trigger();
    EXPECT_EQ(Titel(1), Erwartet[0]);
    QHeaderView& Kopf = *Eins.Songs().header();
    const int Links = Kopf.sectionViewportPosition(1) + 30;
    const int Rechts = Kopf.sectionViewportPosition(2) + Kopf.sectionSize(2) - 20;
    QTest::mousePress(Kopf.viewport(), Qt::LeftButton, {}, {Links, 8});
    QTest::mouseMove(Kopf.viewport(), {Links + 40, 8});
    QTest::mouseMove(Kopf.viewport(), {Rechts, 8});
    QTest::mouseRelease(Kopf.viewport(), Qt::LeftButton, {}, {Rechts, 8});
    QTest::qWait(10);
    EXPECT_EQ(Kopf.visualIndex(1), 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Suchhilfen, GroßeAuswahlÜberstehtSucheSortierungUndAbbruch) {
    constexpr Satznummer Anzahl = 200'000;
    Katalog& Index = Eins.Programm.Index;
    Liste& Ansicht = Eins.Programm.Ansicht;
    std::mt19937 Zufall(1);
    while (Index.IndexAnzahl() < Anzahl) {
        Datensatz Satz;
        Satz.HatId3v1 = TagVorhanden;
        Satz.Titel = "Lied " + std::to_string(Zufall() % 50'000);
        SatzAnhängen(Index, "/Musik/" + std::to_string(Index.IndexAnzahl()) + ".mp3", Satz);
    }
    SucheLöschen(Eins.Programm);
    // Every second row: the greatest number of pieces that a selection can fall into.
    Ansicht.Auswahl.clear();
    for (Satznummer Nummer = 2; Nummer <= Anzahl; Nummer += 2)
        Ansicht.Auswahl.push_back(Nummer);
    Eins.Fenster.ListeZeigen();
    const auto Pfade = [&](bool NurGewählte) {
        std::vector<std::string> Alle;
        if (NurGewählte) {
            for (const Satznummer Nummer : Eins.Songs().AuswahlLesen())
                Alle.push_back(Index.Sätze.Pfad(Nummer));
        } else {
            for (Satznummer Nummer = 1; Nummer <= Anzahl; ++Nummer)
                Alle.push_back(Index.Sätze.Pfad(Nummer));
        }
        std::sort(Alle.begin(), Alle.end());
        return Alle;
    };
    const auto Vorher = Pfade(false);
    const auto Gewählte = Pfade(true);
    ASSERT_EQ(Gewählte.size(), Anzahl / 2);
    QElapsedTimer Uhr;
    Uhr.start();
    SucheAktualisieren(Eins.Programm);
    EXPECT_LT(Uhr.elapsed(), 20000);

    const std::vector<std::string> Kriterien = {"Titel", "Dateiname"};
    // Cancelled while keys are read, while records move, in the second pass, and not at all.
    for (const std::int64_t Abbruch : {2, 20, 30, 0}) {
        Eins.Person.AbbruchBei = Abbruch == 0 ? 0 : Eins.Person.Zeigungen + Abbruch;
        Uhr.start();
        SortierenLauf(Eins.Programm, Kriterien, Abbruch == 20);
        EXPECT_LT(Uhr.elapsed(), 20000) << Abbruch;
        EXPECT_EQ(Pfade(false), Vorher) << Abbruch;
        EXPECT_EQ(Pfade(true), Gewählte) << Abbruch;
        EXPECT_EQ(Eins.Person.Offen, 0);
        RecordProperty("Millisekunden" + std::to_string(Abbruch), static_cast<int>(Uhr.elapsed()));
    }
    EXPECT_EQ(Titel(Anzahl), "Stille Wasser");
}

TEST_F(Suchhilfen, WertebaumWirdStufeUmStufeZuAbfragen) {
    QTimer::singleShot(0, qApp, [&] {
        QWidget& Auflistung = *QApplication::activeModalWidget();
        QTimer::singleShot(0, qApp, [&] {
            QWidget& Form = *QApplication::activeModalWidget();
            auto& Baum = Teil<QTreeView>(Form, u"treListe"_s);
            EXPECT_EQ(Baum.model()->rowCount(), 10);
            QTest::keyClick(&Form, Qt::Key_Return);
            EXPECT_EQ(Eins.Person.Meldungen.back(),
                      "Die aktuelle Auswahl kann nicht in eine Such-Abfrage umgewandelt werden.");
            Eins.Person.AbbruchBei = Eins.Person.Zeigungen + 1;
            QTest::keyClick(&Baum, Qt::Key_Right);  // opens "Interpret", which is cancelled
            EXPECT_FALSE(Baum.isExpanded(Baum.currentIndex()));
            Eins.Person.AbbruchBei = 0;
            QTest::keyClick(&Baum, Qt::Key_Right);
            EXPECT_TRUE(Baum.isExpanded(Baum.currentIndex()));
            EXPECT_EQ(Baum.model()->rowCount(Baum.currentIndex()), 2);
            QTest::keyClick(&Baum, Qt::Key_Right);
            EXPECT_EQ(Baum.currentIndex().data().toString(), u"Anna Berg"_s);
            QTest::keyClick(&Baum, Qt::Key_Right);  // the other fields below the value
            EXPECT_EQ(Baum.model()->rowCount(Baum.currentIndex()), 9);
            QTest::keyClick(&Form, Qt::Key_Return);
            EXPECT_FALSE(Form.isVisible());
        });
        QTest::mouseClick(&Teil<QPushButton>(Auflistung, u"cmdSucheNeuErweitert"_s), Qt::LeftButton);
        QTest::keyClick(&Auflistung, Qt::Key_Return);
    });
    Teil<QAction>(Eins.Fenster, u"mnuSucheMehr"_s).trigger();
    ASSERT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 2u);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste[1], (Suchabfrage{"Interpret", "Anna Berg", "0000"}));
    EXPECT_EQ(Eins.Zeilen(), 2);
}

TEST_F(Suchhilfen, MehrfachsucheZeigtJeZeileWasDaIst) {
    Eins.Person.Antworten = {Antwort::Ja};
    QTimer::singleShot(0, qApp, [&] {
        QWidget& Auflistung = *QApplication::activeModalWidget();
        QTimer::singleShot(0, qApp, [&] {
            QWidget& Form = *QApplication::activeModalWidget();
            auto& Verarbeiten = Teil<QPushButton>(Form, u"cmdVerarbeiten"_s);
            QTest::mouseClick(&Verarbeiten, Qt::LeftButton);
            EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Ihre Eingabe konnte nicht verarbeitet"));
            auto& Text = Teil<QPlainTextEdit>(Form, u"txtAbfragen"_s);
            QTest::keyClicks(&Text, u"Anna - Sommerregen"_s);
            QTest::keyClick(&Text, Qt::Key_Return);
            QTest::keyClick(&Text, Qt::Key_Return);
            QTest::keyClicks(&Text, u"Anna"_s);
            QTest::keyClick(&Text, Qt::Key_Return);
            QTest::keyClicks(&Text, u"-"_s);
            QTest::mouseClick(&Verarbeiten, Qt::LeftButton);
            auto& Liste = Teil<QTreeView>(Form, u"lstResultate"_s);
            const auto Zelle = [&](int Zeile, int Spalte) {
                return Liste.model()->index(Zeile, Spalte).data().toString();
            };
            ASSERT_EQ(Liste.model()->rowCount(), 3);
            EXPECT_EQ(Zelle(0, 0), u"Anna Sommerregen"_s);
            EXPECT_EQ(Zelle(0, 1), u"zwei.mp3"_s);
            EXPECT_EQ(Zelle(1, 1), u"2 Resultate"_s);
            EXPECT_EQ(Zelle(2, 1), u"(Suche ist ungültig)"_s);
            auto& Details = Teil<QTreeView>(Form, u"lstResultateDetails"_s);
            EXPECT_EQ(Details.model()->rowCount(), 1);
            QTest::keyClick(&Liste, Qt::Key_Down, Qt::ShiftModifier);
            EXPECT_EQ(Details.model()->rowCount(), 2);
            QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdHauptfenster"_s), Qt::LeftButton);
        });
        QTest::mouseClick(&Teil<QPushButton>(Auflistung, u"cmdSucheTestbasiert"_s), Qt::LeftButton);
    });
    Teil<QAction>(Eins.Fenster, u"mnuSucheMehr"_s).trigger();
    ASSERT_EQ(Eins.Zeilen(), 2) << "a file of two lines is listed once";
    EXPECT_EQ(Eins.Zelle(0, 2), u"Sommerregen"_s);
}

}  // namespace
}  // namespace liedwerk::test
