// The nodes of treListe: fields, below them values, below these the other fields. A node's children are
// fetched when it is opened; a field may have a million of them, so a child that is closed is only its text.
#pragma once

#include <QAbstractItemModel>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "index/katalog.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

class Wertebaummodell final : public QAbstractItemModel {
  public:
    Wertebaummodell(const Katalog& Datensätze, Suchpuffer& Texte, QObject* Eltern);

    // Field, value, field, value, ... from the root to the node.
    std::vector<std::string> Pfad(const QModelIndex& Zelle) const;

    QModelIndex index(int Zeile, int Spalte, const QModelIndex& Eltern = {}) const override;
    QModelIndex parent(const QModelIndex& Zelle) const override;
    int rowCount(const QModelIndex& Eltern = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& Eltern = {}) const override;
    bool canFetchMore(const QModelIndex& Eltern) const override;
    void fetchMore(const QModelIndex& Eltern) override;
    QVariant data(const QModelIndex& Zelle, int Rolle) const override;

  private:
    // A node that was opened; an index points to the one that it stands in.
    struct Knoten {
        Knoten* Eltern = nullptr;
        int Zeile = 0;  // in Eltern
        std::vector<std::string> Namen;
        std::map<int, std::unique_ptr<Knoten>> Geöffnete;
    };
    // Null for a node that was not opened yet.
    Knoten* KnotenVon(const QModelIndex& Zelle) const;

    const Katalog& Index;
    Suchpuffer& Puffer;
    mutable Knoten Wurzel;
};

}  // namespace liedwerk
