// The program's own symbols: line drawings that take the text colour of the palette, light or dark.
#pragma once

#include <QIcon>
#include <QLabel>
#include <string_view>

namespace liedwerk {

// The symbol of daten/symbole of this name, drawn in the palette's text colour of the moment.
QIcon Symbolbild(const char* Name);
// The program's own coloured symbol.
QIcon Programmsymbol();

// A label with a symbol (Kante: pixels) that takes the colour of another palette when one comes.
class Symbolfeld final : public QLabel {
  public:
    Symbolfeld(QIcon Symbol, int Kante, QIcon::Mode Zustand, QWidget* Eltern);

  protected:
    void changeEvent(QEvent* Ereignis) override;

  private:
    void Zeichnen();

    QIcon Bild;
    int Seite;
    QIcon::Mode Art;
};

// Symbol of a file by its extension, and its name for people who do not see it.
struct Dateisymbol {
    QIcon Bild;
    QString Name;
};
const Dateisymbol& DateisymbolVon(std::string_view Pfad);
const Dateisymbol& Ordnersymbol();

}  // namespace liedwerk
