// The counts of a driver: cases, runs in them, breaches.
#pragma once

#include <string>

namespace liedwerk::haerte {

// What a run of the driver has found.
class Bericht {
  public:
    // A case is one writer or function in one part; it failed when there was a breach since its begin.
    void FallBeginnen(const std::string& Name);
    void FallBeenden();
    void Eingriff() { ++Eingriffe; }
    void Bruch(const std::string& Text);
    // The last line, counted by ./testen; true when no case failed.
    bool Schluss() const;
    long Anzahl() const { return Eingriffe; }

  private:
    std::string Fall;
    long Eingriffe = 0;
    long EingriffeVorher = 0;
    int Brüche = 0;
    int BrücheVorher = 0;
    int Bestanden = 0;
    int Misslungen = 0;
};

}  // namespace liedwerk::haerte
