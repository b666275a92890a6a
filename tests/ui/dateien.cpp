// Copying, renaming and deleting from the window: forms by keyboard and mouse, and the list that follows.
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>

#include "basis/datei.h"
#include "plattform/speicher/eimer.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmverschiebendateiexistiert.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Dateiraum : public testing::Test {
  protected:
    Dateiraum() : Eins(Welt) {
        Eins.Programm.Dienst.Eimer = &Eimer;
        Musik = Welt.Musikordner();
        Eins.OrdnerHinzufügen(Musik);
        Wählen(1);
    }
    void Wählen(Satznummer Nummer) {
        for (int Zeile = 0; Zeile < Eins.Zeilen(); ++Zeile) {
            if (Eins.Programm.Ansicht.Zeilen[static_cast<std::size_t>(Zeile)] == Nummer)
                Eins.Songs().setCurrentIndex(Eins.Songs().model()->index(Zeile, 1));
        }
    }
    void Auslösen(const QString& Name) { Teil<QAction>(Eins.Fenster, Name).trigger(); }
    static void ImDialog(const QString& Name, const std::function<void(QWidget&)>& Handeln) {
        QTimer::singleShot(0, qApp, [Name, Handeln] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            EXPECT_EQ(Form->objectName(), Name);
            ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
            Handeln(*Form);
        });
    }
    std::string Pfad(Satznummer Nummer) { return Eins.Programm.Index.Sätze.Pfad(Nummer); }

    Umgebung Welt;
    Lauf Eins;
    speicher::Eimer Eimer;
    std::string Musik;
};

TEST_F(Dateiraum, KopierenPrüftDenZielordnerUndMerktSichDieWahl) {
    const std::string Alt = Pfad(1);
    const std::string Ziel = Welt.Ordner() + "/ziel";
    ImDialog(u"frmKopieren"_s, [&](QWidget& Form) {
        EXPECT_EQ(Teil<QComboBox>(Form, u"cboDateienErsetzen"_s).itemText(2),
                  u"Dateien immer ersetzen (Vorsicht!)"_s);
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_TRUE(Form.isVisible());
        EXPECT_EQ(Eins.Person.Meldungen.back(),
                  "Bitte geben Sie einen Zielordner für den Kopier-/Verschiebe-Vorgang an.");
        QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtOrdner"_s), QtText(Ziel));
        QTest::mouseClick(&Teil<QRadioButton>(Form, u"optVerschieben"_s), Qt::LeftButton);
        QTest::keyClick(&Teil<QComboBox>(Form, u"cboDateienErsetzen"_s), Qt::Key_Down);
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Auslösen(u"mnuKopieren"_s);
    EXPECT_EQ(Pfad(1), Ziel + Alt.substr(Musik.size()));
    EXPECT_TRUE(DateiExistiert(Pfad(1)));
    EXPECT_FALSE(DateiExistiert(Alt));
    EXPECT_EQ(Eins.Programm.Werte.KopierenÜberschreiben, 1);
    EXPECT_EQ(Eins.Programm.Werte.KopierenModus, 1);
    EXPECT_EQ(Eins.Person.Status.back(), "1 Datei(en) verschoben");
}

TEST_F(Dateiraum, LöschenGehtInDenPapierkorbOderGarNicht) {
    const std::string Alt = Pfad(1);
    ImDialog(u"frmLöschen"_s, [](QWidget& Form) {
        EXPECT_EQ(Teil<QLabel>(Form, u"lblBanner"_s).text(),
                  u"Möchten Sie 1 Datei(en) vom Datenträger löschen?"_s);
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuLöschen"_s);
    EXPECT_TRUE(DateiExistiert(Alt));
    // The Enter key takes the way back from which there is one.
    ImDialog(u"frmLöschen"_s, [](QWidget& Form) { QTest::keyClick(&Form, Qt::Key_Return); });
    Auslösen(u"mnuLöschen"_s);
    EXPECT_FALSE(DateiExistiert(Alt));
    EXPECT_TRUE(Eimer.Inhalt.contains(Alt));
    EXPECT_EQ(Eins.Zeilen(), 2);
    EXPECT_FALSE(Teil<QAction>(Eins.Fenster, u"mnuLöschen"_s).isEnabled()) << "nothing is selected";

    Wählen(1);
    const std::string Zweite = Pfad(1);
    ImDialog(u"frmLöschen"_s, [](QWidget& Form) {
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdLöschen"_s), Qt::LeftButton);
    });
    Auslösen(u"mnuLöschen"_s);
    EXPECT_FALSE(DateiExistiert(Zweite) || Eimer.Inhalt.contains(Zweite));
    Wählen(1);
    const std::string Letzte = Pfad(1);
    Eins.Person.Antworten = {Antwort::Nein, Antwort::Ja};
    Auslösen(u"mnuEntfernen"_s);
    EXPECT_EQ(Eins.Zeilen(), 1);
    Auslösen(u"mnuEntfernen"_s);
    EXPECT_EQ(Eins.Zeilen(), 0);
    EXPECT_TRUE(DateiExistiert(Letzte));
}

TEST_F(Dateiraum, UmbenennenPrüftDieEingabeUndZeigtDenNeuenNamen) {
    ImDialog(u"frmUmbenennen"_s, [this](QWidget& Form) {
        auto& Funktionen = Teil<QListWidget>(Form, u"lstFunktionen"_s);
        EXPECT_EQ(Funktionen.count(), 10);
        auto& Format = Teil<QLineEdit>(Form, u"txtFormat"_s);
        Format.clear();
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Es wurde kein Format bei der ID3-Umbenennung angegeben.");
        for (int Zeile = 0; Zeile < Funktionen.count(); ++Zeile) {
            Funktionen.setCurrentRow(Zeile);
            for (const char* Name : {"txtFormat", "txtErsetzen", "txtErsetzenDurch", "txtFortlaufendBasis1",
                                     "txtFortlaufendBasis2", "txtDateiendung", "txtIndexErsetzen",
                                     "txtIndexErsetzenDurch", "txtErsetzenEndung"})
                EXPECT_FALSE(Teil<QLineEdit>(Form, QString::fromUtf8(Name)).accessibleName().isEmpty());
        }
        EXPECT_FALSE(Teil<QCheckBox>(Form, u"chkAttributSystem"_s).isEnabled());
        Funktionen.setCurrentRow(0);
        QTest::keyClicks(&Format, u"%Interpret%/%Titel%"_s);
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Auslösen(u"mnuUmbenennen"_s);
    const std::string Neu = Pfad(1);
    EXPECT_TRUE(DateiExistiert(Neu));
    EXPECT_EQ(Neu.find(Musik + "/"), 0u);
    EXPECT_NE(Neu.find('/', Musik.size() + 1), std::string::npos) << "a folder of the artist's name";
    EXPECT_EQ(Eins.Programm.Werte.UmbenennenEingabeID3, "%Interpret%/%Titel%");
    EXPECT_EQ(Eins.Person.Status.back(), "1 Dateien wurden umbenannt/geändert.");

    // By hand: the name without extension is what typing replaces.
    ImDialog(u"frmUmbenennen"_s, [](QWidget& Form) {
        Teil<QListWidget>(Form, u"lstFunktionen"_s).setCurrentRow(5);
        ImDialog(u"frmDateiname"_s, [](QWidget& Name) {
            EXPECT_EQ(Name.windowTitle(), u"Umbenennen"_s);
            EXPECT_EQ(Teil<QLabel>(Name, u"lblBanner"_s).text(), u"Datei umbenennen"_s);
            QTest::keyClicks(&Teil<QLineEdit>(Name, u"txtNeuer"_s), u"Neu"_s);
            QTest::keyClick(&Name, Qt::Key_Return);
        });
        QTest::keyClick(&Form, Qt::Key_Return);
    });
    Auslösen(u"mnuUmbenennen"_s);
    EXPECT_EQ(Pfad(1), Neu.substr(0, Neu.rfind('/')) + "/Neu.mp3");

    // The function that costs content asks, and Esc leaves everything alone.
    ImDialog(u"frmUmbenennen"_s, [this](QWidget& Form) {
        Teil<QListWidget>(Form, u"lstFunktionen"_s).setCurrentRow(9);
        QTest::keyClick(&Form, Qt::Key_Return);
        EXPECT_NE(Eins.Person.Gefragt.back().find("Ihr Inhalt geht verloren."), std::string::npos);
        EXPECT_TRUE(Form.isVisible());
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuUmbenennen"_s);
    EXPECT_GT(DateistandLesen(Pfad(1))->Größe, 0u);
}

TEST_F(Dateiraum, DerDialogVorVorhandenenZielen) {
    const struct {
        const char* Knopf;
        Vorhandenantwort Antwort;
    } Fälle[] = {{"cmdUmbenennen", Vorhandenantwort::Umbenennen},
                 {"cmdErsetzen", Vorhandenantwort::Ersetzen},
                 {"cmdAbbrechen", Vorhandenantwort::Abbrechen},
                 {"cmdÜberspringen", Vorhandenantwort::Überspringen},
                 {nullptr, Vorhandenantwort::Abbrechen}};
    for (const auto& Fall : Fälle) {
        ImDialog(u"frmVerschiebenDateiExistiert"_s, [&](QWidget& Form) {
            EXPECT_EQ(Teil<QLabel>(Form, u"lblBeschreibung"_s).text(), u"<b>Text</b>"_s);
            if (Fall.Knopf != nullptr) {
                QTest::mouseClick(&Teil<QPushButton>(Form, QString::fromUtf8(Fall.Knopf)), Qt::LeftButton);
            } else {
                QTest::keyClick(&Form, Qt::Key_Escape);
            }
        });
        EXPECT_EQ(frmVerschiebenDateiExistiert("<b>Text</b>", &Eins.Fenster).Fragen(), Fall.Antwort);
    }
}

TEST_F(Dateiraum, DieZwischenablageSagtDassVerschobenWird) {
    Auslösen(u"mnuAusschneiden"_s);
    const QMimeData* const Daten = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(PfadeAusUriListe(Daten->data(u"text/uri-list"_s)), (std::vector<std::string>{Pfad(1)}));
    EXPECT_TRUE(Daten->data(u"x-special/gnome-copied-files"_s).startsWith("cut\nfile:///"));
    const std::string Neu = Welt.Ordner() + "/vier.mp3";
    MusikdateiAnlegen(Neu, "Vier", "Lea");
    auto* const Andere = new QMimeData;
    Andere->setData(u"text/uri-list"_s, UriListe({Neu}));
    QGuiApplication::clipboard()->setMimeData(Andere);
    Auslösen(u"mnuEinfügen"_s);
    EXPECT_EQ(Eins.Zeilen(), 4);
    EXPECT_EQ(Pfad(4), Neu) << "added where it lies";
}

}  // namespace
}  // namespace liedwerk::test
