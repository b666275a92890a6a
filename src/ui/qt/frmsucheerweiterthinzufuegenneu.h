// frmSucheErweitertHinzufügenNeu: queries from a tree of fields and their values.
#pragma once

#include <QDialog>
#include <QTreeView>

#include "basis/oberflaeche.h"
#include "index/katalog.h"
#include "suche/abfrage.h"
#include "suche/suchpuffer.h"

namespace liedwerk {

class frmSucheErweitertHinzufügenNeu final : public QDialog {
  public:
    // AlsWort: the new queries get the code for whole words.
    frmSucheErweitertHinzufügenNeu(const Katalog& Index, Suchpuffer& Puffer, Suchabfragen& Abfragen,
                                   bool AlsWort, Oberfläche& Dialoge, QWidget* Eltern);
    // Accepted puts the chosen node's queries into the set first; when that fails, the form stays.
    void done(int Ergebnis) override;

  private:
    Suchabfragen& Menge;
    bool NeueAlsWort;
    Oberfläche& Person;
    QTreeView* treListe;
};

}  // namespace liedwerk
