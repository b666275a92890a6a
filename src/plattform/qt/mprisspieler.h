// Audio players of the desktop: MPRIS 2.2 (the desktop standard for remote control of media players), over
// the session bus.
#pragma once

#include <QObject>
#include <QThread>
#include <memory>

#include "plattform/spieler.h"

namespace liedwerk {

class Mprisarbeiter;
struct Mprisbild;

// Everything that speaks to the bus runs in a thread of its own, from the first call of Finden on; this class
// only reads what that thread found and hands it the commands. So nothing here waits for bus or player. While
// no player is there, the thread sleeps until the bus tells of one.
class Mprisspieler final : public Spielerkanal {
  public:
    Mprisspieler();
    ~Mprisspieler() override;
    Mprisspieler(const Mprisspieler&) = delete;
    Mprisspieler& operator=(const Mprisspieler&) = delete;

    Spielerfenster Finden(const Spielerprofil& Profil) override;
    std::int64_t Senden(Spielerfenster Fenster, int Nachricht, int wParam, int lParam) override;
    Spielerlage Lage(Spielerfenster Fenster) const override;
    bool Umgesehen() const override;
    bool Schweigt() const override;

  private:
    std::shared_ptr<Mprisbild> Bild;
    Mprisarbeiter* Arbeiter = nullptr;  // lives in Faden and goes with it
    QThread* Faden = nullptr;           // left behind when the bus hangs
    QObject Empfänger;                  // in the owner's thread
};

}  // namespace liedwerk
