#include "ui/qt/frmwillkommen.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QStandardPaths>

#include "basis/datei.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// The desktop's folder for music, where it is one of its own and not the whole home.
QString Musikordner() {
    const QString Pfad = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QDir(Pfad).exists() && QDir(Pfad) != QDir::home() ? Pfad : QString();
}

}  // namespace

frmWillkommen::frmWillkommen(Anwendung& Lauf, QWidget* Eltern) : QDialog(Eltern), Programm(Lauf) {
    setObjectName(u"frmWillkommen"_s);
    setWindowTitle(u"Willkommen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Programmsymbol(), u"Willkommen zum "_s + QtText(ProgrammnameMitVersion()),
                     u"Ihre Sammlung in einer Liste, die Sie in Sekunden durchsuchen."_s);
    auto* const lblOrdner = new QLabel(u"&In welchem Ordner liegt Ihre Musik?"_s, this);
    txtOrdner = new QLineEdit(Musikordner(), this);
    txtOrdner->setObjectName(u"txtOrdner"_s);
    lblOrdner->setBuddy(txtOrdner);
    auto* const cmdDurchsuchen = new QPushButton(u"&Durchsuchen..."_s, this);
    cmdDurchsuchen->setObjectName(u"cmdDurchsuchen"_s);
    cmdDurchsuchen->setAutoDefault(false);
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(txtOrdner, 1);
    Zeile->addWidget(cmdDurchsuchen);
    auto* const Frage = new QVBoxLayout;
    Frage->setSpacing(4);
    Frage->addWidget(lblOrdner);
    Frage->addLayout(Zeile);
    TextHinzufügen(*Frage, u"lblOrdnerText"_s,
                   u"Ihre Dateien bleiben, wo und wie sie sind. Weitere Ordner können Sie jederzeit "
                   "hinzufügen."_s);
    Spalte->addSpacing(4);
    Spalte->addLayout(Frage);
    chkTagsModern = new QCheckBox(u"&TAGs lesen und schreiben, wie es heutige Programme tun"_s, this);
    chkTagsModern->setObjectName(u"chkTagsModern"_s);
    chkTagsModern->setChecked(Programm.Werte.TAGsModern == 1);
    auto* const Wahl = new QVBoxLayout;
    Wahl->setSpacing(4);
    Wahl->addWidget(chkTagsModern);
    QLabel* const lblModern =
        TextHinzufügen(*Wahl, u"lblTagsModern"_s,
                       u"Bilder, Sonderzeichen und unbekannte Angaben in Ihren Dateien bleiben damit "
                       "erhalten, wenn Sie TAGs ändern. In den Optionen lässt es sich später umstellen."_s);
    chkTagsModern->setAccessibleDescription(lblModern->text());
    Spalte->addSpacing(6);
    Spalte->addLayout(Wahl);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdOrdnerHinzufügen"_s, u"&Ordner hinzufügen"_s, Rejected},
                                          {u"cmdOk"_s, u"&Später"_s, Rejected}});
    for (QPushButton* const Knopf : Knöpfe)
        Knopf->disconnect(this);
    Knöpfe[0]->setDefault(true);
    Knöpfe[0]->setEnabled(!txtOrdner->text().isEmpty());
    connect(txtOrdner, &QLineEdit::textChanged, Knöpfe[0],
            [Knopf = Knöpfe[0]](const QString& Text) { Knopf->setEnabled(!Text.isEmpty()); });
    connect(Knöpfe[0], &QPushButton::clicked, this, [this] { cmdOrdnerHinzufügen_Click(); });
    connect(Knöpfe[1], &QPushButton::clicked, this, [this] { WahlÜbernehmen(); });
    connect(cmdDurchsuchen, &QPushButton::clicked, this, [this] { cmdDurchsuchen_Click(); });
}

void frmWillkommen::cmdDurchsuchen_Click() {
    const QString Pfad = QFileDialog::getExistingDirectory(this, u"Musikordner wählen"_s, txtOrdner->text());
    if (!Pfad.isEmpty()) txtOrdner->setText(Pfad);
}

void frmWillkommen::cmdOrdnerHinzufügen_Click() {
    const std::string Pfad = PfadAusQt(txtOrdner->text());
    if (!OrdnerExistiert(Pfad)) {
        Programm.Dienst.Person.Melden(Symbol::Information,
                                      "Der Ordner '" + Pfad +
                                          "' wurde nicht gefunden.\nBitte wählen Sie einen "
                                          "Ordner, den es gibt, oder \"Später\".");
        txtOrdner->setFocus();
        return;
    }
    Gewählt = Pfad;
    WahlÜbernehmen();
}

void frmWillkommen::WahlÜbernehmen() {
    Programm.Werte.TAGsModern = chkTagsModern->isChecked() ? 1 : 0;
    accept();
}

}  // namespace liedwerk
