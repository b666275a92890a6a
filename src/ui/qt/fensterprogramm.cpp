#include "ui/qt/fensterprogramm.h"

#include <QEvent>
#include <QThread>
#include <new>

using namespace Qt::StringLiterals;

namespace liedwerk {
namespace {

constexpr int Pause = 30000;  // milliseconds in which a fault that comes by itself is not told again

thread_local int Zustellungen = 0;

struct Zustellung {
    Zustellung() { ++Zustellungen; }
    ~Zustellung() { --Zustellungen; }
    Zustellung(const Zustellung&) = delete;
    Zustellung& operator=(const Zustellung&) = delete;
};

}  // namespace

int Fensterprogramm::Tiefe() {
    return Zustellungen;
}

bool Fensterprogramm::notify(QObject* Empfänger, QEvent* Ereignis) {
    const QEvent::Type Art = Ereignis->type();
    const bool Wiederkehrend = Art == QEvent::Paint || Art == QEvent::UpdateRequest || Art == QEvent::Timer;
    const Zustellung Diese;
    try {
        return QApplication::notify(Empfänger, Ereignis);
    } catch (const std::bad_alloc&) {
        Scheitern("Nicht genügend Arbeitsspeicher.", Wiederkehrend);
    } catch (const std::exception& Fehler) {
        Scheitern(Fehler.what(), Wiederkehrend);
    }
    return false;
}

// The memory may still be short: what fails here as well is left out.
void Fensterprogramm::Scheitern(const char* Grund, bool Wiederkehrend) try {
    qCritical("Ausnahme in einem Ereignis: %s", Grund);
    const bool ImFenster = thread() == QThread::currentThread();
    if (ImFenster && Aufräumen) Aufräumen(Tiefe());
    const QString Text =
        u"Der Vorgang konnte nicht zu Ende geführt werden:\n%1\n\n"
        "Das Programm läuft weiter. Bitte prüfen Sie, was davon schon ausgeführt wurde, bevor Sie den "
        "Index speichern."_s.arg(QString::fromUtf8(Grund));
    QMetaObject::invokeMethod(
        this,
        [this, Text, Wiederkehrend] {
            if (Offen || (Wiederkehrend && !Ruhe.hasExpired())) return;
            Zeigen(Text);
        },
        Qt::QueuedConnection);
} catch (const std::exception&) {
}

void Fensterprogramm::Zeigen(const QString& Text) {
    Offen = true;
    try {
        if (Melden) Melden(Text);
    } catch (const std::exception&) {
        // Not even room for a message; the line on the error output is there.
    }
    Offen = false;
    Ruhe.setRemainingTime(Pause);
}

}  // namespace liedwerk
