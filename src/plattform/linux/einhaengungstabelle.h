// The mount table of the running system, kept up to date.
#pragma once

#include <string>
#include <vector>

#include "plattform/linux/einhaengungen.h"
#include "plattform/linux/griff.h"

namespace liedwerk {

// Not for several threads at once.
class Einhängungstabelle {
  public:
    Einhängungstabelle();
    // The mounts as they are now. The kernel says when they have changed, so asking costs one short call.
    const std::vector<Einhängung>& Jetzt();
    // Rises with every change that Jetzt has seen.
    unsigned Stand() const { return Änderungen; }

  private:
    void Lesen();
    Griffhalter Quelle;
    std::vector<Einhängung> Tabelle;
    unsigned Änderungen = 0;
};

// True when the device below a mount can be taken out: it says so itself, or hangs on a USB port.
bool GerätIstWechselbar(const Einhängung& Eingehängt);

// The label of a mounted device by the system's folder of labels, else by its file system; empty when it has
// none.
std::string DatenträgernameVon(const Einhängung& Eingehängt);

}  // namespace liedwerk
