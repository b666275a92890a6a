// Nothing in a menu is dead: every action of the main window does something that can be noticed.
#include <QClipboard>
#include <QDesktopServices>
#include <QDialog>
#include <QMenuBar>
#include <QSet>
#include <QTextBrowser>

#include "plattform/speicher/cdlaufwerke.h"
#include "plattform/speicher/spieler.h"
#include "tests/ui/fensterlauf.h"

using namespace Qt::StringLiterals;

namespace liedwerk::test {
namespace {

// Closes every form that opens, as soon as it is there.
class Formschließer {
  public:
    Formschließer() {
        Uhr.callOnTimeout([this] {
            if (QWidget* const Menü = QApplication::activePopupWidget()) Menü->close();
            auto* const Form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (Form == nullptr) return;
            ++Geschlossene;
            Form->reject();
            if (Form->isVisible()) Form->hide();
        });
        Uhr.start(1);
    }
    int Geschlossene = 0;

  private:
    QTimer Uhr;
};

// A run with three files, a player and programs that only note what they are told.
struct Menülauf {
    Menülauf() {
        Welt.Werte.Schreiben("AudioplayerNachrichtZeigen", std::int32_t{0});
        Welt.Werte.Schreiben("WinampPfad", Welt.Ordner() + "/audacious");
        std::ofstream(Welt.Ordner() + "/audacious") << "x";
        Welt.Spieler = &Kanal;
        Welt.Programme = &Programme;
        Welt.CDs = &CDs;
        Eins = std::make_unique<Lauf>(Welt);
        Eins->OrdnerHinzufügen(Welt.Musikordner());
    }
    // Everything that an action may change, as one text.
    QString Fingerabdruck(const Formschließer& Formen) const {
        const Anwendung& P = Eins->Programm;
        const speicher::Person& Person = Eins->Person;
        QStringList Teile;
        const auto Zahlen = [&](auto... Werte) { (Teile.append(QString::number(Werte)), ...); };
        Zahlen(Formen.Geschlossene, Person.Meldungen.size(), Person.Gefragt.size(), Person.Status.size(),
               Kanal.Gesendet.size(), Programme.Starts.size(), Programme.Geöffnet.size(),
               P.Index.IndexAnzahl(), int{P.Index.IndexGeändert}, P.Ansicht.Zeilen.size(),
               P.Ansicht.Auswahl.size(), P.Ansicht.Spalten.size(), P.Abfragen.Liste.size(),
               P.Index.Optionen.SpaltenLeiste, P.Index.Optionen.SpaltenGitter,
               P.Index.Optionen.SpaltenSymbole, int{Eins->Beendet}, int{P.Gesperrt});
        FürJedeEinstellung(P.Werte, [&](std::string_view, const auto& Wert) {
            if constexpr (std::is_integral_v<std::decay_t<decltype(Wert)>>) {
                Teile.append(QString::number(Wert));
            } else {
                Teile.append(QtText(Wert));
            }
        });
        Teile.append(QGuiApplication::clipboard()->text());
        const QWidget* const Vorn = Eins->Fenster.focusWidget();
        Teile.append(Vorn == nullptr ? QString() : Vorn->objectName());
        for (const QWidget* const Fenster : QApplication::topLevelWidgets())
            if (Fenster->isVisible()) Teile.append(Fenster->objectName());
        Teile.append(Adressen.source().toString());
        return Teile.join(u'\n');
    }
    // What can be the matter when a menu is opened.
    void Herstellen(int Umstand) const {
        QGuiApplication::clipboard()->clear();
        auto& Songs = Eins->Songs();
        Songs.clearSelection();
        if (Umstand == 1) Songs.setCurrentIndex(Songs.model()->index(0, 1));
        if (Umstand >= 2) Songs.selectAll();
        if (Umstand == 3) QTest::keyClicks(&Eins->Suchfeld(), u"m"_s);
        if (Umstand == 4) QGuiApplication::clipboard()->setText(QtText(Welt.Ordner()) + u"/neu.mp3"_s);
        if (Umstand != 3) Songs.setFocus();
        if (Umstand == 5) Eins->Fenster.hide();
    }

    Umgebung Welt;
    speicher::Spieler Kanal;
    speicher::Programme Programme;
    speicher::CDs CDs;
    std::unique_ptr<Lauf> Eins;
    mutable QTextBrowser Adressen;
};

constexpr int Umstände = 6;

QStringList Aktionsnamen(const QMenu& Menü) {
    QStringList Namen;
    for (const QAction* const Aktion : Menü.actions()) {
        if (Aktion->isSeparator()) continue;
        if (Aktion->menu() != nullptr) {
            Namen += Aktionsnamen(*Aktion->menu());
        } else if (!Aktion->objectName().isEmpty()) {
            Namen.append(Aktion->objectName());
        }
    }
    return Namen;
}

TEST(Menüs, JederEintragTutEtwas) {
    QStringList Namen;
    {
        Menülauf M;
        for (const QAction* const Menü : M.Eins->Fenster.menuBar()->actions()) {
            EXPECT_FALSE(Menü->menu()->isEmpty()) << Menü->text().toStdString();
            Namen += Aktionsnamen(*Menü->menu());
        }
        Namen += Aktionsnamen(M.Eins->Fenster.Startleistenmenü());
    }
    Namen.removeDuplicates();
    EXPECT_GT(Namen.size(), 30);
    for (const QString& Name : Namen) {
        SCOPED_TRACE(Name.toStdString());
        Menülauf M;
        // Folders are opened by nobody here.
        QDesktopServices::setUrlHandler(u"file"_s, &M.Adressen, "setSource");
        Formschließer Formen;
        M.Kanal.Klasse = "audacious";
        M.Kanal.Zustand = 1;
        M.Kanal.Geändert();
        QTest::qWait(20);
        auto& Aktion = Teil<QAction>(M.Eins->Fenster, Name);
        int Umstand = 0;
        for (; Umstand < Umstände; ++Umstand) {
            M.Herstellen(Umstand);
            if (Aktion.isEnabled()) break;
        }
        ASSERT_LT(Umstand, Umstände) << "lässt sich nie wählen";
        // What a circumstance has no work for another one may have.
        bool Gewirkt = false;
        for (; Umstand < Umstände && !Gewirkt; ++Umstand) {
            M.Herstellen(Umstand);
            if (!Aktion.isEnabled()) continue;
            const QString Vorher = M.Fingerabdruck(Formen);
            Aktion.trigger();
            QTest::qWait(1);
            Gewirkt = M.Fingerabdruck(Formen) != Vorher;
        }
        EXPECT_TRUE(Gewirkt);
        QDesktopServices::unsetUrlHandler(u"file"_s);
    }
}

TEST(Menüs, DasStartleistenmenüGehtNichtDurchEinOffenesFenster) {
    Menülauf M;
    auto& Fenster = M.Eins->Fenster;
    M.Herstellen(0);
    QDialog Form;
    Form.setModal(true);
    Form.show();
    const auto Vorher = M.Eins->Programm.Index.Sätze.Generation();
    const QMenu& Menü = Fenster.Startleistenmenü();
    emit const_cast<QMenu&>(Menü).aboutToShow();
    for (const QString& Name : Aktionsnamen(Menü)) {
        auto& Aktion = Teil<QAction>(Fenster, Name);
        const bool Öffnet = Name == u"mnuSymbolÖffnen"_s;
        EXPECT_EQ(Aktion.isEnabled(), Öffnet) << Name.toStdString();
        // A desktop may show the menu without asking what can be used now.
        Aktion.setEnabled(true);
        Aktion.trigger();
        EXPECT_EQ(QApplication::activeModalWidget(), &Form) << Name.toStdString();
    }
    EXPECT_EQ(M.Eins->Programm.Index.Sätze.Generation(), Vorher);
    EXPECT_FALSE(M.Eins->Programm.Gesperrt || M.Eins->Beendet);
    Form.close();
    emit const_cast<QMenu&>(Menü).aboutToShow();
    EXPECT_TRUE(Teil<QAction>(Fenster, u"mnuSymbolBeenden"_s).isEnabled());
}

}  // namespace
}  // namespace liedwerk::test
