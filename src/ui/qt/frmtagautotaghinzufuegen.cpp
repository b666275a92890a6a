#include "ui/qt/frmtagautotaghinzufuegen.h"

#include <QGridLayout>

#include "basis/pfad.h"
#include "medien/autotag.h"
#include "medien/grundfelder.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

frmTagAutoTagHinzufügen::frmTagAutoTagHinzufügen(const std::string& Vorhandenes, std::string Beispiel,
                                                 Oberfläche& Dialoge, QWidget* Eltern)
    : QDialog(Eltern), Beispieldatei(std::move(Beispiel)), Person(Dialoge) {
    setObjectName(u"frmTagAutoTagHinzufügen"_s);
    setWindowTitle(Vorhandenes.empty() ? u"Erkennungs-Format hinzufügen"_s : u"Erkennungs-Format ändern"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(
        *Spalte, Symbolbild("tag"), u"Wie lautet das Erkennungs-Format?"_s,
        u"Schreiben Sie die Variablen so, wie die Felder im Dateinamen stehen, mit allen "
        u"Trennzeichen dazwischen, z.B. %Interpret% - %Titel%. Was nicht gebraucht wird, ist %Müll%."_s);
    auto* const lblFormat = new QLabel(u"&Format:"_s, this);
    Spalte->addWidget(lblFormat);
    txtFormat = new QLineEdit(QtText(Vorhandenes), this);
    txtFormat->setObjectName(u"txtFormat"_s);
    txtFormat->setAccessibleName(u"Format"_s);
    txtFormat->setClearButtonEnabled(true);
    lblFormat->setBuddy(txtFormat);
    Spalte->addWidget(txtFormat);
    VariablenAnlegen(*Spalte);
    lblBeispiel = TextHinzufügen(*Spalte, u"lblBeispiel"_s, {});
    // Room for the name and four fields, so that the window stands still while it is typed.
    lblBeispiel->setMinimumHeight(fontMetrics().lineSpacing() * 5);
    lblBeispiel->setAlignment(Qt::AlignTop);
    connect(txtFormat, &QLineEdit::textChanged, this, [this] { BeispielZeigen(); });
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this, {{u"cmdOk"_s, u"&OK"_s, Accepted}, {u"cmdAbbrechen"_s, u"A&bbrechen"_s, Rejected}});
    Knöpfe[0]->setDefault(true);
    BeispielZeigen();
    txtFormat->setFocus();
}

// A button for each variable, which puts it where the cursor stands.
void frmTagAutoTagHinzufügen::VariablenAnlegen(QVBoxLayout& Spalte) {
    constexpr int Spaltenzahl = 3;
    QStringList Namen;
    for (const Grundfeld& Feld : Grundfelder)
        Namen.append(QtText(Feld.Name));
    Namen.append({u"Müll"_s, u"Automatik"_s});
    auto* const Raster = new QGridLayout;
    for (qsizetype Platz = 0; Platz < Namen.size(); ++Platz) {
        const QString Variable = u'%' + Namen[Platz] + u'%';
        auto* const Knopf = new QPushButton(Variable, this);
        Knopf->setObjectName(u"cmdVariable"_s + Namen[Platz]);
        Knopf->setAccessibleName(Variable + u" einfügen"_s);
        Knopf->setAutoDefault(false);
        connect(Knopf, &QPushButton::clicked, this, [this, Variable] {
            txtFormat->insert(Variable);
            txtFormat->setFocus();
        });
        Raster->addWidget(Knopf, static_cast<int>(Platz) / Spaltenzahl,
                          static_cast<int>(Platz) % Spaltenzahl);
    }
    Spalte.addLayout(Raster);
}

// What the format makes of the file in hand, without an index: %Automatik% has nothing to show then.
void frmTagAutoTagHinzufügen::BeispielZeigen() {
    lblBeispiel->setVisible(!Beispieldatei.empty());
    if (Beispieldatei.empty()) return;
    QString Text = u"Beispiel '%1':"_s.arg(QtText(DateinameVon(Beispieldatei)));
    const Katalog Leer;
    Tagverzeichnis Verzeichnis;
    Datensatz Ergebnis;
    const bool Erkannt = AutoTagAusführen({Leer, Einstellungen{}, Verzeichnis}, Beispieldatei, Format(),
                                          Ergebnis, {}, AutoTagZiel::Id3v2)
                             .empty();
    if (!Erkannt && !Format().empty())
        Text += AutoTagFormatPrüfen(Format()).empty() ? u"\nDas Format passt nicht zu diesem Namen."_s
                                                      : u"\nDas Format ist noch nicht vollständig."_s;
    for (const Grundfeld& Feld : Grundfelder) {
        const std::string Wert = Erkannt ? GrundfeldLesen(Ergebnis, Feld, Tagblock::Id3v2) : std::string();
        if (!Wert.empty()) Text += u"\n%1: %2"_s.arg(QtText(Feld.Name), QtText(Wert));
    }
    lblBeispiel->setText(Text);
}

std::string frmTagAutoTagHinzufügen::Format() const {
    return Utf8Text(txtFormat->text());
}

void frmTagAutoTagHinzufügen::done(int Ergebnis) {
    if (Ergebnis == Accepted) {
        if (Format().empty()) return Person.Melden(Symbol::Information, "Bitte geben Sie einen Text ein.");
        const std::string Meldung = AutoTagFormatPrüfen(Format());
        if (!Meldung.empty()) return Person.Melden(Symbol::Information, Meldung);
    }
    QDialog::done(Ergebnis);
}

}  // namespace liedwerk
