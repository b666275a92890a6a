// The forms of the reminders, driven by keyboard and mouse.
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTreeView>

#include "fensterlauf.h"
#include "ui/qt/frmterminueberwachungtermin.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

struct Terminformen : ::testing::Test {
    Umgebung Welt;
    Lauf Eins{Welt};
    Terminliste& Termine() { return Eins.Programm.Index.Termine; }
};

TEST_F(Terminformen, EreignisWirdAngelegtGeändertUndGelöscht) {
    QTimer::singleShot(0, qApp, [&] {
        QWidget& Liste = *QApplication::activeModalWidget();
        ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Form) {
            QTest::keyClick(&Form, Qt::Key_Return);
            EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte geben Sie eine Beschreibung des Ereignisses ein.");
            QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtBeschreibung"_s), u"Platte von Lea"_s);
            QTest::mouseClick(&Teil<QCheckBox>(Form, u"chkWiederkehrend"_s), Qt::LeftButton);
            Teil<QComboBox>(Form, u"cboWiederkehrend"_s).setCurrentText(u"Monatsweise"_s);
            QTest::keyClick(&Teil<QSpinBox>(Form, u"txtIntervall"_s), Qt::Key_Up);
        });
        QTest::mouseClick(&Teil<QPushButton>(Liste, u"cmdHinzufügen"_s), Qt::LeftButton);
        ASSERT_EQ(Termine().size(), 1U);
        const Termin Neuer = Termine()[0];
        EXPECT_EQ(Neuer.Kategorie, "Erinnerung");
        EXPECT_EQ(Neuer.BenachrichtigenAm, "21.11.2026 13:00:00");
        EXPECT_EQ(Neuer.Einheit, "m");
        EXPECT_EQ(Neuer.Intervall, 2);
        EXPECT_EQ(Teil<QLabel>(Liste, u"lblAnzahl"_s).text(), u"1 Ereignis(se) eingerichtet"_s);
        EXPECT_TRUE(Eins.Programm.Index.IndexGeändert);

        auto& Zeilen = Teil<QTreeView>(Liste, u"lstEreignisse"_s);
        ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Form) {
            EXPECT_EQ(Teil<QSpinBox>(Form, u"txtIntervall"_s).value(), 2);
            Teil<QLineEdit>(Form, u"txtAnwendung"_s).setText(u"/gibt/es/nicht"_s);
            QTest::keyClick(&Form, Qt::Key_Return);
            EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Das Programm '/gibt/es/nicht'"));
            Teil<QLineEdit>(Form, u"txtAnwendung"_s).clear();
            QTest::mouseClick(&Teil<QCheckBox>(Form, u"chkDatum"_s), Qt::LeftButton);
            auto& Text = Teil<QPlainTextEdit>(Form, u"txtMeldungstext"_s);
            Text.insertPlainText(u"Platte\nzurück"_s);
            QTest::keyClick(&Text, Qt::Key_Return);
            QTest::keyClicks(&Text, u"geben"_s);
            EXPECT_EQ(Text.toPlainText(), u"Platte zurück geben"_s) << "as the index will hold it";
            // The event fires while the form is open.
            Termin Gemeldet = Termine()[0];
            Gemeldet.BenachrichtigenAm = "21.01.2027 13:00:00";
            Termine().Setzen(0, Gemeldet);
        });
        QTest::keyClick(&Zeilen, Qt::Key_Return);
        EXPECT_EQ(Zeilen.model()->index(0, 1).data().toString(), u"21.11.2026 13:00:00"_s);
        EXPECT_EQ(Termine()[0].BenachrichtigenAm, "21.01.2027 13:00:00") << "no old notice comes back";
        Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
        QTest::mouseClick(&Teil<QPushButton>(Liste, u"cmdLöschen"_s), Qt::LeftButton);
        EXPECT_EQ(Zeilen.model()->rowCount(), 1);
        QTest::mouseClick(&Teil<QPushButton>(Liste, u"cmdLöschen"_s), Qt::LeftButton);
        EXPECT_EQ(Zeilen.model()->rowCount(), 0);
        EXPECT_FALSE(Teil<QPushButton>(Liste, u"cmdÄndern"_s).isEnabled());
        QTest::keyClick(&Liste, Qt::Key_Escape);
    });
    Teil<QAction>(Eins.Fenster, u"mnuEreignisse"_s).trigger();
    EXPECT_TRUE(Termine().empty());
}

TEST_F(Terminformen, MeldungFragtNachDemNächstenMal) {
    Termine() = {{"Ausleihe", "", 1, "", "", "20.11.2026 08:00:00", "", "d", 1, 0, "Bring sie zurück!", ""}};
    ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Form) {
        EXPECT_EQ(Teil<QLabel>(Form, u"lblBannerText"_s).text(), u"Bring sie zurück!"_s);
        EXPECT_EQ(Teil<QLabel>(Form, u"lblNächster"_s).text(),
                  u"Die nächste Benachrichtigung erfolgt am 22.11.2026 08:00:00."_s);
        auto& Zeit = Teil<QLineEdit>(Form, u"txtZeit"_s);
        Zeit.setFocus();
        Zeit.selectAll();
        QTest::keyClicks(&Zeit, u"bald"_s);
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Bitte geben Sie ein gültiges Datum ein"));
        Zeit.clear();
        QTest::keyClicks(&Zeit, u"24.12.2026 18:00"_s);
    });
    // The clock of the reminders is not waited for.
    QMetaObject::invokeMethod(&Teil<QTimer>(Eins.Fenster, u"tmrEreignisse"_s), "timeout");
    EXPECT_EQ(Termine()[0].BenachrichtigenAm, "24.12.2026 18:00:00");
    EXPECT_TRUE(Teil<QTimer>(Eins.Fenster, u"tmrEreignisse"_s).isActive());
}

TEST_F(Terminformen, MeldungSchließtSichNachIhrerDauer) {
    frmTerminÜberwachungTermin Form({1, "Kurz", "22.11.2026 08:00:00", 1}, Eins.Person, nullptr);
    Teil<QRadioButton>(Form, u"optBenachrichtigenWieHinterlegt"_s).setChecked(true);
    EXPECT_EQ(Form.exec(), QDialog::Rejected);
    EXPECT_EQ(Form.Antwort().Wahl, Terminwahl::WieHinterlegt);
}

TEST_F(Terminformen, VerpassteWerdenEinmalAufgelistet) {
    Termine() = {{"Konzert", "Termin", 1, "", "", "20.11.2026 08:00:00", "", "", 0, 0, "", ""}};
    ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Form) {
        EXPECT_EQ(Form.windowTitle(), u"Verpasste Ereignisse"_s);
        const auto& Modell = *Teil<QTreeView>(Form, u"lstEreignisse"_s).model();
        EXPECT_EQ(Modell.columnCount(), 5);
        EXPECT_EQ(Modell.index(0, 4).data().toString(), u"Fehler"_s);
    });
    Eins.Programm.TerminePrüfen();
    Eins.Programm.TerminePrüfen();
    EXPECT_EQ(Termine()[0].Erledigt, "1");
}

}  // namespace
}  // namespace liedwerk::test
