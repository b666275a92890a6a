// The application of the windows: what goes wrong in a handler is told, and the program goes on.
#pragma once

#include <QApplication>
#include <QDeadlineTimer>
#include <functional>

namespace liedwerk {

// Qt carries no exception through its event loop: one that left a handler would end the program, and changes
// that are not saved with it. Here each delivery of an event ends it.
class Fensterprogramm final : public QApplication {
  public:
    Fensterprogramm(int& Anzahl, char** Werte) : QApplication(Anzahl, Werte) {}

    // Shows the person a text; called by the event loop, never within the handler that failed. A fault of
    // painting or of a clock, which would come again at once, is told only when the last one is some time
    // ago.
    std::function<void(const QString& Text)> Melden;
    // Gives back what a failed handler has left open, such as a window of progress that was opened in a
    // delivery of at least this depth.
    std::function<void(int Tiefe)> Aufräumen;
    // How many events are being delivered within each other in the windows' thread.
    static int Tiefe();

    bool notify(QObject* Empfänger, QEvent* Ereignis) override;

  private:
    void Scheitern(const char* Grund, bool Wiederkehrend);
    void Zeigen(const QString& Text);

    QDeadlineTimer Ruhe{0};
    bool Offen = false;  // a message stands on the screen, or is about to
};

}  // namespace liedwerk
