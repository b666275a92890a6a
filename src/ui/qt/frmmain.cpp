// Building the main window: actions, menus, controls and how they hang together.
#include "ui/qt/frmmain.h"

#include <QDeadlineTimer>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/suchlauf.h"
#include "suche/vervollstaendigung.h"
#include "ui/qt/cdaktionen.h"
#include "ui/qt/dateiaktionen.h"
#include "ui/qt/exportaktionen.h"
#include "ui/qt/extrasaktionen.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/hilfeaktionen.h"
#include "ui/qt/indexaktionen.h"
#include "ui/qt/optionenaktionen.h"
#include "ui/qt/qttext.h"
#include "ui/qt/schalteraktionen.h"
#include "ui/qt/suchablageaktionen.h"
#include "ui/qt/symbole.h"
#include "ui/qt/tagaktionen.h"
#include "ui/qt/tagfunktionenaktionen.h"
#include "ui/qt/wachtaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Entwurfsbreite = 1180;
constexpr int Entwurfshöhe = 720;

}  // namespace

frmMain::frmMain() : Fenstertitel(*this, QtText(ProgrammnameMitVersion())) {
    setObjectName(u"frmMain"_s);
    setAcceptDrops(true);
    resize(Entwurfsbreite, Entwurfshöhe);
}

frmMain::~frmMain() {
    // The list goes after what it showed; it must not tell of that any more.
    if (lstSongs == nullptr) return;
    lstSongs->AuswahlGeändert = nullptr;
    lstSongs->SpaltenGeändert = nullptr;
}

void frmMain::Anbinden(Anwendung& Lauf) {
    Programm = &Lauf;
    AktionenAnlegen();
    MenüsAnlegen();
    OberflächeAnlegen();
    TeileAnlegen();

    SymbolAnlegen();
    tmrStatus.setSingleShot(true);
    connect(&tmrStatus, &QTimer::timeout, lblStatus, &QLabel::clear);
    tmrSpalten.setSingleShot(true);
    tmrSpalten.setInterval(400);
    connect(&tmrSpalten, &QTimer::timeout, this, [this] {
        if (Ruhig()) SpaltenInIndex(*Programm);
    });
    tmrScrollUpdate.setSingleShot(true);
    connect(&tmrScrollUpdate, &QTimer::timeout, this, [this] { tmrScrollUpdate_Timer(); });
    tmrScrollUpdate.start(0);
    tmrSitzungsende.setInterval(50);
    connect(&tmrSitzungsende, &QTimer::timeout, this, [this] { SitzungBeenden(); });
    AktionenNachführen();
}

QAction* frmMain::AktionAnlegen(const QString& Name, const QString& Text, const char* Bild,
                                const QList<QKeySequence>& Tasten, void (frmMain::*Handler)()) {
    auto* const Aktion = new QAction(Text, this);
    Aktion->setObjectName(Name);
    if (Bild != nullptr) Aktion->setIcon(Symbolbild(Bild));
    Aktion->setShortcuts(Tasten);
    connect(Aktion, &QAction::triggered, this, Handler);
    return Aktion;
}

QAction* frmMain::SchalterAnlegen(const QString& Name, const QString& Text,
                                  std::int16_t Indexoptionen::*Option) {
    auto* const Aktion = new QAction(Text, this);
    Aktion->setObjectName(Name);
    Aktion->setCheckable(true);
    connect(Aktion, &QAction::triggered, this, [this, Option](bool An) {
        Programm->Index.Optionen.*Option = An ? 1 : 0;
        Programm->Index.IndexGeändert = true;
        SpaltenÜbernehmen();
        SpaltenZeigen();
    });
    Schalter.push_back({Aktion, Option});
    return Aktion;
}

void frmMain::AktionenAnlegen() {
    mnuHinzufügen = AktionAnlegen(u"mnuHinzufügen"_s, u"&Hinzufügen..."_s, "hinzufuegen", {QKeySequence::New},
                                  &frmMain::mnuHinzufügen_Click);
    mnuOrdnerHinzufügen =
        AktionAnlegen(u"mnuOrdnerHinzufügen"_s, u"&Ordner hinzufügen..."_s, "ordner-hinzufuegen",
                      {QKeySequence(u"Ctrl+Shift+O"_s)}, &frmMain::mnuOrdnerHinzufügen_Click);
    mnuDateienHinzufügen =
        AktionAnlegen(u"mnuDateienHinzufügen"_s, u"&Dateien hinzufügen..."_s, "dateien-hinzufuegen",
                      {QKeySequence(u"Ctrl+Shift+D"_s)}, &frmMain::mnuDateienHinzufügen_Click);
    mnuSpeichern = AktionAnlegen(u"mnuSpeichern"_s, u"&Speichern"_s, "speichern", {QKeySequence::Save},
                                 &frmMain::mnuSpeichern_Click);
    mnuÖffnen = AktionAnlegen(u"mnuÖffnen"_s, u"Ö&ffnen..."_s, "oeffnen", {QKeySequence::Open},
                              &frmMain::mnuÖffnen_Click);
    mnuBeenden = AktionAnlegen(u"mnuBeenden"_s, u"&Beenden"_s, "beenden", {QKeySequence(u"Ctrl+Q"_s)},
                               &frmMain::cmdBeenden_Click);
    mnuAllesAuswählen = AktionAnlegen(u"mnuAllesAuswählen"_s, u"&Alles auswählen"_s, "auswaehlen",
                                      {QKeySequence::SelectAll}, &frmMain::mnuAllesAuswählen_Click);
    mnuPfadKopieren = AktionAnlegen(u"mnuPfadKopieren"_s, u"&Pfad kopieren"_s, "kopieren",
                                    {QKeySequence::Copy}, &frmMain::mnuPfadKopieren_Click);
    mnuOrdnerÖffnen = AktionAnlegen(u"mnuOrdnerÖffnen"_s, u"&Ordner öffnen"_s, "ordner",
                                    {QKeySequence(u"Ctrl+Return"_s)}, &frmMain::mnuOrdnerÖffnen_Click);
    mnuSuchen = AktionAnlegen(u"mnuSuchen"_s, u"&Suchen"_s, "suchen",
                              {QKeySequence::Find, QKeySequence(u"F3"_s)}, &frmMain::mnuSuchen_Click);
    mnuSucheLeeren = AktionAnlegen(u"mnuSucheLeeren"_s, u"Suche &leeren"_s, "leeren",
                                   {QKeySequence(u"Ctrl+Shift+F"_s)}, &frmMain::cmdSucheLöschen_Click);
    mnuSucheHinzufügen =
        AktionAnlegen(u"mnuSucheHinzufügen"_s, u"Such-Abfrage &hinzufügen..."_s, "suche-hinzufuegen",
                      {QKeySequence(u"Ctrl+Shift+H"_s)}, &frmMain::cmdSucheHinzufügen_Click);
    mnuSucheÄndern = AktionAnlegen(u"mnuSucheÄndern"_s, u"Such-Abfrage ä&ndern..."_s, "suche-aendern",
                                   {QKeySequence(u"Ctrl+Shift+E"_s)}, &frmMain::cmdSucheÄndern_Click);
    mnuSucheMehr = AktionAnlegen(u"mnuSucheMehr"_s, u"&Mehrere Such-Abfragen..."_s, "suche-mehr",
                                 {QKeySequence(u"Ctrl+Shift+M"_s)}, &frmMain::cmdSucheMehr_Click);
    // The heading of the pane says what they are for; the whole texts would not fit there.
    mnuSucheHinzufügen->setIconText(u"Abfrage hinzufügen"_s);
    mnuSucheÄndern->setIconText(u"Abfrage ändern"_s);
    mnuSucheMehr->setIconText(u"Mehrere Abfragen"_s);
    mnuSchnellsuche = AktionAnlegen(u"mnuSchnellsuche"_s, u"S&chnellsuche"_s, nullptr,
                                    {QKeySequence(u"F8"_s)}, &frmMain::mnuSchnellsuche_Click);
    mnuSchnellsuche->setCheckable(true);
    mnuSortieren = AktionAnlegen(u"mnuSortieren"_s, u"So&rtieren..."_s, "sortieren",
                                 {QKeySequence(u"Ctrl+Shift+R"_s)}, &frmMain::mnuSortieren_Click);
    mnuBeschreibungsleiste = AktionAnlegen(u"mnuBeschreibungsleiste"_s, u"&Beschreibungsleiste"_s, nullptr,
                                           {QKeySequence(u"F9"_s)}, &frmMain::mnuBeschreibungsleiste_Click);
    mnuBeschreibungsleiste->setCheckable(true);
}

void frmMain::MenüsAnlegen() {
    const auto Menü = [this](const QString& Name, const QString& Titel) {
        QMenu* const Neu = menuBar()->addMenu(Titel);
        Neu->setObjectName(Name);
        return Neu;
    };
    QMenu* const Datei = Menü(u"mnuDatei"_s, u"&Datei"_s);
    Datei->addActions({mnuHinzufügen, mnuOrdnerHinzufügen, mnuDateienHinzufügen});
    Datei->addSeparator();
    Datei->addActions({mnuSpeichern, mnuÖffnen});
    mnuZuletztGeladen = Datei->addMenu(u"&Zuletzt geladene"_s);
    mnuZuletztGeladen->setObjectName(u"mnuZuletztGeladen"_s);

    QMenu* const Bearbeiten = Menü(u"mnuBearbeiten"_s, u"&Bearbeiten"_s);
    Bearbeiten->addActions({mnuSuchen, mnuSucheHinzufügen, mnuSucheÄndern, mnuSucheMehr, mnuSucheLeeren});
    Bearbeiten->addSeparator();
    Bearbeiten->addActions({mnuAllesAuswählen, mnuPfadKopieren, mnuOrdnerÖffnen});
    Bearbeiten->addSeparator();
    Bearbeiten->addAction(mnuSortieren);

    QMenu* const Ansicht = Menü(u"mnuAnsicht"_s, u"&Ansicht"_s);
    Ansicht->addAction(
        SchalterAnlegen(u"mnuSpaltentitel"_s, u"Spalten&titel"_s, &Indexoptionen::SpaltenLeiste));
    Ansicht->addAction(SchalterAnlegen(u"mnuGitternetz"_s, u"&Gitternetz"_s, &Indexoptionen::SpaltenGitter));
    Ansicht->addAction(SchalterAnlegen(u"mnuSymbole"_s, u"S&ymbole"_s, &Indexoptionen::SpaltenSymbole));
    Ansicht->addSeparator();
    Ansicht->addActions({mnuBeschreibungsleiste, mnuSchnellsuche});
    QMenu* const Spalten = Ansicht->addMenu(Symbolbild("spalten"), u"&Spalten"_s);
    Spalten->setObjectName(u"mnuSpalten"_s);
    connect(Spalten, &QMenu::aboutToShow, this, [this, Spalten] { SpaltenmenüFüllen(*Spalten); });

    QMenu* const Wiedergabe = Menü(u"mnuWiedergabe"_s, u"&Wiedergabe"_s);
    QMenu* const Tags = Menü(u"mnuTags"_s, u"&TAGs"_s);
    QMenu* const Extras = Menü(u"mnuExtras"_s, u"&Extras"_s);
    QMenu* const Hilfe = Menü(u"mnuHilfe"_s, u"&Hilfe"_s);
    Platz.reset(new Fensterplatz{
        *Programm, *this, *Datei, *Bearbeiten, *Ansicht, *Wiedergabe, *Tags, *Extras, *Hilfe,
        [this] { return Bereit(); },
        [this](const QList<QAction*>& Aktionen) { lstSongs->insertActions(mnuPfadKopieren, Aktionen); },
        [this](const QString& Titel, const QList<QAction*>& Aktionen) {
            fraFunktionen->GruppeHinzufügen(Titel, Aktionen);
        },
        [this](std::function<void(bool)> Nachführung) { Nachführungen.push_back(std::move(Nachführung)); },
        [this](std::function<bool(Satznummer)> Handler) {
            Doppelklickhandler.push_back(std::move(Handler));
        }});
    // Shortcuts hold while a menu is not in the bar, too.
    addActions({mnuHinzufügen, mnuOrdnerHinzufügen, mnuDateienHinzufügen, mnuSpeichern, mnuÖffnen, mnuBeenden,
                mnuAllesAuswählen, mnuPfadKopieren, mnuOrdnerÖffnen, mnuSuchen, mnuSucheLeeren, mnuSortieren,
                mnuSucheHinzufügen, mnuSucheÄndern, mnuSucheMehr, mnuSchnellsuche, mnuBeschreibungsleiste});
}

void frmMain::TeileAnlegen() {
    // The subjects put their actions into the menus here, in the order of the menus' entries.
    // First, since its double click on a folder goes ahead of playing.
    IndexaktionenAnlegen(*Platz);
    Platz->ÜberListe = [this](QWidget* Leiste) {
        static_cast<QVBoxLayout*>(Seiten->parentWidget()->layout())->insertWidget(0, Leiste);
        setTabOrder(Leiste, lstSongs);
    };
    if (Programm->Dienst.Wacht != nullptr) WachtaktionenAnlegen(*Platz);
    if (Programm->Dienst.Spieler != nullptr && Programm->Dienst.Programme != nullptr) {
        Spielen = std::make_unique<Wiedergabeaktionen>(*Platz, *fraPlayer, [this] {
            // A very coarse timer would wait for the next full second.
            tmrScrollUpdate.setTimerType(Qt::CoarseTimer);
            tmrScrollUpdate.start(0);
        });
        Platz->Abspielen = [this](const std::vector<Satznummer>& Dateien) {
            Spielen->Abspielen(Dateien, false, false, false, {});
        };
    }
    DateiaktionenAnlegen(*Platz);
    ExportaktionenAnlegen(*Platz);
    TagaktionenAnlegen(*Platz);
    TagfunktionenaktionenAnlegen(*Platz);
    if (Programm->Dienst.CDs != nullptr) CDAktionenAnlegen(*Platz);
    TerminaktionenAnlegen(*Platz);
    ExtrasaktionenAnlegen(*Platz);
    OptionenaktionenAnlegen(*Platz);
    HilfeaktionenAnlegen(*Platz);
    SchalteraktionenAnlegen(*Platz, [this] { MengeSuchen(); });
    SuchablageaktionenAnlegen(
        *Platz, [this] { MengeNachführen(); }, [this] { MengeSuchen(); });
    Platz->Datei.addSeparator();
    Platz->Datei.addAction(mnuBeenden);
    for (QMenu* const Menü : {&Platz->Wiedergabe, &Platz->Tags, &Platz->Extras})
        Menü->menuAction()->setVisible(!Menü->isEmpty());
}

void frmMain::SpaltenmenüFüllen(QMenu& Menü) {
    Menü.clear();
    QMenu* const Tag2 = new QMenu(u"&ID3v2-Felder"_s, &Menü);
    for (int Nummer = 1; Nummer <= SpaltenAnzahl; ++Nummer) {
        const QString Name = QtText(SpaltenNamen[static_cast<std::size_t>(Nummer - 1)].Name);
        QMenu& Ziel = Name.contains(u"ID3v2"_s) ? *Tag2 : Menü;
        QAction* const Aktion = Ziel.addAction(Name);
        Aktion->setCheckable(true);
        const auto& Gezeigt = Programm->Ansicht.Spalten;
        Aktion->setChecked(std::any_of(Gezeigt.begin(), Gezeigt.end(),
                                       [Nummer](const Listenspalte& Eine) { return Eine.Nummer == Nummer; }));
        connect(Aktion, &QAction::triggered, this, [this, Nummer] { SpalteUmschalten(Nummer); });
    }
    Menü.addMenu(Tag2);
}

QWidget* frmMain::ListenbereichAnlegen() {
    auto* const Bereich = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Bereich);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(8);

    fraSuchVorschläge = new Vorschlagsrahmen(Bereich);
    fraSuchVorschläge->Gewählt = [this](const QString& Wort) {
        fraSuchVorschläge->hide();
        Suche->TextSuchen(Wort);
        Suche->Fokussieren();
    };
    fraSuchVorschläge->Erbeten = [this] { cmdSuchVorschlägeAnzeigen_Click(); };

    Modell = std::make_unique<Listenmodell>(Programm->Ansicht, Programm->Index);
    Modell->MediumFehlt = [this](Satznummer Nummer) {
        return Programm->Werte.FehlendeMedienZeigen == 1 &&
               MediumFehlt(Medienblick, MediumumgebungVon(*Programm), Programm->Index, Nummer,
                           QDeadlineTimer::current().deadline() / 1000);
    };
    lstSongs = new Listenansicht(*Modell, Bereich);
    lstSongs->AuswahlGeändert = [this] { lstSongs_AuswahlGeändert(); };
    lstSongs->SpaltenGeändert = [this] { lstSongs_SpaltenGeändert(); };
    lstSongs->KopfGeklickt = [this](int Abschnitt) {
        // Behind the click: the head is done with it before its columns may change.
        QMetaObject::invokeMethod(
            this, [this, Abschnitt] { lstSongs_ColumnClick(Abschnitt); }, Qt::QueuedConnection);
    };
    lstSongs->Geöffnet = [this](Satznummer Nummer) {
        // Behind the click: what it opens may replace the rows.
        QMetaObject::invokeMethod(
            this, [this, Nummer] { lstSongs_DblClick(Nummer); }, Qt::QueuedConnection);
    };
    lstSongs->Abgelegt = [this](std::vector<std::string> Pfade) { PfadeAblegen(std::move(Pfade)); };
    lstSongs->Ziehdaten = [this] { return AuswahlDaten(true); };
    lstSongs->SpaltenmenüErbeten = [this](const QPoint& Ort) {
        QMenu Menü(this);
        SpaltenmenüFüllen(Menü);
        Menü.exec(Ort);
    };
    lstSongs->setContextMenuPolicy(Qt::ActionsContextMenu);
    lstSongs->addActions({mnuPfadKopieren, mnuOrdnerÖffnen, mnuAllesAuswählen});

    fraLeer = new QWidget(Bereich);
    fraLeer->setObjectName(u"fraLeer"_s);
    auto* const Mitte = new QVBoxLayout(fraLeer);
    auto* const lblBild = new Symbolfeld(Symbolbild("sammlung"), 72, QIcon::Disabled, fraLeer);
    auto* const lblLeerTitel = new QLabel(u"Hier erscheint Ihre Sammlung"_s, fraLeer);
    QFont Schrift = lblLeerTitel->font();
    Schrift.setPointSizeF(Schrift.pointSizeF() * 1.5);
    lblLeerTitel->setFont(Schrift);
    auto* const lblLeerText =
        new QLabel(u"Fügen Sie einen Ordner mit Mediendateien hinzu oder ziehen Sie ihn hierher."_s, fraLeer);
    auto* const cmdLeerOrdnerHinzufügen =
        new QPushButton(Symbolbild("ordner-hinzufuegen"), u"  Ordner hinzufügen..."_s, fraLeer);
    cmdLeerOrdnerHinzufügen->setObjectName(u"cmdLeerOrdnerHinzufügen"_s);
    cmdLeerOrdnerHinzufügen->setAccessibleName(u"Ordner hinzufügen"_s);
    cmdLeerOrdnerHinzufügen->setMinimumSize(fontMetrics().averageCharWidth() * 32,
                                            fontMetrics().height() + 18);
    cmdLeerOrdnerHinzufügen->setAutoDefault(true);
    connect(cmdLeerOrdnerHinzufügen, &QPushButton::clicked, mnuOrdnerHinzufügen, &QAction::trigger);
    for (QLabel* const Zeile : {lblLeerTitel, lblLeerText}) {
        // Large letters take more lines instead of a wider window.
        Zeile->setAlignment(Qt::AlignHCenter);
        Zeile->setWordWrap(true);
        Zeile->setMinimumWidth(Zeichenbreite(*this, 28));
    }
    Mitte->addStretch(2);
    for (QWidget* const Teil : std::initializer_list<QWidget*>{lblBild, lblLeerTitel, lblLeerText}) {
        Mitte->addWidget(Teil, 0, Qt::AlignHCenter);
    }
    Mitte->addSpacing(12);
    Mitte->addWidget(cmdLeerOrdnerHinzufügen, 0, Qt::AlignHCenter);
    Mitte->addStretch(3);

    Seiten = new QStackedWidget(Bereich);
    Seiten->addWidget(lstSongs);
    Seiten->addWidget(fraLeer);
    Spalte->addWidget(fraSuchVorschläge);
    Spalte->addWidget(Seiten, 1);
    return Bereich;
}

void frmMain::FußAnlegen() {
    auto* const Fuß = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Fuß);
    Spalte->setContentsMargins(7, 8, 4, 2);
    Spalte->setSpacing(3);
    lblIndex = new QLabel(Fuß);
    lblIndex->setObjectName(u"lblIndex"_s);
    lblIndex->setAccessibleName(u"Indexdatei"_s);
    lblIndex->setTextFormat(Qt::PlainText);
    QFont Schrift = lblIndex->font();
    Schrift.setBold(true);
    lblIndex->setFont(Schrift);
    lblAnzahl = new QLabel(Fuß);
    lblAnzahl->setObjectName(u"lblAnzahl"_s);
    lblAnzahl->setTextFormat(Qt::PlainText);
    lblAnzahl->setWordWrap(true);
    Spalte->addWidget(lblIndex);
    Spalte->addWidget(lblAnzahl);
    fraFunktionen->FußHinzufügen(Fuß);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(u"lblStatus"_s);
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setContentsMargins(12, 0, 0, 0);
    statusBar()->addWidget(lblStatus, 1);
}

void frmMain::OberflächeAnlegen() {
    auto* const Mitte = new QWidget(this);
    auto* const Zeilen = new QVBoxLayout(Mitte);
    Zeilen->setContentsMargins(12, 10, 12, 4);
    Zeilen->setSpacing(10);

    Suche = new Suchleiste(Programm->Werte, Programm->Abfragen, Mitte);
    Suche->setObjectName(u"fraSuche"_s);
    Suche->Feldwerte = [this](std::string_view Feld) {
        const Laufsperre Sperre(*Programm);
        return AutoCompleteFüllen(Programm->Index, Feld, Programm->Werte.Auswahlliste == 1,
                                  Programm->Dienst.Person);
    };
    Suche->Aktualisieren = [this] { SucheAktualisieren(*Programm); };
    Suche->Löschen = [this] { cmdSucheLöschen_Click(); };
    Suche->ZurListe = [this] {
        lstSongs->setFocus(Qt::OtherFocusReason);
        // The focus alone makes a row current, but selects none.
        if (!lstSongs->selectionModel()->hasSelection()) {
            lstSongs->setCurrentIndex(Modell->index(0, lstSongs->isColumnHidden(0) ? 1 : 0));
        }
    };
    Suche->TextGeändert = [this] { AktionenNachführen(); };
    Suche->DarfSuchen = [this] { return Bereit(); };

    fraBuchstaben = new Buchstabenleiste(Mitte);
    fraBuchstaben->setObjectName(u"fraBuchstaben"_s);
    fraBuchstaben->Geklickt = [this](const QString& Buchstabe) { cmdSucheBuchstabe_Click(Buchstabe); };

    QWidget* const Listenbereich = ListenbereichAnlegen();
    fraFunktionen = new Funktionsleiste(Mitte);
    fraFunktionen->GruppeHinzufügen(u"Index"_s, {mnuHinzufügen, mnuSpeichern, mnuÖffnen});
    fraFunktionen->GruppeHinzufügen(u"Suche"_s,
                                    {mnuSucheHinzufügen, mnuSucheÄndern, mnuSucheMehr, mnuSucheLeeren});
    fraFunktionen->GruppeHinzufügen(u"Auswahl"_s, {mnuPfadKopieren, mnuOrdnerÖffnen});
    // Wide enough for the counts of a large collection in one line each.
    fraFunktionen->setMinimumWidth(std::max(fontMetrics().averageCharWidth() * 28,
                                            fontMetrics().horizontalAdvance(u"1000000 Datei(en) gefunden"_s) +
                                                fontMetrics().averageCharWidth() * 4));
    FußAnlegen();
    fraBeschreibung = new Beschreibung(Mitte);
    fraBeschreibung->setMinimumWidth(fontMetrics().averageCharWidth() * 26);

    auto* const Teiler = new QSplitter(Qt::Horizontal, Mitte);
    Teiler->setObjectName(u"Teiler"_s);
    Teiler->setChildrenCollapsible(false);
    Teiler->setHandleWidth(10);
    Teiler->addWidget(fraFunktionen);
    Teiler->addWidget(Listenbereich);
    Teiler->addWidget(fraBeschreibung);
    Teiler->setStretchFactor(1, 1);
    const int Zeichen = fontMetrics().averageCharWidth();
    Teiler->setSizes({Zeichen * 28, Entwurfsbreite - Zeichen * 72, Zeichen * 44});

    Zeilen->addWidget(Suche);
    Zeilen->addWidget(fraBuchstaben);
    Zeilen->addWidget(Teiler, 1);
    fraPlayer = new Spielerleiste(Mitte);
    Zeilen->addWidget(fraPlayer);
    Ganzes = new QStackedWidget(this);
    Ganzes->addWidget(Mitte);
    Ganzes->addWidget(SperrseiteAnlegen());
    setCentralWidget(Ganzes);
    setTabOrder(Suche, fraBuchstaben);
    setTabOrder(fraBuchstaben, fraSuchVorschläge);
    setTabOrder(fraSuchVorschläge, lstSongs);
    setTabOrder(lstSongs, fraBeschreibung);
    setTabOrder(fraBeschreibung, fraFunktionen);
    setTabOrder(fraFunktionen, fraPlayer);
}

}  // namespace liedwerk
