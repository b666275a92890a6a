// The port to the action log. A line is written as it is given; the log's own line end is its business.
#pragma once

#include <string>
#include <string_view>

#include "basis/uhr.h"

namespace liedwerk {

class Protokoll {
  public:
    virtual ~Protokoll() = default;
    // Appends one line. Does nothing while logging is off; never fails towards the caller.
    virtual void Schreiben(std::string_view Zeile) = 0;
    // False lets callers spare the work of building a line.
    virtual bool Aktiv() const = 0;
};

// "dd.mm.yyyy hh:nn:ss", the stamp with which many log lines end.
inline std::string Zeitstempel(const Uhr& Zeit) {
    return DatumZeitText(Zeit.Jetzt());
}

}  // namespace liedwerk
