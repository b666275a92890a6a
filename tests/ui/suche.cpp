// The search room: queries, letters, and how the search row follows them.
#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <utility>

#include "core/suchlauf.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/fensteroberflaeche.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Suchraum : public testing::Test {
  protected:
    Suchraum() : Eins(Welt) { Eins.OrdnerHinzufügen(Welt.Musikordner()); }
    void Auslösen(const QString& Name) { Teil<QAction>(Eins.Fenster, Name).trigger(); }
    // Acts as the person in the next modal form.
    static void ImDialog(const QString& Name, const std::function<void(QWidget&)>& Handeln) {
        QTimer::singleShot(0, qApp, [Name, Handeln] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            EXPECT_EQ(Form->objectName(), Name);
            // Shortcuts belong to the window that has the keyboard.
            ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
            Handeln(*Form);
        });
    }
    // Fills the open query form by keyboard and leaves it with the Enter key.
    static void AbfrageTippen(QWidget& Form, const QString& Begriff, int Feld, int Wo) {
        QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtSucheBegriff"_s), Begriff);
        auto& Art = Teil<QListWidget>(Form, u"lstSucheArt"_s);
        for (int Schritt = 0; Schritt < Feld; ++Schritt)
            QTest::keyClick(&Art, Qt::Key_Down);
        for (int Schritt = 0; Schritt < Wo; ++Schritt)
            QTest::keyClick(&Teil<QComboBox>(Form, u"cboSucheWo"_s), Qt::Key_Down);
        QTest::keyClick(&Form, Qt::Key_Return);
    }
    QComboBox& Feldwahl() { return Teil<QComboBox>(Eins.Fenster, u"cboSuche"_s); }

    Umgebung Welt;
    Lauf Eins;
};

TEST_F(Suchraum, ZweiAbfragenSperrenDieZeileUndEineGibtSieZurück) {
    Eins.Programm.Werte.SucheDirektStarten = 1;
    QTest::keyClicks(&Eins.Suchfeld(), u"Anna"_s);  // still waits when the command comes
    ImDialog(u"frmSucheErweitertHinzufügen"_s, [](QWidget& Form) { AbfrageTippen(Form, u"Sommer"_s, 5, 2); });
    Auslösen(u"mnuSucheHinzufügen"_s);
    ASSERT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 2u);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste[0], (Suchabfrage{"(Standardsuche)", "Anna", "0000"}));
    EXPECT_EQ(Eins.Programm.Abfragen.Liste[1], (Suchabfrage{"Titel", "Sommer", "0020"}));
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_FALSE(Eins.Suchfeld().isEnabled());
    EXPECT_FALSE(Feldwahl().isEnabled());
    EXPECT_EQ(Feldwahl().currentIndex(), -1);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"(Mehrere Abfragen)"_s);
    EXPECT_FALSE(Eins.Listenuhr().isActive());

    // With several queries "ändern" means their list; the first line goes by the Del key, Esc closes.
    Eins.Person.Antworten = {Antwort::Ja};
    ImDialog(u"frmSucheErweitert"_s, [](QWidget& Form) {
        auto& Liste = Teil<QListWidget>(Form, u"lstSucheAuflistung"_s);
        EXPECT_EQ(Liste.item(1)->text(), u"Suche nach 'Sommer' im Feld 'Titel'"_s);
        QTest::keyClick(&Liste, Qt::Key_Delete);
        EXPECT_EQ(Liste.count(), 1);
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuSucheÄndern"_s);
    EXPECT_TRUE(Eins.Suchfeld().isEnabled());
    EXPECT_EQ(Feldwahl().currentText(), u"Titel"_s);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Sommer"_s);
    EXPECT_EQ(Eins.Zeilen(), 1);
    QTest::mouseClick(&Teil<QToolButton>(Eins.Fenster, u"cmdSucheLöschen"_s), Qt::LeftButton);
    EXPECT_EQ(Eins.Zeilen(), 3);
}

TEST_F(Suchraum, ÄndernZeigtDieWahlUndÜberschreibtNurWennGewollt) {
    Eins.Programm.Abfragen.Liste = {{"Titel", "Regen", "1131"}};
    ImDialog(u"frmSucheErweitertHinzufügen"_s, [](QWidget& Form) {
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtSucheBegriff"_s).text(), u"Regen"_s);
        EXPECT_EQ(Teil<QListWidget>(Form, u"lstSucheArt"_s).currentItem()->text(), u"Titel"_s);
        EXPECT_EQ(Teil<QComboBox>(Form, u"cboSucheWo"_s).currentText(), u"Muss mit Begriff ENDEN"_s);
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Eins.Fenster.SuchzeileLeeren();
    Teil<QComboBox>(Eins.Fenster, u"cboSuche"_s).setCurrentText(u"Titel"_s);
    Eins.Suchfeld().setEditText(u"Regen"_s);
    Auslösen(u"mnuSucheÄndern"_s);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste, (std::vector<Suchabfrage>{{"Titel", "Regen", "1131"}}));

    ImDialog(u"frmSucheErweitertHinzufügen"_s, [](QWidget& Form) {
        QTest::keyClick(&Teil<QCheckBox>(Form, u"chkHinzu"_s), Qt::Key_Space);
        QTest::keyClick(&Teil<QCheckBox>(Form, u"chkDirektStarten"_s), Qt::Key_Space);
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Auslösen(u"mnuSucheÄndern"_s);
    EXPECT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 2u);
    EXPECT_EQ(Eins.Programm.Werte.SucheDirektStarten, 1);
}

TEST_F(Suchraum, OhneAbfrageSchließtDieAuflistungNicht) {
    Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
    ImDialog(u"frmSucheErweitert"_s, [this](QWidget& Form) {
        auto& Löschen = Teil<QPushButton>(Form, u"cmdSucheLöschen"_s);
        QTest::mouseClick(&Löschen, Qt::LeftButton);
        EXPECT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 1u) << "the answer was no";
        QTest::mouseClick(&Löschen, Qt::LeftButton);
        EXPECT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 0u);
        QTest::mouseClick(&Löschen, Qt::LeftButton);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte wählen Sie eine Suchaufabe.");
        QTest::keyClick(&Form, Qt::Key_Escape);
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdOk"_s), Qt::LeftButton);
        EXPECT_TRUE(Form.isVisible());
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte fügen Sie mindestens eine Such-Abfrage hinzu.");
        ImDialog(u"frmSucheErweitertHinzufügen"_s, [](QWidget& Neu) { AbfrageTippen(Neu, u"Lea"_s, 4, 0); });
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdSucheNeu"_s), Qt::LeftButton);
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_FALSE(Form.isVisible());
    });
    Auslösen(u"mnuSucheMehr"_s);
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"Lea"_s);
}

TEST_F(Suchraum, AuflistungOhneAbfrageHältDasEndeDerSitzungNichtAuf) {
    Fensteroberfläche Echte;
    bool Gemeldet = false;
    Eins.Fenster.Drängen = [&] {
        // As the form does when it shall go: a message that waits for an answer.
        if (!std::exchange(Gemeldet, true)) Echte.Melden(Symbol::Information, "Bitte fügen Sie...");
        Echte.Drängen();
    };
    Eins.Person.Antworten = {Antwort::Ja};
    ImDialog(u"frmSucheErweitert"_s, [&](QWidget& Form) {
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdSucheLöschen"_s), Qt::LeftButton);
        ASSERT_EQ(Eins.Programm.Abfragen.SucheAnzahl(), 0u);
        Eins.Fenster.SitzungBeenden();
        EXPECT_FALSE(Form.isVisible());
    });
    Auslösen(u"mnuSucheMehr"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Eins.Beendet; }, 2000));
}

TEST_F(Suchraum, BuchstabeSuchtImGewähltenFeld) {
    auto& Leiste = Teil<QWidget>(Eins.Fenster, u"fraBuchstaben"_s);
    const auto Buchstabe = [&](const QString& Zeichen) -> QToolButton& {
        return Teil<QToolButton>(Leiste, u"cmdSucheBuchstabe(%1)"_s.arg(Zeichen[0].unicode() - 'A' + 1));
    };
    QTest::mouseClick(&Buchstabe(u"L"_s), Qt::LeftButton);
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_EQ(Feldwahl().currentText(), u"Interpret"_s);
    EXPECT_EQ(Eins.Suchfeld().currentText(), u"L"_s);
    EXPECT_EQ(Eins.Programm.Abfragen.Liste, (std::vector<Suchabfrage>{{"Interpret", "L", "0020"}}));

    // The tabulator finds the row once, letters and arrows go on from there.
    Teil<QAction>(Leiste, u"mnu_Buchstabensuche_Auswahl(5)"_s).trigger();
    Buchstabe(u"A"_s).setFocus();
    QTest::keyClick(&Buchstabe(u"A"_s), Qt::Key_R);
    QTest::keyClick(&Buchstabe(u"R"_s), Qt::Key_Right);
    EXPECT_TRUE(Buchstabe(u"S"_s).hasFocus());
    QTest::keyClick(&Buchstabe(u"S"_s), Qt::Key_Space);
    EXPECT_EQ(Feldwahl().currentText(), u"Titel"_s);
    EXPECT_EQ(Eins.Zeilen(), 2);

    Teil<QAction>(Leiste, u"mnu_Buchstabensuche_Auswahl(5)"_s).trigger();  // takes the tick away
    QTest::keyClick(&Buchstabe(u"S"_s), Qt::Key_Return);
    EXPECT_EQ(Eins.Person.Meldungen.back(), "Die Suche konnte nicht bestimmt werden.");
    Auslösen(u"mnuSchnellsuche"_s);
    EXPECT_FALSE(Leiste.isVisible());
    EXPECT_EQ(Eins.Programm.Werte.SchnellsucheZeigen, 0);
}

}  // namespace
}  // namespace liedwerk::test
