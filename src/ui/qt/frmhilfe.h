// frmHilfe: the handbook in a window of its own, with its headings as table of contents.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QTextBrowser>
#include <QTreeWidget>

namespace liedwerk {

// The handbook's file as it was installed with the program, or in the source tree above Programmordner; empty
// when there is none.
QString HandbuchFinden(const QString& Programmordner);

class frmHilfe final : public QDialog {
  public:
    // Datei is Markdown; pictures are looked for from its folder on.
    frmHilfe(const QString& Datei, QWidget* Eltern);

  private:
    void InhaltFüllen();
    void ZuAbschnitt(int Block);
    void Verweis(const QUrl& Ziel);
    void txtSuchen_Weiter();

    QLineEdit* txtSuchen;
    QTreeWidget* treInhalt;
    QTextBrowser* txtHandbuch;
};

}  // namespace liedwerk
