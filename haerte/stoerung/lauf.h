// Running a program under disturbance: what is disturbed, and what came of it.
//
// vorlader.cpp is loaded into the program and disturbs its writing calls; lauf starts it, bounds its time and
// reads the protocol. welt.h keeps the files that it works on and judges what became of them; schreiber.h is
// the table of the program's ways of writing; reihenfolge.h judges the order of calls. haupt.cpp has the
// parts that can be asked for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace liedwerk::haerte {

// One writing call, as the preloaded library has noted it.
struct Rufzeile {
    std::string Name;
    long Ergebnis = 0;  // below 0: -errno
    std::string Pfad;
    std::string Neu;  // the second name of a rename
};

inline constexpr std::int64_t Zeitgrenze = 20'000'000;  // microseconds that a run may take

// What happens to a run. The members are the library's variables, see vorlader.cpp.
struct Störung {
    std::string Art;
    long Ruf = 0;  // 1-based; 0: none
    bool Immer = false;
    std::string Grenze;
    long Pause = 0;  // microseconds
    std::uint64_t Saat = 0;
    long Raffer = 1000;             // waiting takes so many times less
    std::int64_t TötenNach = -1;    // microseconds until SIGKILL from outside; below 0: never
    std::int64_t AbbruchNach = -1;  // the same for one SIGINT
    bool Überall = false;           // calls on names outside the world count as well
    long Namensdauer = 0;           // seconds that the look-up of a host's name takes
};

struct Laufergebnis {
    int Status = -1;  // of the exit; -1 when it did not end by itself
    int Signal = 0;
    bool Hängt = false;  // did not end in time
    std::string Ausgabe;
    std::string Meldungen;  // standard error
    std::vector<Rufzeile> Rufe;
    std::int64_t Dauer = 0;         // microseconds
    std::int64_t SeitAbbruch = -1;  // of these behind the SIGINT; below 0: it had ended before
    std::int64_t Höchststand = 0;   // KiB of memory
    std::int64_t Rechenzeit = 0;    // microseconds of processor time
    bool Gelungen() const { return Status == 0; }
};

// The places of a run of the driver.
struct Orte {
    std::string Programm;    // liedwerk-cli
    std::string Handgriffe;  // liedwerk-handgriffe
    std::string Generator;   // liedwerk-indexgenerator
    std::string Vorlader;    // the library
    std::string Ablage;      // protocols and outputs
    std::string Welt;        // the files that the program works on
    std::string Späher{};  // a library that notes instead of the other one, which then only shortens waiting
    std::string Suchpfad = "/usr/bin:/bin";
    std::vector<std::string> Umgebung{};  // further variables, "NAME=value"
};

// A program that is running; several may run at once. Kennung tells their outputs apart.
class Gestarteter {
  public:
    Gestarteter(const Orte& Wo, const std::vector<std::string>& Befehl, const Störung& Wie, int Kennung);
    // Waits for the end, killing at the time that was asked for, and after Höchstens microseconds.
    Laufergebnis Abwarten(std::int64_t Höchstens = Zeitgrenze);
    int Prozessnummer() const { return Prozess; }

  private:
    std::string Anfang;  // of the names of outputs
    std::int64_t Beginn;
    std::int64_t TötenNach;
    std::int64_t AbbruchNach;
    int Prozess = -1;
};

// Starts and waits. The first word of Befehl is the program.
Laufergebnis Laufen(const Orte& Wo, const std::vector<std::string>& Befehl, const Störung& Wie = {});

}  // namespace liedwerk::haerte
