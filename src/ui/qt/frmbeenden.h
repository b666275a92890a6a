// frmBeenden: what closing the main window shall do.
#pragma once

#include <QCheckBox>
#include <QDialog>

namespace liedwerk {

// Its result is FrmBeendenAntwort: 0 cmdAbbrechen, 1 cmdMinimieren, 2 cmdBeenden, 3 cmdTray.
class frmBeenden final : public QDialog {
  public:
    // MitTray: the symbol is there, so that a window without it would not be lost.
    frmBeenden(bool MitTray, QWidget* Eltern);
    bool Immer() const { return chkImmer->isChecked(); }

  private:
    QCheckBox* chkImmer;
};

}  // namespace liedwerk
