#include "ui/qt/fortschritt.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// Milliseconds of a run until its window appears: where it is wanted, and where it only serves to cancel.
constexpr int ErscheintNach = 300;
constexpr int ErscheintUnerwünschtNach = 2000;
constexpr int Takt = 40;  // milliseconds between two turns of the event loop
constexpr int Teilstriche = 1000;

}  // namespace

QString Restzeit(double Anteil, std::int64_t Vergangen) {
    if (Anteil <= 0.01 || Vergangen < 1500) return {};
    const double Sekunden = static_cast<double>(Vergangen) / 1000.0 * (1.0 - Anteil) / Anteil;
    if (Sekunden < 2) return u"Gleich fertig"_s;
    if (Sekunden < 55) {
        const int Gerundet =
            Sekunden < 10 ? static_cast<int>(Sekunden) : static_cast<int>(Sekunden / 5 + 1) * 5;
        return u"Noch etwa %1 Sekunden"_s.arg(Gerundet);
    }
    const int Minuten = static_cast<int>(Sekunden / 60 + 0.5);
    if (Minuten <= 1) return u"Noch etwa eine Minute"_s;
    if (Minuten < 100) return u"Noch etwa %1 Minuten"_s.arg(Minuten);
    return u"Noch etwa %1 Stunden"_s.arg((Minuten + 30) / 60);
}

frmFortschritt::frmFortschritt(QWidget* Eltern) : QDialog(Eltern) {
    setObjectName(u"frmFortschritt"_s);
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(u"Fortschritt"_s);
    lblTitel = new QLabel(this);
    lblTitel->setObjectName(u"lblTitel"_s);
    QFont Schrift = lblTitel->font();
    Schrift.setBold(true);
    lblTitel->setFont(Schrift);
    lblText = new QLabel(this);
    lblText->setObjectName(u"lblText"_s);
    lblText->setTextFormat(Qt::PlainText);
    prgFortschritt = new QProgressBar(this);
    prgFortschritt->setObjectName(u"prgFortschritt"_s);
    prgFortschritt->setAccessibleName(u"Fortschritt"_s);
    lblRestzeit = new QLabel(this);
    lblRestzeit->setObjectName(u"lblRestzeit"_s);
    cmdAbbrechen = new QPushButton(u"&Abbrechen"_s, this);
    cmdAbbrechen->setObjectName(u"cmdAbbrechen"_s);
    cmdAbbrechen->setDefault(true);
    connect(cmdAbbrechen, &QPushButton::clicked, this, [this] { Abbrechen(); });
    auto* const Fuß = new QHBoxLayout;
    Fuß->addWidget(lblRestzeit, 1);
    Fuß->addWidget(cmdAbbrechen);
    auto* const Spalte = new QVBoxLayout(this);
    Spalte->setContentsMargins(18, 16, 18, 14);
    Spalte->setSpacing(10);
    Spalte->addWidget(lblTitel);
    Spalte->addWidget(prgFortschritt);
    Spalte->addWidget(lblText);
    Spalte->addLayout(Fuß);
    setFixedWidth(fontMetrics().averageCharWidth() * 78);
}

void frmFortschritt::Starten(const QString& Titel, bool MitProzent, std::int64_t Höchstens) {
    if (!Läuft) {
        Läuft = true;
        Abgebrochen = false;
        WartetAufNetz = false;
        cmdAbbrechen->setEnabled(true);
        SeitStart.start();
        SeitAnzeige.start();
    }
    SeitTitel.start();
    Prozent = MitProzent && Höchstens > 0;
    Obergrenze = Höchstens;
    Zeile.clear();
    lblTitel->setText(Titel);
    lblText->clear();
    lblRestzeit->clear();
    prgFortschritt->setRange(0, Prozent ? Teilstriche : 0);
    prgFortschritt->setValue(0);
}

bool frmFortschritt::MußErscheinen(bool Erwünscht) const {
    return Erwünscht ? SeitStart.elapsed() >= ErscheintNach
                     : WartetAufNetz && SeitStart.elapsed() >= ErscheintUnerwünschtNach;
}

bool frmFortschritt::Zeigen(std::string_view Text, std::int64_t Position, bool Erwünscht) {
    if (!Läuft) return true;
    if (SeitAnzeige.elapsed() < Takt) return !Abgebrochen;
    if (!Text.empty()) Zeile = QtText(Text);
    if (!isVisible() && MußErscheinen(Erwünscht)) show();
    if (isVisible()) {
        Anzeigen(Position);
        QCoreApplication::processEvents();
    } else {
        // Without the modal window in front, a click would reach the windows that must rest now.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    SeitAnzeige.start();
    return !Abgebrochen;
}

void frmFortschritt::Anzeigen(std::int64_t Position) {
    lblText->setText(lblText->fontMetrics().elidedText(Zeile, Qt::ElideMiddle, width() - 40));
    if (!Prozent || Abgebrochen || Position < 0) return;
    const double Anteil =
        std::clamp(static_cast<double>(Position) / static_cast<double>(Obergrenze), 0.0, 1.0);
    prgFortschritt->setValue(static_cast<int>(Anteil * Teilstriche));
    lblRestzeit->setText(Restzeit(Anteil, SeitTitel.elapsed()));
}

void frmFortschritt::Abbrechen() {
    if (!Läuft || Abgebrochen) return;
    Abgebrochen = true;
    cmdAbbrechen->setEnabled(false);
    lblRestzeit->setText(u"Wird abgebrochen..."_s);
}

void frmFortschritt::closeEvent(QCloseEvent* Ereignis) {
    // The window goes when the run has ended, not before.
    Abbrechen();
    Ereignis->ignore();
}

void frmFortschritt::Schließen() {
    Läuft = false;
    hide();
}

}  // namespace liedwerk
