#include "ui/qt/frmsortieren.h"

#include <QFormLayout>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmSortieren::frmSortieren(std::string_view Spalte, Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge) {
    setObjectName(u"frmSortieren"_s);
    setWindowTitle(u"Sortieren"_s);
    QVBoxLayout* const Zeilen = Formspalte(*this);
    BannerHinzufügen(*Zeilen, Symbolbild("sortieren"), u"Wonach soll der Index sortiert werden?"_s,
                     u"Die Dateien im Index erhalten diese Reihenfolge; sie wird mit ihm gespeichert."_s);
    const QStringList Fragen = {u"&Zuerst nach:"_s, u"&Dann nach:"_s, u"Und d&ann nach:"_s};
    auto* const Formular = new QFormLayout;
    Formular->setHorizontalSpacing(14);
    Formular->setVerticalSpacing(9);
    Formular->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const auto Vorgabe = SortierspaltenVorgabe(Spalte);
    for (std::size_t Platz = 0; Platz < cboSpalte.size(); ++Platz) {
        auto* const Kombi = new QComboBox(this);
        Kombi->setObjectName(u"cboSpalte(%1)"_s.arg(Platz));
        Kombi->setAccessibleName(QString(Fragen[static_cast<qsizetype>(Platz)]).remove(u'&'));
        for (const std::string& Eintrag : Vorgabe[Platz].Einträge)
            Kombi->addItem(QtText(Eintrag));
        Kombi->setCurrentIndex(static_cast<int>(Vorgabe[Platz].Gewählt));
        Kombi->setMaxVisibleItems(20);
        Formular->addRow(Fragen[static_cast<qsizetype>(Platz)], Kombi);
        cboSpalte[Platz] = Kombi;
    }
    optAufsteigend = new QRadioButton(u"Au&fsteigend"_s, this);
    optAufsteigend->setObjectName(u"optAufsteigend"_s);
    optAufsteigend->setChecked(true);
    optAbsteigend = new QRadioButton(u"A&bsteigend"_s, this);
    optAbsteigend->setObjectName(u"optAbsteigend"_s);
    auto* const Richtung = new QHBoxLayout;
    Richtung->setSpacing(24);
    Richtung->addWidget(optAufsteigend);
    Richtung->addWidget(optAbsteigend);
    Richtung->addStretch(1);
    Formular->addRow(u"Reihenfolge:"_s, Richtung);
    Zeilen->addLayout(Formular);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Zeilen, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    cboSpalte[0]->setFocus();
}

void frmSortieren::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        std::array<std::string, SortierkriterienHöchstens> Gewählt;
        for (std::size_t Platz = 0; Platz < cboSpalte.size(); ++Platz)
            Gewählt[Platz] = Utf8Text(cboSpalte[Platz]->currentText());
        Wahl = SortierwahlPrüfen(Gewählt);
        if (!Wahl.Meldung.empty()) return Person.Melden(Symbol::Information, Wahl.Meldung);
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
