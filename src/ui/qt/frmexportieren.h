// frmExportieren: how and where the list of records is written.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <string>
#include <vector>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "export/exportieren.h"

namespace liedwerk {

class frmExportieren final : public QDialog {
  public:
    // Shows what Werte remembers; takes the choices over into Werte when it is accepted.
    frmExportieren(Einstellungen& Werte, std::size_t Anzahl, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted only with a choice that can be carried out.
    void done(int Ergebnis) override;

    // After the form was accepted: the clipboard was chosen, or how the file is written (without the
    // columns).
    bool InZwischenablage() const { return optZwischenablage->isChecked(); }
    const Exportauftrag& Auftrag() const { return Gewählt; }

  private:
    struct Formatwahl {
        QRadioButton* Knopf;
        Exportmodus Modus;
        QString Endung;
        QString Filter;
    };
    QRadioButton* WahlAnlegen(QWidget& Eltern, QVBoxLayout& Spalte, const QString& Name, const QString& Text);
    QWidget* FormateAnlegen();
    QWidget* TextoptionenAnlegen();
    QLayout* DateizeileAnlegen();
    const Formatwahl* GewähltesFormat() const;
    void EinstellungenZeigen();
    void EndungSetzen();
    void FreigabenSetzen();
    void cmdDateiSuchen_Click();
    bool AuftragBilden();

    Einstellungen& Gemerkt;
    Oberfläche& Person;
    Exportauftrag Gewählt;
    std::vector<Formatwahl> Formate;
    std::vector<std::pair<QRadioButton*, Exporttrenner>> Trenner;
    QRadioButton* optZwischenablage = nullptr;
    QGroupBox* fraText = nullptr;
    QCheckBox* chkTextAnführungszeichen = nullptr;
    QLabel* lblDatei = nullptr;
    QLineEdit* txtDatei = nullptr;
    QPushButton* cmdDateiSuchen = nullptr;
};

}  // namespace liedwerk
