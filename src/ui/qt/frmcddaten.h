// frmCDDaten: the data of an audio CD, shown and edited.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

#include "core/cdlauf.h"

namespace liedwerk {

class frmCDDaten final : public QDialog {
  public:
    // Why the form is shown: for a drive that the person chooses in it, for a disc that is added to the
    // index, or for a disc of the cache, which need not be at hand.
    enum class Anlaß { Laufwerk, Hinzufügen, Speicher };

    // Shows the run's record. Herkunft says where it came from; Keine: there is none yet.
    frmCDDaten(Anwendung& Lauf, Anlaß Warum, CDDBHerkunft Herkunft, QWidget* Eltern);
    // "OK" keeps what is new in the cache first; the form stays when that fails.
    void done(int Ergebnis) override;

  private:
    enum Titelspalten { SpalteNummer, SpalteTitel, SpalteDauer };

    QLayout* LaufwerkszeileAnlegen();
    QLayout* FelderAnlegen();
    QWidget* TitellisteAnlegen();
    QLayout* FunktionszeileAnlegen();
    QPushButton* KnopfAnlegen(const QString& Name, const QString& Text, std::function<void()> Handler);

    void Zeigen(const CDDaten& Daten);
    void TitelZeigen(const CDDaten& Daten);
    // The record with what stands in the controls.
    CDDaten Eingaben() const;
    bool Geändert() const;
    void HerkunftZeigen(CDDBHerkunft Herkunft);
    void FreigabenSetzen();
    // True when what is new may go.
    bool VerwerfenErlaubt(std::string_view Frage);
    std::size_t CDWählen(const std::vector<std::string>& Zeilen);
    void FunktionAusführen(const std::function<bool(CDDaten&)>& Funktion);
    void Einlesen(const QString& Laufwerk);
    void cmdAbbild_Click();
    void cmdAbfragen_Click();
    void cmdSenden_Click(bool Probe);
    void cmdLog_Click();

    Anwendung& Programm;
    const Anlaß Grund;
    CDDaten Gezeigt;             // as the controls would give it back untouched
    bool Ungespeichert = false;  // the record is new to the cache, edited or not
    QLabel* lblBannerText = nullptr;
    QComboBox* cboLaufwerk = nullptr;
    QLineEdit* txtAlbum = nullptr;
    QLineEdit* txtInterpret = nullptr;
    QLineEdit* txtJahr = nullptr;
    QComboBox* cboGenre = nullptr;
    QComboBox* cboKategorie = nullptr;
    QTableWidget* lstTitel = nullptr;
    QPlainTextEdit* txtErweitert = nullptr;
    QLabel* lblStatus = nullptr;
    QWidget* fraDaten = nullptr;
    QPushButton* cmdFunktionen = nullptr;
    QPushButton* cmdAbfragen = nullptr;
    QPushButton* cmdSenden = nullptr;
    QPushButton* cmdLog = nullptr;
    QPushButton* cmdOk = nullptr;
};

// The assistant for a disc: reads it, asks for its data, shows the form. False when it cannot be read or the
// person does not want it.
bool CDAssistentZeigen(Anwendung& Programm, std::string_view Laufwerk, QWidget* Eltern);
// The form for a disc of the cache; true when its file changed.
bool CDAusSpeicherÄndern(Anwendung& Programm, const std::string& ID, QWidget* Eltern);

}  // namespace liedwerk
