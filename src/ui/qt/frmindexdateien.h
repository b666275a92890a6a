// "Indexdateien verwalten": the recent index files, a new one, the loaded one under another name, its fields
// and its backups.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>
#include <functional>
#include <vector>

#include "core/anwendung.h"
#include "core/indexdateilauf.h"

namespace liedwerk {

// The functions that have actions of their own elsewhere; an empty one hides its button.
struct Indexdateiwege {
    std::function<void(QWidget*)> Sicherungskopien;
    std::function<void(QWidget*)> FelderSpeichern;
    std::function<void(QWidget*)> FelderImportieren;
};

class frmIndexdateien final : public QDialog {
  public:
    frmIndexdateien(Anwendung& Lauf, Indexdateiwege Ziele, QWidget* Eltern);

  private:
    void KnöpfeAnlegen(QVBoxLayout& Spalte);
    void ListeFüllen();
    void KnöpfeNachführen();
    void Laden(const std::string& Datei);
    void cmdLaden_Click();
    void cmdNeu_Click();
    void cmdÖffnen_Click();
    void cmdSpeichernUnter_Click();
    void cmdEntfernen_Click();
    std::string Gewählte() const;

    Anwendung& Programm;
    Indexdateiwege Wege;
    std::vector<Indexdateizeile> Dateien;
    QTreeWidget* lstDateien;
    QPushButton* cmdLaden = nullptr;
    QPushButton* cmdEntfernen = nullptr;
    std::vector<QPushButton*> BraucheIndex;  // buttons that work on the loaded index
};

}  // namespace liedwerk
