#include "ui/qt/frmbeenden.h"

#include "ui/qt/formkopf.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmBeenden::frmBeenden(bool MitTray, QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmBeenden"_s);
    setWindowTitle(u"Programm beenden"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(
        *Spalte, Symbolbild("beenden"), u"Was möchten Sie tun?"_s,
        MitTray
            ? u"Sie können das Programm beenden, minimieren oder in der Startleiste weiterlaufen lassen."_s
            : u"Sie können das Programm beenden oder minimieren."_s);
    chkImmer = new QCheckBox(u"&Immer die folgende Aktion durchführen"_s, this);
    chkImmer->setObjectName(u"chkImmer"_s);
    auto* const lblImmer = new QLabel(u"(dies können Sie in den 'Optionen' wieder ändern)"_s, this);
    lblImmer->setIndent(24);
    chkImmer->setAccessibleDescription(lblImmer->text());
    auto* const Wahl = new QVBoxLayout;
    Wahl->setSpacing(2);
    Wahl->addWidget(chkImmer);
    Wahl->addWidget(lblImmer);
    Spalte->addLayout(Wahl);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdBeenden"_s, u"&Beenden"_s, 2},
                                          {u"cmdMinimieren"_s, u"&Minimieren"_s, 1},
                                          {u"cmdTray"_s, u"In die &Startleiste"_s, 3},
                                          {u"cmdAbbrechen"_s, u"&Abbrechen"_s, 0}});
    Knöpfe[0]->setDefault(true);
    Knöpfe[2]->setVisible(MitTray);
}

}  // namespace liedwerk
