// frmLöschen: whether and how files go from the disk.
#pragma once

#include <QDialog>

namespace liedwerk {

class frmLöschen final : public QDialog {
  public:
    enum class Wahl { Abbrechen = 0, Löschen = 1, Papierkorb = 2 };
    frmLöschen(std::size_t Anzahl, QWidget* Eltern);
    Wahl Fragen() { return static_cast<Wahl>(exec()); }
};

}  // namespace liedwerk
