// The forms that only tell something: information, the owner of an index.
#pragma once

#include <QDialog>
#include <string_view>

namespace liedwerk {

class frmInfo final : public QDialog {
  public:
    frmInfo(std::string_view NameMitVersion, QWidget* Eltern);
};

class frmEigentümer final : public QDialog {
  public:
    frmEigentümer(std::string_view Name, QWidget* Eltern);
};

}  // namespace liedwerk
