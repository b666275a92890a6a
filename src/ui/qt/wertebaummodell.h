// The nodes of treListe: fields, below them values, below these the other fields. A node's children are
// fetched when it is opened; a field may have a million of them, so a child that is closed is only its text.
#pragma once

#include <QAbstractItemModel>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

class Wertebaummodell final : public QAbstractItemModel {
  public:
    Wertebaummodell(const Katalog& Datensätze, Suchpuffer& Texte, Oberfläche& Dialoge, QObject* Eltern);

    // Fills a node that is being opened; false when the person has cancelled. The view must not do that by
    // itself: it asks in the middle of its layout, and progress bears no turn of the event loop there.
    bool Öffnen(const QModelIndex& Zelle);
    // Field, value, field, value, ... from the root to the node.
    std::vector<std::string> Pfad(const QModelIndex& Zelle) const;

    QModelIndex index(int Zeile, int Spalte, const QModelIndex& Eltern = {}) const override;
    QModelIndex parent(const QModelIndex& Zelle) const override;
    int rowCount(const QModelIndex& Eltern = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& Eltern = {}) const override;
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
    Oberfläche& Person;
    mutable Knoten Wurzel;
};

}  // namespace liedwerk
