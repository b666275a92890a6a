// The events of an index for Qt: their rows as TerminZelle tells them.
#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include "termine/termine.h"

namespace liedwerk {

class Terminmodell final : public QAbstractTableModel {
  public:
    // The first Spaltenzahl columns of TerminSpalten over events that outlive the model.
    Terminmodell(const Terminliste& Ereignisse, std::size_t Spaltenzahl, QObject* Eltern);

    // Events have come, gone or changed; rows are read afresh and selections go.
    void Erneuern();
    // The row of event Nummer was changed.
    void Auffrischen(std::size_t Nummer);

    int rowCount(const QModelIndex& Eltern = {}) const override { return Eltern.isValid() ? 0 : Zeilen; }
    int columnCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() ? 0 : static_cast<int>(Spalten);
    }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override;
    QVariant headerData(int Abschnitt, Qt::Orientation Richtung, int Rolle) const override;

  private:
    const Terminliste& Termine;
    std::size_t Spalten;
    int Zeilen = 0;
};

// lstEreignisse: a list over such a model, with room for the texts.
QTreeView* TerminansichtAnlegen(QWidget* Eltern, const Terminliste& Ereignisse, std::size_t Spaltenzahl);

}  // namespace liedwerk
