#include "ui/qt/frmsicherungskopien.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <system_error>

#include "basis/pfad.h"
#include "basis/zahl.h"
#include "core/indexstatistik.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmSicherungskopien::frmSicherungskopien(Anwendung& Lauf, QWidget* Eltern) : QDialog(Eltern), Programm(Lauf) {
    setObjectName(u"frmSicherungskopien"_s);
    setWindowTitle(u"Sicherungskopie wiederherstellen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("speichern"),
                     u"Welchen Stand Ihrer Indexdatei möchten Sie zurück?"_s,
                     u"Die jetzige Indexdatei bleibt als weitere Sicherungskopie erhalten."_s);
    lstSicherungskopien = new QTreeWidget(this);
    lstSicherungskopien->setObjectName(u"lstSicherungskopien"_s);
    lstSicherungskopien->setAccessibleName(u"Sicherungskopien"_s);
    lstSicherungskopien->setRootIsDecorated(false);
    lstSicherungskopien->setAlternatingRowColors(true);
    lstSicherungskopien->setHeaderLabels({u"Sicherungskopie"_s, u"Dateien"_s, u"Größe"_s});
    lstSicherungskopien->header()->setObjectName(u"lstSicherungskopienSpalten"_s);
    lstSicherungskopien->header()->setStretchLastSection(false);
    lstSicherungskopien->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstSicherungskopien->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstSicherungskopien->setTextElideMode(Qt::ElideMiddle);
    Spalte->addWidget(lstSicherungskopien, 1);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdWiederherstellen"_s, u"&Wiederherstellen..."_s, Accepted},
                                          {u"cmdSchließen"_s, u"&Schließen"_s, Rejected}});
    cmdWiederherstellen = Knöpfe[0];
    // The form stays when nothing was restored.
    cmdWiederherstellen->disconnect();
    cmdWiederherstellen->setDefault(true);
    connect(cmdWiederherstellen, &QPushButton::clicked, this, [this] { cmdWiederherstellen_Click(); });
    connect(lstSicherungskopien, &QTreeWidget::itemSelectionChanged, this,
            [this] { cmdWiederherstellen->setEnabled(!lstSicherungskopien->selectedItems().isEmpty()); });
    connect(lstSicherungskopien, &QTreeWidget::itemDoubleClicked, this,
            [this] { cmdWiederherstellen_Click(); });
    ListeFüllen();
    ZählungStarten();
    FormgrößeSetzen(*this, 138, 22);
    lstSicherungskopien->setFocus();
}

frmSicherungskopien::~frmSicherungskopien() {
    *Lebendig = false;
    if (Zähler.joinable()) Zähler.join();
}

void frmSicherungskopien::ListeFüllen() {
    const auto Gefunden = SicherungskopienAuflisten(Programm);
    Kopien = Gefunden.value_or(std::vector<Sicherungskopie>());
    for (const Sicherungskopie& Kopie : Kopien) {
        auto* const Zeile = new QTreeWidgetItem(
            lstSicherungskopien,
            {QtText(SicherungskopieText(Kopie)), u"..."_s,
             QtText(MaßText(static_cast<std::int64_t>(Kopie.Größe), Statistikmaß::Größe))});
        Zeile->setToolTip(0, QtText(Kopie.Pfad));
        Zeile->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        Zeile->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    if (Kopien.empty()) {
        auto* const Zeile = new QTreeWidgetItem(
            lstSicherungskopien, {Gefunden ? u"Zu dieser Indexdatei gibt es keine Sicherungskopie."_s
                                           : u"Der Ordner der Indexdatei kann nicht gelesen werden."_s});
        Zeile->setFlags(Qt::ItemIsEnabled);
        Zeile->setFirstColumnSpanned(true);
    }
    lstSicherungskopien->setCurrentItem(Kopien.empty() ? nullptr : lstSicherungskopien->topLevelItem(0));
    cmdWiederherstellen->setEnabled(!Kopien.empty());
}

void frmSicherungskopien::ZählungStarten() {
    const auto Zählen = [this, Weiter = Lebendig, Dateien = Kopien] {
        for (std::size_t Zeile = 0; Zeile < Dateien.size() && *Weiter; ++Zeile) {
            const std::int64_t Anzahl = DatensätzeZählen(Dateien[Zeile].Pfad, [&] { return Weiter->load(); });
            // The windows' event loop looks whether the form is still there.
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [this, Weiter, Zeile, Anzahl] {
                    if (*Weiter) AnzahlZeigen(Zeile, Anzahl);
                },
                Qt::QueuedConnection);
        }
    };
    try {
        Zähler = std::thread([Zählen] {
            try {
                Zählen();
            } catch (const std::exception&) {
                // The rest stays uncounted ("..."): a number is not worth the program.
            }
        });
    } catch (const std::system_error&) {
        // The system gives no thread: the copies can be restored all the same.
    }
}

void frmSicherungskopien::AnzahlZeigen(std::size_t Zeile, std::int64_t Anzahl) {
    lstSicherungskopien->topLevelItem(static_cast<int>(Zeile))
        ->setText(1, Anzahl < 0 ? u"keine Indexdatei"_s : QtText(Gruppiert(Anzahl)));
}

void frmSicherungskopien::cmdWiederherstellen_Click() {
    const auto Gewählt = lstSicherungskopien->selectedItems();
    if (Gewählt.isEmpty() || Kopien.empty()) return;
    const auto Zeile = static_cast<std::size_t>(lstSicherungskopien->indexOfTopLevelItem(Gewählt.front()));
    if (SicherungskopieWiederherstellen(Programm, Kopien[Zeile])) accept();
}

}  // namespace liedwerk
