#include "ui/qt/extrasaktionen.h"

#include "core/suchlauf.h"
#include "ui/qt/frmindexverwaltung.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

void ExtrasaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    auto* const mnuIndexAufräumen = FensteraktionAnlegen(
        Platz, u"mnuIndexAufräumen"_s, u"Index auf&räumen..."_s, "aufraeumen",
        {QKeySequence(u"Ctrl+Shift+I"_s)}, [&Programm, &Platz] {
            frmIndexVerwaltung Form(Programm, AufräumArbeitsmenge(Programm), Platz.Abspielen, &Platz.Fenster);
            if (Form.exec() == frmIndexVerwaltung::ImHauptfenster)
                DatensätzeZeigen(Programm, Form.FürHauptfenster());
        });
    Platz.Extras.addAction(mnuIndexAufräumen);
    Platz.BeiÄnderung([&Programm, mnuIndexAufräumen](bool Geladen) {
        mnuIndexAufräumen->setEnabled(Geladen && !Programm.Ansicht.Auswahl.empty());
    });
}

}  // namespace liedwerk
