// frmVerschiebenDateiExistiert: what shall happen when the target of a move or copy exists.
#pragma once

#include <QDialog>
#include <string_view>

#include "basis/oberflaeche.h"

namespace liedwerk {

class frmVerschiebenDateiExistiert final : public QDialog {
  public:
    frmVerschiebenDateiExistiert(std::string_view Text, QWidget* Eltern);
    // Modal; closing it in another way than by a button cancels.
    Vorhandenantwort Fragen();
};

}  // namespace liedwerk
