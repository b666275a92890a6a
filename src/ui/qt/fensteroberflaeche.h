// The port to the person, as windows.
#pragma once

#include <QPointer>
#include <functional>

#include "basis/oberflaeche.h"
#include "ui/qt/fortschritt.h"

namespace liedwerk {

class Fensteroberfläche final : public Oberfläche {
  public:
    // Where the status text is shown, and whether the progress window is wanted (the setting
    // StartBildschirm).
    std::function<void(const QString& Text, int Dauer)> Status;
    std::function<bool()> FortschrittErwünscht;

    void Melden(Symbol Zeichen, std::string_view Text) override;
    Antwort Fragen(Symbol Zeichen, std::string_view Text, Knöpfe Auswahl, Antwort Vorgabe) override;
    void StatusZeigen(std::string_view Text, int Dauer) override;
    Verfügbarkeitsantwort DateiNichtVerfügbarZeigen(const Verfügbarkeitsfrage& Frage) override;
    bool DateiNichtVerfügbarSchreibenZeigen(const Schreibsperrfrage& Frage) override;
    Vorhandenantwort DateiExistiertZeigen(std::string_view Text) override;
    void FortschrittStarten(std::string_view Titel, bool MitProzent, std::int64_t Höchstens) override;
    void NetzfortschrittStarten(std::string_view Titel) override;
    bool FortschrittZeigen(std::string_view Text, std::int64_t Position) override;
    void FortschrittSchließen() override;
    bool FortschrittOffen() const override;
    void EreignisseVerarbeiten() override;

    // The window on which new ones stand: the active dialog, else the main window.
    void BesitzerSetzen(QWidget* Hauptform) { Besitzer = Hauptform; }
    // Gets a run that has to end now to its end: cancels the progress, answers the open dialog as closing it
    // does.
    void Drängen();
    // Closes the progress of a run that an exception has ended: one that was opened in a delivery of an event
    // of at least this depth (Fensterprogramm).
    void LaufGescheitert(int Tiefe);

  private:
    QWidget* BesitzerJetzt() const;
    QPointer<QWidget> Besitzer;
    QPointer<frmFortschritt> Fenster;
    int Starttiefe = 0;  // of the event in which Fenster was opened
};

}  // namespace liedwerk
