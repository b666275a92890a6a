#include "ui/qt/frmcddatencdwaehlen.h"

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmCDDatenCDWählen::frmCDDatenCDWählen(const std::vector<std::string>& Zeilen, Oberfläche& Dialoge,
                                       QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge) {
    setObjectName(u"frmCDDatenCDWählen"_s);
    setWindowTitle(u"CD wählen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("cd"), u"Welche CD ist es?"_s,
                     u"Mehrere CDs der Datenbank passen zu der CD im Laufwerk. Jede Zeile nennt Kategorie, "
                     u"Kennung und Namen."_s);
    auto* const lblCDs = new QLabel(u"&Gefundene CDs:"_s, this);
    Spalte->addWidget(lblCDs);
    lstCDs = new QListWidget(this);
    lstCDs->setObjectName(u"lstCDs"_s);
    lstCDs->setAccessibleName(u"Gefundene CDs"_s);
    lstCDs->setUniformItemSizes(true);
    lstCDs->setMinimumHeight(fontMetrics().height() * 9);
    for (const std::string& Zeile : Zeilen)
        lstCDs->addItem(QtText(Zeile));
    lblCDs->setBuddy(lstCDs);
    Spalte->addWidget(lstCDs, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    connect(lstCDs, &QListWidget::itemDoubleClicked, this, [this] { done(Accepted); });
    lstCDs->setFocus();
}

void frmCDDatenCDWählen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const QList<QListWidgetItem*> Zeilen = lstCDs->selectedItems();
        if (Zeilen.isEmpty()) {
            Person.Melden(Symbol::Information, "Bitte wählen Sie einen Eintrag aus der Liste.");
            return lstCDs->setFocus();
        }
        Nummer = static_cast<std::size_t>(lstCDs->row(Zeilen.front())) + 1;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
