// Playing in the main window: the panel, double clicks, the forms.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QToolButton>

#include "plattform/speicher/spieler.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmbildanzeige.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

using Sendungen = std::vector<std::array<int, 3>>;

// A window with a player that only keeps what it is told.
class AbspielenFenster : public testing::Test {
  protected:
    AbspielenFenster() {
        Welt.Werte.Schreiben("AudioplayerNachrichtZeigen", std::int32_t{0});
        Welt.Werte.Schreiben("WinampPfad", Welt.Ordner() + "/audacious");
        std::ofstream(Welt.Ordner() + "/audacious") << "x";
        Welt.Spieler = &Kanal;
        Welt.Programme = &Programme;
        Kanal.Stand.TitelIstFenstertext = false;
        Kanal.Stand.Titel = "Anna Berg - Morgenlicht";
        Kanal.Länge = 200;
        Kanal.Position = 61000;
    }
    void Laufen(int Zustand) {
        Kanal.Klasse = "audacious";
        Kanal.Zustand = Zustand;
        Kanal.Geändert();
        QTest::qWait(20);
    }

    speicher::Spieler Kanal;
    speicher::Programme Programme;
    Umgebung Welt;
};

TEST_F(AbspielenFenster, FeldZeigtUndSteuertDenSpieler) {
    Lauf Eins(Welt);
    auto& Titel = Teil<QLabel>(Eins.Fenster, u"lblTitel"_s);
    auto& Stelle = Teil<QLabel>(Eins.Fenster, u"lblTitelposition"_s);
    auto& Weg = Teil<QSlider>(Eins.Fenster, u"hscrlTrackPos"_s);
    auto& Laut = Teil<QSlider>(Eins.Fenster, u"hscrlVolume"_s);
    auto& Spielen = Teil<QToolButton>(Eins.Fenster, u"cmdAbspielen"_s);
    EXPECT_EQ(Titel.text(), u"Audio-Player"_s);
    EXPECT_EQ(Stelle.text(), u"Titelposition"_s);
    EXPECT_EQ(Weg.maximum(), 100);
    EXPECT_EQ(Weg.value(), 1);
    EXPECT_EQ(Laut.value(), 128);
    EXPECT_FALSE(Laut.isEnabled() || Weg.isEnabled() || Spielen.isEnabled());

    Kanal.Stand.Lautstärke = 51;
    Kanal.Stand.KannBalance = false;
    Laufen(1);
    // A narrow window cuts the title, and the whole of it is the tool tip.
    EXPECT_TRUE((Titel.toolTip() + Titel.text()).contains(u"Audio-Player - 'Anna Berg - Morgenlicht'"_s));
    EXPECT_EQ(Stelle.text(), u"Titelposition - 01:01/03:20"_s);
    EXPECT_EQ(Weg.maximum(), 200);
    EXPECT_EQ(Weg.value(), 61);
    EXPECT_EQ(Laut.value(), 51);
    EXPECT_FALSE(Teil<QSlider>(Eins.Fenster, u"hscrlBalance"_s).isEnabled()) << "the player cannot do that";
    EXPECT_EQ(Spielen.text(), u"Pause"_s);
    EXPECT_TRUE(Kanal.Gesendet.empty()) << "showing is no sending";

    QTest::mouseClick(&Spielen, Qt::LeftButton);
    Laufen(3);
    EXPECT_EQ(Spielen.text(), u"Spielen"_s);
    QTest::mouseClick(&Spielen, Qt::LeftButton);
    QTest::mouseClick(&Teil<QToolButton>(Eins.Fenster, u"cmdWinampNächster"_s), Qt::LeftButton);
    Laut.setValue(200);
    EXPECT_EQ(Kanal.Gesendet,
              (Sendungen{{273, 40046, 0}, {273, 40045, 0}, {273, 40048, 0}, {1024, 200, 122}}));

    // Held, the bar does not follow the title; let go, the title follows the bar.
    Kanal.Gesendet.clear();
    QTest::mousePress(&Weg, Qt::LeftButton, {}, {Weg.width() / 2, Weg.height() / 2});
    Kanal.Position = 70000;
    Laufen(1);
    EXPECT_NE(Weg.value(), 70);
    const int Gewählt = Weg.value();
    EXPECT_TRUE(Kanal.Gesendet.empty());
    QTest::mouseRelease(&Weg, Qt::LeftButton, {}, {Weg.width() / 2, Weg.height() / 2});
    EXPECT_EQ(Kanal.Gesendet, (Sendungen{{1024, Gewählt * 1000, 106}}));
    Kanal.Gesendet.clear();
    QTest::keyClick(&Weg, Qt::Key_Right);
    QTest::qWait(500);
    EXPECT_EQ(Kanal.Gesendet, (Sendungen{{1024, (Gewählt + 1) * 1000, 106}}));

    Kanal.Position = 190000;
    Laufen(1);
    EXPECT_TRUE(Teil<QTimer>(Eins.Fenster, u"tmrBlinken"_s).isActive());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Stelle.isHidden(); }, 2000));
    Eins.Programm.Werte.PlayerAusblendenBeiStopp = 1;
    Laufen(0);
    EXPECT_FALSE(Titel.isVisible());
    EXPECT_FALSE(Stelle.isHidden()) << "a hidden time must come back";
    Kanal.Klasse.clear();
    Kanal.Geändert();
    QTest::qWait(20);
    EXPECT_TRUE(Titel.isVisible());
    EXPECT_EQ(Titel.text(), u"Audio-Player"_s);
}

TEST_F(AbspielenFenster, LangerTitelMachtDasFensterNichtBreiter) {
    Lauf Eins(Welt);
    const int Vorher = Eins.Fenster.minimumSizeHint().width();
    Kanal.Stand.Titel = "<b>" + std::string(500, 'W');
    Laufen(1);
    EXPECT_EQ(Eins.Fenster.minimumSizeHint().width(), Vorher);
    EXPECT_LE(Vorher, 900);
    EXPECT_TRUE(Teil<QLabel>(Eins.Fenster, u"lblTitel"_s).toolTip().contains(u"<b>WW"_s));
}

TEST_F(AbspielenFenster, GespielterTitelWirdErkanntGezeigtUndGezählt) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Laufen(1);
    Welt.Zeit.Punkt.Sekunde = 31;
    Laufen(1);
    auto& Titel = Teil<QLabel>(Eins.Fenster, u"lblTitel"_s);
    EXPECT_TRUE((Titel.toolTip() + Titel.text()).contains(u"Morgenlicht' - [Erkannt]"_s));
    EXPECT_EQ(Eins.Person.Status.back(), "Die derzeit abgespielte Datei wurde 1 Mal erkannt");
}

TEST_F(AbspielenFenster, DoppelklickUndEingabeFolgenDerEinstellung) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Eins.Songs().setCurrentIndex(Eins.Songs().model()->index(1, 1));
    const std::string Pfad = Eins.Programm.Index.Sätze.Pfad(2);
    const auto Öffnen = [&](std::int16_t Wie) {
        Programme.Starts.clear();
        Programme.Geöffnet.clear();
        Eins.Programm.Werte.BeiDoppelklick = Wie;
        QTest::keyClick(&Eins.Songs(), Qt::Key_Return);
        QTest::qWait(10);
    };
    Öffnen(0);
    ASSERT_EQ(Programme.Starts.size(), 1u);
    EXPECT_EQ(Programme.Starts[0].Argumente.size(), 1u) << "the profile's switches, not /ADD";
    EXPECT_NE(Programme.Starts[0].Playliste.find(Pfad), std::string::npos);
    Öffnen(2);
    ASSERT_EQ(Programme.Starts.size(), 1u);
    EXPECT_EQ(Programme.Starts[0].Argumente[0], "-e");
    Öffnen(4);
    EXPECT_TRUE(Programme.Starts.empty());
    EXPECT_EQ(Programme.Geöffnet, std::vector<std::string>{Pfad});

    // Ctrl clears the player's list first.
    Eins.Programm.Werte.BeiDoppelklick = 1;
    Laufen(1);
    Kanal.Gesendet.clear();
    const QPoint Ort = Eins.Songs().visualRect(Eins.Songs().model()->index(0, 1)).center();
    QTest::mouseDClick(Eins.Songs().viewport(), Qt::LeftButton, Qt::ControlModifier, Ort);
    QTest::qWait(10);
    EXPECT_EQ(Kanal.Gesendet, (Sendungen{{1024, 0, 101}}));
    QTest::mouseClick(Eins.Songs().viewport(), Qt::LeftButton, {}, Ort);  // lets the key go
}

TEST_F(AbspielenFenster, OhneEinstellungWirdEinInstallierterSpielerVorgeschlagen) {
    Welt.Werte.Löschen("WinampPfad");
    Programme.Installiert["vlc"] = Welt.Ordner() + "/audacious";
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Eins.Songs().setCurrentIndex(Eins.Songs().model()->index(1, 1));
    auto& mnuEintragAbspielen = Teil<QAction>(Eins.Fenster, u"mnuEintragAbspielen"_s);

    // A picture needs no player and is shown without a question.
    const std::string Bild = Welt.Ordner() + "/bild.jpg";
    QImage(40, 20, QImage::Format_RGB32).save(QtText(Bild));
    const std::vector<Satznummer> Gewählte = Eins.Programm.Ansicht.Auswahl;
    Eins.Programm.Ansicht.Auswahl = {SatzAnhängen(Eins.Programm.Index, Bild, {})};
    QString Gezeigt;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_NE(Form, nullptr);
        Gezeigt = Form->windowTitle();
        QTest::keyClick(Form, Qt::Key_Escape);
    });
    mnuEintragAbspielen.trigger();
    EXPECT_EQ(Gezeigt, QtText(Bild) + u" - Bild-Anzeige"_s);
    EXPECT_TRUE(Eins.Person.Meldungen.empty());
    Eins.Programm.Ansicht.Auswahl = Gewählte;

    Eins.Person.Antworten = {Antwort::Ja};
    mnuEintragAbspielen.trigger();
    ASSERT_EQ(Programme.Starts.size(), 1u);
    EXPECT_EQ(Programme.Starts[0].Argumente[0], "--one-instance");
    EXPECT_EQ(Eins.Programm.Werte.WinampParameterHinzufügen, "--one-instance --playlist-enqueue");
}

TEST_F(AbspielenFenster, NachrichtLässtSichAbstellen) {
    Welt.Werte.Schreiben("AudioplayerNachrichtZeigen", std::int32_t{1});
    Lauf Eins(Welt);
    ImDialogKlicken(u"cmdOk"_s, [](QWidget& Form) {
        EXPECT_EQ(Form.objectName(), u"frmAudioplayerNachricht"_s);
        Teil<QCheckBox>(Form, u"chkNichtMehrZeigen"_s).click();
    });
    Teil<QAction>(Eins.Fenster, u"mnuAudioplayerStarten"_s).trigger();
    EXPECT_EQ(Programme.Starts.size(), 1u);
    EXPECT_EQ(Eins.Programm.Werte.AudioplayerNachrichtZeigen, 0);
}

TEST_F(AbspielenFenster, AusführenMitNurMitVorhandenemProgramm) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    Teil<QAction>(Eins.Fenster, u"mnuAllesAuswählen"_s).trigger();
    ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Form) {
        auto& Feld = Teil<QLineEdit>(Form, u"txtSuche"_s);
        for (const QString& Falsches : {u""_s, u"/gibt/es/nicht"_s}) {
            Feld.setText(Falsches);
            QTest::keyClick(&Form, Qt::Key_Return);
        }
        Feld.setText(QtText(Welt.Ordner() + "/audacious"));
    });
    Teil<QAction>(Eins.Fenster, u"mnuAusführenMit"_s).trigger();
    EXPECT_EQ(Eins.Person.Meldungen,
              (std::vector<std::string>{"Bitte geben Sie ein Programm an.",
                                        "Die angegebene Datei '/gibt/es/nicht' existiert nicht."}));
    ASSERT_EQ(Programme.Starts.size(), 3u);
    EXPECT_EQ(Programme.Starts[0].Argumente[0], Eins.Programm.Index.Sätze.Pfad(1));
    EXPECT_EQ(Eins.Programm.Werte.AusführenPfad, Welt.Ordner() + "/audacious");
}

TEST_F(AbspielenFenster, AutoDjZeigtFundeInIhrerFolgeUndMerktDieEingaben) {
    Lauf Eins(Welt);
    Eins.OrdnerHinzufügen(Welt.Musikordner());
    for (const auto& [Nummer, Gehört] : {std::pair{1, 2}, std::pair{3, 5}}) {
        Datensatz Satz = Eins.Programm.Index.Sätze.Lesen(Nummer);
        Satz.AbspielHäufigkeit = Gehört;
        Eins.Programm.Index.Sätze.Setzen(Nummer, Eins.Programm.Index.Sätze.Pfad(Nummer), Satz);
    }
    ImDialogKlicken(u"cmdErstellen"_s, [&](QWidget& Form) {
        auto& Genres = Teil<QListWidget>(Form, u"lstFelder"_s);
        EXPECT_EQ(Genres.item(0)->text(), u"(Dateien ohne Genre)"_s);
        EXPECT_EQ(Genres.item(0)->checkState(), Qt::Checked);
        Teil<QComboBox>(Form, u"cboFunktion"_s).setCurrentIndex(1);
        Teil<QLineEdit>(Form, u"txtTopWieviel"_s).setText(u"viele"_s);
        Teil<QAbstractButton>(Form, u"cmdErstellen"_s).click();
        Teil<QLineEdit>(Form, u"txtTopWieviel"_s).setText(u"7"_s);
        QTest::mouseClick(&Teil<QAbstractButton>(Form, u"cmdGenreKeine"_s), Qt::LeftButton);
        QTest::keyClick(&Form, Qt::Key_Return);
        QTest::mouseClick(&Teil<QAbstractButton>(Form, u"cmdGenreUmkehren"_s), Qt::LeftButton);
    });
    auto& mnuAutoDJ = Teil<QAction>(Eins.Fenster, u"mnuAutoDJ"_s);
    mnuAutoDJ.trigger();
    EXPECT_EQ(
        Eins.Person.Meldungen,
        (std::vector<std::string>{"Bitte geben Sie eine Zahl in das Feld 'Zeige meine persönlichen Top...' "
                                  "ein oder leeren Sie dieses.",
                                  "Bitte wählen Sie mindestens ein Genre aus der Liste."}));
    EXPECT_EQ(Eins.Programm.Ansicht.Zeilen, (std::vector<Satznummer>{3, 1}));
    EXPECT_EQ(Eins.Zelle(0, static_cast<int>(Eins.Programm.Ansicht.Spalten.size())), u"5"_s);
    EXPECT_EQ(Eins.Programm.Werte.AutoDJTopWieviel, "7");
    EXPECT_EQ(Eins.Programm.Index.ErsterTreffer, -1);
    QTest::keyClicks(&Eins.Suchfeld(), u"anna"_s);
    QTest::keyClick(&Eins.Suchfeld(), Qt::Key_Return);
    EXPECT_EQ(Eins.Zeilen(), 2) << "the next search replaces the list";

    // No genre at all is a choice, too.
    ImDialogKlicken(u"cmdAbbrechen"_s,
                    [](QWidget& Form) { Teil<QAbstractButton>(Form, u"cmdGenreKeine"_s).click(); });
    mnuAutoDJ.trigger();
    ImDialogKlicken(u"cmdAbbrechen"_s, [](QWidget& Form) {
        auto& Genres = Teil<QListWidget>(Form, u"lstFelder"_s);
        for (int Zeile = 0; Zeile < Genres.count(); ++Zeile)
            EXPECT_EQ(Genres.item(Zeile)->checkState(), Qt::Unchecked);
    });
    mnuAutoDJ.trigger();
}

TEST(AutoDjEingaben, ÜberstehenDieEinstellungen) {
    for (const auto& [Zeit, Maximum] : {std::pair{"0", "40000"}, std::pair{"", ""}}) {
        AutoDjEingabe Eingabe;
        Eingabe.Funktion = AutoDjFunktion::Topliste;
        Eingabe.Zeit = Zeit;
        Eingabe.Maximum = Maximum;
        Einstellungen Werte;
        AutoDjInEinstellungen(Werte, Eingabe);
        const AutoDjEingabe Zurück = AutoDjAusEinstellungen(Werte, AutoDjFunktion::Topliste);
        EXPECT_EQ(Zurück.Zeit, Zeit);
        EXPECT_EQ(Zurück.Maximum, Maximum);
    }
}

TEST(Bildanzeige, GroßesBildWirdGezeigt) {
    QTemporaryDir Ordner;
    const QString Pfad = Ordner.filePath(u"gross.jpg"_s);
    QImage Groß(6000, 6000, QImage::Format_RGB32);  // more than the 128 MiB that Qt reads unasked
    Groß.fill(Qt::red);
    ASSERT_TRUE(Groß.save(Pfad));
    frmBildAnzeige Eine(Pfad.toStdString(), nullptr);
    Eine.show();
    EXPECT_FALSE(Teil<QLabel>(Eine, u"imgViewer"_s).pixmap().isNull());
}

TEST(Bildanzeige, ZeigtFesteFormateUnterJedemNamenUndSagtWasKeinBildIst) {
    QTemporaryDir Ordner;
    const QString Gut = Ordner.filePath(u"gut.png"_s), Schlecht = Ordner.filePath(u"schlecht.png"_s);
    for (const char* const Format : {"jpg", "bmp", "ico", "png"}) {
        QImage(40, 20, QImage::Format_RGB32).save(Gut, Format);
        frmBildAnzeige Eine(Gut.toStdString(), nullptr);
        Eine.show();
        EXPECT_EQ(Eine.windowTitle(), Gut + u" - Bild-Anzeige"_s);
        EXPECT_EQ(Teil<QLabel>(Eine, u"imgViewer"_s).pixmap().size(), QSize(40, 20)) << Format;
        QTest::keyClick(&Eine, Qt::Key_Escape);
        EXPECT_FALSE(Eine.isVisible());
    }
    // Qt could show the last two; the first of them may name any file, and unpack without end.
    for (const char* const Inhalt :
         {"", "kein Bild", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", "P1 1 1 1"}) {
        std::ofstream(Schlecht.toStdString()) << Inhalt;
        frmBildAnzeige Eine(Schlecht.toStdString(), nullptr);
        EXPECT_TRUE(Teil<QLabel>(Eine, u"imgViewer"_s).text().contains(u"kein Bild"_s)) << Inhalt;
    }
}

}  // namespace
}  // namespace liedwerk::test
