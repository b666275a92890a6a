// lstSongs: the list's view. It owns what is seen and picked: columns in their places, selection, what is
// dropped in and dragged out. The core's list holds the same things as plain data.
#pragma once

#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

#include "suche/liste.h"
#include "ui/qt/listenmodell.h"

namespace liedwerk {

class Listenansicht final : public QTreeView {
  public:
    Listenansicht(Listenmodell& Zeilen, QWidget* Eltern);

    std::function<void()> AuswahlGeändert;
    std::function<void()> SpaltenGeändert;                      // by the person, not by SpaltenZeigen
    std::function<void(int Spalte)> KopfGeklickt;               // column of the model; not at a drag
    std::function<void(const QPoint& Ort)> SpaltenmenüErbeten;  // place on the screen
    std::function<void(Satznummer)> Geöffnet;                   // double click or Enter on a row
    std::function<void(std::vector<std::string> Pfade)> Abgelegt;
    std::function<QMimeData*()> Ziehdaten;  // of the selected files; null: nothing can be dragged

    // Columns from the list's plain data, and back with what the person changed. A width that was not
    // touched comes back as it was, to the twip.
    void SpaltenZeigen(const std::vector<Listenspalte>& Spalten, bool MitSymbolen);
    std::vector<Listenspalte> SpaltenLesen(const std::vector<Listenspalte>& Spalten) const;
    void GitterZeigen(bool Zeigen);

    // Rows of the model were replaced; the given record numbers, in row order, are selected again.
    void ZeilenErneuern(const std::vector<Satznummer>& Auswahl);
    // Selects the last rows and shows the first of them.
    void LetzteAuswählen(int Anzahl);
    // Selected record numbers in row order, and their count.
    std::vector<Satznummer> AuswahlLesen() const;
    int AuswahlAnzahl() const;

    void selectAll() override;

  protected:
    void drawRow(QPainter* Maler, const QStyleOptionViewItem& Vorgabe,
                 const QModelIndex& Zeile) const override;
    void selectionChanged(const QItemSelection& Neu, const QItemSelection& Alt) override;
    void dragEnterEvent(QDragEnterEvent* Ereignis) override;
    void dragMoveEvent(QDragMoveEvent* Ereignis) override;
    void dropEvent(QDropEvent* Ereignis) override;
    void startDrag(Qt::DropActions Aktionen) override;
    void mouseDoubleClickEvent(QMouseEvent* Ereignis) override;
    void keyPressEvent(QKeyEvent* Ereignis) override;
    bool event(QEvent* Ereignis) override;

  private:
    // Selected rows, 0-based and inclusive, ascending and apart.
    struct Bereich {
        int Von;
        int Bis;
    };
    bool Gewählt(int Zeile) const;
    void Öffnen(const QModelIndex& Zeile);
    void BereicheLesen();
    int Pixel(int Twips) const;

    Listenmodell& Modell;
    std::vector<Bereich> Bereiche;
    std::vector<int> Gesetzt;  // width in pixels that each column was given
    bool Einrichtend = false;
    bool Gitter = false;
};

}  // namespace liedwerk
