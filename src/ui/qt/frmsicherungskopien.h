// frmSicherungskopien: the backups of the loaded index, and putting one of them in its place.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "core/anwendung.h"
#include "core/sicherungslauf.h"

namespace liedwerk {

class frmSicherungskopien final : public QDialog {
  public:
    frmSicherungskopien(Anwendung& Lauf, QWidget* Eltern);
    ~frmSicherungskopien() override;

  private:
    void ListeFüllen();
    // Counts the records of the backups in a thread; the rows get their numbers as they come.
    void ZählungStarten();
    void AnzahlZeigen(std::size_t Zeile, std::int64_t Anzahl);
    void cmdWiederherstellen_Click();

    Anwendung& Programm;
    std::vector<Sicherungskopie> Kopien;
    QTreeWidget* lstSicherungskopien;
    QPushButton* cmdWiederherstellen;
    // Shared with the thread: lowered when the form goes.
    std::shared_ptr<std::atomic<bool>> Lebendig = std::make_shared<std::atomic<bool>>(true);
    std::thread Zähler;
};

}  // namespace liedwerk
