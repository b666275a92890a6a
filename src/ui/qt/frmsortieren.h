// frmSortieren: up to three columns to sort by, and the direction.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QRadioButton>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "basis/oberflaeche.h"
#include "suche/sortieren.h"

namespace liedwerk {

class frmSortieren final : public QDialog {
  public:
    // Spalte is the field name of the column whose head was clicked.
    frmSortieren(std::string_view Spalte, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted only with a choice that can be sorted by.
    void done(int Ergebnis) override;

    // After the form was accepted.
    const std::vector<std::string>& Sortierkriterien() const { return Wahl.Sortierkriterien; }
    bool Absteigend() const { return optAbsteigend->isChecked(); }

  private:
    Oberfläche& Person;
    std::array<QComboBox*, SortierkriterienHöchstens> cboSpalte{};
    QRadioButton* optAufsteigend;
    QRadioButton* optAbsteigend;
    Sortierwahl Wahl;
};

}  // namespace liedwerk
