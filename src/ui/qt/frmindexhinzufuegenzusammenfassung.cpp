#include "ui/qt/frmindexhinzufuegenzusammenfassung.h"

#include <QAbstractTableModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <algorithm>

#include "basis/pfad.h"
#include "basis/text.h"
#include "core/listenlauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/frmindexhinzufuegen.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

// The rows as they stand in the findings; a list may have hundreds of thousands.
class Fundmodell final : public QAbstractTableModel {
  public:
    explicit Fundmodell(const Namensfunde& Quelle) : Funde(Quelle) {}
    void Erneuern() {
        beginResetModel();
        endResetModel();
    }
    int rowCount(const QModelIndex& Eltern) const override {
        return Eltern.isValid() ? 0 : static_cast<int>(Funde.Zeilen.size());
    }
    int columnCount(const QModelIndex&) const override { return 2; }
    QVariant headerData(int Spalte, Qt::Orientation Richtung, int Rolle) const override {
        if (Richtung != Qt::Horizontal || Rolle != Qt::DisplayRole) return {};
        return Spalte == 0 ? u"Dateiname"_s : u"Existiert"_s;
    }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override {
        const Namensfund& Zeile = Funde.Zeilen[static_cast<std::size_t>(Zelle.row())];
        if (Rolle == Qt::ToolTipRole) return QtText(Zeile.Pfad);
        if (Rolle != Qt::DisplayRole) return {};
        if (Zelle.column() == 0) return QtText(Zeile.Pfad);
        return Zeile.Existiert ? u"Ja"_s : u"Nein"_s;
    }

  private:
    const Namensfunde& Funde;
};

frmIndexHinzufügenZusammenfassung::frmIndexHinzufügenZusammenfassung(Anwendung& Lauf, Namensfunde& Gefundene,
                                                                     QWidget* Eltern)
    : QDialog(Eltern), Programm(Lauf), Funde(Gefundene), Modell(std::make_unique<Fundmodell>(Gefundene)) {
    setObjectName(u"frmIndexHinzufügenZusammenfassung"_s);
    setWindowTitle(u"Dateinamen gefunden"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("dateinamen"), u"Diese Dateinamen wurden gefunden."_s,
                     Funde.Quelle.empty() ? u"In der Zwischenablage"_s : QtText(DateinameVon(Funde.Quelle)));
    lstDateinamen = new QTreeView(this);
    lstDateinamen->header()->setObjectName(u"lstDateinamenSpalten"_s);
    lstDateinamen->setObjectName(u"lstDateinamen"_s);
    lstDateinamen->setAccessibleName(u"Gefundene Dateinamen"_s);
    lstDateinamen->setModel(Modell.get());
    lstDateinamen->setRootIsDecorated(false);
    lstDateinamen->setUniformRowHeights(true);
    lstDateinamen->setAlternatingRowColors(true);
    // The end of a path tells more than its beginning.
    lstDateinamen->setTextElideMode(Qt::ElideLeft);
    lstDateinamen->setMinimumSize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 16);
    lstDateinamen->header()->setStretchLastSection(false);
    lstDateinamen->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstDateinamen->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    Spalte->addWidget(lstDateinamen, 1);
    lblAnzahl = TextHinzufügen(*Spalte, u"lblAnzahl"_s, {});
    auto* const Werkzeuge = new QHBoxLayout;
    const auto Knopf = [&](const QString& Name, const QString& Text, auto Handler) {
        auto* const Einer = new QPushButton(Text, this);
        Einer->setObjectName(Name);
        Einer->setAutoDefault(false);
        Einer->setMinimumHeight(Einer->fontMetrics().height() + 14);
        connect(Einer, &QPushButton::clicked, this, Handler);
        Werkzeuge->addWidget(Einer);
    };
    Knopf(u"cmdSuchen"_s, u"&Nicht gefundene Dateien suchen..."_s, [this] { cmdSuchen_Click(); });
    Knopf(u"cmdExportieren"_s, u"In die &Zwischenablage kopieren"_s, [this] { cmdExportieren_Click(); });
    Werkzeuge->addStretch(1);
    Spalte->addLayout(Werkzeuge);
    chkZusammenfassungZeigen = new QCheckBox(u"Dieses &Fenster wieder zeigen"_s, this);
    chkZusammenfassungZeigen->setObjectName(u"chkZusammenfassungZeigen"_s);
    chkZusammenfassungZeigen->setChecked(Programm.Werte.HinzufügenZusammenfassungZeigen == 1);
    Spalte->addWidget(chkZusammenfassungZeigen);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this,
        {{u"cmdOk"_s, u"&Hinzufügen"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    Knöpfe[0]->setFocus();
    AnzahlZeigen();
}

frmIndexHinzufügenZusammenfassung::~frmIndexHinzufügenZusammenfassung() = default;

void frmIndexHinzufügenZusammenfassung::AnzahlZeigen() {
    const auto Fehlend = std::count_if(Funde.Zeilen.begin(), Funde.Zeilen.end(),
                                       [](const Namensfund& Zeile) { return !Zeile.Existiert; });
    QStringList Teile = {
        u"%1 Dateiname(n), davon %2 nicht gefunden."_s.arg(Funde.Zeilen.size()).arg(Fehlend)};
    if (Funde.Ströme > 0) Teile += u"%1 Internet-Adresse(n) wurden übergangen."_s.arg(Funde.Ströme);
    if (Funde.ZuLang > 0) Teile += u"%1 unlesbare Zeile(n) wurden übergangen."_s.arg(Funde.ZuLang);
    if (Funde.Gekürzt) Teile += u"Die Liste ist zu lang; nur ihr Anfang wurde gelesen."_s;
    lblAnzahl->setText(Teile.join(u' '));
    findChild<QPushButton*>(u"cmdSuchen"_s)->setEnabled(Fehlend > 0);
}

void frmIndexHinzufügenZusammenfassung::cmdSuchen_Click() {
    const std::string Ordner = OrdnerWählen(
        this,
        u"Bitte wählen Sie einen Ordner, ahand deren Dateien die Dateienamen korrigiert werden sollen...."_s);
    if (Ordner.empty() || !NichtGefundeneSuchen(Programm, Ordner, Funde)) return;
    Modell->Erneuern();
    AnzahlZeigen();
}

void frmIndexHinzufügenZusammenfassung::cmdExportieren_Click() {
    std::vector<std::string> Pfade;
    for (const Namensfund& Zeile : Funde.Zeilen)
        Pfade.push_back(Zeile.Pfad);
    QGuiApplication::clipboard()->setText(QtText(Verbinden(Pfade, "\r\n")));
    Programm.Dienst.Person.Melden(Symbol::Information,
                                  "Alle Dateinamen wurden in die Zwischenablage kopiert.");
}

void frmIndexHinzufügenZusammenfassung::done(int Ergebnis) {
    Programm.Werte.HinzufügenZusammenfassungZeigen = chkZusammenfassungZeigen->isChecked() ? 1 : 0;
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
