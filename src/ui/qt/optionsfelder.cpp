#include "ui/qt/optionsfelder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>

#include "ui/qt/farbknopf.h"
#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Zeilenlänge = 84;  // characters of a label in one line

QString OhneTaste(std::string_view Text) {
    return QtText(Text).remove(u'&').remove(u':');
}

// Name and spoken name of a control; the digits of one text are told apart by their number.
void Benennen(QWidget& Bedienung, const QString& Art, const Option& Eine) {
    QString Name = Art + QtText(Eine.Name);
    if (Eine.Art == Optionsart::Stelle) Name += u"(%1)"_s.arg(Eine.Mindestens);
    Bedienung.setObjectName(Name);
    Bedienung.setAccessibleName(OhneTaste(Eine.Beschriftung));
    Bedienung.setAccessibleDescription(QtText(Eine.Hinweis));
    Bedienung.setToolTip(QtText(Eine.Hinweis));
}

// A row that begins with a label. One width for the labels of all groups, so that the controls of a page
// stand below each other.
QHBoxLayout* Zeilenanfang(QLabel& Beschriftung) {
    Beschriftung.setMinimumWidth(Beschriftung.fontMetrics().averageCharWidth() * 34);
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(&Beschriftung);
    return Zeile;
}

}  // namespace

Optionsfelder::Optionsfelder(Einstellungen& Entwurf, std::function<void()> Geändert)
    : Werte(Entwurf), BeiÄnderung(std::move(Geändert)) {}

QWidget* Optionsfelder::SeiteAnlegen(const Optionsblatt& Blatt, QWidget* Eltern) {
    auto* const Rollfeld = new QScrollArea(Eltern);
    Rollfeld->setObjectName(u"Seite"_s + QtText(Blatt.Name));
    Rollfeld->setFrameShape(QFrame::NoFrame);
    Rollfeld->setWidgetResizable(true);
    Rollfeld->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The scroll area is no stop of its own: its controls are, and they come into view with the focus.
    Rollfeld->setFocusPolicy(Qt::NoFocus);
    auto* const Inhalt = new QWidget(Rollfeld);
    auto* const Spalte = new QVBoxLayout(Inhalt);
    Spalte->setContentsMargins(4, 0, 12, 4);
    Spalte->setSpacing(10);
    auto* const lblSeite = new QLabel(QtText(Blatt.Name), Inhalt);
    QFont Schrift = lblSeite->font();
    Schrift.setBold(true);
    Schrift.setPointSizeF(Schrift.pointSizeF() * 1.15);
    lblSeite->setFont(Schrift);
    auto* const lblSatz = new QLabel(QtText(Blatt.Satz), Inhalt);
    lblSatz->setWordWrap(true);
    Spalte->addWidget(lblSeite);
    Spalte->addWidget(lblSatz);
    Spalte->addStretch(1);
    Seiten[Blatt.Seite] = Spalte;
    for (const Option& Eine : Optionen())
        if (Eine.Seite == Blatt.Seite) FeldAnlegen(Eine, Gruppe(Eine.Seite, Eine.Gruppe));
    Rollfeld->setWidget(Inhalt);
    return Rollfeld;
}

QVBoxLayout& Optionsfelder::Gruppe(Optionsseite Seite, std::string_view Name) {
    QVBoxLayout*& Spalte = Gruppen[{Seite, Name}];
    if (Spalte != nullptr) return *Spalte;
    QVBoxLayout* const Ganze = Seiten.at(Seite);
    auto* const Kasten = new QGroupBox(QtText(Name), Ganze->parentWidget());
    Spalte = new QVBoxLayout(Kasten);
    Spalte->setSpacing(8);
    Ganze->insertWidget(Ganze->count() - 1, Kasten);
    return *Spalte;
}

void Optionsfelder::ZeileEinfügen(QVBoxLayout& Spalte, QLabel* Beschriftung, QWidget* Bedienung) const {
    QHBoxLayout* const Zeile = Zeilenanfang(*Beschriftung);
    Zeile->addWidget(Bedienung);
    Zeile->addStretch(1);
    Spalte.insertLayout(0, Zeile);
}

void Optionsfelder::FeldAnlegen(const Option& Eine, QVBoxLayout& Spalte) {
    QWidget* const Eltern = Spalte.parentWidget();
    Feld Neu{};
    switch (Eine.Art) {
        case Optionsart::Schalter:
        case Optionsart::Stelle:
        case Optionsart::Laufend:
            Felder.push_back(SchalterAnlegen(Eine, Spalte));
            return;
        case Optionsart::Zahl:
            Neu = ZahlAnlegen(Eine, Eltern);
            break;
        case Optionsart::Text:
        case Optionsart::Programm:
            Neu = TextAnlegen(Eine, Eltern);
            break;
        case Optionsart::Wahl:
            Neu = WahlAnlegen(Eine, Eltern);
            break;
        case Optionsart::Schrift:
            Neu = SchriftAnlegen(Eine, Eltern);
            break;
        case Optionsart::Farbe:
            Neu = FarbeAnlegen(Eine, Eltern);
            break;
    }
    auto* const Beschriftung = new QLabel(QtText(Eine.Beschriftung), Eltern);
    Beschriftung->setBuddy(Neu.Bedienung);
    Beschriftung->setToolTip(QtText(Eine.Hinweis));
    Neu.Beschriftung = Beschriftung;
    QHBoxLayout* const Zeile = Zeilenanfang(*Beschriftung);
    const bool Breit = Eine.Art == Optionsart::Text || Eine.Art == Optionsart::Programm;
    Zeile->addWidget(Neu.Bedienung, Breit ? 1 : 0);
    if (Eine.Art == Optionsart::Programm) {
        auto* const cmdSuchen = new QPushButton(u"Su&chen..."_s, Eltern);
        cmdSuchen->setObjectName(u"cmd"_s + QtText(Eine.Name));
        cmdSuchen->setAutoDefault(false);
        QObject::connect(
            cmdSuchen, &QPushButton::clicked, Neu.Bedienung, [Feld = static_cast<QLineEdit*>(Neu.Bedienung)] {
                const QString Datei =
                    QFileDialog::getOpenFileName(Feld, u"Bitte wählen Sie das Programm..."_s, Feld->text());
                if (!Datei.isEmpty()) Feld->setText(Datei);
            });
        Zeile->addWidget(cmdSuchen);
    } else if (!Breit) {
        Zeile->addStretch(1);
    }
    Spalte.addLayout(Zeile);
    Felder.push_back(std::move(Neu));
}

Optionsfelder::Feld Optionsfelder::SchalterAnlegen(const Option& Eine, QVBoxLayout& Spalte) {
    auto* const Schalter = new QCheckBox(Umbrochen(Eine.Beschriftung, Zeilenlänge), Spalte.parentWidget());
    Benennen(*Schalter, u"chk"_s, Eine);
    QObject::connect(Schalter, &QCheckBox::toggled, Schalter, [this, &Eine](bool An) {
        Schreiben([&] { OptionZahlSetzen(Werte, Eine, An ? 1 : 0); });
    });
    if (Eine.Voraussetzung.empty()) {
        Spalte.addWidget(Schalter);
    } else {
        auto* const Zeile = new QHBoxLayout;
        Zeile->addSpacing(Schalter->fontMetrics().averageCharWidth() * 3);
        Zeile->addWidget(Schalter, 1);
        Spalte.addLayout(Zeile);
    }
    return {&Eine, Schalter, Schalter,
            [this, Schalter, &Eine] { Schalter->setChecked(OptionZahl(Werte, Eine) == 1); }};
}

Optionsfelder::Feld Optionsfelder::ZahlAnlegen(const Option& Eine, QWidget* Eltern) {
    auto* const Zahl = new QSpinBox(Eltern);
    Benennen(*Zahl, u"txt"_s, Eine);
    Zahl->setRange(Eine.Mindestens, Eine.Höchstens);
    Zahl->setGroupSeparatorShown(true);
    if (!Eine.Einheit.empty()) Zahl->setSuffix(u' ' + QtText(Eine.Einheit));
    if (!Eine.Nullwort.empty()) Zahl->setSpecialValueText(QtText(Eine.Nullwort));
    QObject::connect(Zahl, &QSpinBox::valueChanged, Zahl,
                     [this, &Eine](int Wert) { Schreiben([&] { OptionZahlSetzen(Werte, Eine, Wert); }); });
    return {&Eine, Zahl, nullptr, [this, Zahl, &Eine] { Zahl->setValue(OptionZahl(Werte, Eine)); }};
}

Optionsfelder::Feld Optionsfelder::TextAnlegen(const Option& Eine, QWidget* Eltern) {
    auto* const Text = new QLineEdit(Eltern);
    Benennen(*Text, u"txt"_s, Eine);
    QObject::connect(Text, &QLineEdit::textChanged, Text, [this, &Eine](const QString& Neu) {
        Schreiben([&] { OptionTextSetzen(Werte, Eine, PfadAusQt(Neu.trimmed())); });
    });
    return {&Eine, Text, nullptr, [this, Text, &Eine] { Text->setText(QtText(OptionText(Werte, Eine))); }};
}

Optionsfelder::Feld Optionsfelder::WahlAnlegen(const Option& Eine, QWidget* Eltern) {
    auto* const Wahl = new QComboBox(Eltern);
    Benennen(*Wahl, u"cbo"_s, Eine);
    for (const Optionswahl& Einer : Eine.Auswahl)
        Wahl->addItem(QtText(Einer.Name), Einer.Wert);
    QObject::connect(Wahl, &QComboBox::currentIndexChanged, Wahl, [this, Wahl, &Eine](int Platz) {
        if (Platz >= 0) Schreiben([&] { OptionZahlSetzen(Werte, Eine, Wahl->itemData(Platz).toInt()); });
    });
    // Kept: a number that is no entry stays while nothing else is chosen.
    return {&Eine, Wahl, nullptr, [this, Wahl, &Eine] {
                Wahl->setCurrentIndex(static_cast<int>(Wahlplatz(Eine.Auswahl, OptionZahl(Werte, Eine))));
            }};
}

Optionsfelder::Feld Optionsfelder::SchriftAnlegen(const Option& Eine, QWidget* Eltern) {
    auto* const Schrift = new QFontComboBox(Eltern);
    Benennen(*Schrift, u"cbo"_s, Eine);
    Schrift->setMinimumContentsLength(20);
    QObject::connect(Schrift, &QComboBox::currentTextChanged, Schrift, [this, &Eine](const QString& Name) {
        if (!Name.isEmpty()) Schreiben([&] { OptionTextSetzen(Werte, Eine, Utf8Text(Name)); });
    });
    return {&Eine, Schrift, nullptr,
            [this, Schrift, &Eine] { Schrift->setCurrentText(QtText(OptionText(Werte, Eine))); }};
}

Optionsfelder::Feld Optionsfelder::FarbeAnlegen(const Option& Eine, QWidget* Eltern) {
    auto* const Farbe = new Farbknopf(Eltern);
    Benennen(*Farbe, u"cmd"_s, Eine);
    Farbe->Gewählt = [this, &Eine](std::int32_t Neu) {
        Schreiben([&] { OptionZahlSetzen(Werte, Eine, Neu); });
    };
    return {&Eine, Farbe, nullptr, [this, Farbe, &Eine] { Farbe->Zeigen(OptionZahl(Werte, Eine)); }};
}

void Optionsfelder::Schreiben(const std::function<void()>& Setzen) {
    if (Zeigt) return;
    Setzen();
    FreigabenSetzen();
    if (BeiÄnderung) BeiÄnderung();
}

void Optionsfelder::Zeigen() {
    Zeigt = true;
    for (const Feld& Eines : Felder)
        Eines.Zeigen();
    Zeigt = false;
    FreigabenSetzen();
}

void Optionsfelder::FreigabenSetzen() {
    for (const Feld& Eines : Felder) {
        if (Eines.Was->Voraussetzung.empty()) continue;
        const auto Schalter = std::ranges::find(Felder, Eines.Was->Voraussetzung,
                                                [](const Feld& Anderes) { return Anderes.Was->Name; });
        const bool Frei = Schalter == Felder.end() || OptionZahl(Werte, *Schalter->Was) == 1;
        Eines.Bedienung->setEnabled(Frei);
        Eines.Beschriftung->setEnabled(Frei);
    }
}

QWidget* Optionsfelder::Bedienung(const Option& Eine) const {
    for (const Feld& Eines : Felder)
        if (Eines.Was == &Eine) return Eines.Bedienung;
    return nullptr;
}

bool Optionsfelder::Hervorheben(const Optionsblatt& Blatt, const QString& Text) {
    const auto Nennt = [&Text](const QString& Wo) { return Wo.contains(Text, Qt::CaseInsensitive); };
    bool Gefunden = Text.isEmpty() || Nennt(QtText(Blatt.Name));
    for (const Feld& Eines : Felder) {
        const Option& Eine = *Eines.Was;
        if (Eine.Seite != Blatt.Seite) continue;
        const bool Genannt = !Text.isEmpty() && (Nennt(OhneTaste(Eine.Beschriftung)) ||
                                                 Nennt(QtText(Eine.Hinweis)) || Nennt(QtText(Eine.Gruppe)));
        QFont Schrift = Eines.Beschriftung->font();
        Schrift.setBold(Genannt);
        Eines.Beschriftung->setFont(Schrift);
        Gefunden = Gefunden || Genannt;
    }
    return Gefunden;
}

}  // namespace liedwerk
