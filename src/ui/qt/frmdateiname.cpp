#include "ui/qt/frmdateiname.h"

#include <QFormLayout>

#include "basis/pfad.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmDateiname::frmDateiname(std::string_view Vorgang, const std::string& AlterName, QWidget* Eltern)
    : QDialog(Eltern), Alter(AlterName) {
    setObjectName(u"frmDateiname"_s);
    setWindowTitle(u"Umbenennen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("umbenennen"), QtText(Vorgang), {});
    auto* const Formular = new QFormLayout;
    Formular->setHorizontalSpacing(14);
    Formular->setVerticalSpacing(9);
    const auto Feld = [&](const QString& Name, const QString& Frage) {
        auto* const Neues = new QLineEdit(QtText(Alter), this);
        Neues->setObjectName(Name);
        Neues->setAccessibleName(QString(Frage).remove(u'&').remove(u':'));
        Neues->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
        auto* const lblFrage = new QLabel(Frage, this);
        lblFrage->setBuddy(Neues);
        Formular->addRow(lblFrage, Neues);
        return Neues;
    };
    txtAlter = Feld(u"txtAlter"_s, u"A&lter Name:"_s);
    txtAlter->setReadOnly(true);
    txtAlter->setFocusPolicy(Qt::ClickFocus);
    txtNeuer = Feld(u"txtNeuer"_s, u"&Neuer Name:"_s);
    Spalte->addLayout(Formular);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    txtNeuer->setFocus();
    // What is mostly changed is the name itself, not its folder and extension.
    const auto Stamm = QtText(DateiOhneEndung(Alter)).size();
    const auto Name = QtText(DateinameVon(Alter)).size();
    const auto Anfang = txtNeuer->text().size() - Name;
    txtNeuer->setSelection(static_cast<int>(Anfang), static_cast<int>(Stamm - Anfang));
}

std::optional<std::string> frmDateiname::Erfragen() {
    if (exec() != Accepted) return std::nullopt;
    // A name that cannot be shown as text comes back as it was.
    if (txtNeuer->text() == txtAlter->text()) return Alter;
    return PfadAusQt(txtNeuer->text());
}

}  // namespace liedwerk
