// What holds for every form: names for people who do not see it, keys in place of the mouse, room for large
// letters. A form that is not in the table here fails the first test.
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QSet>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>

#include "core/tageditor.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/fortschritt.h"
#include "ui/qt/frmaudioplayernachricht.h"
#include "ui/qt/frmausfuehrenmit.h"
#include "ui/qt/frmausschlussliste.h"
#include "ui/qt/frmautodj.h"
#include "ui/qt/frmbeenden.h"
#include "ui/qt/frmbildanzeige.h"
#include "ui/qt/frmcdbrowser.h"
#include "ui/qt/frmcddaten.h"
#include "ui/qt/frmcddatencdwaehlen.h"
#include "ui/qt/frmdateiname.h"
#include "ui/qt/frmdateinichtverfuegbar.h"
#include "ui/qt/frmexportieren.h"
#include "ui/qt/frmhilfe.h"
#include "ui/qt/frmhinweise.h"
#include "ui/qt/frmindexdateien.h"
#include "ui/qt/frmindexhinzufuegen.h"
#include "ui/qt/frmindexhinzufuegenzusammenfassung.h"
#include "ui/qt/frmindexoptionen.h"
#include "ui/qt/frmindexstatistik.h"
#include "ui/qt/frmindexverwaltung.h"
#include "ui/qt/frmkopieren.h"
#include "ui/qt/frmloeschen.h"
#include "ui/qt/frmoptionen.h"
#include "ui/qt/frmsicherungskopien.h"
#include "ui/qt/frmsortieren.h"
#include "ui/qt/frmsperre.h"
#include "ui/qt/frmsucheerweitert.h"
#include "ui/qt/frmsucheerweiterthinzufuegen.h"
#include "ui/qt/frmsucheerweiterthinzufuegenneu.h"
#include "ui/qt/frmsuchetextbasiert.h"
#include "ui/qt/frmtag.h"
#include "ui/qt/frmtagautotaghinzufuegen.h"
#include "ui/qt/frmtagautotagwaehlen.h"
#include "ui/qt/frmtagfeldfuellen.h"
#include "ui/qt/frmtaglieblingsgenre.h"
#include "ui/qt/frmterminueberwachung.h"
#include "ui/qt/frmterminueberwachunghinzufuegen.h"
#include "ui/qt/frmterminueberwachungtermin.h"
#include "ui/qt/frmtipps.h"
#include "ui/qt/frmumbenennen.h"
#include "ui/qt/frmverschiebendateiexistiert.h"
#include "ui/qt/frmwillkommen.h"

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace liedwerk::test {
namespace {

// What forms refer to while they are open.
struct Bühne {
    Bühne() : Eins(MitCDs()) { Eins.OrdnerHinzufügen(Welt.Musikordner()); }
    Umgebung& MitCDs() {
        Welt.CDs = &CDs;
        return Welt;
    }
    speicher::CDs CDs;
    Umgebung Welt;
    Lauf Eins;
    Namensfunde Funde;
    Datensatz Satz;
    Termin Verpasster{"Konzert", "", 1, "", "", "20.11.2026 08:00:00", "", "", 0, 0, "", ""};
    Terminliste Verpasste{Verpasster};
};

using Bauplan = std::function<std::unique_ptr<QWidget>(Bühne&)>;
struct Eintrag {
    const char* Name;
    Bauplan Bauen;
};

template <class Form, class... Angaben>
std::unique_ptr<QWidget> Bau(Angaben&&... Werte) {
    return std::make_unique<Form>(std::forward<Angaben>(Werte)..., nullptr);
}

// Where a form leads to; its button is there for it.
void Weg(QWidget*) {}

const std::vector<Eintrag>& Formen() {
    static const std::vector<Eintrag> Alle = {
        {"frmFortschritt",
         [](Bühne&) {
             auto Form = std::make_unique<frmFortschritt>(nullptr);
             Form->Starten(u"Füge Dateien hinzu"_s, true, 100);
             return Form;
         }},
        {"frmAudioplayerNachricht", [](Bühne&) { return Bau<frmAudioplayerNachricht>(u"audacious"_s); }},
        {"frmAusführenMit", [](Bühne& B) { return Bau<frmAusführenMit>(2u, "/usr/bin/x", B.Eins.Person); }},
        {"frmAusschlußliste", [](Bühne& B) { return Bau<frmAusschlußliste>(B.Eins.Programm.Werte); }},
        {"frmAutoDJ",
         [](Bühne& B) {
             return Bau<frmAutoDJ>(
                 B.Eins.Programm.Index, B.Eins.Programm.Werte, B.Welt.Zeit, [] { return 0.5; },
                 B.Eins.Person);
         }},
        {"frmBeenden", [](Bühne&) { return Bau<frmBeenden>(true); }},
        {"frmBildAnzeige",
         [](Bühne&) { return Bau<frmBildAnzeige>(LIEDWERK_WURZEL "/docs/bilder/hauptfenster.png"); }},
        {"frmCDBrowser", [](Bühne& B) { return Bau<frmCDBrowser>(B.Eins.Programm); }},
        {"frmCDDaten",
         [](Bühne& B) {
             return Bau<frmCDDaten>(B.Eins.Programm, frmCDDaten::Anlaß::Laufwerk, CDDBHerkunft::Keine);
         }},
        {"frmCDDatenCDWählen",
         [](Bühne& B) {
             return Bau<frmCDDatenCDWählen>(
                 std::vector<std::string>{"rock 0b01ac02 Nordlicht Trio / Gezeiten",
                                          "folk 0b01ac02 Nordlicht Trio / Gezeiten (1987)"},
                 B.Eins.Person);
         }},
        {"frmDateiname",
         [](Bühne&) { return Bau<frmDateiname>("Umbenennen", std::string("/home/anna/Musik/b.mp3")); }},
        {"frmDateiNichtVerfügbar",
         [](Bühne&) {
             return Bau<frmDateiNichtVerfügbar>(
                 Verfügbarkeitsfrage{"Die Datei 'E:\\Musik\\Ebbe.mp3' liegt auf dem Medium 'STICK'.", {}});
         }},
        {"frmDateiNichtVerfügbarSchreiben",
         [](Bühne&) {
             return Bau<frmDateiNichtVerfügbarSchreiben>(
                 Schreibsperrfrage{"Die Datei '/home/anna/Musik/Ebbe.mp3' ist schreibgeschützt.", {}});
         }},
        {"frmExportieren",
         [](Bühne& B) { return Bau<frmExportieren>(B.Eins.Programm.Werte, 3u, B.Eins.Person); }},
        {"frmHilfe", [](Bühne&) { return Bau<frmHilfe>(QString()); }},
        {"frmInfo", [](Bühne&) { return Bau<frmInfo>("Liedwerk 1.00"); }},
        {"frmEigentümer", [](Bühne&) { return Bau<frmEigentümer>("Anna"); }},
        {"frmIndexdateien",
         [](Bühne& B) {
             return Bau<frmIndexdateien>(B.Eins.Programm, Indexdateiwege{Weg, Weg, Weg});
         }},
        {"frmIndexOptionen", [](Bühne& B) { return Bau<frmIndexOptionen>(B.Eins.Programm); }},
        {"frmIndexStatistik",
         [](Bühne&) { return Bau<frmIndexStatistik>(Indexstatistik{}, "lwStamm.lwi", "Anna"); }},
        {"frmOptionen",
         [](Bühne& B) {
             return Bau<frmOptionen>(B.Eins.Programm, Optionswege{Weg, Weg, [](Einstellungen&, QWidget*) {}});
         }},
        {"frmSicherungskopien", [](Bühne& B) { return Bau<frmSicherungskopien>(B.Eins.Programm); }},
        {"frmIndexHinzufügen",
         [](Bühne& B) {
             return Bau<frmIndexHinzufügen>(B.Eins.Programm.Index.Optionen.Dateitypen, B.Eins.Programm.Werte,
                                            [](QWidget*) {});
         }},
        {"frmIndexHinzufügenZusammenfassung",
         [](Bühne& B) { return Bau<frmIndexHinzufügenZusammenfassung>(B.Eins.Programm, B.Funde); }},
        {"frmIndexVerwaltung",
         [](Bühne& B) {
             return Bau<frmIndexVerwaltung>(B.Eins.Programm, std::vector<Satznummer>{1, 2, 3},
                                            [](const std::vector<Satznummer>&) {});
         }},
        {"frmKopieren", [](Bühne& B) { return Bau<frmKopieren>(B.Eins.Programm.Werte, B.Eins.Person); }},
        {"frmLöschen", [](Bühne&) { return Bau<frmLöschen>(2u); }},
        {"frmSortieren", [](Bühne& B) { return Bau<frmSortieren>("Titel", B.Eins.Person); }},
        {"frmSperre", [](Bühne&) { return Bau<frmSperre>(std::string()); }},
        {"frmSperreSetzen",
         [](Bühne& B) { return Bau<frmSperreSetzen>(B.Eins.Programm.Werte, B.Eins.Person); }},
        {"frmSucheErweitert", [](Bühne& B) { return Bau<frmSucheErweitert>(B.Eins.Programm); }},
        {"frmSucheErweitertHinzufügen",
         [](Bühne& B) {
             return Bau<frmSucheErweitertHinzufügen>(B.Eins.Programm.Abfragen, 0u, B.Eins.Programm.Werte,
                                                     B.Eins.Person);
         }},
        {"frmSucheErweitertHinzufügenNeu",
         [](Bühne& B) {
             return Bau<frmSucheErweitertHinzufügenNeu>(B.Eins.Programm.Index, B.Eins.Programm.Puffer,
                                                        B.Eins.Programm.Abfragen, false, B.Eins.Person);
         }},
        {"frmSucheTextbasiert",
         [](Bühne& B) {
             return Bau<frmSucheTextbasiert>(B.Eins.Programm.Index, B.Eins.Programm.Puffer, B.Eins.Person);
         }},
        {"frmTag",
         [](Bühne& B) {
             return Bau<frmTag>(B.Eins.Programm, std::vector<Satznummer>{1, 2});
         }},
        {"frmTagAutoTagHinzufügen",
         [](Bühne& B) {
             return Bau<frmTagAutoTagHinzufügen>(std::string(), std::string("a - b.mp3"), B.Eins.Person);
         }},
        {"frmTagAutoTagWählen",
         [](Bühne& B) {
             return Bau<frmTagAutoTagWählen>(B.Eins.Programm.Werte, std::string("a - b.mp3"), B.Eins.Person);
         }},
        {"frmTagFeldFüllen",
         [](Bühne& B) { return Bau<frmTagFeldFüllen>(B.Satz, Funktionsauswahlen[4], B.Eins.Person); }},
        {"frmTagLieblingsGenre",
         [](Bühne& B) { return Bau<frmTagLieblingsGenre>(B.Eins.Programm.Werte, B.Eins.Person); }},
        {"frmTerminÜberwachung", [](Bühne& B) { return Bau<frmTerminÜberwachung>(B.Eins.Programm); }},
        {"frmTerminÜberwachungHinzufügen",
         [](Bühne& B) {
             return Bau<frmTerminÜberwachungHinzufügen>(&B.Verpasster, B.Welt.Zeit.Jetzt(), B.Eins.Person);
         }},
        {"frmTerminÜberwachungTermin",
         [](Bühne& B) {
             return Bau<frmTerminÜberwachungTermin>(
                 Terminmeldung{1, "Mix für Oma brennen", "22.11.2026 08:00:00", 0}, B.Eins.Person);
         }},
        {"frmTerminÜberwachungTerminVerpasst",
         [](Bühne& B) { return Bau<frmTerminÜberwachungTerminVerpasst>(B.Verpasste); }},
        {"frmTipps", [](Bühne& B) { return Bau<frmTipps>(B.Eins.Programm.Werte, 1); }},
        {"frmUmbenennen",
         [](Bühne& B) { return Bau<frmUmbenennen>(B.Eins.Programm.Werte, 2u, B.Eins.Person); }},
        {"frmVerschiebenDateiExistiert",
         [](Bühne&) {
             return Bau<frmVerschiebenDateiExistiert>(
                 "Die Datei '/home/anna/Musik/Ebbe.mp3' existiert bereits.");
         }},
        {"frmWillkommen", [](Bühne& B) { return Bau<frmWillkommen>(B.Eins.Programm); }},
    };
    return Alle;
}

// Runs Prüfen on every form, shown, and on the main window; on every page of a form with pages.
void JedeForm(Bühne& B, const std::function<void(QWidget&)>& Prüfen) {
    const auto Seitenweise = [&](QWidget& Form) {
        Form.show();
        Form.activateWindow();
        QCoreApplication::processEvents();
        auto* const Blätter = Form.findChild<QTabWidget*>();
        auto* const Liste = Form.findChild<QListWidget*>(u"lstSeiten"_s);
        for (int Seite = 0; Seite < (Blätter ? Blätter->count() : Liste ? Liste->count() : 1); ++Seite) {
            if (Blätter != nullptr) Blätter->setCurrentIndex(Seite);
            if (Liste != nullptr) Liste->setCurrentRow(Seite);
            QCoreApplication::processEvents();
            SCOPED_TRACE(Form.objectName().toStdString() + ", Seite " + std::to_string(Seite));
            Prüfen(Form);
        }
        Form.hide();
    };
    B.Eins.Songs().selectAll();
    Seitenweise(B.Eins.Fenster);
    for (const Eintrag& Einer : Formen()) {
        const auto Form = Einer.Bauen(B);
        EXPECT_EQ(Form->objectName().toStdString(), Einer.Name);
        Seitenweise(*Form);
    }
}

bool VonQt(const QWidget& Teil) {
    const QWidget* const Über = Teil.parentWidget();
    return Teil.objectName().startsWith(u"qt_"_s) || Teil.inherits("QLineEditIconButton") ||
           Teil.inherits("QTabBar") || Teil.inherits("QHeaderView") || Teil.inherits("QMenu") ||
           Teil.inherits("QComboBoxPrivateContainer") ||
           (Über != nullptr && (Über->inherits("QComboBox") || Über->inherits("QComboBoxPrivateContainer") ||
                                Über->inherits("QAbstractSpinBox") || Über->inherits("QTabBar")));
}

// Visible controls that the keyboard can get to.
QList<QWidget*> Anlaufstellen(QWidget& Form) {
    QList<QWidget*> Alle;
    for (QWidget* const Teil : Form.findChildren<QWidget*>()) {
        if (!Teil->isVisible() || !Teil->isEnabled() || Teil->focusProxy() != nullptr || VonQt(*Teil))
            continue;
        if ((Teil->focusPolicy() & Qt::TabFocus) && Teil->window() == &Form) Alle.append(Teil);
    }
    return Alle;
}

QString Beschreibe(const QWidget& Teil) {
    return Teil.objectName().isEmpty() ? QString::fromLatin1(Teil.metaObject()->className())
                                       : Teil.objectName();
}

TEST(Zugang, JedeFormStehtInDerTabelle) {
    QSet<QString> Eingetragen{u"frmMain"_s};
    for (const Eintrag& Einer : Formen())
        Eingetragen.insert(QString::fromUtf8(Einer.Name));
    const QRegularExpression Kopf(u"class (frm\\w+) final : public Q"_s,
                                  QRegularExpression::UseUnicodePropertiesOption);
    int Gefunden = 0;
    const QDir Ordner(QStringLiteral(LIEDWERK_WURZEL "/src/ui/qt"));
    for (const QString& Name : Ordner.entryList({u"*.h"_s})) {
        QFile Datei(Ordner.filePath(Name));
        ASSERT_TRUE(Datei.open(QIODevice::ReadOnly));
        auto Treffer = Kopf.globalMatch(QString::fromUtf8(Datei.readAll()));
        while (Treffer.hasNext()) {
            ++Gefunden;
            const QString Form = Treffer.next().captured(1);
            EXPECT_TRUE(Eingetragen.contains(Form))
                << Form.toStdString() << " fehlt in der Tabelle der Formen";
        }
    }
    EXPECT_EQ(Gefunden, Eingetragen.size());
    QFile Seite(QStringLiteral(LIEDWERK_WURZEL "/docs/formulare.md"));
    ASSERT_TRUE(Seite.open(QIODevice::ReadOnly));
    const QString Bilder = QString::fromUtf8(Seite.readAll());
    for (const QString& Name : Eingetragen)
        EXPECT_TRUE(Bilder.contains(u"`"_s + Name + u"`"_s)) << Name.toStdString() << " hat kein Bild";
}

// Takes the pictures of docs/formulare.md where werkzeuge/bildschirmfotos.sh asks for them.
TEST(Zugang, JedeFormLässtSichAbbilden) {
    const QString Ordner = qEnvironmentVariable("LIEDWERK_FORMENBILDER");
    if (Ordner.isEmpty()) GTEST_SKIP();
    Bühne B;
    for (const Eintrag& Einer : Formen()) {
        const auto Form = Einer.Bauen(B);
        Form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(Form.get()));
        EXPECT_TRUE(Form->grab().save(Ordner + u"/"_s + Form->objectName() + u".png"_s));
    }
}

// What a screen reader is given for a widget. Qt 6.4 keeps what stands for a widget that was asked about
// while it was being destroyed, and gives that, empty by now, to the next widget at the same address.
QAccessibleInterface* Fürsprecher(QWidget& Teil) {
    QAccessibleInterface* const Gefunden = QAccessible::queryAccessibleInterface(&Teil);
    if (Gefunden == nullptr || Gefunden->isValid()) return Gefunden;
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(Gefunden));
    return QAccessible::queryAccessibleInterface(&Teil);
}

TEST(Zugang, AllesHatNamenUndEigeneTasten) {
    Bühne B;
    JedeForm(B, [](QWidget& Form) {
        QMap<QString, QString> Tasten;
        const auto Vergeben = [&](const QString& Text) {
            const QString Taste = QKeySequence::mnemonic(Text).toString();
            if (Taste.isEmpty()) return;
            // Kept: both buttons of this form have the same letter.
            if (Form.objectName() == u"frmDateiNichtVerfügbar"_s && Taste == u"Alt+A"_s) return;
            EXPECT_FALSE(Tasten.contains(Taste))
                << Taste.toStdString() << ": " << Text.toStdString() << " / " << Tasten[Taste].toStdString();
            Tasten[Taste] = Text;
        };
        if (auto* const Haupt = qobject_cast<QMainWindow*>(&Form)) {
            for (const QAction* const Menü : Haupt->menuBar()->actions())
                Vergeben(Menü->text());
        }
        for (QWidget* const Teil : Form.findChildren<QWidget*>()) {
            if (!Teil->isVisible() || VonQt(*Teil)) continue;
            const auto* const Zeile = qobject_cast<QLabel*>(Teil);
            EXPECT_TRUE(Zeile == nullptr || Zeile->textFormat() == Qt::PlainText)
                << Beschreibe(*Teil).toStdString() << " nimmt Auszeichnung an";
            if (Zeile != nullptr && Zeile->buddy()) Vergeben(Zeile->text());
            if (auto* const Knopf = qobject_cast<QAbstractButton*>(Teil)) Vergeben(Knopf->text());
        }
        for (QWidget* const Teil : Anlaufstellen(Form)) {
            EXPECT_FALSE(Teil->objectName().isEmpty()) << Teil->metaObject()->className();
            QAccessibleInterface* const Stimme = Fürsprecher(*Teil);
            EXPECT_TRUE(Stimme != nullptr && !Stimme->text(QAccessible::Name).isEmpty())
                << Beschreibe(*Teil).toStdString() << " hat keinen Namen";
        }
        for (const QMenu* const Menü : Form.findChildren<QMenu*>()) {
            QSet<QString> ImMenü;
            for (const QAction* const Aktion : Menü->actions()) {
                const QString Taste = QKeySequence::mnemonic(Aktion->text()).toString();
                EXPECT_TRUE(Taste.isEmpty() || !ImMenü.contains(Taste)) << Aktion->text().toStdString();
                ImMenü.insert(Taste);
            }
        }
    });
}

TEST(Zugang, KeinKürzelIstZweimalVergeben) {
    Bühne B;
    QMap<QString, QString> Kürzel;
    for (const QAction* const Aktion : B.Eins.Fenster.actions()) {
        for (const QKeySequence& Tasten : Aktion->shortcuts()) {
            EXPECT_FALSE(Kürzel.contains(Tasten.toString()))
                << Tasten.toString().toStdString() << ": " << Aktion->objectName().toStdString() << " und "
                << Kürzel[Tasten.toString()].toStdString();
            Kürzel[Tasten.toString()] = Aktion->objectName();
        }
    }
}

// One step back on the page: up, unless a column begins further right, or to the left in the same row.
bool Rückwärts(const QRect& Von, const QRect& Nach) {
    const bool Höher = Nach.bottom() <= Von.top();
    const bool GleicheZeile = Nach.top() < Von.center().y() && Nach.bottom() > Von.center().y();
    return (Höher && Nach.left() < Von.right()) || (GleicheZeile && Nach.right() <= Von.left());
}

TEST(Zugang, DieTabulatortasteKommtÜberallHinUndInLeserichtung) {
    Bühne B;
    JedeForm(B, [](QWidget& Form) {
        const QList<QWidget*> Alle = Anlaufstellen(Form);
        if (Alle.isEmpty()) return;
        // Once around, by the key itself: what keeps it for itself would be a trap.
        QWidget* const Beginn = Form.focusWidget() != nullptr ? Form.focusWidget() : Alle.first();
        Beginn->setFocus();
        QList<QWidget*> Weg;
        constexpr int Teilschritte = 8;  // within a control, through the parts of a date
        for (int Stillstand = 0; Stillstand < Teilschritte;) {
            QWidget* const Hier = Form.focusWidget();
            if (Hier == nullptr || (Weg.contains(Hier) && Hier != Weg.last())) break;
            Stillstand = !Weg.isEmpty() && Hier == Weg.last() ? Stillstand + 1 : 0;
            if (Stillstand == 0) Weg.append(Hier);
            QTest::keyClick(Hier, Qt::Key_Tab);
        }
        for (QWidget* const Teil : Alle) {
            if (Weg.contains(Teil)) continue;
            // Of a group of choices the chosen one stands for all; the arrows go on from there.
            const auto* const Knopf = qobject_cast<QAbstractButton*>(Teil);
            const bool Gruppe = Knopf != nullptr && std::ranges::any_of(Weg, [&](QWidget* Eins) {
                                    const auto* const Anderer = qobject_cast<QAbstractButton*>(Eins);
                                    return Anderer != nullptr && Anderer->group() == Knopf->group() &&
                                           (Knopf->group() != nullptr ||
                                            (Knopf->autoExclusive() && Anderer->autoExclusive() &&
                                             Anderer->parentWidget() == Knopf->parentWidget()));
                                });
            EXPECT_TRUE(Gruppe) << Beschreibe(*Teil).toStdString() << " wird nicht erreicht";
        }
        // The order begins at the control that is read first, wherever the focus was set.
        const auto Lage = [&](QWidget* Teil) { return QRect(Teil->mapTo(&Form, QPoint()), Teil->size()); };
        int Sprünge = 0;
        QString Zurück;
        for (qsizetype Stelle = 0; Stelle < Weg.size(); ++Stelle) {
            QWidget* const Nächstes = Weg[(Stelle + 1) % Weg.size()];
            if (Weg.size() < 2 || !Rückwärts(Lage(Weg[Stelle]), Lage(Nächstes))) continue;
            ++Sprünge;
            Zurück += u"  "_s + Beschreibe(*Weg[Stelle]) + u" -> "_s + Beschreibe(*Nächstes);
        }
        // Kept: in the main window the list comes right behind the search, ahead of the pane at its left.
        EXPECT_LE(Sprünge, Form.objectName() == u"frmMain"_s ? 2 : 1) << Zurück.toStdString();
    });
}

TEST(Zugang, EscapeSchließtOhneMaus) {
    Bühne B;
    for (const Eintrag& Einer : Formen()) {
        // The run behind it is cancelled first; and an empty set of queries is refused.
        if (Einer.Name == "frmFortschritt"sv || Einer.Name == "frmSucheErweitert"sv) continue;
        const auto Form = Einer.Bauen(B);
        Form->show();
        QTest::keyClick(Form.get(), Qt::Key_Escape);
        EXPECT_FALSE(Form->isVisible()) << Einer.Name;
    }
}

// Letters of double size, as a desktop at 200 % shows them on a screen of 1280 by 800.
TEST(Zugang, DoppeltGroßeSchriftPasstUndNichtsIstAbgeschnitten) {
    const QFont Vorher = QApplication::font();
    QFont Groß = Vorher;
    Groß.setPointSizeF(Vorher.pointSizeF() * 2);
    QApplication::setFont(Groß);
    {
        Bühne B;
        JedeForm(B, [](QWidget& Form) {
            const QSize Nötig = Form.minimumSizeHint().expandedTo(Form.minimumSize());
            // Two groups of choices stand side by side there; one above the other they would be too high.
            EXPECT_LE(Nötig.width(), Form.objectName() == u"frmExportieren"_s ? 1440 : 1280);
            EXPECT_LE(Nötig.height(), 800);
            // As it opened: on the screen, unless it cannot be smaller.
            const QSize Schirm = Form.screen()->availableSize().expandedTo(Nötig);
            if (qobject_cast<QDialog*>(&Form) != nullptr && Form.property("vermessen").isNull()) {
                Form.setProperty("vermessen", true);
                EXPECT_LE(Form.width(), Schirm.width());
                EXPECT_LE(Form.height(), Schirm.height());
            }
            Form.resize(Form.sizeHint().boundedTo({1280, 800}).expandedTo(Nötig));
            QCoreApplication::processEvents();
            for (QWidget* const Teil : Form.findChildren<QWidget*>()) {
                const bool Beschriftet = qobject_cast<QAbstractButton*>(Teil) != nullptr ||
                                         qobject_cast<QLineEdit*>(Teil) != nullptr;
                const auto* const Zeile = qobject_cast<QLabel*>(Teil);
                if (!Teil->isVisible() || VonQt(*Teil) || (!Beschriftet && Zeile == nullptr)) continue;
                const QSize Bedarf = Teil->minimumSizeHint();
                const auto* const Knopf = qobject_cast<QToolButton*>(Teil);
                // A button with a symbol alone has no letters to cut.
                if (Knopf == nullptr || Knopf->toolButtonStyle() != Qt::ToolButtonIconOnly) {
                    EXPECT_GE(Teil->height(), Teil->fontMetrics().height())
                        << Beschreibe(*Teil).toStdString();
                }
                const bool Gekürzt =
                    Zeile != nullptr &&
                    (Zeile->wordWrap() || Zeile->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored);
                if (!Gekürzt) {
                    EXPECT_GE(Teil->width(), std::min(Bedarf.width(), Teil->maximumWidth()))
                        << Beschreibe(*Teil).toStdString();
                }
                if (Zeile != nullptr && Zeile->wordWrap()) {
                    EXPECT_GE(Teil->height() + 1, Zeile->heightForWidth(Zeile->width()))
                        << Beschreibe(*Teil).toStdString();
                }
            }
        });
    }
    QApplication::setFont(Vorher);
}

}  // namespace
}  // namespace liedwerk::test
