// Where the system's files live on this platform.
#pragma once

#include <string>
#include <string_view>

#include "plattform/linux/griff.h"

namespace liedwerk {

// The program folder, without a separator at its end: LIEDWERK_ORDNER if set; the executable's folder when it
// is writable and not below /usr (portable use); else $XDG_DATA_HOME/liedwerk. It is created; a folder that
// cannot be made shows when something is saved in it.
std::string Programmordner();

// $XDG_DATA_HOME, else ~/.local/share. It need not exist.
std::string Datenordner();

// $XDG_CONFIG_HOME/liedwerk/einstellungen.ini, and the machine's seed of it.
std::string Einstellungsdatei();
std::string Rechnereinstellungsdatei();

// For files that need not outlive the session: $XDG_RUNTIME_DIR/liedwerk, else
// $XDG_CACHE_HOME/liedwerk/wiedergabe. It need not exist.
std::string Laufzeitordner();

// The claim on the temporary index of the ways that run without one. The first process of a program folder
// has "tmp.lwi", each further one "tmp-<process id>.lwi", which goes with the claim. The first name is free
// again as soon as its process has ended, however it ended.
class Temporärindex {
  public:
    explicit Temporärindex(std::string_view Programmordner);
    Temporärindex(const Temporärindex&) = delete;
    Temporärindex& operator=(const Temporärindex&) = delete;
    ~Temporärindex();
    // Full path.
    const std::string& Pfad() const { return Name; }

  private:
    Griffhalter Anspruch;
    std::string Name;
};

}  // namespace liedwerk
