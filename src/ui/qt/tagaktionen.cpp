#include "ui/qt/tagaktionen.h"

#include "ui/qt/frmtag.h"

using namespace Qt::StringLiterals;

namespace liedwerk {

void TagaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    auto* const mnuTagEditor = FensteraktionAnlegen(
        Platz, u"mnuTagEditor"_s, u"&TAGs bearbeiten..."_s, "tag",
        {QKeySequence(u"Alt+Return"_s), QKeySequence(u"Ctrl+T"_s)}, [&Programm, Fenster = &Platz.Fenster] {
            TagEditorAusführen(Programm, Fenster, GewählteDateien(Programm));
        });
    Platz.Tags.addAction(mnuTagEditor);
    Platz.InKontextmenü({mnuTagEditor});
    Platz.InFunktionsleiste(u"TAGs"_s, {mnuTagEditor});
    Platz.BeiÄnderung([&Programm, mnuTagEditor](bool Geladen) {
        mnuTagEditor->setEnabled(Geladen && !Programm.Ansicht.Auswahl.empty());
    });
}

void TagEditorAusführen(Anwendung& Programm, QWidget* Eltern, std::vector<Satznummer> Dateien) {
    if (Dateien.empty()) {
        Programm.Dienst.Person.Melden(
            Symbol::Information, "Bitte wählen Sie mindestens eine Datei, um diese Funktion auszuführen.");
        return;
    }
    frmTag(Programm, std::move(Dateien), Eltern).exec();
}

}  // namespace liedwerk
