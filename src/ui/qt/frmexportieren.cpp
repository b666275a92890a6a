#include "ui/qt/frmexportieren.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>

#include "basis/pfad.h"
#include "core/exportlauf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmExportieren::frmExportieren(Einstellungen& Werte, std::size_t Anzahl, Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Gemerkt(Werte), Person(Dialoge) {
    setObjectName(u"frmExportieren"_s);
    setWindowTitle(u"Exportieren"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("exportieren"), u"Liste exportieren"_s,
                     QtText(std::to_string(Anzahl) +
                            " Datei(en) werden mit den Spalten der Liste in deren Reihenfolge geschrieben."));
    auto* const Mitte = new QHBoxLayout;
    Mitte->setSpacing(14);
    Mitte->addWidget(FormateAnlegen(), 1);
    Mitte->addWidget(TextoptionenAnlegen());
    Spalte->addLayout(Mitte);
    Spalte->addLayout(DateizeileAnlegen());
    Spalte->addStretch(1);
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"Abb&rechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    EinstellungenZeigen();
    for (const Formatwahl& Wahl : Formate) {
        connect(Wahl.Knopf, &QRadioButton::toggled, this, [this](bool An) {
            if (An) EndungSetzen();
        });
    }
    for (QRadioButton* const Knopf : findChildren<QRadioButton*>())
        connect(Knopf, &QRadioButton::toggled, this, [this] { FreigabenSetzen(); });
    FreigabenSetzen();
    if (const Formatwahl* const Wahl = GewähltesFormat()) Wahl->Knopf->setFocus();
}

QRadioButton* frmExportieren::WahlAnlegen(QWidget& Eltern, QVBoxLayout& Spalte, const QString& Name,
                                          const QString& Text) {
    auto* const Knopf = new QRadioButton(Text, &Eltern);
    Knopf->setObjectName(Name);
    Spalte.addWidget(Knopf);
    return Knopf;
}

QWidget* frmExportieren::FormateAnlegen() {
    auto* const fraFormat = new QGroupBox(u"Export-Format"_s, this);
    fraFormat->setObjectName(u"fraFormat"_s);
    auto* const Spalte = new QVBoxLayout(fraFormat);
    const QString Alle = u";;Alle Dateien (*)"_s;
    const auto Anlegen = [&](const QString& Name, const QString& Text, Exportmodus Modus,
                             const QString& Endung, const QString& Filter) {
        Formate.push_back({WahlAnlegen(*fraFormat, *Spalte, Name, Text), Modus, Endung, Filter + Alle});
    };
    Anlegen(u"optHtml"_s, u"&HTML-Datei (*.htm/*.html)"_s, Exportmodus::Html, u".htm"_s,
            u"HTML-Dateien (*.htm)"_s);
    Anlegen(u"optText"_s, u"Durch ein Zeichen getrennte &Textdatei (*.txt/*.csv)"_s, Exportmodus::Text,
            u".csv"_s, u"Textdateien (*.csv);;Textdateien (*.txt)"_s);
    Anlegen(u"optPlayliste"_s, u"&Playliste (*.pls/*.m3u)"_s, Exportmodus::Playliste, u".m3u"_s,
            u"Playlisten (*.pls);;Playlisten (*.m3u)"_s);
    Anlegen(u"optTabelle"_s, u"Ta&belle für Tabellenkalkulationen (*.csv, UTF-8)"_s, Exportmodus::Tabelle,
            u".csv"_s, u"Tabellen (*.csv)"_s);
    Anlegen(u"optM3u8"_s, u"Playliste in &UTF-8 (*.m3u8)"_s, Exportmodus::M3u8, u".m3u8"_s,
            u"Playlisten (*.m3u8)"_s);
    Anlegen(u"optJson"_s, u"&JSON-Datei (*.json)"_s, Exportmodus::Json, u".json"_s,
            u"JSON-Dateien (*.json)"_s);
    optZwischenablage =
        WahlAnlegen(*fraFormat, *Spalte, u"optZwischenablage"_s, u"In &Zwischenablage kopieren"_s);
    Spalte->addStretch(1);
    return fraFormat;
}

QWidget* frmExportieren::TextoptionenAnlegen() {
    fraText = new QGroupBox(u"Trennzeichen der Textdatei"_s, this);
    fraText->setObjectName(u"fraText"_s);
    auto* const Spalte = new QVBoxLayout(fraText);
    const auto Anlegen = [&](const QString& Name, const QString& Text, Exporttrenner Zeichen) {
        Trenner.emplace_back(WahlAnlegen(*fraText, *Spalte, Name, Text), Zeichen);
    };
    Anlegen(u"optTextKomma"_s, u"&Komma"_s, Exporttrenner::Komma);
    Anlegen(u"optTextSemikolon"_s, u"&Semikolon (Standard)"_s, Exporttrenner::Semikolon);
    Anlegen(u"optTextTabulator"_s, u"Tabu&lator"_s, Exporttrenner::Tabulator);
    Anlegen(u"optTextLeerzeichen"_s, u"L&eerzeichen (sieht besser aus)"_s, Exporttrenner::Leerzeichen);
    chkTextAnführungszeichen =
        new QCheckBox(u"&Werte in Anführungszeichen setzen (vermeidet Fehler)"_s, fraText);
    chkTextAnführungszeichen->setObjectName(u"chkTextAnführungszeichen"_s);
    Spalte->addSpacing(8);
    Spalte->addWidget(chkTextAnführungszeichen);
    Spalte->addStretch(1);
    return fraText;
}

QLayout* frmExportieren::DateizeileAnlegen() {
    lblDatei = new QLabel(u"&Datei:"_s, this);
    lblDatei->setObjectName(u"lblDatei"_s);
    txtDatei = new QLineEdit(this);
    txtDatei->setObjectName(u"txtDatei"_s);
    txtDatei->setAccessibleName(u"Datei"_s);
    txtDatei->setMinimumWidth(Zeichenbreite(*this, 60));
    lblDatei->setBuddy(txtDatei);
    cmdDateiSuchen = new QPushButton(u"Su&chen..."_s, this);
    cmdDateiSuchen->setObjectName(u"cmdDateiSuchen"_s);
    cmdDateiSuchen->setAutoDefault(false);
    connect(cmdDateiSuchen, &QPushButton::clicked, this, [this] { cmdDateiSuchen_Click(); });
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(lblDatei);
    Zeile->addWidget(txtDatei, 1);
    Zeile->addWidget(cmdDateiSuchen);
    return Zeile;
}

void frmExportieren::EinstellungenZeigen() {
    for (const Formatwahl& Wahl : Formate)
        Wahl.Knopf->setChecked(static_cast<std::int16_t>(Wahl.Modus) == Gemerkt.ExportModus);
    for (const auto& [Knopf, Zeichen] : Trenner)
        Knopf->setChecked(static_cast<std::int16_t>(Zeichen) == Gemerkt.ExportUntermodus);
    chkTextAnführungszeichen->setChecked(Gemerkt.ExportStriche == 1);
    txtDatei->setText(QtText(Gemerkt.ExportDatei));
}

const frmExportieren::Formatwahl* frmExportieren::GewähltesFormat() const {
    for (const Formatwahl& Wahl : Formate) {
        if (Wahl.Knopf->isChecked()) return &Wahl;
    }
    return nullptr;
}

void frmExportieren::EndungSetzen() {
    const Formatwahl* const Wahl = GewähltesFormat();
    const std::string Datei = Utf8Text(txtDatei->text());
    if (Wahl != nullptr && !Datei.empty()) txtDatei->setText(QtText(DateiOhneEndung(Datei)) + Wahl->Endung);
}

void frmExportieren::FreigabenSetzen() {
    const Formatwahl* const Wahl = GewähltesFormat();
    fraText->setEnabled(Wahl != nullptr && Wahl->Modus == Exportmodus::Text);
    for (QWidget* const Teil : {static_cast<QWidget*>(lblDatei), static_cast<QWidget*>(txtDatei),
                                static_cast<QWidget*>(cmdDateiSuchen)})
        Teil->setEnabled(!optZwischenablage->isChecked());
}

void frmExportieren::cmdDateiSuchen_Click() {
    const Formatwahl* const Wahl = GewähltesFormat();
    QString Filter;
    // The overwriting is asked about when the form is accepted, for typed names too.
    QString Datei = QFileDialog::getSaveFileName(
        this, u"Exportieren"_s, txtDatei->text().isEmpty() ? QDir::homePath() : txtDatei->text(),
        Wahl == nullptr ? u"Alle Dateien (*)"_s : Wahl->Filter, &Filter, QFileDialog::DontConfirmOverwrite);
    if (Datei.isEmpty()) return;
    // A name typed without an extension gets that of the chosen filter.
    const qsizetype Stern = Filter.indexOf(u"(*."_s);
    if (EndungVon(Utf8Text(Datei)).empty() && Stern >= 0) Datei += Filter.mid(Stern + 2).chopped(1);
    txtDatei->setText(Datei);
}

// The choices as an order; false, with a message, when something is missing.
bool frmExportieren::AuftragBilden() {
    const auto Melden = [this](std::string_view Text) {
        Person.Melden(Symbol::Information, Text);
        return false;
    };
    if (optZwischenablage->isChecked()) return true;
    const QString Name = txtDatei->text().trimmed();
    if (Name.isEmpty()) {
        txtDatei->setFocus();
        return Melden("Bitte geben Sie einen Dateinamen ein.");
    }
    const Formatwahl* const Wahl = GewähltesFormat();
    if (Wahl == nullptr) return Melden("Bitte wählen Sie ein Export-Format.");
    Gewählt.Modus = Wahl->Modus;
    Gewählt.Datei = PfadAusQt(QDir::home().absoluteFilePath(Name));
    Gewählt.PlaylistFürWinamp = Gemerkt.PlaylistFürWinamp == 1;
    Gewählt.Anführungszeichen.assign(chkTextAnführungszeichen->isChecked() ? 1U : 0U, '"');
    for (const auto& [Knopf, Zeichen] : Trenner) {
        if (!Knopf->isChecked()) continue;
        Gewählt.Trennzeichen = TrennzeichenVon(Zeichen);
        Gemerkt.ExportUntermodus = static_cast<std::int16_t>(Zeichen);
    }
    if (Wahl->Modus == Exportmodus::Text && Gewählt.Trennzeichen.empty())
        return Melden("Bitte wählen Sie das Unterformat zur Auswahl 'Text'.");
    Gemerkt.ExportModus = static_cast<std::int16_t>(Wahl->Modus);
    Gemerkt.ExportStriche = chkTextAnführungszeichen->isChecked() ? 1 : 0;
    Gemerkt.ExportDatei = Gewählt.Datei;
    return ExportErlaubt(Person, Gewählt.Datei);
}

void frmExportieren::done(int Ergebnis) {
    if (Ergebnis == Accepted && !AuftragBilden()) return;
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
