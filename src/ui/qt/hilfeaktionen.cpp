#include "ui/qt/hilfeaktionen.h"

#include <QCoreApplication>

#include "ui/qt/frmhilfe.h"
#include "ui/qt/frmhinweise.h"
#include "ui/qt/frmsperre.h"
#include "ui/qt/frmtipps.h"
#include "ui/qt/kennwort.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

// The handbook stays open beside the work; asked for again it comes to the front.
void mnuHandbuch_Click(Fensterplatz& Platz) {
    if (auto* const Offen = Platz.Fenster.findChild<QDialog*>(u"frmHilfe"_s)) {
        Offen->raise();
        Offen->activateWindow();
        return;
    }
    const QString Datei = HandbuchFinden(QCoreApplication::applicationDirPath());
    if (Datei.isEmpty()) {
        Platz.Programm.Dienst.Person.Melden(
            Symbol::Information,
            "Das Handbuch 'handbuch.md' wurde nicht gefunden.\nEs gehört in den Ordner "
            "'share/liedwerk' neben dem Programm. Installieren Sie das Programm bitte noch einmal.");
        return;
    }
    auto* const Form = new frmHilfe(Datei, &Platz.Fenster);
    Form->setAttribute(Qt::WA_DeleteOnClose);
    Form->show();
}

void mnuTipps_Click(Fensterplatz& Platz) {
    Einstellungen& Werte = Platz.Programm.Werte;
    frmTipps(Werte, Werte.TippsAktueller + 1, &Platz.Fenster).exec();
}

// Without a password there is nothing to lock with: it is set first.
void mnuSperren_Click(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    if (!KennwortLesbar(Programm.Werte.Sperre) &&
        frmSperreSetzen(Programm.Werte, Programm.Dienst.Person, &Platz.Fenster).exec() != QDialog::Accepted)
        return;
    Programm.Dienst.Fenster.SperreZeigen();
}

}  // namespace

void HilfeaktionenAnlegen(Fensterplatz& Platz) {
    auto* const mnuSperren =
        FensteraktionAnlegen(Platz, u"mnuSperren"_s, u"Programm s&perren"_s, "sperre",
                             {QKeySequence(u"Ctrl+L"_s)}, [&Platz] { mnuSperren_Click(Platz); });
    Platz.Extras.addAction(mnuSperren);
    auto* const mnuHandbuch =
        FensteraktionAnlegen(Platz, u"mnuHandbuch"_s, u"&Handbuch"_s, "hilfe", {QKeySequence::HelpContents},
                             [&Platz] { mnuHandbuch_Click(Platz); });
    auto* const mnuTipps = FensteraktionAnlegen(Platz, u"mnuTipps"_s, u"&Tipp des Tages..."_s, "tipp", {},
                                                [&Platz] { mnuTipps_Click(Platz); });
    auto* const mnuInfo = FensteraktionAnlegen(Platz, u"mnuInfo"_s, u"&Info..."_s, "info", {}, [&Platz] {
        frmInfo(ProgrammnameMitVersion(), &Platz.Fenster).exec();
    });
    Platz.Hilfe.addActions({mnuHandbuch, mnuTipps});
    Platz.Hilfe.addSeparator();
    Platz.Hilfe.addAction(mnuInfo);
}

}  // namespace liedwerk
