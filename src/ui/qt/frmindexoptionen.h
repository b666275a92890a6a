// frmIndexOptionen: the options that belong to the loaded index and travel in its file.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <array>
#include <set>

#include "core/anwendung.h"
#include "core/indexoptionenlauf.h"

namespace liedwerk {

class frmIndexOptionen final : public QDialog {
  public:
    enum Blatt : int { Dateitypen, Synchronisation, Spalten, Eigentümer };
    frmIndexOptionen(Anwendung& Lauf, QWidget* Eltern);
    // Accepted only when everything is right; the options hold then.
    void done(int Ergebnis) override;
    void BlattZeigen(Blatt Welches) { Blätter->setCurrentIndex(Welches); }

  private:
    QWidget* DateitypenAnlegen();
    QWidget* SynchronisationAnlegen();
    QWidget* SpaltenAnlegen();
    QWidget* EigentümerAnlegen();

    // File types: the list, and the flags of the row below it.
    void TypenZeigen(std::size_t Gewählt);
    void TypzeileZeigen(std::size_t Platz);
    void TypAuswahlZeigen();
    void TypSchalten();
    void cmdTypHinzufügen_Click();
    void cmdTypÄndern_Click();
    void cmdTypEntfernen_Click();
    std::size_t GewählterTyp() const;

    // Folders: the list, and the values of the row below it.
    void RegelnZeigen(int Gewählt);
    void RegelAuswahlZeigen();
    void RegelSchreiben();
    void cmdOrdnerHinzufügen_Click();
    void cmdOrdnerEntfernen_Click();
    void cmdOrdnerVerschieben_Click(int Richtung);
    void cmdZielSuchen_Click();

    void SpaltenZeigen();
    void cmdSpalteVerschieben_Click(int Richtung);
    // What the controls of the columns say, into the draft.
    void SpaltenLesen();

    // The controls into the draft; false, with a message and its page in front, when something is wrong.
    bool EingabenPrüfen();

    Anwendung& Programm;
    Indexoptionen Entwurf;
    bool Zeigt = false;  // controls are being filled
    QTabWidget* Blätter;
    QTreeWidget* lstDateitypen = nullptr;
    QCheckBox* chkVerwalten = nullptr;
    std::array<QCheckBox*, 3> chkTyp{};
    QPushButton* cmdTypÄndern = nullptr;
    QPushButton* cmdTypEntfernen = nullptr;
    QListWidget* lstSyncOrdner = nullptr;
    QCheckBox* chkSyncUnterordner = nullptr;
    QCheckBox* chkSyncKopierenInOrdner = nullptr;
    QLineEdit* txtSyncKopierenInOrdner = nullptr;
    QPushButton* cmdZielSuchen = nullptr;
    std::vector<QPushButton*> Ordnerknöpfe;  // need a row
    std::set<std::string> ZielErwünscht;  // the folders whose files shall be moved, also while none is given
    QCheckBox* chkSyncDanachEntfernen = nullptr;
    QLineEdit* txtSyncKopierenNichtBeiText = nullptr;
    QListWidget* lstSpalten = nullptr;
    struct Ansichtsschalter {
        QCheckBox* Schalter;
        std::int16_t Indexoptionen::*Option;
    };
    std::vector<Ansichtsschalter> Ansicht;
    QLineEdit* txtSpaltenNutzerformat = nullptr;
    QLineEdit* txtEigentümer = nullptr;
};

}  // namespace liedwerk
