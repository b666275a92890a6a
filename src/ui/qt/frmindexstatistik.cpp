#include "ui/qt/frmindexstatistik.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "basis/pfad.h"
#include "basis/zahl.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr std::size_t HöchstensBalken = 20;

}  // namespace

frmIndexStatistik::frmIndexStatistik(Indexstatistik Zahlen, std::string_view Indexname,
                                     std::string_view Besitzer, QWidget* Eltern)
    : QDialog(Eltern), Statistik(std::move(Zahlen)), Eigentümer(Besitzer) {
    setObjectName(u"frmIndexStatistik"_s);
    setWindowTitle(u"Index-Statistik"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(
        *Spalte, Symbolbild("statistik"),
        Eigentümer.empty() ? u"Ihre Sammlung in Zahlen"_s : QtText(Eigentümer) + u"s Sammlung in Zahlen"_s,
        QtText(Indexname));
    auto* const Reihe = new QHBoxLayout;
    Reihe->setSpacing(24);
    auto* const Formular = new QFormLayout;
    Formular->setHorizontalSpacing(14);
    Formular->setVerticalSpacing(8);
    ZahlenAnlegen(*Formular);
    Reihe->addLayout(Formular);

    auto* const Rechts = new QVBoxLayout;
    auto* const Wahl = new QHBoxLayout;
    const auto Auswahl = [&](const QString& Name, const QString& Text, const QStringList& Einträge) {
        auto* const Neu = new QComboBox(this);
        Neu->setObjectName(Name);
        Neu->setAccessibleName(QString(Text).remove(u'&').remove(u':'));
        Neu->addItems(Einträge);
        auto* const Beschriftung = new QLabel(Text, this);
        Beschriftung->setBuddy(Neu);
        Wahl->addWidget(Beschriftung);
        Wahl->addWidget(Neu);
        connect(Neu, &QComboBox::currentIndexChanged, this, [this] { BildZeigen(); });
        return Neu;
    };
    QStringList Teilungen;
    for (std::size_t Teilung = 0; Teilung < Statistikteilungen; ++Teilung)
        Teilungen += QtText(TeilungName(static_cast<Statistikteilung>(Teilung)));
    Teilungen += u"Am meisten gespielt"_s;
    cboTeilung = Auswahl(u"cboTeilung"_s, u"&Aufteilen nach:"_s, Teilungen);
    Wahl->addSpacing(12);
    cboMaß = Auswahl(u"cboMaß"_s, u"&Messen in:"_s, {u"Dateien"_s, u"Spieldauer"_s, u"Größe"_s});
    Wahl->addStretch(1);
    Rechts->addLayout(Wahl);
    Rollfeld = new QScrollArea(this);
    Rollfeld->setObjectName(u"Rollfeld"_s);
    Rollfeld->setAccessibleName(u"Bild der Statistik"_s);
    Rollfeld->setWidgetResizable(true);
    auto* const Fläche = new QWidget(Rollfeld);
    auto* const Flächenspalte = new QVBoxLayout(Fläche);
    picBalken = new Balkenbild(Fläche);
    Flächenspalte->addWidget(picBalken);
    Flächenspalte->addStretch(1);
    Rollfeld->setWidget(Fläche);
    Rechts->addWidget(Rollfeld, 1);
    Reihe->addLayout(Rechts, 1);
    Spalte->addLayout(Reihe, 1);
    const auto Knöpfe = KnöpfeHinzufügen(*Spalte, *this,
                                         {{u"cmdKopieren"_s, u"In die &Zwischenablage kopieren"_s, Accepted},
                                          {u"cmdSchließen"_s, u"&Schließen"_s, Rejected}});
    Knöpfe[0]->disconnect();
    Knöpfe[0]->setAutoDefault(false);
    connect(Knöpfe[0], &QPushButton::clicked, this, [this] { cmdKopieren_Click(); });
    Knöpfe[1]->setDefault(true);
    BildZeigen();
    FormgrößeSetzen(*this, 130, 40);
    cboTeilung->setFocus();
}

void frmIndexStatistik::ZahlenAnlegen(QFormLayout& Formular) {
    const auto Zeile = [&](const QString& Name, const QString& Text, const std::string& Wert) {
        auto* const lblWert = new QLabel(QtText(Wert), this);
        lblWert->setObjectName(Name);
        lblWert->setAccessibleName(Text);
        lblWert->setTextInteractionFlags(Qt::TextSelectableByMouse);
        QFont Schrift = lblWert->font();
        Schrift.setBold(true);
        lblWert->setFont(Schrift);
        Formular.addRow(Text + u':', lblWert);
    };
    const Statistikwerte& Alle = Statistik.Gesamt;
    // What is not known has no part in a mean.
    const auto Mittel = [](std::int64_t Summe, std::int64_t Anzahl) {
        return Anzahl > 0 ? Summe / Anzahl : 0;
    };
    if (!Eigentümer.empty()) Zeile(u"lblEigentümer"_s, u"Eigentümer"_s, Eigentümer);
    Zeile(u"lblDateien"_s, u"Dateien"_s, Gruppiert(Alle.Dateien));
    Zeile(u"lblSpieldauer"_s, u"Spieldauer"_s, MaßText(Alle.Sekunden, Statistikmaß::Spieldauer));
    Zeile(u"lblGröße"_s, u"Größe"_s, MaßText(Alle.Bytes, Statistikmaß::Größe));
    Zeile(u"lblDauerMittel"_s, u"Dauer im Mittel"_s,
          MaßText(Mittel(Alle.Sekunden, Statistik.MitDauer), Statistikmaß::Spieldauer));
    Zeile(u"lblGrößeMittel"_s, u"Größe im Mittel"_s,
          MaßText(Mittel(Alle.Bytes, Statistik.MitGröße), Statistikmaß::Größe));
    Zeile(u"lblMitId3v1"_s, u"Mit ID3v1-TAG"_s, Gruppiert(Statistik.MitId3v1));
    Zeile(u"lblMitId3v2"_s, u"Mit ID3v2-TAG"_s, Gruppiert(Statistik.MitId3v2));
    Zeile(u"lblGespielt"_s, u"Abgespielte Dateien"_s, Gruppiert(Statistik.Gespielt));
    Zeile(u"lblAbspielungen"_s, u"Abspielungen"_s, Gruppiert(Statistik.Abspielungen));
}

void frmIndexStatistik::BildZeigen() {
    std::vector<Balken> Liste;
    const auto Teilung = static_cast<std::size_t>(cboTeilung->currentIndex());
    const auto Maß = static_cast<Statistikmaß>(cboMaß->currentIndex());
    cboMaß->setEnabled(Teilung < Statistikteilungen);
    if (Teilung < Statistikteilungen) {
        const auto Gruppen =
            GruppenFürBild(Statistik, static_cast<Statistikteilung>(Teilung), Maß, HöchstensBalken);
        for (const Statistikgruppe& Eine : Gruppen) {
            const std::int64_t Wert = MaßVon(Eine.Werte, Maß);
            Liste.push_back({QtText(Eine.Name), Wert, QtText(MaßText(Wert, Maß)), Eine.Gesammelt});
        }
    } else {
        for (const Gespielter& Einer : Statistik.MeistGespielt)
            Liste.push_back(
                {QtText(Einer.Name), Einer.Häufigkeit, QtText(Gruppiert(Einer.Häufigkeit)), false});
    }
    if (Liste.empty()) Liste.push_back({u"Hierzu gibt es keine Angaben."_s, 0, {}, true});
    picBalken->Zeigen(std::move(Liste));
    // The keys stop at the scroll area, so that it tells what the picture shows.
    Rollfeld->setAccessibleDescription(picBalken->accessibleDescription());
}

void frmIndexStatistik::cmdKopieren_Click() {
    QGuiApplication::clipboard()->setText(QtText(StatistikAlsText(Statistik, Eigentümer)));
}

void IndexstatistikZeigen(Anwendung& Programm, QWidget* Eltern) {
    std::optional<Indexstatistik> Zahlen;
    {
        const Laufsperre Sperre(Programm);
        Oberfläche& Person = Programm.Dienst.Person;
        Person.FortschrittStarten("Erstelle Statistik", true, Programm.Index.IndexAnzahl());
        Zahlen = IndexstatistikBilden(
            Programm.Index, [&](Satznummer Nummer) { return Person.FortschrittZeigen({}, Nummer); });
        Person.FortschrittSchließen();
    }
    if (!Zahlen) return;
    frmIndexStatistik(std::move(*Zahlen), DateinameVon(Programm.Index.IndexDateiname),
                      Programm.Index.Optionen.IndexEigentümer, Eltern)
        .exec();
}

}  // namespace liedwerk
