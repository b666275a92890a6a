// The forms of audio CDs, driven by keyboard and mouse: read, ask, edit, keep, read back.
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTreeWidget>

#include "fensterlauf.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/netz.h"
#include "ui/qt/frmcddaten.h"
#include "ui/qt/frmcddatencdwaehlen.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

constexpr auto Gelesen =
    "210 folk 11111111 xmcd\r\nDTITLE=Anna Berg / morgen\r\nDYEAR=1999\r\nDGENRE=Folk\r\nTTITLE0=Früh\r\n"
    "TTITLE1=Mittag\r\nEXTD=YEAR: 1999\\nLive\r\n.\r\n";

struct CDFormen : ::testing::Test {
    CDFormen() {
        QDir().mkpath(QtText(Laufwerk));
        for (const char* const Name : {"/Track01.cda", "/Track02.cda", "/Track03.cda"})
            std::ofstream(Laufwerk + Name) << "x";
        Welt.Drives.Liste[Laufwerk + "/"] = {Laufwerksart::CdRom, "", true};
        CDs.Liste[Laufwerk] = {0, {}, {{150, false}, {15000, false}, {60000, false}}, 210000};
    }
    Umgebung& MitCDs() {
        Welt.CDs = &CDs;
        Welt.Netz = &Netz;
        return Welt;
    }
    // Does this in the form that the menu opens.
    void ImMenü(const QString& Aktion, const std::function<void(QWidget&)>& Tun) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            Tun(*Form);
            if (Form->isVisible()) QTest::keyClick(Form, Qt::Key_Escape);
        });
        Teil<QAction>(Eins.Fenster, Aktion).trigger();
    }
    static void Klicken(QWidget& Form, const QString& Name) {
        QTest::mouseClick(&Teil<QPushButton>(Form, Name), Qt::LeftButton);
    }
    void Einlesen(QWidget& Form) {
        Teil<QComboBox>(Form, u"cboLaufwerk"_s).setEditText(QtText(Laufwerk));
        Klicken(Form, u"cmdEinlesen"_s);
    }
    static QString Titel(QWidget& Form, int Zeile) {
        return Teil<QTableWidget>(Form, u"lstTitel"_s).item(Zeile, 1)->text();
    }
    // Types a title from the row on, Enter behind it.
    static void Tippen(QTableWidget& Liste, int Zeile, const QString& Text) {
        Liste.setCurrentCell(Zeile, 1);
        QTest::keyClick(&Liste, Qt::Key_F2);
        auto& Feld = Teil<QLineEdit>(*Liste.viewport(), {});
        Feld.selectAll();
        QTest::keyClicks(&Feld, Text);
        QTest::keyClick(&Feld, Qt::Key_Return);
        QTest::qWait(20);  // the view takes the text, then goes on
    }

    Umgebung Welt;
    speicher::CDs CDs;
    speicher::Netz Netz;
    std::string Laufwerk = Welt.Ordner() + "/cd";
    Lauf Eins{MitCDs()};
    std::string& Meldung() { return Eins.Person.Meldungen.back(); }
};

TEST_F(CDFormen, CdWirdGelesenAbgefragtGeändertUndGemerkt) {
    const std::string Datei = Eins.Programm.Dienst.Programmordner + "/CDDB/";
    std::string ID;
    ImMenü(u"mnuCDDaten"_s, [&](QWidget& Form) {
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdOk"_s).isEnabled());
        Teil<QComboBox>(Form, u"cboLaufwerk"_s).setEditText(u"/gibt/es/nicht"_s);
        Klicken(Form, u"cmdEinlesen"_s);
        EXPECT_TRUE(Meldung().starts_with("Die Audio-CD in '/gibt/es/nicht' konnte nicht gelesen werden."));
        Einlesen(Form);
        ID = Eins.Programm.CD.Daten.ID;
        EXPECT_EQ(Titel(Form, 2), u"Titel 3"_s);
        EXPECT_EQ(Eins.Person.Meldungen.size(), 1U) << "nobody asks without a server";

        Eins.Programm.Werte.CDDBServer = "cd.example";
        Eins.Programm.Werte.CDDBEmail = "anna@example.org";
        Netz.Antworten = {"211 Mehrere\r\nrock 1 A / B\r\nfolk 11111111 Anna Berg / morgen\r\n.\r\n",
                          Gelesen};
        ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Wahl) {
            auto& Liste = Teil<QListWidget>(Wahl, u"lstCDs"_s);
            Liste.clearSelection();
            QTest::keyClick(&Wahl, Qt::Key_Return);
            EXPECT_EQ(Meldung(), "Bitte wählen Sie einen Eintrag aus der Liste.");
            Liste.setCurrentRow(0);
            QTest::keyClick(&Liste, Qt::Key_Down);
        });
        Klicken(Form, u"cmdAbfragen"_s);
        EXPECT_NE(Netz.Gestellt.back().Url.find("cddb+read+folk+11111111"), std::string::npos);
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtAlbum"_s).text(), u"morgen"_s);
        EXPECT_EQ(Teil<QComboBox>(Form, u"cboGenre"_s).currentText(), u"Pop"_s)
            << "what nobody has chosen is the same as in a first reading";
        EXPECT_EQ(Teil<QComboBox>(Form, u"cboKategorie"_s).currentText(), u"folk"_s);
        EXPECT_EQ(Teil<QPlainTextEdit>(Form, u"txtErweitert"_s).toPlainText(), u"Live"_s);

        auto& Liste = Teil<QTableWidget>(Form, u"lstTitel"_s);
        ASSERT_EQ(Liste.rowCount(), 3) << "the server knows two of the three";
        Tippen(Liste, 1, u"Mittags"_s);
        EXPECT_EQ(Liste.currentRow(), 2) << "Enter goes on to the next title";
        Tippen(Liste, 2, u"Abends"_s);
        Klicken(Form, u"cmdTauschen"_s);
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtInterpret"_s).text(), u"morgen"_s);
        Klicken(Form, u"cmdTauschen"_s);
        ImDialogKlicken(u"cmdSchließen"_s, [](QWidget& Log) {
            EXPECT_TRUE(
                Teil<QPlainTextEdit>(Log, u"txtProtokoll"_s).toPlainText().contains(u"cddb+read+folk"_s));
        });
        Klicken(Form, u"cmdLog"_s);
        // A folder that cannot be made keeps the form open with all that is in it.
        std::ofstream(Eins.Programm.Dienst.Programmordner + "/CDDB") << "x";
        Klicken(Form, u"cmdOk"_s);
        EXPECT_TRUE(Meldung().starts_with("Die Daten der CD konnten nicht in '")) << Meldung();
        EXPECT_TRUE(Form.isVisible());
        std::filesystem::remove(Eins.Programm.Dienst.Programmordner + "/CDDB");
        Klicken(Form, u"cmdOk"_s);
        EXPECT_FALSE(Form.isVisible());
    });
    EXPECT_TRUE(std::filesystem::exists(Datei + ID + ".dat"));

    ImMenü(u"mnuCDBrowser"_s, [&](QWidget& Form) {
        auto& Liste = Teil<QTreeWidget>(Form, u"lstCDs"_s);
        ASSERT_EQ(Liste.topLevelItemCount(), 1);
        EXPECT_EQ(Liste.topLevelItem(0)->text(0), u"morgen - Anna Berg"_s);
        ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Daten) {
            EXPECT_EQ(Titel(Daten, 1), u"Mittags"_s);
            EXPECT_EQ(Titel(Daten, 2), u"Abends"_s);
            EXPECT_EQ(Teil<QTableWidget>(Daten, u"lstTitel"_s).item(1, 2)->text(), u"10:00"_s);
            EXPECT_FALSE(Teil<QPushButton>(Daten, u"cmdAbfragen"_s).isEnabled());
            for (QAction* const Eine : Teil<QPushButton>(Daten, u"cmdFunktionen"_s).menu()->actions()) {
                if (Eine->text().startsWith(u"&Jedes"_s)) Eine->trigger();
                if (Eine->text().startsWith(u"Interpret &vor"_s)) Eine->trigger();
            }
        });
        QTest::keyClick(&Liste, Qt::Key_Return);
        EXPECT_EQ(Liste.topLevelItem(0)->text(0), u"Morgen - Anna Berg"_s);
        EXPECT_NE(DateiLesen(Datei + ID + ".dat")->find("#   15000\r\n#   60000\r\n"), std::string::npos);
        Liste.clearSelection();
        Klicken(Form, u"cmdLöschen"_s);
        EXPECT_EQ(Meldung(), "Bitte wählen Sie eine Datei.");
        Liste.setCurrentItem(Liste.topLevelItem(0));
        Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
        QTest::keyClick(&Liste, Qt::Key_Delete);
        ASSERT_FALSE(Eins.Person.Gefragt.empty());
        EXPECT_EQ(Eins.Person.Gefragt.back(),
                  "Möchten Sie die Datei '" + Datei + ID + ".dat' tatsächlich löschen?");
        ASSERT_EQ(Liste.topLevelItemCount(), 1);
        QTest::keyClick(&Liste, Qt::Key_Delete);
        EXPECT_EQ(Liste.topLevelItemCount(), 0);
    });
    EXPECT_FALSE(std::filesystem::exists(Datei + ID + ".dat"));
}

TEST_F(CDFormen, EingabenBleibenWennDerServerNichtsHatOderDieCdFehlt) {
    Eins.Programm.Werte.CDDBServer = "cd.example";
    Eins.Programm.Werte.CDDBEmail = "anna@example.org";
    Netz.Antworten = {"202 nichts", "202 nichts", "200 OK"};
    ImMenü(u"mnuCDDaten"_s, [&](QWidget& Form) {
        Einlesen(Form);
        EXPECT_EQ(Meldung(), "Das von Ihnen angeforderte Medium konnte nicht gefunden werden (202).");
        Teil<QLineEdit>(Form, u"txtAlbum"_s).setText(u"Selbst"_s);
        Teil<QLineEdit>(Form, u"txtInterpret"_s).setText(u"getippt"_s);
        // The question of whether the entries may go is answered with "Nein" first.
        Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
        Klicken(Form, u"cmdAbfragen"_s);
        EXPECT_EQ(Netz.Gestellt.size(), 1U);
        Klicken(Form, u"cmdAbfragen"_s);
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtAlbum"_s).text(), u"Selbst"_s);
        // Publishing asks, trying does not.
        Teil<QAction>(Form, u"mnuSendenEcht"_s).trigger();
        EXPECT_EQ(Eins.Person.Gefragt.back(),
                  "Möchten Sie die Daten dieser CD auf dem Server 'cd.example' veröffentlichen?");
        EXPECT_EQ(Netz.Gestellt.size(), 2U);
        Teil<QAction>(Form, u"mnuSendenProbe"_s).trigger();
        ASSERT_EQ(Netz.Gestellt.size(), 3U);
        EXPECT_NE(Netz.Gestellt.back().Inhalt->find("DTITLE=getippt / Selbst\r\n"), std::string::npos);
        const std::string ID = Eins.Programm.CD.Daten.ID;
        CDs.Liste[Laufwerk].LeadOut += 7500;
        Teil<QAction>(Form, u"mnuSendenProbe"_s).trigger();
        EXPECT_EQ(Eins.Programm.CD.Daten.ID, ID);
        EXPECT_EQ(Eins.Programm.CD.Daten.Album, "Selbst");
        EXPECT_TRUE(Meldung().starts_with("Im Laufwerk liegt inzwischen eine andere CD."));
        EXPECT_EQ(Netz.Gestellt.size(), 3U);
        CDs.Liste.clear();
        Eins.Person.Antworten = {Antwort::Ja};
        Klicken(Form, u"cmdAbfragen"_s);
        EXPECT_TRUE(Meldung().starts_with("Die Audio-CD in "));
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtAlbum"_s).text(), u"Selbst"_s);
        Klicken(Form, u"cmdOk"_s);
    });
    EXPECT_EQ(Eins.Programm.CD.Daten.Album, "Selbst");
    EXPECT_EQ(CDDBCDsSuchen(CDUmgebungVon(Eins.Programm).Speicher).size(), 1U);
}

TEST_F(CDFormen, AssistentEntscheidetObDieCdInDenIndexKommt) {
    ImDialogKlicken(u"cmdAbbrechen"_s);
    Eins.OrdnerHinzufügen(Laufwerk);
    EXPECT_EQ(Eins.Programm.Index.IndexAnzahl(), 0);
    ImDialogKlicken(u"cmdOk"_s, [](QWidget& Form) {
        EXPECT_EQ(Form.findChild<QComboBox*>(u"cboLaufwerk"_s), nullptr);
        Teil<QLineEdit>(Form, u"txtAlbum"_s).setText(u"Neu"_s);
    });
    Eins.OrdnerHinzufügen(Laufwerk);
    EXPECT_EQ(Eins.Programm.Index.IndexAnzahl(), 3);
    EXPECT_EQ(CDDBCDsSuchen(CDUmgebungVon(Eins.Programm).Speicher).at(0).Album, "Neu");
}

}  // namespace
}  // namespace liedwerk::test
