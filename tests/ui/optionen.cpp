// Options, index options, index files, backups and statistics through their forms.
#include <QAbstractSpinBox>
#include <QClipboard>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeWidget>

#include "core/optionentabelle.h"
#include "core/suchlauf.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/farbknopf.h"
#include "ui/qt/frmindexdateien.h"
#include "ui/qt/frmindexoptionen.h"
#include "ui/qt/frmindexstatistik.h"
#include "ui/qt/frmoptionen.h"
#include "ui/qt/frmsicherungskopien.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class Optionenformen : public testing::Test {
  protected:
    Optionenformen() : Eins(Welt) { Eins.OrdnerHinzufügen(Welt.Musikordner()); }
    static void Drücken(QWidget& Form, const QString& Name) {
        auto& Knopf = Teil<QAbstractButton>(Form, Name);
        ASSERT_TRUE(Knopf.isEnabled()) << Name.toStdString();
        QTest::mouseClick(&Knopf, Qt::LeftButton, {}, {6, Knopf.height() / 2});
    }
    // Runs what the person does in the next modal form; one that is left open is a fault, and closed.
    static void ImNächsten(std::function<void(QWidget&)> Tun) {
        QTimer::singleShot(0, qApp, [Tun = std::move(Tun)] {
            QPointer<QWidget> Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            // Shortcuts belong to the window that has the keyboard.
            ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
            Tun(*Form);
            if (Form != nullptr && Form->isVisible()) {
                ADD_FAILURE() << Form->objectName().toStdString() << " ist noch offen";
                Form->close();
            }
        });
    }
    void Auslösen(const QString& Name) {
        auto& Aktion = Teil<QAction>(Eins.Fenster, Name);
        ASSERT_TRUE(Aktion.isEnabled()) << Name.toStdString();
        Aktion.trigger();
    }
    Einstellungen& Werte() { return Eins.Programm.Werte; }

    Umgebung Welt;
    Lauf Eins;
};

QString Bedienungsname(const Option& Eine) {
    const QString Name = QtText(Eine.Name);
    switch (Eine.Art) {
        case Optionsart::Stelle:
            return u"chk%1(%2)"_s.arg(Name).arg(Eine.Mindestens);
        case Optionsart::Schalter:
        case Optionsart::Laufend:
            return u"chk"_s + Name;
        case Optionsart::Wahl:
        case Optionsart::Schrift:
            return u"cbo"_s + Name;
        case Optionsart::Farbe:
            return u"cmd"_s + Name;
        default:
            return u"txt"_s + Name;
    }
}

// Changes an option through its control; gives what it must be then.
std::string Ändern(QWidget& Form, const Option& Eine) {
    const QString Name = Bedienungsname(Eine);
    switch (Eine.Art) {
        case Optionsart::Schalter:
        case Optionsart::Stelle:
        case Optionsart::Laufend: {
            auto& Schalter = Teil<QCheckBox>(Form, Name);
            Schalter.click();
            return Schalter.isChecked() ? "1" : "0";
        }
        case Optionsart::Zahl: {
            auto& Zahl = Teil<QSpinBox>(Form, Name);
            Zahl.stepBy(Zahl.value() < Zahl.maximum() ? 1 : -1);
            return std::to_string(Zahl.value());
        }
        case Optionsart::Wahl: {
            auto& Wahl = Teil<QComboBox>(Form, Name);
            Wahl.setCurrentIndex(Wahl.count() - 1);
            return std::to_string(Eine.Auswahl.back().Wert);
        }
        case Optionsart::Farbe:
            Teil<Farbknopf>(Form, Name).Gewählt(0x112233);
            return std::to_string(0x112233);
        case Optionsart::Schrift:
            Teil<QFontComboBox>(Form, Name).setCurrentText(QFontDatabase::families().last());
            return Utf8Text(QFontDatabase::families().last());
        case Optionsart::Text:
        case Optionsart::Programm:
            break;
    }
    const QString Text = Eine.Art == Optionsart::Programm
                             ? QCoreApplication::applicationFilePath()
                             : (Eine.Name == "CDDBEmail" ? u"name@anbieter.de"_s : u"neu.invalid"_s);
    Teil<QLineEdit>(Form, Name).setText(u"  "_s + Text + u" "_s);
    return Utf8Text(Text);
}

std::string WertVon(const Einstellungen& Werte, const Option& Eine) {
    const bool Text =
        Eine.Art == Optionsart::Text || Eine.Art == Optionsart::Programm || Eine.Art == Optionsart::Schrift;
    return Text ? OptionText(Werte, Eine) : std::to_string(OptionZahl(Werte, Eine));
}

TEST_F(Optionenformen, JedeOptionKommtDurchDasFormularUndZurück) {
    const Einstellungen Vorher = Werte();
    std::vector<std::string> Erwartet;
    ImNächsten([&](QWidget& Form) {
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdÜbernehmen"_s).isEnabled());
        auto& Profil = Teil<QComboBox>(Form, u"cboFarbprofil"_s);
        EXPECT_EQ(Profil.currentIndex(), 0);
        QTest::keyClick(&Profil, Qt::Key_Down);
        EXPECT_EQ(Teil<Farbknopf>(Form, u"cmdFarbeRahmen"_s).text(), u"#7A8794"_s);
        for (const Option& Eine : Optionen())
            Erwartet.push_back(Ändern(Form, Eine));
        EXPECT_EQ(Profil.currentText(), u"Eigene Farben"_s);
        // Nothing holds before it is taken over.
        EXPECT_EQ(Werte(), Vorher);
        Drücken(Form, u"cmdÜbernehmen"_s);
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdÜbernehmen"_s).isEnabled());
        Drücken(Form, u"cmdOk"_s);
    });
    Auslösen(u"mnuOptionen"_s);
    ASSERT_EQ(Erwartet.size(), Optionen().size());
    EXPECT_TRUE(Eins.Person.Meldungen.empty()) << Eins.Person.Meldungen.front();
    for (std::size_t Platz = 0; Platz < Erwartet.size(); ++Platz)
        EXPECT_EQ(WertVon(Werte(), Optionen()[Platz]), Erwartet[Platz]) << Optionen()[Platz].Name;
    EXPECT_EQ(WertVon(EinstellungenLesen(Welt.Werte, nullptr), Optionen()[0]), Erwartet[0]);

    // The defaults page by page, each after a question, give the settings as they were made.
    const Einstellungen Geändert = Werte();
    ImNächsten([&](QWidget& Form) {
        auto& Liste = Teil<QListWidget>(Form, u"lstSeiten"_s);
        Drücken(Form, u"cmdVorgaben"_s);
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdÜbernehmen"_s).isEnabled()) << "the preset answer is no";
        for (int Seite = 0; Seite < Liste.count(); ++Seite) {
            Liste.setCurrentRow(Seite);
            EXPECT_EQ(Teil<QStackedWidget>(Form, u"Seiten"_s).currentIndex(), Seite);
            Eins.Person.Antworten = {Antwort::Ja};
            Drücken(Form, u"cmdVorgaben"_s);
        }
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuOptionen"_s);
    EXPECT_EQ(Werte(), Geändert) << "cancelled";
}

TEST_F(Optionenformen, UnberührtesBleibtAuchWennKeinFeldEsZeigenKann) {
    Werte().BeiDoppelklick = 1;
    Werte().RegelmäßigSpeichernAlle = 5000;
    Werte().TAGsBytesSuchen = 3;
    Werte().WinampPfad = "/fehlt/\xff";
    Werte().Mp3TagLesen = "1";
    Werte().BackupsSpeichern = 7;
    Werte().ListeFont = "Gibt es nicht";
    const Einstellungen Vorher = Werte();
    ImNächsten([&](QWidget& Form) {
        Teil<QCheckBox>(Form, u"chkStartInTray"_s).click();
        Drücken(Form, u"cmdOk"_s);
    });
    Auslösen(u"mnuOptionen"_s);
    EXPECT_EQ(Werte().StartInTray, 1);
    Werte().StartInTray = Vorher.StartInTray;
    EXPECT_EQ(Werte(), Vorher);
}

TEST_F(Optionenformen, SucheFehlerVoraussetzungenUndTasten) {
    ImNächsten([&](QWidget& Form) {
        auto& Liste = Teil<QListWidget>(Form, u"lstSeiten"_s);
        auto& Suche = Teil<QLineEdit>(Form, u"txtSuche"_s);
        QTest::keyClicks(&Suche, u"sicherungs"_s);
        QStringList Gezeigt;
        for (int Zeile = 0; Zeile < Liste.count(); ++Zeile)
            if (!Liste.item(Zeile)->isHidden()) Gezeigt += Liste.item(Zeile)->text();
        EXPECT_EQ(Gezeigt, QStringList{u"Sicherheit"_s});
        EXPECT_EQ(Liste.currentItem()->text(), u"Sicherheit"_s);
        EXPECT_TRUE(Teil<QCheckBox>(Form, u"chkBackupsSpeichern"_s).font().bold());

        auto& Nichts = Teil<QLabel>(Form, u"lblNichtsGefunden"_s);
        EXPECT_FALSE(Nichts.isVisible());
        Suche.setText(u"gibt es nicht"_s);
        EXPECT_TRUE(Nichts.isVisible());
        Suche.clear();

        // What hangs on a switch can be set only while it is on.
        auto& Tage = Teil<QSpinBox>(Form, u"txtBackupsSpeichernKopienBehalten"_s);
        EXPECT_FALSE(Tage.isEnabled());
        auto& Sichern = Teil<QCheckBox>(Form, u"chkBackupsSpeichern"_s);
        EXPECT_EQ(Sichern.text().remove(u'&'), u"Automatisch Sicherungskopien anlegen"_s);
        Sichern.setFocus();
        QTest::keyClick(&Sichern, Qt::Key_Space);
        EXPECT_TRUE(Tage.isEnabled());

        // A wrong input brings its page, its message and the focus, and nothing is taken over.
        Teil<QLineEdit>(Form, u"txtCDDBServer"_s).setText(u"http://x"_s);
        Drücken(Form, u"cmdOk"_s);
        EXPECT_TRUE(Form.isVisible());
        EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Der Server 'http://x'"));
        EXPECT_EQ(Form.focusWidget()->objectName(), u"txtCDDBServer"_s);
        EXPECT_EQ(Liste.currentItem()->text(), u"CD-Datenbank"_s);
        EXPECT_TRUE(Suche.text().isEmpty());
        Teil<QLineEdit>(Form, u"txtCDDBServer"_s).clear();
        Drücken(Form, u"chkSchriftDesktop"_s);
        Teil<QFontComboBox>(Form, u"cboListeFont"_s).setCurrentText(u"Halb getip"_s);
        Drücken(Form, u"cmdOk"_s);
        EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Die Schriftart 'Halb getip'"));
        Drücken(Form, u"chkSchriftDesktop"_s);
        // Its own form decides about the lock, not the buttons here.
        ImNächsten([&](QWidget& Sperre) {
            for (const QString& Feld : {u"txtNeu"_s, u"txtWiederholung"_s})
                QTest::keyClicks(&Teil<QLineEdit>(Sperre, Feld), u"zu"_s);
            QTest::keyClick(&Sperre, Qt::Key_Return);
        });
        Drücken(Form, u"cmdPasswort"_s);
        EXPECT_FALSE(Werte().Sperre.empty());
        EXPECT_EQ(Werte().SperreAktiv, 1);
        EXPECT_EQ(Werte().BackupsSpeichern, 0);

        // The dialogs that were switched off come back together.
        Teil<QCheckBox>(Form, u"chkAudioplayerNachrichtZeigen"_s).setChecked(false);
        Liste.setCurrentRow(Liste.count() - 1);
        Drücken(Form, u"cmdAlleHinweise"_s);
        EXPECT_TRUE(Teil<QCheckBox>(Form, u"chkAudioplayerNachrichtZeigen"_s).isChecked());
        EXPECT_TRUE(Teil<QCheckBox>(Form, u"chkTippsAktueller"_s).isChecked());

        // The desktop's own font until another one is wanted.
        auto& Desktop = Teil<QCheckBox>(Form, u"chkSchriftDesktop"_s);
        EXPECT_TRUE(Desktop.isChecked());
        EXPECT_FALSE(Teil<QSpinBox>(Form, u"txtlngEinstellungenListeFontSize"_s).isEnabled());
        Desktop.click();
        EXPECT_TRUE(Teil<QSpinBox>(Form, u"txtlngEinstellungenListeFontSize"_s).isEnabled());
        Teil<QSpinBox>(Form, u"txtlngEinstellungenListeFontSize"_s).setValue(19);
        QTest::keyClick(&Liste, Qt::Key_Return);
    });
    Auslösen(u"mnuOptionen"_s);
    EXPECT_EQ(Werte().BackupsSpeichern, 1);
    EXPECT_EQ(Eins.Songs().font().pointSize(), 19) << "it works at once";
    EXPECT_NE(Werte().ListeFont, Einstellungen().ListeFont);
}

TEST_F(Optionenformen, IndexOptionenMitMausUndTastatur) {
    Indexoptionen& Optionen = Eins.Programm.Index.Optionen;
    Optionen.SyncOrdner = {{"/m/eins", 0, {}}, {"/m/zwei", 1, "/z"}};
    Optionen.SyncLeer = 0;
    Eins.Programm.Index.IndexGeändert = false;
    const auto Eintippen = [](const QString& Text) {
        QTimer::singleShot(0, qApp, [Text] {
            auto* const Frage = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(Frage, nullptr);
            Frage->setTextValue(Text);
            Frage->accept();
        });
    };
    ImNächsten([&](QWidget& Form) {
        auto& Typen = Teil<QTreeWidget>(Form, u"lstDateitypen"_s);
        const int Anzahl = Typen.topLevelItemCount();
        EXPECT_EQ(Typen.currentItem()->text(0), u"mp3"_s);
        EXPECT_TRUE(Teil<QCheckBox>(Form, u"chkMpeg"_s).isChecked());
        Eintippen(u"flac"_s);
        Drücken(Form, u"cmdTypHinzufügen"_s);
        ASSERT_EQ(Typen.topLevelItemCount(), Anzahl + 1);
        EXPECT_EQ(Typen.currentItem()->text(0), u"flac"_s);
        auto& Verwalten = Teil<QCheckBox>(Form, u"chkVerwalten"_s);
        Verwalten.setFocus();
        QTest::keyClick(&Verwalten, Qt::Key_Space);
        EXPECT_EQ(Typen.currentItem()->text(1), QString());
        Eintippen(u"mp3"_s);
        Drücken(Form, u"cmdTypÄndern"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Die Datei-Endung 'mp3' ist schon in der Liste.");
        Typen.setCurrentItem(Typen.topLevelItem(3));
        Drücken(Form, u"cmdTypEntfernen"_s);
        EXPECT_EQ(Typen.topLevelItemCount(), Anzahl + 1) << "one of the defaults stays, out of management";

        Teil<QTabWidget>(Form, u"Blätter"_s).setCurrentIndex(frmIndexOptionen::Synchronisation);
        auto& Ordner = Teil<QListWidget>(Form, u"lstSyncOrdner"_s);
        auto& Ziel = Teil<QLineEdit>(Form, u"txtSyncKopierenInOrdner"_s);
        EXPECT_FALSE(Ziel.isEnabled());
        Drücken(Form, u"chkSyncUnterordner"_s);
        Drücken(Form, u"chkSyncKopierenInOrdner"_s);
        EXPECT_EQ(Form.focusWidget(), &Ziel);
        Drücken(Form, u"cmdOk"_s);
        EXPECT_TRUE(Eins.Person.Meldungen.back().starts_with("Bitte geben Sie den Ordner ein"));
        QTest::keyClicks(&Ziel, u"/m/eins/unten/"_s);
        Drücken(Form, u"cmdOk"_s);
        EXPECT_NE(Eins.Person.Meldungen.back().find("darf deshalb nicht in ihm liegen"), std::string::npos);
        Ziel.setText(u"/ziel/"_s);
        Drücken(Form, u"cmdOrdnerNachUnten"_s);
        EXPECT_EQ(Ordner.currentItem()->text(), u"/m/eins"_s);
        Ordner.setCurrentRow(0);
        EXPECT_EQ(Ziel.text(), u"/z"_s);
        Drücken(Form, u"chkSyncDanachEntfernen"_s);
        Teil<QLineEdit>(Form, u"txtSyncKopierenNichtBeiText"_s).setText(u"teil"_s);

        Teil<QTabWidget>(Form, u"Blätter"_s).setCurrentIndex(frmIndexOptionen::Spalten);
        auto& Spalten = Teil<QListWidget>(Form, u"lstSpalten"_s);
        for (int Zeile = 0; Zeile < Spalten.count(); ++Zeile)
            Spalten.item(Zeile)->setCheckState(Qt::Unchecked);
        Drücken(Form, u"cmdOk"_s);
        EXPECT_EQ(Eins.Person.Meldungen.back(), "Bitte wählen Sie mindestens eine Spalte.");
        Spalten.findItems(u"Titel"_s, Qt::MatchExactly)[0]->setCheckState(Qt::Checked);
        auto* const Album = Spalten.findItems(u"Album"_s, Qt::MatchExactly)[0];
        Album->setCheckState(Qt::Checked);
        Spalten.setCurrentItem(Album);
        while (Spalten.row(Album) > 0)
            Drücken(Form, u"cmdSpalteNachOben"_s);
        Drücken(Form, u"chkGitter"_s);
        Teil<QTabWidget>(Form, u"Blätter"_s).setCurrentIndex(frmIndexOptionen::Eigentümer);
        QTest::keyClicks(&Teil<QLineEdit>(Form, u"txtEigentümer"_s), u"Anna"_s);
        QTest::keyClick(&Teil<QLineEdit>(Form, u"txtEigentümer"_s), Qt::Key_Return);
    });
    Auslösen(u"mnuIndexOptionen"_s);
    EXPECT_TRUE(Eins.Programm.Index.IndexGeändert);
    EXPECT_EQ(Optionen.SyncOrdner, (std::vector<SyncRegel>{{"/m/zwei", 1, "/z"}, {"/m/eins", 1, "/ziel"}}));
    EXPECT_EQ(Optionen.SyncEntfernen, 0);
    EXPECT_EQ(Optionen.SyncNichtBei, "teil");
    EXPECT_EQ(Optionen.SpaltenGitter, 1);
    EXPECT_EQ(Optionen.IndexEigentümer, "Anna");
    EXPECT_EQ(Optionen.Dateitypen[3].Eintrag, "wma=0");
    EXPECT_EQ(Optionen.Dateitypen[Optionen.Dateitypen.size() - 2], (Dateityp{"flac=0", "010"}));
    ASSERT_EQ(Eins.Programm.Ansicht.Spalten.size(), 2U);
    EXPECT_EQ(Eins.Programm.Ansicht.Spalten[0].Nummer, 6) << "the album stands first";
    EXPECT_EQ(Eins.Songs().model()->headerData(1, Qt::Horizontal).toString(), u"Album"_s);
}

TEST_F(Optionenformen, IndexdateienWerdenGeladenUndVergessen) {
    IndexSpeichern(Eins.Programm);
    const std::string Erste = Eins.Programm.Index.IndexDateiname;
    const std::string Zweite = Welt.Ordner() + "/zweite.lwi";
    ASSERT_TRUE(NeuenIndexAnlegen(Eins.Programm, Zweite));
    Werte().ZuletztGeladen.push_back(Welt.Ordner() + "/fort.lwi");
    ASSERT_EQ(Eins.Zeilen(), 0);
    ImNächsten([&](QWidget& Form) {
        auto& Liste = Teil<QTreeWidget>(Form, u"lstDateien"_s);
        ASSERT_EQ(Liste.topLevelItemCount(), 3);
        EXPECT_EQ(Liste.topLevelItem(0)->text(0), u"zweite.lwi (geladen)"_s);
        EXPECT_EQ(Liste.topLevelItem(2)->text(2), u"nicht gefunden"_s);
        Liste.setCurrentItem(Liste.topLevelItem(2));
        Drücken(Form, u"cmdLaden"_s);
        EXPECT_TRUE(Eins.Person.Gefragt.back().find("wurde nicht gefunden") != std::string::npos);
        EXPECT_TRUE(Form.isVisible()) << "nothing is made in its place unasked";
        Drücken(Form, u"cmdEntfernen"_s);
        EXPECT_EQ(Liste.topLevelItemCount(), 2);
        Liste.setCurrentItem(Liste.topLevelItem(1));
        QTest::keyClick(&Liste, Qt::Key_Return);
    });
    Auslösen(u"mnuIndexdateien"_s);
    EXPECT_EQ(Eins.Programm.Index.IndexDateiname, Erste);
    EXPECT_EQ(Eins.Zeilen(), 3);
}

TEST_F(Optionenformen, SicherungskopieKommtAusDemFormularZurück) {
    IndexSpeichern(Eins.Programm);
    const std::string Index = Eins.Programm.Index.IndexDateiname;
    const std::string Kopie = Index + " - Backup vom 01.11.2026 10-00-00.bak";
    std::filesystem::copy_file(Index, Kopie);
    DatensätzeEntfernen(Eins.Programm.Index, std::vector<Satznummer>{1});
    IndexSpeichern(Eins.Programm);
    // The way that the message about a missing index tells.
    ImNächsten([&](QWidget& Form) {
        Teil<QListWidget>(Form, u"lstSeiten"_s)
            .setCurrentItem(
                Teil<QListWidget>(Form, u"lstSeiten"_s).findItems(u"Sicherheit"_s, Qt::MatchExactly)[0]);
        EXPECT_EQ(Teil<QPushButton>(Form, u"cmdSicherungskopien"_s).text().remove(u'&').remove(u"..."_s),
                  u"Sicherungskopie wiederherstellen"_s);
        ImNächsten([&](QWidget& Kopien) {
            auto& Liste = Teil<QTreeWidget>(Kopien, u"lstSicherungskopien"_s);
            ASSERT_EQ(Liste.topLevelItemCount(), 1);
            EXPECT_TRUE(Liste.topLevelItem(0)->text(0).contains(u".bak (zuletzt geändert am "_s));
            EXPECT_TRUE(QTest::qWaitFor([&] { return Liste.topLevelItem(0)->text(1) == u"3"_s; }));
            Drücken(Kopien, u"cmdWiederherstellen"_s);
            EXPECT_TRUE(Kopien.isVisible()) << "the preset answer is no";
            Eins.Person.Antworten = {Antwort::Ja};
            QTest::keyClick(&Liste, Qt::Key_Return);
        });
        Drücken(Form, u"cmdSicherungskopien"_s);
        EXPECT_EQ(Eins.Programm.Index.IndexAnzahl(), 3);
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuOptionen"_s);
    EXPECT_EQ(Eins.Zeilen(), 3);
    EXPECT_EQ(Eins.Person.Status.back(), "Die Indexdatei wurde ersetzt und geladen");
}

TEST_F(Optionenformen, StatistikZeigtZahlenUndBild) {
    Eins.Programm.Index.Optionen.IndexEigentümer = "Anna";
    ImNächsten([&](QWidget& Form) {
        EXPECT_EQ(Teil<QLabel>(Form, u"lblDateien"_s).text(), u"3"_s);
        EXPECT_EQ(Teil<QLabel>(Form, u"lblEigentümer"_s).text(), u"Anna"_s);
        auto& Teilung = Teil<QComboBox>(Form, u"cboTeilung"_s);
        const auto& Bild = Teil<QWidget>(Form, u"picBalken"_s);
        Teilung.setCurrentText(u"Interpret"_s);
        EXPECT_EQ(Bild.accessibleDescription(), u"Anna Berg: 2; Lea Sommer: 1"_s);
        EXPECT_FALSE(Form.grab().isNull());
        QTest::keyClick(&Teilung, Qt::Key_End);
        EXPECT_FALSE(Teil<QComboBox>(Form, u"cboMaß"_s).isEnabled());
        EXPECT_EQ(Bild.accessibleDescription(), u"Hierzu gibt es keine Angaben.: "_s);
        Drücken(Form, u"cmdKopieren"_s);
        EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"Anna Berg\t2"_s));
        EXPECT_TRUE(Form.isVisible());
        QTest::keyClick(&Form, Qt::Key_Escape);
    });
    Auslösen(u"mnuIndexStatistik"_s);
    Eins.Person.AbbruchBei = 1;  // too few records to be asked
    ImNächsten([&](QWidget& Form) { QTest::keyClick(&Form, Qt::Key_Escape); });
    Auslösen(u"mnuIndexStatistik"_s);
}

}  // namespace
}  // namespace liedwerk::test
