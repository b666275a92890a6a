// The rows of lstSongs for Qt: a window onto the core's list that renders a cell when it is shown.
//
// Column 0 is the symbol, column c the list's column c - 1. Nothing is copied, so a million rows open at
// once.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "index/katalog.h"
#include "suche/liste.h"

namespace liedwerk {

class Listenmodell final : public QAbstractTableModel {
  public:
    Listenmodell(const Liste& Zeilen, const Katalog& Datensätze) : Quelle(Zeilen), Index(Datensätze) {}

    // Whether a record's medium is absent: its row is marked then. Empty: no row is.
    std::function<bool(Satznummer)> MediumFehlt;

    // The core's rows or columns were changed: views start afresh.
    void Erneuern();

    int rowCount(const QModelIndex& Eltern = {}) const override { return Eltern.isValid() ? 0 : Zeilenzahl; }
    int columnCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() ? 0 : Spaltenzahl;
    }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override;
    QVariant headerData(int Abschnitt, Qt::Orientation Richtung, int Rolle) const override;
    Qt::ItemFlags flags(const QModelIndex& Zelle) const override;

    // The record number of a row (0-based), 0 when the index has no such record any more.
    Satznummer NummerVon(int Zeile) const;

  private:
    QVariant Mediumzeichen(int Zeile, int Rolle) const;
    const Liste& Quelle;
    const Katalog& Index;
    int Zeilenzahl = 0;
    int Spaltenzahl = 1;
};

}  // namespace liedwerk
