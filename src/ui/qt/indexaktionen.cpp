#include "ui/qt/indexaktionen.h"

#include "core/ordnerwechsel.h"
#include "core/regelvertrauen.h"
#include "core/synchronisierlauf.h"
#include "ui/qt/erscheinung.h"
#include "ui/qt/frmindexhinzufuegenzusammenfassung.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

void cmdListeAufräumen_Click(Fensterplatz& Platz) {
    if (auto* const Knopf = Platz.Fenster.findChild<QToolButton*>(u"cmdListeAufräumen"_s))
        BesuchtFärben(*Knopf, Platz.Programm.Werte);
    // A refusal is no run that has come to its end.
    Platz.Programm.AbgleichGelungen = false;
    if (RegelnErlauben(Platz.Programm)) SynchronisierenLauf(Platz.Programm);
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
