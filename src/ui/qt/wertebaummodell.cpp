#include "ui/qt/wertebaummodell.h"

#include <algorithm>

#include "suche/wertebaum.h"
#include "ui/qt/qttext.h"

namespace liedwerk {

Wertebaummodell::Wertebaummodell(const Katalog& Datensätze, Suchpuffer& Texte, Oberfläche& Dialoge,
                                 QObject* Eltern)
    : QAbstractItemModel(Eltern), Index(Datensätze), Puffer(Texte), Person(Dialoge) {
    Wurzel.Namen = WertebaumÖffnen(Index, Puffer, {}, Person).value_or(std::vector<std::string>{});
}

Wertebaummodell::Knoten* Wertebaummodell::KnotenVon(const QModelIndex& Zelle) const {
    if (!Zelle.isValid()) return &Wurzel;
    const auto& Geöffnete = static_cast<Knoten*>(Zelle.internalPointer())->Geöffnete;
    const auto Fund = Geöffnete.find(Zelle.row());
    return Fund == Geöffnete.end() ? nullptr : Fund->second.get();
}

std::vector<std::string> Wertebaummodell::Pfad(const QModelIndex& Zelle) const {
    std::vector<std::string> Namen;
    for (QModelIndex Stufe = Zelle; Stufe.isValid(); Stufe = Stufe.parent()) {
        const auto* const Träger = static_cast<Knoten*>(Stufe.internalPointer());
        Namen.push_back(Träger->Namen[static_cast<std::size_t>(Stufe.row())]);
    }
    std::reverse(Namen.begin(), Namen.end());
    return Namen;
}

QModelIndex Wertebaummodell::index(int Zeile, int Spalte, const QModelIndex& Eltern) const {
    Knoten* const Träger = KnotenVon(Eltern);
    if (Träger == nullptr || Spalte != 0 || Zeile < 0 || Zeile >= rowCount(Eltern)) return {};
    return createIndex(Zeile, 0, Träger);
}

QModelIndex Wertebaummodell::parent(const QModelIndex& Zelle) const {
    if (!Zelle.isValid()) return {};
    const auto* const Träger = static_cast<Knoten*>(Zelle.internalPointer());
    return Träger->Eltern == nullptr ? QModelIndex() : createIndex(Träger->Zeile, 0, Träger->Eltern);
}

int Wertebaummodell::rowCount(const QModelIndex& Eltern) const {
    const Knoten* const Träger = KnotenVon(Eltern);
    return Träger == nullptr ? 0 : static_cast<int>(Träger->Namen.size());
}

bool Wertebaummodell::hasChildren(const QModelIndex& Eltern) const {
    return KnotenVon(Eltern) == nullptr || rowCount(Eltern) > 0;
}

bool Wertebaummodell::Öffnen(const QModelIndex& Zelle) {
    if (KnotenVon(Zelle) != nullptr) return true;
    auto Namen = WertebaumÖffnen(Index, Puffer, Pfad(Zelle), Person);
    if (!Namen) return false;
    auto Neuer = std::make_unique<Knoten>();
    Neuer->Eltern = static_cast<Knoten*>(Zelle.internalPointer());
    Neuer->Zeile = Zelle.row();
    Knoten& Träger = *Neuer;
    Träger.Eltern->Geöffnete[Träger.Zeile] = std::move(Neuer);
    if (!Namen->empty()) {
        beginInsertRows(Zelle, 0, static_cast<int>(Namen->size()) - 1);
        Träger.Namen = std::move(*Namen);
        endInsertRows();
    }
    return true;
}

QVariant Wertebaummodell::data(const QModelIndex& Zelle, int Rolle) const {
    if (Rolle != Qt::DisplayRole || !Zelle.isValid()) return {};
    const auto* const Träger = static_cast<Knoten*>(Zelle.internalPointer());
    return QtText(Träger->Namen[static_cast<std::size_t>(Zelle.row())]);
}

}  // namespace liedwerk
