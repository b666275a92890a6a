// frmAutoDJ: lists drawn from the play statistics.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <vector>

#include "abspielen/autodj.h"
#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "basis/uhr.h"

namespace liedwerk {

class frmAutoDJ final : public QDialog {
  public:
    // The inputs come from the settings and go back there whenever the form closes.
    frmAutoDJ(const Katalog& Datensätze, Einstellungen& Gemerkt, const Uhr& Uhrzeit, Zufallszahl Zahlen,
              Oberfläche& Dialoge, QWidget* Eltern);
    void done(int Ergebnis) override;
    // Accepted: the found records in their order.
    const std::vector<Satznummer>& Gefunden() const { return Nummern; }

  private:
    QWidget* ZufälligAnlegen();
    QWidget* ToplisteAnlegen();
    QLayout* GenresAnlegen();
    QLineEdit* FeldAnlegen(const QString& Name, const QString& Hörname);
    QComboBox* EinheitAnlegen(const QString& Name, const QString& Hörname);
    QCheckBox* KästchenAnlegen(const QString& Name, const QString& Text, QLayout& Spalte);
    void GenresFüllen(const std::vector<std::string>& Gewählte);
    void GenresSetzen(const std::function<bool(bool)>& Neu);
    void Füllen();
    AutoDjEingabe Lesen(AutoDjFunktion Funktion) const;
    void cmdErstellen_Click();

    const Katalog& Index;
    Einstellungen& Werte;
    const Uhr& Zeit;
    Zufallszahl Zufall;
    Oberfläche& Person;
    std::vector<Satznummer> Nummern;
    QComboBox* cboFunktion;
    QStackedWidget* Seiten;
    QListWidget* lstFelder = nullptr;
    QLineEdit* txtZeit = nullptr;
    QComboBox* cboZeiteinheit = nullptr;
    QLineEdit* txtMaximum = nullptr;
    QCheckBox* chkAlteSeltener = nullptr;
    QCheckBox* chkSehrAlteHäufiger = nullptr;
    QCheckBox* chkID3v1Verwenden = nullptr;
    QCheckBox* chkID3v2Verwenden = nullptr;
    QLineEdit* txtTopWieviel = nullptr;
    QLineEdit* txtTopZeitraum = nullptr;
    QComboBox* cboTopZeitraum = nullptr;
};

}  // namespace liedwerk
