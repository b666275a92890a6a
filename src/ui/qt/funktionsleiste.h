// The function pane: what can be done now, as a column of flat buttons under small headings.
#pragma once

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

namespace liedwerk {

class Funktionsleiste final : public QWidget {
  public:
    explicit Funktionsleiste(QWidget* Eltern);

    // A heading with buttons for the given actions. A button is shown while its action is enabled, the
    // heading while any of its buttons is.
    void GruppeHinzufügen(const QString& Titel, const QList<QAction*>& Aktionen);
    // What stands at the foot of the pane.
    void FußHinzufügen(QWidget* Fuß);

  private:
    QVBoxLayout* Ganz;
    QVBoxLayout* Spalte;  // of the groups
};

}  // namespace liedwerk
