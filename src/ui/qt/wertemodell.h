// The entries of a drop-down as they stand in the core: nothing is made for an entry before it is shown, so
// that a million of them open at once.
#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

#include "ui/qt/qttext.h"

namespace liedwerk {

class Wertemodell final : public QAbstractListModel {
  public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<std::string>& Werte() const { return Einträge; }
    void Setzen(std::vector<std::string> Neue) {
        beginResetModel();
        Einträge = std::move(Neue);
        endResetModel();
    }

    int rowCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() ? 0 : static_cast<int>(Einträge.size());
    }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override {
        if (Rolle != Qt::DisplayRole && Rolle != Qt::EditRole) return {};
        return QtText(Einträge[static_cast<std::size_t>(Zelle.row())]);
    }
    // Combo boxes look for the entry of a text; on the bytes that costs no conversion of them all.
    QModelIndexList match(const QModelIndex& Start, int Rolle, const QVariant& Wert, int Anzahl,
                          Qt::MatchFlags Art) const override {
        if (Anzahl != 1 || (Art & Qt::MatchTypeMask) != Qt::MatchExactly)
            return QAbstractListModel::match(Start, Rolle, Wert, Anzahl, Art);
        const auto Fund = std::find(Einträge.begin(), Einträge.end(), Utf8Text(Wert.toString()));
        if (Fund == Einträge.end()) return {};
        return {index(static_cast<int>(Fund - Einträge.begin()))};
    }

  private:
    std::vector<std::string> Einträge;
};

}  // namespace liedwerk
