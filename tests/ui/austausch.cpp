// Clean-up and export through their forms.
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "basis/datei.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/exportaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Austausch : public testing::Test {
  protected:
    Austausch() : Eins(Welt) {
        Welt.Musikordner();
        MusikdateiAnlegen(Welt.Ordner() + "/Musik/vier.mp3", "Morgenlicht", "Anna Berg");
        Eins.OrdnerHinzufügen(Welt.Ordner() + "/Musik");
        Eins.Songs().selectAll();
    }
    // Runs what the person does in the next modal form.
    void ImNächsten(std::function<void(QWidget&)> Tun) {
        QTimer::singleShot(0, qApp, [Tun = std::move(Tun)] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            Tun(*Form);
            if (Form->isVisible()) QTest::keyClick(Form, Qt::Key_Escape);
        });
    }
    static void Drücken(QWidget& Form, const QString& Name) {
        QTest::mouseClick(&Teil<QAbstractButton>(Form, Name), Qt::LeftButton, {}, {6, 8});
    }
    void Auslösen(const QString& Name) { Teil<QAction>(Eins.Fenster, Name).trigger(); }

    Umgebung Welt;
    Lauf Eins;
};

TEST_F(Austausch, AufräumenFindetWähltUndFührtAus) {
    ImNächsten([&](QWidget& Form) {
        auto& Methode = Teil<QComboBox>(Form, u"cboSuchmethode"_s);
        EXPECT_EQ(Methode.count(), 10);
        EXPECT_EQ(Form.focusWidget(), &Methode);
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdOk"_s).isEnabled());
        QTest::keyClick(&Methode, Qt::Key_Down);
        QTest::keyClick(&Methode, Qt::Key_Down);
        QTest::keyClick(&Form, Qt::Key_Return);
        auto& Funde = Teil<QTreeView>(Form, u"lstEinträge"_s);
        ASSERT_EQ(Funde.model()->rowCount(), 1);
        EXPECT_EQ(Teil<QLabel>(Form, u"lblGefundenAnzahl"_s).text(), u"1 Datei(en)"_s);
        EXPECT_FALSE(Methode.isEnabled());
        EXPECT_TRUE(Teil<QLabel>(Form, u"lblGleich"_s).text().startsWith(u"Gleich: Interpret, Titel"_s));
        EXPECT_EQ(Teil<QLabel>(Form, u"lblEintrag2"_s).text(), u"Dateiname - Eintrag 1"_s);

        Drücken(Form, u"cmdOk"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(),
                  "Bitte wählen Sie eine Aktion für mindestens eine gefundene Datei.");
        auto& Aktion = Teil<QComboBox>(Form, u"cboAktion2"_s);
        QTest::keyClick(&Aktion, Qt::Key_Down);
        EXPECT_EQ(Aktion.currentText(), u"Löschen"_s);
        EXPECT_EQ(Funde.model()->index(0, 1).data().toString(), u"– / Löschen"_s);
        // "No" and a refused discard come back to the form with all choices.
        Eins.Person.Antworten = {Antwort::Nein, Antwort::Nein, Antwort::Ja};
        Drücken(Form, u"cmdOk"_s);
        QTest::keyClick(&Form, Qt::Key_Escape);
        EXPECT_TRUE(Form.isVisible());
        EXPECT_TRUE(Eins.Person.Gefragt.back().starts_with("Möchten Sie die noch nicht durchgeführten"));
        Drücken(Form, u"cmdOk"_s);
        EXPECT_FALSE(Form.isVisible());
    });
    Auslösen(u"mnuIndexAufräumen"_s);
    EXPECT_EQ(Eins.Programm.Index.IndexAnzahl(), 3);
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_FALSE(Teil<QAction>(Eins.Fenster, u"mnuIndexAufräumen"_s).isEnabled());
}

TEST_F(Austausch, VieleFundeAufEinmalUndInsHauptfenster) {
    ImNächsten([&](QWidget& Form) {
        auto& Methode = Teil<QComboBox>(Form, u"cboSuchmethode"_s);
        Methode.setCurrentIndex(8);  // without ID3v2
        Drücken(Form, u"cmdSuchen"_s);
        auto& Funde = Teil<QTreeView>(Form, u"lstEinträge"_s);
        ASSERT_EQ(Funde.model()->rowCount(), 4);
        EXPECT_FALSE(Teil<QComboBox>(Form, u"cboAktion2"_s).isVisible());
        Drücken(Form, u"cmdWählenUmkehren"_s);
        EXPECT_EQ(Funde.selectionModel()->selectedRows().size(), 3);
        EXPECT_TRUE(Teil<QLabel>(Form, u"lblAuswahl"_s).text().startsWith(u"3 Dateien gewählt"_s));
        auto& Aktion = Teil<QComboBox>(Form, u"cboAktion1"_s);
        QTest::keyClick(&Aktion, Qt::Key_End);
        EXPECT_EQ(Funde.model()->index(0, 1).data().toString(), QString());
        EXPECT_EQ(Funde.model()->index(3, 1).data().toString(), u"Ersetzen"_s);
        Drücken(Form, u"cmdWählenAlle"_s);
        EXPECT_EQ(Aktion.currentIndex(), -1) << "the rows differ";
        Drücken(Form, u"cmdWählenKeine"_s);
        Drücken(Form, u"cmdHauptfenster"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte wählen Sie mindestens einen Listeneintrag.");
        Funde.setCurrentIndex(Funde.model()->index(2, 0));
        Eins.Person.Antworten = {Antwort::Ja};
        Drücken(Form, u"cmdHauptfenster"_s);
    });
    Auslösen(u"mnuIndexAufräumen"_s);
    EXPECT_EQ(Eins.Zeilen(), 1);
    EXPECT_EQ(Eins.Programm.Index.IndexAnzahl(), 4);
}

TEST_F(Austausch, ExportFragtSchreibtUndMerktSich) {
    const std::string Ziel = Welt.Ordner() + "/liste.csv";
    std::ofstream(Ziel) << "alt";
    Eins.Programm.Werte.ExportUntermodus = 9;
    ImNächsten([&](QWidget& Form) {
        Drücken(Form, u"cmdOk"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte geben Sie einen Dateinamen ein.");
        auto& Datei = Teil<QLineEdit>(Form, u"txtDatei"_s);
        QTest::keyClicks(&Datei, QtText(Welt.Ordner()) + u"/liste.x"_s);
        Drücken(Form, u"optPlayliste"_s);
        EXPECT_TRUE(Datei.text().endsWith(u"/liste.m3u"_s));
        EXPECT_FALSE(Teil<QRadioButton>(Form, u"optTextKomma"_s).isEnabled());
        Drücken(Form, u"optText"_s);
        EXPECT_TRUE(Datei.text().endsWith(u"/liste.csv"_s));
        Drücken(Form, u"cmdOk"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte wählen Sie das Unterformat zur Auswahl 'Text'.");
        Drücken(Form, u"optTextSemikolon"_s);
        Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_TRUE(Form.isVisible()) << "the old file shall stay";
        EXPECT_EQ(DateiLesen(Ziel), "alt");
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Auslösen(u"mnuExportieren"_s);
    EXPECT_TRUE(DateiLesen(Ziel).value_or("").starts_with("\"Dateiname\";\"Titel\"\r\n\""));
    EXPECT_EQ(Eins.Programm.Werte.ExportDatei, Ziel);
    EXPECT_EQ(Eins.Programm.Werte.ExportUntermodus, 2);

    ImNächsten([&](QWidget& Form) {
        Drücken(Form, u"optZwischenablage"_s);
        EXPECT_FALSE(Teil<QLineEdit>(Form, u"txtDatei"_s).isEnabled());
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    ExportierenAusführen(Eins.Programm, &Eins.Fenster, {1});
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(u"Dateiname\tTitel"_s));
    Eins.Programm.Index.Programmmodus = ModusDateimanager;
    ExportierenAusführen(Eins.Programm, &Eins.Fenster, {1});
    EXPECT_EQ(Eins.Person.Meldungen.back(),
              "Diese Funktion steht im Dateimanager-Modus nicht zur Verfügung.");
}

}  // namespace
}  // namespace liedwerk::test
