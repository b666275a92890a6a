#include "ui/qt/frmausfuehrenmit.h"

#include <QFileDialog>
#include <QHBoxLayout>

#include "abspielen/abspielen.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmAusführenMit::frmAusführenMit(std::size_t Dateien, std::string_view Vorgabe, Oberfläche& Dialoge,
                                 QWidget* Eltern)
    : QDialog(Eltern), Person(Dialoge) {
    setObjectName(u"frmAusführenMit"_s);
    setWindowTitle(u"Ausführen mit"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("ausfuehren"), u"Mit welchem Programm?"_s,
                     Dateien == 1 ? u"Die gewählte Datei wird mit diesem Programm geöffnet."_s
                                  : u"Die %1 gewählten Dateien werden mit diesem Programm geöffnet, jede "
                                    "für sich."_s.arg(Dateien));
    auto* const lblSuche = new QLabel(u"&Programm:"_s, this);
    txtSuche = new QLineEdit(QtText(Vorgabe), this);
    txtSuche->setObjectName(u"txtSuche"_s);
    txtSuche->setAccessibleName(u"Programm"_s);
    lblSuche->setBuddy(txtSuche);
    auto* const cmdProgrammSuchen = new QPushButton(u"&Suchen..."_s, this);
    cmdProgrammSuchen->setObjectName(u"cmdProgrammSuchen"_s);
    cmdProgrammSuchen->setAutoDefault(false);
    connect(cmdProgrammSuchen, &QPushButton::clicked, this, [this] { cmdProgrammSuchen_Click(); });
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(lblSuche);
    Zeile->addWidget(txtSuche, 1);
    Zeile->addWidget(cmdProgrammSuchen);
    Spalte->addLayout(Zeile);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    txtSuche->selectAll();
    txtSuche->setFocus();
}

void frmAusführenMit::cmdProgrammSuchen_Click() {
    const QString Alle = u"Alle Dateien (*)"_s;
    QString Gewählt = Alle;  // programs of this system have no extension
    const QString Datei = QFileDialog::getOpenFileName(
        this, u"Programm suchen"_s, txtSuche->text().isEmpty() ? u"/usr/bin"_s : txtSuche->text(),
        u"Programme (*.exe);;"_s + Alle, &Gewählt);
    if (!Datei.isEmpty()) txtSuche->setText(Datei);
}

std::string frmAusführenMit::Programm() const {
    return PfadAusQt(txtSuche->text());
}

void frmAusführenMit::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const std::string Meldung = ProgrammPrüfen(Programm());
        if (!Meldung.empty()) return Person.Melden(Symbol::Information, Meldung);
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
