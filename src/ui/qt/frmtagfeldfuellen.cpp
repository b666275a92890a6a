#include "ui/qt/frmtagfeldfuellen.h"

#include <QLabel>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTagFeldFüllen::frmTagFeldFüllen(const Datensatz& Aktueller, const Funktionsauswahl& Auswahl,
                                   Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Satz(Aktueller), Wohin(Auswahl), Person(Dialoge) {
    setObjectName(u"frmTagFeldFüllen"_s);
    setWindowTitle(u"Felder kopieren"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("tag"), u"Welches Feld soll gefüllt werden?"_s,
                     u"Der Text kommt in dieses Feld. Auswahl: '%1'."_s.arg(QtText(Wohin.Name)));
    auto* const lblFelder = new QLabel(u"&Feld:"_s, this);
    Spalte->addWidget(lblFelder);
    lstFelder = new QListWidget(this);
    lstFelder->setObjectName(u"lstFelder"_s);
    lstFelder->setAccessibleName(u"Feld"_s);
    lblFelder->setBuddy(lstFelder);
    for (const Grundfeld& Feld : Grundfelder)
        lstFelder->addItem(QtText(Feld.Name));
    lstFelder->setFixedHeight(lstFelder->sizeHintForRow(0) * static_cast<int>(Grundfelder.size()) +
                              2 * lstFelder->frameWidth() + 4);
    Spalte->addWidget(lstFelder);

    Spalte->addWidget(new QLabel(u"Text:"_s, this));
    const auto Wahl = [&](const QString& Name, const QString& Text) {
        auto* const Knopf = new QRadioButton(Text, this);
        Knopf->setObjectName(Name);
        Spalte->addWidget(Knopf);
        return Knopf;
    };
    optId3v1 = Wahl(u"optId3v1"_s, {});
    optId3v2 = Wahl(u"optId3v2"_s, {});
    optEigener = Wahl(u"optEigener"_s, u"&Eigener Text:"_s);
    txtText = new QLineEdit(this);
    txtText->setObjectName(u"txtText"_s);
    txtText->setAccessibleName(u"Eigener Text"_s);
    Spalte->addWidget(txtText);
    connect(txtText, &QLineEdit::textEdited, this, [this] { optEigener->setChecked(true); });
    connect(optEigener, &QRadioButton::clicked, this, [this] { txtText->setFocus(); });
    connect(lstFelder, &QListWidget::currentRowChanged, this, [this] { WerteZeigen(); });
    Spalte->addStretch(1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"A&bbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    lstFelder->setCurrentRow(0);
    (Wohin.Id3v1 && !Wohin.Id3v2 ? optId3v1 : optId3v2)->setChecked(true);
    lstFelder->setFocus();
}

void frmTagFeldFüllen::WerteZeigen() {
    const Grundfeld& Feld = Grundfelder[static_cast<std::size_t>(lstFelder->currentRow())];
    const auto Zeigen = [&](QRadioButton& Knopf, const QString& Tag, Tagblock Block) {
        const QString Wert = QtText(GrundfeldLesen(Satz, Feld, Block));
        const QString Gekürzt =
            fontMetrics().elidedText(Wert, Qt::ElideRight, fontMetrics().averageCharWidth() * 60);
        // An "&" of the value is no key.
        Knopf.setText(u"%1: '%2'"_s.arg(Tag, QString(Gekürzt).replace(u"&"_s, u"&&"_s)));
        Knopf.setToolTip(Wert);
    };
    Zeigen(*optId3v1, u"ID3v&1"_s, Tagblock::Id3v1);
    Zeigen(*optId3v2, u"ID3v&2"_s, Tagblock::Id3v2);
}

Feldvorgabe frmTagFeldFüllen::Vorgabe() const {
    const Grundfeld& Feld = Grundfelder[static_cast<std::size_t>(lstFelder->currentRow())];
    if (optEigener->isChecked()) return {&Feld, Utf8Text(txtText->text())};
    return {&Feld, GrundfeldLesen(Satz, Feld, optId3v1->isChecked() ? Tagblock::Id3v1 : Tagblock::Id3v2)};
}

void frmTagFeldFüllen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const std::string Meldung = FeldvorgabePrüfen(Vorgabe(), Wohin);
        if (!Meldung.empty()) {
            Person.Melden(Symbol::Information, Meldung);
            // ID3v2 takes it all the same.
            if (!Wohin.Id3v2) return;
        }
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
