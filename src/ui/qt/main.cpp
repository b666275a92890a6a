// The desktop program: puts ports, core and windows together and runs them.
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>
#include <QTranslator>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "basis/datei.h"
#include "core/start.h"
#include "plattform/abschaltaufschub.h"
#include "plattform/endesignal.h"
#include "plattform/linux/ordner.h"
#include "plattform/linux/ordnerwacht.h"
#include "plattform/linux/orte.h"
#include "plattform/linux/uhr.h"
#include "plattform/linux/wertdatei.h"
#include "plattform/pruefsumme.h"
#include "plattform/system.h"
#include "ui/qt/fensteroberflaeche.h"
#include "ui/qt/fensterprogramm.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/qttext.h"
#include "ui/qt/symbole.h"
#include "ui/qt/uebersetzer.h"

using namespace Qt::StringLiterals;

namespace {

using namespace liedwerk;

// What the start has reached, for measurements: QT_LOGGING_RULES="liedwerk.start.debug=true".
Q_LOGGING_CATEGORY(Startprotokoll, "liedwerk.start", QtWarningMsg)

constexpr const char* OhneAnzeige =
    "Liedwerk: Es ist keine grafische Oberfläche erreichbar.\n"
    "Starten Sie das Programm auf einem Desktop, oder verwenden Sie liedwerk-cli.\n";

constexpr const char* Hilfetext =
    "Aufruf: liedwerk [INDEXDATEI | ORDNER]\n"
    "        liedwerk --dir ORDNER...\n"
    "        liedwerk --tag DATEI...\n"
    "\n"
    "Ohne Namen wird der zuletzt verwendete Index geöffnet.\n"
    "\n"
    "  --dir      zeigt die Dateien der Ordner, ohne einen Index zu verwenden\n"
    "  --tag      bearbeitet die TAGs der Dateien\n"
    "  --         was folgt, ist ein Name\n"
    "  --hilfe    zeigt diesen Text\n"
    "  --version  zeigt die Version\n";

// The names as full paths: the person gave them as seen from the folder in which the program was started.
Startauftrag MitVollenPfaden(Startauftrag Auftrag) {
    std::error_code Fehler;
    const std::string Arbeitsordner = std::filesystem::current_path(Fehler).string();
    for (std::string& Name : Auftrag.Namen)
        Name = VollerPfad(Name, Arbeitsordner);
    return Auftrag;
}

std::vector<std::string> Argumente(int Anzahl, char** Werte) {
    return {Werte + 1, Werte + Anzahl};
}

// Until the display has answered. Qt ends the process when none does; what it says then is no help to a
// person.
bool Verbindend = true;

void QtMeldung(QtMsgType Art, const QMessageLogContext& Umfeld, const QString& Text) {
    if (Verbindend) {
        if (Art != QtFatalMsg) return;
        std::fputs(OhneAnzeige, stderr);
        std::_Exit(1);
    }
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(Art, Umfeld, Text)));
}

bool AnzeigeGenannt() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void DeutschEinrichten(QApplication& Qt) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* const Grund = new Grundübersetzer(&Qt);
    QCoreApplication::installTranslator(Grund);
    auto* const Voll = new QTranslator(&Qt);
    if (Voll->load(QLocale(), u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(Voll);
    }
}

// The end as the session asks for it: by signal, or by the session manager.
void SitzungsendeVerbinden(QApplication& Qt, frmMain& Fenster) {
    const int Signale = EndesignaleAnnehmen();
    if (Signale >= 0) {
        auto* const Melder = new QSocketNotifier(Signale, QSocketNotifier::Read, &Qt);
        QObject::connect(Melder, &QSocketNotifier::activated, &Fenster, [Melder, &Fenster] {
            Melder->setEnabled(false);
            Fenster.SitzungBeenden();
        });
    }
    QObject::connect(
        &Qt, &QGuiApplication::commitDataRequest, &Fenster,
        [&Fenster](QSessionManager&) { Fenster.SitzungSichern(); }, Qt::DirectConnection);
}

// Says when the window stands on the screen and answers.
void BereitMelden(frmMain& Fenster) {
    if (!Startprotokoll().isDebugEnabled()) return;
    QTimer::singleShot(0, &Fenster, [&Fenster] {
        const QWindow* const Auf = Fenster.windowHandle();
        if (Auf == nullptr || !Auf->isExposed()) return BereitMelden(Fenster);
        Fenster.repaint();
        qCDebug(Startprotokoll, "bereit");
    });
}

int FensterBetreiben(Fensterprogramm& Qt, const Startauftrag& Auftrag) {
    const Systemuhr Zeit;
    const std::unique_ptr<Laufwerke> Drives = SystemlaufwerkeÖffnen();
    const Systemordnerleser Ordner;
    const std::unique_ptr<Medienauskunft> Auskunft = SystemauskunftÖffnen();
    const std::unique_ptr<Papierkorb> Eimer = SystempapierkorbÖffnen();
    const std::unique_ptr<CDLaufwerke> CDs = SystemcdsÖffnen();
    const std::unique_ptr<Spielerkanal> Spieler = SystemspielerÖffnen();
    const std::unique_ptr<Desktopfarben> Desktop = SystemfarbenÖffnen();
    const std::unique_ptr<Programmstart> Programme = SystemprogrammeÖffnen();
    const std::unique_ptr<Http> Netz = SystemnetzÖffnen();
    Systemordnerwacht Wacht;
    Wertdatei Nutzerwerte(Einstellungsdatei());
    Wertdatei Rechnerwerte(Rechnereinstellungsdatei());
    Fensteroberfläche Person;
    frmMain Fenster;
    const std::string Eigenordner = Programmordner();
    const Temporärindex Temporär(Eigenordner);
    Anwendung Programm(Dienste{Person, Fenster, Zeit, *Drives, Ordner, Auskunft.get(), Nutzerwerte,
                               &Rechnerwerte, Eigenordner, Temporär.Pfad()});
    Programm.Dienst.Eimer = Eimer.get();
    Programm.Dienst.CDs = CDs.get();
    Programm.Dienst.Spieler = Spieler.get();
    Programm.Dienst.Programme = Programme.get();
    Programm.Dienst.Netz = Netz.get();
    Programm.Dienst.Wacht = &Wacht;
    Programm.Dienst.Desktop = Desktop.get();
    Programm.Dienst.Laufzeitordner = Laufzeitordner();
    Programm.Dienst.DateiPrüfsumme = DateiPrüfsumme;
    Fenster.Anbinden(Programm);
    Person.BesitzerSetzen(&Fenster);
    Person.Status = [&](const QString& Text, int Dauer) { Fenster.StatusZeigen(Text, Dauer); };
    Person.FortschrittErwünscht = [&] { return Programm.Werte.StartBildschirm == 1; };
    Fenster.Drängen = [&] { Person.Drängen(); };
    Fenster.Beendet = [] { QCoreApplication::exit(0); };
    Qt.Aufräumen = [&](int Tiefe) { Person.LaufGescheitert(Tiefe); };
    Qt.Melden = [&](const QString& Text) { Person.Melden(Symbol::Kritisch, Utf8Text(Text)); };
    SitzungsendeVerbinden(Qt, Fenster);
    // Withdrawn at the end of this function, when all is saved: the signal at a shutdown may come too late.
    const auto Aufschub = SystemaufschubFordern([&Fenster] { Fenster.SitzungBeenden(); });
    Desktop->Geändert = [&] { Fenster.ErscheinungAnwenden(); };
    QTimer::singleShot(0, &Fenster, [&] {
        if (!Nutzerwerte.Lesefehler().empty()) {
            Person.Melden(Symbol::Ausrufezeichen, "Die Einstellungen in '" + Einstellungsdatei() +
                                                      "' konnten nicht gelesen werden; es gelten die "
                                                      "Vorgaben.\n" +
                                                      Nutzerwerte.Lesefehler());
        }
        Main(Programm, Auftrag);
        if (Programm.BeendenErbeten) QCoreApplication::exit(0);
        BereitMelden(Fenster);
    });
    return QApplication::exec();
}

}  // namespace

int main(int Anzahl, char** Werte) {
    const Startauftrag Vorab = StartauftragLesen(Argumente(Anzahl, Werte));
    if (Vorab.Hilfe) {
        std::fputs(Hilfetext, stdout);
        return 0;
    }
    if (Vorab.Version) {
        std::printf("%s\n", ProgrammnameMitVersion().c_str());
        return 0;
    }
    if (!AnzeigeGenannt()) {
        std::fputs(OhneAnzeige, stderr);
        return 1;
    }
    qInstallMessageHandler(QtMeldung);
    QCoreApplication::setApplicationName(u"liedwerk"_s);
    // No display name: Qt would append it to every window's title, which names the program already.
    QGuiApplication::setDesktopFileName(u"org.liedwerk.Liedwerk"_s);
    Fensterprogramm Qt(Anzahl, Werte);
    Verbindend = false;
    QApplication::setWindowIcon(Programmsymbol());
    // A window that is hidden in the tray is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    DeutschEinrichten(Qt);
    // Qt has taken its own switches ("-style") out by now.
    const Startauftrag Auftrag = StartauftragLesen(Argumente(Anzahl, Werte));
    if (const std::string& Wort = Auftrag.UnbekannteOption;
        !Wort.empty() && !DateiExistiert(Wort) && !OrdnerExistiert(Wort)) {
        std::fprintf(stderr, "Liedwerk: Die Option '%s' ist unbekannt.\n\n%s", Wort.c_str(), Hilfetext);
        return 2;
    }
    return FensterBetreiben(Qt, MitVollenPfaden(Auftrag));
}
