// The main window while it is locked, and what its tray symbol offers.
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/hinzufuegewege.h"
#include "core/tipps.h"
#include "ui/qt/frmhinweise.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/frmsperre.h"
#include "ui/qt/frmtipps.h"
#include "ui/qt/frmwillkommen.h"
#include "ui/qt/kennwort.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

QWidget* frmMain::SperrseiteAnlegen() {
    auto* const fraGesperrt = new QWidget(this);
    fraGesperrt->setObjectName(u"fraGesperrt"_s);
    auto* const Mitte = new QVBoxLayout(fraGesperrt);
    auto* const lblBild = new Symbolfeld(Symbolbild("sperre"), 72, QIcon::Disabled, fraGesperrt);
    auto* const lblGesperrt = new QLabel(u"Das Programm ist gesperrt."_s, fraGesperrt);
    const auto Knopf = [&](const QString& Name, const QString& Text) {
        auto* const Neu = new QPushButton(Text, fraGesperrt);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(true);
        Neu->setMinimumSize(fontMetrics().averageCharWidth() * 28, fontMetrics().height() + 16);
        return Neu;
    };
    auto* const cmdEntsperren = Knopf(u"cmdEntsperren"_s, u"E&ntsperren..."_s);
    auto* const cmdGesperrtBeenden = Knopf(u"cmdGesperrtBeenden"_s, u"Programm &beenden"_s);
    connect(cmdEntsperren, &QPushButton::clicked, this, [this] { SperreZeigen(); });
    connect(cmdGesperrtBeenden, &QPushButton::clicked, this, [this] { close(); });
    Mitte->addStretch(2);
    for (QWidget* const Teil :
         std::initializer_list<QWidget*>{lblBild, lblGesperrt, cmdEntsperren, cmdGesperrtBeenden})
        Mitte->addWidget(Teil, 0, Qt::AlignHCenter);
    Mitte->addStretch(3);
    return fraGesperrt;
}

void frmMain::SperreSetzen(bool Gesperrt) {
    if (Gesperrt == Programm->Gesperrt) return;
    Programm->Gesperrt = Gesperrt;
    Fenstertitel.Zeigen({});
    Ganzes->setCurrentIndex(Gesperrt ? 1 : 0);
    menuBar()->setVisible(!Gesperrt);
    statusBar()->setVisible(!Gesperrt);
    // Keys and tray symbol reach actions that no menu shows.
    for (QAction* const Aktion : actions()) {
        if (Aktion == mnuBeenden) continue;
        if (Gesperrt && Aktion->isEnabled()) GesperrteAktionen.append(Aktion);
        if (Gesperrt) Aktion->setEnabled(false);
    }
    if (Gesperrt) return;
    for (QAction* const Aktion : std::exchange(GesperrteAktionen, {}))
        Aktion->setEnabled(true);
    AktionenNachführen();
    Suche->Fokussieren();
}

bool frmMain::SperreGilt() const {
    return !Programm->Werte.Sperre.empty() && Programm->Werte.SperreAktiv == 1;
}

void frmMain::SperreZeigen() {
    if (!KennwortLesbar(Programm->Werte.Sperre)) return AlteSperreAufheben();
    SperreSetzen(true);
    frmSperre Form(Programm->Werte.Sperre, isVisible() ? this : nullptr);
    if (Form.exec() != QDialog::Accepted) return;
    SperreSetzen(false);
    if (const std::string Name = std::exchange(GemerkterEigentümer, {}); !Name.empty())
        frmEigentümer(Name, isVisible() ? this : nullptr).exec();
}

// Nothing can be tested against such a value, and whoever could write it could switch the lock off as well.
void frmMain::AlteSperreAufheben() {
    Programm->Werte.Sperre.clear();
    Programm->Werte.SperreAktiv = 0;
    SperreSetzen(false);
    Oberfläche& Person = Programm->Dienst.Person;
    if (Person.JaNein(
            Symbol::Ausrufezeichen,
            "Das gespeicherte Passwort hat eine alte Form, die nicht sicher ist. Es wird nicht "
            "mehr anerkannt; die Sperre wurde ausgeschaltet.\n\nMöchten Sie jetzt ein neues Passwort "
            "festlegen?",
            Antwort::Ja) == Antwort::Ja)
        frmSperreSetzen(Programm->Werte, Person, isVisible() ? this : nullptr).exec();
}

void frmMain::WillkommenZeigen() {
    frmWillkommen Form(*Programm, isVisible() ? this : nullptr);
    Form.exec();
    if (!Form.Ordner().empty()) NachStartHinzufügen(Form.Ordner());
}

// The start shows further windows; the folder is added when everything stands.
void frmMain::NachStartHinzufügen(const std::string& Ordner) {
    constexpr int Blicktakt = 50;  // milliseconds
    QTimer::singleShot(Blicktakt, this, [this, Ordner] {
        if (Endet) return;
        if (!Bereit()) return NachStartHinzufügen(Ordner);
        HinzufügewahlAusführen(*Programm, {Hinzufügeweg::Ordner, {}, Ordner, {}, false});
    });
}

void frmMain::TippZeigen(int Nummer) {
    frmTipps(Programm->Werte, Nummer, isVisible() ? this : nullptr).exec();
}

int frmMain::TippAnzahl() const {
    return static_cast<int>(Tipps().size());
}

void frmMain::SymbolmenüAnlegen() {
    Symbolmenü = std::make_unique<QMenu>();
    Symbolmenü->setObjectName(u"mnuSymbol"_s);
    auto* const mnuSymbolÖffnen = AktionAnlegen(u"mnuSymbolÖffnen"_s, u"Fenster ö&ffnen"_s, "sammlung", {},
                                                &frmMain::mnuSymbolÖffnen_Click);
    Symbolmenü->addAction(mnuSymbolÖffnen);
    Symbolmenü->setDefaultAction(mnuSymbolÖffnen);
    Symbolmenü->addSeparator();
    // The player's buttons, as far as they can be used now.
    for (const auto& [Name, Text, Bild] :
         {std::tuple{u"Abspielen"_s, u"&Wiedergabe/Pause"_s, "spielen"},
          std::tuple{u"AbspielenStopp"_s, u"&Stopp"_s, "stopp"},
          std::tuple{u"WinampVorheriger"_s, u"&Vorheriger Titel"_s, "vorheriger"},
          std::tuple{u"WinampNächster"_s, u"&Nächster Titel"_s, "naechster"}}) {
        auto* const Knopf = findChild<QAbstractButton*>(u"cmd"_s + Name);
        if (Knopf == nullptr) continue;
        auto* const Aktion = new QAction(Symbolbild(Bild), Text, this);
        Aktion->setObjectName(u"mnuSymbol"_s + Name);
        connect(Aktion, &QAction::triggered, Knopf, &QAbstractButton::click);
        connect(Symbolmenü.get(), &QMenu::aboutToShow, Aktion,
                [this, Aktion, Knopf] { Aktion->setEnabled(Knopf->isEnabled() && !Programm->Gesperrt); });
        Symbolmenü->addAction(Aktion);
    }
    Symbolmenü->addSeparator();
    // What is missing here has no action in this run, since nothing stands behind it.
    for (const QString& Name : {u"mnuAutoDJ"_s, u"mnuHinzufügen"_s, u"mnuListeAufräumen"_s, u"mnuSpeichern"_s,
                                u"mnuEreignisse"_s, u"mnuOptionen"_s, u"mnuSperren"_s, u"mnuHandbuch"_s}) {
        if (auto* const Aktion = findChild<QAction*>(Name)) InsSymbolmenü(*Aktion);
    }
    Symbolmenü->addSeparator();
    InsSymbolmenü(*mnuBeenden);
}

// An entry of its own, since it is grey while a form is open, which the window's need not be. A desktop that
// shows the menu without asking finds it usable; the handlers ask for themselves.
void frmMain::InsSymbolmenü(QAction& Aktion) {
    auto* const Eintrag = new QAction(Aktion.icon(), Aktion.text(), this);
    Eintrag->setObjectName(u"mnuSymbol"_s + Aktion.objectName().mid(3));
    connect(Eintrag, &QAction::triggered, &Aktion, &QAction::trigger);
    const auto Nachführen = [&Aktion, Eintrag] { Eintrag->setEnabled(Aktion.isEnabled()); };
    connect(&Aktion, &QAction::enabledChanged, Eintrag, Nachführen);
    Nachführen();
    connect(Symbolmenü.get(), &QMenu::aboutToShow, Eintrag,
            [this, &Aktion, Eintrag] { Eintrag->setEnabled(Aktion.isEnabled() && Frei()); });
    Symbolmenü->addAction(Eintrag);
}

void frmMain::SymbolAnlegen() {
    Symbol = new Startleistensymbol(this);
    Symbol->Geklickt = [this] {
        // A form that waits for an answer comes to the front with the window; neither may go without it.
        if (QApplication::activeModalWidget() != nullptr || !isVisible() || isMinimized()) {
            Wiederherstellen();
            FormVorholen();
        } else {
            Verbergen();
        }
    };
    Symbol->Verwaist = [this] {
        if (!isVisible() && !Endet) Wiederherstellen();
    };
    Symbol->Angelegt = [this] {
        if (NachSymbolVerborgen) hide();
        NachSymbolVerborgen = false;
    };
    Symbol->OhneWirt = [this] {
        if (NachSymbolVerborgen) show();
        NachSymbolVerborgen = false;
    };
    SymbolmenüAnlegen();
}

}  // namespace liedwerk
