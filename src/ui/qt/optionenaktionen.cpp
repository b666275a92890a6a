#include "ui/qt/optionenaktionen.h"

#include "ui/qt/frmoptionen.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

void mnuOptionen_Click(Fensterplatz& Platz) {
    frmOptionen(Platz.Programm, {}, &Platz.Fenster).exec();
}

}  // namespace

void OptionenaktionenAnlegen(Fensterplatz& Platz) {
    auto* const mnuOptionen =
        FensteraktionAnlegen(Platz, u"mnuOptionen"_s, u"&Optionen..."_s, "einstellungen",
                             {QKeySequence(u"Ctrl+,"_s)}, [&Platz] { mnuOptionen_Click(Platz); });
    Platz.Extras.addSeparator();
    Platz.Extras.addAction(mnuOptionen);
}

}  // namespace liedwerk
