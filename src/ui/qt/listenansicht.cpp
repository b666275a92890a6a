#include "ui/qt/listenansicht.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int TwipsJeZoll = 1440;
constexpr int Symbolbreite = 350;  // twips

// Rows a little higher than the text, so that a long list reads well.
class Zeilenzeichner final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& Vorgabe, const QModelIndex& Zelle) const override {
        return {QStyledItemDelegate::sizeHint(Vorgabe, Zelle).width(), Vorgabe.fontMetrics.height() + 9};
    }
    // Numbers stand at the right edge; without some room they would run into the next column.
    void paint(QPainter* Maler, const QStyleOptionViewItem& Vorgabe,
               const QModelIndex& Zelle) const override {
        QStyleOptionViewItem Stil = Vorgabe;
        initStyleOption(&Stil, Zelle);
        const QWidget* const Liste = Vorgabe.widget;
        if (Stil.displayAlignment & Qt::AlignRight) {
            Liste->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &Stil, Maler, Liste);
            Stil.rect.adjust(0, 0, -7, 0);
        }
        Liste->style()->drawControl(QStyle::CE_ItemViewItem, &Stil, Maler, Liste);
    }
};

}  // namespace

Listenansicht::Listenansicht(Listenmodell& Zeilen, QWidget* Eltern) : QTreeView(Eltern), Modell(Zeilen) {
    setObjectName(u"lstSongs"_s);
    setAccessibleName(u"Dateiliste"_s);
    setItemDelegate(new Zeilenzeichner(this));
    setModel(&Modell);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(ScrollPerPixel);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(false);
    QHeaderView* const Kopf = header();
    Kopf->setObjectName(u"lstSongsSpalten"_s);
    Kopf->setAccessibleName(u"Spaltenköpfe"_s);
    Kopf->setSectionsMovable(true);
    Kopf->setFirstSectionMovable(false);
    Kopf->setSectionsClickable(true);
    Kopf->setHighlightSections(false);
    Kopf->setMinimumSectionSize(24);
    Kopf->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(Kopf, &QHeaderView::customContextMenuRequested, this, [this, Kopf](const QPoint& Ort) {
        if (SpaltenmenüErbeten) SpaltenmenüErbeten(Kopf->mapToGlobal(Ort));
    });
    connect(Kopf, &QHeaderView::sectionClicked, this, [this](int Abschnitt) {
        if (KopfGeklickt) KopfGeklickt(Abschnitt);
    });
    const auto Melden = [this] {
        if (!Einrichtend && SpaltenGeändert) SpaltenGeändert();
    };
    connect(Kopf, &QHeaderView::sectionMoved, this, Melden);
    connect(Kopf, &QHeaderView::sectionResized, this, [Melden, Kopf](int Abschnitt) {
        // The last one is stretched to the window's edge; that is no wish of the person.
        if (Kopf->visualIndex(Abschnitt) != Kopf->count() - 1) Melden();
    });
}

int Listenansicht::Pixel(int Twips) const {
    return std::max(header()->minimumSectionSize(), (Twips * logicalDpiX() + TwipsJeZoll / 2) / TwipsJeZoll);
}

void Listenansicht::SpaltenZeigen(const std::vector<Listenspalte>& Spalten, bool MitSymbolen) {
    Einrichtend = true;
    QHeaderView* const Kopf = header();
    Kopf->setStretchLastSection(false);
    Modell.Erneuern();
    // The plain data stand in the order in which the columns are shown.
    for (int Platz = 0; Platz < Kopf->count(); ++Platz)
        Kopf->moveSection(Kopf->visualIndex(Platz), Platz);
    Kopf->setSectionResizeMode(0, QHeaderView::Fixed);
    Kopf->resizeSection(0, Pixel(Symbolbreite));
    Kopf->setSectionHidden(0, !MitSymbolen);
    Gesetzt.clear();
    for (std::size_t Spalte = 0; Spalte < Spalten.size(); ++Spalte) {
        Gesetzt.push_back(Pixel(Spalten[Spalte].Breite));
        Kopf->resizeSection(static_cast<int>(Spalte) + 1, Gesetzt.back());
    }
    Kopf->setStretchLastSection(true);
    Einrichtend = false;
}

std::vector<Listenspalte> Listenansicht::SpaltenLesen(const std::vector<Listenspalte>& Spalten) const {
    const QHeaderView* const Kopf = header();
    std::vector<Listenspalte> Ergebnis;
    for (int Platz = 0; Platz < Kopf->count(); ++Platz) {
        const int Abschnitt = Kopf->logicalIndex(Platz);
        const auto Nummer = static_cast<std::size_t>(Abschnitt - 1);
        if (Abschnitt == 0 || Nummer >= Spalten.size() || Nummer >= Gesetzt.size()) continue;
        Listenspalte Spalte = Spalten[Nummer];
        const int Breite = Kopf->sectionSize(Abschnitt);
        const bool Gestreckt = Platz == Kopf->count() - 1;
        if (!Gestreckt && Breite != Gesetzt[Nummer]) {
            Spalte.Breite = (Breite * TwipsJeZoll + logicalDpiX() / 2) / logicalDpiX();
        }
        Ergebnis.push_back(Spalte);
    }
    return Ergebnis;
}

void Listenansicht::GitterZeigen(bool Zeigen) {
    Gitter = Zeigen;
    setAlternatingRowColors(!Zeigen);
    viewport()->update();
}

void Listenansicht::ZeilenErneuern(const std::vector<Satznummer>& Auswahl) {
    const int Stelle = verticalScrollBar()->value();
    const Satznummer Aktuelle = Modell.NummerVon(currentIndex().row());
    Einrichtend = true;
    Modell.Erneuern();
    Einrichtend = false;
    // Both sequences follow the same order: one walk finds the rows, and neighbours become one range, so
    // that a large selection costs no more than a small one.
    QItemSelection Neu;
    QModelIndex Zeiger;
    const int Zeilen = Modell.rowCount();
    const int Letzte = Modell.columnCount() - 1;
    std::size_t Platz = 0;
    int Von = -1;
    for (int Zeile = 0; Zeile <= Zeilen && !Auswahl.empty(); ++Zeile) {
        const bool Passt =
            Zeile < Zeilen && Platz < Auswahl.size() && Modell.NummerVon(Zeile) == Auswahl[Platz];
        if (Passt) {
            if (Von < 0) Von = Zeile;
            if (Auswahl[Platz] == Aktuelle || !Zeiger.isValid()) Zeiger = Modell.index(Zeile, 0);
            ++Platz;
        } else if (Von >= 0) {
            Neu.append(QItemSelectionRange(Modell.index(Von, 0), Modell.index(Zeile - 1, Letzte)));
            Von = -1;
            if (Platz == Auswahl.size()) break;
        }
    }
    if (Zeiger.isValid()) selectionModel()->setCurrentIndex(Zeiger, QItemSelectionModel::NoUpdate);
    selectionModel()->select(Neu, QItemSelectionModel::ClearAndSelect);
    BereicheLesen();
    verticalScrollBar()->setValue(Stelle);
}

void Listenansicht::LetzteAuswählen(int Anzahl) {
    const int Zeilen = Modell.rowCount();
    if (Anzahl <= 0 || Zeilen == 0) return;
    const QModelIndex Erste = Modell.index(std::max(0, Zeilen - Anzahl), 0);
    const QModelIndex Letzte = Modell.index(Zeilen - 1, Modell.columnCount() - 1);
    selectionModel()->setCurrentIndex(Erste, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(Erste, Letzte), QItemSelectionModel::ClearAndSelect);
    scrollTo(Erste, PositionAtTop);
}

void Listenansicht::BereicheLesen() {
    Bereiche.clear();
    for (const QItemSelectionRange& Teil : selectionModel()->selection()) {
        if (Teil.isValid()) Bereiche.push_back({Teil.top(), Teil.bottom()});
    }
    std::sort(Bereiche.begin(), Bereiche.end(), [](Bereich A, Bereich B) { return A.Von < B.Von; });
    std::size_t Letzter = 0;
    for (std::size_t Nächster = 1; Nächster < Bereiche.size(); ++Nächster) {
        if (Bereiche[Nächster].Von <= Bereiche[Letzter].Bis + 1) {
            Bereiche[Letzter].Bis = std::max(Bereiche[Letzter].Bis, Bereiche[Nächster].Bis);
        } else {
            Bereiche[++Letzter] = Bereiche[Nächster];
        }
    }
    if (!Bereiche.empty()) Bereiche.resize(Letzter + 1);
}

bool Listenansicht::Gewählt(int Zeile) const {
    const auto Nach = std::upper_bound(Bereiche.begin(), Bereiche.end(), Zeile,
                                       [](int Gesucht, const Bereich& Teil) { return Gesucht < Teil.Von; });
    return Nach != Bereiche.begin() && Zeile <= std::prev(Nach)->Bis;
}

std::vector<Satznummer> Listenansicht::AuswahlLesen() const {
    std::vector<Satznummer> Nummern;
    Nummern.reserve(static_cast<std::size_t>(AuswahlAnzahl()));
    for (const Bereich& Teil : Bereiche) {
        for (int Zeile = Teil.Von; Zeile <= Teil.Bis; ++Zeile) {
            if (const Satznummer Nummer = Modell.NummerVon(Zeile); Nummer > 0) Nummern.push_back(Nummer);
        }
    }
    return Nummern;
}

int Listenansicht::AuswahlAnzahl() const {
    int Anzahl = 0;
    for (const Bereich& Teil : Bereiche)
        Anzahl += Teil.Bis - Teil.Von + 1;
    return Anzahl;
}

void Listenansicht::selectAll() {
    // One range; the base class would walk all rows.
    const int Zeilen = Modell.rowCount();
    if (Zeilen == 0) return;
    const QItemSelection Alle(Modell.index(0, 0), Modell.index(Zeilen - 1, Modell.columnCount() - 1));
    selectionModel()->select(Alle, QItemSelectionModel::ClearAndSelect);
}

void Listenansicht::selectionChanged(const QItemSelection& Neu, const QItemSelection& Alt) {
    QTreeView::selectionChanged(Neu, Alt);
    BereicheLesen();
    viewport()->update();
    if (!Einrichtend && AuswahlGeändert) AuswahlGeändert();
}

// Drawn here and not by the base class because that asks the selection model for every cell, which walks
// through all ranges: a selection in many pieces would make scrolling slow.
void Listenansicht::drawRow(QPainter* Maler, const QStyleOptionViewItem& Vorgabe,
                            const QModelIndex& Zeile) const {
    const int Nummer = Zeile.row();
    QStyleOptionViewItem Stil = Vorgabe;
    Stil.state.setFlag(QStyle::State_Selected, Gewählt(Nummer));
    Stil.features.setFlag(QStyleOptionViewItem::Alternate, alternatingRowColors() && Nummer % 2 == 1);
    Stil.showDecorationSelected = true;
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &Stil, Maler, this);
    const QHeaderView* const Kopf = header();
    for (int Platz = 0; Platz < Kopf->count(); ++Platz) {
        const int Spalte = Kopf->logicalIndex(Platz);
        const int Links = columnViewportPosition(Spalte);
        const int Breite = columnWidth(Spalte);
        if (Kopf->isSectionHidden(Spalte) || Links + Breite < 0 || Links > viewport()->width()) continue;
        Stil.rect = QRect(Links, Vorgabe.rect.y(), Breite, Vorgabe.rect.height());
        itemDelegate()->paint(Maler, Stil, Modell.index(Nummer, Spalte));
        if (Gitter) {
            Maler->setPen(palette().color(QPalette::Midlight));
            Maler->drawLine(Stil.rect.topRight(), Stil.rect.bottomRight());
            Maler->drawLine(Stil.rect.bottomLeft(), Stil.rect.bottomRight());
        }
    }
    if (Nummer == currentIndex().row() && hasFocus()) {
        QStyleOptionFocusRect Rahmen;
        Rahmen.QStyleOption::operator=(Vorgabe);
        Rahmen.state |= QStyle::State_KeyboardFocusChange;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &Rahmen, Maler, this);
    }
}

void Listenansicht::dragEnterEvent(QDragEnterEvent* Ereignis) {
    // What was dragged out of this list is in the index already.
    if (Ereignis->source() != this && Ereignis->mimeData()->hasUrls()) Ereignis->acceptProposedAction();
}

void Listenansicht::dragMoveEvent(QDragMoveEvent* Ereignis) {
    if (Ereignis->source() != this && Ereignis->mimeData()->hasUrls()) {
        Ereignis->setDropAction(Qt::CopyAction);
        Ereignis->accept();
    }
}

void Listenansicht::dropEvent(QDropEvent* Ereignis) {
    std::vector<std::string> Pfade = PfadeAusUriListe(Ereignis->mimeData()->data(u"text/uri-list"_s));
    if (Ereignis->source() == this || Pfade.empty() || !Abgelegt) return;
    Ereignis->setDropAction(Qt::CopyAction);
    Ereignis->accept();
    Abgelegt(std::move(Pfade));
}

void Listenansicht::startDrag(Qt::DropActions) {
    QMimeData* const Daten = Ziehdaten ? Ziehdaten() : nullptr;
    if (Daten == nullptr) return;
    auto* const Zug = new QDrag(this);
    Zug->setMimeData(Daten);
    Zug->exec(Qt::CopyAction);
}

void Listenansicht::Öffnen(const QModelIndex& Zeile) {
    const Satznummer Nummer = Modell.NummerVon(Zeile.row());
    if (Nummer > 0 && Geöffnet) Geöffnet(Nummer);
}

void Listenansicht::mouseDoubleClickEvent(QMouseEvent* Ereignis) {
    QTreeView::mouseDoubleClickEvent(Ereignis);
    if (Ereignis->button() == Qt::LeftButton) Öffnen(indexAt(Ereignis->pos()));
}

void Listenansicht::keyPressEvent(QKeyEvent* Ereignis) {
    const bool Eingabe = Ereignis->key() == Qt::Key_Return || Ereignis->key() == Qt::Key_Enter;
    const auto Gehalten = Ereignis->modifiers() & ~Qt::KeypadModifier;
    if (!Eingabe || (Gehalten & ~Qt::ShiftModifier) != Qt::NoModifier)
        return QTreeView::keyPressEvent(Ereignis);
    Ereignis->accept();
    Öffnen(currentIndex());
}

bool Listenansicht::event(QEvent* Ereignis) {
    if (Ereignis->type() == QEvent::PaletteChange) viewport()->update();
    return QTreeView::event(Ereignis);
}

}  // namespace liedwerk
