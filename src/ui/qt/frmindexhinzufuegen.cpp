#include "ui/qt/frmindexhinzufuegen.h"

#include <QClipboard>
#include <QCommandLinkButton>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

#include "ui/qt/formkopf.h"
#include "ui/qt/meldung.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// Where the next dialog of this run begins.
QString& LetzterOrdner() {
    static QString Ordner = QDir::homePath();
    return Ordner;
}

// The file dialog for a list of names; empty when cancelled.
std::string ListeWählen(QWidget* Besitzer, const QString& Titel, const QStringList& Filter) {
    QFileDialog Dialog(Besitzer, Titel, LetzterOrdner());
    Dialog.setFileMode(QFileDialog::ExistingFile);
    Dialog.setNameFilters(Filter);
    if (Dialog.exec() != QDialog::Accepted || Dialog.selectedFiles().isEmpty()) return {};
    LetzterOrdner() = Dialog.directory().absolutePath();
    return PfadAusQt(Dialog.selectedFiles().constFirst());
}

}  // namespace

Dateifilter DateifilterBilden(const std::vector<Dateityp>& Dateitypen) {
    if (Dateitypen.empty()) {
        return {{},
                {},
                u"Sie können keine Dateien hinzufügen, da kein Dateityp eingerichtet wurde.\n"
                "Ändern Sie diese Einstellung in den 'Index-Optionen'."_s};
    }
    QStringList Muster;
    for (const Dateityp& Typ : Dateitypen) {
        if (Typ.Eintrag.ends_with("=1")) Muster += u"*."_s + QtText(EintragsEndung(Typ.Eintrag));
    }
    if (Muster.isEmpty()) {
        return {
            {},
            {},
            u"Sie können keine Dateien hinzufügen, da kein Dateityp für die Verwaltung freigegeben wurde."_s};
    }
    // With all formats switched on the list would hide what it means.
    if (Muster.contains(u"*.*"_s)) Muster = QStringList{u"*"_s};
    return {u"Unterstützte Dateiformate (%1)"_s.arg(Muster.join(u' ')), u"Alle Dateien (*)"_s, {}};
}

std::string OrdnerWählen(QWidget* Besitzer, const QString& Titel) {
    const QString Ordner = QFileDialog::getExistingDirectory(Besitzer, Titel, LetzterOrdner());
    if (Ordner.isEmpty()) return {};
    LetzterOrdner() = Ordner;
    return PfadAusQt(Ordner);
}

std::vector<std::string> DateienWählen(QWidget* Besitzer, const std::vector<Dateityp>& Dateitypen) {
    const Dateifilter Filter = DateifilterBilden(Dateitypen);
    if (!Filter.Hindernis.isEmpty()) {
        MeldungZeigen(Besitzer, Symbol::Information, Utf8Text(Filter.Hindernis));
        return {};
    }
    QFileDialog Dialog(Besitzer, u"Dateien hinzufügen"_s, LetzterOrdner());
    Dialog.setFileMode(QFileDialog::ExistingFiles);
    Dialog.setNameFilters({Filter.Unterstützte, Filter.Alle});
    // A long list of extensions is no name for a person.
    Dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (Dialog.exec() != QDialog::Accepted) return {};
    LetzterOrdner() = Dialog.directory().absolutePath();
    std::vector<std::string> Dateien;
    for (const QString& Name : Dialog.selectedFiles())
        Dateien.push_back(PfadAusQt(Name));
    if (Dateien.empty())
        MeldungZeigen(Besitzer, Symbol::Information, "Bitte wählen Sie mindestens eine Datei.");
    return Dateien;
}

frmIndexHinzufügen::frmIndexHinzufügen(const std::vector<Dateityp>& Dateitypen, Einstellungen& Optionen,
                                       std::function<void(QWidget*)> KopierenEinstellen, QWidget* Eltern,
                                       const std::vector<std::string>& CDs)
    : QDialog(Eltern), Typen(Dateitypen), Werte(Optionen), Einstellen(std::move(KopierenEinstellen)) {
    setObjectName(u"frmIndexHinzufügen"_s);
    setWindowTitle(u"Zum Index hinzufügen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Was möchten Sie hinzufügen?"_s,
                     u"Der Index merkt sich, was in den Dateien steht."_s);
    WegeAnlegen(*Spalte, CDs);
    VerschiebenAnlegen(*Spalte);
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Rejected}})[0]->setAutoDefault(false);
    // Left to itself the form would get two thirds of the screen's height at most, and on a low screen cut
    // off the second lines.
    const int Breite = sizeHint().width();
    resize(Breite, layout()->totalHeightForWidth(Breite));
}

void frmIndexHinzufügen::WegeAnlegen(QVBoxLayout& Spalte, const std::vector<std::string>& CDs) {
    auto* const Wege = new QVBoxLayout;
    Wege->setSpacing(2);
    const auto Weg = [&](const QString& Name, const QString& Titel, const QString& Text, const char* Bild,
                         void (frmIndexHinzufügen::*Handler)()) {
        auto* const Knopf = new QCommandLinkButton(Titel, Text, this);
        Knopf->setObjectName(Name);
        Knopf->setIcon(Symbolbild(Bild));
        Knopf->setIconSize({26, 26});
        Wege->addWidget(Knopf);
        connect(Knopf, &QCommandLinkButton::clicked, this, Handler);
        return Knopf;
    };
    auto* const Erster = Weg(u"cmdOrdnerHinzufügen"_s, u"&Ordner..."_s,
                             Werte.HinzufügenUnterordner == 1
                                 ? u"Alle unterstützten Dateien eines Ordners und seiner Unterordner"_s
                                 : u"Alle unterstützten Dateien eines Ordners"_s,
                             "ordner-hinzufuegen", &frmIndexHinzufügen::cmdOrdnerHinzufügen_Click);
    Weg(u"cmdDateienHinzufügen"_s, u"&Dateien..."_s, u"Einzelne Dateien, die Sie auswählen"_s,
        "dateien-hinzufuegen", &frmIndexHinzufügen::cmdDateienHinzufügen_Click);
    QPushButton* const cmdCDHinzufügen = Weg(u"cmdCDHinzufügen"_s, u"&Audio-CD..."_s,
                                             u"Die Titel einer CD im Laufwerk oder eines CD-Abbildes"_s, "cd",
                                             &frmIndexHinzufügen::cmdCDHinzufügen_Click);
    if (!CDs.empty()) CDMenüAnlegen(*cmdCDHinzufügen, CDs);
    Weg(u"cmdImportieren"_s, u"&Playliste..."_s, u"Die Dateien, die eine Playliste nennt"_s, "playliste",
        &frmIndexHinzufügen::cmdImportieren_Click);
    Weg(u"cmdDateinamen"_s, u"Datei mit Datei&namen..."_s, u"Die Dateien, deren Namen in einem Text stehen"_s,
        "dateinamen", &frmIndexHinzufügen::cmdDateinamen_Click);
    Weg(u"cmdHinzufügenZwischenablage"_s, u"&Zwischenablage"_s,
        u"Die Dateien und Ordner, die Sie an anderer Stelle kopiert haben"_s, "zwischenablage",
        &frmIndexHinzufügen::cmdHinzufügenZwischenablage_Click);
    Spalte.addLayout(Wege);
    Erster->setDefault(true);
    Erster->setFocus();
}

// With drives in the system the button offers them, and an image besides.
void frmIndexHinzufügen::CDMenüAnlegen(QPushButton& Knopf, const std::vector<std::string>& CDs) {
    auto* const Menü = new QMenu(&Knopf);
    for (const std::string& CD : CDs) {
        connect(Menü->addAction(QtText(CD)), &QAction::triggered, this, [this, CD] {
            Gewählt.Pfad = CD;
            Abschließen(Hinzufügeweg::Ordner);
        });
    }
    connect(Menü->addAction(u"CD-A&bbild (.cue, .toc)..."_s), &QAction::triggered, this,
            [this] { cmdCDHinzufügen_Click(); });
    Knopf.setMenu(Menü);
}

void frmIndexHinzufügen::VerschiebenAnlegen(QVBoxLayout& Spalte) {
    auto* const optBleiben = new QRadioButton(u"Dateien an ihrem Ort &lassen"_s, this);
    optBleiben->setObjectName(u"optVerschieben(0)"_s);
    optVerschieben = new QRadioButton(u"Dateien &kopieren/verschieben"_s, this);
    optVerschieben->setObjectName(u"optVerschieben(1)"_s);
    cmdKopierenEinstellen = new QPushButton(u"&Einstellungen..."_s, this);
    cmdKopierenEinstellen->setObjectName(u"cmdKopierenEinstellen"_s);
    cmdKopierenEinstellen->setAutoDefault(false);
    (Werte.HinzufügenKopieren == 1 ? optVerschieben : optBleiben)->setChecked(true);
    cmdKopierenEinstellen->setEnabled(optVerschieben->isChecked());
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(optVerschieben);
    Zeile->addSpacing(12);
    Zeile->addWidget(cmdKopierenEinstellen);
    Zeile->addStretch(1);
    Spalte.addSpacing(4);
    Spalte.addWidget(optBleiben);
    Spalte.addLayout(Zeile);
    connect(optVerschieben, &QRadioButton::toggled, cmdKopierenEinstellen, &QPushButton::setEnabled);
    connect(optVerschieben, &QRadioButton::clicked, this, [this] { optVerschieben_Click(); });
    connect(cmdKopierenEinstellen, &QPushButton::clicked, this, [this] { cmdKopierenEinstellen_Click(); });
}

void frmIndexHinzufügen::optVerschieben_Click() {
    if (Werte.KopierenOrdner.empty()) cmdKopierenEinstellen_Click();
}

void frmIndexHinzufügen::cmdKopierenEinstellen_Click() {
    if (Einstellen) Einstellen(this);
}

void frmIndexHinzufügen::cmdDateienHinzufügen_Click() {
    Gewählt.Dateien = DateienWählen(this, Typen);
    if (!Gewählt.Dateien.empty()) Abschließen(Hinzufügeweg::Dateien);
}

void frmIndexHinzufügen::cmdOrdnerHinzufügen_Click() {
    Gewählt.Pfad = OrdnerWählen(this);
    if (!Gewählt.Pfad.empty()) Abschließen(Hinzufügeweg::Ordner);
}

void frmIndexHinzufügen::cmdCDHinzufügen_Click() {
    Gewählt.Pfad = ListeWählen(this, u"CD-Abbild hinzufügen"_s,
                               {u"CD-Abbilder (*.cue *.toc *.CUE *.TOC)"_s, u"Alle Dateien (*)"_s});
    if (!Gewählt.Pfad.empty()) Abschließen(Hinzufügeweg::Ordner);
}

void frmIndexHinzufügen::cmdImportieren_Click() {
    Gewählt.Pfad = ListeWählen(this, u"Playliste hinzufügen"_s,
                               {u"Alle bekannten Playlisten (*.m3u *.m3u8 *.pls)"_s,
                                u"PLS-Playlisten (*.pls)"_s, u"M3U-Playlisten (*.m3u *.m3u8)"_s});
    if (!Gewählt.Pfad.empty()) Abschließen(Hinzufügeweg::Playliste);
}

void frmIndexHinzufügen::cmdDateinamen_Click() {
    Gewählt.Pfad = ListeWählen(this, u"Datei mit Dateinamen hinzufügen"_s, {u"Alle Dateien (*)"_s});
    if (!Gewählt.Pfad.empty()) Abschließen(Hinzufügeweg::Dateinamen);
}

void frmIndexHinzufügen::cmdHinzufügenZwischenablage_Click() {
    const QMimeData* const Daten = QGuiApplication::clipboard()->mimeData();
    // The list of addresses keeps every byte of a name.
    const QByteArray Adressen = Daten->data(u"text/uri-list"_s);
    Gewählt.Text = Adressen.isEmpty() ? Utf8Text(Daten->text()) : Adressen.toStdString();
    Abschließen(Hinzufügeweg::Zwischenablage);
}

void frmIndexHinzufügen::Abschließen(Hinzufügeweg Weg) {
    Gewählt.Weg = Weg;
    Gewählt.Kopieren = optVerschieben->isChecked();
    accept();
}

void frmIndexHinzufügen::done(int Ergebnis) {
    Werte.HinzufügenKopieren = optVerschieben->isChecked() ? 1 : 0;
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
