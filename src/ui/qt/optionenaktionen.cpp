#include "ui/qt/optionenaktionen.h"

#include "core/suchlauf.h"
#include "ui/qt/exportaktionen.h"
#include "ui/qt/frmindexdateien.h"
#include "ui/qt/frmindexoptionen.h"
#include "ui/qt/frmindexstatistik.h"
#include "ui/qt/frmoptionen.h"
#include "ui/qt/frmsicherungskopien.h"
#include "ui/qt/frmsperre.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

void IndexOptionenZeigen(Anwendung& Programm, QWidget* Eltern) {
    // The form shows the columns as the list has them now.
    SpaltenInIndex(Programm);
    frmIndexOptionen(Programm, Eltern).exec();
}

void SicherungskopienZeigen(Anwendung& Programm, QWidget* Eltern) {
    frmSicherungskopien(Programm, Eltern).exec();
}

void OptionenZeigen(Anwendung& Programm, QWidget* Eltern) {
    Optionswege Wege;
    const std::int16_t Modus = Programm.Index.Programmmodus;
    if (Modus != ModusNichtsGeladen)
        Wege.IndexOptionen = [&Programm](QWidget* Form) { IndexOptionenZeigen(Programm, Form); };
    // Also while nothing is loaded: an index that cannot be read is when a backup is wanted most.
    if (Modus <= ModusIndexdatei)
        Wege.Sicherungskopien = [&Programm](QWidget* Form) { SicherungskopienZeigen(Programm, Form); };
    Wege.Passwort = [&Programm](Einstellungen& Werte, QWidget* Form) {
        frmSperreSetzen(Werte, Programm.Dienst.Person, Form).exec();
    };
    frmOptionen(Programm, std::move(Wege), Eltern).exec();
}

void IndexdateienZeigen(Anwendung& Programm, QWidget* Eltern) {
    Indexdateiwege Wege;
    if (Programm.Index.Programmmodus <= ModusIndexdatei)
        Wege.Sicherungskopien = [&Programm](QWidget* Form) { SicherungskopienZeigen(Programm, Form); };
    Wege.FelderSpeichern = [&Programm](QWidget* Form) { FelderSpeichern(Programm, Form); };
    Wege.FelderImportieren = [&Programm](QWidget* Form) { FelderImportieren(Programm, Form); };
    frmIndexdateien(Programm, std::move(Wege), Eltern).exec();
}

}  // namespace

void OptionenaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QWidget* const Fenster = &Platz.Fenster;
    const auto Aktion = [&](const QString& Name, const QString& Text, const char* Bild,
                            const QList<QKeySequence>& Tasten, void (*Handler)(Anwendung&, QWidget*)) {
        return FensteraktionAnlegen(Platz, Name, Text, Bild, Tasten,
                                    [&Programm, Fenster, Handler] { Handler(Programm, Fenster); });
    };
    QAction* const mnuIndexdateien = Aktion(u"mnuIndexdateien"_s, u"Indexdateien &verwalten..."_s, "sammlung",
                                            {QKeySequence(u"Ctrl+Shift+L"_s)}, IndexdateienZeigen);
    QAction* const mnuIndexStatistik =
        Aktion(u"mnuIndexStatistik"_s, u"Index-S&tatistik..."_s, "statistik", {}, IndexstatistikZeigen);
    QAction* const mnuIndexOptionen =
        Aktion(u"mnuIndexOptionen"_s, u"&Index-Optionen..."_s, "spalten", {}, IndexOptionenZeigen);
    QAction* const mnuOptionen = Aktion(u"mnuOptionen"_s, u"&Optionen..."_s, "einstellungen",
                                        {QKeySequence(u"Ctrl+,"_s)}, OptionenZeigen);
    // Beside the recent files, to which it belongs.
    QAction* const Zuletzt = Platz.Datei.findChild<QMenu*>(u"mnuZuletztGeladen"_s)->menuAction();
    Platz.Datei.insertAction(Zuletzt, mnuIndexdateien);
    Platz.Extras.addSeparator();
    Platz.Extras.addActions({mnuIndexStatistik, mnuIndexOptionen, mnuOptionen});
    Platz.InFunktionsleiste(u"Programm"_s, {mnuOptionen});
    Platz.BeiÄnderung([&Programm, mnuIndexStatistik, mnuIndexOptionen](bool Geladen) {
        mnuIndexStatistik->setEnabled(Geladen && Programm.Index.IndexAnzahl() > 0);
        mnuIndexOptionen->setEnabled(Geladen);
    });
}

}  // namespace liedwerk
