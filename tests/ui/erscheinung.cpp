// Colours, lock, welcome, tips and handbook.
#include "ui/qt/erscheinung.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <cmath>

#include "core/farbprofile.h"
#include "core/suchlauf.h"
#include "core/tipps.h"
#include "dateien/mediumblick.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmhilfe.h"
#include "ui/qt/frmsperre.h"
#include "ui/qt/frmtipps.h"
#include "ui/qt/frmwillkommen.h"
#include "ui/qt/kennwort.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

// Relative luminance and contrast as WCAG 2.1 defines them.
double Helligkeit(const QColor& Farbe) {
    const auto Anteil = [](double Teil) {
        return Teil <= 0.03928 ? Teil / 12.92 : std::pow((Teil + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * Anteil(Farbe.redF()) + 0.7152 * Anteil(Farbe.greenF()) + 0.0722 * Anteil(Farbe.blueF());
}
double Kontrast(const QColor& A, const QColor& B) {
    const double Eins = Helligkeit(A) + 0.05;
    const double Zwei = Helligkeit(B) + 0.05;
    return std::max(Eins, Zwei) / std::min(Eins, Zwei);
}

TEST(Farbprofile, SindLesbarUndWerdenWiedererkannt) {
    ASSERT_GE(Farbprofile().size(), 3u);
    const QPalette Desktop = QApplication::palette();
    for (std::size_t Nummer = 1; Nummer <= Farbprofile().size(); ++Nummer) {
        SCOPED_TRACE(Farbprofile()[Nummer - 1].Name);
        Einstellungen Werte;
        FarbprofilNehmen(Werte, Nummer);
        EXPECT_EQ(FarbprofilVon(Werte), Nummer);
        const QPalette Farben = Programmpalette(Desktop, Werte);
        const double Mindestens = Farbprofile()[Nummer - 1].Name == "Hoher Kontrast" ? 7 : 4.5;
        for (const auto& [Schrift, Grund] :
             {std::pair{QPalette::WindowText, QPalette::Window},
              std::pair{QPalette::ButtonText, QPalette::Button}, std::pair{QPalette::Text, QPalette::Base},
              std::pair{QPalette::Text, QPalette::AlternateBase},
              std::pair{QPalette::ToolTipText, QPalette::ToolTipBase}})
            EXPECT_GE(Kontrast(Farben.color(Schrift), Farben.color(Grund)), Mindestens) << Schrift;
        // The rest is the desktop's own business there.
        if (Nummer == ProfilDesktop) continue;
        EXPECT_GE(Kontrast(Farben.color(QPalette::LinkVisited), Farben.color(QPalette::Window)), Mindestens);
        EXPECT_GE(Kontrast(Farben.color(QPalette::HighlightedText), Farben.color(QPalette::Highlight)), 4.5);
        EXPECT_GE(Kontrast(Farben.color(QPalette::PlaceholderText), Farben.color(QPalette::Base)), 3.0);
        EXPECT_GE(Kontrast(FarbeAusWert(Werte.FarbeBeschreibungen), Farben.color(QPalette::Window)), 4.5);
        for (const auto Grund : {QPalette::Window, QPalette::Base})
            EXPECT_GE(Kontrast(FarbeAusWert(Werte.FarbeRahmen), Farben.color(Grund)), 3.0);
    }
    Einstellungen Eigene;
    Eigene.FarbeListen = 0x123456;
    EXPECT_EQ(FarbprofilVon(Eigene), 0u);
    EXPECT_EQ(WertAusFarbe(FarbeAusWert(0x123456)), 0x123456);
    EXPECT_EQ(WertAusFarbe(FarbeAusWert(DesktopFarbe)), DesktopFarbe);
}

struct Wunsch final : Desktopfarben {
    bool Erbeten = false;
    bool Dunkel() const override { return Erbeten; }
};

TEST(Farbprofile, GeltenFürFensterUndListeUndGehenWieder) {
    Umgebung Welt;
    Lauf Eins(Welt);
    Wunsch Desktop;
    Eins.Programm.Dienst.Desktop = &Desktop;
    const QColor Vorher = Eins.Songs().palette().color(QPalette::Base);
    const auto Liste = [&](QPalette::ColorRole Rolle) { return Eins.Songs().palette().color(Rolle); };
    const auto Anwenden = [&] {
        Eins.Fenster.ErscheinungAnwenden();
        QCoreApplication::processEvents();
    };
    FarbprofilNehmen(Eins.Programm.Werte, ProfilDunkel);
    Eins.Programm.Werte.ListeFontBold = 1;
    Anwenden();
    EXPECT_LT(Liste(QPalette::Base).lightness(), 60);
    EXPECT_LT(Eins.Fenster.palette().color(QPalette::Window).lightness(), 60);
    EXPECT_TRUE(Eins.Songs().font().bold());
    FarbprofilNehmen(Eins.Programm.Werte, ProfilDesktop);
    Anwenden();
    EXPECT_EQ(Liste(QPalette::Base), Vorher) << "profile 1 is the desktop's again";
    // The desktop asks for dark windows while its palette is light.
    Desktop.Erbeten = true;
    Anwenden();
    EXPECT_LT(Liste(QPalette::Base).lightness(), 60);
    EXPECT_EQ(FarbprofilVon(Eins.Programm.Werte), ProfilDesktop) << "the settings keep what was chosen";
    Desktop.Erbeten = false;
    Anwenden();
    EXPECT_EQ(Liste(QPalette::Base), Vorher);
}

// The first ground behind a part that is really painted.
QColor Grundfarbe(const QWidget& Teil) {
    const QWidget* Ebene = &Teil;
    while (!Ebene->isWindow() && !Ebene->autoFillBackground())
        Ebene = Ebene->parentWidget();
    return Ebene->palette().color(Ebene->backgroundRole());
}

TEST(Farbprofile, JedesWortDesFenstersIstLesbar) {
    Umgebung Welt;
    Lauf Eins(Welt);
    Wunsch Desktop;
    Eins.Programm.Dienst.Desktop = &Desktop;
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Eins.Songs().selectAll();
    Eins.Fenster.StatusZeigen(u"Bereit"_s, 0);
    const std::size_t Profile = Farbprofile().size();
    // Behind the profiles: the desktop asks for dark, and a single ground of the person's own.
    for (std::size_t Fall = 1; Fall <= Profile + 2; ++Fall) {
        SCOPED_TRACE(Fall);
        FarbprofilNehmen(Eins.Programm.Werte, Fall > Profile ? ProfilDesktop : Fall);
        Desktop.Erbeten = Fall == Profile + 1;
        if (Fall == Profile + 2) {
            Eins.Programm.Werte.FarbeFunktionenHintergrund = 0x202020;
            Eins.Programm.Werte.FarbeListenHintergrund = 0xF0F0F0;
            Eins.Programm.Werte.FarbeÜberschriftHintergrund = 0x400000;
        }
        Eins.Fenster.ErscheinungAnwenden();
        QCoreApplication::processEvents();
        int Gesehen = 0;
        for (QWidget* const Teil : Eins.Fenster.findChildren<QWidget*>()) {
            const auto* const Text = qobject_cast<QTextBrowser*>(Teil);
            const bool Wort = qobject_cast<QLabel*>(Teil) || qobject_cast<QToolButton*>(Teil) || Text;
            if (!Wort || !Teil->isVisible() || !Teil->isEnabled()) continue;
            ++Gesehen;
            const QPalette& Farben = Teil->palette();
            const QColor Schrift = Farben.color(Text ? QPalette::Text : Teil->foregroundRole());
            EXPECT_GE(Kontrast(Schrift, Grundfarbe(Text ? *Teil->parentWidget() : *Teil)), 4.5)
                << Teil->objectName().toStdString();
        }
        EXPECT_GT(Gesehen, 20);
        const QPalette& Liste = Eins.Songs().palette();
        EXPECT_GE(Kontrast(Liste.color(QPalette::Text), Liste.color(QPalette::Base)), 4.5);
    }
    Eins.Programm.Werte = Einstellungen();
    Eins.Fenster.ErscheinungAnwenden();
}

TEST(Farbprofile, RänderVonBedienungenSindZuSehen) {
    Einstellungen Werte;
    for (std::size_t Nummer = ProfilDesktop + 1; Nummer <= Farbprofile().size(); ++Nummer) {
        SCOPED_TRACE(Farbprofile()[Nummer - 1].Name);
        FarbprofilNehmen(Werte, Nummer);
        PaletteAnwenden(Werte, false);
        QWidget Form;
        Form.setFixedSize(400, 400);
        const QList<QWidget*> Teile = {new QLineEdit,      new QCheckBox,   new QRadioButton,
                                       new QPlainTextEdit, new QPushButton, new QComboBox,
                                       new QSpinBox,       new QSlider,     new QListWidget};
        for (QWidget* const Teil : Teile) {
            Teil->setParent(&Form);
            Teil->setGeometry(50, 50, 120, 40);
            const QImage Bild = Teil->grab().toImage();
            int Sichtbar = 0;
            for (int Zeile = 0; Zeile < Bild.height(); ++Zeile)
                for (int Spalte = 0; Spalte < Bild.width(); ++Spalte)
                    if (Kontrast(Bild.pixelColor(Spalte, Zeile), Form.palette().color(QPalette::Window)) >= 3)
                        ++Sichtbar;
            EXPECT_GT(Sichtbar, 20) << Teil->metaObject()->className();
        }
    }
    PaletteAnwenden(Einstellungen(), false);
}

TEST(Kennwort, WirdGesalzenGeprüftUndNurInDieserFormAnerkannt) {
    const std::string Abgelegt = KennwortAblegen(u"Geheim ä"_s);
    EXPECT_EQ(Abgelegt.find("Geheim"), std::string::npos);
    EXPECT_NE(Abgelegt, KennwortAblegen(u"Geheim ä"_s)) << "without salt equal passwords could be seen";
    EXPECT_EQ(KennwortPrüfen(Abgelegt, u"Geheim a\u0308"_s), Kennwortprüfung::Richtig);
    EXPECT_EQ(KennwortPrüfen(Abgelegt, u"geheim ä"_s), Kennwortprüfung::Falsch);
    EXPECT_EQ(KennwortPrüfen(Abgelegt, u""_s), Kennwortprüfung::Falsch);
    for (const std::string_view Fremd : {"", "hfifjn", "pbkdf2-sha256$0$0011223344556677$00",
                                         "pbkdf2-sha256$1000001$0011223344556677$"
                                         "0000000000000000000000000000000000000000000000000000000000000000",
                                         "pbkdf2-sha256$1000$0011223344556677$"}) {
        EXPECT_EQ(KennwortPrüfen(Fremd, u""_s), Kennwortprüfung::Unlesbar) << Fremd;
    }
}

class Sperrraum : public testing::Test {
  protected:
    Umgebung Welt;

    void Sperren(const std::string& Wert) {
        Welt.Werte.Schreiben("Sperre", Wert);
        Welt.Werte.Schreiben("SperreAktiv", std::int32_t{1});
    }
    static bool Verborgen(Lauf& Eins) {
        return !Eins.Songs().isVisible() && !Eins.Fenster.menuBar()->isVisible();
    }
};

TEST_F(Sperrraum, GesperrtIstNichtsZuSehenUndNichtsZuTun) {
    {
        Lauf Vorher(Welt);
        Vorher.OrdnerHinzufügen(Welt.Musikordner());
        Vorher.Fenster.SitzungBeenden();
    }
    Sperren(KennwortAblegen(u"auf"_s));
    QTimer::singleShot(0, qApp, [] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_EQ(Form->objectName(), u"frmSperre"_s);
        QTest::keyClicks(&Teil<QLineEdit>(*Form, u"txtKennwort"_s), u"zu"_s);
        QTest::keyClick(Form, Qt::Key_Return);
        EXPECT_TRUE(Teil<QLabel>(*Form, u"lblFalsch"_s).isVisible());
        QTest::keyClick(Form, Qt::Key_Escape);
    });
    Lauf Eins(Welt);
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_TRUE(Verborgen(Eins)) << "giving up leaves the program locked";
    for (QAction* const Aktion : Eins.Fenster.actions())
        EXPECT_TRUE(!Aktion->isEnabled() || Aktion->objectName() == u"mnuBeenden"_s)
            << Aktion->objectName().toStdString();
    Teil<QAction>(Eins.Fenster, u"mnuAllesAuswählen"_s).trigger();
    EXPECT_TRUE(Eins.Programm.Ansicht.Auswahl.empty());
    Eins.Fenster.AuswahlZeigen();
    EXPECT_FALSE(Teil<QAction>(Eins.Fenster, u"mnuHinzufügen"_s).isEnabled());
    // The right password by keyboard.
    ImDialogKlicken(u"cmdOk"_s, [](QWidget& Form) {
        QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtKennwort"_s), u"auf"_s);
    });
    QTest::keyClick(&Teil<QPushButton>(Eins.Fenster, u"cmdEntsperren"_s), Qt::Key_Space);
    EXPECT_FALSE(Verborgen(Eins));
    EXPECT_TRUE(Teil<QAction>(Eins.Fenster, u"mnuHinzufügen"_s).isEnabled());
    // Locked again from the menu, the program can be ended.
    ImDialogKlicken(u"cmdAbbrechen"_s);
    Teil<QAction>(Eins.Fenster, u"mnuSperren"_s).trigger();
    EXPECT_TRUE(Verborgen(Eins));
    Eins.Programm.Werte.BeendenReaktion = 2;
    QTest::mouseClick(&Teil<QPushButton>(Eins.Fenster, u"cmdGesperrtBeenden"_s), Qt::LeftButton);
    EXPECT_TRUE(Eins.Beendet);
}

TEST_F(Sperrraum, AltesKennwortWirdAbgewiesenUndDurchEinNeuesErsetzt) {
    Sperren("qwe~rtz");
    QTimer::singleShot(0, qApp, [] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_EQ(Form->objectName(), u"frmSperreSetzen"_s);
        EXPECT_FALSE(Teil<QLineEdit>(*Form, u"txtBisher"_s).isVisible());
        QTest::keyClicks(&Teil<QLineEdit>(*Form, u"txtNeu"_s), u"neu"_s);
        QTest::keyClicks(&Teil<QLineEdit>(*Form, u"txtWiederholung"_s), u"neu"_s);
        QTest::keyClick(Form, Qt::Key_Return);
    });
    Lauf Eins(Welt);
    ASSERT_EQ(Eins.Person.Gefragt.size(), 1u);
    EXPECT_FALSE(Verborgen(Eins));
    EXPECT_EQ(KennwortPrüfen(Eins.Programm.Werte.Sperre, u"neu"_s), Kennwortprüfung::Richtig);
    EXPECT_EQ(Eins.Programm.Werte.SperreAktiv, 1);
}

TEST_F(Sperrraum, ÄndernUndEntfernenVerlangenDasBisherige) {
    Einstellungen Werte;
    Werte.Sperre = KennwortAblegen(u"alt"_s);
    Werte.SperreAktiv = 1;
    const std::string Vorher = Werte.Sperre;
    speicher::Person Person;
    frmSperreSetzen Form(Werte, Person, nullptr);
    Form.show();
    const auto Klicken = [&](const QString& Name) {
        QTest::mouseClick(&Teil<QPushButton>(Form, Name), Qt::LeftButton);
    };
    auto& Bisher = Teil<QLineEdit>(Form, u"txtBisher"_s);
    Klicken(u"cmdEntfernen"_s);
    EXPECT_EQ(Werte.Sperre, Vorher);
    QTest::keyClicks(&Bisher, u"alt"_s);
    QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtNeu"_s), u"neu"_s);
    Klicken(u"cmdOk"_s);
    EXPECT_EQ(Person.Meldungen.size(), 2u) << "the repetition is missing";
    EXPECT_EQ(Werte.Sperre, Vorher);
    Klicken(u"cmdEntfernen"_s);
    EXPECT_TRUE(Werte.Sperre.empty());
    EXPECT_EQ(Werte.SperreAktiv, 0);
}

TEST(ErsterStart, ZweiAngabenUndDieMusikIstDa) {
    Umgebung Welt;
    Welt.Werte.Löschen("Start");
    const QString Ordner = QtText(Welt.Musikordner());
    QTimer::singleShot(0, qApp, [&] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_EQ(Form->objectName(), u"frmWillkommen"_s);
        auto& Feld = Teil<QLineEdit>(*Form, u"txtOrdner"_s);
        Feld.selectAll();
        QTest::keyClicks(&Feld, Ordner + u"/gibtesnicht"_s);
        QTest::keyClick(&Feld, Qt::Key_Return);
        ASSERT_TRUE(Form->isVisible()) << "a folder that is not there is no answer";
        Feld.setText(Ordner);
        QTest::mouseClick(&Teil<QAbstractButton>(*Form, u"chkTagsModern"_s), Qt::LeftButton, {}, {8, 8});
        QTest::keyClick(&Feld, Qt::Key_Return);
    });
    Lauf Eins(Welt);
    for (int Blick = 0; Blick < 200 && Eins.Zeilen() < 3; ++Blick)
        QTest::qWait(20);
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_EQ(Eins.Programm.Werte.TAGsModern, 1);
}

TEST(Tipps, BlätternImKreisUndAbstellen) {
    const int Anzahl = static_cast<int>(Tipps().size());
    Einstellungen Werte;
    frmTipps Form(Werte, Anzahl, nullptr);
    Form.show();
    auto& Text = Teil<QLabel>(Form, u"lblTipp"_s);
    EXPECT_EQ(Text.text(), QtText(Tipps().back()));
    QTest::keyClick(&Teil<QPushButton>(Form, u"cmdNächster"_s), Qt::Key_Space);
    EXPECT_EQ(Text.text(), QtText(Tipps().front()));
    QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdVorheriger"_s), Qt::LeftButton);
    QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdVorheriger"_s), Qt::LeftButton);
    QTest::keyClick(&Form, Qt::Key_Escape);
    EXPECT_EQ(Werte.TippsAktueller, Anzahl - 1);
    Form.show();
    QTest::keyClick(&Teil<QAbstractButton>(Form, u"chkTipps"_s), Qt::Key_Space);
    Form.accept();
    EXPECT_EQ(Werte.TippsAktueller, 0);
}

TEST(Zusätze, FehlenderDatenträgerIstInDerListeZuSehen) {
    Umgebung Welt;
    Welt.Drives.Liste["E:\\"] = {Laufwerksart::Wechsel, "STICK", true};
    Lauf Eins(Welt);
    Datensatz Satz;
    Satz.Wechselmedium = "STICK";
    SatzAnhängen(Eins.Programm.Index, "E:\\x.mp3", Satz);
    Satz.Wechselmedium = "ANDERER";
    SatzAnhängen(Eins.Programm.Index, "E:\\y.mp3", Satz);
    SatzAnhängen(Eins.Programm.Index, "E:\\z.mp3", {});
    SucheAktualisieren(Eins.Programm);
    const auto Bleich = [&](int Zeile) {
        return Eins.Songs().model()->index(Zeile, 1).data(Qt::ForegroundRole).isValid();
    };
    EXPECT_FALSE(Bleich(1)) << "off as long as nobody asks for it";
    Teil<QAction>(Eins.Fenster, u"mnuFehlendeMedien"_s).trigger();
    EXPECT_FALSE(Bleich(0));
    EXPECT_TRUE(Bleich(1));
    EXPECT_FALSE(Bleich(2));
    // The answer is kept for some seconds, then the drive is asked anew.
    Mediumblick Blick;
    const Mediumumgebung Orte = MediumumgebungVon(Eins.Programm);
    EXPECT_FALSE(MediumFehlt(Blick, Orte, Eins.Programm.Index, 1, 100));
    Welt.Drives.Liste["E:\\"].Vorhanden = false;
    const int Fragen = Welt.Drives.Fragen;
    EXPECT_FALSE(MediumFehlt(Blick, Orte, Eins.Programm.Index, 1, 102));
    EXPECT_EQ(Welt.Drives.Fragen, Fragen);
    EXPECT_TRUE(MediumFehlt(Blick, Orte, Eins.Programm.Index, 1, 105));
}

TEST(Zusätze, GespeicherteSucheKommtWiederUndGeht) {
    Umgebung Welt;
    {
        Lauf Eins(Welt);
        Eins.OrdnerHinzufügen(Welt.Musikordner());
        QTest::keyClicks(&Eins.Suchfeld(), u"stille"_s);
        QTimer::singleShot(0, qApp, [] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            EXPECT_EQ(Form->findChild<QLineEdit*>()->text(), u"stille"_s);
            QTest::keyClicks(Form->findChild<QLineEdit*>(), u"Anna & Co"_s);
            QTest::keyClick(Form, Qt::Key_Return);
        });
        Teil<QAction>(Eins.Fenster, u"mnuSucheSpeichern"_s).trigger();
        Eins.Fenster.SitzungBeenden();
    }
    Lauf Zwei(Welt);
    EXPECT_EQ(Zwei.Zeilen(), 3);
    auto& Menü = Teil<QMenu>(Zwei.Fenster, u"mnuGespeicherteSuchen"_s);
    emit Menü.aboutToShow();
    ASSERT_EQ(Menü.actions().size(), 1);
    EXPECT_EQ(Menü.actions()[0]->text(), u"Anna && Co"_s) << "a plain & would be a key";
    Menü.actions()[0]->trigger();
    EXPECT_EQ(Zwei.Zeilen(), 1);
    EXPECT_EQ(Zwei.Suchfeld().currentText(), u"stille"_s);
    auto& Löschen = Teil<QMenu>(Zwei.Fenster, u"mnuGespeicherteSucheLöschen"_s);
    emit Löschen.aboutToShow();
    Löschen.actions()[0]->trigger();
    EXPECT_TRUE(Zwei.Programm.Werte.GespeicherteSuche.empty());
}

TEST(Handbuch, WirdGefundenGegliedertUndDurchsucht) {
    QTemporaryDir Ort;
    const QDir Wurzel(Ort.path());
    EXPECT_TRUE(HandbuchFinden(Ort.path()).isEmpty() || !HandbuchFinden(Ort.path()).startsWith(Ort.path()));
    Wurzel.mkpath(u"docs"_s);
    Wurzel.mkpath(u"build/bin"_s);
    {
        std::ofstream Datei((Ort.path() + u"/docs/handbuch.md"_s).toStdString());
        Datei << "# Handbuch\n\nSiehe [Suchen](#suchen-und-finden).\n\n## Erste Schritte\n\nText\n\n"
              << std::string(4000, 'x') << "\n\n## Suchen und Finden\n\nNadel\n";
    }
    const QString Datei = HandbuchFinden(Ort.path() + u"/build/bin"_s);
    ASSERT_EQ(QFileInfo(Datei).canonicalFilePath(),
              QFileInfo(Wurzel.filePath(u"docs/handbuch.md"_s)).canonicalFilePath());
    frmHilfe Form(Datei, nullptr);
    Form.show();
    auto& Inhalt = Teil<QTreeWidget>(Form, u"treInhalt"_s);
    auto& Text = Teil<QTextBrowser>(Form, u"txtHandbuch"_s);
    ASSERT_EQ(Inhalt.topLevelItemCount(), 1);
    ASSERT_EQ(Inhalt.topLevelItem(0)->childCount(), 2);
    Inhalt.setCurrentItem(Inhalt.topLevelItem(0)->child(1));
    EXPECT_EQ(Text.textCursor().block().text(), u"Suchen und Finden"_s);
    Inhalt.setCurrentItem(Inhalt.topLevelItem(0));
    emit Text.anchorClicked(QUrl(u"#suchen-und-finden"_s));
    EXPECT_EQ(Text.textCursor().block().text(), u"Suchen und Finden"_s);
    QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtSuchen"_s), u"nadel"_s);
    QTest::keyClick(&Teil<QLineEdit>(Form, u"txtSuchen"_s), Qt::Key_Return);
    EXPECT_EQ(Text.textCursor().selectedText(), u"Nadel"_s);
    QTest::keyClick(&Form, Qt::Key_Escape);
    EXPECT_FALSE(Form.isVisible());
}

}  // namespace
}  // namespace liedwerk::test
