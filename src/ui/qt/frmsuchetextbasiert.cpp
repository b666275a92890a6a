#include "ui/qt/frmsuchetextbasiert.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <algorithm>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

class Resultatmodell final : public QAbstractTableModel {
  public:
    explicit Resultatmodell(const std::vector<Mehrfachresultat>& Liste) : Resultate(Liste) {}
    // Around a change of the results.
    void Beginnen() { beginResetModel(); }
    void Beenden() { endResetModel(); }

    int rowCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() ? 0 : static_cast<int>(Resultate.size());
    }
    int columnCount(const QModelIndex& = {}) const override { return 2; }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override {
        if (Rolle != Qt::DisplayRole) return {};
        const Mehrfachresultat& Zeile = Resultate[static_cast<std::size_t>(Zelle.row())];
        return QtText(Zelle.column() == 0 ? Zeile.Abfrage : Zeile.Resultat);
    }
    QVariant headerData(int Spalte, Qt::Orientation Richtung, int Rolle) const override {
        if (Richtung != Qt::Horizontal || Rolle != Qt::DisplayRole) return {};
        return Spalte == 0 ? u"Abfrage"_s : u"Resultate"_s;
    }

  private:
    const std::vector<Mehrfachresultat>& Resultate;
};

class Detailmodell final : public QAbstractTableModel {
  public:
    explicit Detailmodell(const Katalog& Datensätze) : Index(Datensätze) {}
    Satznummer NummerVon(int Zeile) const { return (*Gezeigte)[static_cast<std::size_t>(Zeile)]; }
    // The files of a result; null for none.
    void Zeigen(const std::vector<Satznummer>* Nummern) {
        beginResetModel();
        Gezeigte = Nummern;
        endResetModel();
    }

    int rowCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() || Gezeigte == nullptr ? 0 : static_cast<int>(Gezeigte->size());
    }
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override {
        if (Rolle != Qt::DisplayRole && Rolle != Qt::DecorationRole) return {};
        const std::string Pfad = Index.Sätze.Pfad(NummerVon(Zelle.row()));
        if (Rolle == Qt::DecorationRole) return DateisymbolVon(Pfad).Bild;
        return QtText(Pfad);
    }
    QVariant headerData(int, Qt::Orientation Richtung, int Rolle) const override {
        return Richtung == Qt::Horizontal && Rolle == Qt::DisplayRole ? QVariant(u"Datei"_s) : QVariant();
    }

  private:
    const Katalog& Index;
    const std::vector<Satznummer>* Gezeigte = nullptr;
};

namespace {

QTreeView* ListeAnlegen(const QString& Name, const QString& Hörname, QAbstractItemModel& Modell) {
    auto* const Liste = new QTreeView;
    Liste->setObjectName(Name);
    Liste->setAccessibleName(Hörname);
    Liste->setModel(&Modell);
    Liste->setRootIsDecorated(false);
    Liste->setUniformRowHeights(true);
    Liste->setAllColumnsShowFocus(true);
    Liste->setAlternatingRowColors(true);
    Liste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Liste->header()->setObjectName(Name + u"Spalten"_s);
    Liste->header()->setAccessibleName(u"Spaltenköpfe"_s);
    return Liste;
}

}  // namespace

frmSucheTextbasiert::frmSucheTextbasiert(const Katalog& Datensätze, Suchpuffer& Texte, Oberfläche& Dialoge,
                                         QWidget* Eltern)
    : QDialog(Eltern),
      Index(Datensätze),
      Puffer(Texte),
      Person(Dialoge),
      Zeilen(std::make_unique<Resultatmodell>(Resultate)),
      Details(std::make_unique<Detailmodell>(Index)) {
    setObjectName(u"frmSucheTextbasiert"_s);
    setWindowTitle(u"Mehrfachsuche"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("suche-mehr"), u"Viele Suchen auf einmal"_s,
                     u"Fügen Sie eine Liste ein, zum Beispiel die Titel einer CD: Jede Zeile ist eine "
                     "Such-Abfrage."_s);
    Seiten = new QStackedWidget(this);
    Seiten->addWidget(EingabeAnlegen());
    Seiten->addWidget(ResultateAnlegen());
    Seiten->setMinimumSize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 22);
    Spalte->addWidget(Seiten, 1);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Rejected}})[0]->setAutoDefault(false);
    txtAbfragen->setFocus();
}

frmSucheTextbasiert::~frmSucheTextbasiert() {
    // The lists go before what they show.
    delete Seiten;
}

QPushButton* frmSucheTextbasiert::KnopfAnlegen(const QString& Name, const QString& Text,
                                               void (frmSucheTextbasiert::*Handler)()) {
    auto* const Knopf = new QPushButton(Text, this);
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    Knopf->setMinimumHeight(Knopf->fontMetrics().height() + 14);
    connect(Knopf, &QPushButton::clicked, this, Handler);
    return Knopf;
}

QWidget* frmSucheTextbasiert::EingabeAnlegen() {
    auto* const fraEingabe = new QWidget(this);
    auto* const Spalte = new QVBoxLayout(fraEingabe);
    Spalte->setContentsMargins(0, 0, 0, 0);
    auto* const lblAbfragen = new QLabel(u"Such-&Abfragen:"_s, fraEingabe);
    txtAbfragen = new QPlainTextEdit(fraEingabe);
    txtAbfragen->setObjectName(u"txtAbfragen"_s);
    txtAbfragen->setAccessibleName(u"Such-Abfragen"_s);
    txtAbfragen->setTabChangesFocus(true);
    lblAbfragen->setBuddy(txtAbfragen);
    cmdVerarbeiten =
        KnopfAnlegen(u"cmdVerarbeiten"_s, u"&Verarbeiten"_s, &frmSucheTextbasiert::cmdVerarbeiten_Click);
    // The Enter key makes a new line here; with Ctrl it goes on.
    cmdVerarbeiten->setShortcut(QKeySequence(u"Ctrl+Return"_s));
    cmdVerarbeiten->setToolTip(u"Strg+Eingabe"_s);
    auto* const Fuß = new QHBoxLayout;
    Fuß->addStretch(1);
    Fuß->addWidget(cmdVerarbeiten);
    Spalte->addWidget(lblAbfragen);
    Spalte->addWidget(txtAbfragen, 1);
    Spalte->addLayout(Fuß);
    return fraEingabe;
}

QWidget* frmSucheTextbasiert::ResultateAnlegen() {
    auto* const fraResultate = new QWidget(this);
    fraResultate->setObjectName(u"fraResultate"_s);
    lstResultate = ListeAnlegen(u"lstResultate"_s, u"Abfragen und Resultate"_s, *Zeilen);
    lstResultate->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    lstResultate->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    connect(lstResultate->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& Zelle) {
                const auto Zeile = static_cast<std::size_t>(Zelle.row());
                Details->Zeigen(Zelle.isValid() ? &Resultate[Zeile].Nummern : nullptr);
            });
    lstResultateDetails = ListeAnlegen(u"lstResultateDetails"_s, u"Dateien zur Abfrage"_s, *Details);
    auto* const Teiler = new QSplitter(Qt::Vertical, fraResultate);
    Teiler->setChildrenCollapsible(false);
    Teiler->addWidget(lstResultate);
    Teiler->addWidget(lstResultateDetails);
    auto* const Fuß = new QHBoxLayout;
    Fuß->addWidget(KnopfAnlegen(u"cmdÄndern"_s, u"Eingabe ä&ndern"_s, &frmSucheTextbasiert::cmdÄndern_Click));
    Fuß->addWidget(
        KnopfAnlegen(u"cmdRücksetzen"_s, u"N&eue Eingabe"_s, &frmSucheTextbasiert::cmdRücksetzen_Click));
    Fuß->addStretch(1);
    Fuß->addWidget(
        KnopfAnlegen(u"cmdAbspielen"_s, u"Abs&pielen"_s, &frmSucheTextbasiert::cmdAbspielen_Click));
    Fuß->addWidget(
        KnopfAnlegen(u"cmdInPlaylist"_s, u"In P&layliste"_s, &frmSucheTextbasiert::cmdInPlaylist_Click));
    Fuß->addWidget(KnopfAnlegen(u"cmdInfos"_s, u"Datei-&Infos..."_s, &frmSucheTextbasiert::cmdInfos_Click));
    Fuß->addWidget(KnopfAnlegen(u"cmdExport"_s, u"E&xport..."_s, &frmSucheTextbasiert::cmdExport_Click));
    Fuß->addWidget(KnopfAnlegen(u"cmdHauptfenster"_s, u"Im &Hauptfenster zeigen"_s,
                                &frmSucheTextbasiert::cmdHauptfenster_Click));
    auto* const Spalte = new QVBoxLayout(fraResultate);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->addWidget(Teiler, 1);
    Spalte->addLayout(Fuß);
    return fraResultate;
}

void frmSucheTextbasiert::cmdVerarbeiten_Click() {
    const auto Abfragen = AbfragenZerlegen(Utf8Text(txtAbfragen->toPlainText()));
    if (Abfragen.empty()) return Person.Melden(Symbol::Information, MehrfachsucheOhneAbfrage);
    cmdVerarbeiten->setEnabled(false);
    auto Neue = MehrfachSuchen(Index, Puffer, Abfragen, Person);
    cmdVerarbeiten->setEnabled(true);
    Details->Zeigen(nullptr);
    Zeilen->Beginnen();
    Resultate = std::move(Neue);
    Zeilen->Beenden();
    Seiten->setCurrentIndex(1);
    lstResultate->setCurrentIndex(Zeilen->index(0, 0));
    lstResultate->setFocus();
}

void frmSucheTextbasiert::cmdÄndern_Click() {
    Seiten->setCurrentIndex(0);
    txtAbfragen->setFocus();
}

void frmSucheTextbasiert::cmdRücksetzen_Click() {
    txtAbfragen->clear();
    cmdÄndern_Click();
}

std::vector<Satznummer> frmSucheTextbasiert::GewählteDetails() {
    QModelIndexList Gewählt = lstResultateDetails->selectionModel()->selectedRows();
    std::sort(Gewählt.begin(), Gewählt.end());
    std::vector<Satznummer> Nummern;
    for (const QModelIndex& Zeile : Gewählt)
        Nummern.push_back(Details->NummerVon(Zeile.row()));
    if (Nummern.empty())
        Person.Melden(Symbol::Information,
                      "Bitte wählen Sie mindestens eine Datei, um diese Funktion auszuführen.");
    return Nummern;
}

void frmSucheTextbasiert::cmdInfos_Click() {
    const std::vector<Satznummer> Nummern = GewählteDetails();
    if (!Nummern.empty() && Infos) Infos(Nummern);
}

void frmSucheTextbasiert::cmdExport_Click() {
    const std::vector<Satznummer> Nummern = GewählteDetails();
    if (!Nummern.empty() && Export) Export(Nummern);
}

void frmSucheTextbasiert::cmdAbspielen_Click() {
    const std::vector<Satznummer> Nummern = GewählteDetails();
    if (!Nummern.empty() && Abspielen) Abspielen(Nummern, false);
}

void frmSucheTextbasiert::cmdInPlaylist_Click() {
    const std::vector<Satznummer> Nummern = GewählteDetails();
    if (!Nummern.empty() && Abspielen) Abspielen(Nummern, true);
}

void frmSucheTextbasiert::cmdHauptfenster_Click() {
    QModelIndexList Gewählt = lstResultate->selectionModel()->selectedRows();
    if (Gewählt.isEmpty())
        return Person.Melden(Symbol::Information, "Bitte wählen Sie mindestens einen Listeneintrag.");
    if (Person.JaNein(Symbol::Frage,
                      "Durch diese Aktion verlassen Sie die aktuelle Ansicht und müssen beim nächsten Aufruf "
                      "dieses Dialoges erneut eine Suche starten.\nMöchten Sie weitermachen?") != Antwort::Ja)
        return;
    std::sort(Gewählt.begin(), Gewählt.end());
    // A file that fits two lines is one row of the list.
    std::vector<bool> Dabei(static_cast<std::size_t>(Index.IndexAnzahl()) + 1);
    for (const QModelIndex& Zeile : Gewählt) {
        for (const Satznummer Nummer : Resultate[static_cast<std::size_t>(Zeile.row())].Nummern) {
            if (!Dabei[static_cast<std::size_t>(Nummer)]) Gewählte.push_back(Nummer);
            Dabei[static_cast<std::size_t>(Nummer)] = true;
        }
    }
    accept();
}

}  // namespace liedwerk
