// What the main window does when the person (or the session) asks for it.
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDropEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include "basis/pfad.h"
#include "basis/text.h"
#include "core/hinzufuegelauf.h"
#include "core/laden.h"
#include "core/suchlauf.h"
#include "ui/qt/frmindexhinzufuegen.h"
#include "ui/qt/frmkopieren.h"
#include "ui/qt/frmmain.h"
#include "ui/qt/qttext.h"

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int SpeicherTakt = 60000;             // milliseconds between two looks at the periodic saving
constexpr std::size_t HöchstensZiehen = 10000;  // files in one drag; more would block the pointer
constexpr int Ablagepause = 250;                // milliseconds before dropped files are offered again

}  // namespace

void frmMain::StatusZeigen(const QString& Text, int Dauer) {
    lblStatus->setText(Text);
    // A locked window tells its title only; what happens behind the lock may name files.
    if (!Programm->Gesperrt) Fenstertitel.Zeigen(Text);
    tmrStatus.stop();
    if (Dauer > 0) tmrStatus.start(Dauer);
}

bool frmMain::Frei() const {
    return Ruhig() && !Programm->Startet && QApplication::activeModalWidget() == nullptr;
}

bool frmMain::FormVorholen() {
    QWidget* const Form = QApplication::activeModalWidget();
    if (Form == nullptr) return false;
    Form->raise();
    Form->activateWindow();
    return true;
}

void frmMain::AktionenNachführen() {
    if (Programm->Gesperrt) return;
    const std::int16_t Modus = Programm->Index.Programmmodus;
    const std::size_t Gewählt = Programm->Ansicht.Auswahl.size();
    const bool Geladen = ListeFrei && Modus != ModusNichtsGeladen;
    for (QAction* const Aktion : {mnuHinzufügen, mnuOrdnerHinzufügen, mnuDateienHinzufügen})
        Aktion->setEnabled(Geladen);
    mnuSpeichern->setEnabled(ListeFrei && Modus == ModusIndexdatei);
    const bool MitZeilen = !Programm->Ansicht.Zeilen.empty();
    mnuSortieren->setEnabled(ListeFrei && Programm->Index.IndexAnzahl() > 0);
    mnuAllesAuswählen->setEnabled(ListeFrei && MitZeilen);
    mnuSucheLeeren->setEnabled(ListeFrei && Suche->Gefüllt());
    for (QAction* const Aktion : {mnuSucheHinzufügen, mnuSucheÄndern, mnuSucheMehr})
        Aktion->setEnabled(Geladen);
    fraBuchstaben->setEnabled(Geladen);
    mnuPfadKopieren->setEnabled(ListeFrei && Gewählt > 0);
    mnuOrdnerÖffnen->setEnabled(ListeFrei && Gewählt == 1);
    for (const auto& Nachführung : Nachführungen)
        Nachführung(Geladen);
}

void frmMain::mnuHinzufügen_Click() {
    if (!Bereit()) return;
    Suche->AusstehendesAusführen();
    const auto Einstellen = [this](QWidget* Form) {
        frmKopieren(Programm->Werte, Programm->Dienst.Person, Form).exec();
    };
    const CDLaufwerke* const CDs = Programm->Dienst.CDs;
    frmIndexHinzufügen Form(Programm->Index.Optionen.Dateitypen, Programm->Werte, Einstellen, this,
                            CDs == nullptr ? std::vector<std::string>() : CDs->Auflisten());
    if (Form.exec() == QDialog::Accepted && Bereit()) HinzufügewahlAusführen(*Programm, Form.Wahl());
}

void frmMain::mnuOrdnerHinzufügen_Click() {
    if (!Bereit()) return;
    Suche->AusstehendesAusführen();
    const std::string Ordner = OrdnerWählen(this);
    if (Ordner.empty() || !Bereit()) return;
    HinzufügewahlAusführen(*Programm, {Hinzufügeweg::Ordner, {}, Ordner, {}, false});
}

void frmMain::mnuDateienHinzufügen_Click() {
    if (!Bereit()) return;
    Suche->AusstehendesAusführen();
    const auto Dateien = DateienWählen(this, Programm->Index.Optionen.Dateitypen);
    if (Dateien.empty() || !Bereit()) return;
    HinzufügewahlAusführen(*Programm, {Hinzufügeweg::Dateien, Dateien, {}, {}, false});
}

void frmMain::mnuSpeichern_Click() {
    if (!Bereit()) return;
    SpaltenInIndex(*Programm);
    IndexSpeichern(*Programm);
}

void frmMain::mnuÖffnen_Click() {
    if (!Bereit()) return;
    const QString Datei = QFileDialog::getOpenFileName(
        this, u"Indexdatei öffnen"_s, QtText(PfadVon(Programm->Index.IndexDateiname)),
        u"Indexdateien (*.lwi)"_s + u";;"_s + u"Alle Dateien (*)"_s);
    if (!Datei.isEmpty()) IndexLaden(PfadAusQt(Datei));
}

void frmMain::IndexLaden(const std::string& Datei) {
    if (!Bereit()) return;
    SpaltenInIndex(*Programm);
    AndereDateiLaden(*Programm, Datei);
}

void frmMain::mnuAllesAuswählen_Click() {
    lstSongs->selectAll();
}

QMimeData* frmMain::AuswahlDaten(bool NurVorhandene) const {
    const auto& Auswahl = Programm->Ansicht.Auswahl;
    if (Auswahl.empty() || (NurVorhandene && Auswahl.size() > HöchstensZiehen)) return nullptr;
    std::vector<std::string> Pfade;
    for (const Satznummer Nummer : Auswahl) {
        std::string Pfad = Programm->Index.Sätze.Pfad(Nummer);
        if (!NurVorhandene || DateiExistiert(Pfad) || OrdnerExistiert(Pfad)) Pfade.push_back(std::move(Pfad));
    }
    if (Pfade.empty()) {
        Programm->Dienst.Person.StatusZeigen("Diese Datei existiert nicht (mehr).", 3000);
        return nullptr;
    }
    auto* const Daten = new QMimeData;
    // The list of addresses keeps every byte of a name; the text is for reading.
    Daten->setData(u"text/uri-list"_s, UriListe(Pfade));
    Daten->setText(QtText(Verbinden(Pfade, "\n")));
    return Daten;
}

void frmMain::mnuPfadKopieren_Click() {
    if (QMimeData* const Daten = AuswahlDaten(false)) QGuiApplication::clipboard()->setMimeData(Daten);
}

void frmMain::mnuOrdnerÖffnen_Click() {
    if (Programm->Ansicht.Auswahl.empty()) return;
    const std::string Ordner(PfadVon(Programm->Index.Sätze.Pfad(Programm->Ansicht.Auswahl.front())));
    if (!OrdnerExistiert(Ordner)) {
        Programm->Dienst.Person.Melden(
            Symbol::Ausrufezeichen,
            "Der Ordner '" + Ordner + "' existiert nicht oder ist zurzeit nicht verfügbar.");
        return;
    }
    const QUrl Adresse = QUrl::fromEncoded(UriListe({Ordner}).trimmed());
    if (!QDesktopServices::openUrl(Adresse)) {
        Programm->Dienst.Person.Melden(Symbol::Ausrufezeichen,
                                       "Der Ordner '" + Ordner +
                                           "' konnte nicht geöffnet werden.\n"
                                           "Stellen Sie sicher, dass ein Dateimanager eingerichtet ist.");
    }
}

void frmMain::mnuBeschreibungsleiste_Click() {
    Programm->Werte.Beschreibungsleiste = mnuBeschreibungsleiste->isChecked() ? 1 : 0;
    fraBeschreibung->setVisible(mnuBeschreibungsleiste->isChecked());
}

void frmMain::mnuSchnellsuche_Click() {
    Programm->Werte.SchnellsucheZeigen = mnuSchnellsuche->isChecked() ? 1 : 0;
    fraBuchstaben->setVisible(mnuSchnellsuche->isChecked());
}

void frmMain::cmdBeenden_Click() {
    close();
}

void frmMain::mnuSymbolÖffnen_Click() {
    Wiederherstellen();
    if (!FormVorholen() && Programm->Gesperrt) SperreZeigen();
}

void frmMain::lstSongs_AuswahlGeändert() {
    Programm->Ansicht.Auswahl = lstSongs->AuswahlLesen();
    AuswahlZeigen();
}

void frmMain::lstSongs_SpaltenGeändert() {
    // While a column is drawn wider, every step tells; the last one is taken over.
    tmrSpalten.start();
}

void frmMain::lstSongs_DblClick(Satznummer Nummer) {
    if (!Bereit() || Nummer > Programm->Index.IndexAnzahl()) return;
    for (const auto& Handler : Doppelklickhandler) {
        if (Handler(Nummer)) return;
    }
}

void frmMain::SpalteUmschalten(int Nummer) {
    SpaltenÜbernehmen();
    auto& Spalten = Programm->Ansicht.Spalten;
    const auto Weg =
        std::erase_if(Spalten, [Nummer](const Listenspalte& Eine) { return Eine.Nummer == Nummer; });
    if (Weg == 0) Spalten.push_back(NeueSpalte(Nummer));
    SpaltenZeigen();
    SpaltenInIndex(*Programm);
}

void frmMain::tmrScrollUpdate_Timer() {
    const int Spielertakt = Spielen ? Spielen->TaktAusführen() : 0;
    if (Ruhig()) RegelmäßigSpeichern(*Programm);
    // Without a player there is nothing to look at but the saving, and that can wait for a whole minute.
    tmrScrollUpdate.setTimerType(Spielertakt > 0 ? Qt::CoarseTimer : Qt::VeryCoarseTimer);
    tmrScrollUpdate.start(Spielertakt > 0 ? Spielertakt : SpeicherTakt);
}

void frmMain::dragEnterEvent(QDragEnterEvent* Ereignis) {
    if (Ereignis->mimeData()->hasUrls()) Ereignis->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* Ereignis) {
    Ereignis->setDropAction(Qt::CopyAction);
    Ereignis->accept();
    PfadeAblegen(PfadeAusUriListe(Ereignis->mimeData()->data(u"text/uri-list"_s)));
}

void frmMain::PfadeAblegen(std::vector<std::string> Pfade) {
    if (Pfade.empty() || !ListeFrei) return;
    // Behind the drop event: the program where the drag began waits for its end.
    QMetaObject::invokeMethod(
        this,
        [this, Pfade = std::move(Pfade)] {
            if (Bereit()) {
                DragDropVerarbeiten(*Programm, Pfade);
            } else {
                // What is dropped during a run waits for its end.
                QTimer::singleShot(Ablagepause, this, [this, Pfade] { PfadeAblegen(Pfade); });
            }
        },
        Qt::QueuedConnection);
}

void frmMain::closeEvent(QCloseEvent* Ereignis) {
    Ereignis->ignore();
    const auto Grund = qGuiApp->isSavingSession() ? Schließgrund::Betriebssystem : Schließgrund::Person;
    // What was typed into a form is not thrown away from behind: it is finished or given up first.
    if (Grund == Schließgrund::Person && FormVorholen()) return;
    if (Programm == nullptr || !Ruhig() || Programm->Startet) return;
    if (!FensterSchließen(*Programm, Grund)) return;
    Endet = true;
    Ereignis->accept();
    if (Beendet) Beendet();
}

void frmMain::SitzungBeenden() {
    if (Endet) return;
    if (Programm->LaufAktiv || Programm->Startet || QApplication::activeModalWidget() != nullptr) {
        // Records in the middle of a run are no state to save: the run is brought to its end first.
        // The clock first: a dialog that answers with a message waits until that is gone as well.
        tmrSitzungsende.start();
        if (Drängen) Drängen();
        return;
    }
    tmrSitzungsende.stop();
    Endet = true;
    FensterSchließen(*Programm, Schließgrund::Betriebssystem);
    if (Beendet) Beendet();
}

void frmMain::SitzungSichern() {
    if (!Ruhig() || Programm->Startet) return;
    FensterSchließen(*Programm, Schließgrund::Betriebssystem);
    // The logout may still be called off by another program.
    SymbolEinrichten();
}

}  // namespace liedwerk
