// A list of texts that the person edits: its rows, and a column of buttons beside it.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

namespace liedwerk {

class Zeilenliste final : public QWidget {
  public:
    // Name and accessible name are those of the list itself.
    Zeilenliste(const QString& Name, const QString& Hörname, QWidget* Eltern);

    QListWidget& Liste() { return *lstZeilen; }
    std::vector<std::string> Zeilen() const;
    void ZeilenSetzen(const std::vector<std::string>& Texte);
    // Appends a text and selects it; one that is there already, without regard to case, is selected only.
    void Hinzufügen(const QString& Text);
    void GewählteEntfernen();
    // Moves the current row by one place, up (-1) or down (1).
    void Verschieben(int Richtung);

    // A button beside the list; one that needs a row is disabled while none is selected.
    QPushButton* KnopfHinzufügen(const QString& Name, const QString& Text, bool BrauchtZeile,
                                 std::function<void()> Handler);
    // The buttons "Entfernen", also by the key Del, "Nach oben" and "Nach unten".
    void OrdnungsknöpfeHinzufügen();

  protected:
    bool eventFilter(QObject* Objekt, QEvent* Ereignis) override;

  private:
    QListWidget* lstZeilen;
    QVBoxLayout* Knöpfe;
};

}  // namespace liedwerk
