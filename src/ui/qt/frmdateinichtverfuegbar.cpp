#include "ui/qt/frmdateinichtverfuegbar.h"

#include <chrono>

#include "ui/qt/formkopf.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// One-shot: while a drive spins up, no second look is begun.
constexpr std::chrono::milliseconds Nachsehabstand(1000);

int Nummer(Verfügbarkeitsantwort Antwort) {
    return static_cast<int>(Antwort);
}

}  // namespace

frmDateiNichtVerfügbar::frmDateiNichtVerfügbar(const Verfügbarkeitsfrage& Anlass, QWidget* Eltern)
    : QDialog(Eltern), Frage(Anlass) {
    setObjectName(u"frmDateiNichtVerfügbar"_s);
    setWindowTitle(u"Datei nicht verfügbar"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("cd"),
                     u"Auf eine Datei (Wechselmedium/Netzwerk) ist kein Zugriff möglich."_s, {});
    TextHinzufügen(*Spalte, u"lblText"_s, QtText(Frage.Text));
    auto* const Zeile = new QHBoxLayout;
    Zeile->addWidget(new QLabel(u"Aktueller Datenträger:"_s, this));
    lblAktuell = new QLabel(u"–"_s, this);
    lblAktuell->setObjectName(u"lblAktuell"_s);
    lblAktuell->setAccessibleName(u"Aktueller Datenträger"_s);
    lblAktuell->setTextFormat(Qt::PlainText);
    QFont Schrift = lblAktuell->font();
    Schrift.setBold(true);
    lblAktuell->setFont(Schrift);
    Zeile->addWidget(lblAktuell, 1);
    Spalte->addLayout(Zeile);
    // Kept: two buttons share the A; pressing it goes from one to the other.
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this,
        {{u"cmdÜberspringen"_s, u"Ü&berspringen"_s, Nummer(Verfügbarkeitsantwort::Überspringen)},
         {u"cmdÜberspringenAlle"_s, u"&Alle überspringen"_s, Nummer(Verfügbarkeitsantwort::AlleÜberspringen)},
         {u"cmdAbbrechen"_s, u"Vorgang &abbrechen"_s, Nummer(Verfügbarkeitsantwort::Abbrechen)}});
    Knöpfe[0]->setDefault(true);
    tmrDateiSuchen.setSingleShot(true);
    tmrDateiSuchen.setInterval(Nachsehabstand);
    connect(&tmrDateiSuchen, &QTimer::timeout, this, [this] { tmrDateiSuchen_Timer(); });
    tmrDateiSuchen.start();
}

void frmDateiNichtVerfügbar::tmrDateiSuchen_Timer() {
    std::string Aktuell;
    const bool Verfügbar = Frage.Nachsehen && Frage.Nachsehen(Aktuell);
    lblAktuell->setText(Aktuell.empty() ? u"–"_s : QtText(Aktuell));
    if (Verfügbar) {
        done(Nummer(Verfügbarkeitsantwort::Verfügbar));
    } else {
        tmrDateiSuchen.start();
    }
}

frmDateiNichtVerfügbarSchreiben::frmDateiNichtVerfügbarSchreiben(const Schreibsperrfrage& Anlass,
                                                                 QWidget* Eltern)
    : QDialog(Eltern), Frage(Anlass) {
    setObjectName(u"frmDateiNichtVerfügbarSchreiben"_s);
    setWindowTitle(u"Schreiben in Datei nicht möglich"_s);
    QVBoxLayout* const Spalte = Formspalte(*this);
    BannerHinzufügen(*Spalte, Symbolbild("datei"), u"Auf eine Datei ist kein Schreibzugriff möglich."_s, {});
    TextHinzufügen(*Spalte, u"lblText"_s, QtText(Frage.Text));
    const auto Knöpfe = KnöpfeHinzufügen(
        *Spalte, *this,
        {{u"cmdÜberspringen"_s, u"Ü&berspringen"_s, Nummer(Verfügbarkeitsantwort::Überspringen)}});
    Knöpfe[0]->setDefault(true);
    tmrDateiSuchen.setSingleShot(true);
    tmrDateiSuchen.setInterval(Nachsehabstand);
    connect(&tmrDateiSuchen, &QTimer::timeout, this, [this] { tmrDateiSuchen_Timer(); });
    tmrDateiSuchen.start();
}

void frmDateiNichtVerfügbarSchreiben::tmrDateiSuchen_Timer() {
    if (Frage.Nachsehen && Frage.Nachsehen()) {
        done(Nummer(Verfügbarkeitsantwort::Verfügbar));
    } else {
        tmrDateiSuchen.start();
    }
}

}  // namespace liedwerk
