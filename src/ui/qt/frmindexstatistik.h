// The statistics of the loaded index: figures on the left, a picture on the right.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QScrollArea>

#include "core/anwendung.h"
#include "core/indexstatistik.h"
#include "ui/qt/balkenbild.h"

namespace liedwerk {

class frmIndexStatistik final : public QDialog {
  public:
    frmIndexStatistik(Indexstatistik Zahlen, std::string_view Indexname, std::string_view Besitzer,
                      QWidget* Eltern);

  private:
    void ZahlenAnlegen(QFormLayout& Formular);
    void BildZeigen();
    void cmdKopieren_Click();

    Indexstatistik Statistik;
    std::string Eigentümer;
    QComboBox* cboTeilung;
    QComboBox* cboMaß;
    QScrollArea* Rollfeld;
    Balkenbild* picBalken;
};

// Counts with a progress display and shows the form; nothing when the person cancels.
void IndexstatistikZeigen(Anwendung& Programm, QWidget* Eltern);

}  // namespace liedwerk
