#include "ui/qt/frmsucheerweiterthinzufuegenneu.h"

#include <QHeaderView>

#include "suche/wertebaum.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/symbole.h"
#include "ui/qt/wertebaummodell.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmSucheErweitertHinzufügenNeu::frmSucheErweitertHinzufügenNeu(const Katalog& Index, Suchpuffer& Puffer,
                                                               Suchabfragen& Abfragen, bool AlsWort,
                                                               Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Menge(Abfragen), NeueAlsWort(AlsWort), Person(Dialoge) {
    setObjectName(u"frmSucheErweitertHinzufügenNeu"_s);
    setWindowTitle(u"Einfache Suche hinzufügen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("suche-mehr"), u"Welche Werte suchen Sie?"_s,
                     u"Öffnen Sie ein Feld und wählen Sie einen seiner Werte; darunter stehen die Felder, "
                     "mit denen Sie die Auswahl weiter eingrenzen."_s);
    treListe = new QTreeView(this);
    treListe->setObjectName(u"treListe"_s);
    treListe->setAccessibleName(u"Felder und Werte"_s);
    auto* const Werte = new Wertebaummodell(Index, Puffer, Person, treListe);
    treListe->setModel(Werte);
    connect(treListe, &QTreeView::expanded, this, [this, Werte](const QModelIndex& Zelle) {
        if (!Werte->Öffnen(Zelle)) treListe->collapse(Zelle);
    });
    treListe->setHeaderHidden(true);
    treListe->header()->setObjectName(u"treListeSpalten"_s);
    treListe->setUniformRowHeights(true);
    // A double click opens a node; it does not choose it.
    treListe->setEditTriggers(QAbstractItemView::NoEditTriggers);
    treListe->setMinimumSize(fontMetrics().averageCharWidth() * 70, fontMetrics().height() * 20);
    treListe->setCurrentIndex(treListe->model()->index(0, 0));
    Spalte->addWidget(treListe, 1);
    KnöpfeHinzufügen(*Spalte, *this,
                     {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"&Abbrechen"_s, Rejected}})[0]
        ->setDefault(true);
    treListe->setFocus();
}

void frmSucheErweitertHinzufügenNeu::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        const auto Pfad = static_cast<Wertebaummodell*>(treListe->model())->Pfad(treListe->currentIndex());
        const std::string Fehler = WertebaumÜbernehmen(Menge, Pfad, NeueAlsWort);
        if (!Fehler.empty()) return Person.Melden(Symbol::Ausrufezeichen, Fehler);
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
