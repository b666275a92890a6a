// Building the TAG editor: head with the file, pages, foot.
#include <QCompleter>
#include <QFormLayout>
#include <QLineEdit>
#include <QShortcut>
#include <QTextDocument>
#include <QToolButton>

#include "ui/qt/formkopf.h"
#include "ui/qt/frmtag.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Bewertungsgrenze = 255;
constexpr int ZeilenJeSpalte = 6;  // of the further fields of ID3v2

// The text as it was put in; Qt's own plain text would turn a protected blank into a plain one.
QString AbsatzLesen(const QPlainTextEdit& Eingabe) {
    QString Text = Eingabe.document()->toRawText();
    Text.replace(QChar::ParagraphSeparator, u'\n');
    return Text;
}

// Qt presses a button that is called by its key for a tenth of a second before it clicks: keys that follow
// quickly would still reach the old page.
QShortcut* TasteSofort(QAbstractButton& Knopf) {
    Knopf.setShortcut({});
    auto* const Taste = new QShortcut(QKeySequence::mnemonic(Knopf.text()), &Knopf);
    QObject::connect(Taste, &QShortcut::activated, &Knopf, &QAbstractButton::click);
    return Taste;
}

QGridLayout* RasterAnlegen(QWidget& Blatt) {
    auto* const Raster = new QGridLayout(&Blatt);
    Raster->setContentsMargins(0, 0, 0, 0);
    Raster->setHorizontalSpacing(12);
    Raster->setVerticalSpacing(7);
    return Raster;
}

}  // namespace

QPushButton* frmTag::KnopfAnlegen(const QString& Name, const QString& Text, std::function<void()> Handler) {
    auto* const Knopf = new QPushButton(Text, this);
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    TasteSofort(*Knopf);
    connect(Knopf, &QPushButton::clicked, this, std::move(Handler));
    return Knopf;
}

QLabel* frmTag::TagtextAnlegen(Tagblock Block) {
    static const std::array<QString, 3> Namen = {u"lblId3v1"_s, u"lblId3v2"_s, u"lblLyrics"_s};
    const auto Platz = static_cast<std::size_t>(Block) - 1;
    auto* const Zeile = new QLabel(this);
    Zeile->setObjectName(Namen[Platz]);
    Zeile->setTextFormat(Qt::PlainText);
    Zeile->setWordWrap(true);
    Zeile->setForegroundRole(QPalette::PlaceholderText);
    lblTag[Platz] = Zeile;
    return Zeile;
}

void frmTag::KopfAnlegen(QVBoxLayout& Spalte) {
    lblSymbol = new QLabel(this);
    lblDatei = new QLabel(this);
    lblDatei->setObjectName(u"lblDatei"_s);
    lblDatei->setTextFormat(Qt::PlainText);
    QFont Schrift = lblDatei->font();
    Schrift.setBold(true);
    Schrift.setPointSizeF(Schrift.pointSizeF() * 1.15);
    lblDatei->setFont(Schrift);
    lblOrdner = new QLabel(this);
    lblOrdner->setObjectName(u"lblOrdner"_s);
    lblOrdner->setTextFormat(Qt::PlainText);
    // Long names are cut in the middle; they must not widen the form.
    for (QLabel* const Zeile : {lblDatei, lblOrdner})
        Zeile->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const Namen = new QVBoxLayout;
    Namen->setSpacing(1);
    Namen->addWidget(lblDatei);
    Namen->addWidget(lblOrdner);

    cmdVorheriger = KnopfAnlegen(u"cmdVorheriger"_s, u"< &Vorherige"_s, [this] { cmdWeiter_Click(-1); });
    cmdVorheriger->setToolTip(u"Zur vorherigen Datei (Strg+Bild auf)"_s);
    cmdNächster = KnopfAnlegen(u"cmdNächster"_s, u"&Nächste >"_s, [this] { cmdWeiter_Click(1); });
    cmdNächster->setToolTip(u"Zur nächsten Datei (Strg+Bild ab)"_s);
    connect(new QShortcut(QKeySequence(u"Ctrl+PgUp"_s), this), &QShortcut::activated, cmdVorheriger,
            &QPushButton::click);
    connect(new QShortcut(QKeySequence(u"Ctrl+PgDown"_s), this), &QShortcut::activated, cmdNächster,
            &QPushButton::click);
    lblPlatz = new QLabel(this);
    lblPlatz->setObjectName(u"lblPlatz"_s);
    lblPlatz->setAlignment(Qt::AlignCenter);

    auto* const Kopf = new QHBoxLayout;
    Kopf->setSpacing(10);
    Kopf->addWidget(lblSymbol);
    Kopf->addLayout(Namen, 1);
    Kopf->addWidget(cmdVorheriger);
    Kopf->addWidget(lblPlatz);
    Kopf->addWidget(cmdNächster);
    Spalte.addLayout(Kopf);
}

void frmTag::SeitenwahlAnlegen(QVBoxLayout& Spalte) {
    struct Wahl {
        Seite Nummer;
        QString Text;
        const char* Bild;
    };
    const std::array<Wahl, 4> Wahlen = {{{SeiteInfos, u"Datei-&Infos"_s, "info"},
                                         {SeiteId3v1, u"ID3v&1-TAG"_s, "tag"},
                                         {SeiteId3v2, u"ID3v&2-TAG"_s, "tag"},
                                         {SeiteLyrics, u"&Lyricsv2-TAG"_s, "liedtext"}}};
    optOptionen = new QButtonGroup(this);
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(4);
    for (const Wahl& Eine : Wahlen) {
        auto* const Knopf = new QToolButton(this);
        Knopf->setObjectName(u"optOptionen(%1)"_s.arg(Eine.Nummer));
        Knopf->setText(Eine.Text);
        Knopf->setAccessibleName(QString(Eine.Text).remove(u'&'));
        Knopf->setIcon(Symbolbild(Eine.Bild));
        Knopf->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        Knopf->setCheckable(true);
        Knopf->setAutoRaise(true);
        Knopf->setFocusPolicy(Qt::StrongFocus);
        Knopf->setMinimumHeight(Knopf->fontMetrics().height() + 12);
        // Who comes by the key wants to type; with the arrows one goes on through the pages.
        connect(TasteSofort(*Knopf), &QShortcut::activated, this,
                [this] { ErstesFeldFokussieren(*Seiten->currentWidget()); });
        optOptionen->addButton(Knopf, Eine.Nummer);
        Reihe->addWidget(Knopf);
    }
    connect(optOptionen, &QButtonGroup::idToggled, this, [this](int Nummer, bool An) {
        if (An) SeiteZeigen(Nummer);
    });
    Reihe->addStretch(1);
    Spalte.addLayout(Reihe);
    auto* const Linie = new QFrame(this);
    Linie->setFrameShape(QFrame::HLine);
    Linie->setFrameShadow(QFrame::Sunken);
    Spalte.addWidget(Linie);
}

void frmTag::SeitenAnlegen(QVBoxLayout& Spalte) {
    Seiten = new QStackedWidget(this);
    Seiten->addWidget(InfoseiteAnlegen());
    Seiten->addWidget(Id3v1SeiteAnlegen());
    Seiten->addWidget(Id3v2SeiteAnlegen());
    Seiten->addWidget(LyricsseiteAnlegen());
    Spalte.addWidget(Seiten, 1);
}

QWidget* frmTag::InfoseiteAnlegen() {
    txtDateiInfo = new QTextBrowser(this);
    txtDateiInfo->setObjectName(u"txtDateiInfo"_s);
    txtDateiInfo->setAccessibleName(u"Informationen über die Datei"_s);
    txtDateiInfo->setOpenLinks(false);
    txtDateiInfo->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    txtDateiInfo->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtDateiInfo->setTabChangesFocus(true);
    txtDateiInfo->setFrameShape(QFrame::NoFrame);
    txtDateiInfo->viewport()->setAutoFillBackground(false);
    txtDateiInfo->document()->setDocumentMargin(0);
    return txtDateiInfo;
}

QLabel* frmTag::BeschriftungAnlegen(const QString& Text, QWidget& Feld) {
    auto* const Zeile = new QLabel(Text, this);
    Zeile->setBuddy(&Feld);
    Feld.setAccessibleName(QString(Text).remove(u'&').remove(u':'));
    return Zeile;
}

QWidget* frmTag::FeldAnlegen(const Tagfeld& Feld) {
    QWidget* Eingabe = nullptr;
    if (Feld.Art == Tagfeldart::Absatz) {
        auto* const Absatz = new QPlainTextEdit(this);
        Absatz->setTabChangesFocus(true);
        Absatz->setMinimumHeight(Absatz->fontMetrics().lineSpacing() * 2 + 12);
        Felder.push_back({&Feld, [Absatz] { return AbsatzLesen(*Absatz); },
                          [Absatz](const QString& Text) { Absatz->setPlainText(Text); }});
        Eingabe = Absatz;
    } else if (Feld.Art == Tagfeldart::Genre) {
        auto* const Kombi = new QComboBox(this);
        Kombi->setEditable(true);
        Kombi->setInsertPolicy(QComboBox::NoInsert);
        Kombi->setMaxVisibleItems(20);
        // What was typed stays as it is: the list offers, it does not complete.
        Kombi->completer()->setCompletionMode(QCompleter::PopupCompletion);
        cbov2Musikrichtung = Kombi;
        Felder.push_back({&Feld, [Kombi] { return Kombi->currentText(); },
                          [Kombi](const QString& Text) { Kombi->setEditText(Text); }});
        Eingabe = Kombi;
    } else {
        auto* const Zeile = new QLineEdit(this);
        const int Grenze = Feld.Höchstens;
        Felder.push_back({&Feld, [Zeile] { return Zeile->text(); },
                          [Zeile, Grenze](const QString& Text) {
                              // What other formats show here may be longer than the tag takes.
                              if (Grenze > 0)
                                  Zeile->setMaxLength(std::max(Grenze, static_cast<int>(Text.size())));
                              Zeile->setText(Text);
                              Zeile->setCursorPosition(0);
                          }});
        Eingabe = Zeile;
    }
    Eingabe->setObjectName(QtText(Feld.Steuerelement));
    return Eingabe;
}

void frmTag::FelderUntereinander(QGridLayout& Raster, Tagblatt Blatt) {
    int Zeile = 0;
    QHBoxLayout* Kurze = nullptr;  // a row that takes a second short field
    for (const Tagfeld& Feld : Tagfelder()) {
        if (Feld.Blatt != Blatt) continue;
        if (Feld.Wert == &Datensatz::Kommentar) GenrelisteAnlegen(Raster, Zeile++);
        QWidget* const Eingabe = FeldAnlegen(Feld);
        QLabel* const Name = BeschriftungAnlegen(QtText(Feld.Beschriftung), *Eingabe);
        if (Feld.Art == Tagfeldart::Kurz && Kurze != nullptr) {
            Kurze->addWidget(Name);
            Kurze->addWidget(Eingabe, 1);
            Kurze = nullptr;
            continue;
        }
        const bool Absatz = Feld.Art == Tagfeldart::Absatz;
        Raster.addWidget(Name, Zeile, 0, Absatz ? Qt::AlignLeft | Qt::AlignTop : Qt::Alignment());
        if (Feld.Art == Tagfeldart::Genre) {
            Raster.addLayout(MitLieblingsknopf(*cbov2Musikrichtung, u"cmdLieblingsGenreV2"_s), Zeile, 1);
        } else if (Feld.Art == Tagfeldart::Kurz) {
            Kurze = new QHBoxLayout;
            Kurze->setSpacing(12);
            Kurze->addWidget(Eingabe, 1);
            Raster.addLayout(Kurze, Zeile, 1);
        } else {
            Raster.addWidget(Eingabe, Zeile, 1);
        }
        if (Absatz) Raster.setRowStretch(Zeile, 1);
        ++Zeile;
    }
    Raster.setColumnStretch(1, 1);
}

void frmTag::FelderZweispaltig(QGridLayout& Raster, Tagblatt Blatt) {
    int Platz = 0;
    for (const Tagfeld& Feld : Tagfelder()) {
        if (Feld.Blatt != Blatt) continue;
        QWidget* const Eingabe = FeldAnlegen(Feld);
        const int Spalte = Platz / ZeilenJeSpalte * 2;
        Raster.addWidget(BeschriftungAnlegen(QtText(Feld.Beschriftung), *Eingabe), Platz % ZeilenJeSpalte,
                         Spalte);
        Raster.addWidget(Eingabe, Platz % ZeilenJeSpalte, Spalte + 1);
        ++Platz;
    }
    BewertungAnlegen(Raster, Platz % ZeilenJeSpalte, Platz / ZeilenJeSpalte * 2);
    Raster.setColumnStretch(1, 3);
    Raster.setColumnStretch(3, 3);
    Raster.setRowStretch(ZeilenJeSpalte, 1);
}

void frmTag::GenrelisteAnlegen(QGridLayout& Raster, int Zeile) {
    cboMusikrichtung = new QComboBox(this);
    cboMusikrichtung->setObjectName(u"cboMusikrichtung"_s);
    cboMusikrichtung->setMaxVisibleItems(20);
    Raster.addWidget(BeschriftungAnlegen(u"Musikrichtun&g:"_s, *cboMusikrichtung), Zeile, 0);
    Raster.addLayout(MitLieblingsknopf(*cboMusikrichtung, u"cmdLieblingsGenre"_s), Zeile, 1);
}

QLayout* frmTag::MitLieblingsknopf(QComboBox& Liste, const QString& Name) {
    auto* const Knopf = new QToolButton(this);
    Knopf->setObjectName(Name);
    Knopf->setIcon(Symbolbild("favorit"));
    Knopf->setToolTip(u"Lieblings-Musikrichtungen, die in der Liste zuerst stehen"_s);
    Knopf->setAccessibleName(u"Lieblings-Musikrichtungen"_s);
    Knopf->setAutoRaise(true);
    Knopf->setFocusPolicy(Qt::TabFocus);
    connect(Knopf, &QToolButton::clicked, this, [this] { cmdLieblingsGenre_Click(); });
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(4);
    Reihe->addWidget(&Liste, 1);
    Reihe->addWidget(Knopf);
    return Reihe;
}

void frmTag::GenrelistenFüllen() {
    const auto Füllen = [](QComboBox& Liste, const std::vector<Genrezeile>& Zeilen) {
        bool Bevorzugte = false;
        for (const Genrezeile& Zeile : Zeilen) {
            if (Bevorzugte && !Zeile.Bevorzugt) Liste.insertSeparator(Liste.count());
            Bevorzugte = Zeile.Bevorzugt;
            Liste.addItem(QtText(Zeile.Name), int{Zeile.Nummer.value_or(KeinGenre)});
        }
    };
    cboMusikrichtung->clear();
    cboMusikrichtung->addItem(u"(Keine)"_s, int{KeinGenre});
    Füllen(*cboMusikrichtung, Genrezeilen(Programm.Werte, false));
    cbov2Musikrichtung->clear();
    Füllen(*cbov2Musikrichtung, Genrezeilen(Programm.Werte, true));
}

void frmTag::BewertungAnlegen(QGridLayout& Raster, int Zeile, int Spalte) {
    hscrlv2Qualität = new QSlider(Qt::Horizontal, this);
    hscrlv2Qualität->setObjectName(u"hscrlv2Qualität"_s);
    hscrlv2Qualität->setRange(0, Bewertungsgrenze);
    hscrlv2Qualität->setPageStep(16);
    connect(hscrlv2Qualität, &QSlider::valueChanged, this, [this] { hscrlv2Qualität_Change(); });
    lblv2Qualität = new QLabel(this);
    lblv2Qualität->setObjectName(u"lblv2Qualität"_s);
    lblv2Qualität->setMinimumWidth(lblv2Qualität->fontMetrics().horizontalAdvance(u"keine "_s));
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(8);
    Reihe->addWidget(hscrlv2Qualität, 1);
    Reihe->addWidget(lblv2Qualität);
    Raster.addWidget(BeschriftungAnlegen(u"&Qualität:"_s, *hscrlv2Qualität), Zeile, Spalte);
    Raster.addLayout(Reihe, Zeile, Spalte + 1);
}

QWidget* frmTag::TagseiteAnlegen(Tagblock Block, QWidget* Felderblatt, const QList<QWidget*>& Weitere) {
    auto* const Blatt = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(Blatt);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->setSpacing(9);
    Spalte->addWidget(TagtextAnlegen(Block));
    Spalte->addWidget(Felderblatt, 1);
    Felderblätter.push_back(Felderblatt);
    auto* const Fuß = new QHBoxLayout;
    for (QWidget* const Teil : Weitere)
        Fuß->addWidget(Teil);
    Fuß->addStretch(1);
    SpeichernAnlegen(*Fuß, Block);
    Spalte->addLayout(Fuß);
    return Blatt;
}

void frmTag::SpeichernAnlegen(QHBoxLayout& Fuß, Tagblock Block) {
    struct Namen {
        QString Automatik;
        QString Speichern;
        QString Text;
    };
    static const std::array<Namen, 3> Alle = {
        {{u"chkAutomatischSpeichern"_s, u"cmdTAGSpeichern"_s, u"ID3v1-TAG spei&chern"_s},
         {u"chkAutomatischSpeichernV2"_s, u"cmdTagSpeichernV2"_s, u"ID3v2-TAG spei&chern"_s},
         {u"chkAutomatischSpeichernLyrics"_s, u"cmdTAGSpeichernLyrics"_s, u"Lyrics-TAG spei&chern"_s}}};
    const Namen& Meine = Alle[static_cast<std::size_t>(Block) - 1];
    auto* const Automatik = new QCheckBox(u"Automatisc&h speichern"_s, this);
    Automatik->setObjectName(Meine.Automatik);
    Automatik->setToolTip(
        u"Speichert Ihre Eingaben, sobald Sie zu einer anderen Datei gehen oder mit OK schließen."_s);
    Automatik->setChecked(AutomatikVon(Programm.Werte, Block) == 1);
    connect(Automatik, &QCheckBox::toggled, this,
            [this, Block](bool An) { chkAutomatischSpeichern_Click(Block, An); });
    auto* const Speichern = KnopfAnlegen(Meine.Speichern, Meine.Text, [this, Block] {
        cmdTAGSpeichern_Click(static_cast<Tagauswahl>(Block));
    });
    Felderblätter.push_back(Speichern);
    Fuß.addWidget(Automatik);
    Fuß.addWidget(Speichern);
}

QWidget* frmTag::Id3v1SeiteAnlegen() {
    auto* const Blatt = new QWidget(this);
    QGridLayout* const Raster = RasterAnlegen(*Blatt);
    FelderUntereinander(*Raster, Tagblatt::Id3v1);
    Raster->setRowStretch(Raster->rowCount(), 1);
    return TagseiteAnlegen(Tagblock::Id3v1, Blatt);
}

QWidget* frmTag::Id3v2SeiteAnlegen() {
    auto* const Erste = new QWidget(this);
    FelderUntereinander(*RasterAnlegen(*Erste), Tagblatt::Id3v2);
    auto* const Weitere = new QWidget(this);
    FelderZweispaltig(*RasterAnlegen(*Weitere), Tagblatt::Id3v2Weitere);
    fraId3v2 = new QStackedWidget(this);
    fraId3v2->addWidget(Erste);
    fraId3v2->addWidget(Weitere);
    cmdTAGv2Weitere = KnopfAnlegen(u"cmdTAGv2Weitere"_s, u"&Mehr Felder >"_s, [this] { BlattZeigen(1); });
    cmdTAGv2ErsteFelderAnzeigen =
        KnopfAnlegen(u"cmdTAGv2ErsteFelderAnzeigen"_s, u"< &Zurück"_s, [this] { BlattZeigen(0); });
    return TagseiteAnlegen(Tagblock::Id3v2, fraId3v2, {cmdTAGv2Weitere, cmdTAGv2ErsteFelderAnzeigen});
}

QWidget* frmTag::LyricsseiteAnlegen() {
    auto* const Blatt = new QWidget(this);
    FelderUntereinander(*RasterAnlegen(*Blatt), Tagblatt::Lyrics);
    return TagseiteAnlegen(Tagblock::Lyrics, Blatt);
}

void frmTag::FunktionenAnlegen(QVBoxLayout& Spalte) {
    const auto ListeAnlegen = [this](const QString& Name, const QString& Hinweis, const auto& Zeilen) {
        auto* const Kombi = new QComboBox(this);
        Kombi->setObjectName(Name);
        Kombi->setPlaceholderText(Hinweis);
        Kombi->setMaxVisibleItems(20);
        for (const auto& Zeile : Zeilen)
            Kombi->addItem(QtText(Zeile.Name));
        Kombi->setCurrentIndex(-1);
        return Kombi;
    };
    cboFunktion = ListeAnlegen(u"cboFunktion"_s, u"(Funktion wählen)"_s, Tagfunktionen);
    cboFunktionTAG = ListeAnlegen(u"cboFunktionTAG"_s, u"(TAG wählen)"_s, Funktionsauswahlen);
    connect(cboFunktionTAG, &QComboBox::activated, this, [this] { AuswahlGewählt = true; });
    auto* const Linie = new QFrame(this);
    Linie->setFrameShape(QFrame::HLine);
    Linie->setFrameShadow(QFrame::Sunken);
    Spalte.addWidget(Linie);
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(8);
    Reihe->addWidget(BeschriftungAnlegen(u"&Funktion:"_s, *cboFunktion));
    Reihe->addWidget(cboFunktion, 3);
    Reihe->addWidget(BeschriftungAnlegen(u"a&uf:"_s, *cboFunktionTAG));
    cboFunktionTAG->setAccessibleName(u"Funktion anwenden auf"_s);
    Reihe->addWidget(cboFunktionTAG, 2);
    Reihe->addWidget(
        KnopfAnlegen(u"cmdFunktionAusführen"_s, u"&Ausführen"_s, [this] { cmdFunktionAusführen_Click(); }));
    Spalte.addLayout(Reihe);
}

void frmTag::FußAnlegen(QVBoxLayout& Spalte) {
    auto* const Fuß = new QHBoxLayout;
    auto* const cmdTAGSpeichernAlles = KnopfAnlegen(u"cmdTAGSpeichernAlles"_s, u"Alle TAGs &speichern"_s,
                                                    [this] { cmdTAGSpeichern_Click(Tagauswahl::Alle); });
    cmdTAGSpeichernAlles->setToolTip(u"Strg+S"_s);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, cmdTAGSpeichernAlles,
            &QPushButton::click);
    Felderblätter.push_back(cmdTAGSpeichernAlles);
    Fuß->addWidget(cmdTAGSpeichernAlles);
    Fuß->addStretch(1);
    auto* const cmdOk = KnopfAnlegen(u"cmdOk"_s, u"&OK"_s, [this] { done(Accepted); });
    cmdOk->setDefault(true);
    Fuß->addWidget(cmdOk);
    Fuß->addWidget(KnopfAnlegen(u"cmdAbbrechen"_s, u"Abb&rechen"_s, [this] { done(Rejected); }));
    Spalte.addLayout(Fuß);
}

}  // namespace liedwerk
