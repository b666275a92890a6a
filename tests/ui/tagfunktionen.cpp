// The forms around AutoTAG, the filling of fields and the favourite genres, by keyboard and mouse.
#include "tests/ui/fensterlauf.h"
#include "ui/qt/frmausschlussliste.h"
#include "ui/qt/frmtagautotaghinzufuegen.h"
#include "ui/qt/frmtagautotagwaehlen.h"
#include "ui/qt/frmtagfeldfuellen.h"
#include "ui/qt/frmtaglieblingsgenre.h"

namespace liedwerk::test {
namespace {

using namespace Qt::StringLiterals;

// Near the left edge: a radio button answers only where its mark and text are.
void Klicken(QWidget& Form, const QString& Name) {
    auto& Knopf = Teil<QAbstractButton>(Form, Name);
    QTest::mouseClick(&Knopf, Qt::LeftButton, {}, QPoint(8, Knopf.height() / 2));
}

void Tippen(QWidget& Form, const QString& Name, const QString& Text) {
    auto& Zeile = Teil<QLineEdit>(Form, Name);
    Zeile.setFocus();
    Zeile.selectAll();
    QTest::keyClicks(&Zeile, Text);
}

// LIEDWERK_BILDER names a folder that receives a picture of each form.
void Abbilden(QWidget& Form) {
    const QString Ordner = qEnvironmentVariable("LIEDWERK_BILDER");
    if (!Ordner.isEmpty()) Form.grab().save(Ordner + u'/' + Form.objectName() + u".png"_s);
}

TEST(TagfunktionenFormen, FormatHinzufügenWählenUndMerken) {
    Einstellungen Werte;
    speicher::Person Person;
    frmTagAutoTagWählen Form(Werte, "/m/wer - was.mp3", Person, nullptr);
    Form.show();
    Abbilden(Form);
    // A wrong format keeps the window open; the right one is built by a button and typing.
    ImDialogKlicken(u"cmdOk"_s, [&](QWidget& Neues) {
        const auto& Beispiel = Teil<QLabel>(Neues, u"lblBeispiel"_s);
        EXPECT_EQ(Beispiel.text(), u"Beispiel 'wer - was.mp3':"_s);
        Tippen(Neues, u"txtFormat"_s, u"%Titel"_s);
        EXPECT_TRUE(Beispiel.text().endsWith(u"noch nicht vollständig."_s));
        Klicken(Neues, u"cmdOk"_s);
        EXPECT_EQ(Person.Meldungen.size(), 1U);
        Teil<QLineEdit>(Neues, u"txtFormat"_s).clear();
        Klicken(Neues, u"cmdVariableInterpret"_s);
        QTest::keyClicks(Neues.focusWidget(), u" - %Titel% "_s);
        QTest::keyClick(Neues.focusWidget(), Qt::Key_Backspace);
        EXPECT_TRUE(Teil<QLabel>(Neues, u"lblBeispiel"_s).text().contains(u"Interpret: Wer"_s));
        Abbilden(Neues);
    });
    Klicken(Form, u"cmdHinzufügen"_s);
    // It is in the list already: only chosen.
    auto& Liste = Teil<QListWidget>(Form, u"lstFormate"_s);
    EXPECT_EQ(Liste.currentRow(), 0);
    Liste.setFocus();
    QTest::keyClick(&Liste, Qt::Key_Delete);
    Liste.setCurrentRow(2);
    const QString Gewählt = Liste.currentItem()->text();
    Klicken(Form, u"cmdNachOben"_s);
    Klicken(Form, u"chkFelderLöschen"_s);
    QTest::keyClick(&Form, Qt::Key_Return);
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Werte.AutoTagAktuell, Utf8Text(Gewählt));
    ASSERT_EQ(Werte.AutoTagFormate.size(), 5U);
    EXPECT_EQ(Werte.AutoTagFormate[1], Werte.AutoTagAktuell);
    EXPECT_EQ(Werte.AutoTagLeer, 0);
    EXPECT_EQ(Werte.AutoTagFelderLöschen, 1);
}

TEST(TagfunktionenFormen, AbbrechenMerktNichts) {
    Einstellungen Werte;
    frmAusschlußliste Form(Werte, nullptr);
    Form.show();
    Tippen(Form, u"txtWort"_s, u"neu"_s);
    QTest::keyClick(&Form, Qt::Key_Escape);
    EXPECT_TRUE(Werte.AutoTagAusschluß.empty());
    EXPECT_NE(Werte.AutoTagAusschlußLeer, 0);
}

TEST(TagfunktionenFormen, AusschlußwortGiltNachEingabeUndOk) {
    Einstellungen Werte;
    frmAusschlußliste Form(Werte, nullptr);
    Form.show();
    Tippen(Form, u"txtWort"_s, u"Mein Wort"_s);
    QTest::keyClick(Form.focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(Form.isVisible());
    Abbilden(Form);
    QTest::keyClick(Form.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(Form.isVisible());
    ASSERT_FALSE(Werte.AutoTagAusschluß.empty());
    EXPECT_EQ(Werte.AutoTagAusschluß.back(), "Mein Wort");
    EXPECT_EQ(Werte.AutoTagAusschlußLeer, 0);
}

TEST(TagfunktionenFormen, FeldFüllenBietetBeideWerteUndEigenenText) {
    Datensatz Satz;
    Satz.Titel = "eins & zwei";
    Satz.V2Titel = "der lange Titel";
    Satz.V2Genre = "Eigenes";
    speicher::Person Person;
    frmTagFeldFüllen Form(Satz, Funktionsauswahlen[4], Person, nullptr);
    Form.show();
    EXPECT_EQ(Teil<QRadioButton>(Form, u"optId3v1"_s).text(), u"ID3v&1: 'eins && zwei'"_s);
    EXPECT_EQ(Form.Vorgabe().Text, "eins & zwei");
    Klicken(Form, u"optId3v2"_s);
    EXPECT_EQ(Form.Vorgabe().Text, "der lange Titel");
    Abbilden(Form);
    auto& Felder = Teil<QListWidget>(Form, u"lstFelder"_s);
    QTest::keyClicks(&Felder, u"Genre"_s);
    Klicken(Form, u"cmdOk"_s);
    EXPECT_TRUE(Form.isVisible());
    EXPECT_EQ(Person.Meldungen.size(), 1U);
    Tippen(Form, u"txtText"_s, u"rock"_s);
    QTest::keyClick(&Form, Qt::Key_Return);
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Form.Vorgabe().Feld->Name, "Genre");
    EXPECT_EQ(Form.Vorgabe().Text, "rock");
}

TEST(TagfunktionenFormen, LieblingsGenresEinengenUndAufnehmen) {
    Einstellungen Werte;
    speicher::Person Person;
    frmTagLieblingsGenre Form(Werte, Person, nullptr);
    Form.show();
    Klicken(Form, u"cmdOk"_s);
    EXPECT_EQ(Person.Meldungen, std::vector<std::string>{"Bitte geben Sie einen Text ein."});
    EXPECT_TRUE(Form.isVisible());
    Tippen(Form, u"txtSucheBegriff"_s, u"rOcK"_s);
    auto& Auswahl = Teil<QListWidget>(Form, u"lstSucheAuswahl"_s);
    int Sichtbare = 0;
    for (int Zeile = 0; Zeile < Auswahl.count(); ++Zeile) {
        if (Auswahl.isRowHidden(Zeile)) continue;
        ++Sichtbare;
        EXPECT_TRUE(Auswahl.item(Zeile)->text().contains(u"rock"_s, Qt::CaseInsensitive));
    }
    EXPECT_GT(Sichtbare, 3);
    Abbilden(Form);
    Klicken(Form, u"cmdHinzufügen"_s);
    Tippen(Form, u"txtSucheBegriff"_s, u"Eigenes"_s);
    QTest::keyClick(&Form, Qt::Key_Return);
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Werte.GenreBevorzugte, (std::vector<std::string>{"Rock", "Eigenes"}));
    EXPECT_EQ(Werte.GenreBevorzugteLeer, 0);
}

TEST(TagfunktionenFormen, MenüÖffnetDieFenster) {
    Umgebung Welt;
    Lauf Run(Welt);
    for (const auto& [Aktion, Fenster] : {std::pair{u"mnuAutoTagEinstellen"_s, u"frmTagAutoTagWählen"_s},
                                          {u"mnuLieblingsGenre"_s, u"frmTagLieblingsGenre"_s}}) {
        ImDialogKlicken(u"cmdAbbrechen"_s, [&](QWidget& Form) { EXPECT_EQ(Form.objectName(), Fenster); });
        Teil<QAction>(Run.Fenster, Aktion).trigger();
    }
}

}  // namespace
}  // namespace liedwerk::test
