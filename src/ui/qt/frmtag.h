// frmTag: information about the selected files and their tags, one file after the other.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>
#include <array>
#include <functional>
#include <vector>

#include "core/tageditor.h"
#include "core/tageditorfelder.h"

namespace liedwerk {

class frmTag final : public QDialog {
  public:
    // Dateien: at least one record, in the order in which the person goes through them.
    frmTag(Anwendung& Lauf, std::vector<Satznummer> Dateien, QWidget* Eltern);
    // OK leaves the file as going on does; anything else asks about what was not saved.
    void done(int Ergebnis) override;

  protected:
    void resizeEvent(QResizeEvent* Ereignis) override;

  private:
    // Pages of optOptionen.
    enum Seite { SeiteInfos = 0, SeiteId3v1 = 1, SeiteId3v2 = 2, SeiteLyrics = 3 };

    // A control of the table with the ways in and out of it.
    struct Feldbindung {
        const Tagfeld* Feld;
        std::function<QString()> Lesen;
        std::function<void(const QString&)> Zeigen;
    };

    // Building (frmtagaufbau.cpp).
    void KopfAnlegen(QVBoxLayout& Spalte);
    void SeitenwahlAnlegen(QVBoxLayout& Spalte);
    void SeitenAnlegen(QVBoxLayout& Spalte);
    void FunktionenAnlegen(QVBoxLayout& Spalte);
    void FußAnlegen(QVBoxLayout& Spalte);
    QWidget* InfoseiteAnlegen();
    QWidget* Id3v1SeiteAnlegen();
    QWidget* Id3v2SeiteAnlegen();
    QWidget* LyricsseiteAnlegen();
    QWidget* FeldAnlegen(const Tagfeld& Feld);
    QLabel* BeschriftungAnlegen(const QString& Text, QWidget& Feld);
    void FelderUntereinander(QGridLayout& Raster, Tagblatt Blatt);
    void FelderZweispaltig(QGridLayout& Raster, Tagblatt Blatt);
    void GenrelisteAnlegen(QGridLayout& Raster, int Zeile);
    void GenrelistenFüllen();
    // A list of genres with the button that edits the favourites beside it.
    QLayout* MitLieblingsknopf(QComboBox& Liste, const QString& Name);
    void BewertungAnlegen(QGridLayout& Raster, int Zeile, int Spalte);
    QPushButton* KnopfAnlegen(const QString& Name, const QString& Text, std::function<void()> Handler);
    // The page of a block: text of its pane, Felderblatt with the fields, below them Weitere and what saves
    // it.
    QWidget* TagseiteAnlegen(Tagblock Block, QWidget* Felderblatt, const QList<QWidget*>& Weitere = {});
    QLabel* TagtextAnlegen(Tagblock Block);
    void SpeichernAnlegen(QHBoxLayout& Fuß, Tagblock Block);

    // Showing and taking over.
    void DateiZeigen();
    void KopfZeigen();
    void ArbeitZeigen();
    void EingabeÜbernehmen();
    void SeiteZeigen(int Nummer);
    void BlattZeigen(int Nummer);
    void ErstesFeldFokussieren(QWidget& Blatt);

    // Handlers.
    void cmdWeiter_Click(int Richtung);
    void cmdTAGSpeichern_Click(Tagauswahl Welche);
    void chkAutomatischSpeichern_Click(Tagblock Block, bool An);
    void hscrlv2Qualität_Change();
    void cmdLieblingsGenre_Click();
    void cmdFunktionAusführen_Click();

    Anwendung& Programm;
    TagEditor Editor;
    std::vector<Feldbindung> Felder;

    QLabel* lblSymbol = nullptr;
    QLabel* lblDatei = nullptr;
    QLabel* lblOrdner = nullptr;
    QLabel* lblPlatz = nullptr;
    QPushButton* cmdVorheriger = nullptr;
    QPushButton* cmdNächster = nullptr;
    QButtonGroup* optOptionen = nullptr;
    QStackedWidget* Seiten = nullptr;
    QTextBrowser* txtDateiInfo = nullptr;
    QStackedWidget* fraId3v2 = nullptr;
    QPushButton* cmdTAGv2Weitere = nullptr;
    QPushButton* cmdTAGv2ErsteFelderAnzeigen = nullptr;
    std::array<QLabel*, 3> lblTag{};      // texts of the panes, in the order of the blocks
    std::vector<QWidget*> Felderblätter;  // what takes entries, while there is a file for them
    QComboBox* cboMusikrichtung = nullptr;
    QComboBox* cbov2Musikrichtung = nullptr;
    QSlider* hscrlv2Qualität = nullptr;
    QLabel* lblv2Qualität = nullptr;
    QComboBox* cboFunktion = nullptr;
    QComboBox* cboFunktionTAG = nullptr;
    QTimer tmrVorbereiten;        // runs in idle moments until AutoTAG knows the index
    bool AuswahlGewählt = false;  // by the person; until then cboFunktionTAG follows the page
};

}  // namespace liedwerk
