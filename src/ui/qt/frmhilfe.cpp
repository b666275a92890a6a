#include "ui/qt/frmhilfe.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStandardPaths>
#include <QTextBlock>
#include <QVBoxLayout>
#include <array>

#include "ui/qt/formkopf.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Blockrolle = Qt::UserRole;
constexpr int HöchstensAufwärts = 8;  // folders from the program up to the root of its source tree
constexpr int Überschriftstufen = 3;

// Pictures wider than the text are made to fit.
class Handbuchtext final : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;
    QVariant loadResource(int Art, const QUrl& Adresse) override {
        // The handbook is here; nothing is fetched from elsewhere.
        const QUrl Voll = Adresse.isRelative() ? source().resolved(Adresse) : Adresse;
        if (!Voll.isLocalFile()) return {};
        if (Art != QTextDocument::ImageResource) return QTextBrowser::loadResource(Art, Adresse);
        const QImage Bild(Voll.toLocalFile());
        const int Breite = fontMetrics().averageCharWidth() * 90;
        return Bild.width() > Breite ? Bild.scaledToWidth(Breite, Qt::SmoothTransformation) : Bild;
    }
};

// "#erste-schritte" for "Erste Schritte", as the usual viewers of Markdown name it.
QString Sprungname(const QString& Überschrift) {
    QString Name;
    for (const QChar Zeichen : Überschrift.toLower()) {
        if (Zeichen.isLetterOrNumber() || Zeichen == u'-' || Zeichen == u'_') Name += Zeichen;
        if (Zeichen == u' ') Name += u'-';
    }
    return Name;
}

}  // namespace

QString HandbuchFinden(const QString& Programmordner) {
    const QString Neben = Programmordner + u"/../share/liedwerk/handbuch.md"_s;
    if (QFile::exists(Neben)) return QDir::cleanPath(Neben);
    QDir Ordner(Programmordner);
    for (int Stufe = 0; Stufe < HöchstensAufwärts; ++Stufe) {
        if (Ordner.exists(u"docs/handbuch.md"_s)) return Ordner.filePath(u"docs/handbuch.md"_s);
        if (!Ordner.cdUp()) break;
    }
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, u"liedwerk/handbuch.md"_s);
}

frmHilfe::frmHilfe(const QString& Datei, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmHilfe"_s);
    setWindowTitle(u"Handbuch"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    auto* const Kopf = new QHBoxLayout;
    auto* const cmdZurück = new QPushButton(u"&Zurück"_s, this);
    cmdZurück->setObjectName(u"cmdZurück"_s);
    cmdZurück->setAutoDefault(false);
    cmdZurück->setEnabled(false);
    auto* const lblSuchen = new QLabel(u"&Suchen:"_s, this);
    txtSuchen = new QLineEdit(this);
    txtSuchen->setObjectName(u"txtSuchen"_s);
    txtSuchen->setClearButtonEnabled(true);
    lblSuchen->setBuddy(txtSuchen);
    auto* const cmdWeitersuchen = new QPushButton(u"&Weitersuchen"_s, this);
    cmdWeitersuchen->setObjectName(u"cmdWeitersuchen"_s);
    cmdWeitersuchen->setDefault(true);
    Kopf->addWidget(cmdZurück);
    Kopf->addStretch(1);
    Kopf->addWidget(lblSuchen);
    Kopf->addWidget(txtSuchen, 2);
    Kopf->addWidget(cmdWeitersuchen);
    Spalte->addLayout(Kopf);

    auto* const Teiler = new QSplitter(Qt::Horizontal, this);
    Teiler->setObjectName(u"Teiler"_s);
    Teiler->setChildrenCollapsible(false);
    treInhalt = new QTreeWidget(Teiler);
    treInhalt->setObjectName(u"treInhalt"_s);
    treInhalt->setAccessibleName(u"Inhalt des Handbuchs"_s);
    treInhalt->setHeaderHidden(true);
    txtHandbuch = new Handbuchtext(Teiler);
    txtHandbuch->setObjectName(u"txtHandbuch"_s);
    txtHandbuch->setAccessibleName(u"Text des Handbuchs"_s);
    txtHandbuch->setOpenLinks(false);
    txtHandbuch->document()->setDocumentMargin(16);
    Teiler->setStretchFactor(1, 1);
    const int Zeichen = fontMetrics().averageCharWidth();
    Teiler->setSizes({Zeichen * 46, Zeichen * 100});
    Spalte->addWidget(Teiler, 1);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"S&chließen"_s, Accepted}})[0]->setAutoDefault(false);
    FormgrößeSetzen(*this, 152, 40);

    connect(treInhalt, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* Eintrag) {
        if (Eintrag != nullptr) ZuAbschnitt(Eintrag->data(0, Blockrolle).toInt());
    });
    connect(txtHandbuch, &QTextBrowser::anchorClicked, this, [this](const QUrl& Ziel) { Verweis(Ziel); });
    connect(txtHandbuch, &QTextBrowser::backwardAvailable, cmdZurück, &QWidget::setEnabled);
    connect(txtHandbuch, &QTextBrowser::sourceChanged, this, [this] { InhaltFüllen(); });
    connect(cmdZurück, &QPushButton::clicked, txtHandbuch, &QTextBrowser::backward);
    connect(cmdWeitersuchen, &QPushButton::clicked, this, [this] { txtSuchen_Weiter(); });
    txtHandbuch->setSource(QUrl::fromLocalFile(Datei), QTextDocument::MarkdownResource);
    txtSuchen->setFocus();
}

void frmHilfe::InhaltFüllen() {
    const QSignalBlocker Still(treInhalt);
    treInhalt->clear();
    std::array<QTreeWidgetItem*, Überschriftstufen + 1> Letzter{};
    Letzter[0] = treInhalt->invisibleRootItem();
    for (QTextBlock Block = txtHandbuch->document()->begin(); Block.isValid(); Block = Block.next()) {
        const int Stufe = Block.blockFormat().headingLevel();
        if (Stufe < 1 || Stufe > Überschriftstufen) continue;
        const auto Ebene = static_cast<std::size_t>(Stufe);
        // A heading below one that is missing hangs on the next that is there.
        QTreeWidgetItem* Über = Letzter[0];
        for (std::size_t Höher = 1; Höher < Ebene; ++Höher) {
            if (Letzter[Höher] != nullptr) Über = Letzter[Höher];
        }
        Letzter[Ebene] = new QTreeWidgetItem(Über, {Block.text()});
        Letzter[Ebene]->setData(0, Blockrolle, Block.blockNumber());
        std::fill(Letzter.begin() + Stufe + 1, Letzter.end(), nullptr);
    }
    treInhalt->expandToDepth(0);
}

void frmHilfe::ZuAbschnitt(int Block) {
    const QTextBlock Ziel = txtHandbuch->document()->findBlockByNumber(Block);
    if (!Ziel.isValid()) return;
    txtHandbuch->setTextCursor(QTextCursor(Ziel));
    const QRectF Platz = txtHandbuch->document()->documentLayout()->blockBoundingRect(Ziel);
    txtHandbuch->verticalScrollBar()->setValue(static_cast<int>(Platz.top()));
}

void frmHilfe::Verweis(const QUrl& Ziel) {
    if (!Ziel.isRelative()) {
        QDesktopServices::openUrl(Ziel);
        return;
    }
    if (!Ziel.path().isEmpty()) {
        txtHandbuch->setSource(Ziel);
        return;
    }
    const QString Gesucht = Ziel.fragment(QUrl::FullyDecoded);
    for (QTextBlock Block = txtHandbuch->document()->begin(); Block.isValid(); Block = Block.next()) {
        if (Block.blockFormat().headingLevel() > 0 && Sprungname(Block.text()) == Gesucht)
            return ZuAbschnitt(Block.blockNumber());
    }
    txtHandbuch->scrollToAnchor(Gesucht);
}

void frmHilfe::txtSuchen_Weiter() {
    if (txtSuchen->text().isEmpty() || txtHandbuch->find(txtSuchen->text())) return;
    // Behind the last place comes the first again.
    txtHandbuch->moveCursor(QTextCursor::Start);
    txtHandbuch->find(txtSuchen->text());
}

}  // namespace liedwerk
