#include "ui/qt/terminmodell.h"

#include <QHeaderView>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

Terminmodell::Terminmodell(const Terminliste& Ereignisse, std::size_t Spaltenzahl, QObject* Eltern)
    : QAbstractTableModel(Eltern),
      Termine(Ereignisse),
      Spalten(Spaltenzahl),
      Zeilen(static_cast<int>(Ereignisse.size())) {}

void Terminmodell::Erneuern() {
    beginResetModel();
    Zeilen = static_cast<int>(Termine.size());
    endResetModel();
}

void Terminmodell::Auffrischen(std::size_t Nummer) {
    const int Zeile = static_cast<int>(Nummer) - 1;
    emit dataChanged(index(Zeile, 0), index(Zeile, columnCount() - 1));
}

QVariant Terminmodell::data(const QModelIndex& Zelle, int Rolle) const {
    const auto Zeile = static_cast<std::size_t>(Zelle.row());
    if (Rolle != Qt::DisplayRole || Zeile >= Termine.size()) return {};
    return QtText(TerminZelle(Termine[Zeile], TerminSpalten[static_cast<std::size_t>(Zelle.column())]));
}

QVariant Terminmodell::headerData(int Abschnitt, Qt::Orientation Richtung, int Rolle) const {
    if (Rolle != Qt::DisplayRole || Richtung != Qt::Horizontal) return {};
    return QtText(TerminSpalten[static_cast<std::size_t>(Abschnitt)]);
}

QTreeView* TerminansichtAnlegen(QWidget* Eltern, const Terminliste& Ereignisse, std::size_t Spaltenzahl) {
    auto* const Ansicht = new QTreeView(Eltern);
    Ansicht->setObjectName(u"lstEreignisse"_s);
    Ansicht->setAccessibleName(u"Ereignisse"_s);
    Ansicht->setModel(new Terminmodell(Ereignisse, Spaltenzahl, Ansicht));
    Ansicht->setRootIsDecorated(false);
    Ansicht->setUniformRowHeights(true);
    Ansicht->setAllColumnsShowFocus(true);
    Ansicht->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Ansicht->header()->setObjectName(u"lstEreignisseSpalten"_s);
    const int Zeichen = Ansicht->fontMetrics().averageCharWidth();
    const int Datumsbreite = Ansicht->fontMetrics().horizontalAdvance(u"00.00.0000 00:00:00"_s) + 2 * Zeichen;
    Ansicht->setColumnWidth(0, Zeichen * 24);
    for (int Spalte = 1; Spalte < static_cast<int>(Spaltenzahl); ++Spalte) {
        const std::string_view Name = TerminSpalten[static_cast<std::size_t>(Spalte)];
        const bool Datum = Name == "Termin" || Name == "Erinnern" || Name == "Angelegt am";
        Ansicht->setColumnWidth(Spalte, Datum ? Datumsbreite : Zeichen * 12);
    }
    Ansicht->setMinimumSize(std::min(Ansicht->header()->length() + 3 * Zeichen, Zeichenbreite(*Ansicht, 155)),
                            Ansicht->fontMetrics().height() * 14);
    return Ansicht;
}

}  // namespace liedwerk
