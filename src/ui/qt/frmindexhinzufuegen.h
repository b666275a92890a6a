// frmIndexHinzufügen: the ways to add to the index, and the system's dialogs they begin with.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

#include "basis/einstellungen.h"
#include "core/hinzufuegewege.h"
#include "index/dateitypen.h"

namespace liedwerk {

// The filters of the file dialog, and what stands in the way of adding files (empty when nothing does).
struct Dateifilter {
    QString Unterstützte;
    QString Alle;
    QString Hindernis;
};
Dateifilter DateifilterBilden(const std::vector<Dateityp>& Dateitypen);

// The folder dialog and the file dialog; empty when cancelled.
std::string OrdnerWählen(QWidget* Besitzer,
                         const QString& Titel = QStringLiteral("Bitte wählen Sie einen Ordner mit "
                                                               "Mediendateien..."));
std::vector<std::string> DateienWählen(QWidget* Besitzer, const std::vector<Dateityp>& Dateitypen);

class frmIndexHinzufügen final : public QDialog {
  public:
    // KopierenEinstellen opens the settings of copying and moving. CDs are the drives that can hold one.
    frmIndexHinzufügen(const std::vector<Dateityp>& Dateitypen, Einstellungen& Werte,
                       std::function<void(QWidget*)> KopierenEinstellen, QWidget* Eltern,
                       const std::vector<std::string>& CDs = {});
    // After the form has closed.
    const Hinzufügewahl& Wahl() const { return Gewählt; }
    // However it closes, HinzufügenKopieren takes the chosen option.
    void done(int Ergebnis) override;

  private:
    void WegeAnlegen(QVBoxLayout& Spalte, const std::vector<std::string>& CDs);
    void CDMenüAnlegen(QPushButton& Knopf, const std::vector<std::string>& CDs);
    void VerschiebenAnlegen(QVBoxLayout& Spalte);
    void cmdDateienHinzufügen_Click();
    void cmdOrdnerHinzufügen_Click();
    void cmdCDHinzufügen_Click();
    void cmdImportieren_Click();
    void cmdDateinamen_Click();
    void cmdHinzufügenZwischenablage_Click();
    void cmdKopierenEinstellen_Click();
    void optVerschieben_Click();
    void Abschließen(Hinzufügeweg Weg);

    const std::vector<Dateityp>& Typen;
    Einstellungen& Werte;
    std::function<void(QWidget*)> Einstellen;
    Hinzufügewahl Gewählt;
    QRadioButton* optVerschieben = nullptr;  // the second of the group: copy or move
    QPushButton* cmdKopierenEinstellen = nullptr;
};

}  // namespace liedwerk
