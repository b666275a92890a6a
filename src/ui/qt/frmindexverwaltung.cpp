#include "ui/qt/frmindexverwaltung.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QSplitter>
#include <algorithm>

#include "basis/pfad.h"
#include "suche/feldwert.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/tagaktionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

// The rows of lstEinträge; a text is made when it is shown.
class Aufräummodell final : public QAbstractTableModel {
  public:
    Aufräummodell(const Katalog& Datensätze, const std::vector<Aufräumzeile>& Liste)
        : Index(Datensätze), Zeilen(Liste) {}
    // Around a change of the rows.
    void Beginnen() { beginResetModel(); }
    void Beenden() { endResetModel(); }
    void AktionenGeändert(int Von, int Bis) { emit dataChanged(index(Von, 1), index(Bis, 1)); }

    int rowCount(const QModelIndex& Eltern = {}) const override {
        return Eltern.isValid() ? 0 : static_cast<int>(Zeilen.size());
    }
    int columnCount(const QModelIndex& = {}) const override { return 2; }
    QVariant data(const QModelIndex& Zelle, int Rolle) const override {
        if (Rolle != Qt::DisplayRole) return {};
        const Aufräumzeile& Zeile = Zeilen[static_cast<std::size_t>(Zelle.row())];
        if (Zelle.column() == 0) return QtText(FundText(Index, Zeile.Fund));
        QStringList Aktionen;
        for (const Aufräumaktion Aktion : {Zeile.Aktion1, Zeile.Aktion2})
            Aktionen.append(Aktion == Aufräumaktion::Keine ? u"–"_s : Kurzname(Aktion));
        if (Zeile.Fund.Ergebnis2 == 0) Aktionen.removeLast();
        return Aktionen.count(u"–"_s) == Aktionen.size() ? QString() : Aktionen.join(u" / "_s);
    }
    QVariant headerData(int Spalte, Qt::Orientation Richtung, int Rolle) const override {
        if (Richtung != Qt::Horizontal || Rolle != Qt::DisplayRole) return {};
        return Spalte == 0 ? u"Gefundene Dateien"_s : u"Aktion"_s;
    }

  private:
    static QString Kurzname(Aufräumaktion Aktion) {
        static const std::array<QString, Aufräumaktionen.size()> Namen = {
            u""_s, u"Löschen"_s, u"Papierkorb"_s, u"Aus Index"_s, u"Ersetzen"_s};
        return Namen[static_cast<std::size_t>(Aktion)];
    }
    const Katalog& Index;
    const std::vector<Aufräumzeile>& Zeilen;
};

frmIndexVerwaltung::frmIndexVerwaltung(Anwendung& Lauf, std::vector<Satznummer> Arbeitsmenge,
                                       std::function<void(const std::vector<Satznummer>&)> Abspielen,
                                       QWidget* Eltern)
    : QDialog(Eltern),
      Programm(Lauf),
      Person(Lauf.Dienst.Person),
      Menge(std::move(Arbeitsmenge)),
      Spielen(std::move(Abspielen)),
      Modell(std::make_unique<Aufräummodell>(Lauf.Index, Ergebnisse)) {
    setObjectName(u"frmIndexVerwaltung"_s);
    setWindowTitle(u"Index aufräumen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("aufraeumen"),
                     u"Räumen Sie den Index auf: Finden Sie doppelte oder unnötige Dateien."_s,
                     u"Gegenstand der Suche sind alle im Hauptfenster markierten Dateien."_s);
    Spalte->addLayout(SuchzeileAnlegen());
    auto* const Teiler = new QSplitter(Qt::Horizontal, this);
    Teiler->setChildrenCollapsible(false);
    Teiler->setHandleWidth(10);
    Teiler->addWidget(ListeAnlegen());
    Teiler->addWidget(DetailsAnlegen());
    Teiler->setStretchFactor(0, 3);
    Teiler->setStretchFactor(1, 2);
    Spalte->addWidget(Teiler, 1);
    TextHinzufügen(*Spalte, u"lblHinweis"_s,
                   u"Hinweis: Seien Sie vorsichtig beim Löschen von Dateien! Änderungen werden erst mit der "
                   "Schaltfläche 'Ok' übernommen."_s);
    Spalte->addLayout(FußAnlegen());
    const int Zeichen = fontMetrics().averageCharWidth();
    FormgrößeSetzen(*this, 150, 36);
    Teiler->setSizes({Zeichen * 90, Zeichen * 60});
    ZustandZeigen(false);
    cboSuchmethode->setFocus();
}

frmIndexVerwaltung::~frmIndexVerwaltung() {
    // The list goes before what it shows.
    delete lstEinträge;
}

QPushButton* frmIndexVerwaltung::KnopfAnlegen(const QString& Name, const QString& Text,
                                              std::function<void()> Handler) {
    auto* const Knopf = new QPushButton(Text, this);
    Knopf->setObjectName(Name);
    Knopf->setAutoDefault(false);
    Knopf->setMinimumHeight(Knopf->fontMetrics().height() + 14);
    connect(Knopf, &QPushButton::clicked, this, std::move(Handler));
    return Knopf;
}

QLayout* frmIndexVerwaltung::SuchzeileAnlegen() {
    auto* const lblSuchmethode = new QLabel(u"Suchen &nach:"_s, this);
    cboSuchmethode = new QComboBox(this);
    cboSuchmethode->setObjectName(u"cboSuchmethode"_s);
    cboSuchmethode->setAccessibleName(u"Suchmethode"_s);
    cboSuchmethode->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboSuchmethode->setMinimumContentsLength(36);
    for (const std::string_view Eintrag : Suchmethoden)
        cboSuchmethode->addItem(QtText(Eintrag));
    lblSuchmethode->setBuddy(cboSuchmethode);
    cmdSuchen = KnopfAnlegen(u"cmdSuchen"_s, u"&Suchen"_s, [this] { cmdSuchen_Click(); });
    cmdSuchen->setAutoDefault(true);
    cmdSuchen->setDefault(true);
    cmdRücksetzen = KnopfAnlegen(u"cmdRücksetzen"_s, u"N&eue Suche"_s, [this] { cmdRücksetzen_Click(); });
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(lblSuchmethode);
    Zeile->addWidget(cboSuchmethode, 1);
    Zeile->addWidget(cmdSuchen);
    Zeile->addWidget(cmdRücksetzen);
    return Zeile;
}

QWidget* frmIndexVerwaltung::ListeAnlegen() {
    auto* const Bereich = new QWidget(this);
    lstEinträge = new QTreeView(Bereich);
    lstEinträge->setObjectName(u"lstEinträge"_s);
    lstEinträge->setAccessibleName(u"Gefundene Dateien"_s);
    lstEinträge->setModel(Modell.get());
    lstEinträge->setRootIsDecorated(false);
    lstEinträge->setUniformRowHeights(true);
    lstEinträge->setAllColumnsShowFocus(true);
    lstEinträge->setAlternatingRowColors(true);
    lstEinträge->setTextElideMode(Qt::ElideMiddle);
    lstEinträge->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QHeaderView* const Kopf = lstEinträge->header();
    Kopf->setObjectName(u"lstEinträgeSpalten"_s);
    Kopf->setAccessibleName(u"Spaltenköpfe"_s);
    Kopf->setStretchLastSection(false);
    Kopf->setSectionResizeMode(0, QHeaderView::Stretch);
    Kopf->setSectionResizeMode(1, QHeaderView::Fixed);
    Kopf->resizeSection(1, fontMetrics().averageCharWidth() * 26);
    connect(lstEinträge->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { lstEinträge_Click(); });
    lblGefundenAnzahl = new QLabel(Bereich);
    lblGefundenAnzahl->setObjectName(u"lblGefundenAnzahl"_s);
    Auswahlknöpfe = {
        KnopfAnlegen(u"cmdWählenAlle"_s, u"A&lle wählen"_s, [this] { lstEinträge->selectAll(); }),
        KnopfAnlegen(u"cmdWählenKeine"_s, u"&Keine"_s, [this] { lstEinträge->clearSelection(); }),
        KnopfAnlegen(u"cmdWählenUmkehren"_s, u"&Umkehren"_s, [this] { cmdWählenUmkehren_Click(); })};
    auto* const Fuß = new QHBoxLayout;
    Fuß->addWidget(lblGefundenAnzahl, 1);
    for (QPushButton* const Knopf : Auswahlknöpfe)
        Fuß->addWidget(Knopf);
    auto* const Spalte = new QVBoxLayout(Bereich);
    Spalte->setContentsMargins(0, 0, 0, 0);
    Spalte->addWidget(lstEinträge, 1);
    Spalte->addLayout(Fuß);
    return Bereich;
}

frmIndexVerwaltung::Seite frmIndexVerwaltung::SeiteAnlegen(QWidget& Eltern, int Nummer) {
    const QString Ziffer = QString::number(Nummer);
    Seite Neu;
    Neu.Rahmen = new QWidget(&Eltern);
    const auto Text = [&](const QString& Name) {
        auto* const Zeile = new QLabel(Neu.Rahmen);
        Zeile->setObjectName(Name + Ziffer);
        Zeile->setTextFormat(Qt::PlainText);
        Zeile->setWordWrap(true);
        Zeile->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // A long name wraps; it must not widen the form.
        Zeile->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
        return Zeile;
    };
    Neu.lblEintrag = Text(u"lblEintrag"_s);
    Neu.lblEintrag->setForegroundRole(QPalette::PlaceholderText);
    Neu.lblName = Text(u"lblName"_s);
    QFont Schrift = Neu.lblName->font();
    Schrift.setBold(true);
    Neu.lblName->setFont(Schrift);
    Neu.lblDaten = Text(u"lblDaten"_s);
    auto* const lblAktion = new QLabel(Nummer == 1 ? u"Aktion &1:"_s : u"Aktion &2:"_s, Neu.Rahmen);
    Neu.cboAktion = new QComboBox(Neu.Rahmen);
    Neu.cboAktion->setObjectName(u"cboAktion"_s + Ziffer);
    Neu.cboAktion->setAccessibleName(u"Aktion für Datei "_s + Ziffer);
    for (const std::string_view Eintrag : Aufräumaktionen)
        Neu.cboAktion->addItem(QtText(Eintrag));
    // The longest entry must not widen the form.
    Neu.cboAktion->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Neu.cboAktion->setMinimumContentsLength(20);
    lblAktion->setBuddy(Neu.cboAktion);
    connect(Neu.cboAktion, &QComboBox::activated, this, [this, Nummer] { cboAktion_Click(Nummer); });
    Neu.cmdAbspielen =
        KnopfAnlegen(u"cmdAbspielen"_s + Ziffer, Nummer == 1 ? u"Abs&pielen"_s : u"A&bspielen"_s,
                     [this, Nummer] { cmdAbspielen_Click(Nummer); });
    Neu.cmdInfos = KnopfAnlegen(u"cmdInfos"_s + Ziffer, Nummer == 1 ? u"In&fos..."_s : u"&Infos..."_s,
                                [this, Nummer] { cmdInfos_Click(Nummer); });
    auto* const Wahl = new QHBoxLayout;
    Wahl->addWidget(lblAktion);
    Wahl->addWidget(Neu.cboAktion, 1);
    auto* const Knöpfe = new QHBoxLayout;
    Knöpfe->addWidget(Neu.cmdAbspielen);
    Knöpfe->addWidget(Neu.cmdInfos);
    Knöpfe->addStretch(1);
    auto* const Spalte = new QVBoxLayout(Neu.Rahmen);
    Spalte->setContentsMargins(0, 0, 0, 8);
    for (QLabel* const Zeile : {Neu.lblEintrag, Neu.lblName, Neu.lblDaten})
        Spalte->addWidget(Zeile);
    Spalte->addLayout(Knöpfe);
    Spalte->addLayout(Wahl);
    return Neu;
}

QWidget* frmIndexVerwaltung::DetailsAnlegen() {
    fraDetails = new QGroupBox(u"Details"_s, this);
    fraDetails->setObjectName(u"fraDetails"_s);
    lblAuswahl = new QLabel(fraDetails);
    lblAuswahl->setObjectName(u"lblAuswahl"_s);
    lblAuswahl->setWordWrap(true);
    Seiten = {SeiteAnlegen(*fraDetails, 1), SeiteAnlegen(*fraDetails, 2)};
    lblGleich = new QLabel(fraDetails);
    lblGleich->setObjectName(u"lblGleich"_s);
    lblGleich->setTextFormat(Qt::PlainText);
    lblGleich->setWordWrap(true);
    auto* const Spalte = new QVBoxLayout(fraDetails);
    Spalte->addWidget(lblAuswahl);
    Spalte->addWidget(Seiten[0].Rahmen);
    Spalte->addWidget(Seiten[1].Rahmen);
    Spalte->addWidget(lblGleich);
    Spalte->addStretch(1);
    fraDetails->setMinimumWidth(Zeichenbreite(*this, 46));
    return fraDetails;
}

QLayout* frmIndexVerwaltung::FußAnlegen() {
    cmdHauptfenster =
        KnopfAnlegen(u"cmdHauptfenster"_s, u"Im &Hauptfenster zeigen"_s, [this] { cmdHauptfenster_Click(); });
    cmdOk = KnopfAnlegen(u"cmdOk"_s, u"&Ok"_s, [this] { cmdOk_Click(); });
    auto* const cmdAbbrechen = KnopfAnlegen(u"cmdAbbrechen"_s, u"Abb&rechen"_s, [this] { reject(); });
    auto* const Fuß = new QHBoxLayout;
    Fuß->addWidget(cmdHauptfenster);
    Fuß->addStretch(1);
    Fuß->addWidget(cmdOk);
    Fuß->addWidget(cmdAbbrechen);
    return Fuß;
}

void frmIndexVerwaltung::ZustandZeigen(bool Gefunden) {
    cboSuchmethode->setEnabled(!Gefunden);
    cmdSuchen->setEnabled(!Gefunden);
    for (QPushButton* const Knopf : {cmdRücksetzen, cmdHauptfenster, cmdOk})
        Knopf->setEnabled(Gefunden);
    for (QPushButton* const Knopf : Auswahlknöpfe)
        Knopf->setEnabled(Gefunden && !Ergebnisse.empty());
    lblGefundenAnzahl->setText(Gefunden ? QtText(std::to_string(Ergebnisse.size()) + " Datei(en)")
                                        : QString());
    lstEinträge_Click();
}

void frmIndexVerwaltung::cmdSuchen_Click() {
    const auto Methode = static_cast<Aufräummethode>(cboSuchmethode->currentIndex());
    Paarweise = FindetPaare(Methode);
    const auto Funde = AufräumenSuchen(Programm, Menge, Methode);
    Modell->Beginnen();
    Ergebnisse.clear();
    Ergebnisse.reserve(Funde.size());
    for (const Aufräumfund& Fund : Funde)
        Ergebnisse.push_back({Fund});
    Modell->Beenden();
    ZustandZeigen(true);
    if (Ergebnisse.empty()) {
        cmdRücksetzen->setFocus();
    } else {
        lstEinträge->setCurrentIndex(Modell->index(0, 0));
        lstEinträge->setFocus();
    }
}

void frmIndexVerwaltung::cmdRücksetzen_Click() {
    Modell->Beginnen();
    Ergebnisse.clear();
    Modell->Beenden();
    ZustandZeigen(false);
    cboSuchmethode->setFocus();
}

std::vector<std::size_t> frmIndexVerwaltung::GewählteZeilen() const {
    std::vector<std::size_t> Auswahl;
    for (const QItemSelectionRange& Teil : lstEinträge->selectionModel()->selection()) {
        for (int Zeile = Teil.top(); Zeile <= Teil.bottom(); ++Zeile)
            Auswahl.push_back(static_cast<std::size_t>(Zeile));
    }
    std::ranges::sort(Auswahl);
    return Auswahl;
}

void frmIndexVerwaltung::SeiteZeigen(Seite& Ziel, Satznummer Nummer, std::size_t Zeile) {
    const std::string Pfad = Programm.Index.Sätze.Pfad(Nummer);
    const auto Feld = [&](std::string_view Name) {
        std::string Wert;
        Feldtyp Typ{};
        FeldWert(Programm.Index, Nummer, Name, Wertform::Anzeigen, true, Wert, Typ);
        return QtText(Wert);
    };
    Ziel.lblEintrag->setText(u"Dateiname - Eintrag "_s + QString::number(Zeile + 1));
    Ziel.lblName->setText(QtText(DateinameVon(Pfad)));
    Ziel.lblDaten->setText(QtText(PfadVon(Pfad)) + u"\n"_s + Feld("Größe") + u" Bytes, "_s + Feld("Dauer"));
}

void frmIndexVerwaltung::lstEinträge_Click() {
    const auto Auswahl = GewählteZeilen();
    const bool Eine = Auswahl.size() == 1;
    fraDetails->setEnabled(!Auswahl.empty());
    lblAuswahl->setVisible(!Eine);
    Seiten[1].Rahmen->setVisible(Paarweise);
    lblGleich->setVisible(Eine && Paarweise);
    for (Seite& Eine1 : Seiten) {
        for (QWidget* const Teil :
             {static_cast<QWidget*>(Eine1.lblEintrag), static_cast<QWidget*>(Eine1.lblName),
              static_cast<QWidget*>(Eine1.lblDaten), static_cast<QWidget*>(Eine1.cmdAbspielen),
              static_cast<QWidget*>(Eine1.cmdInfos)})
            Teil->setVisible(Eine);
        Eine1.cmdAbspielen->setEnabled(Spielen != nullptr);
    }
    if (Eine) {
        const Aufräumfund& Fund = Ergebnisse[Auswahl[0]].Fund;
        SeiteZeigen(Seiten[0], Fund.Ergebnis1, Auswahl[0]);
        if (Fund.Ergebnis2 != 0) {
            SeiteZeigen(Seiten[1], Fund.Ergebnis2, Auswahl[0]);
            const std::string Gleiche = GleicheFelder(Programm.Index, Fund);
            lblGleich->setText(Gleiche.empty() ? QString() : u"Gleich: "_s + QtText(Gleiche));
        }
    } else if (Auswahl.empty()) {
        lblAuswahl->setText(Ergebnisse.empty() ? QString() : u"Wählen Sie einen Eintrag der Liste."_s);
    } else {
        std::vector<Aufräumfund> Funde;
        for (const std::size_t Zeile : Auswahl)
            Funde.push_back(Ergebnisse[Zeile].Fund);
        lblAuswahl->setText(QtText(AuswahlUmfang(Programm.Index, Funde)));
    }
    AktionenZeigen(Auswahl);
}

// The choice that all selected rows have; none where they differ.
void frmIndexVerwaltung::AktionenZeigen(const std::vector<std::size_t>& Auswahl) {
    for (std::size_t Nummer = 0; Nummer < Seiten.size(); ++Nummer) {
        const auto AktionVon = [&](std::size_t Zeile) {
            return static_cast<int>(Nummer == 0 ? Ergebnisse[Zeile].Aktion1 : Ergebnisse[Zeile].Aktion2);
        };
        int Gemeinsame = Auswahl.empty() ? 0 : AktionVon(Auswahl[0]);
        if (std::ranges::any_of(Auswahl, [&](std::size_t Zeile) { return AktionVon(Zeile) != Gemeinsame; }))
            Gemeinsame = -1;
        Seiten[Nummer].cboAktion->setCurrentIndex(Gemeinsame);
    }
}

void frmIndexVerwaltung::cboAktion_Click(int Nummer) {
    const auto Auswahl = GewählteZeilen();
    const auto Gewählt =
        static_cast<Aufräumaktion>(Seiten[static_cast<std::size_t>(Nummer - 1)].cboAktion->currentIndex());
    if (Auswahl.empty()) return;
    for (const std::size_t Zeile : Auswahl)
        (Nummer == 1 ? Ergebnisse[Zeile].Aktion1 : Ergebnisse[Zeile].Aktion2) = Gewählt;
    Modell->AktionenGeändert(static_cast<int>(Auswahl.front()), static_cast<int>(Auswahl.back()));
}

Satznummer frmIndexVerwaltung::SatzDerSeite(int Nummer) const {
    const auto Auswahl = GewählteZeilen();
    if (Auswahl.size() != 1) return 0;
    const Aufräumfund& Fund = Ergebnisse[Auswahl[0]].Fund;
    return Nummer == 1 ? Fund.Ergebnis1 : Fund.Ergebnis2;
}

void frmIndexVerwaltung::cmdAbspielen_Click(int Nummer) {
    if (const Satznummer Satz = SatzDerSeite(Nummer); Satz != 0 && Spielen) Spielen({Satz});
}

void frmIndexVerwaltung::cmdInfos_Click(int Nummer) {
    if (const Satznummer Satz = SatzDerSeite(Nummer); Satz != 0) TagEditorAusführen(Programm, this, {Satz});
    lstEinträge_Click();
}

void frmIndexVerwaltung::cmdWählenUmkehren_Click() {
    const QItemSelection Alle(Modell->index(0, 0), Modell->index(Modell->rowCount() - 1, 1));
    lstEinträge->selectionModel()->select(Alle, QItemSelectionModel::Toggle);
}

void frmIndexVerwaltung::cmdHauptfenster_Click() {
    const auto Auswahl = GewählteZeilen();
    if (Auswahl.empty())
        return Person.Melden(Symbol::Information, "Bitte wählen Sie mindestens einen Listeneintrag.");
    if (Person.JaNein(Symbol::Frage,
                      "Durch diese Aktion verlassen Sie die aktuelle Ansicht und müssen beim nächsten Aufruf "
                      "dieses Dialoges erneut eine Suche starten.\nMöchten Sie weitermachen?") != Antwort::Ja)
        return;
    // A file that stands in two rows is one row of the list.
    std::vector<bool> Dabei(static_cast<std::size_t>(Programm.Index.IndexAnzahl()) + 1);
    for (const std::size_t Zeile : Auswahl) {
        const Aufräumfund& Fund = Ergebnisse[Zeile].Fund;
        for (const Satznummer Nummer : {Fund.Ergebnis1, Fund.Ergebnis2}) {
            if (Nummer == 0 || Dabei[static_cast<std::size_t>(Nummer)]) continue;
            Dabei[static_cast<std::size_t>(Nummer)] = true;
            Gewählte.push_back(Nummer);
        }
    }
    done(ImHauptfenster);
}

void frmIndexVerwaltung::cmdOk_Click() {
    const Aufräumplan Plan = AufräumplanBilden(Ergebnisse);
    if (Plan.Leer()) return Person.Melden(Symbol::Information, AufräumenOhneAktion);
    if (Person.JaNein(Symbol::Frage, AufräumFrage(Plan), Antwort::Nein) != Antwort::Ja) return;
    // Record numbers move with the removal: what was found stands for nothing any more.
    if (AufräumenDurchführen(Programm, Ergebnisse)) accept();
}

void frmIndexVerwaltung::reject() {
    if (!AufräumplanBilden(Ergebnisse).Leer() &&
        Person.JaNein(Symbol::Frage,
                      "Möchten Sie die noch nicht durchgeführten Änderungen am Index verwerfen und dieses "
                      "Fenster schließen?",
                      Antwort::Nein) != Antwort::Ja)
        return;
    QDialog::reject();
}

}  // namespace liedwerk
