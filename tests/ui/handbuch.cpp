// The handbook and the program: a menu entry, key or picture that it names must be there, and a key that the
// program has must stand in its table.
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>

#include "basis/datei.h"
#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/spieler.h"
#include "tests/ui/fensterlauf.h"
#include "ui/qt/uebersetzer.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

QString OhneBuchstabe(QString Text) {
    return Text.remove(u'&');
}

QString Seite(const char* Name) {
    return QtText(DateiLesen(std::string(LIEDWERK_WURZEL) + "/docs/" + Name).value_or(""));
}
QString Handbuch() {
    return Seite("handbuch.md");
}

// Every way through the menus, "Datei → Speichern", with its action.
void WegeSammeln(const QMenu& Menü, const QString& Davor, QMap<QString, QAction*>& Wege) {
    for (QAction* const Aktion : Menü.actions()) {
        if (Aktion->isSeparator()) continue;
        const QString Weg = Davor + u" → "_s + OhneBuchstabe(Aktion->text());
        Wege.insert(Weg, Aktion);
        if (Aktion->menu() != nullptr) WegeSammeln(*Aktion->menu(), Weg, Wege);
    }
}

class HandbuchProbe : public testing::Test {
  protected:
    HandbuchProbe() {
        // The menus say the keys as the handbook does, also where Qt's own German texts are not installed.
        QCoreApplication::installTranslator(&Deutsch);
        // Some entries are there only with a player to speak to and drives that may hold a CD.
        Welt.Spieler = &Kanal;
        Welt.Programme = &Programme;
        Welt.CDs = &Scheiben;
        Eins = std::make_unique<Lauf>(Welt);
        for (QAction* const Menü : Eins->Fenster.menuBar()->actions())
            WegeSammeln(*Menü->menu(), OhneBuchstabe(Menü->text()), Wege);
    }
    Grundübersetzer Deutsch;
    speicher::Spieler Kanal;
    speicher::Programme Programme;
    speicher::CDs Scheiben;
    Umgebung Welt;
    std::unique_ptr<Lauf> Eins;
    QMap<QString, QAction*> Wege;
};

TEST_F(HandbuchProbe, JederGenannteMenüpunktIstDaUndHatEinenNamen) {
    static const QRegularExpression Fett(u"\\*\\*([^*|]+ → [^*|]+)\\*\\*"_s);
    int Anzahl = 0;
    for (const auto& Fund : Fett.globalMatch(Handbuch())) {
        // The page is filled by hand: a line may end within.
        const QString Weg = Fund.captured(1).simplified();
        EXPECT_TRUE(Wege.contains(Weg)) << Weg.toStdString();
        ++Anzahl;
    }
    EXPECT_GT(Anzahl, 20) << "the handbook was not read";
}

TEST_F(HandbuchProbe, TastenStehenAlleInDerTabelleUndJedeHatEineBedeutung) {
    QMap<QString, QString> Tabelle;
    static const QRegularExpression Form(u"^\\| ([^|]+) \\| ([^|→]+ → [^|]+) \\|$"_s,
                                         QRegularExpression::MultilineOption);
    for (const auto& Fund : Form.globalMatch(Handbuch())) {
        for (const QString& Taste : Fund.captured(1).split(u", "_s))
            Tabelle.insert(Taste, Fund.captured(2));
    }
    QMap<QString, QString> Vergeben;
    for (auto Weg = Wege.cbegin(); Weg != Wege.cend(); ++Weg) {
        for (const QKeySequence& Taste : Weg.value()->shortcuts()) {
            const QString Name = Taste.toString(QKeySequence::NativeText);
            EXPECT_FALSE(Vergeben.contains(Name))
                << Name.toStdString() << " is both " << Vergeben[Name].toStdString() << " and "
                << Weg.key().toStdString();
            Vergeben.insert(Name, Weg.key());
        }
    }
    EXPECT_GT(Tabelle.size(), 20) << "the table was not read";
    auto Tasten = Tabelle.keys() + Vergeben.keys();
    Tasten.removeDuplicates();
    for (const QString& Taste : Tasten) {
        EXPECT_EQ(Tabelle.value(Taste).toStdString(), Vergeben.value(Taste).toStdString())
            << Taste.toStdString() << ": in the handbook, and in the window";
    }
}

TEST_F(HandbuchProbe, BilderUndVerweiseFührenZumZiel) {
    const QString Text = Seite("handbuch.md");
    const QString Ordner = QStringLiteral(LIEDWERK_WURZEL "/docs/");
    static const QRegularExpression Bild(u"!\\[[^\\]]+\\]\\(([^)]+)\\)"_s);
    QSet<QString> Genannt;
    for (const auto& Fund : Bild.globalMatch(Text + Seite("formulare.md"))) {
        EXPECT_TRUE(QFile::exists(Ordner + Fund.captured(1))) << Fund.captured(1).toStdString();
        Genannt.insert(Fund.captured(1));
    }
    EXPECT_FALSE(Genannt.isEmpty());
    qint64 Bytes = 0;
    for (const QFileInfo& Datei : QDir(Ordner + u"bilder"_s).entryInfoList(QDir::Files)) {
        Bytes += Datei.size();
        EXPECT_TRUE(Genannt.contains(u"bilder/"_s + Datei.fileName()))
            << Datei.fileName().toStdString() << " is shown nowhere";
    }
    EXPECT_LT(Bytes, 3'000'000);
    // A link within the page leads to a heading in small letters, blanks as "-", without punctuation.
    QSet<QString> Ziele;
    static const QRegularExpression Kopf(u"^#+ (.+)$"_s, QRegularExpression::MultilineOption);
    for (const auto& Fund : Kopf.globalMatch(Text)) {
        QString Ziel = Fund.captured(1).toLower();
        Ziele.insert(
            Ziel.remove(QRegularExpression(u"[^\\w -]"_s, QRegularExpression::UseUnicodePropertiesOption))
                .replace(u' ', u'-'));
    }
    static const QRegularExpression Verweis(u"\\]\\(#([^)]+)\\)"_s);
    for (const auto& Fund : Verweis.globalMatch(Text))
        EXPECT_TRUE(Ziele.contains(Fund.captured(1))) << Fund.captured(1).toStdString();
}

}  // namespace
}  // namespace liedwerk::test
