// A recycle bin in memory: keeps the content of what was thrown away, or refuses everything.
#pragma once

#include <map>
#include <string>

#include "plattform/papierkorb.h"

namespace liedwerk::speicher {

class Eimer final : public Papierkorb {
  public:
    std::map<std::string, std::string, std::less<>> Inhalt;  // by path
    Dateifehler Fehler;                                      // what Verschieben answers
    Dateifehler Verschieben(std::string_view Pfad) override {
        if (Fehler) return Fehler;
        Inhalt[std::string(Pfad)] = DateiLesen(Pfad).value_or("");
        return DateiLöschen(Pfad);
    }
};

}  // namespace liedwerk::speicher
