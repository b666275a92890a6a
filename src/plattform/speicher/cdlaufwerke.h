// Audio CDs in memory: drives whose discs are put in and taken out by a test.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "plattform/cdlaufwerke.h"

namespace liedwerk::speicher {

class CDs final : public CDLaufwerke {
  public:
    std::map<std::string, CDInhalt, std::less<>> Liste;  // by drive, without a separator at the end
    mutable int Fragen = 0;

    CDInhalt InhaltLesen(std::string_view Laufwerk) const override {
        ++Fragen;
        if (Laufwerk.ends_with('/') || Laufwerk.ends_with('\\')) Laufwerk.remove_suffix(1);
        const auto Fund = Liste.find(Laufwerk);
        if (Fund != Liste.end()) return Fund->second;
        CDInhalt Leer;
        Leer.Fehlernummer = 276;  // the number by which media services have always told of an empty drive
        Leer.Fehlertext = "Es liegt keine CD im Laufwerk.";
        return Leer;
    }
    std::vector<std::string> Auflisten() const override {
        std::vector<std::string> Namen;
        for (const auto& [Name, Inhalt] : Liste)
            Namen.push_back(Name);
        return Namen;
    }
};

}  // namespace liedwerk::speicher
