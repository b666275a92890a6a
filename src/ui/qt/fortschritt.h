// Fortschritt: the one modal progress window.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <cstdint>
#include <string_view>

namespace liedwerk {

// "Noch etwa 2 Minuten" from the part that is done (0 to 1) and the milliseconds it took; empty while there
// is too little to judge by.
QString Restzeit(double Anteil, std::int64_t Vergangen);

class frmFortschritt final : public QDialog {
  public:
    explicit frmFortschritt(QWidget* Eltern);

    void Starten(const QString& Titel, bool MitProzent, std::int64_t Höchstens);
    // The run waits for another machine: its window appears in any case, late where it is not wanted.
    void AufNetzWarten() { WartetAufNetz = true; }
    // False when the person has cancelled. Erwünscht: whether the person wants to see progress.
    bool Zeigen(std::string_view Text, std::int64_t Position, bool Erwünscht);
    void Schließen();
    bool Offen() const { return Läuft; }
    void Abbrechen();

  protected:
    void reject() override { Abbrechen(); }
    void closeEvent(QCloseEvent* Ereignis) override;

  private:
    bool MußErscheinen(bool Erwünscht) const;
    void Anzeigen(std::int64_t Position);

    QLabel* lblTitel;
    QLabel* lblText;
    QLabel* lblRestzeit;
    QProgressBar* prgFortschritt;
    QPushButton* cmdAbbrechen;
    bool Läuft = false;
    bool Abgebrochen = false;
    bool Prozent = false;
    bool WartetAufNetz = false;
    std::int64_t Obergrenze = 0;
    QString Zeile;
    QElapsedTimer SeitStart;    // of the whole run; decides when the window appears
    QElapsedTimer SeitTitel;    // of the present stage; the remaining time goes by it
    QElapsedTimer SeitAnzeige;  // since the last turn of the event loop
};

}  // namespace liedwerk
