// The controls of the options, made from the table of core/optionentabelle.h: a page is a column of groups,
// a group a column of labelled controls. A control writes into the draft when the person changes it, and only
// then, so that a stored value that no control can show stays as it is.
#pragma once

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

#include "core/optionentabelle.h"

namespace liedwerk {

class Optionsfelder {
  public:
    // Geändert is called behind every change of the person.
    Optionsfelder(Einstellungen& Entwurf, std::function<void()> Geändert);

    // The page with the controls of all its options.
    QWidget* SeiteAnlegen(const Optionsblatt& Blatt, QWidget* Eltern);
    // The column of a group for what a page has besides its options; a group of another name is made.
    QVBoxLayout& Gruppe(Optionsseite Seite, std::string_view Name);
    // A row of the group's columns for a control that the page has besides its options; the first one of all.
    void ZeileEinfügen(QVBoxLayout& Spalte, QLabel* Beschriftung, QWidget* Bedienung) const;
    // All controls from the draft.
    void Zeigen();
    QWidget* Bedienung(const Option& Eine) const;
    // Makes the options of the page that speak of the text stand out (none for an empty one). True when the
    // page speaks of it.
    bool Hervorheben(const Optionsblatt& Blatt, const QString& Text);

  private:
    struct Feld {
        const Option* Was;
        QWidget* Bedienung;
        QWidget* Beschriftung;  // the label, or the control that carries its own text
        std::function<void()> Zeigen;
    };
    void FeldAnlegen(const Option& Eine, QVBoxLayout& Spalte);
    Feld SchalterAnlegen(const Option& Eine, QVBoxLayout& Spalte);
    Feld ZahlAnlegen(const Option& Eine, QWidget* Eltern);
    Feld TextAnlegen(const Option& Eine, QWidget* Eltern);
    Feld WahlAnlegen(const Option& Eine, QWidget* Eltern);
    Feld SchriftAnlegen(const Option& Eine, QWidget* Eltern);
    Feld FarbeAnlegen(const Option& Eine, QWidget* Eltern);
    // The person has changed something: writes it by Setzen unless the controls are just being filled.
    void Schreiben(const std::function<void()>& Setzen);
    void FreigabenSetzen();

    Einstellungen& Werte;
    std::function<void()> BeiÄnderung;
    std::vector<Feld> Felder;
    std::map<std::pair<Optionsseite, std::string_view>, QVBoxLayout*> Gruppen;
    std::map<Optionsseite, QVBoxLayout*> Seiten;
    bool Zeigt = false;
};

}  // namespace liedwerk
