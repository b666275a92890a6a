#include "ui/qt/indexaktionen.h"

#include <QToolButton>

#include "core/ordnerwechsel.h"
#include "core/synchronisierlauf.h"
#include "ui/qt/erscheinung.h"
#include "ui/qt/frmindexhinzufuegenzusammenfassung.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// A function of the pane that was used once takes the colour of the settings.
void BesuchtFärben(Fensterplatz& Platz, const QString& Knopfname) {
    auto* const Knopf = Platz.Fenster.findChild<QToolButton*>(Knopfname);
    if (Knopf == nullptr) return;
    QPalette Farben;
    FarbeSetzen(Farben, QPalette::ButtonText, Platz.Programm.Werte.FarbeFunktionenBesucht);
    Knopf->setPalette(Farben);
}

void cmdListeAufräumen_Click(Fensterplatz& Platz) {
    BesuchtFärben(Platz, u"cmdListeAufräumen"_s);
    SynchronisierenLauf(Platz.Programm);
}

}  // namespace

void IndexaktionenAnlegen(Fensterplatz& Platz) {
    QAction* const mnuListeAufräumen =
        FensteraktionAnlegen(Platz, u"mnuListeAufräumen"_s, u"Inde&x synchronisieren"_s, "synchronisieren",
                             {QKeySequence(u"F5"_s)}, [&Platz] { cmdListeAufräumen_Click(Platz); });
    Platz.Datei.addSeparator();
    Platz.Datei.addAction(mnuListeAufräumen);
    Platz.InFunktionsleiste(u"Ordner"_s, {mnuListeAufräumen});
    Platz.BeiÄnderung([mnuListeAufräumen](bool Geladen) { mnuListeAufräumen->setEnabled(Geladen); });
    Platz.BeiDoppelklick([&Platz](Satznummer Nummer) { return OrdnerWechseln(Platz.Programm, Nummer); });
    Platz.Programm.ZusammenfassungZeigen = [&Platz](Namensfunde& Funde) {
        return frmIndexHinzufügenZusammenfassung(Platz.Programm, Funde, &Platz.Fenster).exec() ==
               QDialog::Accepted;
    };
}

}  // namespace liedwerk
