#include "ui/qt/frmtipps.h"

#include <QPushButton>
#include <algorithm>

#include "core/tipps.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTipps::frmTipps(Einstellungen& Ziel, int Erster, QWidget* Eltern) : QDialog(Eltern), Werte(Ziel) {
    setObjectName(u"frmTipps"_s);
    setWindowTitle(u"Tipp des Tages"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("tipp"), u"Wussten Sie schon ..."_s, {});
    lblTipp = TextHinzufügen(*Spalte, u"lblTipp"_s, {});
    lblTipp->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    // Room for the longest one, so that the buttons stay where they are.
    int Höhe = 0;
    for (const std::string_view Text : Tipps()) {
        const QRect Platz(0, 0, lblTipp->minimumWidth(), 10000);
        Höhe = std::max(Höhe,
                        lblTipp->fontMetrics().boundingRect(Platz, Qt::TextWordWrap, QtText(Text)).height());
    }
    lblTipp->setMinimumHeight(Höhe);
    lblNummer = TextHinzufügen(*Spalte, u"lblNummer"_s, {});
    chkTipps = new QCheckBox(u"Tipps beim &Start anzeigen"_s, this);
    chkTipps->setObjectName(u"chkTipps"_s);
    chkTipps->setChecked(Werte.TippsAktueller != 0);
    Spalte->addWidget(chkTipps);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdVorheriger"_s, u"&Vorheriger"_s, Accepted},
                                          {u"cmdNächster"_s, u"&Nächster"_s, Accepted},
                                          {u"cmdOk"_s, u"S&chließen"_s, Accepted}});
    for (const int Stelle : {0, 1}) {
        Knöpfe[Stelle]->disconnect(this);
        connect(Knöpfe[Stelle], &QPushButton::clicked, this,
                [this, Schritt = Stelle == 0 ? -1 : 1] { Zeigen(Nummer + Schritt); });
    }
    Knöpfe[2]->setDefault(true);
    Knöpfe[2]->setFocus();
    const int Anzahl = static_cast<int>(Tipps().size());
    Zeigen(Erster >= 1 && Erster <= Anzahl ? Erster : 1);
}

void frmTipps::Zeigen(int Neue) {
    const int Anzahl = static_cast<int>(Tipps().size());
    Nummer = Neue < 1 ? Anzahl : Neue > Anzahl ? 1 : Neue;
    lblTipp->setText(QtText(Tipps()[static_cast<std::size_t>(Nummer - 1)]));
    lblNummer->setText(u"Tipp %1 von %2"_s.arg(Nummer).arg(Anzahl));
    // Whoever listens hears the new text at once.
    setAccessibleDescription(lblTipp->text());
}

void frmTipps::done(int Ergebnis) {
    Werte.TippsAktueller = static_cast<std::int16_t>(chkTipps->isChecked() ? Nummer : 0);
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
