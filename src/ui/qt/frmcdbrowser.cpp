#include "ui/qt/frmcdbrowser.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <functional>

#include "ui/qt/formkopf.h"
#include "ui/qt/frmcddaten.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

enum Spalten { SpalteCD, SpalteID, SpalteDatei };

}  // namespace

frmCDBrowser::frmCDBrowser(Anwendung& Lauf, QWidget* Eltern) : QDialog(Eltern), Programm(Lauf) {
    setObjectName(u"frmCDBrowser"_s);
    setWindowTitle(u"Lokale CD-Datenbanken"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("cd"), u"Lokale CD-Datenbanken"_s,
                     u"Die CDs, deren Daten Sie eingegeben oder abgefragt haben."_s);
    lstCDs = new QTreeWidget(this);
    lstCDs->setObjectName(u"lstCDs"_s);
    lstCDs->setAccessibleName(u"Lokale CD-Datenbanken"_s);
    lstCDs->setHeaderLabels({u"CD"_s, u"Kennung"_s, u"Datei"_s});
    lstCDs->setRootIsDecorated(false);
    lstCDs->setAllColumnsShowFocus(true);
    lstCDs->setUniformRowHeights(true);
    lstCDs->setMinimumSize(fontMetrics().averageCharWidth() * 96, fontMetrics().height() * 16);
    Spalte->addWidget(lstCDs, 1);
    lblAnzahl = TextHinzufügen(*Spalte, u"lblAnzahl"_s, {});

    auto* const Zeile = new QHBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text, const std::function<void()>& Handler) {
        auto* const Neu = new QPushButton(Text, this);
        Neu->setObjectName(Name);
        Neu->setAutoDefault(false);
        connect(Neu, &QPushButton::clicked, this, Handler);
        Zeile->addWidget(Neu);
    };
    Knopf(u"cmdÄndern"_s, u"Ä&ndern..."_s, [this] { cmdÄndern_Click(); });
    Knopf(u"cmdLöschen"_s, u"&Löschen"_s, [this] { cmdLöschen_Click(); });
    Knopf(u"cmdAktualisieren"_s, u"&Aktualisieren"_s, [this] { ListeFüllen(GewählteID()); });
    Zeile->addStretch(1);
    Spalte->addLayout(Zeile);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Accepted}})[0]->setAutoDefault(false);
    connect(lstCDs, &QTreeWidget::itemActivated, this, [this] { cmdÄndern_Click(); });
    ListeFüllen({});
    lstCDs->setFocus();
}

void frmCDBrowser::ListeFüllen(const std::string& ID) {
    lstCDs->clear();
    for (const CDEintrag& Einer : CDDBCDsSuchen(CDUmgebungVon(Programm).Speicher, &Programm.Dienst.Person)) {
        auto* const Zeile =
            new QTreeWidgetItem(lstCDs, {QtText(CDZeilentext(Einer)), QtText(Einer.ID), QtText(Einer.Datei)});
        if (Einer.ID == ID) lstCDs->setCurrentItem(Zeile);
    }
    if (lstCDs->currentItem() == nullptr) lstCDs->setCurrentItem(lstCDs->topLevelItem(0));
    lstCDs->sortItems(SpalteCD, Qt::AscendingOrder);
    for (const int Nummer : {SpalteCD, SpalteID})
        lstCDs->resizeColumnToContents(Nummer);
    lblAnzahl->setText(u"%1 CD(s) gespeichert"_s.arg(lstCDs->topLevelItemCount()));
}

// The keys that the list leaves alone.
void frmCDBrowser::keyPressEvent(QKeyEvent* Ereignis) {
    if (Ereignis->matches(QKeySequence::Delete)) {
        cmdLöschen_Click();
    } else if (Ereignis->matches(QKeySequence::Refresh)) {
        ListeFüllen(GewählteID());
    } else {
        QDialog::keyPressEvent(Ereignis);
    }
}

std::string frmCDBrowser::GewählteID() const {
    const QList<QTreeWidgetItem*> Zeilen = lstCDs->selectedItems();
    return Zeilen.isEmpty() ? std::string() : Utf8Text(Zeilen.front()->text(SpalteID));
}

std::string frmCDBrowser::GewählteIDOderMeldung() {
    std::string ID = GewählteID();
    if (ID.empty()) Programm.Dienst.Person.Melden(Symbol::Information, "Bitte wählen Sie eine Datei.");
    return ID;
}

void frmCDBrowser::cmdÄndern_Click() {
    const std::string ID = GewählteIDOderMeldung();
    if (!ID.empty() && CDAusSpeicherÄndern(Programm, ID, this)) ListeFüllen(ID);
}

void frmCDBrowser::cmdLöschen_Click() {
    const std::string ID = GewählteIDOderMeldung();
    if (ID.empty()) return;
    const CDSpeicherumgebung Speicher = CDUmgebungVon(Programm).Speicher;
    const std::string Datei = CDDatei(Speicher, ID);
    Oberfläche& Person = Programm.Dienst.Person;
    if (Person.JaNein(Symbol::Frage, "Möchten Sie die Datei '" + Datei + "' tatsächlich löschen?") !=
        Antwort::Ja)
        return;
    if (!CDDBCDLöschen(Programm.CD, Speicher, ID))
        Person.Melden(Symbol::Ausrufezeichen,
                      "Die Datei '" + Datei + "' konnte aufgrund eines Fehlers nicht gelöscht werden.");
    ListeFüllen({});
}

}  // namespace liedwerk
