// The row of letter buttons: everything whose field begins with a letter, by one click.
#pragma once

#include <QActionGroup>
#include <QMenu>
#include <QToolButton>
#include <QWidget>
#include <functional>

namespace liedwerk {

class Buchstabenleiste final : public QWidget {
  public:
    explicit Buchstabenleiste(QWidget* Eltern);

    std::function<void(const QString& Buchstabe)> Geklickt;
    // The ticked field of the menu; empty when none is.
    QString Feld() const;

  protected:
    bool eventFilter(QObject* Knopf, QEvent* Ereignis) override;

  private:
    void Ansteuern(qsizetype Platz);

    QList<QToolButton*> cmdSucheBuchstabe;
    QToolButton* cmdSucheBuchstabeEinstellen;
    QMenu* mnuBuchstabensuche;
    QActionGroup* mnu_Buchstabensuche_Auswahl;
};

}  // namespace liedwerk
