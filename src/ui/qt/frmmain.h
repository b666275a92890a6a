// frmMain: the main window. It fills controls, reads them and calls procedures of the core.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "core/anwendung.h"
#include "core/beenden.h"
#include "core/hauptfenster.h"
#include "dateien/mediumblick.h"
#include "ui/qt/beschreibung.h"
#include "ui/qt/buchstabenleiste.h"
#include "ui/qt/fensterplatz.h"
#include "ui/qt/funktionsleiste.h"
#include "ui/qt/listenansicht.h"
#include "ui/qt/spielerleiste.h"
#include "ui/qt/startleistensymbol.h"
#include "ui/qt/suchleiste.h"
#include "ui/qt/terminaktionen.h"
#include "ui/qt/titelschrift.h"
#include "ui/qt/vorschlagsrahmen.h"
#include "ui/qt/wiedergabeaktionen.h"

namespace liedwerk {

class frmMain final : public QMainWindow, public Hauptfenster {
  public:
    frmMain();
    ~frmMain() override;
    // Builds the controls over what they show. Once, before anything else is called.
    void Anbinden(Anwendung& Lauf);

    std::function<void()> Beendet;  // the window has closed for good
    std::function<void()> Drängen;  // gets a run that must end now to its end
    // What the tray symbol offers.
    const QMenu& Startleistenmenü() const { return *Symbolmenü; }
    // The status line.
    void StatusZeigen(const QString& Text, int Dauer);
    // The end of the session: saves without a question as soon as no run is active, then Beendet.
    void SitzungBeenden();
    // Saves without a question; the session may go on all the same.
    void SitzungSichern();

    bool SteuerelementeBereit(Steuerelemente Art) override;
    void ListeFreigeben(bool Frei) override;
    void IndexnameZeigen(std::string_view Name) override;
    void SpaltenZeigen() override;
    void ListeZeigen() override;
    void ZeilenAuswählen(std::size_t Letzte) override;
    void AuswahlZeigen() override;
    void ZuletztGeladenZeigen() override;
    Suchzeile SuchzeileLesen() const override;
    void SuchzeileLeeren() override;
    void VorschlägeZeigen(bool Gefunden, const std::vector<std::string>& Vorschläge) override;
    void ErscheinungAnwenden() override;
    void ReglerStellen(int NeueLautstärke, int NeueBalance) override;
    void SymbolEinrichten() override;
    void SymbolEntfernen() override;
    void SymbolhinweisZeigen(std::string_view Titel, std::string_view Text) override;
    void LageSetzen(const Fensterlage& Lage) override;
    void Zeigen(bool Sichtbar) override;
    void WillkommenZeigen() override;
    void TippZeigen(int Nummer) override;
    int TippAnzahl() const override;
    void SperreZeigen() override;
    void TagEditorZeigen() override;
    void ShellEinträgeAnmelden() override {}  // the package does it here
    void EreignisuhrStarten() override { EreignisuhrAnlegen(*this, *Programm); }
    Terminantwort TerminMelden(const Terminmeldung& Meldung) override;
    void VerpassteTermineZeigen(const Terminliste& Verpasste) override;
    void EigentümerZeigen(std::string_view Name) override;
    void SuchfeldFokussieren() override;
    Fensterlage LageLesen() override;
    void Minimieren() override { showMinimized(); }
    void Verbergen() override;
    void Wiederherstellen() override;
    int LautstärkeLesen() const override { return fraPlayer->Lautstärke(); }
    int BalanceLesen() const override { return fraPlayer->Balance(); }
    void SpaltenÜbernehmen() override;
    int BeendenFragen(bool& Immer) override;

  protected:
    void closeEvent(QCloseEvent* Ereignis) override;
    void dragEnterEvent(QDragEnterEvent* Ereignis) override;
    void dropEvent(QDropEvent* Ereignis) override;

  private:
    // Building.
    QAction* AktionAnlegen(const QString& Name, const QString& Text, const char* Bild,
                           const QList<QKeySequence>& Tasten, void (frmMain::*Handler)());
    QAction* SchalterAnlegen(const QString& Name, const QString& Text, std::int16_t Indexoptionen::*Option);
    void AktionenAnlegen();
    void MenüsAnlegen();
    QWidget* ListenbereichAnlegen();
    void FußAnlegen();
    void OberflächeAnlegen();
    void TeileAnlegen();
    void SpaltenmenüFüllen(QMenu& Menü);
    QWidget* SperrseiteAnlegen();
    void SymbolAnlegen();
    void SymbolmenüAnlegen();
    void InsSymbolmenü(QAction& Aktion);

    // Handlers.
    void mnuHinzufügen_Click();
    void mnuOrdnerHinzufügen_Click();
    void mnuDateienHinzufügen_Click();
    void mnuSpeichern_Click();
    void mnuÖffnen_Click();
    void mnuAllesAuswählen_Click();
    void mnuPfadKopieren_Click();
    void mnuOrdnerÖffnen_Click();
    void mnuSuchen_Click();
    void cmdSucheLöschen_Click();
    void cmdSucheHinzufügen_Click();
    void cmdSucheÄndern_Click();
    void cmdSucheMehr_Click();
    void cmdSucheBuchstabe_Click(const QString& Buchstabe);
    void mnuSchnellsuche_Click();
    void mnuSortieren_Click();
    void lstSongs_ColumnClick(int Spalte);
    void mnuBeschreibungsleiste_Click();
    void cmdBeenden_Click();
    void mnuSymbolÖffnen_Click();
    void cmdSuchVorschlägeAnzeigen_Click();
    void lstSongs_AuswahlGeändert();
    void lstSongs_SpaltenGeändert();
    void lstSongs_DblClick(Satznummer Nummer);
    void tmrScrollUpdate_Timer();

    void AbfrageBearbeiten(std::size_t Nummer);
    void AbfragenAuflisten();
    void MengeNachführen();
    void MengeSuchen();
    void PfadeAblegen(std::vector<std::string> Pfade);
    void IndexLaden(const std::string& Datei);
    void SpalteUmschalten(int Nummer);
    void DateiBeschreiben(Satznummer Nummer);
    QMimeData* AuswahlDaten(bool NurVorhandene) const;
    void AktionenNachführen();
    // Shows or hides everything of the collection; the password itself is asked for by SperreZeigen.
    void SperreSetzen(bool Gesperrt);
    bool SperreGilt() const;
    void AlteSperreAufheben();
    void NachStartHinzufügen(const std::string& Ordner);
    // No run is active: the window may save or end.
    bool Ruhig() const { return !Programm->LaufAktiv && !Endet; }
    // Nothing waits for an answer either. A form holds numbers of records and what the person typed; the tray
    // menu, drops and timers know nothing of it.
    bool Frei() const;
    // The person may do something in the window as well.
    bool Bereit() const { return Frei() && !Programm->Gesperrt; }
    // Brings the form that waits for an answer to the front, false when there is none.
    static bool FormVorholen();

    Anwendung* Programm = nullptr;
    std::unique_ptr<Listenmodell> Modell;
    Mediumblick Medienblick;
    Suchleiste* Suche = nullptr;
    Buchstabenleiste* fraBuchstaben = nullptr;
    Vorschlagsrahmen* fraSuchVorschläge = nullptr;
    QStackedWidget* Ganzes = nullptr;  // the window's content, or the page of the lock
    QStackedWidget* Seiten = nullptr;
    QWidget* fraLeer = nullptr;
    Listenansicht* lstSongs = nullptr;
    Funktionsleiste* fraFunktionen = nullptr;
    Beschreibung* fraBeschreibung = nullptr;
    Spielerleiste* fraPlayer = nullptr;
    QLabel* lblIndex = nullptr;
    QLabel* lblAnzahl = nullptr;
    QLabel* lblStatus = nullptr;
    QMenu* mnuZuletztGeladen = nullptr;
    Startleistensymbol* Symbol = nullptr;
    std::unique_ptr<QMenu> Symbolmenü;
    std::unique_ptr<Fensterplatz> Platz;
    std::unique_ptr<Wiedergabeaktionen> Spielen;  // missing where nothing can be played
    std::vector<std::function<void(bool)>> Nachführungen;
    std::vector<std::function<bool(Satznummer)>> Doppelklickhandler;
    Titelschrift Fenstertitel;
    QTimer tmrStatus;
    QTimer tmrSpalten;
    QTimer tmrScrollUpdate;
    QTimer tmrSitzungsende;

    QAction* mnuHinzufügen = nullptr;
    QAction* mnuOrdnerHinzufügen = nullptr;
    QAction* mnuDateienHinzufügen = nullptr;
    QAction* mnuSpeichern = nullptr;
    QAction* mnuÖffnen = nullptr;
    QAction* mnuAllesAuswählen = nullptr;
    QAction* mnuPfadKopieren = nullptr;
    QAction* mnuOrdnerÖffnen = nullptr;
    QAction* mnuSuchen = nullptr;
    QAction* mnuSucheLeeren = nullptr;
    QAction* mnuSucheHinzufügen = nullptr;
    QAction* mnuSucheÄndern = nullptr;
    QAction* mnuSucheMehr = nullptr;
    QAction* mnuSchnellsuche = nullptr;
    QAction* mnuSortieren = nullptr;
    QAction* mnuBeschreibungsleiste = nullptr;
    QAction* mnuBeenden = nullptr;
    struct Ansichtsschalter {
        QAction* Aktion;
        std::int16_t Indexoptionen::*Option;
    };
    std::vector<Ansichtsschalter> Schalter;
    QList<QAction*> GesperrteAktionen;  // that were enabled before the lock

    std::string GemerkterEigentümer;  // of an index that was loaded before the password
    bool ListeFrei = false;
    bool Endet = false;
    bool NachSymbolVerborgen = false;  // hidden at the start as soon as the symbol is there
};

}  // namespace liedwerk
