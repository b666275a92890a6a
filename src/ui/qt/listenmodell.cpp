#include "ui/qt/listenmodell.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <array>

#include "basis/datei.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

bool RechtsBündig(std::string_view Spalte) {
    static constexpr std::array<std::string_view, 8> Zahlen = {
        "Nummer", "Größe", "Bitrate", "Dauer", "Frequenz", "Frames", "Abspiel-Häufigkeit", "ID3v2-TAG-Größe"};
    return std::find(Zahlen.begin(), Zahlen.end(), Spalte) != Zahlen.end();
}

}  // namespace

void Listenmodell::Erneuern() {
    beginResetModel();
    Zeilenzahl = static_cast<int>(Quelle.Zeilen.size());
    Spaltenzahl = static_cast<int>(Quelle.Spalten.size()) + 1;
    endResetModel();
}

Satznummer Listenmodell::NummerVon(int Zeile) const {
    // While a long run gives the event loop a turn, the core's rows may be ahead of or behind the window's.
    const auto Platz = static_cast<std::size_t>(Zeile);
    if (Zeile < 0 || Platz >= Quelle.Zeilen.size()) return 0;
    const Satznummer Nummer = Quelle.Zeilen[Platz];
    return Nummer >= 1 && Nummer <= Index.IndexAnzahl() ? Nummer : 0;
}

// The look of a row whose medium is absent: pale and slanted, and said to who does not see it.
QVariant Listenmodell::Mediumzeichen(int Zeile, int Rolle) const {
    const Satznummer Nummer = MediumFehlt ? NummerVon(Zeile) : 0;
    if (Nummer == 0 || !MediumFehlt(Nummer)) return {};
    if (Rolle == Qt::AccessibleDescriptionRole) return u"Datenträger nicht eingelegt"_s;
    if (Rolle == Qt::ForegroundRole)
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    QFont Schräg;
    Schräg.setItalic(true);
    return Schräg;
}

QVariant Listenmodell::data(const QModelIndex& Zelle, int Rolle) const {
    const bool IstSymbol = Zelle.column() == 0;
    if (Rolle == Qt::TextAlignmentRole && !IstSymbol) {
        const auto Spalte = static_cast<std::size_t>(Zelle.column() - 1);
        const bool Rechts =
            Spalte < Quelle.Spalten.size() && RechtsBündig(Spaltenfeld(Quelle.Spalten[Spalte]));
        return QVariant::fromValue(Qt::AlignVCenter | (Rechts ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (Rolle == Qt::ForegroundRole || Rolle == Qt::FontRole || Rolle == Qt::AccessibleDescriptionRole)
        return Mediumzeichen(Zelle.row(), Rolle);
    const bool IstText = Rolle == Qt::DisplayRole && !IstSymbol;
    const bool IstBild = IstSymbol && (Rolle == Qt::DecorationRole || Rolle == Qt::AccessibleTextRole);
    if (!IstText && !IstBild) return {};
    const Satznummer Nummer = NummerVon(Zelle.row());
    if (Nummer == 0) return {};
    if (IstText) {
        return QtText(Listenzelle(Quelle, Index, static_cast<std::size_t>(Zelle.row()),
                                  static_cast<std::size_t>(Zelle.column() - 1)));
    }
    // Folders stand in the list of the file manager only. They have no size: no file's icon needs the disk.
    const std::string Pfad = Index.Sätze.Pfad(Nummer);
    const bool IstOrdner = Index.Programmmodus == ModusDateimanager &&
                           Index.Sätze.Zahl(Nummer, FeldGröße) <= 0 && OrdnerExistiert(Pfad);
    const Dateisymbol& Symbol = IstOrdner ? Ordnersymbol() : DateisymbolVon(Pfad);
    if (Rolle == Qt::AccessibleTextRole) return Symbol.Name;
    return Symbol.Bild;
}

QVariant Listenmodell::headerData(int Abschnitt, Qt::Orientation Richtung, int Rolle) const {
    if (Richtung != Qt::Horizontal) return {};
    if (Abschnitt == 0) return Rolle == Qt::AccessibleTextRole ? QVariant(u"Dateityp"_s) : QVariant();
    const auto Spalte = static_cast<std::size_t>(Abschnitt - 1);
    if (Spalte >= Quelle.Spalten.size()) return {};
    if (Rolle == Qt::DisplayRole) {
        return QtText(Spaltentitel(Quelle.Spalten[Spalte], Index.Optionen.SpaltenNutzerformat));
    }
    if (Rolle == Qt::TextAlignmentRole) {
        const bool Rechts = RechtsBündig(Spaltenfeld(Quelle.Spalten[Spalte]));
        return QVariant::fromValue(Qt::AlignVCenter | (Rechts ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

Qt::ItemFlags Listenmodell::flags(const QModelIndex& Zelle) const {
    if (!Zelle.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

}  // namespace liedwerk
