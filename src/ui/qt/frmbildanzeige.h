// frmBildAnzeige: shows one picture, as large as the form.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPixmap>
#include <string_view>

namespace liedwerk {

class frmBildAnzeige final : public QDialog {
  public:
    frmBildAnzeige(std::string_view Pfad, QWidget* Eltern);

  protected:
    void resizeEvent(QResizeEvent* Ereignis) override;

  private:
    void BildEinpassen();

    QPixmap Bild;
    QLabel* imgViewer;
};

}  // namespace liedwerk
