// Reading media files ahead, on all cores.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "index/datensatz.h"

namespace liedwerk {

// One file on its way through the readers.
struct Leseposten {
    std::string Pfad;
    bool IstOrdner = false;
    Leseauftrag Auftrag;
    // Filled by the reader.
    bool Vorhanden = false;  // the path is what it shall be; only then there is a record
    Datensatz Satz;
    std::string Fehler;  // what kept the reader from giving a record
};

// As many threads as there are cores, no more than there is work for.
unsigned Lesefäden(std::size_t Dateien);
// How long a loop waits for a file before it looks for a cancel.
inline constexpr std::chrono::milliseconds Lesewartezeit(50);

// Takes files in order and gives their records back in the same order, while several threads read. Only the
// thread that made it calls its members. Memory is bounded by the fixed number of items on the way.
class Vorleser {
  public:
    // Anzahl threads (at least one) start at once. Leser is called from all of them.
    Vorleser(const MedienLeser& Leser, unsigned Anzahl);
    Vorleser(const Vorleser&) = delete;
    Vorleser& operator=(const Vorleser&) = delete;
    // Gives up what is not read yet; waits only for the files that are being read at the moment.
    ~Vorleser();

    bool Voll() const { return Aufgetragen - Abgeholt == Ringgröße; }
    // Adds a file; the threads see it at the next Losschicken. Not when Voll.
    void Auftragen(std::string Pfad, bool IstOrdner, const Leseauftrag& Auftrag);
    void Losschicken();
    // The oldest file's item once it is read; null when it is not within the time. There must be one.
    Leseposten* Abwarten(std::chrono::milliseconds Höchstens);
    // Done with the oldest item; its place is used again.
    void Ablegen();

  private:
    static constexpr std::uint64_t Ringgröße = 512;
    struct Platz {
        Leseposten Posten;
        std::atomic<bool> Fertig = false;
    };
    Platz& PlatzVon(std::uint64_t Nummer) { return Ring[Nummer % Ringgröße]; }
    void Arbeiten(const MedienLeser& Leser);
    void Lesen(const MedienLeser& Leser, Platz& Ziel);

    const std::uint64_t Fadenzahl;
    std::vector<Platz> Ring;
    std::uint64_t Aufgetragen = 0;  // items put in, published, taken by a thread, taken back
    std::uint64_t Losgeschickt = 0;
    std::uint64_t Geholt = 0;
    std::uint64_t Abgeholt = 0;
    std::mutex Riegel;  // guards Losgeschickt and Geholt
    std::condition_variable Arbeit;
    std::condition_variable Ergebnis;
    std::atomic<Platz*> Erwartet = nullptr;  // what the caller sleeps for on Ergebnis
    std::atomic<bool> Ende = false;
    std::vector<std::thread> Fäden;
};

}  // namespace liedwerk
