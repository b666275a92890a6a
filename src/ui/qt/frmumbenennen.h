// frmUmbenennen: ten functions on the names, entries and attributes of the selected files.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <array>

#include "basis/einstellungen.h"
#include "basis/oberflaeche.h"
#include "medien/umbenennplan.h"

namespace liedwerk {

class frmUmbenennen final : public QDialog {
  public:
    // Anzahl: how many files are selected. The inputs begin as the settings hold them.
    frmUmbenennen(const Einstellungen& Werte, std::size_t Anzahl, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted only with inputs that the chosen function can start with.
    void done(int Ergebnis) override;
    // What was chosen.
    Umbenennauftrag Auftrag() const;

  private:
    QVBoxLayout* SeiteAnlegen(const QString& Name, const QString& Erklärung);
    QLineEdit* FeldAnlegen(QVBoxLayout& Seite, const QString& Name, const QString& Frage,
                           const std::string& Text);
    QCheckBox* HakenAnlegen(QVBoxLayout& Seite, const QString& Name, const QString& Text, bool Gesetzt);
    void SeitenAnlegen(const Einstellungen& Werte);
    void SchreibweiseAnlegen(const Einstellungen& Werte);
    void AttributeAnlegen(const Einstellungen& Werte);

    Oberfläche& Person;
    std::size_t Dateien;
    QListWidget* lstFunktionen;
    QStackedWidget* Seiten;
    QLineEdit* txtFormat = nullptr;
    QLineEdit* txtErsetzen = nullptr;
    QLineEdit* txtErsetzenDurch = nullptr;
    QCheckBox* chkErsetzenAuchPfad = nullptr;
    QLineEdit* txtFortlaufendBasis1 = nullptr;
    QLineEdit* txtFortlaufendZählen1 = nullptr;
    QLineEdit* txtFortlaufendBasis2 = nullptr;
    std::array<QRadioButton*, 4> optSchreibweise{};
    QLineEdit* txtDateiendung = nullptr;
    QLineEdit* txtIndexErsetzen = nullptr;
    QLineEdit* txtIndexErsetzenDurch = nullptr;
    QCheckBox* chkIndexErsetzenAuchPfad = nullptr;
    QCheckBox* chkIndexErsetzenVorherLeeren = nullptr;
    QCheckBox* chkIndexÄndernVorherLeeren = nullptr;
    QCheckBox* chkAttributSchreibschutz = nullptr;
    QLineEdit* txtErsetzenEndung = nullptr;
};

}  // namespace liedwerk
