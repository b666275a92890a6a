// frmIndexVerwaltung: finds doubles and doubtful files among the selected ones and does what is chosen with
// them.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "core/aufraeumlauf.h"

namespace liedwerk {

class Aufräummodell;

class frmIndexVerwaltung final : public QDialog {
  public:
    // Arbeitsmenge: the records to look through. Abspielen plays files; may be empty, then nothing can be
    // played.
    frmIndexVerwaltung(Anwendung& Lauf, std::vector<Satznummer> Arbeitsmenge,
                       std::function<void(const std::vector<Satznummer>&)> Abspielen, QWidget* Eltern);
    ~frmIndexVerwaltung() override;

    // What exec() gives besides the usual: the records of FürHauptfenster shall be shown in the main window.
    static constexpr int ImHauptfenster = 2;
    const std::vector<Satznummer>& FürHauptfenster() const { return Gewählte; }
    // Asks before choices are thrown away.
    void reject() override;

  private:
    // The controls of one of the two files of a row.
    struct Seite {
        QWidget* Rahmen = nullptr;
        QLabel* lblEintrag = nullptr;
        QLabel* lblName = nullptr;
        QLabel* lblDaten = nullptr;
        QComboBox* cboAktion = nullptr;
        QPushButton* cmdAbspielen = nullptr;
        QPushButton* cmdInfos = nullptr;
    };
    QPushButton* KnopfAnlegen(const QString& Name, const QString& Text, std::function<void()> Handler);
    QLayout* SuchzeileAnlegen();
    QWidget* ListeAnlegen();
    QWidget* DetailsAnlegen();
    Seite SeiteAnlegen(QWidget& Eltern, int Nummer);
    QLayout* FußAnlegen();

    void cmdSuchen_Click();
    void cmdRücksetzen_Click();
    void lstEinträge_Click();
    void cboAktion_Click(int Nummer);
    void cmdAbspielen_Click(int Nummer);
    void cmdInfos_Click(int Nummer);
    void cmdWählenUmkehren_Click();
    void cmdHauptfenster_Click();
    void cmdOk_Click();

    // The rows that are selected, rising.
    std::vector<std::size_t> GewählteZeilen() const;
    void SeiteZeigen(Seite& Ziel, Satznummer Nummer, std::size_t Zeile);
    void AktionenZeigen(const std::vector<std::size_t>& Auswahl);
    // The record of a side of the current row; 0 for none.
    Satznummer SatzDerSeite(int Nummer) const;
    void ZustandZeigen(bool Gefunden);

    Anwendung& Programm;
    Oberfläche& Person;
    const std::vector<Satznummer> Menge;
    const std::function<void(const std::vector<Satznummer>&)> Spielen;
    std::vector<Aufräumzeile> Ergebnisse;
    std::vector<Satznummer> Gewählte;
    bool Paarweise = true;
    std::unique_ptr<Aufräummodell> Modell;
    QComboBox* cboSuchmethode = nullptr;
    QPushButton* cmdSuchen = nullptr;
    QPushButton* cmdRücksetzen = nullptr;
    QTreeView* lstEinträge = nullptr;
    QLabel* lblGefundenAnzahl = nullptr;
    QGroupBox* fraDetails = nullptr;
    QLabel* lblAuswahl = nullptr;
    QLabel* lblGleich = nullptr;
    std::array<Seite, 2> Seiten;
    QList<QPushButton*> Auswahlknöpfe;
    QPushButton* cmdHauptfenster = nullptr;
    QPushButton* cmdOk = nullptr;
};

}  // namespace liedwerk
