#include "ui/qt/frmindexhinzufuegen.h"

#include <QCommandLinkButton>
#include <QDir>
#include <QFileDialog>

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

std::string OrdnerWählen(QWidget* Besitzer) {
    const QString Ordner = QFileDialog::getExistingDirectory(
        Besitzer, u"Bitte wählen Sie einen Ordner mit Mediendateien..."_s, LetzterOrdner());
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

frmIndexHinzufügen::frmIndexHinzufügen(const std::vector<Dateityp>& Dateitypen, QWidget* Eltern)
    : QDialog(Eltern), Typen(Dateitypen) {
    setObjectName(u"frmIndexHinzufügen"_s);
    setWindowTitle(u"Zum Index hinzufügen"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("sammlung"), u"Was möchten Sie hinzufügen?"_s,
                     u"Ihre Dateien bleiben an ihrem Ort; der Index merkt sich, was in ihnen steht."_s);
    const auto Weg = [&](const QString& Name, const QString& Titel, const QString& Text, const char* Bild) {
        auto* const Knopf = new QCommandLinkButton(Titel, Text, this);
        Knopf->setObjectName(Name);
        Knopf->setIcon(Symbolbild(Bild));
        Knopf->setIconSize({26, 26});
        Spalte->addWidget(Knopf);
        return Knopf;
    };
    auto* const cmdOrdnerHinzufügen =
        Weg(u"cmdOrdnerHinzufügen"_s, u"&Ordner..."_s,
            u"Alle unterstützten Dateien eines Ordners und seiner Unterordner"_s, "ordner-hinzufuegen");
    auto* const cmdDateienHinzufügen = Weg(u"cmdDateienHinzufügen"_s, u"&Dateien..."_s,
                                           u"Einzelne Dateien, die Sie auswählen"_s, "dateien-hinzufuegen");
    connect(cmdOrdnerHinzufügen, &QCommandLinkButton::clicked, this, [this] { cmdOrdnerHinzufügen_Click(); });
    connect(cmdDateienHinzufügen, &QCommandLinkButton::clicked, this,
            [this] { cmdDateienHinzufügen_Click(); });
    KnöpfeHinzufügen(*Spalte, *this, {{u"cmdOk"_s, u"&Schließen"_s, Rejected}})[0]->setAutoDefault(false);
    cmdOrdnerHinzufügen->setDefault(true);
    cmdOrdnerHinzufügen->setFocus();
}

void frmIndexHinzufügen::cmdDateienHinzufügen_Click() {
    Gewählt.Dateien = DateienWählen(this, Typen);
    if (!Gewählt.Dateien.empty()) accept();
}

void frmIndexHinzufügen::cmdOrdnerHinzufügen_Click() {
    Gewählt.Ordner = OrdnerWählen(this);
    if (!Gewählt.Ordner.empty()) accept();
}

}  // namespace liedwerk
