// Port: whether the desktop asks for dark windows, where its palette does not say so.
#pragma once

#include <functional>

namespace liedwerk {

class Desktopfarben {
  public:
    virtual ~Desktopfarben() = default;

    // What is known by now; false while the desktop has not answered. Never waits.
    virtual bool Dunkel() const = 0;
    // Called in the thread of the windows whenever the answer changes.
    std::function<void()> Geändert;
};

}  // namespace liedwerk
