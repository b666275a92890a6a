// The animated window title: a message writes itself into it letter by letter, stays a moment and makes way
// for the normal title. So a minimised window tells what happened, too.
#pragma once

#include <QTimer>
#include <QWidget>

namespace liedwerk {

class Titelschrift {
  public:
    // Ziel must outlive this; Normal is its title while there is nothing to tell.
    Titelschrift(QWidget& Ziel, QString Normal);
    // Begins to write Text, in place of one that is still being written; empty: back to the normal title.
    void Zeigen(const QString& Text);

  private:
    void tmrTimer1_Timer();

    QWidget& Fenster;
    QString Normaltitel;
    QString Schrift;
    qsizetype Länge = 0;
    QTimer tmrTimer1;  // runs only while there is something to write or to take back
};

}  // namespace liedwerk
