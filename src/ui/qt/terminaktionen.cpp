#include "ui/qt/terminaktionen.h"

#include <QTimer>

#include "ui/qt/frmterminueberwachung.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Ereignistakt = 15000;  // milliseconds

}  // namespace

void TerminaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QWidget& Fenster = Platz.Fenster;
    QAction* const mnuEreignisse = FensteraktionAnlegen(
        Platz, u"mnuEreignisse"_s, u"&Ereignisse verwalten..."_s, "termin", {QKeySequence(u"Ctrl+Alt+E"_s)},
        [&Programm, &Fenster] { frmTerminÜberwachung(Programm, &Fenster).exec(); });
    Platz.Extras.addAction(mnuEreignisse);
    Platz.BeiÄnderung([mnuEreignisse](bool Geladen) { mnuEreignisse->setEnabled(Geladen); });
}

void EreignisuhrAnlegen(QWidget& Fenster, Anwendung& Programm) {
    auto* const tmrEreignisse = new QTimer(&Fenster);
    tmrEreignisse->setObjectName(u"tmrEreignisse"_s);
    tmrEreignisse->setSingleShot(true);
    tmrEreignisse->setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(tmrEreignisse, &QTimer::timeout, &Fenster, [tmrEreignisse, &Programm] {
        if (!Programm.LaufAktiv && !Programm.Gesperrt && Programm.TerminePrüfen) Programm.TerminePrüfen();
        tmrEreignisse->start(Ereignistakt);
    });
    tmrEreignisse->start(Ereignistakt);
}

}  // namespace liedwerk
