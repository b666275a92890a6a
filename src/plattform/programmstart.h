// The port to other programs: start, file association, where a program lies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace liedwerk {

// A started program; Nummer is 0 when the start failed, and Fehler then says why (German).
struct Programmlaufnummer {
    std::int64_t Nummer = 0;
    std::string Fehler{};
    explicit operator bool() const { return Nummer != 0; }
};

class Programmstart {
  public:
    virtual ~Programmstart() = default;
    // Starts a program that lives on its own, never through a shell. Arguments are handed over byte by byte.
    virtual Programmlaufnummer Starten(std::string_view Programm,
                                       const std::vector<std::string>& Argumente) = 0;
    // True while a started program runs.
    virtual bool Läuft(const Programmlaufnummer& Gestartet) const = 0;
    // Opens a file with the program that the desktop associates with it; only a full path is one.
    virtual Programmlaufnummer MitAnwendungÖffnen(std::string_view Pfad) = 0;
    // Full path of a program by its file name, as the system finds it; empty when it is not installed.
    virtual std::string Finden(std::string_view Name) const = 0;
};

// The words of a line of switches: separated by blanks, double quotes hold a word together, three of them are
// one quote.
std::vector<std::string> SchalterZerlegen(std::string_view Zeile);

}  // namespace liedwerk
