// frmSucheErweitertHinzufügen: one query with all its choices, to be added or changed.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "suche/abfrage.h"

namespace liedwerk {

class frmSucheErweitertHinzufügen final : public QDialog {
  public:
    // Nummer 0 is the adding mode; any other one is the query (1-based) that the form shows and changes.
    frmSucheErweitertHinzufügen(Suchabfragen& Abfragen, std::size_t Nummer, Einstellungen& Einstellwerte,
                                Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted puts the query into the set first; when that fails, the form stays.
    void done(int Ergebnis) override;

  private:
    QComboBox* AuswahlAnlegen(const QString& Name, const QString& Hörname, const QStringList& Einträge);
    void AbfrageZeigen(const Suchabfrage& Abfrage);
    bool Übernehmen();

    Suchabfragen& Menge;
    std::size_t ZuÄndern;
    Einstellungen& Werte;
    Oberfläche& Person;
    QLineEdit* txtSucheBegriff;
    QListWidget* lstSucheArt;
    QComboBox* cboSucheMussDarfNicht;
    QComboBox* cboSucheUndOder;
    QComboBox* cboSucheWo;
    QCheckBox* chkBeideTags;
    QCheckBox* chkHinzu;  // on: the query is added, off: query ZuÄndern is overwritten
    QCheckBox* chkDirektStarten;
};

}  // namespace liedwerk
