#include "ui/qt/frmsucheerweiterthinzufuegen.h"

#include <QFormLayout>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/suchleiste.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmSucheErweitertHinzufügen::frmSucheErweitertHinzufügen(Suchabfragen& Abfragen, std::size_t Nummer,
                                                         Einstellungen& Einstellwerte, Oberfläche& Dialoge,
                                                         QWidget* Eltern)
    : QDialog(Eltern), Menge(Abfragen), ZuÄndern(Nummer), Werte(Einstellwerte), Person(Dialoge) {
    const bool Neu = ZuÄndern == 0;
    setObjectName(u"frmSucheErweitertHinzufügen"_s);
    setWindowTitle(Neu ? u"Such-Abfrage hinzufügen"_s : u"Such-Abfrage ändern"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("suchen"),
                     Neu ? u"Wonach möchten Sie suchen?"_s : u"Wie soll die Such-Abfrage lauten?"_s, {});

    txtSucheBegriff = new QLineEdit(this);
    txtSucheBegriff->setObjectName(u"txtSucheBegriff"_s);
    txtSucheBegriff->setAccessibleName(u"Suchbegriff"_s);
    txtSucheBegriff->setClearButtonEnabled(true);
    lstSucheArt = new QListWidget(this);
    lstSucheArt->setObjectName(u"lstSucheArt"_s);
    lstSucheArt->setAccessibleName(u"Suchen in"_s);
    lstSucheArt->addItems(Suchfeldnamen());
    lstSucheArt->setCurrentRow(0);
    lstSucheArt->setMinimumHeight(fontMetrics().height() * 9);
    cboSucheMussDarfNicht =
        AuswahlAnlegen(u"cboSucheMussDarfNicht"_s, u"Bedingung"_s,
                       {u"MUSS den Begriff enthalten"_s, u"DARF den Begriff NICHT enthalten"_s});
    cboSucheUndOder =
        AuswahlAnlegen(u"cboSucheUndOder"_s, u"Mehrere Begriffe"_s,
                       {u"UND (alle Begriffe müssen vorkommen)"_s, u"ODER (ein Begriff muss vorkommen)"_s});
    cboSucheWo = AuswahlAnlegen(
        u"cboSucheWo"_s, u"Ort des Begriffs"_s,
        {u"Begriff kann IRGENDWO vorkommen"_s, u"Begriff muss ALS WORT vorkommen"_s,
         u"Muss mit Begriff ANFANGEN"_s, u"Muss mit Begriff ENDEN"_s, u"Muss GLEICH mit dem Begrff sein:"_s,
         u"Muss GRÖßER als der eingegebene Wert sein (nur bei Zahlen)"_s,
         u"Muss KLEINER als der eingegebene Wert sein (nur bei Zahlen)"_s});
    chkBeideTags = new QCheckBox(u"Wenn ein &TAG -Feld nicht vorhanden ist, anderen TAG verwenden"_s, this);
    chkBeideTags->setObjectName(u"chkBeideTags"_s);
    chkHinzu = new QCheckBox(u"Als &weitere Such-Abfrage hinzufügen"_s, this);
    chkHinzu->setObjectName(u"chkHinzu"_s);
    chkHinzu->setChecked(Neu);
    chkHinzu->setVisible(!Neu);
    chkDirektStarten = new QCheckBox(u"Suche &direkt starten"_s, this);
    chkDirektStarten->setObjectName(u"chkDirektStarten"_s);
    chkDirektStarten->setChecked(Werte.SucheDirektStarten == 1);

    auto* const Formular = new QFormLayout;
    Formular->setHorizontalSpacing(14);
    Formular->setVerticalSpacing(9);
    Formular->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Formular->addRow(u"Such&begriff:"_s, txtSucheBegriff);
    Formular->addRow(u"S&uchen in:"_s, lstSucheArt);
    Formular->addRow(u"B&edingung:"_s, cboSucheMussDarfNicht);
    Formular->addRow(u"&Mehrere Begriffe:"_s, cboSucheUndOder);
    Formular->addRow(u"O&rt:"_s, cboSucheWo);
    Formular->addRow(QString(), chkBeideTags);
    Formular->addRow(QString(), chkHinzu);
    Formular->addRow(QString(), chkDirektStarten);
    Formular->setRowVisible(chkHinzu, !Neu);
    Spalte->addLayout(Formular, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    if (!Neu && ZuÄndern <= Menge.SucheAnzahl()) AbfrageZeigen(Menge.Liste[ZuÄndern - 1]);
    txtSucheBegriff->setFocus();
}

QComboBox* frmSucheErweitertHinzufügen::AuswahlAnlegen(const QString& Name, const QString& Hörname,
                                                       const QStringList& Einträge) {
    auto* const Kombi = new QComboBox(this);
    Kombi->setObjectName(Name);
    Kombi->setAccessibleName(Hörname);
    Kombi->addItems(Einträge);
    return Kombi;
}

void frmSucheErweitertHinzufügen::AbfrageZeigen(const Suchabfrage& Abfrage) {
    txtSucheBegriff->setText(QtText(Abfrage.Begriff));
    txtSucheBegriff->selectAll();
    if (const auto Fund = lstSucheArt->findItems(QtText(Abfrage.Feld), Qt::MatchExactly); !Fund.isEmpty()) {
        lstSucheArt->setCurrentItem(Fund.front());
        lstSucheArt->scrollToItem(Fund.front(), QAbstractItemView::PositionAtCenter);
    }
    const Suchcode Code = SuchcodeLesen(Abfrage.Code);
    cboSucheMussDarfNicht->setCurrentIndex(Code.MussDarfNicht);
    cboSucheUndOder->setCurrentIndex(Code.UndOder);
    cboSucheWo->setCurrentIndex(Code.Wo);
    chkBeideTags->setChecked(Code.BeideTags == 1);
}

bool frmSucheErweitertHinzufügen::Übernehmen() {
    const std::string Begriff = Utf8Text(txtSucheBegriff->text());
    const QListWidgetItem* const Art = lstSucheArt->currentItem();
    const std::string Feld = Art == nullptr ? std::string() : Utf8Text(Art->text());
    const std::string Code =
        SuchcodeBilden({cboSucheMussDarfNicht->currentIndex(), cboSucheUndOder->currentIndex(),
                        cboSucheWo->currentIndex(), chkBeideTags->isChecked() ? 1 : 0});
    const bool Hinzu = chkHinzu->isChecked();
    if (Hinzu ? SucheHinzufügen(Menge, Begriff, Feld, Code)
              : SucheSetzen(Menge, ZuÄndern, Begriff, Feld, Code)) {
        return true;
    }
    Person.Melden(Symbol::Ausrufezeichen, Hinzu ? "Die Such-Abfrage konnte nicht gespeichert werden."
                                                : "Die Such-Abfrage konnte nicht geändert werden.");
    return false;
}

void frmSucheErweitertHinzufügen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        if (!Übernehmen()) return;
        Werte.SucheDirektStarten = chkDirektStarten->isChecked() ? 1 : 0;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
