// Watching folders by inotify(7).
#pragma once

#include <chrono>
#include <memory>

#include "plattform/ordnerwacht.h"

namespace liedwerk {

// When and how much is told and watched.
struct Wachtmaß {
    std::chrono::milliseconds Ruhe{3000};        // so long nothing may happen before a message
    std::chrono::milliseconds Höchstens{30000};  // but not longer than this after the first event
    std::size_t Ordner = 65536;  // watched at most, and at most half of what the system grants a person
};

// Each order has a thread of its own that sleeps in the kernel until something happens. A folder that does
// not answer holds up that thread alone: nobody waits for it, not even at the end.
class Systemordnerwacht final : public Ordnerwacht {
  public:
    explicit Systemordnerwacht(Wachtmaß Maße = {}) : Maß(Maße) {}
    ~Systemordnerwacht() override { Beenden(); }
    void Beginnen(Wachtauftrag Auftrag) override;
    void Beenden() override;

    struct Lauf;

  private:
    Wachtmaß Maß;
    std::shared_ptr<Lauf> Laufender;
};

}  // namespace liedwerk
