// frmSucheTextbasiert: many searches at once, one a line, and what the index holds for each.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>
#include <functional>
#include <memory>
#include <vector>

#include "basis/oberflaeche.h"
#include "index/katalog.h"
#include "suche/mehrfachsuche.h"

namespace liedwerk {

class Resultatmodell;
class Detailmodell;

class frmSucheTextbasiert final : public QDialog {
  public:
    frmSucheTextbasiert(const Katalog& Datensätze, Suchpuffer& Texte, Oberfläche& Dialoge, QWidget* Eltern);
    ~frmSucheTextbasiert() override;

    // cmdInfos: shows and edits the files of these records; given by whoever opens the form.
    std::function<void(const std::vector<Satznummer>&)> Infos;
    // cmdExport: writes these records as a list; the same.
    std::function<void(const std::vector<Satznummer>&)> Export;
    // cmdAbspielen, cmdInPlaylist: plays these records, or appends them to the player's list.
    std::function<void(const std::vector<Satznummer>&, bool Anhängen)> Abspielen;

    // Accepted: these records shall be shown in the main window, in this order.
    const std::vector<Satznummer>& FürHauptfenster() const { return Gewählte; }

  private:
    QWidget* EingabeAnlegen();
    QWidget* ResultateAnlegen();
    QPushButton* KnopfAnlegen(const QString& Name, const QString& Text,
                              void (frmSucheTextbasiert::*Handler)());
    void cmdVerarbeiten_Click();
    void cmdÄndern_Click();
    void cmdRücksetzen_Click();
    void cmdInfos_Click();
    void cmdExport_Click();
    void cmdAbspielen_Click();
    void cmdInPlaylist_Click();
    void cmdHauptfenster_Click();
    // The files selected among the details; without one the person is told.
    std::vector<Satznummer> GewählteDetails();

    const Katalog& Index;
    Suchpuffer& Puffer;
    Oberfläche& Person;
    std::vector<Mehrfachresultat> Resultate;
    std::vector<Satznummer> Gewählte;
    std::unique_ptr<Resultatmodell> Zeilen;
    std::unique_ptr<Detailmodell> Details;
    QStackedWidget* Seiten;
    QPlainTextEdit* txtAbfragen = nullptr;
    QPushButton* cmdVerarbeiten = nullptr;
    QTreeView* lstResultate = nullptr;
    QTreeView* lstResultateDetails = nullptr;
};

}  // namespace liedwerk
