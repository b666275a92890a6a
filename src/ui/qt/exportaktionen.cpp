#include "ui/qt/exportaktionen.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>

#include "basis/pfad.h"
#include "core/exportlauf.h"
#include "core/felderlauf.h"
#include "core/suchlauf.h"
#include "ui/qt/frmexportieren.h"
#include "ui/qt/qttext.h"
#include "ui/qt/texteditor.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

const QString Felderfilter = u"IndexFelder-Dateien (*.ifd);;Alle Dateien (*)"_s;

// The name that is offered for the fields: that of the index.
QString Feldername(const Anwendung& Programm) {
    return QtText(std::string(DateiOhneEndung(Programm.Index.IndexDateiname)) + ".ifd");
}

void Anzeigen(Anwendung& Programm, const std::string& Datei) {
    Programmstart* const Programme = Programm.Dienst.Programme;
    const Exportanzeige Wie = ExportAnzeigeFragen(Programm.Dienst.Person, Datei);
    if (Wie == Exportanzeige::Keine || Programme == nullptr) return;
    const auto Gestartet = Wie == Exportanzeige::Editor ? MitTexteditorÖffnen(*Programme, Datei)
                                                        : Programme->MitAnwendungÖffnen(Datei);
    if (Gestartet) return;
    Programm.Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                  "Die Datei '" + Datei +
                                      "' wurde gespeichert, kann aber nicht angezeigt werden.\n" +
                                      Gestartet.Fehler);
}

}  // namespace

void FelderSpeichern(Anwendung& Programm, QWidget* Eltern) {
    QString Datei =
        QFileDialog::getSaveFileName(Eltern, u"Index-Felder speichern"_s, Feldername(Programm), Felderfilter);
    if (Datei.isEmpty()) return;
    std::string Name = PfadAusQt(Datei);
    if (EndungVon(Name).empty()) {
        Name += ".ifd";
        // The dialog has asked about the name without the extension only.
        if (!ExportErlaubt(Programm.Dienst.Person, Name)) return;
    }
    FelderSpeichernLauf(Programm, Name);
}

void FelderImportieren(Anwendung& Programm, QWidget* Eltern) {
    const QString Datei = QFileDialog::getOpenFileName(
        Eltern, u"Index-Felder importieren"_s, QtText(PfadVon(Programm.Index.IndexDateiname)), Felderfilter);
    if (!Datei.isEmpty()) FelderImportierenLauf(Programm, PfadAusQt(Datei));
}

void ExportaktionenAnlegen(Fensterplatz& Platz) {
    Anwendung& Programm = Platz.Programm;
    QWidget* const Fenster = &Platz.Fenster;
    auto* const mnuExportieren = FensteraktionAnlegen(
        Platz, u"mnuExportieren"_s, u"Expor&tieren..."_s, "exportieren", {QKeySequence(u"Ctrl+Alt+X"_s)},
        [&Programm, Fenster] {
            const Liste& Ansicht = Programm.Ansicht;
            ExportierenAusführen(Programm, Fenster,
                                 Ansicht.Auswahl.empty() ? Ansicht.Zeilen : Ansicht.Auswahl);
        });
    auto* const mnuFelderSpeichern =
        FensteraktionAnlegen(Platz, u"mnuFelderSpeichern"_s, u"Index-Felder spei&chern..."_s, "", {},
                             [&Programm, Fenster] { FelderSpeichern(Programm, Fenster); });
    auto* const mnuFelderImportieren =
        FensteraktionAnlegen(Platz, u"mnuFelderImportieren"_s, u"Index-Felder i&mportieren..."_s, "", {},
                             [&Programm, Fenster] { FelderImportieren(Programm, Fenster); });
    Platz.Datei.addSeparator();
    Platz.Datei.addActions({mnuExportieren, mnuFelderSpeichern, mnuFelderImportieren});
    Platz.BeiÄnderung([&Programm, mnuExportieren, mnuFelderSpeichern, mnuFelderImportieren](bool Geladen) {
        mnuExportieren->setEnabled(Geladen && !Programm.Ansicht.Zeilen.empty());
        mnuFelderSpeichern->setEnabled(Geladen);
        mnuFelderImportieren->setEnabled(Geladen && Programm.Index.IndexAnzahl() > 0);
    });
}

void ExportierenAusführen(Anwendung& Programm, QWidget* Eltern, const std::vector<Satznummer>& Sätze) {
    if (ExportGesperrt(Programm)) return;
    if (Sätze.empty()) {
        return Programm.Dienst.Person.Melden(
            Symbol::Information, "Bitte wählen Sie mindestens eine Datei, um diese Funktion auszuführen.");
    }
    SpaltenInIndex(Programm);
    frmExportieren Form(Programm.Werte, Sätze.size(), Programm.Dienst.Person, Eltern);
    if (Form.exec() != QDialog::Accepted) return;
    const Exportspalten Spalten = ExportspaltenVon(Programm.Ansicht.Spalten);
    if (Form.InZwischenablage()) {
        QGuiApplication::clipboard()->setText(QtText(ExportAlsText(Programm.Index, Sätze, Spalten)));
        return Programm.Dienst.Person.StatusZeigen("Die Liste wurde in die Zwischenablage kopiert.", 5000);
    }
    Exportauftrag Auftrag = Form.Auftrag();
    Auftrag.Liste = Spalten;
    if (ExportierenLauf(Programm, Sätze, Auftrag)) Anzeigen(Programm, Auftrag.Datei);
}

}  // namespace liedwerk
