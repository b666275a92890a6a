// The desktop's wish for light or dark windows, from the settings portal of the session bus. Desktops whose
// palette Qt does not know (a bare window manager, or one without a theme for Qt) tell it only there.
#pragma once

#include <QDBusConnection>
#include <QObject>

#include "plattform/desktopfarben.h"
#include "plattform/qt/busempfang.h"

namespace liedwerk {

class Portalfarben final : public QObject, public Desktopfarben {
  public:
    explicit Portalfarben(const QDBusConnection& Verbindung = QDBusConnection::sessionBus());
    bool Dunkel() const override { return IstDunkel; }

  private:
    void Fragen();
    void Nehmen(const QVariant& Antwort);

    QDBusConnection Bus;
    Busempfang Empfang;
    bool IstDunkel = false;
};

}  // namespace liedwerk
