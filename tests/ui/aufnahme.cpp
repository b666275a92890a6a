// The forms that bring files into the index, driven as a person does, and walking through folders.
#include <QCheckBox>
#include <QClipboard>
#include <QCommandLinkButton>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QToolButton>

#include "core/laden.h"
#include "core/listenlauf.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmdateinichtverfuegbar.h"
#include "ui/qt/frmindexhinzufuegen.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Aufnahme : public testing::Test {
  protected:
    Umgebung Welt;
    static void Auslösen(Lauf& Programmlauf, const QString& Name) {
        Teil<QAction>(Programmlauf.Fenster, Name).trigger();
    }
    static QStringList Namen(Lauf& Eins) {
        QStringList Alle;
        for (const Satznummer Nummer : Eins.Programm.Ansicht.Zeilen)
            Alle += QtText(Eins.Programm.Index.Sätze.Pfad(Nummer)).section(u'/', -1);
        Alle.sort();
        return Alle;
    }
};

TEST_F(Aufnahme, DieZwischenablageGehtÜberDieZusammenfassung) {
    Lauf Eins(Welt);
    const std::string Ordner = Welt.Musikordner();
    QGuiApplication::clipboard()->setText(QtText(Ordner + "/eins.mp3\r\nfile://" + Ordner +
                                                 "/fort.mp3\r\nhttp://x/y\r\n" + Ordner + "/zwei.mp3"));
    const auto Ansehen = [&](const QString& Knopf, bool Wieder) {
        ImDialogKlicken(u"cmdHinzufügenZwischenablage"_s, [=](QWidget&) {
            QTimer::singleShot(0, qApp, [=] {
                ImDialogKlicken(Knopf, [=](QWidget& Form) {
                    auto& Liste = Teil<QTreeView>(Form, u"lstDateinamen"_s);
                    EXPECT_EQ(Liste.model()->rowCount(), 3);
                    EXPECT_EQ(Liste.model()->index(1, 1).data().toString(), u"Nein"_s);
                    EXPECT_TRUE(
                        Teil<QLabel>(Form, u"lblAnzahl"_s).text().contains(u"1 Internet-Adresse(n)"_s));
                    QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdExportieren"_s), Qt::LeftButton);
                    Teil<QCheckBox>(Form, u"chkZusammenfassungZeigen"_s).setChecked(Wieder);
                });
            });
        });
        Auslösen(Eins, u"mnuHinzufügen"_s);
    };
    const QString Vorher = QGuiApplication::clipboard()->text();
    Ansehen(u"cmdAbbrechen"_s, true);
    EXPECT_EQ(Eins.Zeilen(), 0);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QtText(Ordner + "/eins.mp3\r\n" + Ordner + "/fort.mp3\r\n" + Ordner + "/zwei.mp3"));
    QGuiApplication::clipboard()->setText(Vorher);
    Ansehen(u"cmdOk"_s, false);
    EXPECT_EQ(Namen(Eins), (QStringList{u"eins.mp3"_s, u"zwei.mp3"_s}));
    EXPECT_EQ(Eins.Programm.Werte.HinzufügenZusammenfassungZeigen, 0);
}

TEST_F(Aufnahme, KopierenNachDemHinzufügenWirdGewähltUndGemerkt) {
    Lauf Eins(Welt);
    Einstellungen& Werte = Eins.Programm.Werte;
    int Eingestellt = 0;
    frmIndexHinzufügen Form(
        Eins.Programm.Index.Optionen.Dateitypen, Werte, [&](QWidget*) { ++Eingestellt; }, nullptr);
    auto& Knopf = Teil<QPushButton>(Form, u"cmdKopierenEinstellen"_s);
    EXPECT_FALSE(Knopf.isEnabled());
    Teil<QRadioButton>(Form, u"optVerschieben(1)"_s).click();
    EXPECT_TRUE(Knopf.isEnabled());
    EXPECT_EQ(Eingestellt, 1) << "there is no target yet";
    Werte.KopierenOrdner = Welt.Ordner() + "/Ziel";
    Teil<QRadioButton>(Form, u"optVerschieben(0)"_s).click();
    Teil<QRadioButton>(Form, u"optVerschieben(1)"_s).click();
    EXPECT_EQ(Eingestellt, 1);
    Form.reject();
    EXPECT_EQ(Werte.HinzufügenKopieren, 1);

    const std::string Ordner = Welt.Musikordner();
    Werte.KopierenModus = 1;
    HinzufügewahlAusführen(Eins.Programm, {Hinzufügeweg::Ordner, {}, Ordner, {}, true});
    EXPECT_TRUE(DateiExistiert(Welt.Ordner() + "/Ziel/eins.mp3"));
    EXPECT_FALSE(DateiExistiert(Ordner + "/eins.mp3"));
    for (Satznummer Nummer = 1; Nummer <= 3; ++Nummer)
        EXPECT_TRUE(Eins.Programm.Index.Sätze.Pfad(Nummer).starts_with(Werte.KopierenOrdner));
}

TEST_F(Aufnahme, EineAudioCDWirdImMenüIhresKnopfesGewählt) {
    const std::string Blatt = Welt.Ordner() + "/Album.cue";
    std::ofstream(Welt.Ordner() + "/a.bin") << std::string(std::size_t{2352} * 150, 'x');
    std::ofstream(Blatt)
        << "FILE a.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:01:00";
    Welt.Drives.Liste[Blatt + "/"] = {Laufwerksart::CdRom, "", true};
    Lauf Eins(Welt);
    speicher::CDs CDs;
    CDs.Liste[Blatt] = {0, {}, {{150}, {225}}, 300};
    Eins.Programm.Dienst.CDs = &CDs;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* const Form = QApplication::activeModalWidget();
        ASSERT_NE(Form, nullptr);
        const QMenu* const Menü = Teil<QPushButton>(*Form, u"cmdCDHinzufügen"_s).menu();
        ASSERT_NE(Menü, nullptr);
        ASSERT_EQ(Menü->actions().size(), 2) << "the drive, and an image to be chosen";
        EXPECT_EQ(Menü->actions()[0]->text(), QtText(Blatt));
        Menü->actions()[0]->trigger();
    });
    Auslösen(Eins, u"mnuHinzufügen"_s);
    EXPECT_EQ(Namen(Eins), (QStringList{u"Track01.cda"_s, u"Track02.cda"_s}));
    EXPECT_EQ(Eins.Programm.Index.Sätze.Text(2, FeldTitel), "Titel 2");
    EXPECT_EQ(Eins.Programm.Index.Sätze.Text(2, FeldWechselmedium), " 05000202");
}

TEST_F(Aufnahme, SynchronisierenStehtInMenüUndFunktionsleiste) {
    Lauf Eins(Welt);
    Eins.Programm.Werte.FarbeFunktionenBesucht = 0x00FF00;
    Eins.Programm.Index.Optionen.SyncOrdner = {{Welt.Musikordner(), 1, {}}};
    auto& Knopf = Teil<QToolButton>(Eins.Fenster, u"cmdListeAufräumen"_s);
    QTest::mouseClick(&Knopf, Qt::LeftButton);
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_EQ(Eins.Songs().AuswahlAnzahl(), 3);
    EXPECT_EQ(Knopf.palette().color(QPalette::ButtonText), QColor(0, 255, 0));
    std::filesystem::remove(Welt.Ordner() + "/Musik/zwei.mp3");
    Auslösen(Eins, u"mnuListeAufräumen"_s);
    EXPECT_EQ(Eins.Zeilen(), 2);
    EXPECT_EQ(Eins.Person.Status.back(),
              "Synchronisation fertig: 1 Datei(en) entfernt, 0 Datei(en) hinzugefügt");
    // A rule that moves files, which nobody has entered here: the preset answer is no.
    Eins.Programm.Index.Optionen.SyncOrdner[0].KopierenInOrdner = Welt.Ordner() + "/anderswo";
    Auslösen(Eins, u"mnuListeAufräumen"_s);
    EXPECT_FALSE(OrdnerExistiert(Welt.Ordner() + "/anderswo"));
    EXPECT_EQ(Eins.Person.Status.back(), "Synchronisation nicht begonnen");
}

TEST_F(Aufnahme, DoppelklickUndEingabeGehenDurchDieOrdner) {
    const std::string Oben = Welt.Ordner() + "/Sammlung";
    std::filesystem::create_directories(Oben + "/Album/Tief");
    MusikdateiAnlegen(Oben + "/Album/lied.mp3", "L", "I");
    MusikdateiAnlegen(Oben + "/oben.mp3", "O", "I");
    Lauf Eins(Welt);
    Eins.Programm.Index.IndexDateiname = Oben;
    ASSERT_TRUE(StandardDateiLaden(Eins.Programm, ModusDateimanager, true));
    const auto Zeile = [&](const QString& Name) {
        for (int Nummer = 0; Nummer < Eins.Zeilen(); ++Nummer) {
            const auto Satz = Eins.Programm.Ansicht.Zeilen[static_cast<std::size_t>(Nummer)];
            if (QtText(Eins.Programm.Index.Sätze.Pfad(Satz)).endsWith(Name)) return Nummer;
        }
        return -1;
    };
    const auto Doppelklicken = [&](const QString& Name) {
        const QRect Ort = Eins.Songs().visualRect(Eins.Songs().model()->index(Zeile(Name), 1));
        QTest::mouseDClick(Eins.Songs().viewport(), Qt::LeftButton, Qt::NoModifier, Ort.center());
        QTest::qWait(1);
    };
    Eins.Suchfeld().setEditText(u"Album"_s);
    Doppelklicken(u"/Sammlung/Album"_s);
    EXPECT_EQ(Eins.Programm.Index.IndexDateiname, Oben + "/Album");
    EXPECT_EQ(Namen(Eins), (QStringList{u"Sammlung"_s, u"Tief"_s, u"lied.mp3"_s}));
    EXPECT_EQ(Teil<QLabel>(Eins.Fenster, u"lblAnzahl"_s).text().section(u'\n', 0, 0),
              u"2 Datei(en)/Ordner gesamt"_s);
    EXPECT_TRUE(Eins.Suchfeld().currentText().isEmpty());
    Doppelklicken(u"lied.mp3"_s);
    EXPECT_EQ(Eins.Programm.Index.IndexDateiname, Oben + "/Album") << "a file is no folder";
    Eins.Songs().setCurrentIndex(Eins.Songs().model()->index(Zeile(u"/Sammlung"_s), 1));
    QTest::keyClick(&Eins.Songs(), Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_EQ(Eins.Programm.Index.IndexDateiname, Oben);
    EXPECT_GE(Zeile(u"oben.mp3"_s), 0);
}

TEST_F(Aufnahme, DerWächterÜberEineGesperrteDateiSchließtVonSelbst) {
    int Blicke = 0;
    frmDateiNichtVerfügbarSchreiben Form({"Gesperrt", [&] { return ++Blicke == 2; }}, nullptr);
    EXPECT_EQ(Form.exec(), 0);
    EXPECT_EQ(Blicke, 2);
    frmDateiNichtVerfügbarSchreiben Zweite({"Gesperrt", {}}, nullptr);
    QTimer::singleShot(0, &Zweite, [&] { QTest::keyClick(&Zweite, Qt::Key_Escape); });
    EXPECT_EQ(Zweite.exec(), 1) << "closing skips the file";
}

}  // namespace
}  // namespace liedwerk::test
