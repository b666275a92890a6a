#include "ui/qt/cdaktionen.h"

#include "ui/qt/frmcdbrowser.h"
#include "ui/qt/frmcddaten.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

void CDAktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QWidget& Fenster = Platz.Fenster;
    QAction* const mnuCDDaten = FensteraktionAnlegen(
        Platz, u"mnuCDDaten"_s, u"Audio-&CD..."_s, "cd", {QKeySequence(u"Ctrl+Alt+C"_s)},
        [&Programm, &Fenster] {
            frmCDDaten(Programm, frmCDDaten::Anlaß::Laufwerk, CDDBHerkunft::Keine, &Fenster).exec();
        });
    QAction* const mnuCDBrowser =
        FensteraktionAnlegen(Platz, u"mnuCDBrowser"_s, u"&Lokale CD-Datenbanken..."_s, "", {},
                             [&Programm, &Fenster] { frmCDBrowser(Programm, &Fenster).exec(); });
    Platz.Extras.addActions({mnuCDDaten, mnuCDBrowser});
    Programm.CDAssistent = [&Programm, &Fenster](std::string_view Laufwerk) {
        return CDAssistentZeigen(Programm, Laufwerk, &Fenster);
    };
}

}  // namespace liedwerk
