#include "haerte/stoerung/bericht.h"

#include <cstdio>
#include <iostream>

namespace liedwerk::haerte {

void Bericht::FallBeginnen(const std::string& Name) {
    Fall = Name;
    BrücheVorher = Brüche;
    EingriffeVorher = Eingriffe;
}

void Bericht::FallBeenden() {
    const int Neue = Brüche - BrücheVorher;
    ++(Neue == 0 ? Bestanden : Misslungen);
    std::printf("%-60s %6ld Eingriffe %4d Brüche\n", Fall.c_str(), Eingriffe - EingriffeVorher, Neue);
    std::fflush(stdout);
}

void Bericht::Bruch(const std::string& Text) {
    ++Brüche;
    std::cout << "BRUCH " << Fall << ": " << Text << std::endl;
}

bool Bericht::Schluss() const {
    std::printf("\n%ld Eingriffe, %d Brüche\n%d bestanden, %d misslungen\n", Eingriffe, Brüche, Bestanden,
                Misslungen);
    return Misslungen == 0;
}

}  // namespace liedwerk::haerte
