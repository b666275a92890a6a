// frmOptionen: the options on pages, a search over all of them, and what leads from them to other forms.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <functional>

#include "core/anwendung.h"
#include "ui/qt/optionsfelder.h"

namespace liedwerk {

// The forms that the options lead to. An empty one hides its button.
struct Optionswege {
    std::function<void(QWidget*)> IndexOptionen;
    std::function<void(QWidget*)> Sicherungskopien;
    // Lets the person set or remove the password of the lock.
    std::function<void(Einstellungen& Werte, QWidget*)> Passwort;
};

class frmOptionen final : public QDialog {
  public:
    frmOptionen(Anwendung& Lauf, Optionswege Ziele, QWidget* Eltern);
    // Accepted only when everything is right; what was changed holds then.
    void done(int Ergebnis) override;
    void SeiteZeigen(Optionsseite Seite);

  private:
    void SeitenAnlegen(QVBoxLayout& Spalte);
    void FußAnlegen(QVBoxLayout& Spalte);
    void ZusätzeAnlegen();
    QPushButton* KnopfAnlegen(QVBoxLayout& Spalte, const QString& Name, const QString& Text,
                              std::function<void()> Handler);
    void SchriftwahlAnlegen();
    void SchriftwahlZeigen();
    void FarbprofilwahlAnlegen();
    void FarbprofilZeigen();
    void DarstellungOrdnen();
    void chkSchriftDesktop_Click(bool An);
    void txtSuche_Change(const QString& Text);
    void cmdVorgaben_Click();
    void cmdÜbernehmen_Click();
    void cmdAlleHinweise_Click();
    void cmdPasswort_Click();
    // Opens a form that works on the settings: on the draft, in place of those in use.
    void EntwurfBearbeiten(const std::function<void(Einstellungen&)>& Form);
    std::optional<Optionsfehler> Prüfen() const;
    // Takes the draft over; false, with a message and the focus on the control, when something is wrong.
    bool Übernehmen();
    void EntwurfZeigen();
    void ÄnderungenNachführen();
    const Optionsblatt& Gezeigt() const;

    Anwendung& Programm;
    Optionswege Wege;
    Einstellungen Anfang;   // as they were when the form opened, or when they were last taken over
    Einstellungen Entwurf;  // as the controls show them
    Optionsfelder Felder;
    QLineEdit* txtSuche = nullptr;
    QLabel* lblNichtsGefunden = nullptr;
    QListWidget* lstSeiten = nullptr;
    QStackedWidget* Seiten = nullptr;
    QCheckBox* chkSchriftDesktop = nullptr;
    QComboBox* cboFarbprofil = nullptr;
    QPushButton* cmdÜbernehmen = nullptr;
};

}  // namespace liedwerk
