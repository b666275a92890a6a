// The forms that only tell something: information, the owner of an index, the welcome of the first start.
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

// The result is OrdnerGewünscht when the person wants to add a folder at once.
class frmWillkommen final : public QDialog {
  public:
    static constexpr int OrdnerGewünscht = 2;
    frmWillkommen(std::string_view NameMitVersion, QWidget* Eltern);
};

}  // namespace liedwerk
