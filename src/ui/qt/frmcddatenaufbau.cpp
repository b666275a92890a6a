// The controls of frmCDDaten.
#include <QAbstractItemDelegate>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QStyledItemDelegate>
#include <algorithm>
#include <vector>

#include "core/cdfunktionen.h"
#include "index/genres.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmcddaten.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

QLabel* Beschriftung(const QString& Text, QWidget& Feld) {
    auto* const lbl = new QLabel(Text);
    lbl->setBuddy(&Feld);
    Feld.setAccessibleName(QString(Text).remove(u'&').remove(u':'));
    return lbl;
}

// The genres by name; the number stands as the entry's data.
void GenresFüllen(QComboBox& Liste) {
    std::vector<int> Nummern;
    for (int i = 0; i < static_cast<int>(GenreListe.size()); ++i)
        Nummern.push_back(i);
    std::ranges::stable_sort(Nummern, {}, [](int i) { return GenreListe[static_cast<std::size_t>(i)]; });
    Liste.addItem(u"(keines)"_s, static_cast<int>(CDOhneGenre));
    for (const int i : Nummern)
        Liste.addItem(QtText(GenreListe[static_cast<std::size_t>(i)]), i);
}

}  // namespace

frmCDDaten::frmCDDaten(Anwendung& Lauf, Anlaß Warum, CDDBHerkunft Herkunft, QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf), Grund(Warum) {
    setObjectName(u"frmCDDaten"_s);
    setWindowTitle(u"CD-Daten"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("cd"), u"Daten der Audio-CD"_s, u" "_s);
    lblBannerText = findChild<QLabel*>(u"lblBannerText"_s);
    if (Grund == Anlaß::Laufwerk) Spalte->addLayout(LaufwerkszeileAnlegen());
    fraDaten = new QWidget(this);
    auto* const Innen = new QVBoxLayout(fraDaten);
    Innen->setContentsMargins(0, 0, 0, 0);
    Innen->addLayout(FelderAnlegen());
    QWidget* const Titel = TitellisteAnlegen();
    Innen->addWidget(Beschriftung(u"Tite&l:"_s, *Titel));
    Innen->addWidget(Titel, 3);
    txtErweitert = new QPlainTextEdit(fraDaten);
    txtErweitert->setObjectName(u"txtErweitert"_s);
    txtErweitert->setTabChangesFocus(true);
    txtErweitert->setMinimumHeight(fontMetrics().height() * 3);
    Innen->addWidget(Beschriftung(u"Weitere Informatio&nen:"_s, *txtErweitert));
    Innen->addWidget(txtErweitert, 1);
    Spalte->addWidget(fraDaten, 1);
    Spalte->addLayout(FunktionszeileAnlegen());
    lblStatus = TextHinzufügen(*Spalte, u"lblStatus"_s, {});
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abbre&chen"_s, Rejected}});
    cmdOk = Knöpfe[0];
    cmdOk->setDefault(true);
    Zeigen(Herkunft == CDDBHerkunft::Keine ? CDDaten() : Programm.CD.Daten);
    HerkunftZeigen(Herkunft);
    FreigabenSetzen();
    cboLaufwerk != nullptr ? cboLaufwerk->setFocus() : txtAlbum->setFocus();
}

QPushButton* frmCDDaten::KnopfAnlegen(const QString& Name, const QString& Text,
                                      std::function<void()> Handler) {
    auto* const Knopf = new QPushButton(Text, this);
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    connect(Knopf, &QPushButton::clicked, this, std::move(Handler));
    return Knopf;
}

QLayout* frmCDDaten::LaufwerkszeileAnlegen() {
    cboLaufwerk = new QComboBox(this);
    cboLaufwerk->setObjectName(u"cboLaufwerk"_s);
    cboLaufwerk->setEditable(true);
    cboLaufwerk->setInsertPolicy(QComboBox::NoInsert);
    cboLaufwerk->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (const std::string& Einer : Programm.Dienst.CDs->Auflisten())
        cboLaufwerk->addItem(QtText(Einer));
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(Beschriftung(u"Lauf&werk oder Abbild:"_s, *cboLaufwerk));
    Zeile->addWidget(cboLaufwerk, 1);
    Zeile->addWidget(KnopfAnlegen(u"cmdAbbild"_s, u"Abb&ild..."_s, [this] { cmdAbbild_Click(); }));
    Zeile->addWidget(
        KnopfAnlegen(u"cmdEinlesen"_s, u"&Einlesen"_s, [this] { Einlesen(cboLaufwerk->currentText()); }));
    return Zeile;
}

QLayout* frmCDDaten::FelderAnlegen() {
    const auto Zeile = [&](const QString& Name) {
        auto* const Feld = new QLineEdit(fraDaten);
        Feld->setObjectName(Name);
        return Feld;
    };
    txtAlbum = Zeile(u"txtAlbum"_s);
    txtInterpret = Zeile(u"txtInterpret"_s);
    txtJahr = Zeile(u"txtJahr"_s);
    txtJahr->setMinimumWidth(fontMetrics().averageCharWidth() * 10);
    const auto Auswahl = [&](const QString& Name) {
        auto* const Feld = new QComboBox(fraDaten);
        Feld->setObjectName(Name);
        Feld->setMaxVisibleItems(20);
        return Feld;
    };
    cboGenre = Auswahl(u"cboGenre"_s);
    GenresFüllen(*cboGenre);
    cboKategorie = Auswahl(u"cboKategorie"_s);
    for (const std::string_view Name : CDDBKategorien)
        cboKategorie->addItem(QtText(Name));
    auto* const cmdTauschen = KnopfAnlegen(u"cmdTauschen"_s, u"&Tauschen"_s, [this] {
        FunktionAusführen([](CDDaten& Daten) { return CDAlbumInterpretTauschen(Daten), true; });
    });
    cmdTauschen->setToolTip(u"Vertauscht Album und Interpret"_s);

    auto* const Raster = new QGridLayout;
    Raster->setHorizontalSpacing(12);
    Raster->addWidget(Beschriftung(u"&Album:"_s, *txtAlbum), 0, 0);
    Raster->addWidget(txtAlbum, 0, 1, 1, 5);
    Raster->addWidget(Beschriftung(u"Inte&rpret:"_s, *txtInterpret), 1, 0);
    Raster->addWidget(txtInterpret, 1, 1, 1, 5);
    Raster->addWidget(cmdTauschen, 0, 6, 2, 1);
    Raster->addWidget(Beschriftung(u"&Jahr:"_s, *txtJahr), 2, 0);
    Raster->addWidget(txtJahr, 2, 1);
    Raster->addWidget(Beschriftung(u"&Genre:"_s, *cboGenre), 2, 2);
    Raster->addWidget(cboGenre, 2, 3);
    Raster->addWidget(Beschriftung(u"&Kategorie:"_s, *cboKategorie), 2, 4);
    Raster->addWidget(cboKategorie, 2, 5);
    Raster->setColumnStretch(1, 1);
    Raster->setColumnStretch(3, 2);
    Raster->setColumnStretch(5, 1);
    return Raster;
}

QWidget* frmCDDaten::TitellisteAnlegen() {
    lstTitel = new QTableWidget(0, 3, fraDaten);
    lstTitel->setObjectName(u"lstTitel"_s);
    lstTitel->setHorizontalHeaderLabels({u"Nr."_s, u"Titel"_s, u"Dauer"_s});
    lstTitel->horizontalHeader()->setSectionResizeMode(SpalteTitel, QHeaderView::Stretch);
    lstTitel->verticalHeader()->hide();
    lstTitel->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstTitel->setSelectionMode(QAbstractItemView::SingleSelection);
    lstTitel->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                              QAbstractItemView::EditKeyPressed);
    lstTitel->setTabKeyNavigation(false);
    lstTitel->setMinimumSize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 7);
    // Enter takes a title and opens the next one, so that a disc is typed in one go. Later, because the view
    // has not taken the text yet.
    connect(
        lstTitel->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
        [this](QWidget*, QAbstractItemDelegate::EndEditHint Wie) {
            const int Nächste = lstTitel->currentRow() + 1;
            if (Wie != QAbstractItemDelegate::SubmitModelCache || Nächste >= lstTitel->rowCount()) return;
            lstTitel->setCurrentCell(Nächste, SpalteTitel);
            lstTitel->editItem(lstTitel->item(Nächste, SpalteTitel));
        },
        Qt::QueuedConnection);
    return lstTitel;
}

QLayout* frmCDDaten::FunktionszeileAnlegen() {
    auto* const Zeile = new QHBoxLayout;
    auto* const mnuFunktionen = new QMenu(this);
    for (const CDFunktion& Eine : CDFunktionen())
        connect(mnuFunktionen->addAction(QtText(Eine.Name)), &QAction::triggered, this,
                [this, &Eine] { FunktionAusführen(Eine.Ausführen); });
    cmdFunktionen = KnopfAnlegen(u"cmdFunktionen"_s, u"&Funktionen"_s, [] {});
    cmdFunktionen->setMenu(mnuFunktionen);
    cmdAbfragen = KnopfAnlegen(u"cmdAbfragen"_s, u"A&bfragen"_s, [this] { cmdAbfragen_Click(); });
    cmdAbfragen->setToolTip(u"Fragt den CD-Datenbank-Server nach den Daten dieser CD"_s);
    cmdSenden = KnopfAnlegen(u"cmdSenden"_s, u"&Senden"_s, [] {});
    cmdSenden->setToolTip(u"Sendet die Daten dieser CD an den CD-Datenbank-Server"_s);
    auto* const mnuSenden = new QMenu(this);
    const auto Sendeart = [&](const QString& Name, const QString& Text, bool Probe) {
        QAction* const Aktion = mnuSenden->addAction(Text);
        Aktion->setObjectName(Name);
        connect(Aktion, &QAction::triggered, this, [this, Probe] { cmdSenden_Click(Probe); });
    };
    Sendeart(u"mnuSendenProbe"_s, u"Zur &Probe senden"_s, true);
    Sendeart(u"mnuSendenEcht"_s, u"&Veröffentlichen..."_s, false);
    cmdSenden->setMenu(mnuSenden);
    for (QPushButton* const Knopf : {cmdFunktionen, cmdAbfragen, cmdSenden})
        Zeile->addWidget(Knopf);
    Zeile->addStretch(1);
    cmdLog = KnopfAnlegen(u"cmdLog"_s, u"&Protokoll"_s, [this] { cmdLog_Click(); });
    Zeile->addWidget(cmdLog);
    return Zeile;
}

}  // namespace liedwerk
