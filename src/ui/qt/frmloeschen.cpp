#include "ui/qt/frmloeschen.h"

#include "dateien/loeschen.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmLöschen::frmLöschen(std::size_t Anzahl, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmLöschen"_s);
    setWindowTitle(u"Dateien löschen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("loeschen"), QtText(Löschfrage(Anzahl)),
                     u"Die Einträge werden auch aus dem Index entfernt. Aus dem Papierkorb lassen sich die "
                     "Dateien zurückholen, nach dem Löschen nicht mehr."_s);
    const auto Knöpfe =
        KnöpfeHinzufügen(*Spalte, *this,
                         {{u"cmdPapierkorb"_s, u"In den &Papierkorb"_s, static_cast<int>(Wahl::Papierkorb)},
                          {u"cmdLöschen"_s, u"Endgültig &löschen"_s, static_cast<int>(Wahl::Löschen)},
                          {u"cmdAbbrechen"_s, u"&Abbrechen"_s, static_cast<int>(Wahl::Abbrechen)}});
    Knöpfe[0]->setDefault(true);
    Knöpfe[0]->setFocus();
}

}  // namespace liedwerk
