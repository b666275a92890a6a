// frmDateiname: one name typed anew.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

class frmDateiname final : public QDialog {
  public:
    // Vorgang says what is done.
    frmDateiname(std::string_view Vorgang, const std::string& AlterName, QWidget* Eltern);
    // Modal; the new name, nothing when it was cancelled.
    std::optional<std::string> Erfragen();

  private:
    std::string Alter;
    QLineEdit* txtAlter;
    QLineEdit* txtNeuer;
};

}  // namespace liedwerk
