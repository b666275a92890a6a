// The TAG editor as the person drives it, on real files.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QSlider>
#include <QStackedWidget>

#include "core/tageditorfelder.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmsuchetextbasiert.h"
#include "ui/qt/frmtag.h"
#include "ui/qt/tagaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

class TagEditorForm : public ::testing::Test {
  protected:
    void SetUp() override {
        const std::string Musik = Welt.Musikordner();
        DateienHinzufügenLauf(Eins.Programm, {Musik + "/eins.mp3", Musik + "/zwei.mp3", Musik + "/drei.mp3"},
                              {}, false);
        Eins.Fenster.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Eins.Fenster));
    }
    // Opens the editor from the menu on all files and drives it.
    void Treiben(const std::function<void(QWidget&)>& Schritte) {
        Eins.Songs().selectAll();
        QTimer::singleShot(0, qApp, [&] {
            QWidget* const Form = QApplication::activeModalWidget();
            ASSERT_NE(Form, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
            Schritte(*Form);
            if (Form->isVisible()) static_cast<QDialog*>(Form)->done(QDialog::Accepted);
        });
        Teil<QAction>(Eins.Fenster, u"mnuTagEditor"_s).trigger();
    }
    Datensatz Gelesen(const char* Name) {
        return MedienleserVon(Eins.Programm)(Welt.Ordner() + "/Musik/" + Name, {},
                                             {Lesecode::Lesen("1111"), false, false, false});
    }
    static void Taste(QWidget& Form, QKeySequence Folge) {
        // To the window, as a real key: shortcuts first, then whatever has the focus.
        QTest::keyClick(Form.windowHandle(), Folge[0].key(), Folge[0].keyboardModifiers());
    }
    static void Mnemonik(QWidget& Form, const QString& Text) { Taste(Form, QKeySequence::mnemonic(Text)); }
    static void BlattÖffnen(QWidget& Form, Tagblatt Blatt) {
        static const std::array<QKeySequence, 4> Tasten = {QKeySequence(u"Alt+1"_s), QKeySequence(u"Alt+2"_s),
                                                           QKeySequence(u"Alt+2"_s),
                                                           QKeySequence(u"Alt+L"_s)};
        Taste(Form, Tasten[static_cast<std::size_t>(Blatt)]);
        if (Blatt == Tagblatt::Id3v2Weitere) Taste(Form, QKeySequence(u"Alt+M"_s));
    }

    Umgebung Welt;
    Lauf Eins{Welt};
};

TEST_F(TagEditorForm, JedesFeldNimmtEineEingabeUndJedeKommtInDieDatei) {
    Treiben([&](QWidget& Form) {
        std::optional<Tagblatt> Offen;
        for (const Tagfeld& Feld : Tagfelder()) {
            SCOPED_TRACE(Feld.Steuerelement);
            if (Offen != Feld.Blatt) BlattÖffnen(Form, Feld.Blatt);
            Offen = Feld.Blatt;
            Mnemonik(Form, QtText(Feld.Beschriftung));
            auto& Eingabe = Teil<QWidget>(Form, QtText(Feld.Steuerelement));
            ASSERT_TRUE(Eingabe.hasFocus()) << "its key leads to it";
            Taste(Form, QKeySequence::SelectAll);
            QTest::keyClicks(Form.focusWidget(), Feld.Wert == &Datensatz::Titelnummer ? u"17"_s : u"1987"_s);
        }
        BlattÖffnen(Form, Tagblatt::Id3v1);
        Taste(Form, QKeySequence(u"Alt+G"_s));
        QTest::keyClicks(&Teil<QComboBox>(Form, u"cboMusikrichtung"_s), u"Sal"_s);
        BlattÖffnen(Form, Tagblatt::Id3v2Weitere);
        Taste(Form, QKeySequence(u"Alt+Q"_s));
        QTest::keyClick(&Teil<QSlider>(Form, u"hscrlv2Qualität"_s), Qt::Key_End);
        Taste(Form, QKeySequence::Save);
    });
    const Datensatz Satz = Gelesen("eins.mp3");
    for (const Tagfeld& Feld : Tagfelder()) {
        const bool Nummer = Feld.Wert == &Datensatz::Titelnummer;
        EXPECT_EQ(Satz.*Feld.Wert, Nummer ? "17" : "1987") << Feld.Steuerelement;
    }
    EXPECT_EQ(Satz.Genre, 143);
    EXPECT_EQ(Satz.V2Qualität, 255);
    EXPECT_TRUE(Eins.Person.Gefragt.empty());
    EXPECT_TRUE(Eins.Person.Meldungen.empty());
    EXPECT_EQ(Eins.Programm.Index.Sätze.Lesen(1).V2Album, "1987");
}

TEST_F(TagEditorForm, TitelDerReiheNachÄndern) {
    Treiben([&](QWidget& Form) {
        auto& Vorheriger = Teil<QPushButton>(Form, u"cmdVorheriger"_s);
        auto& Nächster = Teil<QPushButton>(Form, u"cmdNächster"_s);
        auto& Titel = Teil<QLineEdit>(Form, u"txtTitel"_s);
        EXPECT_FALSE(Vorheriger.isEnabled());
        BlattÖffnen(Form, Tagblatt::Id3v1);
        QTest::mouseClick(&Teil<QAbstractButton>(Form, u"chkAutomatischSpeichern"_s), Qt::LeftButton);
        Taste(Form, QKeySequence(u"Alt+T"_s));
        Taste(Form, QKeySequence::SelectAll);
        QTest::keyClicks(&Titel, u"Der erste von dreien, und er ist viel zu lang"_s);
        EXPECT_EQ(Titel.text().size(), 30);
        Taste(Form, QKeySequence(u"Alt+N"_s));
        EXPECT_EQ(Teil<QLabel>(Form, u"lblPlatz"_s).text(), u"2 von 3"_s);
        EXPECT_EQ(Titel.selectedText(), u"Sommerregen"_s) << "the next one can be typed over at once";
        QTest::keyClicks(&Titel, u"Zweiter"_s);
        Taste(Form, QKeySequence(u"Ctrl+PgDown"_s));
        EXPECT_FALSE(Nächster.isEnabled());
        QTest::mouseClick(&Vorheriger, Qt::LeftButton);
        EXPECT_EQ(Titel.text(), u"Zweiter"_s);
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdOk"_s), Qt::LeftButton);
        EXPECT_FALSE(Form.isVisible());
    });
    EXPECT_EQ(Gelesen("eins.mp3").Titel, "Der erste von dreien, und er i");
    EXPECT_EQ(Gelesen("drei.mp3").Titel, "Stille Wasser");
    EXPECT_EQ(Eins.Programm.Werte.TAGAutomatischSpeichern, 1);
    QString Liste;
    for (int Spalte = 0; Spalte < Eins.Songs().model()->columnCount(); ++Spalte)
        Liste += Eins.Zelle(1, Spalte) + u'|';
    EXPECT_TRUE(Liste.contains(u"Zweiter"_s)) << Liste.toStdString();
}

TEST_F(TagEditorForm, AbbrechenFragtNachUngespeichertemUndLässtDieDatei) {
    Treiben([&](QWidget& Form) {
        BlattÖffnen(Form, Tagblatt::Id3v1);
        Teil<QLineEdit>(Form, u"txtTitel"_s).setText(u"Nur probiert"_s);
        Eins.Person.Antworten = {Antwort::Abbrechen, Antwort::Nein};
        QTest::keyClick(&Form, Qt::Key_Escape);
        EXPECT_TRUE(Form.isVisible());
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtTitel"_s).text(), u"Nur probiert"_s);
        QTest::mouseClick(&Teil<QPushButton>(Form, u"cmdAbbrechen"_s), Qt::LeftButton);
        EXPECT_FALSE(Form.isVisible());
    });
    EXPECT_EQ(Eins.Person.Gefragt.size(), 2u);
    EXPECT_EQ(Gelesen("eins.mp3").Titel, "Morgenlicht");
}

TEST_F(TagEditorForm, FehlendeDateiNimmtKeineEingaben) {
    std::filesystem::remove(Welt.Ordner() + "/Musik/zwei.mp3");
    Treiben([&](QWidget& Form) {
        Taste(Form, QKeySequence(u"Ctrl+PgDown"_s));
        EXPECT_EQ(Teil<QLabel>(Form, u"lblId3v1"_s).text(), u"Diese Datei existiert nicht (mehr)."_s);
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtTitel"_s).text(), u"Sommerregen"_s);
        EXPECT_FALSE(Teil<QLineEdit>(Form, u"txtTitel"_s).isEnabled());
        EXPECT_FALSE(Teil<QPushButton>(Form, u"cmdTAGSpeichernAlles"_s).isEnabled());
        Taste(Form, QKeySequence(u"Ctrl+PgDown"_s));
        EXPECT_TRUE(Teil<QLineEdit>(Form, u"txtTitel"_s).isEnabled());
    });
}

TEST_F(TagEditorForm, WasZugleichSichtbarIstHatVerschiedeneTasten) {
    Treiben([&](QWidget& Form) {
        for (const Tagblatt Blatt :
             {Tagblatt::Id3v1, Tagblatt::Id3v2, Tagblatt::Id3v2Weitere, Tagblatt::Lyrics}) {
            SCOPED_TRACE(static_cast<int>(Blatt));
            BlattÖffnen(Form, Blatt);
            QSet<QString> Tasten;
            const auto Vergeben = [&](const QString& Text) {
                const QString Eine = QKeySequence::mnemonic(Text).toString();
                EXPECT_FALSE(Eine.isEmpty()) << Text.toStdString();
                EXPECT_FALSE(Tasten.contains(Eine)) << Text.toStdString();
                Tasten.insert(Eine);
            };
            for (const QWidget* const Teil : Form.findChildren<QWidget*>()) {
                if (!Teil->isVisible()) continue;
                // A button that is only a picture stands behind the field that it serves.
                const auto* const Knopf = qobject_cast<const QAbstractButton*>(Teil);
                if (Knopf != nullptr && (!Knopf->text().isEmpty() || Knopf->icon().isNull()))
                    Vergeben(Knopf->text());
                if (const auto* const Name = qobject_cast<const QLabel*>(Teil); Name && Name->buddy())
                    Vergeben(Name->text());
                const bool Eingabe = qobject_cast<const QLineEdit*>(Teil) ||
                                     qobject_cast<const QComboBox*>(Teil) ||
                                     qobject_cast<const QPlainTextEdit*>(Teil);
                EXPECT_TRUE(!Eingabe || Teil->objectName().isEmpty() || !Teil->accessibleName().isEmpty())
                    << Teil->objectName().toStdString();
            }
        }
    });
}

// Closes the form of this name as soon as it is the one in front; the test stands still while it never comes.
void FormAblehnen(const QString& Name) {
    auto* const Blick = new QTimer(qApp);
    QObject::connect(Blick, &QTimer::timeout, qApp, [Blick, Name] {
        auto* const Form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (Form == nullptr || Form->objectName() != Name) return;
        Blick->deleteLater();
        Form->reject();
    });
    Blick->start(10);
}

TEST_F(TagEditorForm, FunktionenLaufenAusDenListen) {
    Treiben([&](QWidget& Form) {
        auto& Funktion = Teil<QComboBox>(Form, u"cboFunktion"_s);
        auto& Worauf = Teil<QComboBox>(Form, u"cboFunktionTAG"_s);
        Taste(Form, QKeySequence(u"Alt+A"_s));
        EXPECT_EQ(Eins.Person.Meldungen,
                  (std::vector<std::string>{"Bitte wählen Sie eine Funktion und auf welche TAGs Sie diese "
                                            "anwenden möchten."}));
        BlattÖffnen(Form, Tagblatt::Id3v1);
        EXPECT_EQ(Worauf.currentText(), u"Diesen ID3v1-TAG"_s) << "the tag that is looked at";
        Taste(Form, QKeySequence(u"Alt+F"_s));
        QTest::keyClicks(&Funktion, u"Vert"_s);
        EXPECT_EQ(Funktion.currentText(), u"Vertauschen: Titel <-> Interpret"_s);
        Taste(Form, QKeySequence(u"Alt+A"_s));
        EXPECT_EQ(Teil<QLineEdit>(Form, u"txtTitel"_s).text(), u"Anna Berg"_s);
        // Two functions that open a window of their own.
        Funktion.setCurrentText(u"AutoTAG einstellen..."_s);
        FormAblehnen(u"frmTagAutoTagWählen"_s);
        Taste(Form, QKeySequence(u"Alt+A"_s));
        Funktion.setCurrentText(u"Felder kopieren..."_s);
        FormAblehnen(u"frmTagFeldFüllen"_s);
        Taste(Form, QKeySequence(u"Alt+A"_s));
        FormAblehnen(u"frmTagLieblingsGenre"_s);
        QTest::mouseClick(&Teil<QAbstractButton>(Form, u"cmdLieblingsGenre"_s), Qt::LeftButton);
    });
    EXPECT_EQ(Gelesen("eins.mp3").Titel, "Anna Berg");
    EXPECT_EQ(Gelesen("eins.mp3").Interpret, "Morgenlicht");
}

TEST_F(TagEditorForm, MehrfachsucheGibtGewählteDateienWeiter) {
    frmSucheTextbasiert Form(Eins.Programm.Index, Eins.Programm.Puffer, Eins.Person, nullptr);
    std::vector<Satznummer> Erhalten;
    Form.Infos = [&](const std::vector<Satznummer>& Dateien) { Erhalten = Dateien; };
    Teil<QPlainTextEdit>(Form, u"txtAbfragen"_s).setPlainText(u"Anna"_s);
    Teil<QPushButton>(Form, u"cmdVerarbeiten"_s).click();
    auto& Infos = Teil<QPushButton>(Form, u"cmdInfos"_s);
    Infos.click();
    EXPECT_EQ(Eins.Person.Meldungen, (std::vector<std::string>{"Bitte wählen Sie mindestens eine Datei, um "
                                                               "diese Funktion auszuführen."}));
    Teil<QTreeView>(Form, u"lstResultateDetails"_s).selectAll();
    Infos.click();
    EXPECT_EQ(Erhalten, (std::vector<Satznummer>{1, 2}));
}

}  // namespace
}  // namespace liedwerk::test
