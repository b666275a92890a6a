#include "ui/qt/frmtaglieblingsgenre.h"

#include <QLabel>

#include "index/genres.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTagLieblingsGenre::frmTagLieblingsGenre(Einstellungen& Einstellwerte, Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Werte(Einstellwerte), Person(Dialoge) {
    setObjectName(u"frmTagLieblingsGenre"_s);
    setWindowTitle(u"Lieblings-Genres"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("tag"), u"Welche Genres verwenden Sie am liebsten?"_s,
                     u"Diese stehen in den Genre-Listen des TAG-Editors ganz oben."_s);
    SucheAnlegen(*Spalte);
    auto* const lblLieblinge = new QLabel(u"&Lieblings-Genres:"_s, this);
    Spalte->addWidget(lblLieblinge);
    Lieblinge = new Zeilenliste(u"lstLieblingsGenre"_s, u"Lieblings-Genres"_s, this);
    lblLieblinge->setBuddy(Lieblinge);
    if (Werte.GenreBevorzugteLeer == 0) Lieblinge->ZeilenSetzen(Werte.GenreBevorzugte);
    Lieblinge->KnopfHinzufügen(u"cmdHinzufügen"_s, u"&Hinzufügen"_s, false, [this] {
        if (!Aufnehmen()) Person.Melden(Symbol::Information, "Bitte geben Sie einen Text ein.");
        txtSucheBegriff->setFocus();
    });
    Lieblinge->OrdnungsknöpfeHinzufügen();
    Spalte->addWidget(Lieblinge, 1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    txtSucheBegriff->setFocus();
}

void frmTagLieblingsGenre::SucheAnlegen(QVBoxLayout& Spalte) {
    auto* const lblSuche = new QLabel(u"&Genre:"_s, this);
    Spalte.addWidget(lblSuche);
    txtSucheBegriff = new QLineEdit(this);
    txtSucheBegriff->setObjectName(u"txtSucheBegriff"_s);
    txtSucheBegriff->setAccessibleName(u"Genre"_s);
    txtSucheBegriff->setPlaceholderText(u"Namen eingeben oder aus der Liste wählen"_s);
    txtSucheBegriff->setClearButtonEnabled(true);
    lblSuche->setBuddy(txtSucheBegriff);
    Spalte.addWidget(txtSucheBegriff);
    lstSucheAuswahl = new QListWidget(this);
    lstSucheAuswahl->setObjectName(u"lstSucheAuswahl"_s);
    lstSucheAuswahl->setAccessibleName(u"Alle Genres"_s);
    lstSucheAuswahl->setMinimumHeight(fontMetrics().height() * 7);
    for (const std::string_view Name : GenreListe)
        lstSucheAuswahl->addItem(QtText(Name));
    lstSucheAuswahl->sortItems();
    Spalte.addWidget(lstSucheAuswahl, 1);
    connect(txtSucheBegriff, &QLineEdit::textEdited, this, [this] { AuswahlEinengen(); });
    connect(lstSucheAuswahl, &QListWidget::currentTextChanged, txtSucheBegriff, &QLineEdit::setText);
    connect(lstSucheAuswahl, &QListWidget::itemDoubleClicked, this, [this] { Aufnehmen(); });
}

void frmTagLieblingsGenre::AuswahlEinengen() {
    const QString Begriff = txtSucheBegriff->text().trimmed();
    const QSignalBlocker Still(lstSucheAuswahl);
    lstSucheAuswahl->setCurrentRow(-1);
    for (int Zeile = 0; Zeile < lstSucheAuswahl->count(); ++Zeile) {
        QListWidgetItem* const Genre = lstSucheAuswahl->item(Zeile);
        Genre->setHidden(!Genre->text().contains(Begriff, Qt::CaseInsensitive));
    }
}

// Takes the entered name into the list; false when there is none.
bool frmTagLieblingsGenre::Aufnehmen() {
    const QString Name = txtSucheBegriff->text().trimmed();
    if (Name.isEmpty()) return false;
    // A name of the list in its own spelling.
    const auto Nummer = GenreNummer(Utf8Text(Name));
    Lieblinge->Hinzufügen(Nummer ? QtText(GenreListe[*Nummer]) : Name);
    txtSucheBegriff->clear();
    AuswahlEinengen();
    return true;
}

void frmTagLieblingsGenre::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const std::vector<std::string> Bisher =
            Werte.GenreBevorzugteLeer == 0 ? Werte.GenreBevorzugte : std::vector<std::string>();
        if (!Aufnehmen() && Lieblinge->Zeilen() == Bisher)
            return Person.Melden(Symbol::Information, "Bitte geben Sie einen Text ein.");
        Werte.GenreBevorzugte = Lieblinge->Zeilen();
        Werte.GenreBevorzugteLeer = Werte.GenreBevorzugte.empty() ? 1 : 0;
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
