// The port to a system that is about to be switched off: asks it to wait until the program has saved.
#pragma once

#include <functional>
#include <memory>

namespace liedwerk {

// A request to the system; it is withdrawn with this object, at the latest with the process.
class Abschaltaufschub {
  public:
    virtual ~Abschaltaufschub() = default;
    // True from when the system has agreed to wait.
    virtual bool Zugesagt() const = 0;
};

// Asks the session service (systemd-logind, org.freedesktop.login1) for a delay of the shutdown. The answer
// is not waited for; without the service nothing happens. BeimAbschalten runs in the calling thread's event
// loop when the shutdown has begun; the system then waits for the end of the object, five seconds by default.
std::unique_ptr<Abschaltaufschub> SystemaufschubFordern(std::function<void()> BeimAbschalten);

}  // namespace liedwerk
