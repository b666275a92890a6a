// The small forms and the progress window.
#include <QElapsedTimer>
#include <QPushButton>
#include <QScopedValueRollback>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif
#endif

#include "tests/ui/fensterlauf.h"
#include "ui/qt/fensteroberflaeche.h"
#include "ui/qt/fensterprogramm.h"
#include "ui/qt/frmdateinichtverfuegbar.h"
#include "ui/qt/frmindexhinzufuegen.h"
#include "ui/qt/symbole.h"
#include "ui/qt/texteditor.h"
#include "ui/qt/uebersetzer.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

TEST(Formen, FehlenderDatenträgerWirdErkanntSobaldErDaIst) {
    int Blicke = 0;
    const Verfügbarkeitsfrage Frage{"Die Datei fehlt.", [&](std::string& Aktuell) {
                                        Aktuell = ++Blicke == 1 ? "FALSCH" : "RICHTIG";
                                        return Blicke == 2;
                                    }};
    frmDateiNichtVerfügbar Form(Frage, nullptr);
    QTimer::singleShot(1500, &Form,
                       [&] { EXPECT_EQ(Teil<QLabel>(Form, u"lblAktuell"_s).text(), u"FALSCH"_s); });
    EXPECT_EQ(Form.exec(), 0);
    EXPECT_EQ(Blicke, 2);

    const std::pair<QString, Verfügbarkeitsantwort> Wege[] = {
        {u"cmdÜberspringen"_s, Verfügbarkeitsantwort::Überspringen},
        {u"cmdAbbrechen"_s, Verfügbarkeitsantwort::Abbrechen},
        {u"cmdÜberspringenAlle"_s, Verfügbarkeitsantwort::AlleÜberspringen}};
    for (const auto& [Knopf, Antwort] : Wege) {
        Fensteroberfläche Person;
        ImDialogKlicken(Knopf);
        EXPECT_EQ(Person.DateiNichtVerfügbarZeigen({"Text", {}}), Antwort);
    }
}

TEST(Formen, FragenAntwortenDeutschUndSchließenIstHarmlos) {
    Fensteroberfläche Person;
    const auto Drücken = [](Qt::Key Taste) {
        QTimer::singleShot(0, qApp, [Taste] { QTest::keyClick(QApplication::activeModalWidget(), Taste); });
    };
    Drücken(Qt::Key_Return);
    EXPECT_EQ(Person.JaNein(Symbol::Frage, "Wirklich?", Antwort::Nein), Antwort::Nein);
    Drücken(Qt::Key_Return);
    EXPECT_EQ(Person.JaNein(Symbol::Frage, "Wirklich?"), Antwort::Ja);
    Drücken(Qt::Key_Escape);
    EXPECT_EQ(Person.JaNein(Symbol::Frage, "Wirklich?"), Antwort::Nein);
    Drücken(Qt::Key_Escape);
    EXPECT_EQ(Person.Fragen(Symbol::Frage, "Speichern?", Knöpfe::JaNeinAbbrechen, Antwort::Ja),
              Antwort::Abbrechen);
    const Grundübersetzer Deutsch;
    EXPECT_EQ(Deutsch.translate("QPlatformTheme", "Cancel", nullptr, -1), u"Abbrechen"_s);
    EXPECT_TRUE(Deutsch.translate("QPlatformTheme", "Unknown text", nullptr, -1).isNull());
}

TEST(Formen, FortschrittKommtSpätUndLässtSichAbbrechen) {
    Fensteroberfläche Person;
    EXPECT_TRUE(Person.FortschrittZeigen("ohne Lauf", 1));
    Person.FortschrittStarten("Füge hinzu", true, 1000);
    QElapsedTimer Uhr;
    Uhr.start();
    while (Uhr.elapsed() < 200)
        ASSERT_TRUE(Person.FortschrittZeigen("früh", 1));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    while (Uhr.elapsed() < 700)
        Person.FortschrittZeigen("/ein/Pfad", 500);
    QWidget* const Form = QApplication::activeModalWidget();
    ASSERT_NE(Form, nullptr);
    EXPECT_EQ(Teil<QProgressBar>(*Form, u"prgFortschritt"_s).value(), 500);
    QTest::keyClick(Form, Qt::Key_Escape);
    EXPECT_FALSE(Person.FortschrittZeigen("", 501));
    Person.FortschrittSchließen();
    EXPECT_FALSE(Person.FortschrittOffen());

    // Where the person does not want to see it, it stays away.
    Person.FortschrittErwünscht = [] { return false; };
    Person.FortschrittStarten("Still", false, 0);
    Uhr.start();
    while (Uhr.elapsed() < 450)
        Person.FortschrittZeigen("x", 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Person.FortschrittSchließen();
    // A server may take any time, and the window is the only way out.
    Person.NetzfortschrittStarten("Frage");
    for (Uhr.start(); Uhr.elapsed() < 2300;)
        Person.FortschrittZeigen("x", 0);
    ASSERT_NE(QApplication::activeModalWidget(), nullptr);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Person.FortschrittZeigen("x", 0));
    Person.FortschrittSchließen();
}

// Qt's delivery of events loses a few bytes when an exception passes through it: they are not our leak.
struct OhneLecksuche {
#ifdef __has_feature
#if __has_feature(address_sanitizer)
    __lsan::ScopedDisabler Aus;
#endif
#endif
};

struct Unmalbar : QWidget {
    void paintEvent(QPaintEvent*) override { throw std::runtime_error("malen"); }
};

TEST(Formen, AusnahmenWerdenGesagtUndDasProgrammGehtWeiter) {
    [[maybe_unused]] const OhneLecksuche Geduldet;
    auto& Programm = static_cast<Fensterprogramm&>(*qApp);
    Fensteroberfläche Person;
    QStringList Gesagt;
    const QScopedValueRollback Melder(Programm.Melden, {[&](const QString& Text) { Gesagt.append(Text); }});
    const QScopedValueRollback Besen(Programm.Aufräumen, {[&](int Tiefe) { Person.LaufGescheitert(Tiefe); }});
    bool MitLauf = true;
    QPushButton Knopf;
    QObject::connect(&Knopf, &QPushButton::clicked, &Knopf, [&] {
        if (MitLauf) Person.FortschrittStarten("Lauf", false, 0);
        throw std::bad_alloc();
    });
    Knopf.show();
    for (int Mal = 1; Mal <= 2; ++Mal) {
        QTest::mouseClick(&Knopf, Qt::LeftButton);
        EXPECT_EQ(Gesagt.size(), Mal - 1) << "not within the handler";
        EXPECT_FALSE(Person.FortschrittOffen());
        QTest::qWait(1);
        ASSERT_EQ(Gesagt.size(), Mal) << "as often as the person tries";
        EXPECT_TRUE(Gesagt.back().contains(u"Nicht genügend Arbeitsspeicher"_s));
    }
    // A run around the failed handler goes on.
    MitLauf = false;
    Person.FortschrittStarten("Äußerer", false, 0);
    QTest::mouseClick(&Knopf, Qt::LeftButton);
    EXPECT_TRUE(Person.FortschrittOffen());
    Person.FortschrittSchließen();
    QTest::qWait(1);
    Gesagt.clear();
    // What comes again by itself does not bury the person in messages.
    Unmalbar Fläche;
    Fläche.show();
    for (int Mal = 0; Mal < 3; ++Mal) {
        Fläche.repaint();
        QTest::qWait(1);
    }
    EXPECT_TRUE(Gesagt.isEmpty());
    QMetaObject::invokeMethod(
        qApp, [] { throw std::runtime_error("Grund"); }, Qt::QueuedConnection);
    QTest::qWait(1);
    ASSERT_EQ(Gesagt.size(), 1);
    EXPECT_TRUE(Gesagt[0].contains(u"\nGrund\n"_s));
}

TEST(Formen, EditorbefehlIstDerDesEintrags) {
    using Worte = std::vector<std::string>;
    for (const auto& [Eintrag, Erwartet] : std::vector<std::pair<QByteArray, Worte>>{
             {"[Desktop Action neu]\nExec=falsch %f\n[Desktop Entry]\r\nExec=ed %F\r\n",
              {"ed", "/x/\xff a%f"}},
             {"[Desktop Entry]\nExec=\"/opt/e d/ed\" --icon %i %c --file=%f 100%%\n",
              {"/opt/e d/ed", "--icon", "--file=/x/\xff a%f", "100%"}},
             {"[Desktop Entry]\nExec=ed\n[Desktop Action x]\nTerminal=true\n", {"ed", "/x/\xff a%f"}},
             {"[Desktop Entry]\nExec=vi %f\nTerminal=true\n", {}},
             {"Exec=ed\n", {}}})
        EXPECT_EQ(Editorbefehl(Eintrag, "/x/\xff a%f"), Erwartet) << Eintrag.toStdString();
}

TEST(Formen, RestzeitWirdErstGenanntWennSieSichSchätzenLässt) {
    EXPECT_TRUE(Restzeit(0.5, 1000).isEmpty());
    EXPECT_TRUE(Restzeit(0.001, 60000).isEmpty());
    EXPECT_EQ(Restzeit(0.5, 20000), u"Noch etwa 25 Sekunden"_s);
    EXPECT_EQ(Restzeit(0.1, 60000), u"Noch etwa 9 Minuten"_s);
    EXPECT_EQ(Restzeit(0.99, 100000), u"Gleich fertig"_s);
}

TEST(Formen, DateifilterNenntWasVerwaltetWird) {
    EXPECT_TRUE(DateifilterBilden({}).Hindernis.startsWith(
        u"Sie können keine Dateien hinzufügen, da kein Dateityp eing"_s));
    EXPECT_TRUE(DateifilterBilden({{"mp3=0", "110"}}).Hindernis.contains(u"freigegeben"_s));
    const Dateifilter Filter = DateifilterBilden({{"mp3=1", "110"}, {"txt=0", "000"}, {"ogg=1", "010"}});
    EXPECT_EQ(Filter.Unterstützte, u"Unterstützte Dateiformate (*.mp3 *.ogg)"_s);
}

TEST(Formen, AdresslistenErhaltenJedesByteEinesNamens) {
    const std::vector<std::string> Pfade = {"/Musik/a b#c?.mp3", "/M\xfcsik/100%.mp3",
                                            "/Müsik/\xf0\x9f\x8e\xb5.mp3"};
    EXPECT_EQ(PfadeAusUriListe(UriListe(Pfade)), Pfade);
    EXPECT_EQ(
        PfadeAusUriListe("# Kommentar\r\nhttp://anderswo/x\r\nfile://rechner/a\r\nfile:/b%00c\r\nfile:/d"),
        (std::vector<std::string>{"/a", "/d"}));
}

TEST(Formen, SymboleFolgenDerSchriftfarbe) {
    const QPalette Vorher = QGuiApplication::palette();
    const auto Hellstes = [] {
        const QImage Bild = Symbolbild("ordner").pixmap(32, 32).toImage();
        int Wert = 0;
        for (int y = 0; y < Bild.height(); ++y) {
            for (int x = 0; x < Bild.width(); ++x) {
                if (qAlpha(Bild.pixel(x, y)) > 200) Wert = std::max(Wert, qGray(Bild.pixel(x, y)));
            }
        }
        return Wert;
    };
    EXPECT_LT(Hellstes(), 80);
    QPalette Dunkel = Vorher;
    Dunkel.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(Dunkel);
    EXPECT_GT(Hellstes(), 200);
    QGuiApplication::setPalette(Vorher);
}

}  // namespace
}  // namespace liedwerk::test
