// frmCDBrowser: the cached CDs ("Lokale CD-Datenbanken").
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "core/anwendung.h"

namespace liedwerk {

class frmCDBrowser final : public QDialog {
  public:
    frmCDBrowser(Anwendung& Lauf, QWidget* Eltern);

  protected:
    void keyPressEvent(QKeyEvent* Ereignis) override;

  private:
    // CDDBCDsSuchen; the row of this disc is current then.
    void ListeFüllen(const std::string& ID);
    std::string GewählteID() const;
    // The chosen disc's id; empty, with a message, when none is chosen.
    std::string GewählteIDOderMeldung();
    void cmdÄndern_Click();
    void cmdLöschen_Click();

    Anwendung& Programm;
    QTreeWidget* lstCDs;
    QLabel* lblAnzahl;
};

}  // namespace liedwerk
